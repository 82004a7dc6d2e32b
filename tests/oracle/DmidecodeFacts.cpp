#include "tests/oracle/Facts.h"

#include "tests/oracle/Dmidecode.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <regex>
#include <sstream>

using Structures = std::vector<DmidecodeStructure>;

namespace
{
constexpr const char* NoDate = "**************.******+000";

// A text of the table. dmidecode says so where a structure names no string or one that it does not have, and prints no
// line where the structure is too short for the field; all three are an empty text here.
std::string textOrEmpty(const std::string& printed)
{
    return printed == "Not Specified" || printed == "<BAD INDEX>" ? "" : printed;
}

std::string field(const DmidecodeStructure& structure, const char* key)
{
    const DmidecodeStructure::Line* line = structure.find(key);
    return line ? textOrEmpty(line->value) : "";
}

// A text of the first structure of a type; empty without one.
std::string firstField(const Structures& structures, const char* key)
{
    return structures.empty() ? "" : field(structures[0], key);
}

// What dmidecode prints for a code; a field that the structure is too short for reads as code 0.
std::string codeText(const DmidecodeStructure& structure, const char* key, const std::string& textOf0 = "0")
{
    const DmidecodeStructure::Line* line = structure.find(key);
    return line ? line->value : textOf0;
}

std::string element(const std::string& name, std::size_t index)
{
    return name + "[" + std::to_string(index) + "]";
}

std::string trimmed(const std::string& text)
{
    return std::regex_replace(text, std::regex("^ *([^ ].*?) *$"), "$1");
}

// `Server -[8837ABC-1.0]-`: the text without the block, the block's text, and that text's halves: what stands before
// its first dash, and after it as many characters as the first half has, less one.
struct Architected
{
    std::string rest;
    std::string block;
    std::string buildNumber;
    std::string version;
};

Architected splitArchitected(const std::string& text)
{
    static const std::regex Block("^(.*?)-\\[(.*?)\\]-(.*)$");
    std::smatch parts;
    if (!std::regex_match(text, parts, Block))
        return {text, "", "", ""};
    Architected split{parts[1].str() + parts[3].str(), parts[2], "", ""};
    const std::size_t dash = split.block.find('-');
    split.buildNumber = trimmed(split.block.substr(0, dash));
    if (dash != std::string::npos && dash > 0) {
        std::string version = split.block.substr(dash + 1, dash - 1);
        version.erase(std::remove(version.begin(), version.end(), '-'), version.end());
        split.version = trimmed(version);
    }
    return split;
}

// The whole text is both version and build number, unless it holds a block; a block without a dash is both.
void addVersion(Facts& facts, const std::string& printed)
{
    const Architected split = splitArchitected(printed);
    const std::string& whole = split.block.empty() ? split.rest : split.block;
    const bool halves = split.block.find('-') != std::string::npos;
    facts["BIOS.BuildNumber"] = halves ? split.buildNumber : whole;
    facts["BIOS.Version"] = halves ? split.version : whole;
}

// mm/dd/yyyy or mm/dd/yy, where years before 70 are those of this century. Time and offset are 0.
std::string dateText(const std::string& printed)
{
    int month = 0;
    int day = 0;
    int year = 0;
    char slash = 0;
    if (!(std::istringstream(printed) >> month >> slash >> day >> slash >> year))
        return NoDate;
    if (year < 100)
        year += year < 70 ? 2000 : 1900;
    char text[64];
    std::snprintf(text, sizeof text, "%04d%02d%02d000000.000000+000", year, month, day);
    return text;
}

// dmidecode prints an address, and the size from there to the end of the first MB; the published start is the
// address's segment and the published end is segment plus size. It prints neither for segment 0.
void addAddresses(Facts& facts, const DmidecodeStructure& bios)
{
    unsigned long segment = 0;
    unsigned long size = 0x100000;
    if (const DmidecodeStructure::Line* address = bios.find("Address")) {
        segment = std::strtoul(address->value.c_str(), nullptr, 16) / 16;
        const std::string runtime = field(bios, "Runtime Size");
        size = std::stoul(runtime) * (runtime.find("kB") != std::string::npos ? 1024 : 1);
    }
    facts["BIOS.LoadedStartingAddress"] = std::to_string(segment);
    facts["BIOS.LoadedEndingAddress"] = std::to_string(segment + size);
}

void addLanguages(Facts& facts, const Structures& structures)
{
    std::vector<std::string> languages;
    if (!structures.empty())
        if (const DmidecodeStructure::Line* installable = structures[0].find("Installable Languages"))
            for (const std::string& language : installable->list)
                languages.push_back(textOrEmpty(language));
    facts["BIOS.ListOfLanguages"] = listText(languages);
    facts["BIOS.CurrentLanguage"] = firstField(structures, "Currently Installed Language");
}

// The firmware that OEM strings announce: a block with one of four codes as its third and fourth character.
void addFirmware(Facts& facts, const Structures& structures)
{
    static const std::regex Announced("^..(YT|ET|8T|E2).*$");
    std::size_t count = 0;
    for (const DmidecodeStructure& structure : structures) {
        for (const DmidecodeStructure::Line& line : structure.lines) {
            const Architected split = splitArchitected(line.value);
            if (!std::regex_match(split.block, Announced))
                continue;
            const std::string name = element("Firmware", count++);
            facts[name + ".Name"] = trimmed(split.rest);
            facts[name + ".BuildNumber"] = split.buildNumber;
            facts[name + ".Version"] = split.version;
        }
    }
    facts["Firmware count"] = std::to_string(count);
}

void addBios(Facts& facts, const DmidecodeOutput& output)
{
    const DmidecodeStructure bios = output.ofType(0).empty() ? DmidecodeStructure() : output.ofType(0)[0];
    addVersion(facts, field(bios, "Version"));
    addAddresses(facts, bios);
    facts["BIOS.Manufacturer"] = field(bios, "Vendor");
    facts["BIOS.ReleaseDate"] = dateText(field(bios, "Release Date"));
    facts["BIOS.SerialNumber"] = firstField(output.ofType(1), "Serial Number");
    addLanguages(facts, output.ofType(13));

    std::smatch numbers; // a third number, the revision of a 64-bit entry point, is not published
    std::regex_match(output.version, numbers, std::regex("^([0-9]+)\\.([0-9]+)(\\.[0-9]+)?$"));
    facts["BIOS.SMBIOSMajorVersion"] = numbers[1];
    facts["BIOS.SMBIOSMinorVersion"] = numbers[2];
    facts["BIOS.SMBIOSBIOSVersion"] = numbers[1].str() + "." + numbers[2].str();
    addFirmware(facts, output.ofType(11));
}

// The first enclosure only; there is one instance even without any.
void addChassis(Facts& facts, const Structures& enclosures)
{
    facts["Chassis count"] = "1";
    facts["Chassis[0].Manufacturer"] = firstField(enclosures, "Manufacturer");
    facts["Chassis[0].Version"] = firstField(enclosures, "Version");
    facts["Chassis[0].SerialNumber"] = firstField(enclosures, "Serial Number");
    facts["Chassis[0].asset tag"] = firstField(enclosures, "Asset Tag");
}

// Every board shows the options of all structures together. A board's version is never published where its product can
// be read, and that is always so here.
void addBoards(Facts& facts, const Structures& boards, const Structures& optionStructures)
{
    std::vector<std::string> options;
    for (const DmidecodeStructure& structure : optionStructures)
        for (const DmidecodeStructure::Line& line : structure.lines)
            options.push_back(textOrEmpty(line.value));
    facts["BaseBoard count"] = std::to_string(boards.size());
    for (std::size_t i = 0; i < boards.size(); ++i) {
        const std::string name = element("BaseBoard", i);
        facts[name + ".Manufacturer"] = field(boards[i], "Manufacturer");
        facts[name + ".SerialNumber"] = field(boards[i], "Serial Number");
        facts[name + ".Version"] = "";
        facts[name + ".LocationInChassis"] = field(boards[i], "Location In Chassis");
        facts[name + ".asset tag"] = field(boards[i], "Asset Tag");
        facts[name + ".product"] = field(boards[i], "Product Name");
        facts[name + ".ConfigOptions"] = listText(options);
    }
}

// "192 kB", "12 MB", "2 GB", in kilobytes.
std::string kilobytes(const std::string& printed)
{
    const unsigned long long number = std::stoull(printed);
    const std::string unit = printed.substr(printed.find(' ') + 1);
    const unsigned shift = unit == "kB" ? 0 : unit == "MB" ? 10 : unit == "GB" ? 20 : 64;
    return shift < 64 ? std::to_string(number << shift) : printed;
}

// Levels 1, 2, 3 are published as 3, 4, 5, and all others as 0.
std::string cacheLevel(const std::string& configuration)
{
    const std::size_t at = configuration.find("Level ");
    const int level =
        at == std::string::npos ? 0 : static_cast<int>(std::strtol(configuration.c_str() + at + 6, nullptr, 10));
    return level >= 1 && level <= 3 ? std::to_string(level + 2) : "0";
}

std::string writePolicy(const std::string& mode)
{
    static const std::map<std::string, const char*> Policies = {
        {"Write Through", "4"}, {"Write Back", "3"}, {"Varies With Memory Address", "5"}, {"Unknown", "2"}};
    const auto found = Policies.find(mode);
    return found == Policies.end() ? mode : found->second;
}

// The number of blocks is in units that dmidecode does not print, and is not compared.
void addCaches(Facts& facts, const Structures& caches)
{
    facts["CacheMemory count"] = std::to_string(caches.size());
    for (std::size_t i = 0; i < caches.size(); ++i) {
        const DmidecodeStructure& cache = caches[i];
        const std::string name = element("CacheMemory", i);
        const std::string speed = field(cache, "Speed"); // "Unknown", and no line, for 0
        facts[name + ".Name"] = facts[name + ".Purpose"] = field(cache, "Socket Designation");
        facts[name + ".Level"] = cacheLevel(field(cache, "Configuration"));
        facts[name + ".WritePolicy"] = writePolicy(field(cache, "Operational Mode"));
        facts[name + ".CacheSpeed"] = std::to_string(std::strtol(speed.c_str(), nullptr, 10));
        facts[name + ".MaximumInstallableSize"] = kilobytes(field(cache, "Maximum Size"));
        facts[name + ".InstalledSize"] = kilobytes(field(cache, "Installed Size"));
        facts[name + ".Location"] = codeText(cache, "Location");
        facts[name + ".CacheType"] = codeText(cache, "System Type");
        facts[name + ".Associativity"] = codeText(cache, "Associativity");
        facts[name + ".error correction"] = codeText(cache, "Error Correction Type");
    }
}

// Designators are published without the blanks around them.
void addPorts(Facts& facts, const Structures& ports)
{
    facts["Port count"] = std::to_string(ports.size());
    for (std::size_t i = 0; i < ports.size(); ++i) {
        const std::string name = element("Port", i);
        const std::string external = trimmed(field(ports[i], "External Reference Designator"));
        facts[name + ".Name"] = facts[name + ".ExternalReferenceDesignator"] = external;
        facts[name + ".InternalReferenceDesignator"] = trimmed(field(ports[i], "Internal Reference Designator"));
        facts[name + ".PortType"] = codeText(ports[i], "Port Type", "None");
        facts[name + ".ConnectorType"] = listText({codeText(ports[i], "Internal Connector Type", "None"),
                                                   codeText(ports[i], "External Connector Type", "None")});
    }
}

void addSlots(Facts& facts, const Structures& slots)
{
    facts["Slot count"] = std::to_string(slots.size());
    for (std::size_t i = 0; i < slots.size(); ++i) {
        const std::string name = element("Slot", i);
        facts[name + ".Name"] = facts[name + ".Tag"] = field(slots[i], "Designation");
    }
}

void addComputerSystem(Facts& facts, const Structures& systems)
{
    const Architected product = splitArchitected(firstField(systems, "Product Name"));
    facts["ComputerSystem count"] = "1";
    facts["ComputerSystem[0].Description"] = product.rest;
    facts["ComputerSystem[0].Model"] = product.block;
}
}

Facts dmidecodeFacts(const std::string& dumpFile)
{
    const DmidecodeOutput output = dmidecode(dumpFile);
    Facts facts;
    addBios(facts, output);
    addChassis(facts, output.ofType(3));
    addBoards(facts, output.ofType(2), output.ofType(12));
    addCaches(facts, output.ofType(7));
    addPorts(facts, output.ofType(8));
    addSlots(facts, output.ofType(9));
    addComputerSystem(facts, output.ofType(1));
    return facts;
}
