# The server: its commands, its settings, and what it knows.

need_server_commands()
{
    local command
    for command in cimserver cimmof cimmofl cimprovider cimcli cimconfig; do
        command -v "$command" >/dev/null ||
            die "$command not found: install OpenPegasus, or add the directory of its commands to PATH"
    done
}

server_runs() { cimserver --status >/dev/null 2>&1; }

# setting NAME DEFAULT: a setting of the server, as an absolute path; its first directory where it is a list
setting()
{
    local value=
    if server_runs; then
        value=$(cimconfig -g "$1" -c 2>/dev/null | sed -n 's/^Current value: //p')
    elif [ -r "${PEGASUS_HOME-}/cimserver_planned.conf" ]; then
        value=$(sed -n "s/^$1=//p" "$PEGASUS_HOME/cimserver_planned.conf")
    elif [ -r /etc/Pegasus/cimserver_planned.conf ]; then
        value=$(sed -n "s/^$1=//p" /etc/Pegasus/cimserver_planned.conf)
    fi
    value=${value:-$2}
    value=${value%%:*}
    case "$value" in
    /*) printf '%s\n' "$value" ;;
    *) [ -z "${PEGASUS_HOME-}" ] || printf '%s\n' "$PEGASUS_HOME/$value" ;;
    esac
}

find_provider_dir()
{
    [ -n "$provider_dir" ] || provider_dir=$(setting providerDir lib)
    [ -n "$provider_dir" ] || die "the server's provider directory is not known: set PEGASUS_HOME, or give --provider-dir"
    [ -d "$provider_dir" ] || die "the server's provider directory $provider_dir does not exist: give --provider-dir"
}

find_repository()
{
    [ -n "$repository" ] || repository=$(setting repositoryDir repository)
    [ -n "$repository" ] || die "the server's repository is not known: set PEGASUS_HOME, or give --repository"
    [ -d "$repository" ] || die "the server's repository $repository does not exist: give --repository"
}

# Not grep -q, which would end before the list does and break the pipe.
registered() { cimprovider -l 2>/dev/null | grep -x "$module_name" >/dev/null; }
module_state() { cimprovider -l -s 2>/dev/null | sed -n "s/^$module_name  *//; T; s/ *\$//p"; }
class_known() { cimcli gc "$1" -n "$class_space" >/dev/null 2>&1; }

# run WHAT COMMAND...: runs a command of the server; on failure says what could not be done, and the command's reason
run()
{
    local what=$1 output
    shift
    output=$("$@" 2>&1) || die "cannot $what: $output"
}
