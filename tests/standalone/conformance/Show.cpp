#include "Show.h"

#include <Pegasus/Common/Exception.h>

#include <cstdio>

using namespace Pegasus;

namespace
{
std::string bytes(const String& text)
{
    const CString utf8 = text.getCString();
    return static_cast<const char*>(utf8);
}

/// The exception that is being handled; with its text where that was given by whoever threw it.
std::string current()
{
    try {
        throw;
    } catch (const CIMException& e) {
        return "CIMException " + std::to_string(e.getCode()) + ' ' + shown(e.getMessage());
    } catch (const IndexOutOfBoundsException&) {
        return "IndexOutOfBoundsException";
    } catch (const AlreadyExistsException&) {
        return "AlreadyExistsException";
    } catch (const InvalidNameException&) {
        return "InvalidNameException";
    } catch (const InvalidNamespaceNameException&) {
        return "InvalidNamespaceNameException";
    } catch (const UninitializedObjectException&) {
        return "UninitializedObjectException";
    } catch (const TypeMismatchException&) {
        return "TypeMismatchException";
    } catch (const InvalidDateTimeFormatException&) {
        return "InvalidDateTimeFormatException";
    } catch (const DateTimeOutOfRangeException&) {
        return "DateTimeOutOfRangeException";
    } catch (const MalformedObjectNameException&) {
        return "MalformedObjectNameException";
    } catch (const Exception&) {
        return "Exception";
    } catch (const std::exception&) {
        return "std::exception";
    }
}
}

void section(const char* title)
{
    std::printf("\n# %s\n\n", title);
}

void print(const std::string& call, const std::function<std::string()>& outcome)
{
    std::string text;
    try {
        text = outcome();
    } catch (...) {
        text = "throws " + current();
    }
    std::printf("%s\n    %s\n", call.c_str(), text.c_str());
}

std::string quoted(const std::string& bytes)
{
    std::string text = "\"";
    for (const char byte : bytes) {
        char escaped[8];
        std::snprintf(escaped, sizeof escaped, "\\x%02X", static_cast<unsigned char>(byte));
        text += byte >= ' ' && byte <= '~' ? std::string(1, byte) : escaped;
    }
    return text + '"';
}

std::string shown(bool value)
{
    return value ? "true" : "false";
}

std::string shown(const char* text)
{
    return text;
}

std::string shown(const Char16& unit)
{
    char number[16];
    std::snprintf(number, sizeof number, "U+%04X", static_cast<unsigned>(Uint16(unit)));
    return number;
}

std::string shown(const String& text)
{
    return quoted(bytes(text));
}

std::string shown(const CIMName& name)
{
    return name.isNull() ? "null" : shown(name.getString());
}

std::string shown(const CIMNamespaceName& name)
{
    return name.isNull() ? "null" : shown(name.getString());
}

std::string shown(const CIMDateTime& datetime)
{
    return bytes(datetime.toString()) + (datetime.isInterval() ? " interval" : " timestamp");
}

std::string shown(const CIMObjectPath& path)
{
    return shown(path.toString());
}

std::string shown(CIMType type)
{
    return std::to_string(static_cast<int>(type)) + ' ' + cimTypeToString(type);
}

std::string shown(CIMStatusCode code)
{
    return std::to_string(static_cast<int>(code)) + ' ' + cimStatusCodeToString(code);
}

std::string shown(CIMKeyBinding::Type type)
{
    const char* const names[] = {"BOOLEAN", "STRING", "NUMERIC", "REFERENCE"};
    return names[type];
}

std::string shown(const CIMValue& value)
{
    std::string text = cimTypeToString(value.getType());
    if (value.isArray())
        text += '[' + std::to_string(value.getArraySize()) + ']';
    return text + (value.isNull() ? " null " : " ") + shown(value.toString());
}
