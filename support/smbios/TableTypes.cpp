#include "support/smbios/TableTypes.h"

namespace VQ
{

TableType0::~TableType0() = default;
TableType1::~TableType1() = default;
TableType2::~TableType2() = default;
TableType3::~TableType3() = default;
TableType7::~TableType7() = default;
TableType8::~TableType8() = default;
TableType9::~TableType9() = default;
TableType11::~TableType11() = default;
TableType12::~TableType12() = default;
TableType13::~TableType13() = default;

}
