#pragma once

#include "provider/CimValue.h"

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/ResponseHandler.h>
#include <Pegasus/Common/String.h>

#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace VQ
{

/// What a row may ask beside its record.
struct Request
{
    explicit Request(const Pegasus::String& requestedClass) : className(requestedClass) {}

    Pegasus::CIMName className; ///< as the client wrote it
    Pegasus::Uint32 index = 0;  ///< of the record among the request's records
};

/// A name that tells the request's records apart: the text and the record's index in decimal ("Cache0").
std::string numbered(const char* text, const Request& request);

/// Marks a property as a key of its class. The type of a key stands here and is never derived from the value.
struct Key
{
    Pegasus::CIMKeyBinding::Type type;
    const char* name = nullptr; ///< in the path, where it is written otherwise than the property's
};

constexpr Key TextKey{Pegasus::CIMKeyBinding::STRING};
constexpr Key NumberKey{Pegasus::CIMKeyBinding::NUMERIC};

/// What a property has in common in all instances of its class.
struct Property
{
    const char* name;
    Pegasus::CIMValue value; ///< where each record has one of its own, any of the same type
    std::optional<Key> key;
};

/// A property of a class: its name, where its value comes from, and whether it is a key.
template <class Record> struct Row : Property
{
    Row(const char* property, const char* text, std::optional<Key> keyed = {})
        : Row(property, Pegasus::CIMValue(Pegasus::String(text)), keyed)
    {
    }
    Row(const char* property, const Pegasus::String& text, std::optional<Key> keyed = {})
        : Row(property, Pegasus::CIMValue(text), keyed)
    {
    }
    /// A CIMValue and nothing that converts to one, as any pointer does to a Boolean.
    template <class Value, std::enable_if_t<std::is_same_v<Value, Pegasus::CIMValue>, int> = 0>
    Row(const char* property, const Value& value, std::optional<Key> keyed = {}) : Property{property, value, keyed}
    {
    }
    /// What a getter of the record gives, or a function of the record: a value of any type that cimValue() takes. A
    /// std::optional without one leaves the property out.
    template <class Fact, std::enable_if_t<std::is_invocable_v<Fact, const Record&>, int> = 0>
    Row(const char* property, Fact fact, std::optional<Key> keyed = {})
        : Row(
              property, [fact](const Record& record, const Request&) { return std::invoke(fact, record); }, keyed)
    {
    }
    /// The same of a function of record and request.
    template <class Fact, std::enable_if_t<std::is_invocable_v<Fact, const Record&, const Request&>, int> = 0>
    Row(const char* property, Fact fact, std::optional<Key> keyed = {})
        : Property{property, anyOf(std::invoke_result_t<Fact, const Record&, const Request&>()), keyed},
          rule([fact](const Record& record, const Request& request) { return cimValue(fact(record, request)); })
    {
    }

    std::function<Pegasus::CIMValue(const Record&, const Request&)> rule; ///< none where the value is a literal

private:
    template <class Value> static Pegasus::CIMValue anyOf(const Value& value) { return cimValue(value); }
    template <class Value> static Pegasus::CIMValue anyOf(const std::optional<Value>&) { return cimValue(Value()); }
};

/// What all instances of a class have in common: a whole instance, of which each of them is a copy. It is made once,
/// and read by all threads.
struct Prototype
{
    explicit Prototype(const Pegasus::String& className) : instance(Pegasus::CIMName(className)) {}

    /// The next property.
    void add(const Property& property, bool literal);

    Pegasus::CIMInstance instance;
    Pegasus::Array<Pegasus::CIMKeyBinding> keys; ///< in the order of their properties
};

/// Makes instances one after the other, each property by property in their order. Their paths have no host and no
/// namespace.
class InstanceAssembly
{
public:
    explicit InstanceAssembly(const Prototype& prototype) : _prototype(prototype), _keys(prototype.keys) {}

    void begin();
    /// Leaves the next property as the prototype has it.
    void keep(const Property& property);
    /// Gives the next property a value, or leaves it out where that is null. A key always has a value.
    void set(const Property& property, const Pegasus::CIMValue& value);
    /// The whole instance, with this class name in its path.
    void deliver(const Pegasus::CIMName& className, Pegasus::InstanceResponseHandler& handler);

private:
    const Prototype& _prototype;
    Pegasus::CIMInstance _instance;
    Pegasus::Array<Pegasus::CIMKeyBinding> _keys; // those of the last instance, which the next one overwrites
    Pegasus::Uint32 _next = 0;
    Pegasus::Uint32 _nextKey = 0;
};

/// A class as it is published: its properties in their order.
template <class Record> class PropertyTable
{
public:
    PropertyTable(const Pegasus::String& className, std::initializer_list<Row<Record>> rows)
        : _rows(rows), _prototype(className)
    {
        for (const Row<Record>& row : _rows)
            _prototype.add(row, !row.rule);
    }

    /// Builds the record's instance, row by row, and hands it to the client.
    void deliver(const Record& record, const Request& request, Pegasus::InstanceResponseHandler& handler) const
    {
        InstanceAssembly assembly(_prototype);
        deliver(assembly, record, request, handler);
    }

    /// The same for each record, in their order.
    void deliverEach(const std::vector<Record>& records, const Pegasus::String& requestedClass,
                     Pegasus::InstanceResponseHandler& handler) const
    {
        InstanceAssembly assembly(_prototype);
        Request request(requestedClass);
        for (const Record& record : records) {
            deliver(assembly, record, request, handler);
            ++request.index;
        }
    }

private:
    void deliver(InstanceAssembly& assembly, const Record& record, const Request& request,
                 Pegasus::InstanceResponseHandler& handler) const
    {
        assembly.begin();
        for (const Row<Record>& row : _rows) {
            if (row.rule)
                assembly.set(row, row.rule(record, request));
            else
                assembly.keep(row);
        }
        assembly.deliver(request.className, handler);
    }

    std::vector<Row<Record>> _rows;
    Prototype _prototype;
};

}
