# Finds an OpenPegasus installation: its headers and the two libraries that a provider module is linked with.
#
#   Pegasus_ROOT   (CMake or environment variable) an installation prefix, or the source tree. The home of a build
#                  from source (bin/, lib/) is looked for in PEGASUS_HOME (CMake or environment variable).
#
# Defines Pegasus_FOUND, Pegasus_VERSION, Pegasus_COMMON_LIBRARY, Pegasus_BIN_DIR and the targets
# Pegasus::Common and Pegasus::Provider. Libraries of the other width are passed over.

set(_pegasus_home ${PEGASUS_HOME} $ENV{PEGASUS_HOME})
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    set(_pegasus_platform LINUX_IX86_GNU)
    set(_pegasus_elf_class 1)
else()
    set(_pegasus_platform LINUX_X86_64_GNU)
    set(_pegasus_elf_class 2)
endif()

# True in `result` where the library is an ELF file of the width that is being built.
function(_pegasus_width_matches result file)
    set(${result} FALSE PARENT_SCOPE)
    file(READ "${file}" ident LIMIT 5 HEX)
    if(ident STREQUAL "7f454c460${_pegasus_elf_class}")
        set(${result} TRUE PARENT_SCOPE)
    endif()
endfunction()

find_path(Pegasus_INCLUDE_DIR Pegasus/Provider/CIMInstanceProvider.h
    HINTS ${Pegasus_ROOT} $ENV{Pegasus_ROOT}
    PATH_SUFFIXES include src pegasus/src)

foreach(_part COMMON PROVIDER)
    string(TOLOWER peg${_part} _name)
    if(NOT Pegasus_${_part}_LIBRARY)
        set(_dirs)
        foreach(_root ${_pegasus_home} ${Pegasus_ROOT} $ENV{Pegasus_ROOT} /usr /usr/local /opt/tog-pegasus)
            list(APPEND _dirs ${_root}/lib ${_root}/lib64 ${_root}/lib32 ${_root}/lib/${CMAKE_LIBRARY_ARCHITECTURE})
        endforeach()
        foreach(_dir ${_dirs})
            foreach(_suffix .so .so.1)
                if(NOT Pegasus_${_part}_LIBRARY AND EXISTS ${_dir}/lib${_name}${_suffix})
                    _pegasus_width_matches(_fits ${_dir}/lib${_name}${_suffix})
                    if(_fits)
                        set(Pegasus_${_part}_LIBRARY ${_dir}/lib${_name}${_suffix} CACHE FILEPATH
                            "OpenPegasus's ${_name} library")
                    endif()
                endif()
            endforeach()
        endforeach()
    endif()
endforeach()

set(_pegasus_version_header ${Pegasus_INCLUDE_DIR}/Pegasus/Common/PegasusVersion.h)
if(Pegasus_INCLUDE_DIR AND EXISTS ${_pegasus_version_header})
    file(STRINGS ${_pegasus_version_header} _line REGEX "define PEGASUS_PRODUCT_VERSION +\"")
    string(REGEX REPLACE ".*\"([0-9.]+).*" "\\1" Pegasus_VERSION "${_line}")
endif()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Pegasus
    REQUIRED_VARS Pegasus_COMMON_LIBRARY Pegasus_PROVIDER_LIBRARY Pegasus_INCLUDE_DIR
    VERSION_VAR Pegasus_VERSION)
mark_as_advanced(Pegasus_INCLUDE_DIR Pegasus_COMMON_LIBRARY Pegasus_PROVIDER_LIBRARY)

if(Pegasus_FOUND)
    get_filename_component(Pegasus_LIB_DIR ${Pegasus_COMMON_LIBRARY} DIRECTORY)
    get_filename_component(Pegasus_BIN_DIR ${Pegasus_LIB_DIR}/../bin ABSOLUTE)
    foreach(_part Common Provider)
        string(TOUPPER ${_part} _upper)
        if(NOT TARGET Pegasus::${_part})
            add_library(Pegasus::${_part} SHARED IMPORTED)
            set_target_properties(Pegasus::${_part} PROPERTIES
                IMPORTED_LOCATION ${Pegasus_${_upper}_LIBRARY}
                INTERFACE_SYSTEM_INCLUDE_DIRECTORIES ${Pegasus_INCLUDE_DIR}
                INTERFACE_INCLUDE_DIRECTORIES ${Pegasus_INCLUDE_DIR}
                INTERFACE_COMPILE_DEFINITIONS PEGASUS_PLATFORM_${_pegasus_platform})
        endif()
    endforeach()
endif()
