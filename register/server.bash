# The server: its commands, its settings, its processes, and what it knows.

commands=(cimserver cimmof cimprovider cimcli cimconfig)

root_problem()
{
    [ "$(id -u)" -eq 0 ] || { echo "only root may do that: run vq-register $action as root"; return 1; }
}

commands_problem()
{
    local command place
    for command in "${commands[@]}"; do
        place=$(type -P "$command") ||
            { echo "$command not found: install OpenPegasus, or add the directory of its commands to PATH"; return 1; }
        path_problem "the server's command" "$place" || return 1
    done
}

server_runs() { cimserver --status >/dev/null 2>&1; }

# ---- settings ------------------------------------------------------------------------------------------------------

# The file of what the server starts with. A server that is built from source has it in its home; where it has none, and a
# packaged server has it in another place, all settings are at their defaults.
config_file()
{
    local file
    if [ -n "${PEGASUS_HOME-}" ]; then
        say "$PEGASUS_HOME/cimserver_planned.conf"
        return
    fi
    for file in /etc/Pegasus /var/lib/Pegasus /etc/pegasus /etc/opt/tog-pegasus; do
        [ ! -e "$file/cimserver_planned.conf" ] || { say "$file/cimserver_planned.conf"; return; }
    done
}

config_problem()
{
    local file
    file=$(config_file)
    [ -z "${PEGASUS_HOME-}" ] || path_problem "PEGASUS_HOME" "$PEGASUS_HOME" || return 1
    [ -z "$file" ] || path_problem "the server's configuration" "$file"
}

# ask_settings -c|-p: sets `settings` to what is in effect (-c), or to what a server would start with (-p), a line each: our
# own server is without network, the real one may not be. Of a stopped server it is what is not at its default.
ask_settings()
{
    local file
    if server_runs; then
        settings=$(cimconfig -l "$1" 2>/dev/null)
    else
        file=$(config_file)
        settings=$([ -z "$file" ] || cat "$file" 2>/dev/null)
    fi
}

# setting NAME: nothing where it is at its default and the server does not run
setting()
{
    local line value=
    while read -r line; do
        [[ $line != "$1="* ]] || value=${line#*=}
    done <<<"$settings"
    say "$value"
}

# directory_setting NAME DEFAULT: as an absolute path; the first one of a list
directory_setting()
{
    local value
    value=$(setting "$1")
    value=${value:-$2}
    value=${value%%:*}
    case "$value" in
    /*) say "$value" ;;
    *) [ -z "${PEGASUS_HOME-}" ] || say "$PEGASUS_HOME/$value" ;;
    esac
}

# Sets provider_dir and repository, where they are not given.
find_places()
{
    ask_settings -c
    provider_dir=${provider_dir:-$(directory_setting providerDir lib)}
    repository=${repository:-$(directory_setting repositoryDir repository)}
    [ -z "$repository" ] || repository=$(realpath -m "$repository")
    # The server that answers may be our own, left by a run that was killed.
    case "$repository" in
    */.vq-register/*) repository=${repository%/.vq-register/*}/${repository##*/} ;;
    esac
}

# directory_name_problem WHAT PATH OPTION, directory_problem WHAT PATH OPTION: what is wrong with the name, with it all
directory_name_problem() { [ -n "$2" ] || { echo "$1 is not known: set PEGASUS_HOME, or give $3"; return 1; }; }
directory_problem()
{
    directory_name_problem "$@" || return 1
    [ -d "$2" ] || { echo "$1 $2 does not exist: give $3"; return 1; }
    path_problem "$1" "$2"
}
provider_dir_problem() { directory_problem "the server's provider directory" "$provider_dir" --provider-dir; }
repository_problem() { directory_problem "the server's repository" "$repository" --repository; }

# room_problem DIRECTORY KILOBYTES FILES: says what keeps root from writing that much into the directory
room_problem()
{
    local kilobytes files
    [ -w "$1" ] || { echo "$1 can't be written: its file system is read-only, or forbids it"; return 1; }
    read -r -d '' _ kilobytes < <(df -k --output=avail "$1" 2>/dev/null)
    read -r -d '' _ files < <(df --output=iavail "$1" 2>/dev/null)
    [[ ! $kilobytes =~ ^[0-9]+$ ]] || [ "$kilobytes" -ge "$2" ] ||
        { echo "$1 has room for $kilobytes KB, and $2 KB are needed: make room on its file system"; return 1; }
    # Some file systems count no files: they say - or have 0 of 0.
    [[ ! $files =~ ^[1-9][0-9]*$ ]] || [ "$files" -ge "$3" ] ||
        { echo "$1 has room for $files files, and $3 are needed: remove files from its file system"; return 1; }
}

# ---- processes -----------------------------------------------------------------------------------------------------

# The processes of CIM servers that this system shows. Those that have ended and wait for their parent have no program.
server_processes()
{
    local file process
    while read -r file; do
        process=${file#/proc/}
        process=${process%/comm}
        [ ! -e "/proc/$process/exe" ] || say "$process"
    done < <(grep -lxE 'cimserver(main)?' /proc/[0-9]*/comm 2>/dev/null)
}

# process_repository PROCESS: where that server's repository is, as seen from here. One without a home is a packaged
# server: its repository has the place of ours, in its own view of the file system.
process_repository()
{
    local word home='' directory='' root=/proc/$1/root
    while IFS= read -r -d '' word; do
        case "$word" in repositoryDir=*) directory=${word#*=} ;; esac
    done < <(cat "/proc/$1/cmdline" 2>/dev/null)
    while IFS= read -r -d '' word; do
        case "$word" in PEGASUS_HOME=*) home=${word#*=} ;; esac
    done < <(cat "/proc/$1/environ" 2>/dev/null)
    [ -n "$directory" ] || [ -z "$home" ] ||
        directory=$(sed -n 's/^repositoryDir=//p' "$root$home/cimserver_current.conf" 2>/dev/null)
    [ -n "$home" ] || directory=${directory:-$repository}
    case "$directory" in
    /*) say "$root$directory" ;;
    *) say "$root$home/${directory:-repository}" ;;
    esac
} 2>/dev/null

# port_taken NAME DEFAULT: whether somebody listens at the port that the server would have for http or https
port_taken()
{
    local port
    [ "$(setting "enable${1^}Connection")" != false ] || return 1
    port=$(setting "$1Port")
    port=${port:-$2}
    awk -v "port=$(printf ':%04X$' "$port")" '$4 == "0A" && $2 ~ port { found = 1 } END { exit !found }' \
        /proc/net/tcp /proc/net/tcp6 2>/dev/null
}

# Says what shows that a server runs of which its own command does not know: its files must not be touched then.
hidden_server_problem()
{
    local process name
    for process in $(server_processes); do
        [ ! "$(process_repository "$process")" -ef "$repository" ] ||
            { echo "a CIM server runs as process $process, and cimserver --status does not know of it: stop that process"; return 1; }
    done
    for name in http:5988 https:5989; do
        ! port_taken "${name%:*}" "${name#*:}" || {
            echo "somebody listens at the CIM server's ${name%:*} port, and cimserver --status knows of no server: stop that program"
            return 1
        }
    done
}

# ---- what it knows -------------------------------------------------------------------------------------------------

# Not grep -q, which would end before the list does and break the pipe.
registered() { cimprovider -l 2>/dev/null | grep -x "$module_name" >/dev/null; }
module_state() { cimprovider -l -s 2>/dev/null | sed -n "s/^$module_name  *//; T; s/ *\$//p"; }

class_there()
{
    local code=0
    cimcli gc "$1" -n "$class_space" >/dev/null 2>&1 || code=$?
    [ "$code" -ne 6 ] # CIM_ERR_NOT_FOUND
}

# The version that the server has of a class; nothing where it does not have the class, or can't read it.
class_version()
{
    local text
    text=$(cimcli gc "$1" -n "$class_space" 2>/dev/null)
    [[ ! $text =~ Version\ *\(\ *\"([^\"]*)\" ]] || say "${BASH_REMATCH[1]}"
}

classes_known()
{
    local class known=0
    for class in "${classes[@]}"; do
        [ -z "$(class_version "$class")" ] || known=$((known + 1))
    done
    say "$known"
}

# The classes and the methods that the registration of the module covers: the capabilities' numbers, as in the MOF files
capabilities()
{
    cimcli ni PG_ProviderCapabilities -n "$interop_space" 2>/dev/null |
        sed -n "/ProviderModuleName=\"$module_name\"/s/.*CapabilityID=\"\([0-9]*\)\".*/\1/p" | sort -n
}
methods_registered() { capabilities | grep -x 10 >/dev/null; }

classes_problem()
{
    local class there missing=() other=()
    for class in "${classes[@]}"; do
        there=$(class_version "$class")
        if [ -z "$there" ]; then
            missing+=("$class")
        elif [ "$there" != "$version" ]; then
            other+=("$class $there")
        fi
    done
    [ ${#missing[@]} -eq 0 ] || { echo "classes missing in $class_space: ${missing[*]}; run vq-register register"; return 1; }
    [ ${#other[@]} -eq 0 ] ||
        { echo "classes of another version than $version in $class_space: $(IFS=,; echo "${other[*]}"); run vq-register register"; return 1; }
}

registration_problem()
{
    local state there class missing=()
    registered || { echo "the module is not registered; run vq-register register"; return 1; }
    there=$(capabilities)
    for class in "${!classes[@]}"; do
        grep -x $((class + 1)) <<<"$there" >/dev/null || missing+=("${classes[class]}")
    done
    [ ${#missing[@]} -eq 0 ] || { echo "classes that the module is not registered for: ${missing[*]}; run vq-register register"; return 1; }
    state=$(module_state)
    case "$state" in
    OK*) ;;
    *) echo "the module is disabled (state ${state:-unknown}); enable it: cimprovider -e -m $module_name"; return 1 ;;
    esac
}
