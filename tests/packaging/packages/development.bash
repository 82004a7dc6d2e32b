# The package for development: what it holds, and that the example of it is built with nothing else and runs.
. "$(dirname "$0")/common.bash"

command -v dpkg-deb >/dev/null || skip "dpkg is not installed"
root=$scratch/root
dpkg-deb -x "$development_deb" "$root"
check "files" "$(expected_development_files)" "$(cd "$root" && find . ! -type d | sed 's/^\.//' | sort)"
check "owners and permissions" "" "$(dpkg-deb -c "$development_deb" | grep -vE '^(-rw-r--r--|drwxr-xr-x) root/root ' || true)"
check "nothing names the directories of this build" "" "$(grep -rlF -e "$binary_dir" -e "$source_dir" "$root" || true)"

field() { dpkg-deb -f "$development_deb" "$1"; }
check "dependencies" "$package (= $version)" "$(field Depends)"
check "architecture" "$deb_architecture" "$(field Architecture)"
check "maintainer" "$contact" "$(field Maintainer)"
check "description" "headers and an example for programs that use $package" "$(field Description | head -1)"

"${compile[@]}" -std=c99 -Wall -Wextra -Werror -I"$root$include" "$root$doc_dir-dev/examples/flat_inventory.c" -o "$scratch/example" -ldl
check "the example" "Slot 4" "$("$scratch/example" "$binary_dir/lib/libSystemProvider.so" "$source_dir/samples/server.bin" | grep '^Slot' | tail -1)"
finish
