#include "tests/server/Clients.h"

#include <cstdlib>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>
#include <stdexcept>

namespace
{
std::string outputOf(const std::vector<std::string>& command)
{
    Outcome answer = runProgram(command);
    if (answer.exitCode != 0)
        throw std::runtime_error(command.front() + " ended with " + std::to_string(answer.exitCode) + ": " +
                                 answer.output);
    return answer.output;
}

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> result;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        if (!line.empty())
            result.push_back(line);
    return result;
}

bool startsWith(const std::string& text, const std::string& start)
{
    return text.compare(0, start.size(), start) == 0;
}

// ---- vqinventory

nlohmann::ordered_json inventory(const std::vector<std::string>& arguments)
{
    std::vector<std::string> command = {setting("VQ_TOOL"), "--from-dump", setting("VQ_TEST_DUMP"), "--format", "json"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return nlohmann::ordered_json::parse(outputOf(command)).at("machines").at(0).at("classes");
}

std::string textOf(const nlohmann::ordered_json& value)
{
    if (value.is_boolean())
        return value.get<bool>() ? "TRUE" : "FALSE";
    return value.is_string() ? value.get<std::string>() : value.dump();
}

// ---- the XML that cimcli shows

// Text between `open` and `close`, from `position` on, which is moved behind it.
std::string between(const std::string& xml, const std::string& open, const std::string& close, std::size_t& position)
{
    const std::size_t begin = xml.find(open, position);
    const std::size_t end = begin == std::string::npos ? begin : xml.find(close, begin + open.size());
    if (end == std::string::npos)
        throw std::runtime_error("no " + open + " in the answer: " + xml);
    position = end + close.size();
    return xml.substr(begin + open.size(), end - begin - open.size());
}

// The five entities of XML that have a name; empty for another name.
std::string namedEntity(const std::string& name)
{
    static const std::map<std::string, std::string> entities = {
        {"lt", "<"}, {"gt", ">"}, {"amp", "&"}, {"quot", "\""}, {"apos", "'"}};
    const auto found = entities.find(name);
    return found == entities.end() ? "" : found->second;
}

enum class Entities
{
    All,
    NumberedOnly
};

std::string withoutEntities(const std::string& xml, Entities which)
{
    std::string text;
    for (std::size_t i = 0; i < xml.size(); ++i) {
        const std::size_t end = xml[i] == '&' ? xml.find(';', i) : std::string::npos;
        const std::string name = end == std::string::npos ? "" : xml.substr(i + 1, end - i - 1);
        std::string meant;
        if (startsWith(name, "#"))
            meant = static_cast<char>(std::stoi(name.substr(1)));
        else if (which == Entities::All)
            meant = namedEntity(name);
        text += meant.empty() ? std::string(1, xml[i]) : meant;
        i = meant.empty() ? i : end;
    }
    return text;
}

std::vector<Property> propertiesOf(const std::string& instance)
{
    std::vector<Property> properties;
    std::size_t position = 0;
    while (instance.find("<PROPERTY", position) != std::string::npos) {
        const std::string element = between(instance, "<PROPERTY", "</PROPERTY", position);
        std::size_t inside = 0;
        Property property;
        property.name = between(element, "NAME=\"", "\"", inside);
        while (element.find("<VALUE>", inside) != std::string::npos)
            property.values.push_back(withoutEntities(between(element, "<VALUE>", "</VALUE>", inside), Entities::All));
        properties.push_back(property);
    }
    return properties;
}

std::vector<Instance> instancesOf(const std::string& xml)
{
    std::vector<Instance> instances;
    std::size_t position = 0;
    while (xml.find("path= ", position) != std::string::npos) {
        Instance instance;
        instance.path = between(xml, "path= ", "\n", position);
        instance.properties = propertiesOf(between(xml, "<INSTANCE ", "</INSTANCE>", position));
        instances.push_back(instance);
    }
    return instances;
}

// ---- the lines that wbemcli shows

std::string wbemAddress()
{
    return "localhost:" + setting("VQ_PORT") + "/root/cimv2:";
}

std::string withoutAddress(const std::string& path)
{
    if (!startsWith(path, wbemAddress()))
        throw std::runtime_error("not an object of this server: " + path);
    return withoutEntities(path.substr(wbemAddress().size()), Entities::NumberedOnly);
}

// What stands between the quotes: quotes and backslashes have a backslash before them, and the entities of XML that
// have no name are left as they came.
std::string wbemText(const std::string& quoted)
{
    std::string text;
    for (std::size_t i = 0; i < quoted.size(); ++i)
        text += quoted[i] == '\\' && i + 1 < quoted.size() ? quoted[++i] : quoted[i];
    return withoutEntities(text, Entities::NumberedOnly);
}

// `"a","b"`, `"a"`, `0,8` or `12`.
std::vector<std::string> wbemValues(const std::string& text)
{
    const bool quoted = startsWith(text, "\"");
    const std::string separator = quoted ? "\",\"" : ",";
    std::string rest = quoted ? text.substr(1, text.rfind('"') - 1) : text;
    std::vector<std::string> values;
    for (std::size_t end = rest.find(separator); end != std::string::npos; end = rest.find(separator)) {
        values.push_back(wbemText(rest.substr(0, end)));
        rest.erase(0, end + separator.size());
    }
    values.push_back(wbemText(rest));
    return values;
}

std::vector<Instance> wbemInstances(const std::string& output)
{
    std::vector<Instance> instances;
    for (const std::string& line : linesOf(output)) {
        if (!startsWith(line, "-")) {
            instances.push_back({withoutAddress(line), {}});
            continue;
        }
        const std::size_t equals = line.find('=');
        instances.at(instances.size() - 1)
            .properties.push_back({line.substr(1, equals - 1), wbemValues(line.substr(equals + 1))});
    }
    return instances;
}

std::vector<std::string> wbemPathLines(const std::string& className)
{
    return linesOf(outputOf({"wbemcli", "-nl", "ein", "http://" + wbemAddress() + className}));
}
}

const std::vector<std::string> ServedClasses = {
    "QORTAL_BIOS", "QORTAL_Chassis",        "QORTAL_BaseBoard",       "QORTAL_CacheMemory", "QORTAL_Port",
    "QORTAL_Slot", "QORTAL_ComputerSystem", "QORTAL_OperatingSystem", "QORx_SystemMemory"};

std::string shown(const std::vector<Instance>& instances)
{
    std::string text;
    for (const Instance& instance : instances) {
        text += instance.path + "\n";
        for (const Property& property : instance.properties) {
            text += "    " + property.name;
            for (const std::string& value : property.values)
                text += " | " + value;
            text += "\n";
        }
    }
    return text;
}

Outcome runProgram(const std::vector<std::string>& command)
{
    return run("exec " + shellLine(command) + " 2>&1");
}

std::string setting(const char* name)
{
    const char* const value = std::getenv(name);
    if (value == nullptr)
        throw std::runtime_error(std::string(name) + " is not set: this program is run by tests/server/serve");
    return value;
}

std::vector<Instance> expectedInstances(const std::string& className)
{
    std::vector<Instance> instances;
    const auto inventoried = inventory({className});
    for (const auto& shown : inventoried.at(className)) {
        Instance instance;
        instance.path = shown.at("path");
        for (const auto& [name, value] : shown.at("properties").items()) {
            Property property{name, {}};
            if (value.is_array())
                for (const auto& element : value)
                    property.values.push_back(textOf(element));
            else
                property.values = {textOf(value)};
            instance.properties.push_back(property);
        }
        instances.push_back(instance);
    }
    return instances;
}

std::vector<std::string> expectedPaths(const std::string& className)
{
    std::vector<std::string> paths;
    const auto inventoried = inventory({"names", className});
    for (const auto& instance : inventoried.at(className))
        paths.push_back(instance.at("path"));
    return paths;
}

Outcome CimCli::ask(std::vector<std::string> command)
{
    command.insert(command.begin(), {"cimcli", "-l", "localhost:" + setting("VQ_PORT")});
    return runProgram(command);
}

std::vector<Instance> CimCli::instances(const std::string& className)
{
    return instancesOf(outputOf({"cimcli", "-l", "localhost:" + setting("VQ_PORT"), "-x", "ei", className}));
}

std::vector<std::string> CimCli::paths(const std::string& className)
{
    return linesOf(outputOf({"cimcli", "-l", "localhost:" + setting("VQ_PORT"), "ni", className}));
}

std::vector<Instance> CimCli::get(const std::string& path)
{
    // The answer to this request has no path; the program shows the class alone.
    std::vector<Instance> instances =
        instancesOf(outputOf({"cimcli", "-l", "localhost:" + setting("VQ_PORT"), "-x", "gi", path}));
    for (Instance& instance : instances)
        instance.path = path;
    return instances;
}

Outcome WbemCli::ask(const std::string& operation, const std::string& object, const std::vector<std::string>& further)
{
    std::vector<std::string> command = {"wbemcli", "-nl", operation, "http://" + wbemAddress() + object};
    command.insert(command.end(), further.begin(), further.end());
    return runProgram(command);
}

std::vector<Instance> WbemCli::instances(const std::string& className)
{
    return wbemInstances(outputOf({"wbemcli", "-nl", "ei", "http://" + wbemAddress() + className}));
}

std::vector<std::string> WbemCli::paths(const std::string& className)
{
    std::vector<std::string> paths;
    for (const std::string& line : wbemPathLines(className))
        paths.push_back(withoutAddress(line));
    return paths;
}

std::vector<Instance> WbemCli::get(const std::string& path)
{
    // The program puts a path into its request as it is, so it must be written as the program itself shows it: blanks
    // at the ends of a key's text as entities.
    for (const std::string& line : wbemPathLines(path.substr(0, path.find('.')))) {
        if (withoutAddress(line) != path)
            continue;
        std::vector<Instance> instances = wbemInstances(outputOf({"wbemcli", "-nl", "gi", "http://" + line}));
        for (Instance& instance : instances)
            instance.path = path; // shown is the path as it was sent
        return instances;
    }
    throw std::runtime_error("wbemcli does not show " + path);
}
