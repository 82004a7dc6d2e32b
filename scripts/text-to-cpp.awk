# Turns texts into C++: a constant for each file, named by its file (page.html: PageHtml), in the namespace of the tools.
# awk -v header=HEADER -f scripts/text-to-cpp.awk FILE...

BEGIN {
    print "// Made by scripts/text-to-cpp.awk."
    print "#include \"" header "\"\n"
    print "namespace VQ::Tool\n{\n"
}

FNR == 1 {
    if (NR > 1)
        print ";\n"
    split(FILENAME, path, "/")
    for (i = 1; i in path; i++)
        name = path[i]
    split(name, part, ".")
    printf "const char* const %s%s =", toupper(substr(part[1], 1, 1)) substr(part[1], 2), \
        toupper(substr(part[2], 1, 1)) substr(part[2], 2)
}

{
    gsub(/\\/, "&&")
    gsub(/"/, "\\\"")
    printf "\n    \"%s\\n\"", $0
}

END {
    print ";\n\n}"
}
