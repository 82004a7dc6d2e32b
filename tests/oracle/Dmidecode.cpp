#include "tests/oracle/Dmidecode.h"

#include "tests/testing/Process.h"

#include <sstream>
#include <stdexcept>

namespace
{
// The program lies in a folder of the administrator's commands, which a user's PATH may lack.
Outcome runDmidecode(const std::string& arguments)
{
    return run("PATH=$PATH:/usr/sbin:/sbin LC_ALL=C dmidecode " + arguments + " 2>/dev/null");
}

std::string outputOver(const std::string& dumpFile, const std::string& options)
{
    const Outcome outcome = runDmidecode(options + "--from-dump '" + dumpFile + "'");
    if (outcome.exitCode != 0)
        throw std::runtime_error("dmidecode fails for " + dumpFile);
    return outcome.output;
}

// Takes the rows of hexadecimal bytes of one string: up to the row that its final zero ends. The row after them shows
// the same string with its unprintable bytes rewritten, which is left out.
std::string takeString(std::istream& lines, std::string line)
{
    std::string bytes = line.substr(2);
    while (bytes.substr(bytes.size() - 2) != "00" && std::getline(lines, line))
        bytes += " " + line.substr(2);
    std::getline(lines, line);
    return bytes;
}

bool beginsWith(const std::string& text, const char* begin)
{
    return text.rfind(begin, 0) == 0;
}

DmidecodeStructure::Line parseLine(const std::string& line)
{
    const std::size_t colon = line.find(':');
    if (colon == std::string::npos)
        return {line, "", {}};
    return {line.substr(0, colon), colon + 2 <= line.size() ? line.substr(colon + 2) : "", {}};
}
}

const DmidecodeStructure::Line* DmidecodeStructure::find(const std::string& key) const
{
    for (const Line& line : lines)
        if (line.key == key)
            return &line;
    return nullptr;
}

std::vector<DmidecodeStructure> DmidecodeOutput::ofType(int type) const
{
    std::vector<DmidecodeStructure> found;
    for (const DmidecodeStructure& structure : structures)
        if (structure.type == type)
            found.push_back(structure);
    return found;
}

bool haveDmidecode()
{
    return runDmidecode("--version").exitCode == 0;
}

DmidecodeOutput dmidecode(const std::string& dumpFile)
{
    DmidecodeOutput parsed;
    std::istringstream lines(outputOver(dumpFile, ""));
    for (std::string line; std::getline(lines, line);) {
        if (beginsWith(line, "SMBIOS "))
            parsed.version = line.substr(7, line.find(' ', 7) - 7);
        else if (beginsWith(line, "Handle 0x"))
            parsed.structures.push_back({std::stoi(line.substr(line.find("DMI type ") + 9)), {}});
        else if (beginsWith(line, "\t\t"))
            parsed.structures.back().lines.back().list.push_back(line.substr(2));
        else if (beginsWith(line, "\t"))
            parsed.structures.back().lines.push_back(parseLine(line.substr(1)));
    }
    return parsed;
}

std::vector<DmidecodeBytes> dmidecodeBytes(const std::string& dumpFile)
{
    std::istringstream lines(outputOver(dumpFile, "--dump "));
    std::vector<DmidecodeBytes> structures;
    bool inStrings = false;
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind("Handle ", 0) == 0) {
            structures.push_back({line, ""});
            inStrings = false;
        } else if (line == "\tStrings:") {
            inStrings = true;
        } else if (line.rfind("\t\t", 0) == 0 && inStrings) {
            structures.back().push_back(takeString(lines, line));
        } else if (line.rfind("\t\t", 0) == 0) {
            std::string& formatted = structures.back()[1];
            formatted += (formatted.empty() ? "" : " ") + line.substr(2);
        }
    }
    return structures;
}
