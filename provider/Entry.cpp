#include "provider/ClassNames.h"
#include "provider/SystemProvider.h"

#include <Pegasus/Common/String.h>

/// The entry of the module, which the CIM server looks up by this name. Gives a new provider for "SystemProvider" in
/// any letter case, which the caller ends by `terminate`, and null for any other name. Null too when the module was
/// loaded without the memory that it needs: the server then reports that it can't be used, unloads it, and loads it
/// again for the next request.
extern "C" __attribute__((visibility("default"))) Pegasus::CIMProvider*
PegasusCreateProvider(const Pegasus::String& name)
{
    if (!VQ::hasAllNames() || !Pegasus::String::equalNoCase(name, "SystemProvider"))
        return nullptr;
    return new VQ::SystemProvider;
}
