# Installs the packages of the optional libraries beside that of the module, each changes the next answer, and its removal
# changes it back. The machine is a Xen guest with a BMC, as its kernel tells in sysfs: of that, the namespace has its own.
. "$(dirname "$0")/common.bash"

in_namespace "$@"
[ ! -c /dev/ipmi0 ] && [ ! -c /dev/ipmi/0 ] && [ ! -c /dev/ipmidev/0 ] || skip "this machine has a BMC of its own, which would be asked"

mount -t tmpfs none /sys
mkdir -p /sys/hypervisor/properties /sys/devices/platform/ipmi_bmc.0
echo xen >/sys/hypervisor/type
echo 000222f0 >/sys/hypervisor/properties/features
echo 1.17 >/sys/devices/platform/ipmi_bmc.0/firmware_revision
echo 0x000002 >/sys/devices/platform/ipmi_bmc.0/manufacturer_id
echo 0x0043 >/sys/devices/platform/ipmi_bmc.0/product_id
cp "$source_dir/samples/server.bin" "$scratch/dump.bin"
unset LD_LIBRARY_PATH
[ -z "$pegasus_libraries" ] || export LD_LIBRARY_PATH=$pegasus_libraries

# "kind of domain, its hypervisor; the firmware by name, maker and version", as the installed tool has it.
answer()
{
    "$bin/vqinventory" --from-dump "$scratch/dump.bin" --format json QORTAL_ComputerSystem QORTAL_BIOS |
        python3 -c 'import json, sys
answers = json.load(sys.stdin)
system = answers["QORTAL_ComputerSystem"][0]["properties"]
firmware = [x["properties"] for x in answers["QORTAL_BIOS"]][1:]
print(system["VirtualType"], system["VirtualizationMethodName"], *("; %(Name)s, %(Manufacturer)s %(Version)s" % x for x in firmware))'
}
code=0
dpkg_quietly --purge systemprovider systemprovider-standalone systemprovider-ipmi systemprovider-xen || true
export PATH=/usr/sbin:/usr/bin:/sbin:/bin # no server of this machine is among them
dpkg_quietly -i "$deb" || code=$?
check "installation" 0 "$code"
plain=$(answer)
check "without the libraries" true "$(grep -q '^1 ' <<<"$plain" && ! grep -q BMC <<<"$plain" && echo true || echo "$plain")"
dpkg_quietly -i "$xen_deb"
check "with the library of Xen" "3 Xen${plain#1 }" "$(answer)"
dpkg_quietly -i "$ipmi_deb"
check "with that of the BMC, too" "3 Xen${plain#1 } ; NB BMC, QOR 1.17" "$(answer)"
dpkg_quietly -r systemprovider-xen
check "without that of Xen" "$plain ; NB BMC, QOR 1.17" "$(answer)"
dpkg_quietly -r systemprovider-ipmi
check "without both" "$plain" "$(answer)"
check "what is left of them" "" "$(find "$module_dir/libqoripmi.so" "$probe_dir/libqorxenprobe.so" /lib/libqorxenprobe.so 2>/dev/null || true)"
finish
