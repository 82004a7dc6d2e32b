# How things stand, shortly.

status()
{
    local problem wrong=0 check
    need root_problem
    need config_problem
    need commands_problem
    find_places
    find_work
    if ! server_runs; then
        need hidden_server_problem
        die "the CIM server is not running; what is registered can't be seen: start it (cimserver)"
    fi
    say "classes: $(classes_known) of ${#classes[@]} in $class_space"
    if registered; then
        say "registration: $module_name, state $(module_state)"
        find_access -c
        report_access
    else
        say "registration: none"
    fi
    for check in provider_dir_problem module_problem link_problem interrupted_problem cut_files_problem classes_problem \
        registration_problem; do
        problem=$($check) || { complain "$problem"; wrong=1; }
    done
    return "$wrong"
}
