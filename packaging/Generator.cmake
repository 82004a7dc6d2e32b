# Run by cpack for each kind of package that it makes.
if(CPACK_GENERATOR STREQUAL "RPM" AND NOT CPACK_VQ_PYTHON_DIR MATCHES "site-packages")
    list(REMOVE_ITEM CPACK_COMPONENTS_ALL python)
endif()
