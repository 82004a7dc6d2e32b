#pragma once

#include <Pegasus/Common/Config.h>

namespace Pegasus
{
/// A provider's way to make requests of its own to the server. This library has no server to ask, so it is empty.
class PEGASUS_EXPORT CIMOMHandle
{
};
}
