# The packages of this build: what they hold, what their scripts do, and an installation with all that follows.
set(VQ_PACKAGE_SETTINGS ${CMAKE_CURRENT_BINARY_DIR}/packages/settings.bash)
file(CONFIGURE OUTPUT ${VQ_PACKAGE_SETTINGS} @ONLY CONTENT [[
cpack='@CMAKE_CPACK_COMMAND@'
cmake='@CMAKE_COMMAND@'
readelf='@CMAKE_READELF@'
compile=('@CMAKE_C_COMPILER@' @CMAKE_C_FLAGS@)
compile_cxx=('@CMAKE_CXX_COMPILER@' @CMAKE_CXX_FLAGS@)
pegasus_include='@Pegasus_INCLUDE_DIR@'
source_dir='@CMAKE_SOURCE_DIR@'
binary_dir='@CMAKE_BINARY_DIR@'
package_dir='@CMAKE_CURRENT_BINARY_DIR@/packages'
cim_library='@VQ_CIM_LIBRARY@'
pegasus_libraries='@Pegasus_LIB_DIR@'
pegasus_target='@VQ_PEGASUS_LIB_DIR@'
pointer_size='@CMAKE_SIZEOF_VOID_P@'
version='@PROJECT_VERSION@'
contact='@VQ_PACKAGE_CONTACT@'
bin='@CMAKE_INSTALL_FULL_BINDIR@'
sbin='@CMAKE_INSTALL_FULL_SBINDIR@'
include='@CMAKE_INSTALL_FULL_INCLUDEDIR@'
lib='@CMAKE_INSTALL_FULL_LIBDIR@'
python_dir='@CMAKE_INSTALL_PREFIX@/@VQ_INSTALL_PYTHON_DIR@'
man='@CMAKE_INSTALL_FULL_MANDIR@'
module_dir='@CMAKE_INSTALL_PREFIX@/@VQ_INSTALL_MODULE_DIR@'
probe_dir='@CMAKE_INSTALL_PREFIX@/@VQ_INSTALL_PROBE_DIR@'
share_doc='@CMAKE_INSTALL_FULL_DATAROOTDIR@/doc'
schema_dir='@CMAKE_INSTALL_PREFIX@/@VQ_INSTALL_SCHEMA_DIR@'
doc_dir='@CMAKE_INSTALL_PREFIX@/@VQ_INSTALL_DOC_DIR@'
unit_dir='@CMAKE_INSTALL_PREFIX@/@VQ_INSTALL_UNIT_DIR@'
ansible_dir='@CMAKE_INSTALL_PREFIX@/@VQ_INSTALL_ANSIBLE_DIR@'
fleet='@VQ_FLEET_COMPONENTS@'
completion_dir='@CMAKE_INSTALL_FULL_DATADIR@/bash-completion/completions'
]])

function(vq_package_test name)
    add_test(NAME packages.${name} COMMAND
        bash ${CMAKE_CURRENT_SOURCE_DIR}/packages/${name}.bash ${VQ_PACKAGE_SETTINGS})
    set_tests_properties(packages.${name} PROPERTIES LABELS packaging SKIP_RETURN_CODE 77 TIMEOUT 300 ${ARGN})
endfunction()

vq_package_test(documents)
if(NOT VQ_PACKAGES)
    vq_package_test(no_packages)
    return()
endif()
vq_package_test(make_deb FIXTURES_SETUP deb RESOURCE_LOCK cpack)
vq_package_test(deb_contents FIXTURES_REQUIRED deb)
vq_package_test(deb_scripts FIXTURES_REQUIRED deb)
vq_package_test(deb_installation FIXTURES_REQUIRED deb)
vq_package_test(development FIXTURES_REQUIRED deb)
vq_package_test(companions FIXTURES_REQUIRED deb)
vq_package_test(companions_installation FIXTURES_REQUIRED deb)
vq_package_test(fleet FIXTURES_REQUIRED deb)
vq_package_test(python FIXTURES_REQUIRED deb)
vq_package_test(rpm RESOURCE_LOCK cpack)
vq_package_test(check_files RESOURCE_LOCK cpack)
vq_package_test(maintainer)
