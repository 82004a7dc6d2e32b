#pragma once

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/ResponseHandler.h>
#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMMethodProvider.h>

#include <iosfwd>
#include <string>
#include <vector>

using Lines = std::vector<std::string>;

/// What this process holds; a request leaves it as it found it.
struct Holdings
{
    long blocks;     ///< allocated
    int descriptors; ///< open
    int libraries;   ///< loaded

    bool operator==(const Holdings& other) const;
};
Holdings holdings();
std::ostream& operator<<(std::ostream& out, const Holdings& held);

/// The module's file in this process; null where it can't be loaded. As a server loads it.
void* loadModule();

/// What the module's entry gives for its provider's name. Throws what that throws.
Pegasus::CIMProvider* createProvider(void* module);

/// The module with its provider, from loading to unloading.
class LoadedModule
{
public:
    LoadedModule();
    ~LoadedModule();
    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;

    void* handle() const { return _handle; }
    Pegasus::CIMProvider& provider() const { return *_provider; }

private:
    void* _handle;
    Pegasus::CIMProvider* _provider;
};

extern const char* const AllClasses[9];

/// A request to the provider. Everything that it needs is made before it is performed, and what comes back is kept
/// without an allocation, so only the module's own can fail.
class Request
{
public:
    enum class Operation
    {
        Enumerate,
        Names,
        Get, ///< of the class's first instance
        Create,
        Modify,
        Delete,
        Reboot,
        Shutdown,
    };

    Request(const LoadedModule& module, Operation operation, const char* className);

    /// Throws what the provider throws.
    void perform();

    /// What came back: a line for each call of the handler, and below each instance its properties and keys.
    Lines answer() const;

private:
    struct Instances;
    struct Paths;
    struct Result;
    Pegasus::CIMInstanceProvider& _instances;
    Pegasus::CIMMethodProvider& _methods;
    Operation _operation;
    Pegasus::CIMObjectPath _path;
    std::vector<Pegasus::CIMInstance> _delivered;
    std::vector<Pegasus::CIMObjectPath> _paths;
    std::vector<const char*> _calls;
};

/// The operation's name and the class's, for messages.
std::string nameOf(Request::Operation operation, const char* className);
