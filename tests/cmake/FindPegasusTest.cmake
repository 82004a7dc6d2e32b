# Looks for an OpenPegasus in places of the test's own, as a 64-bit build does.
#   SOURCE_DIR   the project
#   SCRATCH      a directory to write into
cmake_minimum_required(VERSION 3.21)
set(CMAKE_SIZEOF_VOID_P 8)
find_path(_installed Pegasus/Provider/CIMInstanceProvider.h)
if(_installed)
    message(STATUS "SKIPPED: this machine has an OpenPegasus in its system's directories")
    return()
endif()

file(REMOVE_RECURSE ${SCRATCH})
file(WRITE ${SCRATCH}/root/include/Pegasus/Provider/CIMInstanceProvider.h "")
file(WRITE ${SCRATCH}/empty/readme "")
foreach(_width 32 64)
    math(EXPR _class "${_width} / 32")
    string(ASCII 127 69 76 70 ${_class} _ident)
    foreach(_name libpegcommon.so libpegprovider.so)
        file(WRITE ${SCRATCH}/home${_width}/lib/${_name} "${_ident}")
    endforeach()
endforeach()

# expect(<root> <home> <sentence>...): each of these must be said, as a regular expression, and as many as that.
function(expect Pegasus_ROOT PEGASUS_HOME)
    unset(ENV{Pegasus_ROOT})
    unset(ENV{PEGASUS_HOME})
    set(Pegasus_FIND_QUIETLY TRUE)
    include(${SOURCE_DIR}/cmake/FindPegasus.cmake)
    unset(Pegasus_INCLUDE_DIR CACHE)
    list(LENGTH Pegasus_PROBLEMS said)
    list(LENGTH ARGN wanted)
    if(NOT said EQUAL wanted)
        message(SEND_ERROR "root '${Pegasus_ROOT}', home '${PEGASUS_HOME}': ${wanted} sentences expected, said: ${Pegasus_PROBLEMS}")
    endif()
    foreach(sentence ${ARGN})
        if(NOT "${Pegasus_PROBLEMS}" MATCHES "${sentence}")
            message(SEND_ERROR "root '${Pegasus_ROOT}', home '${PEGASUS_HOME}': not said: ${sentence}\nbut: ${Pegasus_PROBLEMS}")
        endif()
    endforeach()
endfunction()

set(_headers "No headers: Pegasus/Provider/CIMInstanceProvider.h was looked for in include, src and pegasus/src of Pegasus_ROOT")
set(_libraries "No libraries: 64-bit libpegcommon.so and libpegprovider.so were looked for in lib, lib64 and lib32 of PEGASUS_HOME")
expect("" "" "${_headers}" "Pegasus_ROOT is not set" "${_libraries}" "PEGASUS_HOME is not set")
expect(${SCRATCH}/nowhere ${SCRATCH}/no/home "${_headers}" "Pegasus_ROOT is ${SCRATCH}/nowhere, which is no directory"
    "${_libraries}" "PEGASUS_HOME is ${SCRATCH}/no/home, which is no directory")
expect(${SCRATCH}/empty ${SCRATCH}/home64 "${_headers}" "Pegasus_ROOT is ${SCRATCH}/empty, and that header is not below it")
# The libraries are found last: they stay in the cache.
unset(Pegasus_COMMON_LIBRARY CACHE)
unset(Pegasus_PROVIDER_LIBRARY CACHE)
expect(${SCRATCH}/root ${SCRATCH}/empty "${_libraries}" "PEGASUS_HOME is ${SCRATCH}/empty, and lib/libpegcommon.so is not below it")
expect(${SCRATCH}/root ${SCRATCH}/home32 "${_libraries}"
    "Of the wrong width, because this build is 64-bit: ${SCRATCH}/home32/lib/libpegcommon.so, ${SCRATCH}/home32/lib/libpegprovider.so")
