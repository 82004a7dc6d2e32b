#include "tools/vqinventory/SharedLibrary.h"

#include <cstring>
#include <dlfcn.h>

namespace VQ::Tool
{

namespace
{
// What to do about a reason that the loader gives.
std::string hint(const std::string& reason)
{
    if (reason.find("wrong ELF class") != std::string::npos)
        return "\nThis vqinventory is a " + std::to_string(8 * sizeof(void*)) +
               "-bit program: it needs a module of the same width.";
    if (reason.find("undefined symbol") != std::string::npos || reason.find("libpeg") != std::string::npos ||
        reason.find("libvqcim") != std::string::npos)
        return "\nThis vqinventory was built with the " VQ_CIM_LIBRARY
               " CIM library: it needs a module built with the same one.";
    return "";
}
}

SharedLibrary::SharedLibrary(const std::string& file, int flags) : _file(file), _handle(dlopen(file.c_str(), flags))
{
    if (_handle)
        return;
    std::string reason = dlerror();
    const std::string ownName = file + ": "; // which most reasons begin with
    if (reason.compare(0, ownName.size(), ownName) == 0)
        reason.erase(0, ownName.size());
    throw LoadError("cannot load " + file + ": " + reason + hint(reason));
}

SharedLibrary::~SharedLibrary()
{
    dlclose(_handle);
}

void* SharedLibrary::symbol(const char* name) const
{
    if (void* found = dlsym(_handle, name))
        return found;
    throw LoadError(_file + " does not export " + name);
}

}
