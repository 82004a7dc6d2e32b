#pragma once

/// What can be made to fail in this process. The calls are those of the module and its libraries: the program's own
/// definitions take the place of the C library's.
enum class Call
{
    Allocation, ///< malloc, calloc, realloc, aligned_alloc, and so operator new; of the loader, too
    Open,
    Stat,
    Fstat,
    Read,
    Pread,
    Mmap,
    Uname,
    Sysinfo,
    Dlopen,
};

/// One failure, or all from one on.
struct Failure
{
    Call call;
    long number;          ///< of the call that fails, counted from 1
    bool lasting = false; ///< those after it fail, too
    int error = 0; ///< errno, but of an allocation, which lacks memory; 0 of `read` and `pread` is no error but an
                   ///< answer of a single byte
};

/// While it lives, calls fail as it says. Only one at a time.
class Failing
{
public:
    explicit Failing(const Failure& failure);
    ~Failing();
    Failing(const Failing&) = delete;
    Failing& operator=(const Failing&) = delete;

    /// False where there were fewer calls than the number.
    static bool happened();
};

/// Blocks that are allocated and not freed. Always 0 under the address sanitizer, which has the allocator for itself.
long liveBlocks();

/// True where allocations can be made to fail.
bool allocationsCanFail();
