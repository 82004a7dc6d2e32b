# The manual pages, compressed as distributions want them, and the documents of the administrator.
set(VQ_INSTALL_DOC_DIR ${CMAKE_INSTALL_DATAROOTDIR}/doc/${VQ_PACKAGE_NAME} CACHE STRING
    "Where the documents are installed, below the prefix")

find_program(VQ_GZIP gzip REQUIRED)
mark_as_advanced(VQ_GZIP)

# vq_install_compressed(<file> <directory>) installs the file as <name>.gz. No time stamp goes into it, so the same file
# gives the same package.
function(vq_install_compressed file directory)
    get_filename_component(name ${file} NAME)
    set(compressed ${CMAKE_CURRENT_BINARY_DIR}/install/${name}.gz)
    add_custom_command(OUTPUT ${compressed} DEPENDS ${file} VERBATIM
        COMMAND ${CMAKE_COMMAND} -E copy ${file} ${CMAKE_CURRENT_BINARY_DIR}/install/${name}.copy
        COMMAND ${VQ_GZIP} -9nf -S .gz ${CMAKE_CURRENT_BINARY_DIR}/install/${name}.copy
        COMMAND ${CMAKE_COMMAND} -E rename ${CMAKE_CURRENT_BINARY_DIR}/install/${name}.copy.gz ${compressed})
    set_property(GLOBAL APPEND PROPERTY VQ_COMPRESSED_FILES ${compressed})
    install(FILES ${compressed} DESTINATION ${directory})
endfunction()

file(GLOB _pages CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/docs/man/*.[18])
foreach(_page ${_pages})
    get_filename_component(_name ${_page} NAME)
    string(REGEX MATCH "[18]$" _section ${_page})
    configure_file(${_page} ${CMAKE_CURRENT_BINARY_DIR}/install/${_name} @ONLY)
    vq_install_compressed(${CMAKE_CURRENT_BINARY_DIR}/install/${_name} ${CMAKE_INSTALL_MANDIR}/man${_section})
endforeach()

configure_file(changelog.in ${CMAKE_CURRENT_BINARY_DIR}/install/changelog @ONLY)
configure_file(copyright.in ${CMAKE_CURRENT_BINARY_DIR}/install/copyright @ONLY)
vq_install_compressed(${CMAKE_CURRENT_BINARY_DIR}/install/changelog ${VQ_INSTALL_DOC_DIR})
install(FILES
    ${CMAKE_CURRENT_BINARY_DIR}/install/copyright ${CMAKE_SOURCE_DIR}/docs/admin.md ${CMAKE_SOURCE_DIR}/docs/classes.md
    DESTINATION ${VQ_INSTALL_DOC_DIR})

get_property(_compressed GLOBAL PROPERTY VQ_COMPRESSED_FILES)
add_custom_target(compressed_documents ALL DEPENDS ${_compressed})
