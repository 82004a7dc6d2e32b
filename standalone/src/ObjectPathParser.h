#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/String.h>

namespace Pegasus
{
/// Reads the text of an object path from its front; each function takes its part off and throws
/// MalformedObjectNameException where the part is not legal.
class ObjectPathParser
{
public:
    explicit ObjectPathParser(const String& text) : text_(text), rest_(text) {}

    /// What stands between // and the next slash; empty where the text does not start so.
    String host();
    /// What stands before a colon; null where there is none before the keys. After a host there must be one.
    CIMNamespaceName nameSpace(bool required);
    CIMName className();
    Array<CIMKeyBinding> keyBindings();

    /// A host name or an IP address, IPv6 in brackets, with an optional colon and port.
    static bool legalHost(const String& host);

private:
    CIMKeyBinding keyBinding();
    String quotedValue();
    String takeUntil(char end);
    [[noreturn]] void fail(const char* reason) const;

    String text_;
    String rest_;
};
}
