// What a CIM server sends, any bytes: it is an answer or refused with a text, and what is taken of it can be asked
// again.

#include "fuzz/Require.h"
#include "tools/core/ObjectPath.h"
#include "tools/knowledge/Classes.h"
#include "tools/vqfleet/CimXml.h"
#include "tools/vqfleet/XmlText.h"

#include <algorithm>
#include <string>

using namespace VQ::Tool;

namespace
{
constexpr const char* ClassName = "QORTAL_BIOS";
constexpr const char* Path = "QORTAL_BIOS.Name=\"BIOS\"";

void checkText(const std::string& text)
{
    require(validUtf8(text) == text, "texts are UTF-8");
    require(unescapedXml(escapedXml(text)) == text, "what is escaped is read back");
}

void checkName(const std::string& name)
{
    require(!name.empty() &&
                name.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_") ==
                    std::string::npos,
            "names have the characters of names only");
}

void checkValue(const Value& value)
{
    require(!value.isNull || value.elements.empty(), "null has no elements");
    require(value.isNull || value.isArray || value.elements.size() == 1, "what is no array has one element");
    for (const Scalar& element : value.elements) {
        if (const std::string* text = std::get_if<std::string>(&element))
            checkText(*text);
        if (const DateTimeText* time = std::get_if<DateTimeText>(&element))
            checkText(time->text);
        if (const std::int64_t* number = std::get_if<std::int64_t>(&element))
            require(*number < 0, "a number that is not negative is unsigned");
    }
}

// The path names the instance, in a question to the server, too. There a short name of a class becomes the whole one,
// as in everything that people ask for.
void checkPath(const Instance& instance)
{
    const std::optional<Instance> parsed = parsePath(instance.path);
    require(parsed && sameObject(*parsed, instance), "the path names the instance");
    const std::string question = askForInstance("root/cimv2", instance.path).body;
    const std::size_t begin = question.find("<INSTANCENAME "), end = question.find("</IPARAMVALUE>", begin);
    require(end != std::string::npos, "a question has the name");
    const Answer echo = answerWithNames("<CIM><MESSAGE><SIMPLERSP><IMETHODRESPONSE NAME=\"EnumerateInstanceNames\">"
                                        "<IRETURNVALUE>" +
                                            question.substr(begin, end - begin) +
                                            "</IRETURNVALUE></IMETHODRESPONSE></SIMPLERSP></MESSAGE></CIM>",
                                        instance.className);
    Instance asked = instance;
    asked.className = canonicalClassName(instance.className);
    require(echo.instances.size() == 1 && sameObject(echo.instances.front(), asked), "a question carries it whole");
}

void checkFailure(const std::optional<Failure>& failure)
{
    if (!failure)
        return;
    require(failure->code.rfind("CIM_ERR_", 0) == 0, "a failure has the name of its code");
    checkText(failure->text);
}

void check(const Answer& answer)
{
    checkFailure(answer.failure);
    for (const Instance& instance : answer.instances) {
        checkName(instance.className);
        checkText(instance.path);
        for (const NamedValue& key : instance.keys) {
            checkName(key.name);
            checkValue(key.value);
        }
        for (const Property& property : instance.properties) {
            checkName(property.name);
            checkValue(property.value);
        }
        checkPath(instance);
    }
}

template <class Read> void tryAs(Read read)
{
    try {
        read();
    } catch (const NoAnswer& error) {
        require(*error.what() != '\0', "a refusal has a text");
    }
}
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const std::string body(data, data + size);
    tryAs([&] { check(answerWithInstances(body, ClassName)); });
    tryAs([&] { check(answerWithNames(body, ClassName)); });
    tryAs([&] { check(answerWithInstance(body, Path)); });
    tryAs([&] {
        const MethodAnswer answer = answerToCall(body, ClassName, "Reboot");
        checkFailure(answer.failure);
        if (answer.returnValue)
            checkValue(*answer.returnValue);
    });
    return 0;
}
