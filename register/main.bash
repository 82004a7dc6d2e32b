# The command line.

options=(--module --schema --provider-dir --repository --with-methods --without-methods --trust-paths --json --help --version)

# distance A B: how many letters have to be typed, left out or changed to get from A to B
distance()
{
    local a=$1 b=$2 i j least above
    local -a row
    for ((j = 0; j <= ${#b}; ++j)); do row[j]=$j; done
    for ((i = 1; i <= ${#a}; ++i)); do
        above=${row[0]} row[0]=$i
        for ((j = 1; j <= ${#b}; ++j)); do
            least=$((above + 1))
            [ "${a:i-1:1}" != "${b:j-1:1}" ] || least=$above
            [ $((row[j] + 1)) -ge "$least" ] || least=$((row[j] + 1))
            [ $((row[j - 1] + 1)) -ge "$least" ] || least=$((row[j - 1] + 1))
            above=${row[j]} row[j]=$least
        done
    done
    echo "${row[${#b}]}"
}

bad_usage()
{
    complain "$*"
    usage_line >&2
    exit 2
}

unknown_word()
{
    local word apart near='' least=99
    for word in "${actions[@]}" "${options[@]}"; do
        apart=$(distance "${1%%=*}" "$word")
        if [ "$apart" -le $((${#word} / 3)) ] && [ "$apart" -lt "$least" ]; then
            near="; did you mean $word?" least=$apart
        fi
    done
    bad_usage "unknown ${2-action}: $1$near"
}

choose_methods()
{
    [ -z "$methods" ] || [ "$methods" = "$1" ] || bad_usage "--with-methods and --without-methods exclude each other"
    methods=$1
}

action=
undo=
while [ $# -gt 0 ]; do
    case "$1" in
    --module=* | --schema=* | --provider-dir=* | --repository=*)
        set -- "${1%%=*}" "${1#*=}" "${@:2}"
        continue
        ;;
    --module | --schema | --provider-dir | --repository)
        [ -n "${2-}" ] || bad_usage "$1 needs a value"
        variable=${1#--}
        printf -v "${variable//-/_}" '%s' "$(realpath -ms "$2")"
        shift
        ;;
    --with-methods) choose_methods with ;;
    --without-methods) choose_methods without ;;
    --trust-paths) trust_paths=yes ;;
    --json) json=yes ;;
    -h | --help)
        usage
        exit 0
        ;;
    --version)
        say "vq-register $version"
        exit 0
        ;;
    -*) unknown_word "$1" option ;;
    *)
        [[ " ${actions[*]} " == *" $1 "* ]] || unknown_word "$1"
        [ -z "$action" ] || bad_usage "one action at a time: $action or $1"
        action=$1
        ;;
    esac
    shift
done
[ -n "$action" ] || bad_usage "which action?"
[ -z "$json" ] || [ "$action" = doctor ] || bad_usage "--json is for doctor"

# What was begun and not brought to its end is taken back, however this program ends; kill -9 leaves it to the next run.
trap 'code=$?; trap - EXIT; [ -z "$undo" ] || "$undo"; exit "$code"' EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM
"$action"
