# What brings the inventory into monitoring and automation: a service and a timer of systemd, which run nothing until somebody
# enables the timer, and a local fact for Ansible, which is of no effect until somebody links it (docs/monitoring.md).
set(VQ_INSTALL_UNIT_DIR lib/systemd/system CACHE STRING "Where the units of systemd are installed, below the prefix")
set(VQ_INSTALL_ANSIBLE_DIR ${CMAKE_INSTALL_DATADIR}/systemprovider/ansible CACHE STRING
    "Where the local fact for Ansible is installed, below the prefix")
set(VQ_TEXTFILE_DIR /var/lib/prometheus/node-exporter CACHE STRING
    "Where the node exporter of the targets looks for files with metrics")
if(NOT VQ_TEXTFILE_DIR MATCHES "^/[A-Za-z0-9_./-]+$")
    message(FATAL_ERROR "VQ_TEXTFILE_DIR is '${VQ_TEXTFILE_DIR}'; it must be the full path of a directory")
endif()

# A 32-bit program may run under a 64-bit systemd, whose own architecture is another one.
set(VQ_UNIT_ARCHITECTURES native)
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    set(VQ_UNIT_ARCHITECTURES "native x86")
endif()
set(_unit ${CMAKE_CURRENT_BINARY_DIR}/install/systemprovider-metrics.service)
configure_file(monitoring/systemprovider-metrics.service.in ${_unit} @ONLY)
install(FILES ${_unit} monitoring/systemprovider-metrics.timer DESTINATION ${VQ_INSTALL_UNIT_DIR})

set(_fact ${CMAKE_CURRENT_BINARY_DIR}/install/systemprovider.fact)
configure_file(ansible/systemprovider.fact.in ${_fact} @ONLY)
install(PROGRAMS ${_fact} DESTINATION ${VQ_INSTALL_ANSIBLE_DIR})
