if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    set(CPACK_RPM_PACKAGE_ARCHITECTURE i686)
    set(_mark "")
else()
    set(CPACK_RPM_PACKAGE_ARCHITECTURE x86_64)
    set(_mark "()(64bit)")
endif()
set(CPACK_RPM_FILE_NAME RPM-DEFAULT)
set(CPACK_RPM_PACKAGE_GROUP "System Environment/Base")
set(CPACK_RPM_PACKAGE_LICENSE MIT)
set(CPACK_RPM_COMPONENT_INSTALL ON)
set(CPACK_RPM_MAIN_COMPONENT runtime)
set(CPACK_RPM_RUNTIME_PACKAGE_SUMMARY "${_summary}")
set(CPACK_RPM_RUNTIME_PACKAGE_DESCRIPTION "${_description}")
set(CPACK_RPM_RUNTIME_PACKAGE_CONFLICTS ${VQ_PACKAGE_OTHER_NAME})

set(CPACK_RPM_DEVELOPMENT_PACKAGE_NAME ${VQ_PACKAGE_NAME}-devel)
set(CPACK_RPM_DEVELOPMENT_PACKAGE_SUMMARY "${_development_summary}")
set(CPACK_RPM_DEVELOPMENT_PACKAGE_DESCRIPTION "${_development_description}")
set(CPACK_RPM_DEVELOPMENT_PACKAGE_REQUIRES "${VQ_PACKAGE_NAME} = ${PROJECT_VERSION}")
set(CPACK_RPM_DEVELOPMENT_PACKAGE_CONFLICTS ${VQ_PACKAGE_OTHER_NAME}-devel)

set(CPACK_RPM_PYTHON_PACKAGE_NAME python3-systemprovider)
set(CPACK_RPM_PYTHON_PACKAGE_ARCHITECTURE noarch)
set(CPACK_RPM_PYTHON_PACKAGE_SUMMARY "${_python_summary}")
set(CPACK_RPM_PYTHON_PACKAGE_DESCRIPTION "${_python_description}")
set(CPACK_RPM_PYTHON_PACKAGE_REQUIRES "python3 >= 3.8, ${VQ_PACKAGE_NAME} = ${PROJECT_VERSION}")

# By the names of the libraries, which every distribution's packages provide. rpmbuild finds them by itself only where
# libraries are installed as executable files.
set(_needed libc.so.6 libgcc_s.so.1 libstdc++.so.6)
if(VQ_CIM_LIBRARY STREQUAL "openpegasus")
    foreach(_library ${Pegasus_COMMON_LIBRARY} ${Pegasus_PROVIDER_LIBRARY})
        get_filename_component(_file ${_library} REALPATH)
        get_filename_component(_file ${_file} NAME)
        list(APPEND _needed ${_file})
    endforeach()
endif()
list(TRANSFORM _needed APPEND "${_mark}")
list(JOIN _needed ", " _needed)
set(CPACK_RPM_RUNTIME_PACKAGE_REQUIRES "/usr/bin/timeout, bash, ${_needed}")

foreach(_component ${VQ_COMPANION_COMPONENTS})
    string(TOUPPER ${_component} _name)
    set(CPACK_RPM_${_name}_PACKAGE_NAME systemprovider-${_component})
    set(CPACK_RPM_${_name}_PACKAGE_SUMMARY "${_${_component}_summary}")
    set(CPACK_RPM_${_name}_PACKAGE_DESCRIPTION "${_${_component}_description}")
    set(CPACK_RPM_${_name}_PACKAGE_REQUIRES "(systemprovider or systemprovider-standalone), libc.so.6${_mark}")
endforeach()

if(VQ_FLEET_COMPONENTS)
    set(CPACK_RPM_FLEET_PACKAGE_NAME systemprovider-fleet)
    set(CPACK_RPM_FLEET_PACKAGE_SUMMARY "${_fleet_summary}")
    set(CPACK_RPM_FLEET_PACKAGE_DESCRIPTION "${_fleet_description}")
    set(_needed libc.so.6 libcurl.so.4 libgcc_s.so.1 libpugixml.so.1 libstdc++.so.6)
    list(TRANSFORM _needed APPEND "${_mark}")
    list(JOIN _needed ", " CPACK_RPM_FLEET_PACKAGE_REQUIRES)
endif()

# The module's libraries are nobody else's. Python runs the fact for Ansible, which brings it where that is used.
set(CPACK_RPM_SPEC_MORE_DEFINE "%global _build_id_links none
%global __provides_exclude_from ^${CMAKE_INSTALL_PREFIX}/(${VQ_INSTALL_MODULE_DIR}/.*|${VQ_INSTALL_PROBE_DIR}/libqorxenprobe[.]so)$
%global __requires_exclude ^(/usr/bin/python3|lib(vq[a-z]+|SystemProvider)[.]so.*)$")
# Directories of the system, which other packages own.
foreach(_dir lib ${CMAKE_INSTALL_LIBDIR} ${CMAKE_INSTALL_BINDIR} ${CMAKE_INSTALL_SBINDIR} ${CMAKE_INSTALL_INCLUDEDIR}
        ${CMAKE_INSTALL_DATADIR} ${CMAKE_INSTALL_DATAROOTDIR}/doc ${CMAKE_INSTALL_MANDIR}
        ${CMAKE_INSTALL_MANDIR}/man1 ${CMAKE_INSTALL_MANDIR}/man3 ${CMAKE_INSTALL_MANDIR}/man8
        ${CMAKE_INSTALL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_LIBDIR}/cmake
        lib/systemd lib/systemd/system ${CMAKE_INSTALL_DATADIR}/bash-completion ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
    list(APPEND CPACK_RPM_EXCLUDE_FROM_AUTO_FILELIST_ADDITION ${CMAKE_INSTALL_PREFIX}/${_dir})
endforeach()
set(_dir ${VQ_INSTALL_PYTHON_DIR})
while(_dir)
    list(APPEND CPACK_RPM_EXCLUDE_FROM_AUTO_FILELIST_ADDITION ${CMAKE_INSTALL_PREFIX}/${_dir})
    get_filename_component(_dir ${_dir} DIRECTORY)
endwhile()

vq_package_scripts(_scripts rpm/post rpm/preun)
if(_scripts)
    list(GET _scripts 0 CPACK_RPM_RUNTIME_POST_INSTALL_SCRIPT_FILE)
    list(GET _scripts 1 CPACK_RPM_RUNTIME_PRE_UNINSTALL_SCRIPT_FILE)
endif()
