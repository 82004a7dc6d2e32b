#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// How the calls of this program that read files behave, and which there were. They are the C library's own until a
/// test asks for something else; while a Platform lives, it is asked.
class Platform
{
public:
    Platform();
    ~Platform();
    Platform(const Platform&) = delete;
    Platform& operator=(const Platform&) = delete;

    std::size_t largestAnswer = static_cast<std::size_t>(-1); ///< of `read` and `pread`; sysfs gives a page
    bool interrupted = false;                                 ///< every other `read` and `pread` fails with EINTR
    int readError = 0;                                        ///< errno of every `read`
    int preadError = 0;                                       ///< errno of every `pread`
    std::size_t preadErrorFrom = 0;                           ///< but from this offset on only
    int mmapError = 0;                                        ///< errno of every `mmap`
    int interruptedOpens = 0;                                 ///< so many calls of `open` fail with EINTR
    int openError = 0;                                        ///< errno of every `open`
    int fstatError = 0;                                       ///< errno of every `fstat`
    std::uint64_t claimedSize = 0;                            ///< what `fstat` says, where it is not 0

    std::size_t largestRead = 0;     ///< the most that a `read` asked for, in bytes
    std::vector<std::size_t> reads;  ///< the answers of `read`, in bytes
    std::vector<std::size_t> wanted; ///< what each `pread` asked for, in bytes
    std::vector<std::string> opened; ///< files, in order
    int openFlags = 0;               ///< of the last `open`
    std::uint64_t mappedFrom = 0;    ///< where the last `mmap` was to begin
    int mapped = 0;                  ///< how many `mmap` gave that no `munmap` took back
};
