# Functions for a CIM server of the tests' own; to be sourced by a script that runs below in-private.
#   VQ_PEGASUS      the OpenPegasus installation: bin/, lib/
#   VQ_REPOSITORY   a repository of it that holds the CIM schema; it is copied
#   VQ_SCRATCH      a directory for the server's log

# A home of the server's, all links but for what it writes: the repository, its traces and its settings; and, where this
# OpenPegasus has TLS, for a certificate of its own.
make_home()
{
    local home=$1 file
    mkdir -p "$home/lib" "$home/trace"
    ln -s "$VQ_PEGASUS/bin" "$home/bin"
    for file in "$VQ_PEGASUS"/lib/*; do
        [ "${file##*/}" = libSystemProvider.so ] || ln -s "$file" "$home/lib/"
    done
    for file in "$VQ_PEGASUS"/*.{cnf,rnd}; do
        [ ! -e "$file" ] || ln -s "$file" "$home/"
    done
    cp -r "$VQ_REPOSITORY" "$home/repository"
    export PEGASUS_HOME=$home PATH=$home/bin:$PATH LD_LIBRARY_PATH=$home/lib
    export VQ_TLS_PORT=
    if [[ $(ldd "$home/lib/libpegcommon.so") == *libssl* ]]; then
        make_certificate "$home/server.pem" "$home/file.pem"
        VQ_TLS_PORT=$(free_port)
    fi
    configure_server "$(free_port)"
}

# make_certificate CERTIFICATE KEY: one that the server's address signs for itself.
make_certificate()
{
    openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj /CN=test -addext subjectAltName=IP:127.0.0.1 \
        -keyout "$2" -out "$1" 2>/dev/null
}

# A port at which nobody answers, out of those that the kernel does not give to clients.
free_port()
{
    local port
    for port in $(shuf -n 50 -i 10000-32000); do
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
    local tls=(enableHttpsConnection=false)
    [ -z "$VQ_TLS_PORT" ] || tls=(enableHttpsConnection=true "httpsPort=$VQ_TLS_PORT")
    printf '%s\n' enableHttpConnection=true "${tls[@]}" enableAuthentication=false \
        listenAddress=127.0.0.1 "httpPort=$VQ_PORT" "$@" >"$PEGASUS_HOME/cimserver_planned.conf"
}

launch_server()
{
    LD_PRELOAD=${VQ_PRELOAD-} cimserver daemon=false >"$1" 2>&1 &
    export VQ_SERVER_PID=$!
}

# Starts the server with the libraries in VQ_PRELOAD in front of all others; they come along into its provider processes.
# Where somebody else was quicker to take a port, it takes others.
start_server()
{
    local log=$VQ_SCRATCH/cimserver.log tries
    launch_server "$log"
    for ((tries = 0; tries < 100; ++tries)); do
        if ! kill -0 "$VQ_SERVER_PID" 2>/dev/null; then
            grep -q 'Address already in use' "$log" || break
            VQ_PORT=$(free_port)
            [ -z "$VQ_TLS_PORT" ] || VQ_TLS_PORT=$(free_port)
            sed -i "s/^httpPort=.*/httpPort=$VQ_PORT/; s/^httpsPort=.*/httpsPort=$VQ_TLS_PORT/" \
                "$PEGASUS_HOME/cimserver_planned.conf"
            launch_server "$log"
        fi
        ! cimcli ns >/dev/null 2>&1 || return 0
        sleep 0.1
    done
    echo "the CIM server does not answer:" >&2
    cat "$log" >&2
    return 1
}

stop_server()
{
    cimserver -s >/dev/null
    wait "$VQ_SERVER_PID"
}
