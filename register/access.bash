# Who may ask the server, and for what.

# Sets open_to to those who may use the namespace beside root and the users that the administrator names with cimauth,
# and open_why to the setting that lets them; open_to is empty where nobody else may. The argument is that of ask_settings.
find_access()
{
    local name network=
    ask_settings "$1"
    open_to='' open_why="enableAuthentication is not true"
    if [ "$(setting enableAuthentication)" = true ]; then
        open_why="enableNamespaceAuthorization is not true"
        [ "$(setting enableNamespaceAuthorization)" = true ] || open_to="every user with a password on this machine"
        return
    fi
    for name in enableHttpConnection enableHttpsConnection; do
        [ "$(setting $name)" = false ] || network=yes
    done
    ! grep -xE '127\.[0-9.]+|\[?::1\]?' <<<"$(setting listenAddress)" >/dev/null || network=
    open_to="every user of this machine"
    [ -z "$network" ] || open_to="anybody on the network"
}

# Whether register is to register Reboot and Shutdown.
methods_wanted() { [ "$methods" = with ] || { [ -z "$methods" ] && [ -z "$open_to" ]; }; }

# What that means for what is registered, a line each.
report_access()
{
    local why="${open_to:+, as $open_to could call Reboot and Shutdown ($open_why)}"
    if ! methods_registered; then
        say "methods: left out$why; to have them: vq-register --with-methods register"
    elif [ -n "$open_to" ]; then
        say "methods: $open_to can call Reboot and Shutdown ($open_why); to take them out: vq-register --without-methods register"
    else
        say "methods: Reboot and Shutdown, for root and the users that cimauth names"
    fi
    [ -z "$open_to" ] || say "readable: everything, serial numbers too, by $open_to ($open_why)"
}
