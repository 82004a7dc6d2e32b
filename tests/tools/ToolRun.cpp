#include "tests/tools/ToolRun.h"

#include "tests/testing/Process.h"
#include "tests/testing/ServedTable.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <linux/capability.h>
#include <sstream>
#include <stdexcept>
#include <sys/prctl.h>

namespace
{
std::string contentOf(const std::string& file)
{
    std::ifstream in(file, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

// What this program starts from here on has these rights no more, whatever it runs as.
void dropRights()
{
    prctl(PR_CAPBSET_DROP, CAP_SYS_BOOT); // beside the guard: no mistake here may stop the machine
    prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE);
    prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH);
}

// `prepared`: commands of the shell before the tool; `redirected`: where its output goes.
ToolRun runPrepared(const std::string& prepared, const std::vector<std::string>& arguments,
                    const std::string& redirected = "")
{
    dropRights();
    std::vector<std::string> words = {VQ_TOOL};
    words.insert(words.end(), arguments.begin(), arguments.end());
    const TemporaryFile errors;
    const Outcome outcome =
        run(prepared + "exec " + shellLine(words) + " " + redirected + " 2>" + shellLine({errors.name()}));
    return {outcome.exitCode, outcome.output, errors.text(), outcome.peakKilobytes};
}
}

ToolRun runTool(const std::vector<std::string>& arguments, const std::map<std::string, std::string>& environment)
{
    std::string variables;
    for (const auto& [name, value] : environment)
        variables += "export " + name + "=" + shellLine({value}) + "; ";
    return runPrepared(variables, arguments);
}

ToolRun runToolIn(const std::string& directory, const std::vector<std::string>& arguments)
{
    return runPrepared("cd " + shellLine({directory}) + " && ", arguments);
}

ToolRun runToolInto(const std::string& file, const std::vector<std::string>& arguments)
{
    return runPrepared("", arguments, ">" + shellLine({file}));
}

ToolRun runToolIntoBrokenPipe(const std::vector<std::string>& arguments)
{
    const TemporaryDirectory directory;
    const std::string pipe = shellLine({directory.name() + "/pipe"});
    // Opened for both ways, a pipe has a reader, so that the writer's opening does not wait for one.
    return runPrepared("mkfifo " + pipe + " && exec 3<>" + pipe + " 4>" + pipe + " 3>&- && ", arguments, ">&4 4>&-");
}

std::map<std::string, std::string> powerGuard(const std::string& logFile)
{
    // The sanitizers' runtime would otherwise insist on being the first library.
    return {{"LD_PRELOAD", VQ_POWER_GUARD}, {"VQ_POWER_LOG", logFile}, {"ASAN_OPTIONS", "verify_asan_link_order=0"}};
}

TemporaryDirectory::TemporaryDirectory() : _name(testing::TempDir() + "vq-tool-XXXXXX")
{
    if (!mkdtemp(_name.data()))
        throw std::runtime_error("cannot create " + _name);
}

TemporaryDirectory::~TemporaryDirectory()
{
    std::filesystem::remove_all(_name);
}

TemporaryFile::TemporaryFile(const std::vector<unsigned char>& bytes) : _name(writeTemporaryFile(bytes)) {}

TemporaryFile::TemporaryFile(const std::string& text)
    : TemporaryFile(std::vector<unsigned char>(text.begin(), text.end()))
{
}

TemporaryFile::TemporaryFile(const TableBuilder& table) : TemporaryFile(table.dump()) {}

TemporaryFile::~TemporaryFile()
{
    std::remove(_name.c_str());
}

std::string TemporaryFile::text() const
{
    return contentOf(_name);
}
