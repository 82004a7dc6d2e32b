# A build that packages must not be made of says so, and what to do.
. "$(dirname "$0")/common.bash"

code=0
said=$("$cpack" --config "$binary_dir/CPackConfig.cmake" -G DEB -B "$scratch/packages" 2>&1) || code=$?
check "cpack fails" true "$([ "$code" -ne 0 ] && echo true)"
check "and says what to do" true "$(tr -s ' \n' ' ' <<<"$said" | grep -q 'configure one with the preset x86-package or x86_64-package' && echo true || echo "$said")"
check "there is no package" "" "$(find "$scratch" -name '*.deb')"
finish
