#include "tests/failure/Documented.h"

#include <algorithm>
#include <cstring>

namespace
{
struct Fact
{
    const char* line; ///< as propertyLines and keyLines show it
    Call call;        ///< what tells it
};

// A line for each fact, with the value that it has where the call fails.
const Fact Facts[] = {
    {"Version | string | ", Call::Uname},
    {"Name | string | ", Call::Uname},
    {"key Name | STRING | ", Call::Uname},
    {"CSName | string | ", Call::Uname},
    {"key CSName | STRING | ", Call::Uname},
    {"SystemName | string | ", Call::Uname},
    {"key SystemName | STRING | ", Call::Uname},
    {"FreePhysicalMemory | uint64 | 0", Call::Sysinfo},
    {"NumberOfProcesses | uint32 | 0", Call::Sysinfo},
    {"TotalSwapSpaceSize | uint64 | 0", Call::Sysinfo},
    {"LastBootUpTime | datetime | 20231114221320.000000+000", Call::Sysinfo}, // now: up for no time
    {"ConsumableBlocks | uint64 | 0", Call::Sysinfo},
    {"NumberOfBlocks | uint64 | 0", Call::Sysinfo},
    {"EndingAddress | uint64 | 0", Call::Sysinfo},
    {"VirtualType | uint16 | 1", Call::Dlopen},
    {"VirtualizationMethodName | string | ", Call::Dlopen},
};

bool isFactOf(Call call, const std::string& line)
{
    return std::any_of(std::begin(Facts), std::end(Facts),
                       [&](const Fact& fact) { return fact.call == call && line == fact.line; });
}

bool isEmptyTextOfABoard(const std::string& line)
{
    static const char* const empty[] = {"Manufacturer | string | ", "SerialNumber | string | ", "Version | string | ",
                                        "LocationInChassis | string | "};
    return std::find(std::begin(empty), std::end(empty), line) != std::end(empty);
}

template <class Test> bool sameBut(const Lines& answer, const Lines& expected, const Test& isMeant)
{
    return answer.size() == expected.size() &&
           std::equal(answer.begin(), answer.end(), expected.begin(),
                      [&](const std::string& got, const std::string& wanted) { return got == wanted || isMeant(got); });
}

bool beginsOne(const std::string& line)
{
    return line == "instance" || line == "path";
}
}

bool isCompleted(const Lines& answer)
{
    return std::find(answer.begin(), answer.end(), "complete") != answer.end();
}

Lines withoutTheFirst(const Lines& answer)
{
    const auto first = std::find_if(answer.begin(), answer.end(), beginsOne);
    if (first == answer.end())
        return answer;
    Lines rest(answer.begin(), first);
    rest.insert(rest.end(), std::find_if(first + 1, answer.end(), beginsOne), answer.end());
    return rest;
}

bool isDocumentedLess(const Lines& answer, const Lines& expected, const char* className)
{
    if (std::strcmp(className, "QORTAL_BIOS") == 0)
        return answer == withoutTheFirst(expected);
    return std::strcmp(className, "QORTAL_BaseBoard") == 0 && sameBut(answer, expected, isEmptyTextOfABoard);
}

bool isWithoutWhatTheCallTells(Call call, const Lines& answer, const Lines& expected)
{
    return sameBut(answer, expected, [call](const std::string& line) { return isFactOf(call, line); });
}
