# The package of the program that asks other machines, and that it alone has to do with a network.
. "$(dirname "$0")/common.bash"

command -v dpkg-deb >/dev/null || skip "dpkg is not installed"

# What the programs and libraries below a directory need, whole names.
needed() { find "$1" -type f \( -name '*.so*' -o -path '*/bin/*' \) -exec "$readelf" -dW {} + | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p' | sort -u; }
network='^lib(curl|ssl|crypto|gnutls|nss|pugixml|xml2|resolv)'

server=$scratch/server
for package_file in "$deb" "$ipmi_deb" "$xen_deb" "$development_deb" "$python_deb"; do
    dpkg-deb -x "$package_file" "$server"
    check "${package_file##*/} depends on no network library" "" "$(dpkg-deb -f "$package_file" Depends | grep -oE "${network#^}" || true)"
done
check "programs and libraries of a managed machine were looked at" true "$(needed "$server" | grep -qx libc.so.6 && echo true)"
check "none of them needs a network library" "" "$(needed "$server" | grep -E "$network" || true)"
check "no vqfleet on a managed machine" "" "$(find "$server" -name '*vqfleet*')"
[ "$failures" -eq 0 ] || finish
[ -n "$fleet" ] || skip "no libcurl or pugixml in this width, so no package systemprovider-fleet"

root=$scratch/root
dpkg-deb -x "$fleet_deb" "$root"
check "files" "$(expected_fleet_files)" "$(cd "$root" && find . ! -type d | sed 's/^\.//' | sort)"
check "owners and permissions" "" "$(dpkg-deb -c "$fleet_deb" | grep -vE '^(-rw-r--r--|-rwxr-xr-x|drwxr-xr-x) root/root ' || true)"
check "nothing names the directories of this build" "" "$(grep -rlF -e "$binary_dir" -e "$source_dir" "$root" || true)"
field() { dpkg-deb -f "$fleet_deb" "$1"; }
check "architecture" "$deb_architecture" "$(field Architecture)"
check "maintainer" "$contact" "$(field Maintainer)"
check "one summary" "hardware inventory of many machines, asked over the network" "$(field Description | head -1)"
check "dependencies" "libc6, libcurl4, libgcc-s1, libpugixml1v5, libstdc++6" "$(field Depends | sed 's/ ([^)]*)//g')"
check "libraries that it needs" "libc.so.6 libcurl.so.4 libgcc_s.so.1 libpugixml.so.1 libstdc++.so.6" \
    "$(needed "$root" | grep -vE '^(libm\.so\.6|ld-linux.*)$' | tr '\n' ' ' | sed 's/ $//')"
check_c_library "$fleet_deb" "$root$bin/vqfleet"

# Out of the package it works without anything of the managed machines' package.
unset LD_LIBRARY_PATH
tool=$root$bin/vqfleet
check "its version" "vqfleet $version" "$("$tool" --version)"
code=0
said=$("$tool" --server http://127.0.0.1:1 --timeout 5 2>&1 >/dev/null) || code=$?
check "a machine where nothing answers" "1 vqfleet: UNREACHABLE: nothing answers at http://127.0.0.1:1 (Connection refused)" "$code $said"
finish
