# No built or installed file makes the loader search the working directory, and no installed one a directory that is not
# the installation's own.
. "$(dirname "$0")/common.bash"

# The run path of a file, its entries one on a line. An empty one shows as an empty line, and so does one at the end.
entries() { "$readelf" -dW "$1" | sed -n 's/.*(R\(UN\)\{0,1\}PATH)[^[]*\[\(.*\)\]$/\2/p' | tr ':' '\n'; }
# What is wrong with it, for a file of a build.
relative_entries() { entries "$1" | grep -vE '^(/|\$ORIGIN(/|$))' | sed 's/^$/(empty)/' || true; }
# And for an installed one.
foreign_entries()
{
    entries "$1" | grep -vxF -e "$module_dir" -e "${pegasus_target:-$module_dir}" | grep -vE '^\$ORIGIN(/|$)' | sed 's/^$/(empty)/' || true
}

# The check can fail.
bad_file() { echo 'int answer(void); int answer(void) { return 42; }' | "${compile[@]}" -shared -fPIC -x c - -o "$scratch/bad.so" -Wl,-rpath,"$1"; }
bad_file '/usr/lib:$ORIGIN:'
check "an empty entry at the end is found" "(empty)" "$(relative_entries "$scratch/bad.so")"
bad_file '/usr/lib::../lib:$ORIGINAL'
check "empty and relative entries are found" "(empty)
../lib
\$ORIGINAL" "$(relative_entries "$scratch/bad.so")"
bad_file "\$ORIGIN:$binary_dir/lib:$module_dir"
check "entries that are no installation's are found" "$binary_dir/lib" "$(foreign_entries "$scratch/bad.so")"

count=0
while read -r file; do
    count=$((count + 1))
    faults=$(relative_entries "$file")
    needed=$("$readelf" -dW "$file" | sed -n 's/.*(NEEDED).*\[\(.*\/.*\)\]/\1/p')
    [ -z "$faults$needed" ] || check "run path and needed libraries of $file" "" "$faults$needed"
done < <(elf_files "$binary_dir")
check "files of the build that were looked at" true "$([ "$count" -ge 10 ] && echo true || echo "$count")"

DESTDIR=$scratch/root "$cmake" --install "$binary_dir" >"$scratch/log" || { cat "$scratch/log"; exit 1; }
count=0
while read -r file; do
    count=$((count + 1))
    check "run path of ${file#"$scratch/root"}" "" "$(foreign_entries "$file")"
done < <(elf_files "$scratch/root")
if [ "$cim_library" = openpegasus ]; then expected=9; else expected=10; fi
[ -z "$fleet" ] || expected=$((expected + 1))
check "installed files that were looked at" $expected "$count"
finish
