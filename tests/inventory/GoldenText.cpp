#include "tests/inventory/GoldenText.h"

#include "tests/testing/CimLines.h"
#include "tests/testing/FakeLibc.h"
#include "tests/testing/Provider.h"
#include "tests/testing/ServedTable.h"

namespace
{
const char* const SmBiosClasses[] = {"QORTAL_BIOS", "QORTAL_Chassis", "QORTAL_BaseBoard",     "QORTAL_CacheMemory",
                                     "QORTAL_Port", "QORTAL_Slot",    "QORTAL_ComputerSystem"};
}

std::string goldenText(const std::string& dumpFile)
{
    fakeLibc().setHostName("sample.example");
    const ServedTable table(dumpFile);
    std::string all;
    for (const char* className : SmBiosClasses) {
        for (const Pegasus::CIMInstance& instance : instancesOf(className)) {
            all += text(instance.getPath().toString()) + "\n";
            for (const std::string& line : propertyLines(instance))
                all += "    " + line + "\n";
        }
    }
    return all;
}
