# What the tests of the packages share. Each is run with the file of the build's settings as its argument.
set -euo pipefail
# shellcheck source=/dev/null
. "$1"
export LC_ALL=C

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failures=0

# Ends the test, which this machine can't run.
skip()
{
    echo "SKIPPED: $*"
    exit 77
}

# check WHAT EXPECTED ACTUAL
check()
{
    if [ "$2" = "$3" ]; then
        echo "ok: $1"
    else
        echo "FAILED: $1"
        diff <(printf '%s\n' "$2") <(printf '%s\n' "$3") | sed 's/^</  expected:/; s/^>/  found:   /' || true
        failures=$((failures + 1))
    fi
}

finish()
{
    [ "$failures" -eq 0 ] || { echo "$failures check(s) failed"; exit 1; }
    exit 0
}

# check_c_library DEB FILE...: the package asks for a C library that has all that its programs and libraries call.
check_c_library()
{
    local promised newest
    promised=$(dpkg-deb -f "$1" Depends | sed -n 's/.*libc6 (>= \([0-9.]*\)).*/\1/p')
    newest=$(printf '%s\n' "${@:2}" | xargs -n1 objdump -T | sed -n 's/.*GLIBC_\([0-9.]*\).*/\1/p' | sort -uV | tail -1)
    check "C library, oldest that will do" "$promised" "$(printf '%s\n' "${newest:-none was looked at}" "$promised" | sort -V | tail -1)"
}

if [ "$cim_library" = openpegasus ]; then package=systemprovider; else package=systemprovider-standalone; fi
if [ "$pointer_size" = 4 ]; then deb_architecture=i386 rpm_architecture=i686; else deb_architecture=amd64 rpm_architecture=x86_64; fi
deb=$package_dir/${package}_${version}_$deb_architecture.deb
development_deb=$package_dir/$package-dev_${version}_$deb_architecture.deb
ipmi_deb=$package_dir/systemprovider-ipmi_${version}_$deb_architecture.deb
xen_deb=$package_dir/systemprovider-xen_${version}_$deb_architecture.deb
fleet_deb=$package_dir/systemprovider-fleet_${version}_$deb_architecture.deb
python_deb=$package_dir/python3-systemprovider_${version}_all.deb

# The files of a package, sorted.
expected_files()
{
    {
        cat <<END
$bin/vqinventory
$sbin/vq-register
$module_dir/libSystemProvider.so
$module_dir/libvqcommon.so
$module_dir/libvqpegasus.so
$module_dir/libvqsmbios.so
$module_dir/from-dump/libvqsmbios.so
$lib/libsystemprovider_load.so.${version%%.*}
$lib/libsystemprovider_load.so.$version
$doc_dir/LICENSE
$completion_dir/vq-register
$completion_dir/vqinventory
$doc_dir/admin.md
$doc_dir/changelog.gz
$doc_dir/classes.md
$doc_dir/copyright
$doc_dir/inventory.schema.json
$doc_dir/monitoring.md
$doc_dir/security.md
$man/man1/vqinventory.1.gz
$man/man8/vq-register.8.gz
$ansible_dir/systemprovider.fact
$unit_dir/systemprovider-metrics.service
$unit_dir/systemprovider-metrics.timer
$schema_dir/SystemProvider.mof
$schema_dir/SystemProviderMethods.mof
$schema_dir/SystemProviderRegistration.mof
END
        [ "$cim_library" = openpegasus ] || echo "$module_dir/libvqcim.so"
    } | sort
}

expected_development_files()
{
    {
        cat <<END
$include/systemprovider.h
$include/systemprovider_load.h
$include/systemprovider_packed.h
$include/systemprovider_snapshot.h
$include/systemprovider/inventory/BaseBoard.h
$include/systemprovider/inventory/Bios.h
$include/systemprovider/inventory/Cache.h
$include/systemprovider/inventory/Chassis.h
$include/systemprovider/inventory/ComputerSystem.h
$include/systemprovider/inventory/Port.h
$include/systemprovider/inventory/Slot.h
$include/systemprovider/os/OperatingSystem.h
$include/systemprovider/support/common/DateTime.h
$include/systemprovider/support/common/Export.h
$lib/cmake/SystemProvider/SystemProviderConfig.cmake
$lib/cmake/SystemProvider/SystemProviderConfigVersion.cmake
$lib/cmake/SystemProvider/SystemProviderTargets-relwithdebinfo.cmake
$lib/cmake/SystemProvider/SystemProviderTargets.cmake
$lib/libsystemprovider_load.so
$lib/pkgconfig/systemprovider.pc
$man/man3/systemprovider.3.gz
$doc_dir-dev/LICENSE
$doc_dir-dev/changelog.gz
$doc_dir-dev/copyright
$doc_dir-dev/examples/flat_inventory.c
$doc_dir-dev/examples/inventory.c
END
        [ "$cim_library" != openpegasus ] || echo "$include/systemprovider/inventory/Firmware.h"
    } | sort
}

expected_python_files()
{
    sort <<END
$python_dir/systemprovider/__init__.py
$python_dir/systemprovider/_library.py
$python_dir/systemprovider/_records.py
$python_dir/systemprovider/_types.py
$python_dir/systemprovider/py.typed
${doc_dir%/*}/python3-systemprovider/LICENSE
${doc_dir%/*}/python3-systemprovider/changelog.gz
${doc_dir%/*}/python3-systemprovider/copyright
END
}

expected_fleet_files()
{
    sort <<END
$bin/vqfleet
$completion_dir/vqfleet
$man/man1/vqfleet.1.gz
$share_doc/systemprovider-fleet/LICENSE
$share_doc/systemprovider-fleet/changelog.gz
$share_doc/systemprovider-fleet/copyright
$share_doc/systemprovider-fleet/fleet.md
END
}

# expected_companion_files ipmi|xen
expected_companion_files()
{
    {
        if [ "$1" = ipmi ]; then echo "$module_dir/libqoripmi.so"; else echo "$probe_dir/libqorxenprobe.so"; fi
        printf '%s\n' "$share_doc/systemprovider-$1"/{LICENSE,changelog.gz,copyright}
    } | sort
}

# Makes the machine's directories writable without changing them, in a mount namespace of its own with $scratch for what is
# written. Call it as `in_namespace "$@"` with the test's own arguments; skips where the machine has no such thing.
in_namespace()
{
    if [ "${2-}" != in-namespace ]; then
        command -v dpkg >/dev/null || skip "dpkg is not installed"
        [ "$(id -u)" -eq 0 ] || skip "needs root, to install with dpkg in a mount namespace of its own"
        unshare --mount true 2>"$scratch/why" || skip "no mount namespace: $(cat "$scratch/why")"
        rm -rf "$scratch"
        trap - EXIT
        exec unshare --mount --propagation private bash "$0" "$1" in-namespace
    fi
    # The space for everything that is written; the machine's directories are the lower layers.
    mount -t tmpfs none "$scratch"
    trap 'umount -l "$scratch"; rmdir "$scratch"' EXIT
    local dir
    for dir in /usr /etc /var /opt; do
        mkdir -p "$scratch/layers$dir/upper" "$scratch/layers$dir/work"
        mount -t overlay overlay -o "lowerdir=$dir,upperdir=$scratch/layers$dir/upper,workdir=$scratch/layers$dir/work" "$dir" \
            2>"$scratch/why" || skip "no overlay over $dir: $(cat "$scratch/why")"
    done
}

# The packages of this width need not be installed here, and the width need not be this machine's own.
dpkg_quietly() { dpkg --force-depends --force-architecture --no-triggers "$@" >"$scratch/dpkg.log" 2>&1; }

# A stand-in for vq-register that notes how it is called and ends with exit code $1; in a directory that is printed.
stub_vq_register()
{
    local dir=$scratch/stub
    mkdir -p "$dir"
    printf '#!/bin/sh\necho "$*" >>%s/calls\nexit %s\n' "$dir" "$1" >"$dir/vq-register"
    chmod +x "$dir/vq-register"
    : >"$dir/calls"
    printf '%s\n' "$dir"
}

not_registered="$package: the module is installed, but not registered with a CIM server; when the cause is gone, run: vq-register register"
not_unregistered="$package: the registration, if there was one, could not be taken back; with the server up, run: cimprovider -r -m SystemProviderModule, and remove libSystemProvider.so from its directory of provider libraries"

# with_stub SCRIPT DIRECTORY: a copy of the script of a package that calls the vq-register of that directory in place of the
# installed one. Another name than its full path would stay, and call none: that on PATH must not be run.
with_stub()
{
    sed "s|$sbin/vq-register \"|$2/vq-register \"|" "$1" >"$scratch/${1##*/}.with-stub"
    printf '%s\n' "$scratch/${1##*/}.with-stub"
}

# run_script EXIT_CODE SCRIPT ARGUMENT...: runs a script of a package over a vq-register that ends with that code; sets
# result to "<exit code>|<calls of vq-register>|<standard error>".
run_script()
{
    local stub code=0 errors script
    stub=$(stub_vq_register "$1")
    script=$(with_stub "$2" "$stub")
    mkdir -p "$scratch/on-path"
    printf '#!/bin/sh\necho the one on PATH >>%s/calls\n' "$stub" >"$scratch/on-path/vq-register"
    chmod +x "$scratch/on-path/vq-register"
    shift 2
    errors=$(PATH=$scratch/on-path:${stub_path-}$PATH sh "$script" "$@" 2>&1 >/dev/null) || code=$?
    result="$code|$(tr '\n' ';' <"$stub/calls")|$errors"
}
