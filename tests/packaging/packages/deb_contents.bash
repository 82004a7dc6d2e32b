# What the Debian package holds, and that what it holds can be used from where it stands.
. "$(dirname "$0")/common.bash"

command -v dpkg-deb >/dev/null || skip "dpkg is not installed"
root=$scratch/root
dpkg-deb -x "$deb" "$root"

check "files" "$(expected_files)" "$(cd "$root" && find . ! -type d | sed 's/^\.//' | sort)"
check "owners and permissions" "" "$(dpkg-deb -c "$deb" | grep -vE '^(-rw-r--r--|-rwxr-xr-x|drwxr-xr-x|lrwxrwxrwx) root/root ' || true)"
check "nothing names the directories of this build" "" "$(grep -rlF -e "$binary_dir" -e "$source_dir" "$root" || true)"

field() { dpkg-deb -f "$deb" "$1"; }
check "architecture" "$deb_architecture" "$(field Architecture)"
check "version" "$version" "$(field Version)"
check "maintainer" "$contact" "$(field Maintainer)"
check "one summary" 1 "$(field Description | grep -cE 'hardware inventory|Inventory provider|built using')"
check "licence" "License: Expat
 $(head -1 "$source_dir/LICENSE")
 ." "$(sed -n '/^License:/,+2p' "$root$doc_dir/copyright")"
check "last line of the licence" " $(tail -1 "$source_dir/LICENSE")" "$(tail -1 "$root$doc_dir/copyright")"
check "dependencies" "libc6 libgcc-s1 libstdc++6" "$(field Depends | sed 's/ ([^)]*)//g; s/,//g')"
check "suggestions" "prometheus-node-exporter, python3" "$(field Suggests)"
check "the loader is told of the library" "activate-noawait ldconfig" "$(dpkg-deb --ctrl-tarfile "$deb" | tar -xO ./triggers)"
if [ "$cim_library" = openpegasus ]; then other=systemprovider-standalone; else other=systemprovider; fi
check "conflict with the other kind" "$other" "$(field Conflicts)"

# Every library that the package's files need is in the package, in a package that it depends on, or is the server's.
needed() { find "$root" -name '*.so' -o -name '*.so.[0-9]*' -o -path '*/bin/vqinventory' | xargs -n1 readelf -d | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p' | sort -u; }
from_elsewhere='^(libc\.so\.6|libm\.so\.6|ld-linux.*\.so\.2|libgcc_s\.so\.1|libstdc\+\+\.so\.6)$'
[ "$cim_library" != openpegasus ] || from_elsewhere="$from_elsewhere|^libpeg(common|provider)\.so\.1\$"
unexplained=
for library in $(needed | grep -vE "$from_elsewhere"); do
    [ -e "$root$module_dir/$library" ] || unexplained="$unexplained $library"
done
check "libraries that no dependency explains" "" "$unexplained"
mapfile -t programs < <(find "$root" -name '*.so' -o -name '*.so.[0-9]*' -o -path '*/bin/vqinventory')
check_c_library "$deb" "${programs[@]}"

class=$((pointer_size == 4 ? 1 : 2))
for file in "$root$module_dir"/*.so "$root$module_dir"/from-dump/*.so "$root$lib/libsystemprovider_load.so.$version" "$root$bin/vqinventory"; do
    check "width of ${file#"$root"}" "7f454c460$class" "$(od -An -tx1 -N5 "$file" | tr -d ' ')"
done

# The tool, out of the unpacked package, answers as that of the build does, and by the package's own module.
tool=$root$bin/vqinventory
dump=$source_dir/samples/server.bin
unset LD_LIBRARY_PATH
# The loader of a target has been told of the server's libraries.
[ -z "$pegasus_libraries" ] || export LD_LIBRARY_PATH=$pegasus_libraries
if [ -e "$dump" ]; then
    check "vqinventory out of the package" "$("$binary_dir/bin/vqinventory" --from-dump "$dump" QORTAL_Slot QORTAL_Port)" \
        "$("$tool" --from-dump "$dump" QORTAL_Slot QORTAL_Port)"
else
    echo "SKIPPED: comparison of vqinventory over a sample table, which is not there"
fi
LD_DEBUG=files LD_DEBUG_OUTPUT=$scratch/loaded "$tool" QORTAL_OperatingSystem >/dev/null
loaded() { sed -n 's/.*calling init: //p' "$scratch"/loaded.* | grep -E '/lib(vq[a-z]+|SystemProvider)\.so$' | sort -u; }
for library in libSystemProvider libvqcommon libvqpegasus libvqsmbios; do
    check "$library.so that vqinventory loads" "$root$module_dir/$library.so" "$(loaded | grep "/$library\.so")"
done
finish
