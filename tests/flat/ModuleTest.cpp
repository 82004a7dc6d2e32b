// The module as it stands in its file: what it exports, and how it is loaded, called by name and unloaded.

#include "flat/Snapshot.h"
#include "tests/flat/Calls.h"
#include "tests/testing/Process.h"
#include "tests/testing/ServedTable.h"

#include <cstring>
#include <dlfcn.h>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace
{
using Lines = std::vector<std::string>;

const char* const ModuleFile = VQ_LIB_DIR "/libSystemProvider.so";

// The objects whose destructors were registered while recording, in that order, which is the order of construction.
std::vector<void*> registeredObjects;
// The strings that were constructed while recording, in that order: where, and from which text.
std::vector<std::pair<void*, std::string>> constructedStrings;
bool recording = false;
}

// In place of the CIM library's constructor String(const char*).
__attribute__((visibility("default"))) void vqConstructString(void* string,
                                                              const char* text) __asm__("_ZN7Pegasus6StringC1EPKc");

void vqConstructString(void* string, const char* text)
{
    using Construct = void (*)(void*, const char*);
    static const auto next = reinterpret_cast<Construct>(dlsym(RTLD_NEXT, "_ZN7Pegasus6StringC1EPKc"));
    if (recording)
        constructedStrings.emplace_back(string, text);
    next(string, text);
}

extern "C" __attribute__((visibility("default"))) int __cxa_atexit(void (*destructor)(void*), void* object,
                                                                   void* library)
{
    using Register = int (*)(void (*)(void*), void*, void*);
    static const auto next = reinterpret_cast<Register>(dlsym(RTLD_NEXT, "__cxa_atexit"));
    if (recording)
        registeredObjects.push_back(object);
    return next(destructor, object, library);
}

extern "C" void getCSName(char* buffer)
{
    std::strcpy(buffer, "the program's");
}

namespace
{
class Module
{
public:
    Module() : _handle(dlopen(ModuleFile, RTLD_NOW))
    {
        if (!_handle)
            throw std::runtime_error(dlerror());
    }
    ~Module() { dlclose(_handle); }
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;

    void* address(const char* symbol) const { return dlsym(_handle, symbol); }

    // True for an object of the module itself, as against one on the heap or on the stack.
    bool holds(const void* object) const
    {
        Dl_info own;
        Dl_info found;
        return dladdr(address("init"), &own) && dladdr(object, &found) && found.dli_fbase == own.dli_fbase;
    }

    // The function of this name and of the type that the header declares for it.
    template <class Function> Function* function(const char* name, Function*) const
    {
        void* found = address(name);
        EXPECT_NE(found, nullptr) << name;
        return reinterpret_cast<Function*>(found);
    }

private:
    void* _handle;
};

// The header's functions are not linked with this program: their names stand in unevaluated operands only.
#define FUNCTION(name) function(#name, static_cast<decltype(&name)>(nullptr))

bool isLoaded()
{
    void* handle = dlopen(ModuleFile, RTLD_NOW | RTLD_NOLOAD);
    if (handle)
        dlclose(handle);
    return handle != nullptr;
}

// "function getOSName" or "object cs" for each symbol that the module defines for others, sorted.
Lines exportsOfTheModule()
{
    const std::string command = std::string(VQ_NM) + " --dynamic --defined-only --format=posix " + ModuleFile;
    const Outcome symbols = run(command);
    EXPECT_EQ(symbols.exitCode, 0) << command;
    Lines exports;
    std::istringstream lines(symbols.output);
    for (std::string symbol; std::getline(lines, symbol);) {
        const std::size_t blank = symbol.find(' ');
        const char kind = symbol.at(blank + 1);
        const char* const name = kind == 'T' ? "function " : kind == 'B' || kind == 'D' ? "object " : "other ";
        exports.push_back(name + symbol.substr(0, blank));
    }
    std::sort(exports.begin(), exports.end());
    return exports;
}

Lines writtenExports()
{
    std::ifstream file(VQ_SOURCE_DIR "/tests/flat/exports.txt");
    Lines lines;
    for (std::string line; std::getline(file, line);)
        if (!line.empty() && line[0] != '#')
            lines.push_back(line);
    std::sort(lines.begin(), lines.end());
    return lines;
}

TableBuilder twoSlots()
{
    return TableBuilder().type(9).string(0x04, "PCI 1").type(9).string(0x04, "PCI 2").type(127);
}
}

TEST(Module, ExportsWhatIsWrittenDownAndNothingElse)
{
    const Lines written = writtenExports();
    ASSERT_EQ(written.size(), 104u);
    EXPECT_EQ(exportsOfTheModule(), written)
        << "the module's exports stand in provider/exports.map, what they are to be in tests/flat/exports.txt";
}

TEST(Module, ConstructsTheSnapshotObjectsInTheirOrder)
{
    recording = true;
    const Module module;
    recording = false;
    const Lines order = {"cs", "bb", "bios", "caches", "chassis", "firmwares", "os", "ports", "slots"};
    Lines constructed;
    for (void* object : registeredObjects)
        for (const std::string& name : order)
            if (module.address(name.c_str()) == object)
                constructed.push_back(name);
    EXPECT_EQ(constructed, order);
}

TEST(Module, ConstructsTheNamesOfClassesAndMethodsInTheirOrder)
{
    constructedStrings.clear();
    recording = true;
    const Module module;
    recording = false;
    const Lines order = {"QORTAL_BIOS",       "QORTAL_CacheMemory",
                         "QORTAL_Chassis",    "QORTAL_ComputerSystem",
                         "QORTAL_BaseBoard",  "QORTAL_OperatingSystem",
                         "QORx_SystemMemory", "QORTAL_Port",
                         "QORTAL_Slot",       "Reboot",
                         "Shutdown"};
    Lines constructed;
    for (const auto& [string, text] : constructedStrings)
        if (module.holds(string) && std::find(order.begin(), order.end(), text) != order.end())
            constructed.push_back(text);
    EXPECT_EQ(constructed, order);
}

TEST(Module, IsEmptyBeforeInit)
{
    const ServedTable table(twoSlots());
    const Module module;
    EXPECT_EQ(module.FUNCTION(getCount)(), 1);
    EXPECT_EQ(module.FUNCTION(getBBCount)(), 0);
    EXPECT_EQ(module.FUNCTION(getCacheCount)(), 0);
    EXPECT_EQ(module.FUNCTION(getFirmwareCount)(), 0);
    EXPECT_EQ(module.FUNCTION(getPortCount)(), 0);
    EXPECT_EQ(module.FUNCTION(getSlotCount)(), 0);
    EXPECT_EQ(textOf(module.FUNCTION(getBiosManufacturer)), "");
    EXPECT_EQ(textOf(module.FUNCTION(getBiosVersion)), "");
    EXPECT_EQ(textOf(module.FUNCTION(getBiosBuildNumber)), "");
    EXPECT_EQ(textOf(module.FUNCTION(getBiosSerialNumber)), "");
    EXPECT_EQ(textOf(module.FUNCTION(getBiosCurrentLanguage)), "");
    EXPECT_EQ(textsOf(module.FUNCTION(getBiosLanguages)), Lines{});
    EXPECT_EQ(textOf(module.FUNCTION(getBiosReleaseDate)), "00000000000000.000000+000");
    MarkedBuffer version;
    EXPECT_EQ(module.FUNCTION(getBiosSmBiosVersion)(version.data()), 3);
    EXPECT_EQ(textIn(version), "0.0");
    EXPECT_EQ(module.FUNCTION(getBiosSmBiosMajorVersion)(), 0);
    EXPECT_EQ(module.FUNCTION(getBiosSmBiosMinorVersion)(), 0);
    EXPECT_EQ(module.FUNCTION(getBiosLoadedStartingAddress)(), 0u);
    EXPECT_EQ(module.FUNCTION(getBiosLoadedEndingAddress)(), 0u);
    EXPECT_EQ(textOf(module.FUNCTION(getChassisManufacturer)), "");
    EXPECT_EQ(textOf(module.FUNCTION(getChassisVersion)), "");
    EXPECT_EQ(textOf(module.FUNCTION(getChassisSerialNumber)), "");
    EXPECT_EQ(textOf(module.FUNCTION(getChassisAssetTag)), "");
}

TEST(Module, IsFilledByInit)
{
    const ServedTable table(twoSlots());
    const Module module;
    EXPECT_EQ(module.FUNCTION(init)(), 1);
    EXPECT_EQ(module.FUNCTION(getSlotCount)(), 2);
    EXPECT_EQ(textOf(module.FUNCTION(getSlotDesignation), 1), "PCI 2");
}

TEST(Module, PacksForCallersInCpp)
{
    const Module module;
    const auto packStrings = module.function("_Z6packASPvSt6vectorINSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE"
                                             "SaIS6_EE",
                                             static_cast<decltype(&packAS)>(nullptr));
    const auto packString = module.function("_Z5packSPvNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE",
                                            static_cast<decltype(&packS)>(nullptr));
    const auto packIntegers = module.function("_Z6packAIPvSt6vectorIiSaIiEE", static_cast<decltype(&packAI)>(nullptr));
    const auto packInteger = module.function("_Z5packIPvi", static_cast<decltype(&packI)>(nullptr));
    MarkedBuffer buffer;
    void* end = packInteger(packIntegers(packString(packStrings(buffer.data(), {"a"}), "bc"), {3}), 4);
    EXPECT_EQ(end, buffer.data() + 18 + 11 + 16 + 8);
    EXPECT_TRUE(buffer.isUntouchedFrom(53));
}

TEST(Module, ShowsItsSnapshotObjectsToCallersInCpp)
{
    const ServedTable table(twoSlots());
    const Module module;
    const auto* records = static_cast<decltype(slots)*>(module.address("slots"));
    ASSERT_NE(records, nullptr);
    EXPECT_EQ(records->size(), 0u);
    EXPECT_EQ(module.FUNCTION(init)(), 1);
    ASSERT_EQ(records->size(), 2u);
    EXPECT_EQ((*records)[0].getDesignation(), "PCI 1");
}

TEST(Module, CallsItsOwnFunctionsWhateverTheProgramDefines)
{
    // This program's getCSName is found first by name; the module's getName must not come to it.
    ASSERT_EQ(textOf(reinterpret_cast<decltype(&getCSName)>(dlsym(RTLD_DEFAULT, "getCSName"))), "the program's");
    const Module module;
    EXPECT_EQ(textOf(module.FUNCTION(getName)), textOf(module.FUNCTION(getCSName)));
    EXPECT_NE(textOf(module.FUNCTION(getName)), "the program's");
}

TEST(Module, IsUnloadedWhenItIsClosed)
{
    ASSERT_FALSE(isLoaded());
    {
        const ServedTable table(twoSlots());
        const Module module;
        EXPECT_TRUE(isLoaded());
        EXPECT_EQ(module.FUNCTION(init)(), 1);
    }
    EXPECT_FALSE(isLoaded());
}

TEST(Module, BeginsEmptyWhenItIsLoadedAgain)
{
    const ServedTable table(twoSlots());
    EXPECT_EQ(Module().FUNCTION(init)(), 1);
    EXPECT_EQ(Module().FUNCTION(getSlotCount)(), 0);
}
