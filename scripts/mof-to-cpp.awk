# Turns what a MOF file says of the values of its properties, their units and the texts of their codes, into C++: the table
# that tools/Schema.h declares. After scripts/mof.awk.

END {
    tokenize()
    print "// Made from schema/SystemProvider.mof by scripts/mof-to-cpp.awk."
    print "#include \"tools/Schema.h\"\n"
    print "namespace VQ::Tool\n{\n"
    for (at = 1; at <= count;)
        class()
    print "const std::vector<SchemaProperty>& schemaProperties()\n{"
    print "    static const std::vector<SchemaProperty> properties = {"
    printf "%s", rows
    print "    };\n    return properties;\n}\n\n}"
}

function quoted(text)
{
    gsub(/\\/, "\\\\", text)
    gsub(/"/, "\\\"", text)
    return "\"" text "\""
}

function class(    name)
{
    qualifiers()
    take("class")
    name = token[at++]
    take(":")
    at++
    for (take("{"); token[at] != "}";)
        member(name)
    take("}")
    take(";")
}

function member(owner,    name, codes, otherwise, i)
{
    qualifiers()
    at++
    name = token[at++]
    if (token[at] == "[" || token[at] == "(")
        at += 2
    take(";")
    if (size["ValueMap"] != size["Values"])
        fail("as many Values as codes in ValueMap of " name)
    for (i = 1; i <= size["ValueMap"]; i++)
        if (list["ValueMap", i] == "..")
            otherwise = list["Values", i]
        else
            codes = codes (codes == "" ? "" : ", ") "{" list["ValueMap", i] ", " quoted(list["Values", i]) "}"
    if (codes == "" && !("Units" in value) && !("PUnit" in value))
        return
    rows = rows sprintf("        {%s, %s, %s, {%s}, %s},\n", quoted(owner), quoted(name), \
        quoted("PUnit" in value ? value["PUnit"] : value["Units"]), codes, quoted(otherwise))
}
