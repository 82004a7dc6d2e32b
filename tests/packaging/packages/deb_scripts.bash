# The scripts of the Debian package: what they ask of vq-register, and that nothing that it does stops them.
. "$(dirname "$0")/common.bash"

command -v dpkg-deb >/dev/null || skip "dpkg is not installed"
control=$scratch/control
dpkg-deb -e "$deb" "$control"
scripts=$(cd "$control" && find . -type f -perm -u+x | sort | tr '\n' ' ')
if [ "$cim_library" != openpegasus ]; then
    check "a module that no server can load is not registered: scripts" "" "$scripts"
    finish
fi
check "scripts" "./postinst ./prerm " "$scripts"

# action EXPECTED EXIT_CODE SCRIPT ARGUMENT...
action()
{
    local expected=$1 code=$2
    shift 2
    run_script "$code" "$control/$1" "${@:2}"
    check "$* over exit code $code" "$expected" "$result"
}

action "0|register;|" 0 postinst configure ""
action "0|register;|" 0 postinst configure 0.9.0
action "0|register;|" 0 postinst abort-remove
action "0||" 0 postinst abort-upgrade 0.9.0
action "0||" 0 postinst triggered something
action "0|unregister;|" 0 prerm remove
action "0||" 0 prerm upgrade 2.0.0
action "0||" 0 prerm failed-upgrade 0.9.0
action "0||" 0 prerm deconfigure in-favour other 1.0
for code in 1 2 127; do
    action "0|register;|$not_registered" $code postinst configure ""
    action "0|unregister;|$not_unregistered" $code prerm remove
done

# A vq-register that hangs is ended by timeout(1), whose exit code is 124.
mkdir "$scratch/hanging"
printf '#!/bin/sh\nexit 124\n' >"$scratch/hanging/timeout"
chmod +x "$scratch/hanging/timeout"
stub_path=$scratch/hanging:
for script in "postinst configure" "prerm remove"; do
    message=$not_registered
    [ "$script" != "prerm remove" ] || message=$not_unregistered
    action "0||$message" 0 ${script}
done
stub_path=

# Nobody listening to the message does not stop the script either.
code=0
sh "$(with_stub "$control/postinst" "$(stub_vq_register 1)")" configure "" 2>&- >&- || code=$?
check "postinst with its output closed" 0 "$code"

# Filling another system's root from outside registers nothing with this one's server.
export DPKG_ROOT=/somewhere
action "0||" 0 postinst configure ""
action "0||" 0 prerm remove
finish
