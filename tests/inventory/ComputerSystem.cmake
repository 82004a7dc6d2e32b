vq_test(computer_system_test SOURCES ComputerSystemTest.cpp LIBRARIES vq_module_objects)
set_target_properties(computer_system_test PROPERTIES ENABLE_EXPORTS ON)

# The probe library stands at ../lib/libqorxenprobe.so of the working directory: one place for each kind of library,
# with a directory `run` for the tests to work in.
set(_probes ${CMAKE_CURRENT_BINARY_DIR}/probes)
target_compile_definitions(computer_system_test PRIVATE VQ_PROBES="${_probes}")
foreach(_kind absent no-library answering guest-only without-guest)
    file(MAKE_DIRECTORY ${_probes}/${_kind}/run ${_probes}/${_kind}/lib)
endforeach()
file(WRITE ${_probes}/no-library/lib/libqorxenprobe.so "not a library\n")
foreach(_kind answering guest-only without-guest)
    add_library(probe-${_kind} MODULE ProbeLibrary.c)
    target_link_libraries(probe-${_kind} PRIVATE vq_warnings)
    set_target_properties(probe-${_kind} PROPERTIES
        OUTPUT_NAME qorxenprobe LIBRARY_OUTPUT_DIRECTORY ${_probes}/${_kind}/lib)
    add_dependencies(computer_system_test probe-${_kind})
endforeach()
target_compile_definitions(probe-answering PRIVATE WITH_GUEST WITH_CONTROL)
target_compile_definitions(probe-guest-only PRIVATE WITH_GUEST)
target_compile_definitions(probe-without-guest PRIVATE WITH_CONTROL)
