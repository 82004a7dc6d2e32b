# vq-register without a server: stand-ins of the tests' own for its commands.

# A library that the loader is content with, and one that needs a library which is not where it looks.
add_library(vq_empty_part SHARED empty.c)
add_library(vq_orphan SHARED empty.c)
target_link_libraries(vq_orphan PRIVATE vq_empty_part)
target_link_options(vq_orphan PRIVATE -Wl,--no-as-needed)
set_target_properties(vq_orphan PROPERTIES SKIP_BUILD_RPATH ON)

set(_standalone)
if(VQ_CIM_LIBRARY STREQUAL "standalone")
    set(_standalone 1)
endif()
set(_test ${CMAKE_CURRENT_SOURCE_DIR}/vq-register-test)
add_test(NAME packaging.vq-register COMMAND ${_test})
add_test(NAME packaging.vq-register-doctor COMMAND ${CMAKE_SOURCE_DIR}/tests/server/in-private
    ${CMAKE_CURRENT_BINARY_DIR} ${CMAKE_SOURCE_DIR}:${CMAKE_BINARY_DIR} ${_test} doctor)
set_tests_properties(packaging.vq-register packaging.vq-register-doctor PROPERTIES
    SKIP_RETURN_CODE 77 TIMEOUT 120 ENVIRONMENT
    "VQ_REGISTER=${CMAKE_BINARY_DIR}/bin/vq-register;VQ_STANDALONE=${_standalone}\
;VQ_PLAIN=$<TARGET_FILE:vq_empty_part>;VQ_ORPHAN=$<TARGET_FILE:vq_orphan>;VQ_SCHEMA=${CMAKE_SOURCE_DIR}/schema;VQ_VERSION=${PROJECT_VERSION}")
