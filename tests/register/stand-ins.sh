# For scripts that test vq-register over stand-ins for the server's commands (server-command).
#   VQ_REGISTER   the vq-register of this build
#   VQ_PLAIN      a library that looks like a module
#   VQ_SCHEMA     where the MOF files are
. "$here/expect.sh"
scratch=$(mktemp -d)
trap 'stop; rm -rf "$scratch"' EXIT
chmod 755 "$scratch"

classes=(QORTAL_BIOS QORTAL_Chassis QORTAL_BaseBoard QORTAL_CacheMemory QORTAL_Port QORTAL_Slot QORTAL_ComputerSystem
    QORTAL_OperatingSystem QORx_SystemMemory)
server=$scratch/server
link=$server/lib/libSystemProvider.so
work=$server/.vq-register
instances=$server/repository/root#PG_InterOp/instances
usage_line="usage: vq-register [options] register|unregister|repair|status|doctor"

# The commands of an OpenPegasus that the caller works with are not in the way of the stand-ins.
IFS=: read -ra directories <<<"$PATH"
PATH=
for directory in "${directories[@]}"; do
    [ -e "$directory/cimcli" ] && [ ! -e "$directory/env" ] || PATH+=${PATH:+:}$directory
done

# A server with nothing registered, which does not run. Its commands are the only ones of their names on PATH, and for
# them everybody is root.
fresh_server()
{
    stop
    rm -rf "$server"
    mkdir -p "$server/lib" "$server/bin" "$server/program" "$instances" "$server/repository/root#cimv2/classes"
    local command
    for command in cimserver cimmof cimprovider cimcli cimconfig; do
        cp "$here/server-command" "$server/bin/$command"
    done
    printf '#!/bin/sh\necho "${VQ_USER:-0}"\n' >"$server/bin/id"
    chmod 755 "$server/bin/id"
    cp "$(type -P tail)" "$server/program/cimserver"
    configure
    export VQ_STAND_IN=$server PEGASUS_HOME=$server
}
# Nobody listens at port 1.
configure() { printf '%s\n' httpPort=1 httpsPort=1 "$@" >"$server/cimserver_planned.conf"; }
start() { "$server/bin/cimserver" && rm -f "$server/calls"; }
stop()
{
    local process
    read -r process _ 2>/dev/null <"$server/process" || return 0
    kill -KILL "$process" 2>/dev/null
    while [ -e "/proc/$process/exe" ]; do :; done
    rm "$server/process"
}
fails() { printf '%s\n' "$@" >"$server/fail"; }
target() { readlink "$link" || echo none; }
calls() { cat "$server/calls" 2>/dev/null; rm -f "$server/calls"; }
# All that register may have changed: the repository, the link, what lies beside the repository.
state() { (cd "$server" && find lib repository .vq-register -printf '%P %y %l %s\n' 2>/dev/null | sort); }
tool() { PATH=$server/bin:$PATH "$VQ_REGISTER" --trust-paths "$@"; }
plain() { tool --module "$VQ_PLAIN" --schema "$VQ_SCHEMA" "$@"; }

# What is said of a server with its settings as they come with its sources.
left_out="methods: left out, as anybody on the network could call Reboot and Shutdown (enableAuthentication is not true); to have them: vq-register --with-methods register"
readable="readable: everything, serial numbers too, by anybody on the network (enableAuthentication is not true)"
