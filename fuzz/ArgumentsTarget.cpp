// Any command line: it is understood, or refused with a text, and never stops the machine without being told so twice.

#include "fuzz/Require.h"
#include "tools/knowledge/Methods.h"
#include "tools/vqinventory/Arguments.h"

#include <algorithm>
#include <string>
#include <vector>

using namespace VQ::Tool;

namespace
{
constexpr std::size_t MostArguments = 16;

// The arguments, one on each line.
std::vector<std::string> argumentsOf(const unsigned char* data, std::size_t size)
{
    std::vector<std::string> arguments = {"vqinventory", ""};
    for (std::size_t i = 0; i < size && arguments.size() < MostArguments; ++i)
        if (data[i] == '\n')
            arguments.emplace_back();
        else if (data[i] != 0)
            arguments.back() += static_cast<char>(data[i]);
    if (arguments.back().empty())
        arguments.pop_back();
    return arguments;
}
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const std::vector<std::string> arguments = argumentsOf(data, size);
    std::vector<const char*> values;
    for (const std::string& argument : arguments)
        values.push_back(argument.c_str());
    try {
        const Arguments parsed = parseArguments(static_cast<int>(values.size()), values.data());
        require(parsed.format != nullptr, "there is a format");
        const bool stops = parsed.command == Command::Invoke && findPowerMethod(parsed.method);
        require(!stops || std::any_of(arguments.begin(), arguments.end(),
                                      [](const std::string& text) { return text.rfind("--yes", 0) == 0; }),
                "nothing stops the machine without --yes");
    } catch (const UsageError& error) {
        require(*error.what() != '\0', "a refusal has a text");
    }
    return 0;
}
