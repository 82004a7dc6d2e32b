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
#include <type_traits>
#include <utility>
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
Pegasus::CIMValue numbered(const char* text, const Request& request);

/// Marks a property as a key of its class. The type of a key stands here and is never derived from the value.
struct Key
{
    Pegasus::CIMKeyBinding::Type type;
    const char* name = nullptr; ///< in the path, where it is written otherwise than the property's
};

constexpr Key TextKey{Pegasus::CIMKeyBinding::STRING};
constexpr Key NumberKey{Pegasus::CIMKeyBinding::NUMERIC};

/// What a property has in common in all instances of its class. It is made once, and read by all threads.
struct Property
{
    Pegasus::CIMName name;
    Pegasus::CIMValue literal; ///< null where each record has a value of its own
    std::optional<Key> key;
};

/// A property of a class: its name, where its value comes from, and whether it is a key.
template <class Record> struct Row : Property
{
    /// Gives the value; null leaves the property out.
    using Rule = std::function<Pegasus::CIMValue(const Record&, const Request&)>;

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
    /// The value that a getter of the record, or of its base, returns.
    template <class Value, class Base>
    Row(const char* property, Value (Base::*getter)() const, std::optional<Key> keyed = {})
        : Row(
              property, [getter](const Record& record, const Request&) { return cimValue((record.*getter)()); }, keyed)
    {
    }
    Row(const char* property, Rule valueOf, std::optional<Key> keyed = {})
        : Property{property, Pegasus::CIMValue(), keyed}, rule(std::move(valueOf))
    {
    }

    Rule rule; ///< none where the value is a literal
};

/// One instance in the making. Its path has no host and no namespace.
class InstanceAssembly
{
public:
    /// `keys` are the class's, in the order of their properties; those of literals have their values already.
    InstanceAssembly(const Pegasus::CIMName& className, const Pegasus::Array<Pegasus::CIMKeyBinding>& keys);

    void add(const Property& property, const Pegasus::CIMValue& value);
    void deliver(Pegasus::InstanceResponseHandler& handler);

private:
    const Pegasus::CIMName _none;
    Pegasus::CIMInstance _instance;
    Pegasus::Array<Pegasus::CIMKeyBinding> _keys;
    Pegasus::Uint32 _nextKey = 0;
};

/// The key that such a property makes. It has its value already where that is a literal.
Pegasus::CIMKeyBinding keyOf(const Property& property);

/// A class as it is published: its properties in their order.
template <class Record> class PropertyTable
{
public:
    PropertyTable(std::initializer_list<Row<Record>> rows) : _rows(rows)
    {
        for (const Row<Record>& row : _rows)
            if (row.key)
                _keys.append(keyOf(row));
    }

    /// Builds the record's instance, row by row, and hands it to the client.
    void deliver(const Record& record, const Request& request, Pegasus::InstanceResponseHandler& handler) const
    {
        InstanceAssembly instance(request.className, _keys);
        for (const Row<Record>& row : _rows) {
            if (!row.rule)
                instance.add(row, row.literal);
            else if (const Pegasus::CIMValue value = row.rule(record, request); !value.isNull())
                instance.add(row, value);
        }
        instance.deliver(handler);
    }

    /// The same for each record, in their order.
    void deliverEach(const std::vector<Record>& records, const Pegasus::String& requestedClass,
                     Pegasus::InstanceResponseHandler& handler) const
    {
        Request request(requestedClass);
        for (const Record& record : records) {
            deliver(record, request, handler);
            ++request.index;
        }
    }

private:
    std::vector<Row<Record>> _rows;
    Pegasus::Array<Pegasus::CIMKeyBinding> _keys;
};

}
