# The module: what keeps a server from loading it, and its link among the server's libraries.

elf_width()
{
    case "$(od -An -tx1 -N5 "$1" 2>/dev/null | tr -d ' \n')" in
    7f454c4601) echo 32 ;;
    7f454c4602) echo 64 ;;
    esac
}

# Says what keeps the server from loading the module; silent and true when nothing does.
module_problem()
{
    local width server_width missing
    [ -e "$module" ] || { echo "the module $module is not there: install it, or give --module"; return 1; }
    [ -r "$module" ] || { echo "the module $module can't be read: check its permissions"; return 1; }
    width=$(elf_width "$module")
    [ -n "$width" ] || { echo "$module is not a shared library"; return 1; }
    server_width=$(elf_width "$(command -v cimserver)")
    [ -z "$server_width" ] || [ "$width" = "$server_width" ] ||
        { echo "the module is $width-bit and the server $server_width-bit: install the module's $server_width-bit package"; return 1; }
    missing=$(ldd "$module" 2>/dev/null | sed -n 's/^[[:space:]]*\([^ ]*\) => not found.*/\1/p' | sort -u | tr '\n' ' ')
    [ -z "$missing" ] ||
        { echo "the module needs libraries that the loader does not find: ${missing% }; install them, or add their directory with ldconfig"; return 1; }
    # The standalone CIM library stands in for the server's; a module built against it can't be loaded by a server.
    ! ldd "$module" 2>/dev/null | grep 'libvqcim\.so' >/dev/null ||
        { echo "the module was built against the standalone CIM library: build it with -DVQ_CIM=openpegasus"; return 1; }
}

linked() { [ "$(readlink -f "$provider_dir/libSystemProvider.so" 2>/dev/null)" = "$(readlink -f "$module")" ]; }

# Only a link is ever replaced or removed, and the module itself, where it is installed there, is left alone.
link_module()
{
    local link=$provider_dir/libSystemProvider.so
    if linked; then
        say "module: $link is in place"
    elif [ -e "$link" ] && [ ! -L "$link" ]; then
        die "$link is another file, not a link: move it away, then register again"
    else
        run "link the module into $provider_dir" ln -sfn "$(readlink -f "$module")" "$link"
        say "module: linked as $link"
    fi
}

unlink_module()
{
    local link=$provider_dir/libSystemProvider.so
    if [ -L "$link" ]; then
        run "remove $link" rm -f "$link"
        say "module: link $link removed"
    fi
}
