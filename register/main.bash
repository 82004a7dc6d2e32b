# The command line.

action=
while [ $# -gt 0 ]; do
    case "$1" in
    --module | --schema | --provider-dir | --repository)
        [ -n "${2-}" ] || bad_usage "$1 needs a value"
        variable=${1#--}
        printf -v "${variable//-/_}" '%s' "$2"
        shift
        ;;
    --help)
        usage
        exit 0
        ;;
    --version)
        say "vq-register $version"
        exit 0
        ;;
    register | unregister | status | doctor)
        [ -z "$action" ] || bad_usage "one action at a time: $action or $1"
        action=$1
        ;;
    *) bad_usage "unknown argument: $1" ;;
    esac
    shift
done
[ -n "$action" ] || bad_usage "which action?"
"$action"
