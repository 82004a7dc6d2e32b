# Installs the Debian package with dpkg, uses it, upgrades and removes it, and finds nothing left behind. All in a mount
# namespace over the machine's file system, which is itself untouched, and with a server that is only its commands.
. "$(dirname "$0")/common.bash"

in_namespace "$@"

# A server that is only its commands, in bin, and lets nobody in but whom it is told to.
server=$scratch/server
mkdir -p "$server/bin" "$server/program" "$server/lib" "$server/repository/root#PG_InterOp" "$server/repository/root#cimv2/classes"
touch "$server/calls"
for command in cimserver cimmof cimprovider cimcli cimconfig; do
    cp "$source_dir/tests/register/server-command" "$server/bin/$command"
done
cp "$(type -P tail)" "$server/program/cimserver"
printf '%s=true\n' enableAuthentication enableNamespaceAuthorization >"$server/cimserver_planned.conf"
export PATH=$server/bin:$PATH VQ_STAND_IN=$server PEGASUS_HOME=$server
[ -z "$pegasus_libraries" ] || export LD_LIBRARY_PATH=$pegasus_libraries
cimserver
read -r server_process _ <"$server/process"
trap 'kill "$server_process"; umount -l "$scratch"; rmdir "$scratch"' EXIT
: >"$server/calls" # what is asked from here on is the packages' doing

known() { find "$server/repository/root#cimv2/classes" "$server/repository/root#PG_InterOp/module" "$server/lib" ! -type d 2>/dev/null | wc -l; }
# All files that were written or taken away here, but dpkg's own notes, by kind, permissions, size and place. Of the upper
# layers only: the machine's own files may change meanwhile by other hands.
files()
{
    (cd "$scratch/layers" && find ./*/upper \( -path ./var/upper/lib/dpkg -o -path ./var/upper/log/dpkg.log \) -prune \
        -o ! -type d -printf '%y %m %s %p %l\n' | sort)
}

if [ "$cim_library" = openpegasus ]; then all_known=11; else all_known=0; fi
dpkg_quietly --purge systemprovider systemprovider-standalone || true
files >"$scratch/before"

code=0
dpkg_quietly -i "$deb" || code=$?
check "installation" 0 "$code"
[ "$code" -eq 0 ] || cat "$scratch/dpkg.log"
check "classes, registration and link after installation" "$all_known" "$(known)"
check "the installed files" "$(expected_files)" "$(dpkg -L "$package" | while read -r file; do [ -d "$file" ] || echo "$file"; done | sort)"
check "vqinventory as installed" "QORTAL_OperatingSystem" "$("$bin/vqinventory" --format json QORTAL_OperatingSystem | grep -o QORTAL_OperatingSystem | head -1)"
if [ "$cim_library" = openpegasus ]; then
    check "the link to the module" "$module_dir/libSystemProvider.so" "$(readlink -f "$server/lib/libSystemProvider.so")"
    check "vq-register status" "classes: 9 of 9 in root/cimv2
registration: SystemProviderModule, state OK
methods: Reboot and Shutdown, for root and the users that cimauth names" "$(vq-register status)"
else
    check "nothing was asked of the server" "" "$(cat "$server/calls")"
    check "vq-register register" "vq-register: the module is made to run without a server: install the package systemprovider, or build with -DVQ_CIM=openpegasus" \
        "$(vq-register register 2>&1)"
fi

: >"$server/calls"
dpkg_quietly -i "$deb" || code=$?
check "upgrade" 0 "$code"
check "classes, registration and link after upgrade" "$all_known" "$(known)"
check "upgrade takes no class back" "" "$(grep 'cimcli dc' "$server/calls" || true)"

dpkg_quietly -r "$package" || code=$?
check "removal" 0 "$code"
check "classes, registration and link after removal" 0 "$(known)"
files >"$scratch/after"
check "files left behind or changed" "" "$(diff "$scratch/before" "$scratch/after" || true)"
check "what dpkg still knows of the package" "" "$(dpkg-query -W "$package" 2>/dev/null || true)"

# A server whose every command fails keeps nothing from being installed and removed.
for command in cimserver cimconfig cimmof cimprovider cimcli; do printf '#!/bin/sh\nexit 1\n' >"$server/bin/$command"; done
dpkg_quietly -i "$deb" || code=$?
check "installation beside a broken server" 0 "$code"
[ "$cim_library" != openpegasus ] || check "what it says" "$not_registered" "$(grep "^$package: " "$scratch/dpkg.log")"
dpkg_quietly -r "$package" || code=$?
check "removal beside a broken server" 0 "$code"
[ "$cim_library" != openpegasus ] || check "what it says" "$not_unregistered" "$(grep "^$package: " "$scratch/dpkg.log")"
files >"$scratch/after"
check "files left behind or changed" "" "$(diff "$scratch/before" "$scratch/after" || true)"
finish
