#include "support/smbios/File.h"

#include "support/smbios/SmBios.h"
#include "support/smbios/Source.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace VQ
{

namespace
{
constexpr std::size_t PageSize = 4096;

// Memory for the whole file, in one piece, where its size is one that a table can have. A file system that claims more
// is not believed: memory is taken as the bytes come.
std::size_t guessedSize(std::uint64_t claimed)
{
    return claimed <= MaxTableSize ? static_cast<std::size_t>(claimed) : 0;
}

int openForReading(const char* path)
{
    int descriptor = -1;
    do
        // Without waiting: the other end of a pipe may never come.
        descriptor = open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    while (descriptor < 0 && errno == EINTR);
    return descriptor;
}

// Physical memory above the kernel's own mapping can't be read on a 32-bit kernel, but it can be mapped.
bool copyMapped(int descriptor, std::uint64_t offset, Buffer& bytes)
{
    const std::size_t lead = offset % PageSize;
    const std::size_t length = lead + bytes.size();
    void* mapped = mmap(nullptr, length, PROT_READ, MAP_SHARED, descriptor, static_cast<off_t>(offset - lead));
    if (mapped == MAP_FAILED)
        return false;
    std::memcpy(bytes.data(), static_cast<const unsigned char*>(mapped) + lead, bytes.size());
    munmap(mapped, length);
    return true;
}
}

File::File(const std::string& path, const std::string& advice)
    : _path(path), _advice(advice), _descriptor(openForReading(path.c_str())), _error(_descriptor < 0 ? errno : 0)
{
}

File::~File()
{
    if (_descriptor >= 0)
        close(_descriptor);
}

void File::requireRegular(std::size_t largest) const
{
    struct stat status
    {
    };
    if (fstat(_descriptor, &status) != 0)
        fail("cannot look at", errno);
    if (!S_ISREG(status.st_mode))
        throw SmBiosError(_path + ": it must be a regular file");
    if (static_cast<std::uintmax_t>(status.st_size) > largest)
        throw SmBiosError(_path + ": it has " + std::to_string(status.st_size) + " bytes, and no more than " +
                          std::to_string(largest) + " are accepted");
}

std::uint64_t File::size() const
{
    struct stat status
    {
    };
    return fstat(_descriptor, &status) == 0 && status.st_size > 0 ? static_cast<std::uint64_t>(status.st_size) : 0;
}

void File::seek(std::uint64_t offset)
{
    if (lseek(_descriptor, static_cast<off_t>(offset), SEEK_SET) < 0)
        fail("cannot read", errno);
}

Buffer File::readAll(std::size_t most)
{
    Buffer bytes;
    bytes.reserve(std::min(most, guessedSize(size()) + PageSize));
    for (std::size_t used = 0;;) {
        bytes.resize(std::min(most, std::max(bytes.capacity(), used + PageSize)));
        const ssize_t got = read(_descriptor, bytes.data() + used, bytes.size() - used);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            fail("cannot read", errno);
        used += static_cast<std::size_t>(got);
        if (got == 0 || used == most) {
            bytes.resize(used);
            return bytes;
        }
    }
}

Buffer File::readAt(std::uint64_t offset, std::size_t size)
{
    Buffer bytes(size);
    std::size_t used = 0;
    while (used < size) {
        const ssize_t got = pread(_descriptor, bytes.data() + used, size - used, static_cast<off_t>(offset + used));
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0 && errno == EFAULT && copyMapped(_descriptor, offset, bytes))
            return bytes;
        if (got < 0 || (got == 0 && used == 0))
            fail("cannot read", got < 0 ? errno : ENODATA);
        if (got == 0)
            break;
        used += static_cast<std::size_t>(got);
    }
    bytes.resize(used);
    return bytes;
}

void File::fail(const std::string& what, int errorNumber) const
{
    std::string text = what + " " + _path + ": " + std::strerror(errorNumber);
    if (errorNumber == EACCES || errorNumber == EPERM)
        text += " (" + _advice + ")";
    throw SmBiosError(text);
}

}
