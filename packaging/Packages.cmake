# Packages of the build: `cpack -G DEB` and `cpack -G RPM` in the build directory. The paths of the package are those that
# the build was configured with (CMAKE_INSTALL_PREFIX, VQ_INSTALL_MODULE_DIR, VQ_INSTALL_SCHEMA_DIR,
# VQ_INSTALL_DOC_DIR and GNUInstallDirs' own), because the module and vq-register hold them.
if(VQ_SANITIZE)
    return() # its programs need the runtimes of the compiler that built them
endif()

set(CPACK_PACKAGE_NAME ${VQ_PACKAGE_NAME})
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "SystemProvider project")
set(CPACK_PACKAGE_CONTACT "${VQ_PACKAGE_MAINTAINER}")
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(_about "A provider module for the OpenPegasus CIM server. It publishes nine inventory
classes: BIOS and other firmware, chassis, base boards, caches, port
connectors, slots, computer system, operating system and system memory. The
facts come from the SMBIOS table of the machine and from the kernel.")
if(VQ_CIM_LIBRARY STREQUAL "openpegasus")
    set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "hardware inventory provider for the OpenPegasus CIM server")
    set(CPACK_PACKAGE_DESCRIPTION "${_about}

The package registers the module with the CIM server of the machine, where
there is one; vq-register does so later. vqinventory shows the inventory
without a server.")
else()
    set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "hardware inventory with CIM classes, without a CIM server")
    set(CPACK_PACKAGE_DESCRIPTION "${_about}

This package is built against a CIM library of its own. A CIM server can't
load its module; vqinventory shows the inventory without one.")
endif()

# What the libraries of this width come from. The oldest C library is the one that was built against.
execute_process(
    COMMAND ${CMAKE_CXX_COMPILER} -dM -E -x c++ -include features.h /dev/null
    OUTPUT_VARIABLE _macros OUTPUT_STRIP_TRAILING_WHITESPACE)
if(NOT _macros MATCHES "#define __GLIBC__ ([0-9]+)")
    message(STATUS "Packages: none, they are made for systems with the GNU C library")
    return()
endif()
set(_glibc ${CMAKE_MATCH_1})
string(REGEX MATCH "#define __GLIBC_MINOR__ ([0-9]+)" _ "${_macros}")
set(_glibc ${_glibc}.${CMAKE_MATCH_1})
string(REGEX MATCH "^[0-9]+" _gcc ${CMAKE_CXX_COMPILER_VERSION})

# The scripts of the packages register the module, and take the registration back.
function(vq_package_scripts result)
    set(scripts)
    if(VQ_CIM_LIBRARY STREQUAL "openpegasus")
        file(READ ask_server.sh.in VQ_ASK_SERVER)
        string(CONFIGURE "${VQ_ASK_SERVER}" VQ_ASK_SERVER @ONLY)
        foreach(script ${ARGN})
            set(made ${CMAKE_CURRENT_BINARY_DIR}/${script})
            configure_file(${script}.in ${made} @ONLY FILE_PERMISSIONS
                OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
            list(APPEND scripts ${made})
        endforeach()
    endif()
    set(${result} ${scripts} PARENT_SCOPE)
endfunction()

include(deb/Deb.cmake)
include(rpm/Rpm.cmake)
include(CPack)
