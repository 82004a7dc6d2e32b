#pragma once

#include "flat/load/Source.h"
#include "flat/systemprovider_load.h"
#include "inventory/Bios.h"

#include <memory>
#include <string>

namespace VQ::Load
{

/// A shared library that is loaded as long as the object lives.
class Library
{
public:
    /// Throws Failure with the loader's reason and what would help.
    explicit Library(const std::string& file);
    ~Library();
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    void* find(const char* name) const; ///< null where neither it nor a library that it needs has such a name

private:
    void* _handle;
};

/// The module, loaded over the machine or over a dump, with the functions that it exports.
class Module
{
public:
    /// `file` and `dump` are paths, looked for where the process stands; empty: the module beside this library, and the
    /// machine. Throws Failure and SmBiosError.
    Module(const std::string& file, const std::string& dump);

    const SystemProviderFunctions& functions() const { return _functions; }
    const DumpCopy* dump() const { return _dump.get(); } ///< null: the machine

    /// The BIOS of the snapshot. The accessor for its date writes to standard output as well.
    const Bios& bios() const { return *_bios; }

    /// Has the module read this module's dump, if it has one, from now on.
    void serve() const;

private:
    void load(const std::string& file);
    void findFunctions(const std::string& file);

    std::unique_ptr<DumpCopy> _dump;
    std::unique_ptr<Library> _reader; // of the dump; loaded before the module, and unloaded after it
    std::unique_ptr<Library> _library;
    SystemProviderFunctions _functions = {};
    const Bios* _bios = nullptr;
};

}
