# Who answers for the packages. One's own trials need no name, what others install does.
set(VQ_MAINTAINER "" CACHE STRING "Who answers for the packages, as \"Name <mail address>\"")
option(VQ_RELEASE "The packages are a release, for others to install" OFF)
if(VQ_MAINTAINER MATCHES "^[^<>@]+ <[^<>@ ]+@[^<>@ .]+([.][^<>@ .]+)+>$")
    set(VQ_PACKAGE_CONTACT "${VQ_MAINTAINER}")
elseif(VQ_MAINTAINER)
    message(FATAL_ERROR "VQ_MAINTAINER is '${VQ_MAINTAINER}'; it must be a name and a mail address, "
        "as in 'Jane Doe <jane@example.org>'")
elseif(VQ_RELEASE)
    message(FATAL_ERROR "The packages of a release say who answers for them: "
        "give -DVQ_MAINTAINER='Name <mail address>'")
else()
    set(VQ_PACKAGE_CONTACT "SystemProvider developers <systemprovider@example.org>")
endif()
if(VQ_RELEASE)
    set(VQ_DISTRIBUTION unstable)
else()
    set(VQ_DISTRIBUTION UNRELEASED)
endif()
