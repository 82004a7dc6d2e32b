# Where the loader finds the libraries of an installed file.
set(VQ_PEGASUS_LIB_DIR "" CACHE STRING
    "Where the libraries of OpenPegasus are on the machines that this is installed on; empty: where their loader looks")
if(VQ_PEGASUS_LIB_DIR AND NOT VQ_PEGASUS_LIB_DIR MATCHES "^/[^:$;]*$")
    message(FATAL_ERROR "VQ_PEGASUS_LIB_DIR is '${VQ_PEGASUS_LIB_DIR}'; it must be the full path of one directory, "
        "such as /opt/tog-pegasus/lib, and on every target nobody but root may be able to write there")
endif()

# From `from`, a directory below the installation prefix, to `to`.
function(vq_relative_install_path result from to)
    cmake_path(ABSOLUTE_PATH from BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX})
    cmake_path(ABSOLUTE_PATH to BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX})
    file(RELATIVE_PATH relative ${from} ${to})
    set(${result} ${relative} PARENT_SCOPE)
endfunction()

# vq_install_linked(<target> <directory> <entry of the run path>...) installs the target, linked once more from the same
# objects with the run path that it needs where it is installed. CMake would write that one over the build's during the
# installation, for which it reserves room in the build by empty entries, and an empty entry makes the loader search the
# working directory. Call it when nothing more is said of the target.
function(vq_install_linked target directory)
    set(installed ${target}_installed)
    get_target_property(type ${target} TYPE)
    if(type STREQUAL "EXECUTABLE")
        add_executable(${installed} $<TARGET_OBJECTS:${target}>)
    else()
        add_library(${installed} SHARED $<TARGET_OBJECTS:${target}>)
    endif()
    foreach(property LINK_LIBRARIES LINK_OPTIONS LINK_DEPENDS)
        get_target_property(value ${target} ${property})
        if(value)
            set_target_properties(${installed} PROPERTIES ${property} "${value}")
        endif()
    endforeach()
    set_target_properties(${installed} PROPERTIES
        LINKER_LANGUAGE CXX
        OUTPUT_NAME ${target}
        LIBRARY_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/installed
        RUNTIME_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/installed
        BUILD_WITH_INSTALL_RPATH ON
        INSTALL_RPATH "${ARGN};${VQ_PEGASUS_LIB_DIR}")
    install(TARGETS ${installed} DESTINATION ${directory})
endfunction()
