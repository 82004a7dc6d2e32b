# The module: what keeps a server from loading it, and its link among the server's libraries.

# bytes FILE OFFSET COUNT: as an unsigned number
bytes() { od -An -j "$2" -N "$3" -t "u$3" "$1" 2>/dev/null | tr -d ' \n'; }

elf_width()
{
    case "$(od -An -tx1 -N5 "$1" 2>/dev/null | tr -d ' \n')" in
    7f454c4601) echo 32 ;;
    7f454c4602) echo 64 ;;
    esac
}

# Whether all of an ELF file of that width is there: its last part is the table of its sections.
elf_whole()
{
    local table size count
    if [ "$2" = 32 ]; then
        table=$(bytes "$1" 32 4) size=$(bytes "$1" 46 2) count=$(bytes "$1" 48 2)
    else
        table=$(bytes "$1" 40 8) size=$(bytes "$1" 58 2) count=$(bytes "$1" 60 2)
    fi
    [ -n "$count" ] && [ "$(stat -Lc %s "$1")" -ge $((table + size * count)) ]
}

# Says what keeps root's server from loading the module; silent and true when nothing does.
module_problem()
{
    local width server_width needed missing library
    [ -e "$module" ] || { echo "the module $module is not there: install it, or give --module"; return 1; }
    [ -r "$module" ] || { echo "the module $module can't be read: check its permissions"; return 1; }
    path_problem "the module" "$module" || return 1
    width=$(elf_width "$module")
    [ -n "$width" ] || { echo "$module is not a shared library"; return 1; }
    server_width=$(elf_width "$(type -P cimserver)")
    [ -z "$server_width" ] || [ "$width" = "$server_width" ] ||
        { echo "the module is $width-bit and the server $server_width-bit: install the module's $server_width-bit package"; return 1; }
    elf_whole "$module" "$width" || { echo "the module $module is cut off: install it again"; return 1; }
    # The loader may run what it is asked about, so the file must be root's before.
    needed=$(ldd "$module" 2>/dev/null)
    missing=$(sed -n 's/^[[:space:]]*\([^ ]*\) => not found.*/\1/p' <<<"$needed" | sort -u | tr '\n' ' ')
    [ -z "$missing" ] ||
        { echo "the module needs libraries that the loader does not find: ${missing% }; install them, or add their directory with ldconfig"; return 1; }
    # The standalone CIM library stands in for the server's; a module built against it can't be loaded by a server.
    [[ $needed != *libvqcim.so* ]] ||
        { echo "the module is made to run without a server: install the package systemprovider, or build with -DVQ_CIM=openpegasus"; return 1; }
    grep -q PegasusCreateProvider "$module" || { echo "$module is not a module for a CIM server"; return 1; }
    while read -r library; do
        path_problem "the module's library" "$library" || return 1
    done < <(sed -n 's/.* => \(\/.*\) (0x[0-9a-f]*)$/\1/p' <<<"$needed")
}

linked() { [ "$(readlink -f "$provider_dir/libSystemProvider.so" 2>/dev/null)" = "$(readlink -f "$module")" ]; }

# Says what stands where the server looks for the module, and is neither the module nor a link.
foreign_file_problem()
{
    local link=$provider_dir/libSystemProvider.so
    [ ! -e "$link" ] || [ -L "$link" ] || linked ||
        { echo "$link is another file, not a link: move it away, then register again"; return 1; }
}

link_problem()
{
    foreign_file_problem || return 1
    linked || { echo "the module is not linked into $provider_dir; run vq-register register"; return 1; }
}

# Only a link is ever replaced or removed, and the module itself, where it is installed there, is left alone.
link_module()
{
    linked || run "link the module into $provider_dir" ln -sfn "$(readlink -f "$module")" "$provider_dir/libSystemProvider.so"
    need link_problem
}

# link_back TARGET: the link as it was before
link_back()
{
    local link=$provider_dir/libSystemProvider.so
    [ "$(readlink "$link")" = "$1" ] || {
        rm -f "$link"
        [ -z "$1" ] || ln -s "$1" "$link"
    }
}
