#pragma once

#include <Pegasus/Common/Config.h>

namespace Pegasus
{
/// What a server tells a provider about a request. This library's is empty.
class PEGASUS_EXPORT OperationContext
{
};
}
