# The project's own sample tables: the committed files equal what the builder makes, and the classes answer what their
# golden texts say. `--target update-samples` rewrites both.
add_executable(make_samples make_samples.cpp GoldenText.cpp SampleTables.cpp)
target_link_libraries(make_samples PRIVATE vq_module_objects vq_testing vq_warnings ${CMAKE_DL_LIBS})
add_custom_target(update-samples COMMAND make_samples ${CMAKE_SOURCE_DIR}/samples VERBATIM)
vq_test(samples_test SOURCES SamplesTest.cpp GoldenText.cpp SampleTables.cpp LIBRARIES vq_module_objects)

# The classes against Debian's dmidecode, over the samples and over real dumps where there are any.
set(VQ_DUMPS ${CMAKE_SOURCE_DIR}/../shared/dumps CACHE PATH "SMBIOS dumps of real machines that tests read (*.bin)")
vq_test(oracle_test SOURCES OracleTest.cpp CodeTexts.cpp Dmidecode.cpp DmidecodeFacts.cpp KnownDifferences.cpp
    ModuleFacts.cpp SampleTables.cpp LIBRARIES vq_module_objects)
target_compile_definitions(oracle_test PRIVATE VQ_DUMPS="${VQ_DUMPS}")

# The cost of a request grows no faster than the table.
vq_test(growth_test SOURCES GrowthTest.cpp LargeTables.cpp Measure.cpp LIBRARIES vq_module_objects)
