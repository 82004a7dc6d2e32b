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
answers = json.load(sys.stdin)["machines"][0]["classes"]
system = answers["QORTAL_ComputerSystem"][0]["properties"]
firmware = [x["properties"] for x in answers["QORTAL_BIOS"]][1:]
print(system["VirtualType"], system["VirtualizationMethodName"], *("; %(Name)s, %(Manufacturer)s %(Version)s" % x for x in firmware))'
}
# What `check` says of both.
said() { "$bin/vqinventory" check --from-dump "$scratch/dump.bin" | grep -E '^[a-z]+ +(BMC|Xen): '; }
no_bmc_library="note     BMC: the package systemprovider-ipmi is not installed: its firmware is not in QORTAL_BIOS"
no_xen_library="note     Xen: the package systemprovider-xen is not installed: a guest of Xen is reported as not virtualized"
bmc=$module_dir/libqoripmi.so
xen=$(readlink -f "$probe_dir")/libqorxenprobe.so

code=0
dpkg_quietly --purge systemprovider systemprovider-standalone systemprovider-ipmi systemprovider-xen || true
export PATH=/usr/sbin:/usr/bin:/sbin:/bin # no server of this machine is among them
dpkg_quietly -i "$deb" || code=$?
check "installation" 0 "$code"
plain=$(answer)
check "without the libraries" true "$(grep -q '^1 ' <<<"$plain" && ! grep -q BMC <<<"$plain" && echo true || echo "$plain")"
check "what is said of it" "$no_bmc_library
$no_xen_library" "$(said)"
dpkg_quietly -i "$xen_deb"
check "with the library of Xen" "3 Xen${plain#1 }" "$(answer)"
dpkg_quietly -i "$ipmi_deb"
check "with that of the BMC, too" "3 Xen${plain#1 } ; NB BMC, QOR 1.17" "$(answer)"
check "what is said of it" "ok       BMC: $bmc answers: manufacturer 2, product 0x0043, revision 1.17
ok       Xen: $xen answers: this is a guest domain" "$(said)"
echo 000228f0 >/sys/hypervisor/properties/features
rm /sys/devices/platform/ipmi_bmc.0/product_id
check "control domain, and a BMC that says nothing" "problem  BMC: $bmc gets no answer from it; its firmware is not in QORTAL_BIOS
ok       Xen: $xen answers: this is the control domain" "$(said)"
echo kvm >/sys/hypervisor/type
mv /sys/devices/platform/ipmi_bmc.0 /sys/devices/platform/away
check "no Xen, and no BMC" "note     BMC: $bmc finds none that the kernel knows; if the machine has one, load its drivers: modprobe -a ipmi_si ipmi_devintf
ok       Xen: $xen answers: this is no domain of Xen" "$(said)"
mv /sys/devices/platform/away /sys/devices/platform/ipmi_bmc.0
echo 0x0043 >/sys/devices/platform/ipmi_bmc.0/product_id
echo 000222f0 >/sys/hypervisor/properties/features
echo xen >/sys/hypervisor/type
for file in "$bmc" "$xen"; do
    mv "$file" "$scratch/kept"
    echo "not a library" >"$file"
    damaged=$(said | grep '^problem' || true) # check ends with 1 then
    check "a damaged ${file##*/}" 1 "$(grep -cE '^problem +(BMC|Xen): .*libqor(ipmi|xenprobe).so: .*Install the package systemprovider-(ipmi|xen) of' <<<"$damaged")"
    mv "$scratch/kept" "$file"
done
dpkg_quietly -r systemprovider-xen
check "without that of Xen" "$plain ; NB BMC, QOR 1.17" "$(answer)"
dpkg_quietly -r systemprovider-ipmi
check "without both" "$plain" "$(answer)"
check "what is left of them" "" "$(find "$module_dir/libqoripmi.so" "$probe_dir/libqorxenprobe.so" /lib/libqorxenprobe.so 2>/dev/null || true)"
finish
