#pragma once

#include <Pegasus/Common/Config.h>
#include <Pegasus/Provider/CIMOMHandle.h>

namespace Pegasus
{
/// What a module's PegasusCreateProvider returns. The host finds the operations it has with dynamic_cast.
class PEGASUS_EXPORT CIMProvider
{
public:
    virtual ~CIMProvider();

    /// Called once, before any request.
    virtual void initialize(CIMOMHandle& cimom) = 0;
    /// Called once, after the last request; the provider deletes itself.
    virtual void terminate() = 0;
};
}
