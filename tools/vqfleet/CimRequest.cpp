#include "tools/core/ObjectPath.h"
#include "tools/knowledge/Classes.h"
#include "tools/vqfleet/CimXml.h"
#include "tools/vqfleet/XmlText.h"

#include <cctype>
#include <sstream>
#include <type_traits>

namespace VQ::Tool
{

namespace
{
// Answers are not matched by it: a connection carries one question at a time.
constexpr const char* MessageId = "1";

std::string namespacePath(const std::string& nameSpace)
{
    std::string xml = "<LOCALNAMESPACEPATH>";
    std::istringstream in(nameSpace);
    for (std::string part; std::getline(in, part, '/');)
        xml += "<NAMESPACE NAME=\"" + escapedXml(part) + "\"/>";
    return xml + "</LOCALNAMESPACEPATH>";
}

std::string message(const std::string& call)
{
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><MESSAGE ID=\"" +
           std::string(MessageId) + "\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ>" + call + "</SIMPLEREQ></MESSAGE></CIM>\n";
}

// Percent signs and codes for what a header's value may not hold as it is.
std::string encoded(const std::string& text)
{
    static const char Digits[] = "0123456789ABCDEF";
    std::string result;
    for (char c : text) {
        const unsigned byte = c & 0xFFu;
        if (std::isalnum(static_cast<int>(byte)) != 0 || c == '_' || c == '-' || c == '.')
            result += c;
        else
            result += {'%', Digits[byte >> 4], Digits[byte & 15]};
    }
    return result;
}

std::string parameter(const char* name, const std::string& value)
{
    return "<IPARAMVALUE NAME=\"" + std::string(name) + "\">" + value + "</IPARAMVALUE>";
}

std::string flag(const char* name, bool value)
{
    return parameter(name, value ? "<VALUE>TRUE</VALUE>" : "<VALUE>FALSE</VALUE>");
}

std::string classParameter(const std::string& className)
{
    return parameter("ClassName", "<CLASSNAME NAME=\"" + escapedXml(className) + "\"/>");
}

Question intrinsic(const std::string& nameSpace, const char* method, const std::string& parameters)
{
    return {method, encoded(nameSpace),
            message("<IMETHODCALL NAME=\"" + std::string(method) + "\">" + namespacePath(nameSpace) + parameters +
                    "</IMETHODCALL>"),
            false};
}

std::string keyValue(const Scalar& value)
{
    return std::visit(
        [](const auto& element) -> std::string {
            using Type = std::decay_t<decltype(element)>;
            if constexpr (std::is_same_v<Type, std::string>)
                return "<KEYVALUE VALUETYPE=\"string\">" + escapedXml(element) + "</KEYVALUE>";
            else if constexpr (std::is_same_v<Type, DateTimeText>)
                return "<KEYVALUE VALUETYPE=\"string\">" + escapedXml(element.text) + "</KEYVALUE>";
            else if constexpr (std::is_same_v<Type, bool>)
                return std::string("<KEYVALUE VALUETYPE=\"boolean\">") + (element ? "TRUE" : "FALSE") + "</KEYVALUE>";
            else
                return "<KEYVALUE VALUETYPE=\"numeric\">" + std::to_string(element) + "</KEYVALUE>";
        },
        value);
}

std::string instanceName(const Instance& object)
{
    std::string xml = "<INSTANCENAME CLASSNAME=\"" + escapedXml(canonicalClassName(object.className)) + "\">";
    for (const NamedValue& key : object.keys)
        xml += "<KEYBINDING NAME=\"" + escapedXml(key.name) + "\">" + keyValue(key.value.elements.front()) +
               "</KEYBINDING>";
    return xml + "</INSTANCENAME>";
}
}

Question askForInstances(const std::string& nameSpace, const std::string& className)
{
    // Without LocalOnly a server leaves out what a class inherits.
    return intrinsic(nameSpace, "EnumerateInstances",
                     classParameter(className) + flag("LocalOnly", false) + flag("DeepInheritance", true) +
                         flag("IncludeQualifiers", false) + flag("IncludeClassOrigin", false));
}

Question askForNames(const std::string& nameSpace, const std::string& className)
{
    return intrinsic(nameSpace, "EnumerateInstanceNames", classParameter(className));
}

Question askForInstance(const std::string& nameSpace, const std::string& path)
{
    const std::optional<Instance> object = parsePath(path);
    if (!object)
        throw std::runtime_error("\"" + path + "\" is not an object path (CLASS.KEY=\"VALUE\",...)");
    return intrinsic(nameSpace, "GetInstance",
                     parameter("InstanceName", instanceName(*object)) + flag("LocalOnly", false) +
                         flag("IncludeQualifiers", false) + flag("IncludeClassOrigin", false));
}

Question askForCall(const std::string& nameSpace, const Instance& object, const std::string& method)
{
    return {method, encoded(nameSpace + ":" + object.path),
            message("<METHODCALL NAME=\"" + escapedXml(method) + "\"><LOCALINSTANCEPATH>" + namespacePath(nameSpace) +
                    instanceName(object) + "</LOCALINSTANCEPATH></METHODCALL>"),
            true};
}

}
