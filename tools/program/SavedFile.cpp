#include "tools/program/SavedFile.h"

#include "tools/core/Saved.h"
#include "tools/program/Errors.h"
#include "tools/program/InputFile.h"

#include <iterator>
#include <map>
#include <set>

namespace VQ::Tool
{

std::vector<Machine> readSavedText(const std::string& text, const std::string& file, bool pathsWillDo)
{
    try {
        return readMachines(text, pathsWillDo);
    } catch (const std::runtime_error& error) {
        throw LoadError((file == StandardInput ? "standard input" : file) + " holds no saved answers: " + error.what());
    }
}

std::vector<Machine> readSavedFiles(const std::vector<std::string>& files, bool pathsWillDo)
{
    std::vector<Machine> machines;
    for (const std::string& file : files) {
        std::vector<Machine> some =
            readSavedText(readInput(file, MaxSavedSize, "a file with saved answers"), file, pathsWillDo);
        machines.insert(machines.end(), std::make_move_iterator(some.begin()), std::make_move_iterator(some.end()));
    }
    makeNamesDiffer(machines);
    return machines;
}

void makeNamesDiffer(std::vector<Machine>& machines)
{
    std::map<std::string, unsigned> count;
    for (const Machine& machine : machines)
        ++count[machine.name];
    std::set<std::string> taken;
    std::map<std::string, unsigned> number;
    for (Machine& machine : machines) {
        if (count[machine.name] > 1 && !machine.source.place.empty())
            machine.name += " (" + machine.source.place + ")";
        const std::string name = machine.name;
        while (!taken.insert(machine.name).second) // "web1 #2" may be somebody's own name, too
            machine.name = name + " #" + std::to_string(++number[name] + 1);
    }
}

}
