#include "ObjectPathParser.h"

#include "KeyNumber.h"

#include <Pegasus/Common/Exception.h>

#include <arpa/inet.h>
#include <cctype>
#include <net/if.h>
#include <netinet/in.h>
#include <string>

namespace Pegasus
{
namespace
{
const Char16 Quote('"');
const Char16 Backslash('\\');

bool startsWith(const String& text, const String& start)
{
    return text.subString(0, start.size()) == start;
}

bool legalPort(const std::string& port)
{
    unsigned long value = 0;
    for (const char digit : port) {
        if (digit < '0' || digit > '9')
            return false;
        value = value * 10 + (digit - '0');
        if (value > 65535)
            return false;
    }
    return true;
}

bool legalHostLabel(const std::string& label)
{
    for (const unsigned char c : label) {
        if (c >= 0x80 || (!std::isalnum(c) && c != '_' && c != '-'))
            return false;
    }
    return !label.empty() && label[0] != '-';
}

bool legalHostName(const std::string& name)
{
    std::string::size_type start = 0;
    for (;;) {
        const std::string::size_type dot = name.find('.', start);
        if (!legalHostLabel(name.substr(start, dot - start)))
            return false;
        if (dot == std::string::npos)
            return true;
        start = dot + 1;
    }
}

bool legalIpv4Address(const std::string& address)
{
    in_addr binary;
    return inet_pton(AF_INET, address.c_str(), &binary) == 1;
}

/// An address of the local link is one only together with an interface of this machine, after a percent sign.
bool legalIpv6Address(const std::string& address)
{
    const std::string::size_type percent = address.find('%');
    in6_addr binary;
    if (inet_pton(AF_INET6, address.substr(0, percent).c_str(), &binary) != 1)
        return false;
    if (binary.s6_addr[0] != 0xFE || binary.s6_addr[1] != 0x80)
        return percent == std::string::npos;
    return percent != std::string::npos && if_nametoindex(address.substr(percent + 1).c_str()) != 0;
}
}

bool ObjectPathParser::legalHost(const String& host)
{
    const std::string text(static_cast<const char*>(host.getCString()));
    const bool bracketed = !text.empty() && text[0] == '[';
    const std::string::size_type end = bracketed ? text.find(']') : text.find(':');
    if (bracketed && end == std::string::npos)
        return false;
    const std::string name = bracketed ? text.substr(1, end - 1) : text.substr(0, end);
    const std::string rest = end == std::string::npos ? "" : text.substr(end + (bracketed ? 1 : 0));
    if (!rest.empty() && (rest[0] != ':' || !legalPort(rest.substr(1))))
        return false;
    if (bracketed)
        return legalIpv6Address(name);
    // A host name's last part is never a number, so what ends in one must be an address.
    const std::string last = name.substr(name.rfind('.') + 1);
    const bool numeric = !last.empty() && last.find_first_not_of("0123456789") == std::string::npos;
    return numeric ? legalIpv4Address(name) : legalHostName(name);
}

void ObjectPathParser::fail(const char* reason) const
{
    throw MalformedObjectNameException(text_ + String(": ") + String(reason));
}

/// What stands before `end`, which is dropped; everything where there is none.
String ObjectPathParser::takeUntil(char end)
{
    const Uint32 position = rest_.find(Char16(static_cast<unsigned char>(end)));
    String taken = rest_.subString(0, position);
    rest_ = position == PEG_NOT_FOUND ? String() : rest_.subString(position + 1);
    return taken;
}

String ObjectPathParser::host()
{
    if (!startsWith(rest_, "//"))
        return String();
    rest_ = rest_.subString(2);
    if (rest_.find('/') == PEG_NOT_FOUND)
        fail("no slash after the host");
    String name = takeUntil('/');
    if (!legalHost(name))
        fail("no legal host");
    return name;
}

CIMNamespaceName ObjectPathParser::nameSpace(bool required)
{
    const Uint32 colon = rest_.find(':');
    if (colon == PEG_NOT_FOUND || colon > rest_.find('.')) {
        if (required)
            fail("no namespace after the host");
        return CIMNamespaceName();
    }
    const String name = takeUntil(':');
    // The slash that a namespace may start with is the one that ends the host.
    if (!CIMNamespaceName::legal(name) || (required && startsWith(name, "/")))
        fail("no legal namespace name");
    return CIMNamespaceName(name);
}

CIMName ObjectPathParser::className()
{
    const String name = takeUntil('.');
    if (!CIMName::legal(name))
        fail("no legal class name");
    return CIMName(name);
}

Array<CIMKeyBinding> ObjectPathParser::keyBindings()
{
    Array<CIMKeyBinding> all;
    while (rest_.size() != 0)
        all.append(keyBinding());
    return all;
}

CIMKeyBinding ObjectPathParser::keyBinding()
{
    if (rest_.find('=') == PEG_NOT_FOUND)
        fail("a key without an equals sign");
    const String name = takeUntil('=');
    if (!CIMName::legal(name))
        fail("no legal key name");

    if (rest_[0] == Quote) {
        const String value = quotedValue();
        try {
            const CIMObjectPath reference(value);
            if (reference.getKeyBindings().size() != 0)
                return CIMKeyBinding(name, reference.toString(), CIMKeyBinding::REFERENCE);
        } catch (const MalformedObjectNameException&) {
            // an ordinary text
        }
        return CIMKeyBinding(name, value, CIMKeyBinding::STRING);
    }

    const String value = takeUntil(',');
    for (const char* truth : {"TRUE", "FALSE"}) {
        if (String::equalNoCase(value, truth))
            return CIMKeyBinding(name, String(truth), CIMKeyBinding::BOOLEAN);
    }
    KeyNumber number;
    if (value[0] == Char16('+') || !number.parse(value)) // a path's numbers have no plus sign, unlike a key's
        fail("a key value that is no number, no Boolean and not quoted");
    return CIMKeyBinding(name, value, CIMKeyBinding::NUMERIC);
}

/// The text between quotes, without its escapes; takes the comma after it too.
String ObjectPathParser::quotedValue()
{
    String value;
    Uint32 at = 1;
    for (; at < rest_.size() && rest_[at] != Quote; ++at) {
        if (rest_[at] == Backslash) {
            ++at;
            if (rest_[at] != Quote && rest_[at] != Backslash)
                fail("an unknown escape in a key value");
        }
        value.append(rest_[at]);
    }
    if (at == rest_.size())
        fail("a key value without its closing quote");
    rest_ = rest_.subString(at + 1);
    if (rest_.size() != 0 && takeUntil(',').size() != 0)
        fail("no comma after a quoted key value");
    return value;
}
}
