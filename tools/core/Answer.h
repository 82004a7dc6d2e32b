#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace VQ::Tool
{

// What the module answered, free of any CIM library: the form in which it is printed. Texts are UTF-8.

/// The text of a CIM datetime, which is no string to the formats that know the difference.
struct DateTimeText
{
    std::string text;
    bool operator==(const DateTimeText& other) const { return text == other.text; }
};

/// A number that is not negative is unsigned, whatever its type in CIM.
using Scalar = std::variant<bool, std::uint64_t, std::int64_t, std::string, DateTimeText>;

struct Value
{
    bool isNull = false;
    bool isArray = false;
    std::vector<Scalar> elements; ///< one, unless it is an array or null

    bool operator==(const Value& other) const
    {
        return isNull == other.isNull && isArray == other.isArray && elements == other.elements;
    }
};

struct NamedValue
{
    std::string name;
    Value value;
};

struct Property : NamedValue
{
    bool isKey = false;
};

struct Instance
{
    std::string className; ///< as delivered
    std::string path;
    std::vector<NamedValue> keys;     ///< of the path, in its order
    std::vector<Property> properties; ///< in the order of the delivery; none where only the name was asked for
};

/// Why a request failed.
struct Failure
{
    std::string code; ///< of the CIM standard, for example "CIM_ERR_INVALID_CLASS"
    std::string text;
};

/// The answer to one request for instances or names: what was delivered, even when a failure came after it.
struct Answer
{
    std::string className; ///< as asked for
    std::vector<Instance> instances;
    std::optional<Failure> failure;
    /// It tells of the machine that was asked: a dump of another one holds nothing of its kernel.
    bool ofAskedMachine = false;
};

/// The answer to a method call; `returnValue` is null when the module did not answer.
struct MethodAnswer
{
    std::string className;
    std::string method;
    std::optional<Value> returnValue;
    std::optional<Failure> failure;
    std::string machine = {}; ///< the one that was called, where there are several
};

}
