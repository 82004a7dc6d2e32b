# Libraries lie around the working directory of someone who runs the programs. None of them is loaded.
. "$(dirname "$0")/common.bash"

export VQ_PLANTED_MARK=$scratch/mark
place=$scratch/person/work
mkdir -p "$place/lib" "$scratch/person/lib"
for name in libqorxenprobe.so libqoripmi.so libgcc_s.so.1 libstdc++.so.6 libm.so.6 libc.so.6 libvqcim.so libvqcommon.so \
    libvqpegasus.so libvqsmbios.so libpegcommon.so.1 libpegprovider.so.1 libSystemProvider.so; do
    for dir in "$place" "$place/lib" "$scratch/person/lib"; do cp "$planted" "$dir/$name"; done
done
module=$binary_dir/lib/libSystemProvider.so
cp "$source_dir/samples/server.bin" "$place/dump.bin"
ln -s "$module" "$place/module.so"

marks() { [ ! -e "$VQ_PLANTED_MARK" ] || wc -l <"$VQ_PLANTED_MARK"; }

# The check can fail: a program that stays where it is runs what lies there.
(cd "$place" && "$careless" "$module") || true
check "a careless program runs the planted library" true "$([ -s "$VQ_PLANTED_MARK" ] && echo true)"
rm -f "$VQ_PLANTED_MARK"

# answers PROGRAM ARGUMENT...: it answers in that place what it answers elsewhere, and runs nothing of it. What changes from
# run to run (times, free memory, processes) is left out.
answers()
{
    local there elsewhere code=0
    elsewhere=$(cd "$source_dir" && "$@" 2>&1 | grep -vE 'Free|Up since|Processes|LocalDateTime|LastBootUpTime|seconds') || true
    there=$(cd "$place" && "$@" 2>&1 | grep -vE 'Free|Up since|Processes|LocalDateTime|LastBootUpTime|seconds') || true
    check "${*##*/} answers as elsewhere" "$elsewhere" "$there"
    check "${*##*/} loads nothing that lies there" "" "$(marks)"
}

tool=$binary_dir/bin/vqinventory
dump=$source_dir/samples/server.bin
answers "$tool" --version
answers "$tool"
answers "$tool" --from-dump "$dump"
answers "$tool" check --from-dump "$dump"
answers "$tool" names --from-dump "$dump"
answers "$tool" get 'QORTAL_ComputerSystem.CreationClassName="QORTAL_ComputerSystem",Name="x"'
answers "$tool" --module "$module" --from-dump "$dump" QORTAL_BIOS
answers "$example" "$module" "$dump"
answers "$inventory"
answers "$inventory" "$dump"
answers "$inventory" --module "$module" "$dump"
answers "$reload" "$module" "$binary_dir/lib/from-dump/libvqsmbios.so" "$dump" 1
(cd "$place" && "$tool" --module module.so --from-dump dump.bin --format json) >/dev/null
(cd "$place" && "$inventory" --module module.so dump.bin >/dev/null)
(cd "$place" && "$example" module.so >/dev/null && "$example" ./module.so dump.bin >/dev/null)
check "files by relative names" "" "$(marks)"

# The loader's lines that name neither a full path nor the kernel's own part.
foreign() { grep -vE '=> /|^\s/|linux-(vdso|gate)\.so|statically linked|=> not found' ; }

# At their start, all programs, those of the tests too: the loader says what it would load, and runs nothing.
count=0
while read -r program; do
    [[ $("$readelf" -lW "$program") == *'Requesting program interpreter'* ]] || continue
    case "$program" in *.so) continue ;; esac
    count=$((count + 1))
    check "$program starts without what lies there" "" \
        "$(cd "$place" && LD_TRACE_LOADED_OBJECTS=1 "$program" 2>&1 | foreign || true)"
done < <(elf_files "$binary_dir")
check "programs that were looked at" true "$([ "$count" -ge 4 ] && echo true || echo "$count")"
finish
