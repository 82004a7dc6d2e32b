# Turns the class declarations of a MOF file into Markdown: a section for each class, a table row for each property and
# method. After scripts/mof.awk.

END {
    tokenize()
    print "# Classes and properties"
    print ""
    print "Made from `schema/SystemProvider.mof` by `scripts/update-docs`. Key properties are in bold. All classes are in"
    print "`root/cimv2`; a property that a class inherits and that is not listed here is never set."
    for (at = 1; at <= count;)
        class()
}

function class(    name)
{
    qualifiers()
    take("class")
    name = token[at++]
    take(":")
    printf "\n## %s\n\n%s A subclass of `%s`.\n\n", name, value["Description"], token[at++]
    print "| property | type | meaning and source |"
    print "|---|---|---|"
    for (take("{"); token[at] != "}";)
        member()
    take("}")
    take(";")
}

function member(    type, name, meaning, i)
{
    qualifiers()
    type = token[at++]
    name = token[at++]
    if (token[at] == "[") {
        type = type "[]"
        at += 2
    } else if (token[at] == "(") {
        name = name "()"
        at += 2
    }
    take(";")
    meaning = value["Description"]
    if ("Units" in value)
        meaning = meaning " Unit: " value["Units"] "."
    for (i = 1; i <= size["ValueMap"]; i++)
        meaning = meaning (i == 1 ? " Codes: " : ", ") list["ValueMap", i] " " list["Values", i]
    if (size["ValueMap"])
        meaning = meaning "."
    printf "| %s | %s | %s |\n", "Key" in value ? "**" name "**" : name, type, meaning
}
