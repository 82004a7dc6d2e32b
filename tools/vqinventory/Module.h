#pragma once

#include "tools/core/Answer.h"
#include "tools/vqinventory/SharedLibrary.h"

#include <Pegasus/Common/Config.h>
#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMMethodProvider.h>
#include <Pegasus/Provider/CIMOMHandle.h>

#include <memory>
#include <string>

namespace VQ::Tool
{

/// A provider module, loaded and driven as a CIM server does it: from PegasusCreateProvider to terminate. A request
/// that fails says so in its answer and never by an exception.
class Module
{
public:
    /// Throws LoadError when the file is no module, or has no provider "SystemProvider" of instances and methods.
    explicit Module(const std::string& file);

    Answer enumerate(const std::string& className);
    Answer names(const std::string& className);

    /// CIM_ERR_NOT_FOUND when there is no such instance: the provider itself just delivers nothing.
    Answer get(const std::string& path);

    /// CIM_ERR_METHOD_NOT_FOUND when the provider is silent, which is how it answers what it does not have.
    MethodAnswer invoke(const std::string& className, const std::string& method);

private:
    // A provider is ended by its own `terminate`, never deleted by its host.
    struct Terminate
    {
        void operator()(Pegasus::CIMProvider* provider) const;
    };

    SharedLibrary _library; // first, so that it is unloaded last
    Pegasus::CIMOMHandle _handle;
    std::unique_ptr<Pegasus::CIMProvider, Terminate> _provider;
    Pegasus::CIMInstanceProvider* _instances = nullptr;
    Pegasus::CIMMethodProvider* _methods = nullptr;
};

/// The module that belongs to this program: where it was installed, or beside it in the build tree. Throws LoadError
/// when it is in neither place.
std::string defaultModuleFile();

}
