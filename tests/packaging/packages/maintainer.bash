# Packages for others name who answers for them, by a mail address that can be one.
. "$(dirname "$0")/common.bash"

# The address of this build itself.
check "address of this build" true "$(grep -qE '^[^<>@]+ <[^<>@ ]+@[^<>@ .]+(\.[^<>@ .]+)+>$' <<<"$contact" && echo true || echo "$contact")"

# configured OPTION...: what the configuration says of it; empty where it takes the options. Only this part of it is run.
configured()
{
    mkdir -p "$scratch/source"
    cat >"$scratch/source/CMakeLists.txt" <<END
cmake_minimum_required(VERSION 3.21)
project(Probe LANGUAGES NONE)
set(VQ_CIM_LIBRARY standalone)
include($source_dir/packaging/Contact.cmake)
message(STATUS "contact: \${VQ_PACKAGE_CONTACT}; distribution: \${VQ_DISTRIBUTION}")
END
    rm -rf "$scratch/build"
    "$cmake" -S "$scratch/source" -B "$scratch/build" "$@" 2>&1 | tr -s ' \n' ' ' | grep -oE "contact: .*; distribution: [A-Za-z]*|VQ_MAINTAINER is '.*'; it must be a name and a mail address|The packages of a release say who answers for them"
}
check "no option" "contact: SystemProvider developers <systemprovider@example.org>; distribution: UNRELEASED" "$(configured)"
check "a release without one" "The packages of a release say who answers for them" "$(configured -DVQ_RELEASE=ON)"
check "a release with one" "contact: Jane Doe <jane@example.org>; distribution: unstable" \
    "$(configured -DVQ_RELEASE=ON "-DVQ_MAINTAINER=Jane Doe <jane@example.org>")"
for bad in "Jane Doe" "jane@example.org" "Jane <jane@localhost>" "Jane <jane@example.org" "Jane <jane@.org>" "<jane@example.org>"; do
    check "$bad" "VQ_MAINTAINER is '$bad'; it must be a name and a mail address" "$(configured "-DVQ_MAINTAINER=$bad")"
done
finish
