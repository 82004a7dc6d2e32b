# Packages of the build (VQ_PACKAGES): `cpack -G DEB` and `cpack -G RPM` in the build directory, each the package itself,
# one of what programs of others are made with, the Python module, one for each optional library, and one of the program
# that asks other machines. The paths of the package are those that the build was configured with (CMAKE_INSTALL_PREFIX, VQ_INSTALL_MODULE_DIR, VQ_INSTALL_SCHEMA_DIR,
# VQ_INSTALL_DOC_DIR and GNUInstallDirs' own), because the module and vq-register hold them.
if(NOT VQ_PACKAGES)
    # Any other would hold a module for /usr/local, or one that is not hardened.
    file(WRITE ${CMAKE_BINARY_DIR}/CPackConfig.cmake "message(FATAL_ERROR \"No packages are made of this build: "
        "configure one with the preset x86-package or x86_64-package (docs/admin.md)\")\n")
    return()
endif()
if(VQ_SANITIZE)
    message(FATAL_ERROR "The sanitizers' programs need the runtimes of the compiler that built them: no packages")
endif()

set(CPACK_PACKAGE_NAME ${VQ_PACKAGE_NAME})
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "SystemProvider project")
set(CPACK_PACKAGE_CONTACT "${VQ_PACKAGE_CONTACT}")
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_STRIP_FILES ON)
set(CPACK_RESOURCE_FILE_LICENSE ${CMAKE_SOURCE_DIR}/LICENSE)
set(CPACK_COMPONENTS_ALL runtime development python ${VQ_COMPANION_COMPONENTS} ${VQ_FLEET_COMPONENTS})
# Each system has its Python's directory elsewhere: an RPM of the module is made where that is one of an RPM system.
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_SOURCE_DIR}/Generator.cmake)
set(CPACK_VQ_PYTHON_DIR ${VQ_INSTALL_PYTHON_DIR})
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_VERBATIM_VARIABLES ON)
# Each package has a summary of its own; this text of CPack's is the only one that it does not put before it.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${CMAKE_PROJECT_NAME} built using CMake")
set(_about "A provider module for the OpenPegasus CIM server. It publishes nine inventory
classes: BIOS and other firmware, chassis, base boards, caches, port
connectors, slots, computer system, operating system and system memory. The
facts come from the SMBIOS table of the machine and from the kernel.")
if(VQ_CIM_LIBRARY STREQUAL "openpegasus")
    set(_summary "hardware inventory provider for the OpenPegasus CIM server")
    set(_description "${_about}

The package registers the module with the CIM server of the machine, where
there is one; vq-register does so later. vqinventory shows the inventory
without a server.")
else()
    set(_summary "hardware inventory with CIM classes, without a CIM server")
    set(_description "${_about}

This package is built against a CIM library of its own. A CIM server can't
load its module; vqinventory shows the inventory without one.")
endif()

set(_development_summary "headers and examples for programs that use ${VQ_PACKAGE_NAME}")
set(_development_description "The flat interface of the SystemProvider module hands the inventory of a machine
to programs without a CIM server. This package holds its headers, what
pkg-config and CMake find it by, its manual page and two C programs.")

set(_python_summary "hardware inventory of this machine for Python programs")
set(_python_description "The module systemprovider gives the inventory that the CIM provider module
SystemProvider reads as dictionaries and lists, without a CIM server.")

set(_ipmi_summary "the BMC's firmware in the inventory of SystemProvider")
set(_ipmi_description "A library that asks the baseboard management controller of a machine who it is, by
the Linux kernel's IPMI driver. The SystemProvider module finds it where it is
installed, and then lists the BMC's firmware with the BIOS.")
set(_xen_summary "Xen guests in the inventory of SystemProvider")
set(_xen_description "A library that tells whether a system is a domain of the Xen hypervisor. The
SystemProvider module finds it where it is installed, and then reports a Xen
guest as such.")

set(_fleet_summary "hardware inventory of many machines, asked over the network")
set(_fleet_description "vqfleet asks the CIM servers of many machines at once for the inventory that the
provider module SystemProvider gives, and shows, saves and compares it. It is
for an administrator's workstation, and needs no CIM server there.")

set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_SOURCE_DIR}/OpenDirectories.cmake ${CMAKE_CURRENT_SOURCE_DIR}/CheckFiles.cmake)
# What no packaged file may hold: a person who can create such a path on a target would choose what root runs there.
set(CPACK_VQ_READELF ${CMAKE_READELF})
set(CPACK_VQ_RUN_PATHS ${CMAKE_INSTALL_PREFIX}/${VQ_INSTALL_MODULE_DIR} ${VQ_PEGASUS_LIB_DIR})
set(CPACK_VQ_BUILD_PATHS ${CMAKE_SOURCE_DIR} ${CMAKE_BINARY_DIR})
foreach(_dir ${Pegasus_LIB_DIR} ${Pegasus_INCLUDE_DIR})
    if(NOT _dir MATCHES "^/usr/" AND NOT _dir STREQUAL VQ_PEGASUS_LIB_DIR)
        list(APPEND CPACK_VQ_BUILD_PATHS ${_dir})
    endif()
endforeach()

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
