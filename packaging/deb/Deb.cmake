# The dependencies are written out: dpkg-shlibdeps knows the host's libraries only, and on an amd64 host those of the
# 32-bit module come from packages that an i386 machine does not have. OpenPegasus is in no Debian package.
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE i386)
else()
    set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE amd64)
endif()
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${VQ_PACKAGE_NAME})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION admin)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS "libc6 (>= ${_glibc}), libgcc-s1, libstdc++6 (>= ${_gcc})")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONFLICTS ${VQ_PACKAGE_OTHER_NAME})
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "${_summary}\n${_description}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SUGGESTS "prometheus-node-exporter, python3")
vq_package_scripts(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA deb/postinst deb/prerm)
list(APPEND CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_SOURCE_DIR}/deb/triggers)

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME ${VQ_PACKAGE_NAME}-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${VQ_PACKAGE_NAME} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_CONFLICTS ${VQ_PACKAGE_OTHER_NAME}-dev)
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "${_development_summary}\n${_development_description}")

# The module looks for the library of Xen in one place, whatever the width: packages of both widths can't be installed together.
foreach(_component ${VQ_COMPANION_COMPONENTS})
    string(TOUPPER ${_component} _name)
    set(CPACK_DEBIAN_${_name}_PACKAGE_NAME systemprovider-${_component})
    set(CPACK_DEBIAN_${_name}_PACKAGE_SECTION admin)
    set(CPACK_DEBIAN_${_name}_PACKAGE_DEPENDS "libc6 (>= ${_glibc}), systemprovider | systemprovider-standalone")
    set(CPACK_DEBIAN_${_name}_DESCRIPTION "${_${_component}_summary}\n${_${_component}_description}")
endforeach()

# What asks the network: the same program, whichever CIM library the module is built with.
if(VQ_FLEET_COMPONENTS)
    set(CPACK_DEBIAN_FLEET_PACKAGE_NAME systemprovider-fleet)
    set(CPACK_DEBIAN_FLEET_PACKAGE_SECTION admin)
    set(CPACK_DEBIAN_FLEET_PACKAGE_DEPENDS
        "libc6 (>= ${_glibc}), libcurl4 (>= 7.85.0), libgcc-s1, libpugixml1v5 (>= 1.4), libstdc++6 (>= ${_gcc})")
    set(CPACK_DEBIAN_FLEET_DESCRIPTION "${_fleet_summary}\n${_fleet_description}")
endif()

# Of any width: the library comes with the machine's own package.
set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-systemprovider)
set(CPACK_DEBIAN_PYTHON_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS
    "python3 (>= 3.8), ${VQ_PACKAGE_NAME} (= ${PROJECT_VERSION}) | ${VQ_PACKAGE_OTHER_NAME} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_PYTHON_DESCRIPTION "${_python_summary}\n${_python_description}")
