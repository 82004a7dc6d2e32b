#pragma once

#include <cstdint>
#include <string>

namespace VQ::Tool
{

constexpr const char* StandardInput = "-"; ///< as a file's name

/// The full path of a file that the command line names; an empty name and that of standard input stay. Throws LoadError
/// where the working directory is gone, so that nobody can tell which file a relative name means.
std::string fullPath(const std::string& file);

/// The full path of a file without a link on its way, where the file is there. The loader searches for a library's own
/// libraries beside it, and beside a link to it anything may lie.
std::string realPath(const std::string& file);

/// What stands in the file, or is read from standard input, unpacked where it is a gzip file. Throws LoadError where
/// that is more than `largest` bytes, packed or not, or can't be read; `form` says what the file should be ("an SMBIOS
/// dump").
std::string readInput(const std::string& file, std::uintmax_t largest, const char* form);

/// The name that a machine has from its file: `web1` for `/tmp/web1.bin.gz`.
std::string machineNameOf(const std::string& file);

/// Empty where the file is a regular one of at most `largest` bytes, or where it can't be looked at, which whoever
/// opens it reports. Otherwise what is wrong with it: a device never ends, and a pipe has nothing to give.
std::string unfitReason(const std::string& file, std::uintmax_t largest);

}
