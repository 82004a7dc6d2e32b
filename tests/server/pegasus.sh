# Functions for a CIM server of the tests' own; to be sourced by a script that runs below in-private.
#   VQ_PEGASUS      the OpenPegasus installation: bin/, lib/
#   VQ_REPOSITORY   a repository of it that holds the CIM schema; it is copied
#   VQ_SCRATCH      a directory for the server's log

# A home of the server's, all links but for what it writes: the repository, its traces and its settings.
make_home()
{
    local home=$1 file
    mkdir -p "$home/lib" "$home/trace"
    ln -s "$VQ_PEGASUS/bin" "$home/bin"
    for file in "$VQ_PEGASUS"/lib/*; do
        [ "${file##*/}" = libSystemProvider.so ] || ln -s "$file" "$home/lib/"
    done
    for file in "$VQ_PEGASUS"/*.{pem,cnf,rnd}; do
        [ ! -e "$file" ] || ln -s "$file" "$home/"
    done
    cp -a "$VQ_REPOSITORY" "$home/repository"
    export PEGASUS_HOME=$home PATH=$home/bin:$PATH LD_LIBRARY_PATH=$home/lib
    configure_server "$(free_port)"
}

free_port()
{
    local port
    for port in $(shuf -n 50 -i 20000-60000); do
        # Nobody answers there.
        if ! (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null; then
            echo "$port"
            return
        fi
    done
}

# configure_server PORT [SETTING=VALUE...]
configure_server()
{
    export VQ_PORT=$1
    shift
    printf '%s\n' enableHttpConnection=true enableHttpsConnection=false enableAuthentication=false \
        listenAddress=127.0.0.1 "httpPort=$VQ_PORT" "$@" >"$PEGASUS_HOME/cimserver_planned.conf"
}

# Starts the server with the libraries in VQ_PRELOAD in front of all others; they come along into its provider processes.
start_server()
{
    LD_PRELOAD=${VQ_PRELOAD-} cimserver daemon=false >>"$VQ_SCRATCH/cimserver.log" 2>&1 &
    export VQ_SERVER_PID=$!
    local tries
    for ((tries = 0; tries < 100; ++tries)); do
        kill -0 "$VQ_SERVER_PID" 2>/dev/null || break
        ! cimcli ns >/dev/null 2>&1 || return 0
        sleep 0.1
    done
    echo "the CIM server does not answer:" >&2
    cat "$VQ_SCRATCH/cimserver.log" >&2
    return 1
}

stop_server()
{
    cimserver -s >/dev/null
    wait "$VQ_SERVER_PID"
}
