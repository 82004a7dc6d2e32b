#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/Exception.h>

namespace Pegasus
{
CIMPropertyList::CIMPropertyList(const Array<CIMName>& names) : isNull_(false), names_(names)
{
    for (Uint32 i = 0; i < names.size(); ++i) {
        if (names[i].isNull())
            throw UninitializedObjectException();
    }
}
}
