# The project's own sample tables: the committed files equal what the builder makes, and the classes answer what their
# golden texts say. `--target update-samples` rewrites both.
add_executable(make_samples make_samples.cpp GoldenText.cpp SampleTables.cpp)
target_link_libraries(make_samples PRIVATE vq_module_objects vq_testing vq_warnings ${CMAKE_DL_LIBS})
add_custom_target(update-samples COMMAND make_samples ${CMAKE_SOURCE_DIR}/samples VERBATIM)
vq_test(samples_test SOURCES SamplesTest.cpp GoldenText.cpp SampleTables.cpp LIBRARIES vq_module_objects)
