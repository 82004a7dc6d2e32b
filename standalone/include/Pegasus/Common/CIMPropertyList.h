#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/Config.h>

namespace Pegasus
{
/// The properties a request asks for: null asks for all of them, an empty list for none.
class PEGASUS_EXPORT CIMPropertyList
{
public:
    CIMPropertyList() = default;
    /// Throws UninitializedObjectException where one of the names is null.
    CIMPropertyList(const Array<CIMName>& names);

    Boolean isNull() const { return isNull_; }
    Uint32 size() const { return names_.size(); }
    /// Throws IndexOutOfBoundsException beyond the end.
    const CIMName& operator[](Uint32 index) const { return names_[index]; }

private:
    Boolean isNull_ = true;
    Array<CIMName> names_;
};
}
