#include "tests/tools/ToolRun.h"

#include "tests/testing/ServedTable.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <linux/capability.h>
#include <sstream>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
std::string contentOf(const std::string& file)
{
    std::ifstream in(file, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

int openForWriting(const std::string& file)
{
    return open(file.c_str(), O_WRONLY | O_CREAT, 0600);
}

int brokenPipe()
{
    int ends[2];
    if (pipe(ends) != 0)
        return -1;
    close(ends[0]);
    return ends[1];
}

[[noreturn]] void become(const std::vector<std::string>& arguments,
                         const std::map<std::string, std::string>& environment, int output, int errors)
{
    for (const auto& [name, value] : environment)
        setenv(name.c_str(), value.c_str(), 1);
    std::string tool = VQ_TOOL;
    std::vector<char*> values = {tool.data()};
    for (const std::string& argument : arguments)
        values.push_back(const_cast<char*>(argument.c_str()));
    values.push_back(nullptr);
    prctl(PR_CAPBSET_DROP, CAP_SYS_BOOT); // beside the guard: no mistake here may stop the machine
    prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE);
    prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH);
    dup2(output, STDOUT_FILENO);
    dup2(errors, STDERR_FILENO);
    execv(tool.c_str(), values.data());
    _exit(127);
}

ToolRun run(const std::vector<std::string>& arguments, const std::map<std::string, std::string>& environment,
            int output, const std::string& directory = ".")
{
    const TemporaryFile errors;
    const int errorsTo = openForWriting(errors.name());
    const pid_t child = fork();
    if (child == 0 && chdir(directory.c_str()) != 0)
        _exit(127);
    if (child == 0)
        become(arguments, environment, output, errorsTo);
    close(output);
    close(errorsTo);
    int status = 0;
    rusage usage{};
    if (child < 0 || wait4(child, &status, 0, &usage) != child)
        throw std::runtime_error("cannot run " VQ_TOOL);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, "", errors.text(), usage.ru_maxrss};
}
}

ToolRun runTool(const std::vector<std::string>& arguments, const std::map<std::string, std::string>& environment)
{
    const TemporaryFile output;
    ToolRun result = run(arguments, environment, openForWriting(output.name()));
    result.output = output.text();
    return result;
}

ToolRun runToolIn(const std::string& directory, const std::vector<std::string>& arguments)
{
    const TemporaryFile output;
    ToolRun result = run(arguments, {}, openForWriting(output.name()), directory);
    result.output = output.text();
    return result;
}

ToolRun runToolInto(const std::string& outputFile, const std::vector<std::string>& arguments)
{
    return run(arguments, {}, outputFile.empty() ? brokenPipe() : openForWriting(outputFile));
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
