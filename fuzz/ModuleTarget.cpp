// All nine classes through the provider, and the flat interface, over any structure table. An input is the two bytes of
// an SMBIOS version and the table.

#include "flat/systemprovider.h"
#include "flat/systemprovider_packed.h"
#include "fuzz/Endless.h"
#include "fuzz/Require.h"
#include "support/pegasus/CimText.h"
#include "support/smbios/EntryPoint.h"
#include "support/smbios/Source.h"
#include "support/smbios/Structures.h"

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/OperationContext.h>
#include <Pegasus/Provider/CIMInstanceProvider.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

using namespace Pegasus;

extern "C" CIMProvider* PegasusCreateProvider(const String& name);

// The two optional libraries are not there.
extern "C" __attribute__((visibility("default"))) void* dlopen(const char*, int) noexcept
{
    return nullptr;
}

namespace
{
VQ::RawTables input;
std::size_t readings = 0;
}

VQ::RawTables VQ::readRawTables()
{
    ++readings;
    return input;
}

namespace
{
constexpr Uint32 MostFetched = 4; // instances of a class; each of them costs one more enumeration

struct ClassOfTest
{
    const char* name;
    std::size_t keys;
    std::size_t readings; ///< of the table for each request
};

const ClassOfTest Classes[] = {
    {"QORTAL_BIOS", 5, 2},           {"QORTAL_Chassis", 2, 1},
    {"QORTAL_BaseBoard", 2, 2},      {"QORTAL_CacheMemory", 4, 1},
    {"QORTAL_Port", 2, 1},           {"QORTAL_Slot", 2, 1},
    {"QORTAL_ComputerSystem", 2, 2}, {"QORTAL_OperatingSystem", 4, 0},
    {"QORx_SystemMemory", 4, 0},
};

struct Collected : InstanceResponseHandler
{
    void processing() override {}
    void complete() override { completed = true; }
    void deliver(const CIMInstance& instance) override { instances.push_back(instance); }
    void deliver(const Array<CIMInstance>&) override { require(false, "instances are delivered one by one"); }
    std::vector<CIMInstance> instances;
    bool completed = false;
};

CIMInstanceProvider& provider()
{
    static CIMProvider* const created = PegasusCreateProvider("SystemProvider");
    return dynamic_cast<CIMInstanceProvider&>(*created);
}

CIMObjectPath pathOf(const char* className)
{
    return CIMObjectPath(String::EMPTY, CIMNamespaceName(), CIMName(className), Array<CIMKeyBinding>());
}

// The entry point of a table that may be as long as it is.
VQ::Buffer entryPointOf(const unsigned char* version)
{
    VQ::Buffer bytes(0x18, 0);
    const unsigned char anchor[] = {'_', 'S', 'M', '3', '_', 0, 0x18, version[0], version[1]};
    std::copy(std::begin(anchor), std::end(anchor), bytes.begin());
    std::fill(bytes.begin() + 0x0C, bytes.begin() + 0x10, static_cast<unsigned char>(0xFF));
    unsigned sum = 0;
    for (const unsigned char byte : bytes)
        sum += byte;
    bytes[0x05] = static_cast<unsigned char>(0x100 - sum % 0x100);
    return bytes;
}

// Text that is UTF-16 without a half of a pair becomes UTF-8 that is valid.
bool isWhole(const String& text)
{
    for (Uint32 i = 0; i < text.size(); ++i) {
        const unsigned unit = text[i];
        const unsigned following = i + 1 < text.size() ? unsigned(text[i + 1]) : 0u;
        if ((unit & 0xFC00) == 0xDC00 || ((unit & 0xFC00) == 0xD800 && (following & 0xFC00) != 0xDC00))
            return false;
        i += (unit & 0xFC00) == 0xD800;
    }
    return true;
}

// Empty where the instance has no such property, as a port that has no designator.
String valueOf(const CIMInstance& instance, const char* property)
{
    const Uint32 found = instance.findProperty(CIMName(property));
    return found == PEG_NOT_FOUND ? String() : instance.getProperty(found).getValue().toString();
}

void checkInstance(const CIMInstance& instance, const ClassOfTest& served)
{
    require(instance.getPath().getKeyBindings().size() == served.keys, "an instance has all its keys");
    for (Uint32 i = 0; i < instance.getPropertyCount(); ++i) {
        const CIMValue value = instance.getProperty(i).getValue();
        require(isWhole(value.toString()), "texts leave as valid UTF-8");
    }
}

void checkFetched(const CIMObjectPath& path)
{
    Collected got;
    provider().getInstance(OperationContext(), path, false, false, CIMPropertyList(), got);
    require(got.completed && got.instances.size() == 1, "an instance can be fetched by its path");
    require(got.instances[0].getPath() == path, "and is the one of that path");
}

// The instances of a class; none where the request fails, as an OEM string may make it.
Collected enumerate(const ClassOfTest& served, std::size_t size, bool& failed)
{
    Collected all;
    readings = 0;
    try {
        provider().enumerateInstances(OperationContext(), pathOf(served.name), false, false, CIMPropertyList(), all);
        require(all.completed, "a request that does not fail is completed");
    } catch (const std::out_of_range&) {
        require(std::strcmp(served.name, "QORTAL_BIOS") == 0, "only an OEM string makes a request fail");
        failed = true;
    }
    require(readings == served.readings, "a request reads the table as often as it must");
    require(all.instances.size() <= size + 1, "there are no more instances than the table has bytes");
    return all;
}

// ---- the flat interface

using TextAt = void (*)(char*, unsigned int);
using Text = void (*)(char*);

// What the header calls T, of a table of this size.
std::size_t textRoom(std::size_t size)
{
    return std::max<std::size_t>(size, 16);
}

// A text of the flat interface as CIM text. The buffer is as large as is documented, so the sanitizer sees one byte
// more.
template <class Get, class... Index> String flatText(Get get, std::size_t size, Index... index)
{
    const std::unique_ptr<char[]> buffer(new char[textRoom(size)]);
    get(buffer.get(), index...);
    return VQ::make_String(std::string(buffer.get()));
}

// A packed list of texts, as a CIM value writes it; the buffer has as many bytes as are documented.
String flatTexts(void (*get)(void*), std::size_t room)
{
    const std::unique_ptr<unsigned char[]> buffer(new unsigned char[room]);
    get(buffer.get());
    PackedReader reader = packedReader(buffer.get(), room);
    uint32_t count = 0;
    require(packedTexts(&reader, &count) != 0, "it is a list of texts");
    Array<String> texts;
    for (const char* text = nullptr; count > 0; --count) {
        uint32_t length = 0;
        require(packedText(&reader, &text, &length) != 0, "it has as many texts as it says");
        texts.append(VQ::make_String(std::string(text)));
    }
    return CIMValue(texts).toString();
}

String flatConnectors(unsigned index)
{
    constexpr std::size_t room = 24;
    const std::unique_ptr<unsigned char[]> buffer(new unsigned char[room]);
    getPortConnectors(buffer.get(), index);
    PackedReader reader = packedReader(buffer.get(), room);
    uint32_t count = 0;
    int32_t inner = 0;
    int32_t outer = 0;
    require(packedIntegers(&reader, &count) != 0 && count == 2 && packedInteger(&reader, &inner) != 0 &&
                packedInteger(&reader, &outer) != 0,
            "it is a list of two integers");
    Array<Uint16> codes;
    codes.append(static_cast<Uint16>(inner));
    codes.append(static_cast<Uint16>(outer));
    return CIMValue(codes).toString();
}

void requireSame(const CIMInstance& instance, const char* property, const String& flat)
{
    require(valueOf(instance, property) == flat, "the flat interface and the provider say the same");
}

void requireSame(const CIMInstance& instance, const char* property, unsigned long long flat)
{
    requireSame(instance, property, String(std::to_string(flat).c_str()));
}

struct TextPair
{
    const char* property;
    TextAt get;
};

void compareTexts(const std::vector<CIMInstance>& instances, std::size_t size, std::initializer_list<TextPair> pairs)
{
    for (unsigned i = 0; i < instances.size(); ++i)
        for (const TextPair& pair : pairs)
            requireSame(instances[i], pair.property, flatText(pair.get, size, i));
}

void compareCaches(const std::vector<CIMInstance>& instances, std::size_t size)
{
    require(instances.size() == static_cast<std::size_t>(getCacheCount()), "there are as many caches");
    compareTexts(instances, size, {{"Name", getCacheDesignation}, {"Purpose", getCachePurpose}});
    for (unsigned i = 0; i < instances.size(); ++i) {
        requireSame(instances[i], "Level", static_cast<unsigned>(getCacheLevel(i)));
        requireSame(instances[i], "Location", static_cast<unsigned>(getCacheLocation(i)));
        requireSame(instances[i], "CacheType", static_cast<unsigned>(getCacheType(i)));
        requireSame(instances[i], "WritePolicy", static_cast<unsigned>(getCacheWritePolicy(i)));
        requireSame(instances[i], "Associativity", static_cast<unsigned>(getCacheAssociativity(i)));
        requireSame(instances[i], "CacheSpeed", getCacheSpeed(i));
        requireSame(instances[i], "InstalledSize", getCacheInstalledSize(i));
        requireSame(instances[i], "MaximumInstallableSize", getCacheMaximumSize(i));
        requireSame(instances[i], "NumberOfBlocks", getCacheNumberOfBlocks(i));
        require(getCacheSize(i) == getCacheInstalledSize(i), "one size goes by two names");
    }
}

void compareFirmware(std::vector<CIMInstance> instances, std::size_t size)
{
    require(!instances.empty() && valueOf(instances[0], "PrimaryBIOS") == String("TRUE"), "the BIOS is the first");
    requireSame(instances[0], "Version", flatText(Text(getBiosVersion), size));
    requireSame(instances[0], "BuildNumber", flatText(Text(getBiosBuildNumber), size));
    requireSame(instances[0], "Manufacturer", flatText(Text(getBiosManufacturer), size));
    requireSame(instances[0], "SerialNumber", flatText(Text(getBiosSerialNumber), size));
    requireSame(instances[0], "CurrentLanguage", flatText(Text(getBiosCurrentLanguage), size));
    requireSame(instances[0], "LoadedStartingAddress", getBiosLoadedStartingAddress());
    requireSame(instances[0], "LoadedEndingAddress", getBiosLoadedEndingAddress());
    requireSame(instances[0], "ListOfLanguages", flatTexts(getBiosLanguages, 8 + 254 * 9 + textRoom(size)));
    requireSame(instances[0], "SMBIOSMajorVersion", static_cast<unsigned>(getBiosSmBiosMajorVersion()));
    requireSame(instances[0], "SMBIOSMinorVersion", static_cast<unsigned>(getBiosSmBiosMinorVersion()));
    instances.erase(instances.begin());
    require(instances.size() == static_cast<std::size_t>(getFirmwareCount()), "there are as many firmware elements");
    compareTexts(instances, size,
                 {{"Name", getFirmwareName},
                  {"Version", getFirmwareVersion},
                  {"BuildNumber", getFirmwareBuildNumber},
                  {"Manufacturer", getFirmwareManufacturer}});
}

void compare(const ClassOfTest& served, const std::vector<CIMInstance>& instances, std::size_t size)
{
    const std::string name = served.name;
    if (name == "QORTAL_BIOS") {
        compareFirmware(instances, size);
    } else if (name == "QORTAL_CacheMemory") {
        compareCaches(instances, size);
    } else if (name == "QORTAL_BaseBoard") {
        require(instances.size() == static_cast<std::size_t>(getBBCount()), "there are as many boards");
        compareTexts(instances, size,
                     {{"Manufacturer", getBBManufacturer},
                      {"SerialNumber", getBBSerialNumber},
                      {"Version", getBBVersion},
                      {"LocationInChassis", getBBLocation}});
        const String options = flatTexts(getBBConfigurationOptions, 8 + 328 * textRoom(size));
        for (unsigned i = 0; i < instances.size(); ++i) {
            requireSame(instances[i], "ConfigOptions", options);
            flatText(getBBProduct, size, i);
            flatText(getBBAssetTag, size, i);
        }
    } else if (name == "QORTAL_Port") {
        require(instances.size() == static_cast<std::size_t>(getPortCount()), "there are as many ports");
        compareTexts(instances, size,
                     {{"ExternalReferenceDesignator", getPortExternalReferenceDesignator},
                      {"InternalReferenceDesignator", getPortInternalReferenceDesignator}});
        for (unsigned i = 0; i < instances.size(); ++i) {
            requireSame(instances[i], "PortType", static_cast<unsigned>(getPortType(i)));
            requireSame(instances[i], "ConnectorType", flatConnectors(i));
        }
    } else if (name == "QORTAL_Slot") {
        require(instances.size() == static_cast<std::size_t>(getSlotCount()), "there are as many slots");
        compareTexts(instances, size, {{"Name", getSlotDesignation}});
    } else if (name == "QORTAL_Chassis") {
        requireSame(instances.at(0), "Manufacturer", flatText(Text(getChassisManufacturer), size));
        requireSame(instances.at(0), "SerialNumber", flatText(Text(getChassisSerialNumber), size));
        requireSame(instances.at(0), "Version", flatText(Text(getChassisVersion), size));
        flatText(Text(getChassisAssetTag), size);
    } else if (name == "QORTAL_ComputerSystem") {
        requireSame(instances.at(0), "Model", flatText(Text(getCSModel), size));
        requireSame(instances.at(0), "Description", flatText(Text(getCSDescription), size));
    }
}

void checkClass(const ClassOfTest& served, std::size_t size, bool initFailed)
{
    bool failed = false;
    const Collected all = enumerate(served, size, failed);
    for (const CIMInstance& instance : all.instances)
        checkInstance(instance, served);
    if (failed) {
        require(initFailed, "an OEM string that fails a request fails init, too");
        return;
    }
    for (Uint32 i = 0; i < std::min<std::size_t>(all.instances.size(), MostFetched); ++i)
        checkFetched(all.instances[i].getPath());
    if (!initFailed)
        compare(served, all.instances, size);
}

// Cutting bytes from the end never adds a structure.
void checkCut(const unsigned char* table, std::size_t size)
{
    std::size_t structures = VQ::parseStructures({table, table + size}, VQ::EntryPoint::NoCount).size();
    for (const std::size_t cut : {size - size / 8, size / 2 + size / 4, size / 2, size / 4}) {
        const std::size_t fewer = VQ::parseStructures({table, table + cut}, VQ::EntryPoint::NoCount).size();
        require(fewer <= structures, "cutting bytes from the end never adds a structure");
        structures = fewer;
    }
}
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    constexpr std::size_t versionSize = 2;
    if (size < versionSize)
        return 0;
    const unsigned char* const table = data + versionSize;
    const std::size_t tableSize = size - versionSize;
    checkCut(table, tableSize);
    if (neverEnds(VQ::parseStructures({table, table + tableSize}, VQ::EntryPoint::NoCount)))
        return 0;
    input = {"input", entryPointOf(data), VQ::Buffer(table, table + tableSize)};
    bool initFailed = false;
    try {
        init();
    } catch (const std::out_of_range&) {
        initFailed = true;
    }
    for (const ClassOfTest& served : Classes)
        checkClass(served, tableSize, initFailed);
    return 0;
}
