#include <Pegasus/Common/ResponseHandler.h>

namespace Pegasus
{
ResponseHandler::~ResponseHandler() = default;
InstanceResponseHandler::~InstanceResponseHandler() = default;
ObjectPathResponseHandler::~ObjectPathResponseHandler() = default;
MethodResultResponseHandler::~MethodResultResponseHandler() = default;
}
