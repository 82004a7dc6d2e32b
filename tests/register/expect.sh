# For scripts that test vq-register: what it says and how it ends, exactly.
export LC_ALL=C.UTF-8 # bash complains of a locale that is not there

failures=0

# expect CODE COMMAND...: the command must end with this code, and say what stands on standard input: first the lines of
# its standard output, then those of its standard error, each with "! " before it.
expect()
{
    local code=$1 expected got status=0
    shift
    expected=$(cat)
    got=$("$@" 2>"$scratch/stderr") || status=$?
    got=$(printf '%s' "$got" && [ ! -s "$scratch/stderr" ] || { [ -z "$got" ] || echo; sed 's/^/! /' "$scratch/stderr"; })
    if [ "$status" -ne "$code" ] || [ "$got" != "$expected" ]; then
        failures=$((failures + 1))
        printf 'FAILED: %s\nexit code %s, expected %s\n' "$*" "$status" "$code"
        diff <(printf '%s\n' "$expected") <(printf '%s\n' "$got") | sed 's/^</missing: /; s/^>/instead: /'
    fi
}

# same WHAT EXPECTED GOT
same()
{
    if [ "$2" != "$3" ]; then
        failures=$((failures + 1))
        printf 'FAILED: %s\n' "$1"
        diff <(printf '%s\n' "$2") <(printf '%s\n' "$3") | sed 's/^</missing: /; s/^>/instead: /'
    fi
}

finish()
{
    [ "$failures" -eq 0 ] || { echo "$failures failure(s)"; exit 1; }
    echo "all as expected"
}
