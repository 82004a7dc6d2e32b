# The RPM packages: made, and their files, dependencies and scripts.
. "$(dirname "$0")/common.bash"

command -v rpmbuild >/dev/null || skip "rpmbuild is not installed (Debian package rpm)"
rm -f "$package_dir"/*.rpm
umask 077 # as careful administrators have it; what is packaged is for everybody all the same
"$cpack" --config "$binary_dir/CPackConfig.cmake" -G RPM -B "$scratch" >"$scratch/log" 2>&1 || { cat "$scratch/log"; exit 1; }
rpm=$package_dir/$package-$version-1.$rpm_architecture.rpm
cp "$scratch"/*.rpm "$package_dir"
development_rpm=$package_dir/$package-devel-$version-1.$rpm_architecture.rpm
ipmi_rpm=$package_dir/systemprovider-ipmi-$version-1.$rpm_architecture.rpm
xen_rpm=$package_dir/systemprovider-xen-$version-1.$rpm_architecture.rpm
fleet_rpm=$package_dir/systemprovider-fleet-$version-1.$rpm_architecture.rpm
check "the packages' names" "$(printf '%s\n' "$rpm" "$development_rpm" "$ipmi_rpm" "$xen_rpm" ${fleet:+"$fleet_rpm"} | sort)" "$(find "$package_dir" -name '*.rpm' | sort)"

check "permissions" "" "$(for made in "$package_dir"/*.rpm; do
    rpm -qp --qf '[%{FILEMODES:perms} %{FILENAMES}\n]' "$made" 2>/dev/null
done | grep -vE '^(-rw-r--r--|-rwxr-xr-x|drwxr-xr-x|lrwxrwxrwx) ' || true)"
query() { rpm -qp "$@" "${of-$rpm}" 2>/dev/null; }
check "files" "$(expected_files)" "$(query --qf '[%{FILEMODES:perms} %{FILENAMES}\n]' | sed -n 's/^[-l][rwx-]* //p' | sort)"
check "directories" "$(printf '%s\n' "$ansible_dir" "$doc_dir" "$module_dir" "$module_dir/from-dump" "$schema_dir" | sort)" \
    "$(query --qf '[%{FILEMODES:perms} %{FILENAMES}\n]' | sed -n 's/^d[rwx-]* //p' | sort)"
check "architecture" "$rpm_architecture" "$(query --qf '%{ARCH}')"
check "licence" MIT "$(query --qf '%{LICENSE}')"
of=$development_rpm
check "files for development" "$(expected_development_files)" \
    "$(query --qf '[%{FILEMODES:perms} %{FILENAMES}\n]' | sed -n 's/^[-l][rwx-]* //p' | sort)"
check "directories for development" "$(printf '%s\n' "$doc_dir-dev" "$doc_dir-dev/examples" "$include/systemprovider" \
    "$lib/cmake/SystemProvider" \
    "$include/systemprovider/inventory" "$include/systemprovider/os" "$include/systemprovider/support" \
    "$include/systemprovider/support/common" | sort)" \
    "$(query --qf '[%{FILEMODES:perms} %{FILENAMES}\n]' | sed -n 's/^d[rwx-]* //p' | sort)"
check "what development needs" "$package = $version" "$(query --requires | grep -v '^rpmlib')"
check "licence" MIT "$(query --qf '%{LICENSE}')"
check "scripts of development" "(none)(none)" "$(query --qf '%{POSTIN}%{PREUN}')"
if [ "$pointer_size" = 4 ]; then mark=; else mark='()(64bit)'; fi
for library in ipmi xen; do
    if [ $library = ipmi ]; then of=$ipmi_rpm; else of=$xen_rpm; fi
    check "files of $library" "$(expected_companion_files $library)" \
        "$(query --qf '[%{FILEMODES:perms} %{FILENAMES}\n]' | sed -n 's/^-[rwx-]* //p' | sort)"
    directories=$share_doc/systemprovider-$library
    [ $library = xen ] || directories="$module_dir
$directories"
    check "directories of $library" "$(sort <<<"$directories")" \
        "$(query --qf '[%{FILEMODES:perms} %{FILENAMES}\n]' | sed -n 's/^d[rwx-]* //p' | sort)"
    check "what $library needs" "(systemprovider or systemprovider-standalone)
libc.so.6$mark" "$(query --requires | grep -vE "^(rpmlib|rtld)|GLIBC_" | sort -u)"
    check "what $library offers" "" "$(query --provides | grep -E '^lib' || true)"
    check "scripts of $library" "(none)(none)" "$(query --qf '%{POSTIN}%{PREUN}')"
done
if [ -n "$fleet" ]; then
    of=$fleet_rpm
    check "files of fleet" "$(expected_fleet_files)" \
        "$(query --qf '[%{FILEMODES:perms} %{FILENAMES}\n]' | sed -n 's/^-[rwx-]* //p' | sort)"
    check "directories of fleet" "$share_doc/systemprovider-fleet" \
        "$(query --qf '[%{FILEMODES:perms} %{FILENAMES}\n]' | sed -n 's/^d[rwx-]* //p')"
    check "what fleet needs" "$(printf "%s$mark\n" libc.so.6 libcurl.so.4 libgcc_s.so.1 libpugixml.so.1 libstdc++.so.6)" \
        "$(query --requires | grep -vE '^(rpmlib|rtld)|\((GLIBC|GLIBCXX|CXXABI|GCC|CURL)[^)]' | sort -u)"
    check "scripts of fleet" "(none)(none)" "$(query --qf '%{POSTIN}%{PREUN}')"
fi
unset of
check "no Python for a machine without Ansible, and nothing for the network" "" \
    "$(query --requires | grep -iE 'python|curl|ssl|pugixml' || true)"
check "libraries that are offered to others" "libsystemprovider_load.so.${version%%.*}$mark" "$(query --provides | grep -E '^lib' || true)"
check "no library of the package is asked of others" "" "$(query --requires | grep -E '^lib(vq|System)' || true)"
libraries="libc.so.6$mark libgcc_s.so.1$mark libstdc++.so.6$mark"
[ "$cim_library" != openpegasus ] || libraries="libc.so.6$mark libgcc_s.so.1$mark libpegcommon.so.1$mark libpegprovider.so.1$mark libstdc++.so.6$mark"
check "libraries of others" "$libraries" "$(query --requires | grep -E '^lib[^(]*(\(\)\(64bit\))?$' | sort -u | tr '\n' ' ' | sed 's/ $//')"

query --qf '%{POSTIN}' >"$scratch/post"
query --qf '%{PREUN}' >"$scratch/preun"
if [ "$cim_library" != openpegasus ]; then
    check "scripts" "(none)(none)" "$(cat "$scratch/post" "$scratch/preun")"
    finish
fi
action()
{
    run_script "$2" "$scratch/$3" "$4"
    check "$3 $4 over exit code $2" "$1" "$result"
}
action "0|register;|" 0 post 1
action "0|register;|" 0 post 2
action "0|unregister;|" 0 preun 0
action "0||" 0 preun 1
for code in 1 2 127; do
    action "0|register;|$not_registered" $code post 1
    action "0|unregister;|$not_unregistered" $code preun 0
done
finish
