# Turns the class declarations of a MOF file into Markdown: a section for each class, a table row for each property and
# method. Knows as much of the language as schema/SystemProvider.mof uses; stops at anything else.

{
    source = source $0 "\n"
}

END {
    tokenize()
    print "# Classes and properties"
    print ""
    print "Made from `schema/SystemProvider.mof` by `scripts/update-docs`. Key properties are in bold. All classes are in"
    print "`root/cimv2`; a property that a class inherits and that is not listed here is never set."
    for (at = 1; at <= count;)
        class()
}

function fail(what)
{
    printf "mof-to-markdown: %s at \"%s\"\n", what, token[at] >"/dev/stderr"
    exit 1
}

# Splits the source into token[1..count]; strings keep their opening quote, which tells them from names.
function tokenize(    rest)
{
    for (rest = source; rest != ""; rest = substr(rest, RLENGTH + 1)) {
        if (match(rest, /^([ \t\n]+|\/\/[^\n]*\n)/))
            continue
        if (match(rest, /^"([^"\\]|\\.)*"/))
            token[++count] = unescaped(substr(rest, 1, RLENGTH - 1))
        else if (match(rest, /^[A-Za-z0-9_]+/) || match(rest, /^[][(){}:;,]/))
            token[++count] = substr(rest, 1, RLENGTH)
        else {
            RLENGTH = 1
            token[at = 1] = substr(rest, 1, 20)
            fail("unknown text")
        }
    }
}

function unescaped(text)
{
    gsub(/\\"/, "\"", text)
    gsub(/\\\\/, "\\", text)
    return text
}

function take(wanted)
{
    if (token[at] != wanted)
        fail("expected " wanted)
    at++
}

# A list in brackets: the text of a qualifier in value[name], the elements of an array in list[name, 1..size[name]].
function qualifiers(    name, closing)
{
    split("", value); split("", list); split("", size)
    for (take("["); token[at - 1] != "]"; at++) {
        name = token[at++]
        value[name] = ""
        size[name] = 0
        if (token[at] != "(" && token[at] != "{")
            continue
        closing = token[at++] == "(" ? ")" : "}"
        for (; token[at] != closing; at++) {
            if (token[at] == ",")
                continue
            list[name, ++size[name]] = substr(token[at], 2)
            value[name] = value[name] substr(token[at], 2)
        }
        at++
    }
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
