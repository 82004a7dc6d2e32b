#pragma once

#include "support/smbios/Buffer.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>

namespace VQ
{

/// A file opened for reading.
class File
{
public:
    /// Opens the file; `isOpen` and `error` (an errno value) tell how it went. `advice` goes into the text of an error
    /// that a missing right causes: what would help.
    File(const std::string& path, const std::string& advice);
    ~File();
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    bool isOpen() const { return _descriptor >= 0; }
    int error() const { return _error; }

    /// Throws SmBiosError unless this is a regular file of at most `largest` bytes: a device may never end.
    void requireRegular(std::size_t largest) const;

    /// In bytes, as the file system tells it; 0 when it does not.
    std::uint64_t size() const;

    /// Where readAll reads next. Throws SmBiosError.
    void seek(std::uint64_t offset);

    /// The rest of the file but no more than `most` bytes, however small the answers of `read` are. Throws SmBiosError.
    Buffer readAll(std::size_t most = std::numeric_limits<std::size_t>::max());

    /// Up to `size` bytes from `offset`: fewer where the file ends. Throws SmBiosError when one of them can't be read,
    /// and when the file ends before the first.
    Buffer readAt(std::uint64_t offset, std::size_t size);

    /// Throws an SmBiosError about this file with the text of an errno value.
    [[noreturn]] void fail(const std::string& what, int errorNumber) const;

private:
    std::string _path;
    std::string _advice;
    int _descriptor;
    int _error;
};

}
