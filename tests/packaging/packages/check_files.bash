# cpack makes no package of a file that would make the loader search a directory of the build machine or of a person.
. "$(dirname "$0")/common.bash"

# build FILE RUN_PATH
build() { mkdir -p "${1%/*}"; echo 'int answer(void); int answer(void) { return 42; }' | "${compile[@]}" -shared -fPIC -x c - -o "$1" -Wl,-rpath,"$2"; }

# refused EXPECTED: cpack says why it makes no package of what stands in $scratch/files. (Nothing of the build is installed.)
refused()
{
    local code=0 said
    said=$("$cpack" --config "$binary_dir/CPackConfig.cmake" -G TGZ -B "$scratch/packages" -D CPACK_INSTALL_CMAKE_PROJECTS= \
        -D "CPACK_INSTALLED_DIRECTORIES=$scratch/files;/" -D CPACK_ARCHIVE_COMPONENT_INSTALL=OFF 2>&1) || code=$?
    said=$(tr -s ' \n' ' ' <<<"$said")
    check "$1" "$([ "$1" = accepted ] && echo 0 || echo 1)" "$code"
    [ "$1" = accepted ] || check "what it says" true "$(grep -qF -e "$1" <<<"$said" && echo true || echo "$said")"
    check "package" "$([ "$1" = accepted ] && echo 1 || echo 0)" "$(find "$scratch/packages" -maxdepth 1 -name '*.tar.gz' | wc -l)"
    rm -rf "$scratch/files" "$scratch/packages"
}

build "$scratch/files/good.so" "\$ORIGIN:\$ORIGIN/../lib:$module_dir"
echo 'a text' >"$scratch/files/text"
refused accepted
build "$scratch/files/library.so" "\$ORIGIN:$binary_dir/lib"
refused "its run path has \"$binary_dir/lib\", which is no directory of an installation"
build "$scratch/files/library.so" "/opt/somebody/lib:\$ORIGIN"
refused 'its run path has "/opt/somebody/lib", which is no directory of an installation'
build "$scratch/files/library.so" "\$ORIGIN:"
refused 'has an empty entry, the working directory'
build "$scratch/files/library.so" "../lib"
refused 'its run path has "../lib", which is no directory of an installation'
build "$scratch/files/library.so" "\$ORIGINAL"
refused 'its run path has "$ORIGINAL", which is no directory of an installation'
mkdir -p "$scratch/files"
echo "made in $binary_dir/lib" >"$scratch/files/text"
refused 'a directory of the machine that it was built on'
finish
