#pragma once

#include "tests/testing/TableBuilder.h"

#include <map>
#include <string>
#include <vector>

/// What a run of the tool left behind.
struct ToolRun
{
    int exitCode = -1; ///< -1 when a signal ended it
    std::string output;
    std::string errors;
    long peakKilobytes = 0; ///< of resident memory
};

/// Runs the tool that was built with these arguments, with further variables in its environment, and waits for it. The
/// process has lost root's rights to restart the machine and to read what the file's mode forbids.
ToolRun runTool(const std::vector<std::string>& arguments, const std::map<std::string, std::string>& environment = {});

/// The same for someone who stands in this directory.
ToolRun runToolIn(const std::string& directory, const std::vector<std::string>& arguments);

/// The same with its standard output going to a file ("/dev/full").
ToolRun runToolInto(const std::string& file, const std::vector<std::string>& arguments);

/// The same with its standard output going into a pipe that nobody reads.
ToolRun runToolIntoBrokenPipe(const std::vector<std::string>& arguments);

/// The environment by which a run writes its power actions into a file and does none of them.
std::map<std::string, std::string> powerGuard(const std::string& logFile);

/// A directory below the test's temporary directory, which goes away with the object and all that is in it.
class TemporaryDirectory
{
public:
    TemporaryDirectory();
    ~TemporaryDirectory();
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    const std::string& name() const { return _name; }

private:
    std::string _name;
};

/// A file with this content below the test's temporary directory, which goes away with the object.
class TemporaryFile
{
public:
    explicit TemporaryFile(const std::vector<unsigned char>& bytes = {});
    explicit TemporaryFile(const std::string& text);
    explicit TemporaryFile(const TableBuilder& table);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& name() const { return _name; }
    std::string text() const; ///< what stands in it now

private:
    std::string _name;
};
