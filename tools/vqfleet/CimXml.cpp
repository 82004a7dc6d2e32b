#include "tools/vqfleet/CimXml.h"

#include "tools/core/ObjectPath.h"
#include "tools/knowledge/Classes.h"
#include "tools/knowledge/Schema.h"
#include "tools/vqfleet/XmlText.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <pugixml.hpp>
#include <strings.h>

namespace VQ::Tool
{

namespace
{
// Texts are left as they stand, to be unescaped by unescapedXml: the reader would end a text at a reference to the
// character 0, and make one line end of another.
constexpr unsigned Reading = pugi::parse_cdata | pugi::parse_ws_pcdata;

const char* const ErrorNames[] = {"FAILED",
                                  "ACCESS_DENIED",
                                  "INVALID_NAMESPACE",
                                  "INVALID_PARAMETER",
                                  "INVALID_CLASS",
                                  "NOT_FOUND",
                                  "NOT_SUPPORTED",
                                  "CLASS_HAS_CHILDREN",
                                  "CLASS_HAS_INSTANCES",
                                  "INVALID_SUPERCLASS",
                                  "ALREADY_EXISTS",
                                  "NO_SUCH_PROPERTY",
                                  "TYPE_MISMATCH",
                                  "QUERY_LANGUAGE_NOT_SUPPORTED",
                                  "INVALID_QUERY",
                                  "METHOD_NOT_AVAILABLE",
                                  "METHOD_NOT_FOUND"}; // from 1 on

// Whether it is the element; servers may write a namespace's prefix before the name.
bool is(const pugi::xml_node& node, const char* name)
{
    const char* colon = std::strrchr(node.name(), ':');
    return std::strcmp(colon ? colon + 1 : node.name(), name) == 0;
}

pugi::xml_node childOf(const pugi::xml_node& parent, const char* name)
{
    return parent.find_child([name](const pugi::xml_node& child) { return is(child, name); });
}

pugi::xml_node neededChild(const pugi::xml_node& parent, const char* name)
{
    const pugi::xml_node child = childOf(parent, name);
    if (!child)
        throw NoAnswer("there is no " + std::string(name) + " where one belongs");
    return child;
}

std::string unescaped(const char* raw)
{
    try {
        return validUtf8(unescapedXml(raw));
    } catch (const std::runtime_error& error) {
        throw NoAnswer(error.what());
    }
}

std::string attributeOf(const pugi::xml_node& node, const char* name)
{
    return unescaped(node.attribute(name).value());
}

// The names of classes and properties go into output that only takes care of values.
std::string nameIn(const pugi::xml_node& node, const char* attribute)
{
    std::string name = attributeOf(node, attribute);
    const bool legal = !name.empty() && std::isdigit(static_cast<unsigned char>(name[0])) == 0 &&
                       std::all_of(name.begin(), name.end(),
                                   [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'; });
    if (!legal)
        throw NoAnswer("\"" + name.substr(0, 80) + "\" is not the name of a class or property");
    return name;
}

// What stands in the element, without its comments.
std::string textOf(const pugi::xml_node& node)
{
    std::string text;
    for (const pugi::xml_node& child : node.children()) {
        if (child.type() == pugi::node_pcdata)
            text += unescaped(child.value());
        else if (child.type() == pugi::node_cdata)
            text += validUtf8(child.value());
    }
    return text;
}

std::string trimmed(const std::string& text)
{
    constexpr const char* Blanks = " \t\r\n";
    const std::size_t begin = text.find_first_not_of(Blanks);
    return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(Blanks) + 1 - begin);
}

bool isTruth(const std::string& text, const char* truth)
{
    return text.size() == std::strlen(truth) && std::equal(text.begin(), text.end(), truth, [](char c, char lower) {
               return std::tolower(static_cast<unsigned char>(c)) == lower;
           });
}

[[noreturn]] void refuse(const std::string& text, const std::string& type)
{
    throw NoAnswer("\"" + text.substr(0, 80) + "\" is not of the type " + type);
}

Scalar toTruth(const std::string& text)
{
    const std::string word = trimmed(text);
    if (!isTruth(word, "true") && !isTruth(word, "false"))
        refuse(text, "boolean");
    return isTruth(word, "true");
}

// Decimal or 0x with hexadecimal digits, in the range of the type: "uint16", "sint8"...
Scalar toNumber(const std::string& text, const std::string& type)
{
    const std::string word = trimmed(text);
    const bool negative = word.compare(0, 1, "-") == 0;
    const std::size_t begin = negative || word.compare(0, 1, "+") == 0 ? 1 : 0;
    const bool hexadecimal = word.compare(begin, 2, "0x") == 0 || word.compare(begin, 2, "0X") == 0;
    const std::string digits = word.substr(std::min(word.size(), begin + (hexadecimal ? 2 : 0)));
    const char* const legal = hexadecimal ? "0123456789abcdefABCDEF" : "0123456789";
    if (digits.empty() || digits.find_first_not_of(legal) != std::string::npos)
        refuse(text, type);
    errno = 0;
    const std::uint64_t number = std::strtoull(digits.c_str(), nullptr, hexadecimal ? 16 : 10);
    const unsigned bits = static_cast<unsigned>(std::strtoul(type.c_str() + 4, nullptr, 10));
    const bool hasSign = type[0] == 's';
    const std::uint64_t most = ~std::uint64_t{0} >> (64 - bits + (hasSign ? 1 : 0));
    if (errno != 0 || number > most + (negative && hasSign ? 1 : 0) || (negative && !hasSign && number != 0))
        refuse(text, type);
    if (negative && number != 0)
        return static_cast<std::int64_t>(~number + 1);
    return number;
}

bool isIntegerType(const std::string& type)
{
    static const char* const Types[] = {"uint8", "uint16", "uint32", "uint64", "sint8", "sint16", "sint32", "sint64"};
    return std::find(std::begin(Types), std::end(Types), type) != std::end(Types);
}

Scalar toScalar(const std::string& text, const std::string& type)
{
    if (type == "boolean")
        return toTruth(text);
    if (type == "datetime")
        return DateTimeText{trimmed(text)};
    if (isIntegerType(type))
        return toNumber(text, type);
    return text;
}

// As the server says, else as the schema does.
std::string typeOf(const pugi::xml_node& node, const std::string& className, const std::string& property)
{
    std::string type = attributeOf(node, "TYPE");
    const SchemaProperty* known = type.empty() ? schemaProperty(className, property) : nullptr;
    return known ? known->type : type;
}

Value toValue(const pugi::xml_node& node, const std::string& type, bool isArray)
{
    Value value;
    value.isArray = isArray;
    const pugi::xml_node content = childOf(node, isArray ? "VALUE.ARRAY" : "VALUE");
    value.isNull = !content;
    if (!content)
        return value;
    if (!isArray)
        value.elements.push_back(toScalar(textOf(content), type));
    for (const pugi::xml_node& element : content.children())
        if (isArray && is(element, "VALUE"))
            value.elements.push_back(toScalar(textOf(element), type));
    return value;
}

// What does not read as a decimal number stays a text.
Scalar toNumericKey(const std::string& text)
{
    const std::string word = trimmed(text);
    try {
        return toNumber(text, word.compare(0, 1, "-") == 0 ? "sint64" : "uint64");
    } catch (const NoAnswer&) {
        return text;
    }
}

Scalar toKey(const pugi::xml_node& node)
{
    const std::string text = textOf(node);
    const std::string type = attributeOf(node, "VALUETYPE");
    if (type == "boolean")
        return toTruth(text);
    return type == "numeric" ? toNumericKey(text) : Scalar(text);
}

std::string pathText(const Scalar& value)
{
    if (const bool* truth = std::get_if<bool>(&value))
        return *truth ? "TRUE" : "FALSE";
    if (const std::uint64_t* number = std::get_if<std::uint64_t>(&value))
        return std::to_string(*number);
    if (const std::int64_t* number = std::get_if<std::int64_t>(&value))
        return std::to_string(*number);
    std::string text = "\"";
    for (char c : std::get<std::string>(value)) {
        if (c == '"' || c == '\\')
            text += '\\';
        text += c;
    }
    return text + "\"";
}

// INSTANCENAME
Instance toNamedInstance(const pugi::xml_node& node)
{
    Instance instance;
    instance.className = nameIn(node, "CLASSNAME");
    instance.path = instance.className;
    for (const pugi::xml_node& binding : node.children()) {
        if (!is(binding, "KEYBINDING"))
            continue;
        const Scalar value = toKey(neededChild(binding, "KEYVALUE"));
        instance.path += instance.keys.empty() ? "." : ",";
        instance.keys.push_back({nameIn(binding, "NAME"), {false, false, {value}}});
        instance.path += instance.keys.back().name + "=" + pathText(value);
    }
    return instance;
}

// INSTANCE
void takeProperties(const pugi::xml_node& node, Instance& instance)
{
    for (const pugi::xml_node& property : node.children()) {
        const bool isArray = is(property, "PROPERTY.ARRAY");
        if (!isArray && !is(property, "PROPERTY"))
            continue;
        const std::string name = nameIn(property, "NAME");
        const bool isKey = std::any_of(instance.keys.begin(), instance.keys.end(), [&name](const NamedValue& key) {
            return strcasecmp(key.name.c_str(), name.c_str()) == 0;
        });
        const std::string type = typeOf(property, instance.className, name);
        instance.properties.push_back({{name, toValue(property, type, isArray)}, isKey});
    }
}

// ERROR
Failure toFailure(const pugi::xml_node& node)
{
    const std::string code = attributeOf(node, "CODE");
    Failure failure{nameOfError(static_cast<unsigned>(std::strtoul(code.c_str(), nullptr, 10))),
                    attributeOf(node, "DESCRIPTION")};
    const std::string repeated = failure.code + ": ";
    if (failure.text.compare(0, repeated.size(), repeated) == 0)
        failure.text.erase(0, repeated.size());
    return failure;
}

// The part of the body that answers, with the document that it lives in.
class Response
{
public:
    // `element` is IMETHODRESPONSE or METHODRESPONSE, `method` its name.
    Response(const std::string& body, const char* element, const char* method)
    {
        if (body.find('\0') != std::string::npos)
            throw NoAnswer("it is not XML: it holds a byte 0");
        const auto markup = static_cast<std::size_t>(
            std::count_if(body.begin(), body.end(), [](char c) { return c == '<' || c == '='; }));
        if (markup > MaxMarkup)
            throw NoAnswer("it has more elements than an inventory can have");
        const pugi::xml_parse_result result =
            _document.load_buffer(body.data(), body.size(), Reading, pugi::encoding_utf8);
        if (!result)
            throw NoAnswer("it is not XML, or not all of it is there, at byte " + std::to_string(result.offset) +
                           " of " + std::to_string(body.size()));
        const pugi::xml_node answer =
            neededChild(neededChild(neededChild(neededChild(_document, "CIM"), "MESSAGE"), "SIMPLERSP"), element);
        if (attributeOf(answer, "NAME") != method)
            throw NoAnswer("it answers another question: " + attributeOf(answer, "NAME").substr(0, 80));
        _node = answer;
    }

    std::optional<Failure> failure() const
    {
        const pugi::xml_node error = childOf(_node, "ERROR");
        return error ? std::optional<Failure>(toFailure(error)) : std::nullopt;
    }

    pugi::xml_node returned(const char* name) const { return childOf(_node, name); }

private:
    pugi::xml_document _document;
    pugi::xml_node _node;
};
}

std::string nameOfError(unsigned code)
{
    const std::size_t count = std::size(ErrorNames);
    return std::string("CIM_ERR_") + (code >= 1 && code <= count ? ErrorNames[code - 1] : ErrorNames[0]);
}

Answer answerWithInstances(const std::string& body, const std::string& className)
{
    const Response response(body, "IMETHODRESPONSE", "EnumerateInstances");
    Answer answer{className, {}, response.failure()};
    for (const pugi::xml_node& node : response.returned("IRETURNVALUE").children()) {
        if (!is(node, "VALUE.NAMEDINSTANCE"))
            continue;
        answer.instances.push_back(toNamedInstance(neededChild(node, "INSTANCENAME")));
        takeProperties(neededChild(node, "INSTANCE"), answer.instances.back());
    }
    return answer;
}

Answer answerWithNames(const std::string& body, const std::string& className)
{
    const Response response(body, "IMETHODRESPONSE", "EnumerateInstanceNames");
    Answer answer{className, {}, response.failure()};
    for (const pugi::xml_node& node : response.returned("IRETURNVALUE").children())
        if (is(node, "INSTANCENAME"))
            answer.instances.push_back(toNamedInstance(node));
    return answer;
}

Answer answerWithInstance(const std::string& body, const std::string& path)
{
    const Response response(body, "IMETHODRESPONSE", "GetInstance");
    const std::optional<Instance> asked = parsePath(path);
    Answer answer{canonicalClassName(asked ? asked->className : path), {}, response.failure()};
    if (answer.failure)
        return answer;
    Instance instance = asked ? *asked : Instance();
    const pugi::xml_node node = neededChild(response.returned("IRETURNVALUE"), "INSTANCE");
    instance.className = nameIn(node, "CLASSNAME");
    if (strcasecmp(instance.className.c_str(), answer.className.c_str()) != 0)
        throw NoAnswer("it tells of an instance of another class: " + instance.className.substr(0, 80));
    takeProperties(node, instance);
    answer.instances.push_back(std::move(instance));
    return answer;
}

MethodAnswer answerToCall(const std::string& body, const std::string& className, const std::string& method)
{
    const Response response(body, "METHODRESPONSE", method.c_str());
    MethodAnswer answer{className, method, {}, response.failure()};
    if (const pugi::xml_node returned = response.returned("RETURNVALUE"))
        answer.returnValue = toValue(returned, attributeOf(returned, "PARAMTYPE"), false);
    return answer;
}

}
