#pragma once

#include <cstdint>
#include <string>

namespace VQ::Load
{

/// A dump, copied to a file of memory that nobody else has: what is checked is what the module reads.
class DumpCopy
{
public:
    /// Copies the file. Throws SmBiosError where it can't be read, is not a regular file or longer than a dump can be,
    /// and Failure.
    explicit DumpCopy(const std::string& file);
    ~DumpCopy();
    DumpCopy(const DumpCopy&) = delete;
    DumpCopy& operator=(const DumpCopy&) = delete;

    const std::string& file() const { return _file; } ///< that was copied
    const std::string& path() const { return _path; } ///< by which this process opens the copy

    /// An error's text, with the name of the file in place of the copy's.
    std::string named(std::string text) const;

private:
    std::string _file;
    int _descriptor;
    std::string _path;
};

/// Upper bounds of what the accessors write, in bytes.
struct Bounds
{
    std::uint64_t text = 0;    ///< one text that is not of the environment, or the packed list of languages
    std::uint64_t options = 0; ///< the packed list of configuration options
};

/// Reads the table of the machine, or of the dump where there is one, by the code that the module reads it with. Throws
/// SmBiosError where it can't be read, and Failure where the module would never come to the end of it.
Bounds checkTable(const DumpCopy* dump);

}
