#include "tools/program/Output.h"

#include "tools/formats/Printable.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <sstream>

namespace VQ::Tool
{

void complain(const std::string& lines)
{
    std::istringstream in(lines);
    for (std::string line; std::getline(in, line);)
        std::fprintf(stderr, "%s: %s\n", ProgramName, printable(line).c_str());
}

int print(const std::string& output, int code)
{
    const bool written = std::fwrite(output.data(), 1, output.size(), stdout) == output.size();
    if (written && std::fflush(stdout) == 0)
        return code;
    complain("cannot write to standard output: " + std::string(std::strerror(errno)));
    return RequestFailed;
}

}
