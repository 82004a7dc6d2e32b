#include "tests/oracle/Dmidecode.h"

#include <cstdio>
#include <sstream>
#include <stdexcept>

namespace
{
struct Answer
{
    std::string output;
    int status;
};

// The program lies in a folder of the administrator's commands, which a user's PATH may lack.
Answer run(const std::string& arguments)
{
    const std::string command = "PATH=$PATH:/usr/sbin:/sbin LC_ALL=C dmidecode " + arguments + " 2>/dev/null";
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe)
        throw std::runtime_error("cannot start a shell");
    Answer answer;
    char buffer[4096];
    while (const std::size_t size = std::fread(buffer, 1, sizeof buffer, pipe))
        answer.output.append(buffer, size);
    answer.status = pclose(pipe);
    return answer;
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
    return run("--version").status == 0;
}

DmidecodeOutput dmidecode(const std::string& dumpFile)
{
    const Answer answer = run("--from-dump '" + dumpFile + "'");
    if (answer.status != 0)
        throw std::runtime_error("dmidecode fails for " + dumpFile);
    DmidecodeOutput parsed;
    std::istringstream lines(answer.output);
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
