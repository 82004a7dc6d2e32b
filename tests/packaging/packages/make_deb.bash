# Makes the Debian packages, which the other tests look at.
. "$(dirname "$0")/common.bash"

command -v dpkg-deb >/dev/null || skip "dpkg is not installed"
rm -f "$package_dir"/*.deb
umask 077 # as careful administrators have it; what is packaged is for everybody all the same
"$cpack" --config "$binary_dir/CPackConfig.cmake" -G DEB -B "$scratch"
cp "$scratch"/*.deb "$package_dir"
check "the packages' names" "$(printf '%s\n' "$deb" "$development_deb" "$ipmi_deb" "$xen_deb" "$python_deb" ${fleet:+"$fleet_deb"} | sort)" "$(find "$package_dir" -name '*.deb' | sort)"
finish
