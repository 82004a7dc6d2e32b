#include "provider/SimpleInstanceResponseHandler.h"

namespace VQ
{

using namespace Pegasus;

SimpleInstanceResponseHandler::~SimpleInstanceResponseHandler() = default;

void SimpleInstanceResponseHandler::processing() {}

void SimpleInstanceResponseHandler::complete() {}

void SimpleInstanceResponseHandler::deliver(const CIMInstance& instance)
{
    instances.append(instance);
}

void SimpleInstanceResponseHandler::deliver(const Array<CIMInstance>& delivered)
{
    for (Uint32 i = 0; i < delivered.size(); ++i)
        deliver(delivered[i]);
}

}
