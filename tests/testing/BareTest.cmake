include_guard(GLOBAL)

# vq_bare_test(<name> SOURCES <file>... [LIBRARIES <target>...]) is vq_test without the project's own libraries: for
# tests that choose themselves which of them they meet, and how.
function(vq_bare_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBRARIES" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE ${ARG_LIBRARIES} gtest gtest_main vq_warnings ${CMAKE_DL_LIBS})
    target_compile_definitions(${name} PRIVATE
        VQ_SOURCE_DIR="${CMAKE_SOURCE_DIR}" VQ_LIB_DIR="${VQ_LIB_DIR}" VQ_BINARY_DIR="${CMAKE_BINARY_DIR}")
    gtest_discover_tests(${name} TEST_PREFIX "${name}." NO_PRETTY_VALUES DISCOVERY_TIMEOUT 60
        WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR} PROPERTIES TIMEOUT 120)
endfunction()
