# How things stand, shortly.

status()
{
    local known=0 class
    need_server_commands
    server_runs || die "the CIM server is not running; what is registered can't be seen: start it (cimserver)"
    for class in "${classes[@]}"; do
        ! class_known "$class" || known=$((known + 1))
    done
    say "classes: $known of ${#classes[@]} in $class_space"
    if ! registered; then
        say "registration: none"
        return 1
    fi
    say "registration: $module_name, state $(module_state)"
    [ "$known" -eq "${#classes[@]}" ]
}
