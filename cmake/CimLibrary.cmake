# Defines the target `vq_cim`, the CIM library that the module, the tool and the tests are built against.
# VQ_CIM chooses: `openpegasus` needs an installed OpenPegasus (cmake/FindPegasus.cmake says how it is found),
# `standalone` builds this project's own library, `auto` takes OpenPegasus where it is found.
if(NOT VQ_CIM MATCHES "^(standalone|openpegasus|auto)$")
    message(FATAL_ERROR "VQ_CIM is '${VQ_CIM}'; it must be standalone, openpegasus or auto")
endif()

add_library(vq_cim INTERFACE)
set(VQ_CIM_LIBRARY standalone)
if(NOT VQ_CIM STREQUAL "standalone")
    find_package(Pegasus QUIET)
    list(JOIN Pegasus_PROBLEMS "\n  " _problems)
    if(Pegasus_FOUND)
        set(VQ_CIM_LIBRARY openpegasus)
    elseif(VQ_CIM STREQUAL "openpegasus")
        message(FATAL_ERROR "VQ_CIM=openpegasus, but no OpenPegasus was found.\n  ${_problems}\n"
            "Set Pegasus_ROOT to its installation, or to its source tree with PEGASUS_HOME naming its build; "
            "or build with -DVQ_CIM=standalone.")
    elseif(_pegasus_given_root OR _pegasus_home)
        message(STATUS "No OpenPegasus, though Pegasus_ROOT or PEGASUS_HOME is set:\n     ${_problems}")
    endif()
endif()

if(VQ_CIM_LIBRARY STREQUAL "openpegasus")
    target_link_libraries(vq_cim INTERFACE Pegasus::Provider Pegasus::Common)
    message(STATUS "CIM library: OpenPegasus ${Pegasus_VERSION} (${Pegasus_COMMON_LIBRARY}); "
        "the module will load into that server only")
else()
    add_subdirectory(standalone)
    set_target_properties(vqcim PROPERTIES LIBRARY_OUTPUT_DIRECTORY ${VQ_LIB_DIR})
    target_link_libraries(vq_cim INTERFACE vqcim)
    message(STATUS "CIM library: standalone; the module will load into vqinventory, not into an OpenPegasus server")
endif()
