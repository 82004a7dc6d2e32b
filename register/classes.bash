# Registration: the classes and the module's registration, into the server and back.

check_schema()
{
    local file
    for file in SystemProvider.mof SystemProviderRegistration.mof; do
        [ -r "$schema/$file" ] || die "$schema/$file is not there: install it, or give --schema"
    done
}

register_running()
{
    run "add the classes to $class_space" cimmof -w -aV -uc -n "$class_space" "$schema/SystemProvider.mof"
    say "classes: ${#classes[@]} in $class_space"
    if registered; then
        run "remove the old registration" cimprovider -r -m "$module_name"
    fi
    run "register the module" cimmof -w -n "$interop_space" "$schema/SystemProviderRegistration.mof"
    say "registration: $module_name, state $(module_state)"
}

register_stopped()
{
    find_repository
    local into=(-W -w "-R$(dirname "$repository")" "-N$(basename "$repository")")
    run "add the classes to $class_space" cimmofl "${into[@]}" -aV -uc "-n$class_space" "$schema/SystemProvider.mof"
    say "classes: ${#classes[@]} in $class_space"
    run "register the module" cimmofl "${into[@]}" "-n$interop_space" "$schema/SystemProviderRegistration.mof"
    say "registration: $module_name, in effect when the server starts"
}

register()
{
    local problem
    need_server_commands
    check_schema
    problem=$(module_problem) || die "$problem"
    find_provider_dir
    link_module
    if server_runs; then register_running; else register_stopped; fi
}

unregister_running()
{
    local class
    if registered; then
        run "remove the registration" cimprovider -r -m "$module_name"
        say "registration: $module_name removed"
    else
        say "registration: none was there"
    fi
    for class in "${classes[@]}"; do
        if class_known "$class"; then
            run "remove the class $class" cimcli dc "$class" -n "$class_space"
            say "class: $class removed"
        fi
    done
}

# A repository can be added to without its server but not taken from; so the server is started for that, and stopped.
unregister_stopped()
{
    find_repository
    say "server: not running; starting it, without network, to take the registration back"
    run "start the CIM server" cimserver "repositoryDir=$repository" enableHttpConnection=false enableHttpsConnection=false
    trap 'cimserver -s >/dev/null 2>&1' EXIT
    unregister_running
    trap - EXIT
    run "stop the CIM server" cimserver -s
    say "server: stopped again"
}

unregister()
{
    need_server_commands
    find_provider_dir
    if server_runs; then unregister_running; else unregister_stopped; fi
    unlink_module
}
