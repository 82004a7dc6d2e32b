# The manual pages, compressed as distributions want them, the documents of the administrator, and what completes the
# programs' command lines.
set(VQ_INSTALL_DOC_DIR ${CMAKE_INSTALL_DATAROOTDIR}/doc/${VQ_PACKAGE_NAME} CACHE STRING
    "Where the documents are installed, below the prefix")

find_program(VQ_GZIP gzip REQUIRED)
mark_as_advanced(VQ_GZIP)

# vq_install_compressed(<file> <directory> <component>) installs the file as <name>.gz. No time stamp goes into it, so the same file
# gives the same package.
function(vq_install_compressed file directory component)
    get_filename_component(name ${file} NAME)
    set(compressed ${CMAKE_CURRENT_BINARY_DIR}/install/${name}.gz)
    install(FILES ${compressed} DESTINATION ${directory} COMPONENT ${component})
    get_property(known GLOBAL PROPERTY VQ_COMPRESSED_FILES)
    if(compressed IN_LIST known)
        return()
    endif()
    add_custom_command(OUTPUT ${compressed} DEPENDS ${file} VERBATIM
        COMMAND ${CMAKE_COMMAND} -E copy ${file} ${CMAKE_CURRENT_BINARY_DIR}/install/${name}.copy
        COMMAND ${VQ_GZIP} -9nf -S .gz ${CMAKE_CURRENT_BINARY_DIR}/install/${name}.copy
        COMMAND ${CMAKE_COMMAND} -E rename ${CMAKE_CURRENT_BINARY_DIR}/install/${name}.copy.gz ${compressed})
    set_property(GLOBAL APPEND PROPERTY VQ_COMPRESSED_FILES ${compressed})
endfunction()

file(GLOB _pages CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/docs/man/*.[138])
foreach(_page ${_pages})
    get_filename_component(_name ${_page} NAME)
    string(REGEX MATCH "[138]$" _section ${_page})
    set(_component runtime)
    if(_name STREQUAL "vqfleet.1")
        set(_component "${VQ_FLEET_COMPONENTS}")
    elseif(_section EQUAL 3)
        set(_component development)
    endif()
    if(NOT _component)
        continue()
    endif()
    configure_file(${_page} ${CMAKE_CURRENT_BINARY_DIR}/install/${_name} @ONLY)
    vq_install_compressed(${CMAKE_CURRENT_BINARY_DIR}/install/${_name} ${CMAKE_INSTALL_MANDIR}/man${_section} ${_component})
endforeach()

# The licence as Debian's copyright files have it: every line indented, an empty one with a dot.
file(READ ${CMAKE_SOURCE_DIR}/LICENSE VQ_LICENSE_TEXT)
string(STRIP "${VQ_LICENSE_TEXT}" VQ_LICENSE_TEXT)
string(REGEX REPLACE "\n\n" "\n.\n" VQ_LICENSE_TEXT "${VQ_LICENSE_TEXT}")
string(REPLACE "\n" "\n " VQ_LICENSE_TEXT " ${VQ_LICENSE_TEXT}")
configure_file(changelog.in ${CMAKE_CURRENT_BINARY_DIR}/install/changelog @ONLY)
configure_file(copyright.in ${CMAKE_CURRENT_BINARY_DIR}/install/copyright @ONLY)

set(VQ_INSTALL_DEVELOPMENT_DOC_DIR ${VQ_INSTALL_DOC_DIR}-dev)
vq_install_compressed(${CMAKE_CURRENT_BINARY_DIR}/install/changelog ${VQ_INSTALL_DOC_DIR} runtime)
vq_install_compressed(${CMAKE_CURRENT_BINARY_DIR}/install/changelog ${VQ_INSTALL_DEVELOPMENT_DOC_DIR} development)
set(_legal ${CMAKE_CURRENT_BINARY_DIR}/install/copyright ${CMAKE_SOURCE_DIR}/LICENSE)
install(FILES ${_legal} ${CMAKE_SOURCE_DIR}/docs/admin.md ${CMAKE_SOURCE_DIR}/docs/classes.md
    ${CMAKE_SOURCE_DIR}/docs/monitoring.md ${CMAKE_SOURCE_DIR}/docs/security.md ${CMAKE_SOURCE_DIR}/docs/inventory.schema.json
    DESTINATION ${VQ_INSTALL_DOC_DIR})
install(FILES ${_legal} DESTINATION ${VQ_INSTALL_DEVELOPMENT_DOC_DIR} COMPONENT development)
foreach(_component ${VQ_COMPANION_COMPONENTS} ${VQ_FLEET_COMPONENTS})
    set(_dir ${CMAKE_INSTALL_DATAROOTDIR}/doc/systemprovider-${_component})
    install(FILES ${_legal} DESTINATION ${_dir} COMPONENT ${_component})
    vq_install_compressed(${CMAKE_CURRENT_BINARY_DIR}/install/changelog ${_dir} ${_component})
endforeach()
set(_python_doc_dir ${CMAKE_INSTALL_DATAROOTDIR}/doc/python3-systemprovider)
vq_install_compressed(${CMAKE_CURRENT_BINARY_DIR}/install/changelog ${_python_doc_dir} python)
install(FILES ${_legal} DESTINATION ${_python_doc_dir} COMPONENT python)
install(FILES ${CMAKE_SOURCE_DIR}/examples/flat_inventory.c ${CMAKE_SOURCE_DIR}/examples/inventory.c
    DESTINATION ${VQ_INSTALL_DEVELOPMENT_DOC_DIR}/examples COMPONENT development)
install(FILES ${CMAKE_SOURCE_DIR}/completions/vq-register ${CMAKE_SOURCE_DIR}/completions/vqinventory
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
if(VQ_FLEET_COMPONENTS)
    install(FILES ${CMAKE_SOURCE_DIR}/docs/fleet.md COMPONENT fleet
        DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/systemprovider-fleet)
    install(FILES ${CMAKE_SOURCE_DIR}/completions/vqfleet COMPONENT fleet
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
endif()

get_property(_compressed GLOBAL PROPERTY VQ_COMPRESSED_FILES)
add_custom_target(compressed_documents ALL DEPENDS ${_compressed})
