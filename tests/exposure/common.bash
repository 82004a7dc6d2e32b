# What these tests share, beside what the tests of the packages do.
. "$(dirname "$0")/../packaging/packages/common.bash"

# The ELF files below a directory. Those of cpack's own work and of the toolchain's trials are not ours.
elf_files()
{
    find "$1" \( -name _CPack_Packages -o -name CMakeFiles \) -prune -o -type f -size +1k \
        \( -perm -u+x -o -name '*.so*' \) -print | sort | while read -r file; do
        [ "$(head -c 4 "$file" | od -An -tx1 | tr -d ' ')" != 7f454c46 ] || printf '%s\n' "$file"
    done
}
