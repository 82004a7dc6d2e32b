# The package for development: what it holds, and that the example of it is built with nothing else and runs.
. "$(dirname "$0")/common.bash"

command -v dpkg-deb >/dev/null || skip "dpkg is not installed"
root=$scratch/root
dpkg-deb -x "$development_deb" "$root"
check "files" "$(expected_development_files)" "$(cd "$root" && find . ! -type d | sed 's/^\.//' | sort)"
check "owners and permissions" "" "$(dpkg-deb -c "$development_deb" | grep -vE '^(-rw-r--r--|drwxr-xr-x|lrwxrwxrwx) root/root ' || true)"
check "nothing names the directories of this build" "" "$(grep -rlF -e "$binary_dir" -e "$source_dir" "$root" || true)"

field() { dpkg-deb -f "$development_deb" "$1"; }
check "dependencies" "$package (= $version)" "$(field Depends)"
check "architecture" "$deb_architecture" "$(field Architecture)"
check "maintainer" "$contact" "$(field Maintainer)"
check "description" "headers and examples for programs that use $package" "$(field Description | head -1)"

# Installed beside the package itself, below a directory that pkg-config and CMake are told of.
dpkg-deb -x "$deb" "$root"
dump=$source_dir/samples/server.bin
unset LD_LIBRARY_PATH
[ -z "$pegasus_libraries" ] || export LD_LIBRARY_PATH=$pegasus_libraries
slots() { "$@" | grep '^Slot' | tail -1; }
find_flags=(env PKG_CONFIG_SYSROOT_DIR="$root" PKG_CONFIG_LIBDIR="$root$lib/pkgconfig" pkg-config)
if command -v pkg-config >/dev/null; then
    check "version" "$version" "$("${find_flags[@]}" --modversion systemprovider)"
    check "module" "$module_dir/libSystemProvider.so" "$("${find_flags[@]}" --variable=module systemprovider | sed "s|^$root||")"
    # shellcheck disable=SC2046
    "${compile[@]}" -std=c99 -Wall -Wextra -Werror "$root$doc_dir-dev/examples/inventory.c" -o "$scratch/inventory" \
        $("${find_flags[@]}" --cflags --libs systemprovider)
    check "the example, found by pkg-config" "Slot 4" \
        "$(slots env LD_LIBRARY_PATH="$root$lib${LD_LIBRARY_PATH:+:$LD_LIBRARY_PATH}" "$scratch/inventory" "$dump")"
else
    echo "SKIPPED: pkg-config is not installed"
fi
"${compile[@]}" -std=c99 -Wall -Wextra -Werror -I"$root$include" "$root$doc_dir-dev/examples/flat_inventory.c" -o "$scratch/example" -ldl
check "the example without the library" "Slot 4" "$(slots "$scratch/example" "$root$module_dir/libSystemProvider.so" "$dump")"

# A project of others.
mkdir "$scratch/project"
cat >"$scratch/project/CMakeLists.txt" <<END
cmake_minimum_required(VERSION 3.16)
project(Other LANGUAGES C CXX)
find_package(SystemProvider 1 REQUIRED)
add_executable(inventory $root$doc_dir-dev/examples/inventory.c)
target_link_libraries(inventory PRIVATE SystemProvider::SystemProvider)
message(STATUS "module: \${SystemProvider_MODULE}")
END
check "the module that CMake finds" "-- module: $root$module_dir/libSystemProvider.so" \
    "$("$cmake" -S "$scratch/project" -B "$scratch/project/build" -DCMAKE_PREFIX_PATH="$root${include%/include}" \
        -DCMAKE_C_COMPILER="${compile[0]}" -DCMAKE_C_FLAGS="${compile[*]:1}" -DCMAKE_CXX_COMPILER="${compile_cxx[0]}" \
        -DCMAKE_CXX_FLAGS="${compile_cxx[*]:1}" -DCMAKE_FIND_ROOT_PATH= -DCMAKE_LIBRARY_ARCHITECTURE="$(basename "$lib")" 2>&1 | tee "$scratch/cmake.log" | grep '^-- module')"
"$cmake" --build "$scratch/project/build" >"$scratch/log" 2>&1 || cat "$scratch/cmake.log" "$scratch/log"
check "the example, found by CMake" "Slot 4" "$(slots "$scratch/project/build/inventory" "$dump")"

# Every header is all that its users include, in each language that it is for.
compiles() { "$@" -Wall -Wextra -Werror -fsyntax-only - 2>&1 || true; }
for header in systemprovider.h systemprovider_load.h systemprovider_packed.h; do
    check "$header in C" "" "$(echo "#include <$header>" | compiles "${compile[@]}" -std=c99 -I"$root$include" -x c)"
done
records=(-std=c++17 -I"$root$include" -I"$root$include/systemprovider")
[ -z "$pegasus_include" ] || records+=(-isystem "$pegasus_include" "-DPEGASUS_PLATFORM_LINUX_$([ "$pointer_size" = 4 ] && echo IX86 || echo X86_64)_GNU")
count=0
while read -r header; do
    count=$((count + 1))
    check "$header in C++" "" "$(echo "#include <$header>" | compiles "${compile_cxx[@]}" "${records[@]}" -x c++)"
done < <(cd "$root$include" && find . -name '*.h' | sed 's|^\./||')
check "headers that were looked at" "$(expected_development_files | grep -c '\.h$')" "$count"
# A program whose own names are those of the snapshot.
own_names='struct Own {}; Own os; Own cs; Own bios; Own slots; int bb;'
check "names of a C++ program with the loader" "" \
    "$(printf '#include <systemprovider_load.h>\n%s\n' "$own_names int init, getCount;" | compiles "${compile_cxx[@]}" "${records[@]}" -x c++)"
check "names of a C++ program that wants functions only" "" \
    "$(printf '#define SYSTEMPROVIDER_FUNCTIONS_ONLY\n#include <systemprovider.h>\n%s\n' "$own_names" | compiles "${compile_cxx[@]}" "${records[@]}" -x c++)"
check "names of a C++ program that wants all" "" \
    "$(printf '#include <systemprovider.h>\nvoid* use() { return &os; }\nvoid* pack(void* to) { return packI(to, 1); }\n' | compiles "${compile_cxx[@]}" "${records[@]}" -x c++)"
finish
