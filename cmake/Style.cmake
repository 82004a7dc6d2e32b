# The style that .clang-format and .clang-tidy hold: `--target format`, `format-check`, `tidy` (scripts/style).
add_custom_target(format COMMAND ${CMAKE_SOURCE_DIR}/scripts/style format VERBATIM USES_TERMINAL)
add_custom_target(format-check COMMAND ${CMAKE_SOURCE_DIR}/scripts/style check VERBATIM USES_TERMINAL)
add_custom_target(tidy COMMAND ${CMAKE_SOURCE_DIR}/scripts/style tidy ${CMAKE_BINARY_DIR} VERBATIM USES_TERMINAL)
if(BUILD_TESTING)
    add_test(NAME style.format COMMAND ${CMAKE_SOURCE_DIR}/scripts/style check)
    set_tests_properties(style.format PROPERTIES SKIP_RETURN_CODE 77)
endif()
