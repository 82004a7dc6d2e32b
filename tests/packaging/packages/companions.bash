# The packages of the optional libraries: what they hold, and that it needs the C library only.
. "$(dirname "$0")/common.bash"

command -v dpkg-deb >/dev/null || skip "dpkg is not installed"
class=$((pointer_size == 4 ? 1 : 2))
for library in ipmi xen; do
    if [ $library = ipmi ]; then deb=$ipmi_deb file=$module_dir/libqoripmi.so; else deb=$xen_deb file=$probe_dir/libqorxenprobe.so; fi
    root=$scratch/$library
    dpkg-deb -x "$deb" "$root"
    check "files of $library" "$(expected_companion_files $library)" "$(cd "$root" && find . ! -type d | sed 's/^\.//' | sort)"
    check "owners and permissions" "" "$(dpkg-deb -c "$deb" | grep -vE '^(-rw-r--r--|drwxr-xr-x) root/root ' || true)"
    check "nothing names the directories of this build" "" "$(grep -rlF -e "$binary_dir" -e "$source_dir" "$root" || true)"
    field() { dpkg-deb -f "$deb" "$1"; }
    check "architecture" "$deb_architecture" "$(field Architecture)"
    check "maintainer" "$contact" "$(field Maintainer)"
    check "dependencies" "libc6, systemprovider | systemprovider-standalone" "$(field Depends | sed 's/ ([^)]*)//g')"
    check "one summary" 1 "$(field Description | grep -cE 'in the inventory of SystemProvider|built using')"
    check "width" "7f454c460$class" "$(od -An -tx1 -N5 "$root$file" | tr -d ' ')"
    check "libraries that it needs" libc.so.6 "$("$readelf" -dW "$root$file" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p')"
    check_c_library "$deb" "$root$file"
done
finish
