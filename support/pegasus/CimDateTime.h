#pragma once

#include "support/common/DateTime.h"
#include "support/common/Export.h"

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/Config.h>

namespace VQ
{

/// The date as a CIM timestamp, microseconds being milliseconds x 1000.
///
/// Never throws for an odd date: from the first field that cannot be part of a date (month 0, 31 April, second 60) all
/// later fields are unknown (`*`), and a date whose fields are all 0 is unknown throughout. The offset from UTC is the
/// date's own where any field is known; an offset that the three digits of a CIM timestamp cannot hold makes every
/// field unknown.
VQ_EXPORT Pegasus::CIMDateTime make_CIMDateTime(const DateTime& date);

}
