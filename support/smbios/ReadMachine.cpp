#include "support/smbios/HostSource.h"

namespace VQ
{

RawTables readRawTables()
{
    return readHostTables(HostPaths());
}

}
