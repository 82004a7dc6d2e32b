#include "tools/core/Saved.h"

#include "tools/core/Json.h"

#include <algorithm>
#include <map>
#include <stdexcept>
#include <strings.h>

namespace VQ::Tool
{

namespace
{
constexpr const char* FormatName = "systemprovider-inventory";
constexpr int FormatVersion = 1;
constexpr const char* DateTimeType = "datetime";
const char* const SourceNames[] = {"machine", "dump", "server"}; // by Source::Kind

// ---- writing

bool holdsDateTime(const Value& value)
{
    return std::any_of(value.elements.begin(), value.elements.end(),
                       [](const Scalar& element) { return std::holds_alternative<DateTimeText>(element); });
}

Json toJson(const Instance& instance, const std::string& className)
{
    Json json = Json::object();
    if (instance.className != className)
        json["class"] = instance.className;
    json["path"] = instance.path;
    Json keys = Json::object();
    for (const NamedValue& key : instance.keys)
        keys[key.name] = toJson(key.value);
    json["keys"] = std::move(keys);
    if (instance.properties.empty())
        return json;
    Json properties = Json::object();
    for (const Property& property : instance.properties)
        properties[property.name] = toJson(property.value);
    json["properties"] = std::move(properties);
    return json;
}

// What JSON itself does not tell: the properties whose texts are datetimes.
Json typesOf(const Machine& machine)
{
    Json types = Json::object();
    for (const Answer& answer : machine.answers)
        for (const Instance& instance : answer.instances)
            for (const Property& property : instance.properties)
                if (holdsDateTime(property.value))
                    types[answer.className][property.name] = DateTimeType;
    return types;
}

Json failuresOf(const Machine& machine)
{
    Json failures = Json::array();
    for (const Answer& answer : machine.answers)
        if (answer.failure)
            failures.push_back(
                {{"class", answer.className}, {"code", answer.failure->code}, {"text", answer.failure->text}});
    return failures;
}

Json toJson(const Machine& machine)
{
    Json source = {{"kind", SourceNames[machine.source.kind]}};
    if (machine.source.kind != Source::ThisMachine)
        source["place"] = machine.source.place;
    Json classes = Json::object();
    Json ofAsked = Json::array();
    for (const Answer& answer : machine.answers) {
        if (answer.failure && answer.instances.empty())
            continue;
        Json instances = Json::array();
        for (const Instance& instance : answer.instances)
            instances.push_back(toJson(instance, answer.className));
        classes[answer.className] = std::move(instances);
        if (answer.ofAskedMachine)
            ofAsked.push_back(answer.className);
    }
    return {{"name", machine.name},
            {"source", source},
            {"askedMachine", machine.askedMachine},
            {"time", machine.time},
            {"tool", machine.tool},
            {"moduleVersion", machine.moduleVersion.empty() ? Json(nullptr) : Json(machine.moduleVersion)},
            {"notes", machine.notes},
            {"failures", failuresOf(machine)},
            {"ofAskedMachine", ofAsked},
            {"types", typesOf(machine)},
            {"classes", std::move(classes)}};
}

// ---- reading

// A file must not tell how much stack or time it takes: the library copies what is within another value by calling
// itself, and looks at all members of an object before it adds one.
class Limits
{
public:
    bool operator()(int depth, Json::parse_event_t event, const Json&)
    {
        if (depth > Deepest)
            throw std::runtime_error("it is nested deeper than what --format json writes");
        if (event == Json::parse_event_t::object_start)
            _members[depth + 1] = 0;
        if (event == Json::parse_event_t::key && ++_members[depth] > MostMembers)
            throw std::runtime_error("an object in it has more than " + std::to_string(MostMembers) + " members");
        return true;
    }

    static constexpr std::size_t MostMembers = 1000;

private:
    static constexpr int Deepest = 32; // saved answers have 9
    std::size_t _members[Deepest + 2] = {};
};

Scalar toScalar(const Json& json, bool isDateTime)
{
    if (json.is_boolean())
        return json.get<bool>();
    if (json.is_number_unsigned() || (json.is_number_integer() && json == 0)) // also "-0", which has a sign
        return json.get<std::uint64_t>();
    if (json.is_number_integer())
        return json.get<std::int64_t>();
    if (!json.is_string())
        throw std::runtime_error("the value " + json.dump() + " is of no type that a property has");
    if (isDateTime)
        return DateTimeText{json.get<std::string>()};
    return json.get<std::string>();
}

Value toValue(const Json& json, bool isDateTime)
{
    Value value;
    value.isNull = json.is_null();
    value.isArray = json.is_array();
    if (value.isArray)
        for (const Json& element : json)
            value.elements.push_back(toScalar(element, isDateTime));
    else if (!value.isNull)
        value.elements.push_back(toScalar(json, isDateTime));
    return value;
}

using Types = std::map<std::string, std::string>; // of the properties of a class

Instance toInstance(const Json& json, const std::string& className, const Types& types)
{
    Instance instance;
    instance.className = json.value("class", className);
    instance.path = json.at("path");
    for (const auto& [name, value] : json.at("keys").items())
        instance.keys.push_back({name, toValue(value, false)});
    if (!json.contains("properties"))
        return instance;
    for (const auto& [name, value] : json.at("properties").items()) {
        const auto type = types.find(name);
        const bool isKey = std::any_of(instance.keys.begin(), instance.keys.end(), [&name = name](const auto& key) {
            return strcasecmp(key.name.c_str(), name.c_str()) == 0;
        });
        instance.properties.push_back(
            {{name, toValue(value, type != types.end() && type->second == DateTimeType)}, isKey});
    }
    return instance;
}

Source toSource(const Json& json)
{
    const std::string name = json.at("kind");
    const auto found = std::find(std::begin(SourceNames), std::end(SourceNames), name);
    if (found == std::end(SourceNames))
        throw std::runtime_error("the source \"" + name + "\" is not known");
    const auto kind = static_cast<Source::Kind>(found - std::begin(SourceNames));
    return {kind, kind == Source::ThisMachine ? "" : json.value("place", "")};
}

bool hasFailed(const Json& machine, const std::string& className)
{
    const Json& failures = machine.at("failures");
    return std::any_of(failures.begin(), failures.end(),
                       [&className](const Json& failure) { return failure.at("class") == className; });
}

Machine toMachine(const Json& json)
{
    static const Types noTypes;
    Machine machine;
    machine.name = json.at("name");
    machine.source = toSource(json.at("source"));
    machine.askedMachine = json.at("askedMachine");
    machine.time = json.at("time");
    machine.tool = json.at("tool");
    if (!json.at("moduleVersion").is_null())
        machine.moduleVersion = json.at("moduleVersion");
    machine.notes = json.at("notes").get<std::vector<std::string>>();
    const std::vector<std::string> ofAsked = json.at("ofAskedMachine");
    const auto types = json.at("types").get<std::map<std::string, Types>>();
    if (json.at("failures").size() > Limits::MostMembers)
        throw std::runtime_error("a machine in it has more than " + std::to_string(Limits::MostMembers) + " failures");
    for (const auto& [className, instances] : json.at("classes").items()) {
        if (instances.empty() && hasFailed(json, className)) // which is among the failures, and there only
            continue;
        Answer answer{className, {}, {}};
        const auto ofClass = types.find(className);
        const Types& typesOfClass = ofClass == types.end() ? noTypes : ofClass->second;
        for (const Json& instance : instances)
            answer.instances.push_back(toInstance(instance, className, typesOfClass));
        answer.ofAskedMachine = std::find(ofAsked.begin(), ofAsked.end(), className) != ofAsked.end();
        machine.answers.push_back(std::move(answer));
    }
    for (const Json& failed : json.at("failures")) {
        const std::string className = failed.at("class");
        auto answer = std::find_if(machine.answers.begin(), machine.answers.end(),
                                   [&className](const Answer& candidate) { return candidate.className == className; });
        if (answer == machine.answers.end())
            answer = machine.answers.insert(answer, Answer{className, {}, {}});
        answer->failure = Failure{failed.at("code"), failed.at("text")};
    }
    return machine;
}

void requireProperties(const Machine& machine)
{
    for (const Answer& answer : machine.answers)
        for (const Instance& instance : answer.instances)
            if (instance.properties.empty())
                throw std::runtime_error("only the paths of the instances are in it, as `names` writes them; save what "
                                         "the program shows without a command");
}
}

std::string savedMachines(const std::vector<Machine>& machines)
{
    Json all = Json::array();
    for (const Machine& machine : machines)
        all.push_back(toJson(machine));
    return written({{"format", FormatName}, {"version", FormatVersion}, {"machines", std::move(all)}});
}

std::vector<Machine> readMachines(const std::string& document, bool pathsWillDo)
{
    std::vector<Machine> machines;
    try {
        const Json json = Json::parse(document, Limits());
        if (!json.is_object() || json.value("format", "") != FormatName)
            throw std::runtime_error("it is JSON, but not what --format json writes");
        if (json.at("version") != FormatVersion)
            throw std::runtime_error("its form has the version " + json.at("version").dump() +
                                     ", and this program reads version " + std::to_string(FormatVersion) +
                                     "; use a newer program");
        for (const Json& machine : json.at("machines"))
            machines.push_back(toMachine(machine));
    } catch (const Json::parse_error& error) {
        throw std::runtime_error("it is no JSON, or not all of it is there (at byte " + std::to_string(error.byte) +
                                 ")");
    } catch (const Json::exception& error) {
        const std::string what = error.what(); // "[json.exception....] the reason"
        throw std::runtime_error("it does not have the form of saved answers: " + what.substr(what.find("] ") + 2));
    }
    if (!pathsWillDo)
        std::for_each(machines.begin(), machines.end(), requireProperties);
    return machines;
}

}
