#pragma once

#include "tools/program/Errors.h"

#include <string>

namespace VQ::Tool
{

/// A shared library that stays loaded as long as the object lives.
class SharedLibrary
{
public:
    /// Loads the file, which is named by its full path, with the flags of dlopen. Throws LoadError with the loader's
    /// reason.
    SharedLibrary(const std::string& file, int flags);
    ~SharedLibrary();
    SharedLibrary(const SharedLibrary&) = delete;
    SharedLibrary& operator=(const SharedLibrary&) = delete;

    /// Throws LoadError when the library has no such symbol.
    void* symbol(const char* name) const;

private:
    std::string _file;
    void* _handle;
};

}
