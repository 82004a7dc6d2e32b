# Turns the class declarations of a MOF file into C++: the tables that tools/knowledge/Schema.h declares. After
# scripts/mof.awk.

END {
    tokenize()
    print "// Made from schema/SystemProvider.mof by scripts/mof-to-cpp.awk."
    print "#include \"tools/knowledge/Schema.h\"\n"
    print "namespace VQ::Tool\n{\n"
    print "namespace\n{"
    for (at = 1; at <= count;)
        class()
    print "constexpr SchemaClass Classes[] = {"
    printf "%s", classes
    print "};\n}\n\nList<SchemaClass> schemaClasses()\n{"
    print "    return {Classes, sizeof Classes / sizeof *Classes};\n}\n\n}"
}

function quoted(text)
{
    gsub(/\\/, "\\\\", text)
    gsub(/"/, "\\\"", text)
    return "\"" text "\""
}

function class(    name, description)
{
    qualifiers()
    description = value["Description"]
    take("class")
    name = token[at++]
    take(":")
    at++
    rows = ""
    for (take("{"); token[at] != "}";)
        member(name)
    take("}")
    take(";")
    printf "constexpr SchemaProperty Of%s[] = {\n%s};\n\n", name, rows
    classes = classes sprintf("    {%s, %s, {Of%s, sizeof Of%s / sizeof *Of%s}},\n", quoted(name), quoted(description), \
        name, name, name)
}

function member(owner,    type, name, codes, otherwise, i, isList, table)
{
    qualifiers()
    type = token[at++]
    name = token[at++]
    isList = "false"
    if (token[at] == "(") {
        at += 2
        take(";")
        return
    }
    if (token[at] == "[") {
        isList = "true"
        at += 2
    }
    take(";")
    if (size["ValueMap"] != size["Values"])
        fail("as many Values as codes in ValueMap of " name)
    table = "nullptr, 0"
    for (i = 1; i <= size["ValueMap"]; i++)
        if (list["ValueMap", i] == "..")
            otherwise = list["Values", i]
        else
            codes = codes "    {" list["ValueMap", i] ", " quoted(list["Values", i]) "},\n"
    if (codes != "") {
        table = owner name
        printf "constexpr SchemaCode %s[] = {\n%s};\n\n", table, codes
        table = table ", sizeof " table " / sizeof *" table
    }
    rows = rows sprintf("    {%s, %s, %s, %s, %s, %s, {%s}, %s},\n", quoted(name), quoted(type), isList, \
        "Key" in value ? "true" : "false", quoted("PUnit" in value ? value["PUnit"] : value["Units"]), \
        quoted(value["Description"]), table, quoted(otherwise))
}
