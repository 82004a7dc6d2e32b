# The Python package: what it holds, and that it reads a table with the library of the package of its width.
. "$(dirname "$0")/common.bash"

command -v dpkg-deb >/dev/null || skip "dpkg is not installed"
root=$scratch/root
dpkg-deb -x "$python_deb" "$root"
check "files" "$(expected_python_files)" "$(cd "$root" && find . ! -type d | sed 's/^\.//' | sort)"
check "owners and permissions" "" "$(dpkg-deb -c "$python_deb" | grep -vE '^(-rw-r--r--|drwxr-xr-x) root/root ' || true)"
field() { dpkg-deb -f "$python_deb" "$1"; }
if [ "$cim_library" = openpegasus ]; then other=systemprovider-standalone; else other=systemprovider; fi
check "dependencies" "python3 (>= 3.8), $package (= $version) | $other (= $version)" "$(field Depends)"
check "architecture" all "$(field Architecture)"
check "description" "hardware inventory of this machine for Python programs" "$(field Description | head -1)"

python=$(PATH=/usr/bin:$PATH type -P python3) || skip "python3 is not installed"
width=$("$python" -c 'import struct; print(struct.calcsize("P"))')
if [ "$width" != "$pointer_size" ]; then
    echo "SKIPPED: the Python of this machine has pointers of $width bytes, the package's library of $pointer_size"
    finish
fi
dpkg-deb -x "$deb" "$root"
check "a slot" "PCI Express x16" "$(cd / && LD_LIBRARY_PATH=$root$lib${pegasus_libraries:+:$pegasus_libraries} PYTHONPATH=$root$python_dir "$python" -B -c '
import sys, systemprovider
print(systemprovider.inventory(from_dump=sys.argv[1])["slots"][0]["designation"])' "$source_dir/samples/server.bin")"
check "without its library" "systemprovider.Error: cannot load libsystemprovider_load.so.1" "$(cd / && PYTHONPATH=$root$python_dir "$python" -B -c '
import systemprovider
systemprovider.inventory()' 2>&1 | tail -1 | grep -oE '^systemprovider.Error: cannot load [a-z_.]*so\.1')"
finish
