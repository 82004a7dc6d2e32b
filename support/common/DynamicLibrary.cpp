#include "support/common/DynamicLibrary.h"

#include "support/common/Text.h"

#include <cerrno>
#include <dlfcn.h>
#include <new>

namespace VQ
{

void* openLibrary(const char* path)
{
    errno = 0; // the loader's text does not always tell that memory lacked, and never in words one could rely on
    void* library = dlopen(path, RTLD_LAZY);
    if (!library && errno == ENOMEM) {
        // Has the loader forget the error. While the module itself is being loaded, this loading is a part of that one,
        // and glibc 2.36 would take its mark of an error without memory for an error's text.
        dlerror();
        throw std::bad_alloc();
    }
    return library;
}

DynamicLibrary::DynamicLibrary(const std::wstring& path) : _path(path) {}

DynamicLibrary::~DynamicLibrary()
{
    unload();
}

bool DynamicLibrary::load()
{
    if (!_handle)
        _handle = openLibrary(make_string(_path).c_str());
    return _handle != nullptr;
}

void* DynamicLibrary::getSymbol(const std::wstring& name) const
{
    return _handle ? dlsym(_handle, make_string(name).c_str()) : nullptr;
}

void DynamicLibrary::unload()
{
    if (_handle)
        dlclose(_handle);
    _handle = nullptr;
}

}
