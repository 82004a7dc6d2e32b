# Everything that the module needs, with what is wrong and what to do.

problems=0
good() { say "ok       $*"; }
bad()
{
    say "problem  $*"
    problems=$((problems + 1))
}

check_tables()
{
    if [ ! -d "$tables" ]; then
        bad "this machine has no $tables: without an SMBIOS table the hardware classes are empty (a container, or a machine without SMBIOS)"
    elif [ "$(id -u)" -ne 0 ]; then
        bad "the SMBIOS table is readable by root only, and this is not root: run vq-register doctor as root to check it"
    elif ! cat "$tables/smbios_entry_point" "$tables/DMI" >/dev/null 2>&1; then
        bad "the SMBIOS table in $tables can't be read: the kernel or a security module forbids it"
    else
        good "the SMBIOS table can be read"
    fi
}

check_registration()
{
    local class missing=() state
    for class in "${classes[@]}"; do
        class_there "$class" || missing+=("$class")
    done
    if [ ${#missing[@]} -eq 0 ]; then
        good "all ${#classes[@]} classes are in $class_space"
    else
        bad "classes missing in $class_space: ${missing[*]}; run vq-register register"
    fi
    if ! registered; then
        bad "the module is not registered; run vq-register register"
        return
    fi
    state=$(module_state)
    case "$state" in
    OK*) good "the module is registered and enabled" ;;
    *) bad "the module is disabled (state ${state:-unknown}); enable it: cimprovider -e -m $module_name" ;;
    esac
}

doctor()
{
    local problem
    need commands_problem
    if problem=$(module_problem); then good "the server can load $module"; else bad "$problem"; fi
    find_places
    need provider_dir_problem
    if linked; then
        good "the server finds the module in $provider_dir"
    else
        bad "the module is not linked into $provider_dir; run vq-register register"
    fi
    if server_runs; then
        good "the CIM server is running"
        check_registration
    else
        bad "the CIM server is not running: start it (cimserver), then run vq-register doctor again for the registration"
    fi
    check_tables
    [ "$problems" -eq 0 ] || die "$problems problem(s) found"
}
