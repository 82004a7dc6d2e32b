#pragma once

#include "support/common/Export.h"

#include <string>

namespace VQ
{

/// Loads a library that may be absent (`dlopen`, lazily bound): null where it is, and on any other failure but lack of
/// memory, which throws std::bad_alloc. An absent library is a fact of the machine; one that only could not be loaded
/// just now would be a wrong answer. The caller releases it by `dlclose`.
VQ_EXPORT void* openLibrary(const char* path);

/// One optional shared library, loaded on demand and owned until `unload` or destruction. Not for sharing between
/// threads.
class VQ_EXPORT DynamicLibrary
{
public:
    /// Names the library; loads nothing yet. The path goes to the loader as it stands: with a slash it is taken
    /// relative to the working directory, without one the loader searches its own path.
    explicit DynamicLibrary(const std::wstring& path);
    ~DynamicLibrary();
    DynamicLibrary(const DynamicLibrary&) = delete;
    DynamicLibrary& operator=(const DynamicLibrary&) = delete;

    /// Loads the library (`dlopen`). False on any failure, a missing file among them, but std::bad_alloc for lack of
    /// memory.
    bool load();

    /// The address of an exported symbol (`dlsym`), or null when it is absent or the library is not loaded.
    void* getSymbol(const std::wstring& name) const;

    /// Releases the library (`dlclose`); its symbols must not be called any more. Harmless when nothing is loaded.
    void unload();

private:
    std::wstring _path;
    void* _handle = nullptr;
};

}
