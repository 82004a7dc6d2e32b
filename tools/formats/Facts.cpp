#include "tools/formats/Facts.h"

#include "tools/formats/Printable.h"
#include "tools/formats/ValueText.h"
#include "tools/knowledge/Classes.h"

#include <algorithm>
#include <unordered_map>

namespace VQ::Tool
{

namespace
{
struct Column
{
    Fact fact;
    const Value* first = nullptr; ///< of the first instance that has the property
    std::size_t count = 0;        ///< of instances that have it
};

std::vector<std::string> valuesOf(const std::string& className, const std::string& property, const Value& value)
{
    if (value.isNull)
        return {"(null)"};
    if (value.elements.empty())
        return {"(empty list)"};
    std::vector<std::string> values;
    for (const Scalar& element : value.elements)
        values.push_back(valueText(className, property, element, true));
    return values;
}

std::string joined(const std::vector<std::string>& values)
{
    std::string text;
    for (const std::string& value : values)
        text += (text.empty() ? "" : ", ") + value;
    return text;
}

std::vector<Column> columnsOf(const Answer& answer)
{
    std::vector<Column> columns;
    std::unordered_map<std::string, std::size_t> places;
    for (const Instance& instance : answer.instances) {
        for (const Property& property : instance.properties) {
            const auto [place, isNew] = places.emplace(property.name, columns.size());
            if (isNew)
                columns.push_back({{printable(property.name), property.isKey, {}, false}, &property.value, 0});
            Column& column = columns[place->second];
            ++column.count;
            column.fact.differs = column.fact.differs || !(*column.first == property.value);
        }
    }
    return columns;
}
}

Facts factsOf(const Answer& answer)
{
    const std::string className = canonicalClassName(answer.className);
    std::vector<Column> columns = columnsOf(answer);
    std::stable_partition(columns.begin(), columns.end(), [](const Column& column) { return column.fact.isKey; });
    Facts facts;
    std::unordered_map<std::string, std::size_t> places;
    for (Column& column : columns) {
        column.fact.differs = column.fact.differs || column.count != answer.instances.size();
        if (column.fact.differs)
            places.emplace(column.fact.name, places.size());
        else
            column.fact.values = valuesOf(className, column.fact.name, *column.first);
        facts.facts.push_back(std::move(column.fact));
    }
    if (places.empty())
        return facts;
    for (const Instance& instance : answer.instances) {
        std::vector<std::string> line(places.size());
        for (const Property& property : instance.properties) {
            const auto place = places.find(printable(property.name));
            if (place != places.end())
                line[place->second] = joined(valuesOf(className, property.name, property.value));
        }
        facts.instances.push_back(std::move(line));
    }
    return facts;
}

}
