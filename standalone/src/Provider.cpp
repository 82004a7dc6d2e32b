#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMMethodProvider.h>
#include <Pegasus/Provider/CIMProvider.h>

namespace Pegasus
{
CIMProvider::~CIMProvider() = default;
CIMInstanceProvider::~CIMInstanceProvider() = default;
CIMMethodProvider::~CIMMethodProvider() = default;
}
