#include "tests/oracle/KnownDifferences.h"

#include <map>

namespace
{
// Why they differ.
constexpr const char* WithoutLanguages =
    "without a language structure the list is read from the structure found last, the system's (type 1): its first "
    "strings, as many as the number of its manufacturer string says";
constexpr const char* RepairedVersion = "dmidecode repairs the version; the published one is the entry point's";
constexpr const char* WideSizes =
    "dmidecode takes the 32-bit sizes of SMBIOS 3.1, which this firmware leaves at 0, the module the 16-bit ones";
constexpr const char* CodeZero = "code 0 has no meaning; dmidecode says so, the module publishes the number";

const std::multimap<std::string, KnownDifference> Differences = {
    {"acer-nitro-an515-31", {"BIOS.ListOfLanguages", R"("Acer")", "", WithoutLanguages}},
    {"asrock-a520m-itx-ac", {"BIOS.ListOfLanguages", R"("To Be Filled By O.E.M.")", "", WithoutLanguages}},
    {"google-leona", {"BIOS.ListOfLanguages", R"("Google")", "", WithoutLanguages}},
    {"hp-proliant-dl360-g6-484184-b21",
     {"BIOS.ListOfLanguages", R"("GB894484YN      " "484184-B21      " "ProLiant" "HP")", "", WithoutLanguages}},
    {"hp-proliant-dl385-g1-1", {"BIOS.ListOfLanguages", R"("HP")", "", WithoutLanguages}},
    {"hyperv", {"BIOS.ListOfLanguages", R"("Microsoft Corporation")", "", WithoutLanguages}},
    {"parallels-virtual-platform-0",
     {"BIOS.ListOfLanguages", R"("Parallels Software International Inc.")", "", WithoutLanguages}},
    {"supermicro-quad-opteron", {"BIOS.ListOfLanguages", R"("Supermicro")", "", WithoutLanguages}},
    {"vmware-virtual-platform-0", {"BIOS.ListOfLanguages", R"("VMware, Inc.")", "", WithoutLanguages}},
    {"vmware-vmware-virtual-platform", {"BIOS.ListOfLanguages", R"("VMware, Inc.")", "", WithoutLanguages}},
    {"vmware-virtual-platform-0", {"BIOS.SMBIOSBIOSVersion", "2.31", "2.3", RepairedVersion}},
    {"vmware-virtual-platform-0", {"BIOS.SMBIOSMinorVersion", "31", "3", RepairedVersion}},
    {"dell-poweredge-r777sd", {"CacheMemory[0].InstalledSize", "896", "0", WideSizes}},
    {"dell-poweredge-r777sd", {"CacheMemory[0].MaximumInstallableSize", "896", "0", WideSizes}},
    {"dell-poweredge-r777sd", {"CacheMemory[1].InstalledSize", "14336", "0", WideSizes}},
    {"dell-poweredge-r777sd", {"CacheMemory[1].MaximumInstallableSize", "14336", "0", WideSizes}},
    {"dell-poweredge-r777sd", {"CacheMemory[2].InstalledSize", "19712", "0", WideSizes}},
    {"dell-poweredge-r777sd", {"CacheMemory[2].MaximumInstallableSize", "19712", "0", WideSizes}},
    {"dell-poweredge-r777sd", {"CacheMemory[3].InstalledSize", "896", "0", WideSizes}},
    {"dell-poweredge-r777sd", {"CacheMemory[3].MaximumInstallableSize", "896", "0", WideSizes}},
    {"dell-poweredge-r777sd", {"CacheMemory[4].InstalledSize", "14336", "0", WideSizes}},
    {"dell-poweredge-r777sd", {"CacheMemory[4].MaximumInstallableSize", "14336", "0", WideSizes}},
    {"dell-poweredge-r777sd", {"CacheMemory[5].InstalledSize", "19712", "0", WideSizes}},
    {"dell-poweredge-r777sd", {"CacheMemory[5].MaximumInstallableSize", "19712", "0", WideSizes}},
    {"every-code", {"CacheMemory[0].Associativity", "0", "<OUT OF SPEC>", CodeZero}},
    {"every-code", {"CacheMemory[0].CacheType", "0", "<OUT OF SPEC>", CodeZero}},
    {"every-code", {"CacheMemory[0].error correction", "0", "<OUT OF SPEC>", CodeZero}},
};
}

std::vector<KnownDifference> knownDifferences(const std::string& machine)
{
    std::vector<KnownDifference> differences;
    const auto range = Differences.equal_range(machine);
    for (auto each = range.first; each != range.second; ++each)
        differences.push_back(each->second);
    return differences;
}

std::set<std::string> machinesWithDifferences()
{
    std::set<std::string> machines;
    for (const auto& each : Differences)
        machines.insert(each.first);
    return machines;
}
