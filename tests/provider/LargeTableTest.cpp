// Tables larger than any counter of 8 or 16 bits reaches, through a file and the reader up to the instances.

#include "support/smbios/SmBios.h"
#include "tests/testing/CimLines.h"
#include "tests/testing/Provider.h"
#include "tests/testing/ServedTable.h"

#include <gtest/gtest.h>

using namespace Pegasus;

namespace
{
// More than 64 KB, and one structure more than 16 bits number from 0; with a sanitizer that takes a minute.
#ifdef __SANITIZE_ADDRESS__
constexpr std::size_t Count = 21000;
#else
constexpr std::size_t Count = 65537;
#endif

// Counts, and keeps the last instance only.
struct LastInstance : InstanceResponseHandler
{
    void processing() override {}
    void complete() override {}
    void deliver(const CIMInstance& instance) override
    {
        ++count;
        last = instance;
    }
    void deliver(const Array<CIMInstance>&) override { FAIL() << "instances come one by one"; }
    std::size_t count = 0;
    CIMInstance last;
};

TableBuilder manyOf(std::uint8_t type, std::uint8_t textAt, std::size_t count)
{
    TableBuilder table;
    table.version(3, 0).form64();
    for (std::size_t i = 0; i < count; ++i)
        table.type(type).string(textAt, std::to_string(i));
    return table;
}
}

TEST(LargeTable, IsReadToItsEndAndEveryInstanceNumbered)
{
    const TableBuilder table = manyOf(8, 0x06, Count);
    ASSERT_GT(table.structures().size(), std::size_t{4} << 16);
    const ServedTable served(table);
    EXPECT_EQ(VQ::SmBios().getTables().size(), Count);
    LastInstance ports;
    TestProvider().enumerate(pathOf("QORTAL_Port"), ports);
    EXPECT_EQ(ports.count, Count);
    EXPECT_EQ(valueOf(ports.last, "Name"), std::to_string(Count - 1));
    EXPECT_EQ(valueOf(ports.last, "Tag"), "PortConnector" + std::to_string(Count - 1));
    LastInstance found;
    TestProvider().get(ports.last.getPath(), found);
    EXPECT_EQ(found.count, 1u);
    EXPECT_EQ(valueOf(found.last, "Name"), std::to_string(Count - 1));
}
