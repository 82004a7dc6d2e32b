#pragma once

#include "companions/SmallFile.h"

namespace VQ
{

/// Which domain of a Xen hypervisor a system is.
enum class Domain
{
    None,   ///< it runs under no Xen, or does not say
    Guest,  ///< domU
    Control ///< dom0
};

/// What one file of the kernel says to a question.
enum class Says
{
    Nothing, ///< it is not there, or can't be read, or is damaged
    No,
    Yes
};

/// `/sys/hypervisor/type`: whether the hypervisor is Xen. Any other word is a no.
Says hypervisorIsXen(Line type);

/// `/sys/hypervisor/properties/features`, a hexadecimal number whose bit 11 marks the control domain.
Says featuresOfControl(Line features);

/// `/sys/hypervisor/start_flags/initdomain` and `privileged`: "0" or "1".
Says flagOfControl(Line flag);

/// `/proc/xen/capabilities`: `control_d` among its lines; in a guest it is empty.
Says capabilitiesOfControl(const char* text, int length);

/// The domain that the files below this root of the file system ("" for the machine's own) speak of.
Domain findDomain(const char* root);

}
