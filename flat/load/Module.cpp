#include "flat/load/Module.h"

#include "flat/load/Failure.h"
#include "flat/load/InRoot.h"
#include "flat/systemprovider.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <type_traits>
#include <unistd.h>

// All functions of the flat interface: the members of SystemProviderFunctions.
// clang-format off
#define VQ_FLAT_FUNCTIONS(F) \
    F(init) F(getCount) F(getBBCount) F(getCacheCount) F(getFirmwareCount) F(getPortCount) F(getSlotCount) \
    F(getOSName) F(getOSVersion) F(getOSCodeSet) F(getOSLanguageEdition) F(getOSType) F(getOSDistributed) \
    F(getOSCurrentTimeZone) F(getOSMaxNumberOfProcesses) F(getOSNumberOfProcesses) F(getOSNumberOfUsers) \
    F(getOSNumberOfLicensedUsers) F(getOSMaxProcessMemorySize) F(getOSFreeSpaceInPagingFiles) \
    F(getOSSizeStoredInPagingFiles) F(getOSTotalVisibleMemorySize) F(getOSFreePhysicalMemory) \
    F(getOSFreeVirtualMemory) F(getOSTotalVirtualMemorySize) F(getOSTotalSwapSpaceSize) F(getOSInstallDate) \
    F(getOSLocalDateTime) F(getOSLastBootUpTime) F(getBiosManufacturer) F(getBiosVersion) F(getBiosBuildNumber) \
    F(getBiosSerialNumber) F(getBiosCurrentLanguage) F(getBiosLanguages) F(getBiosReleaseDate) \
    F(getBiosSmBiosMajorVersion) F(getBiosSmBiosMinorVersion) F(getBiosSmBiosVersion) \
    F(getBiosLoadedStartingAddress) F(getBiosLoadedEndingAddress) F(getCSName) F(getCSModel) F(getCSDescription) \
    F(getCSOwnerName) F(getCSOwnerContact) F(getName) F(getModel) F(getChassisManufacturer) F(getChassisVersion) \
    F(getChassisSerialNumber) F(getChassisAssetTag) F(getBBManufacturer) F(getBBProduct) F(getBBVersion) \
    F(getBBSerialNumber) F(getBBAssetTag) F(getBBLocation) F(getBBConfigurationOptions) F(getCacheDesignation) \
    F(getCachePurpose) F(getCacheAssociativity) F(getCacheWritePolicy) F(getCacheType) F(getCacheLocation) \
    F(getCacheLevel) F(getCacheErrorCorrectionType) F(getCacheSpeed) F(getCacheSize) F(getCacheMaximumSize) \
    F(getCacheInstalledSize) F(getCacheNumberOfBlocks) F(getCacheSupportedSramType) F(getCacheCurrentSramType) \
    F(getPortName) F(getPortModel) F(getPortManufacturer) F(getPortInternalReferenceDesignator) \
    F(getPortExternalReferenceDesignator) F(getPortType) F(getPortConnectors) F(getSlotDesignation) \
    F(getFirmwareName) F(getFirmwareVersion) F(getFirmwareManufacturer) F(getFirmwareSerialNumber) \
    F(getFirmwareBuildNumber) F(getFirmwareReleaseDate) F(Reboot) F(Shutdown)
// clang-format on

namespace VQ::Load
{

namespace
{
std::string fullPath(const std::string& file)
{
    char* path = realpath(file.c_str(), nullptr);
    if (!path)
        throw Failure("cannot load " + file + ": " + std::strerror(errno));
    std::string full = path;
    std::free(path);
    return full;
}

std::string directoryOf(const std::string& file)
{
    return file.substr(0, file.rfind('/') + 1);
}

bool exists(const std::string& file)
{
    return access(file.c_str(), F_OK) == 0;
}

// The module of the installation, else that of the build, that this library is part of.
std::string ownModule()
{
    Dl_info info = {};
    if (dladdr(reinterpret_cast<const void*>(&systemProviderOpen), &info) == 0 || !info.dli_fname)
        throw Failure("cannot tell where this library stands: name the module");
    const std::string directory = directoryOf(fullPath(info.dli_fname));
    const std::string installed = directory + VQ_INSTALLED_MODULE;
    return exists(installed) ? installed : directory + "libSystemProvider.so";
}

std::string hint(const std::string& reason)
{
    if (reason.find("wrong ELF class") != std::string::npos)
        return "; this is a " + std::to_string(8 * sizeof(void*)) +
               "-bit program, which needs the module of the same width";
    if (reason.find("libpeg") != std::string::npos)
        return "; the module needs the libraries of OpenPegasus: tell the loader where they are (ldconfig)";
    return "";
}
}

// What the module needs is bound at once, as it is linked to be. The thousands of functions of OpenPegasus's own
// libraries, which would take a millisecond, are bound as they are called, as in a server.
Library::Library(const std::string& file) : _handle(dlopen(file.c_str(), RTLD_LAZY | RTLD_LOCAL))
{
    if (_handle)
        return;
    const std::string reason = dlerror();
    const bool named = reason.find(file) != std::string::npos;
    throw Failure("cannot load " + (named ? reason : file + ": " + reason) + hint(reason));
}

Library::~Library()
{
    dlclose(_handle);
}

void* Library::find(const char* name) const
{
    return dlsym(_handle, name);
}

Module::Module(const std::string& file, const std::string& dump)
{
    const std::string path = fullPath(file.empty() ? ownModule() : file);
    if (!dump.empty())
        _dump = std::make_unique<DumpCopy>(dump);
    inRoot([this, &path] { load(path); });
}

void Module::load(const std::string& file)
{
    // Both have the name of the reader that the module asks for, so the loader takes the one that is there already.
    if (_dump)
        _reader = std::make_unique<Library>(directoryOf(file) + "from-dump/libvqsmbios.so");
    _library = std::make_unique<Library>(file);
    findFunctions(file);
    const bool readsDumps = _library->find("vqServeSmBiosDump") != nullptr;
    if (_dump && !readsDumps)
        throw Failure(file + " is loaded in this process already and reads the machine's own table: close it before a "
                             "dump is opened");
    if (!_dump && readsDumps)
        throw Failure(file + " is loaded in this process already and reads a dump: close it before the machine is "
                             "opened");
    serve();
}

void Module::serve() const
{
    if (!_dump)
        return;
    void (*serveDump)(const char*) = nullptr;
    reinterpret_cast<void*&>(serveDump) = _library->find("vqServeSmBiosDump");
    serveDump(_dump->path().c_str());
}

void Module::findFunctions(const std::string& file)
{
    const auto find = [this, &file](auto& place, const char* name) {
        reinterpret_cast<void*&>(place) = _library->find(name);
        if (!place)
            throw Failure(file + " does not export " + name + ": it is no module of this version");
    };
#define VQ_COUNT(name) +1
#define VQ_FIND(name)                                                                                                  \
    static_assert(std::is_same_v<decltype(_functions.name), decltype(&::name)>);                                       \
    find(_functions.name, #name);
    VQ_FLAT_FUNCTIONS(VQ_FIND)
    static_assert(sizeof _functions == sizeof(void*) * (0 VQ_FLAT_FUNCTIONS(VQ_COUNT)), "each is looked for");
    void* bios = nullptr;
    find(bios, "bios");
    _bios = static_cast<const Bios*>(bios);
}

}
