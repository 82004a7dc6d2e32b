# Finds an OpenPegasus installation: its headers and the two libraries that a provider module is linked with.
#
#   Pegasus_ROOT   (CMake or environment variable) an installation prefix, or the source tree. The home of a build
#                  from source (bin/, lib/) is looked for in PEGASUS_HOME (CMake or environment variable).
#
# Defines Pegasus_FOUND, Pegasus_VERSION, Pegasus_COMMON_LIBRARY, Pegasus_BIN_DIR and the targets
# Pegasus::Common and Pegasus::Provider. Libraries of the other width are passed over. Where it is not found,
# Pegasus_PROBLEMS has a sentence for each thing that is missing: what was looked for, and what is wrong with the root, the
# home or the width.

set(_pegasus_home ${PEGASUS_HOME} $ENV{PEGASUS_HOME})
set(_pegasus_given_root ${Pegasus_ROOT} $ENV{Pegasus_ROOT})
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    set(_pegasus_platform LINUX_IX86_GNU)
    set(_pegasus_elf_class 1)
    set(_pegasus_width 32)
else()
    set(_pegasus_platform LINUX_X86_64_GNU)
    set(_pegasus_elf_class 2)
    set(_pegasus_width 64)
endif()
set(_pegasus_other_width) # libraries that were passed over

# True in `result` where the library is an ELF file of the width that is being built.
function(_pegasus_width_matches result file)
    set(${result} FALSE PARENT_SCOPE)
    file(READ "${file}" ident LIMIT 5 HEX)
    if(ident STREQUAL "7f454c460${_pegasus_elf_class}")
        set(${result} TRUE PARENT_SCOPE)
    endif()
endfunction()

find_path(Pegasus_INCLUDE_DIR Pegasus/Provider/CIMInstanceProvider.h
    HINTS ${_pegasus_given_root}
    PATH_SUFFIXES include src pegasus/src)

foreach(_part COMMON PROVIDER)
    string(TOLOWER peg${_part} _name)
    if(NOT Pegasus_${_part}_LIBRARY)
        set(_dirs)
        foreach(_root ${_pegasus_home} ${_pegasus_given_root} /usr /usr/local /opt/tog-pegasus)
            list(APPEND _dirs ${_root}/lib ${_root}/lib64 ${_root}/lib32)
            if(CMAKE_LIBRARY_ARCHITECTURE)
                list(APPEND _dirs ${_root}/lib/${CMAKE_LIBRARY_ARCHITECTURE})
            endif()
        endforeach()
        foreach(_dir ${_dirs})
            foreach(_suffix .so .so.1)
                if(NOT Pegasus_${_part}_LIBRARY AND EXISTS ${_dir}/lib${_name}${_suffix})
                    _pegasus_width_matches(_fits ${_dir}/lib${_name}${_suffix})
                    if(_fits)
                        set(Pegasus_${_part}_LIBRARY ${_dir}/lib${_name}${_suffix} CACHE FILEPATH
                            "OpenPegasus's ${_name} library")
                    else()
                        list(APPEND _pegasus_other_width ${_dir}/lib${_name}${_suffix})
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

# Says of a place that was given, where there is nothing to be found in it, what is wrong with it.
function(_pegasus_judge what wanted)
    set(problems ${Pegasus_PROBLEMS})
    foreach(place ${ARGN})
        if(NOT IS_DIRECTORY "${place}")
            list(APPEND problems "${what} is ${place}, which is no directory.")
        else()
            list(APPEND problems "${what} is ${place}, and ${wanted} is not below it.")
        endif()
    endforeach()
    if(NOT ARGN)
        list(APPEND problems "${what} is not set.")
    endif()
    set(Pegasus_PROBLEMS ${problems} PARENT_SCOPE)
endfunction()

set(Pegasus_PROBLEMS)
if(NOT Pegasus_INCLUDE_DIR)
    list(APPEND Pegasus_PROBLEMS
        "No headers: Pegasus/Provider/CIMInstanceProvider.h was looked for in include, src and pegasus/src of Pegasus_ROOT, and in the system's directories.")
    _pegasus_judge(Pegasus_ROOT "that header" ${_pegasus_given_root})
endif()
if(NOT Pegasus_COMMON_LIBRARY OR NOT Pegasus_PROVIDER_LIBRARY)
    list(APPEND Pegasus_PROBLEMS
        "No libraries: ${_pegasus_width}-bit libpegcommon.so and libpegprovider.so were looked for in lib, lib64 and lib32 of PEGASUS_HOME and Pegasus_ROOT, and of /usr, /usr/local and /opt/tog-pegasus.")
    if(_pegasus_other_width)
        list(REMOVE_DUPLICATES _pegasus_other_width)
        list(JOIN _pegasus_other_width ", " _names)
        list(APPEND Pegasus_PROBLEMS
            "Of the wrong width, because this build is ${_pegasus_width}-bit: ${_names}. Take the preset of the other width, or an OpenPegasus of this one.")
    else()
        _pegasus_judge(PEGASUS_HOME "lib/libpegcommon.so" ${_pegasus_home})
    endif()
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
