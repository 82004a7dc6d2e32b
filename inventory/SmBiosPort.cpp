#include "inventory/SmBiosPort.h"

#include "inventory/Selection.h"
#include "support/common/Text.h"
#include "support/smbios/TableTypes.h"

namespace VQ
{

SmBiosPort::SmBiosPort(const SmBios::Table& table)
{
    const TableType8 port(table);
    // Internal and External Reference Designator
    _internalReferenceDesignator = trimBlanks(make_string(port.getString(port.getByte(0x04))));
    _externalReferenceDesignator = trimBlanks(make_string(port.getString(port.getByte(0x06))));
    _type = port.getByte(0x08);                             // Port Type
    _connectors = {port.getByte(0x05), port.getByte(0x07)}; // Internal, External Connector Type
}

std::vector<Port> GetPortInstances()
{
    return recordsOf<Port, SmBiosPort>(8);
}

}
