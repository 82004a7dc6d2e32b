// A library of its own that throws what a provider module may throw; ExceptionTest loads it and catches that.

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>

using namespace Pegasus;

extern "C" PEGASUS_EXPORT void throwCIMException()
{
    throw CIMException(CIM_ERR_NOT_FOUND, "from a module");
}

extern "C" PEGASUS_EXPORT void throwIndexOutOfBounds()
{
    Array<Uint32>()[1] = 0;
}

extern "C" PEGASUS_EXPORT void throwBadText()
{
    String("caf\xE9");
}
