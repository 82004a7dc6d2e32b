#include "tools/vqinventory/Companions.h"

#include "tools/program/InputFile.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>

namespace VQ::Tool
{

namespace
{
constexpr const char* IpmiLibrary = "libqoripmi.so";
constexpr const char* XenLibrary = "../lib/libqorxenprobe.so";

using OpenLocal = std::uintptr_t (*)();
using Close = void (*)(std::uintptr_t);
using BmcGet = int (*)(std::uintptr_t, void*);
using Probe = int (*)();

// One library that stays loaded until the end, as nothing follows.
class Companion
{
public:
    Companion(const char* subject, const char* package) : _subject(subject), _package(package) {}

    /// False, with the reason kept, where this file can't be loaded.
    bool load(const std::string& file)
    {
        _handle = dlopen(file.c_str(), RTLD_LAZY);
        if (_handle)
            return true;
        const char* error = dlerror();
        if (isMissing()) // else a file that is there stays the reason
            _error = error ? error : file + " can't be loaded";
        return false;
    }

    template <class Function> Function get(const char* name)
    {
        void* symbol = dlsym(_handle, name);
        Dl_info info;
        if (symbol && dladdr(symbol, &info) != 0)
            _file = realPath(info.dli_fname);
        return reinterpret_cast<Function>(symbol);
    }

    CompanionTrial say(CompanionTrial::Kind kind, const std::string& text) const
    {
        return {kind, std::string(_subject) + ": " + (_file.empty() ? "" : _file + " ") + text};
    }

    /// Why it was not loaded: mostly because it is not installed, which is nothing bad.
    CompanionTrial sayNotLoaded(const std::string& consequence) const
    {
        if (isMissing())
            return say(CompanionTrial::Note,
                       std::string("the package ") + _package + " is not installed: " + consequence);
        return say(CompanionTrial::Problem,
                   _error + ": " + consequence + ". Install the package " + _package + " of the module's width");
    }

private:
    bool isMissing() const { return _error.empty() || _error.find("No such file") != std::string::npos; }

    const char* _subject;
    const char* _package;
    void* _handle = nullptr;
    std::string _file;
    std::string _error;
};

std::string describe(const unsigned char* identity)
{
    std::uint32_t manufacturer = 0;
    std::uint16_t product = 0;
    std::memcpy(&manufacturer, identity + 4, sizeof manufacturer);
    std::memcpy(&product, identity + 8, sizeof product);
    char text[96];
    std::snprintf(text, sizeof text, "answers: manufacturer %u, product 0x%04X, revision %u.%u", manufacturer, product,
                  static_cast<unsigned>(identity[10]), static_cast<unsigned>(identity[11]));
    return text;
}

CompanionTrial tryIpmi(const std::string& moduleFile)
{
    Companion library("BMC", "systemprovider-ipmi");
    const std::string beside = moduleFile.substr(0, moduleFile.rfind('/') + 1) + IpmiLibrary;
    const bool searchFirst = std::getenv("LD_LIBRARY_PATH") != nullptr; // it comes before the module's own directory
    if (!(searchFirst && library.load(IpmiLibrary)) && !library.load(beside) && !library.load(IpmiLibrary))
        return library.sayNotLoaded("its firmware is not in QORTAL_BIOS");
    const auto open = library.get<OpenLocal>("ipmiOpenLocal");
    const auto close = library.get<Close>("ipmiClose");
    const auto get = library.get<BmcGet>("ipmiBmcGet");
    if (!open || !close || !get)
        return library.say(CompanionTrial::Problem, "lacks a function of the interface, and is passed over");
    const std::uintptr_t session = open();
    if (session == 0)
        return library.say(CompanionTrial::Note,
                           "finds none that the kernel knows; if the machine has one, load its drivers: "
                           "modprobe -a ipmi_si ipmi_devintf");
    unsigned char identity[32] = {};
    const bool answered = get(session, identity) == 0;
    close(session);
    return answered
               ? library.say(CompanionTrial::Good, describe(identity))
               : library.say(CompanionTrial::Problem, "gets no answer from it; its firmware is not in QORTAL_BIOS");
}

CompanionTrial tryXen()
{
    Companion library("Xen", "systemprovider-xen");
    if (!library.load(XenLibrary))
        return library.sayNotLoaded("a guest of Xen is reported as not virtualized");
    const auto control = library.get<Probe>("running_in_xen_dom0");
    const auto guest = library.get<Probe>("running_in_xen_domU");
    if (!guest)
        return library.say(CompanionTrial::Problem,
                           "lacks running_in_xen_domU: a request for QORTAL_ComputerSystem ends the "
                           "module's process. Remove it");
    return library.say(CompanionTrial::Good, guest() != 0                ? "answers: this is a guest domain"
                                             : control && control() != 0 ? "answers: this is the control domain"
                                                                         : "answers: this is no domain of Xen");
}
}

std::vector<CompanionTrial> tryCompanions(const std::string& moduleFile)
{
    return {tryIpmi(moduleFile), tryXen()};
}

}
