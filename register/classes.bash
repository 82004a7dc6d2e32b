# Registration: the link, the classes and the module's registration, into the server and back.

schema_problem()
{
    local file
    for file in SystemProvider SystemProviderRegistration SystemProviderMethods; do
        [ -r "$schema/$file.mof" ] || { echo "$schema/$file.mof is not there: install it, or give --schema"; return 1; }
        path_problem "the schema" "$schema/$file.mof" || return 1
    done
}

# What every change needs: a server that is known, and nobody else who changes its files.
prepare()
{
    need root_problem
    need config_problem
    need commands_problem
    find_places
    need provider_dir_problem
    need directory_name_problem "the server's repository" "$repository" --repository
    find_work
    # The lock ends with this program and the commands that it runs.
    { exec 9<"${repository%/*}"; } 2>/dev/null || die "the server's repository $repository does not exist: give --repository"
    flock -w 60 9 || die "another vq-register is at work on $repository: wait for it"
    clear_interrupted
    need repository_problem
    server_runs || need hidden_server_problem
    link_before=$(readlink "$provider_dir/libSystemProvider.so")
}

# The repository must be whole and have room: on a full disk a server writes files of no length, and then ends.
repository_ready()
{
    local kilobytes=0 files=0
    need room_problem "$provider_dir" 4 1
    need cut_files_problem
    if ! server_runs; then
        ! mountpoint -q "$repository" ||
            die "the repository $repository is a file system of its own, and a stopped server's is copied beside it: start the server (cimserver) first"
        read -r kilobytes _ < <(du -sk "$repository")
        files=$(find "$repository" | wc -l)
    fi
    need room_problem "$repository" $((kilobytes + 4096)) $((files + 100))
    need room_problem "${repository%/*}" $((kilobytes + 4096)) $((files + 100))
}

# Changes what the server has: the one that runs, or our own for a copy of the repository of a stopped one.
on_server()
{
    if server_runs; then
        undo=$2
        "$1" -c
        undo=
    else
        on_copy "$1"
    fi
}

# ---- register ------------------------------------------------------------------------------------------------------

add()
{
    local mof=("$schema/SystemProviderRegistration.mof")
    find_access "$1"
    ! methods_wanted || mof+=("$schema/SystemProviderMethods.mof")
    run "add the classes to $class_space" cimmof -w -aV -uc -n "$class_space" "$schema/SystemProvider.mof"
    need classes_problem
    ! registered || run "remove the old registration" cimprovider -r -m "$module_name"
    run "register the module" cimmof -w -n "$interop_space" "${mof[@]}"
    need registration_problem
    link_module
    report=$(
        say "module: linked as $provider_dir/libSystemProvider.so"
        say "classes: ${#classes[@]} in $class_space"
        say "registration: $module_name, state $(module_state)"
        report_access
    )
}

classes_there()
{
    local class
    for class in "${classes[@]}"; do
        ! class_there "$class" || say "$class"
    done
}

# After a failure on a running server: where nothing was there before, nothing stays. What is renewed can't be made as it was.
take_back()
{
    local class left=()
    if ! server_runs; then
        complain "the CIM server has ended meanwhile; mend the cause, run vq-register repair, and start it (cimserver)"
        return
    fi
    link_back "$link_before"
    if [ -n "$was_there" ]; then
        registered && left+=("the registration")
        complain "of what was registered before there is now: $(classes_there | wc -l) of ${#classes[@]} classes${left:+ and ${left[*]}}; mend the cause, then run vq-register register"
        return
    fi
    ! registered || cimprovider -r -m "$module_name" >/dev/null 2>&1 || left+=("the registration")
    for class in $(classes_there); do
        cimcli dc "$class" -n "$class_space" >/dev/null 2>&1 || left+=("$class")
    done
    if [ ${#left[@]} -eq 0 ]; then
        complain "all is taken back"
    else
        complain "left in the server: ${left[*]}; mend the cause, then run vq-register unregister"
    fi
}

register_prepared()
{
    need schema_problem
    need module_problem
    need foreign_file_problem
    repository_ready
    was_there=
    ! server_runs || was_there=$(if registered; then echo yes; else classes_there; fi)
    on_server add take_back
    say "$report"
}

register()
{
    prepare
    register_prepared
}

repair()
{
    prepare
    if [ -z "$(cut_files)" ]; then
        say "repository: nothing is cut off"
    elif server_runs; then
        need cut_files_problem
    else
        mend
    fi
    register_prepared
}

# ---- unregister ----------------------------------------------------------------------------------------------------

take_out()
{
    local class lines=()
    if registered; then
        run "remove the registration" cimprovider -r -m "$module_name"
        ! registered || die "the registration is still there, though cimprovider -r says that it removed it"
        lines+=("registration: $module_name removed")
    else
        lines+=("registration: none was there")
    fi
    for class in $(classes_there); do
        run "remove the class $class" cimcli dc "$class" -n "$class_space"
        lines+=("class: $class removed")
    done
    class=$(classes_there)
    [ -z "$class" ] || die "classes that are still there: ${class//$'\n'/ }"
    if [ -n "$link_before" ]; then
        run "remove the link to the module" rm -f "$provider_dir/libSystemProvider.so"
        lines+=("module: link $provider_dir/libSystemProvider.so removed")
    fi
    report=$(printf '%s\n' "${lines[@]}"; foreign_file_problem)
}

say_what_is_left()
{
    complain "left in the server: $(classes_there | wc -l) of ${#classes[@]} classes, the registration $(registered && echo too || echo not); mend the cause, then run vq-register unregister"
}

unregister()
{
    prepare
    server_runs || mend
    repository_ready
    on_server take_out say_what_is_left
    say "$report"
}
