# Reads the class declarations of a MOF file, as much of the language as schema/SystemProvider.mof uses; stops at anything
# else. For awk programs that are given this file before their own (awk -f scripts/mof.awk -f ...): they call tokenize() at
# the end of the input, and walk through the tokens by take() and qualifiers().

{
    source = source $0 "\n"
}

function fail(what)
{
    printf "mof.awk: %s at \"%s\"\n", what, token[at] >"/dev/stderr"
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
