# The files that root runs are built as distributions build them, which shows in the files themselves.
. "$(dirname "$0")/common.bash"

imports() { "$readelf" --dyn-syms -W "$1" | awk '$7 == "UND" { sub(/@.*/, "", $8); print $8 }' | sort -u; }

# faults FILE: what it lacks, one on a line
faults()
{
    local file=$1 headers dynamic names
    headers=$("$readelf" -hlW "$file")
    dynamic=$("$readelf" -dW "$file")
    names=$(imports "$file")
    grep -qE '^ *Type: +DYN' <<<"$headers" || echo "has a fixed address"
    grep -q GNU_RELRO <<<"$headers" || echo "relocated data stays writable"
    grep -qE 'GNU_STACK .* RW +0x' <<<"$headers" || echo "executable stack"
    grep -qE '\(FLAGS\).*BIND_NOW|\(FLAGS_1\).*NOW' <<<"$dynamic" || echo "lazy binding"
    ! grep -q TEXTREL <<<"$dynamic" || echo "relocations in the code"
    grep -qx __stack_chk_fail <<<"$names" || echo "no stack protector"
    # But for vsnprintf, whose address std::to_string takes.
    ! grep -qxE 'v?(f|s)?printf|snprintf' <<<"$names" || echo "no source fortification"
    control_flow "$file" || echo "no control flow protection"
}

# Indirect branches may only go to an endbr instruction. The start files of some distributions lack the mark by which a file
# as a whole would say so; therefore the code is looked at: each function that is exported begins with one, and there are
# some in a program.
control_flow()
{
    local exported code without
    exported=$("$readelf" --dyn-syms -W "$1" | awk '$4 == "FUNC" && $7 != "UND" { sub(/@.*/, "", $8); print $8 }' | sort -u)
    code=$("$objdump" -d --no-show-raw-insn -w "$1")
    without=$(awk 'NR == FNR { exported[$1]; next }
        /^[0-9a-f]+ <.*>:$/ { gsub(/[<>:]/, "", $2); name = $2; next }
        name != "" { if (name in exported && $2 !~ /^endbr/) print name; name = "" }' <(printf '%s\n' "$exported") <(printf '%s\n' "$code"))
    [ -z "$without" ] && [ "$(grep -c 'endbr' <<<"$code")" -gt 5 ]
}

# The check can fail: a library that is built without any of it.
{
    echo '#include <stdio.h>'
    echo 'void show(const char* text); void show(const char* text) { char copy[64]; sprintf(copy, "<%s>", text); puts(copy); }'
} | "${compile[@]}" -O2 -shared -fPIC -x c - -o "$scratch/soft.so" -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=0 \
    -fno-stack-protector -fcf-protection=none -Wl,-z,norelro -Wl,-z,lazy -Wl,-z,execstack
check "what a soft library lacks" "relocated data stays writable
executable stack
lazy binding
no stack protector
no source fortification
no control flow protection" "$(faults "$scratch/soft.so")"

DESTDIR=$scratch/root "$cmake" --install "$binary_dir" >"$scratch/log" || { cat "$scratch/log"; exit 1; }
count=0
while read -r file; do
    count=$((count + 1))
    check "${file#"$scratch/root"}" "" "$(faults "$file")"
    case "$file" in */libSystemProvider.so | */vqinventory | */vqfleet) ;; *) continue ;; esac # small ones may need no check
    check "${file#"$scratch/root"} has the checks of the C++ library" _ZSt21__glibcxx_assert_failPKciS0_S0_ \
        "$(imports "$file" | grep glibcxx_assert_fail)"
done < <(elf_files "$scratch/root")
if [ "$cim_library" = openpegasus ]; then expected=9; else expected=10; fi
[ -z "$fleet" ] || expected=$((expected + 1))
check "installed files that were looked at" $expected "$count"
check "the C example" "" "$(faults "$example")"
finish
