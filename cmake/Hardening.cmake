# What makes it harder to turn a fault of the module, which runs as root, into somebody else's code: the options that Debian
# and Fedora build such programs with. The source fortification works on optimised code only.
include(CheckPIESupported)
check_pie_supported(LANGUAGES C CXX)

if(CMAKE_BUILD_TYPE MATCHES "^(Release|RelWithDebInfo|MinSizeRel)$")
    set(VQ_OPTIMISED ON)
else()
    set(VQ_OPTIMISED OFF)
endif()
option(VQ_HARDEN "Build as what root runs is built: with checks of memory, stack and control flow" ${VQ_OPTIMISED})
if(VQ_PACKAGES AND NOT (VQ_HARDEN AND VQ_OPTIMISED))
    message(FATAL_ERROR "Packages are made of a hardened and optimised build: configure with one of the presets "
        "x86-package and x86_64-package")
endif()

if(VQ_HARDEN)
    add_compile_options(
        -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -fstack-protector-strong -fstack-clash-protection -fcf-protection
        -Wformat -Werror=format-security)
    add_compile_definitions($<$<COMPILE_LANGUAGE:CXX>:_GLIBCXX_ASSERTIONS>)
    add_link_options(-Wl,-z,relro -Wl,-z,now)
endif()
