#include "support/common/DynamicLibrary.h"

#include "support/common/Text.h"

#include <dlfcn.h>

namespace VQ
{

DynamicLibrary::DynamicLibrary(const std::wstring& path) : _path(path) {}

DynamicLibrary::~DynamicLibrary()
{
    unload();
}

bool DynamicLibrary::load()
{
    if (!_handle)
        _handle = dlopen(make_string(_path).c_str(), RTLD_LAZY);
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
