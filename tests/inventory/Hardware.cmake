vq_test(hardware_inventory_test
    SOURCES BiosTest.cpp CacheTest.cpp ChassisTest.cpp FirmwareTest.cpp HostileTableTest.cpp PortTest.cpp SlotTest.cpp
    LIBRARIES vq_module_objects)
vq_test(endless_counter_test SOURCES EndlessCounterTest.cpp LIBRARIES vq_module_objects)
# A program of its own: it replaces make_string, so that a text can fail to be taken over.
vq_test(base_board_test SOURCES BaseBoardTest.cpp LIBRARIES vq_module_objects)

# Stand-ins for the IPMI access library, all of the one name that it is asked for by: a whole one, and one without each
# of its functions.
foreach(_variant whole without-open without-close without-get)
    string(TOUPPER ${_variant} _definition)
    string(REPLACE "-" "_" _definition VQ_${_definition})
    add_library(ipmi-${_variant} SHARED IpmiStandIn.c)
    target_include_directories(ipmi-${_variant} PRIVATE ${CMAKE_SOURCE_DIR})
    target_compile_definitions(ipmi-${_variant} PRIVATE ${_definition})
    target_link_libraries(ipmi-${_variant} PRIVATE vq_warnings)
    set_target_properties(ipmi-${_variant} PROPERTIES
        OUTPUT_NAME qoripmi LIBRARY_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/ipmi/${_variant})
    list(APPEND _stand_ins ipmi-${_variant})
endforeach()
vq_test(ipmi_firmware_test SOURCES IpmiFirmwareTest.cpp LIBRARIES vq_module_objects)
add_dependencies(ipmi_firmware_test ${_stand_ins})
target_compile_definitions(ipmi_firmware_test PRIVATE VQ_IPMI_DIR="${CMAKE_CURRENT_BINARY_DIR}/ipmi")
