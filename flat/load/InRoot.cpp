#include "flat/load/InRoot.h"

#include "flat/load/Failure.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <sched.h>
#include <string>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace VQ::Load
{

namespace
{
// What the work threw. The exception itself does not leave it: what threw may be unloaded before it would be destroyed.
struct Trouble
{
    bool outOfMemory = false;
    std::string text; // empty: none
};

Trouble troubleOf(const std::function<void()>& work) noexcept
{
    Trouble trouble;
    try {
        try {
            work();
        } catch (const std::bad_alloc&) {
            throw;
        } catch (const std::exception& error) {
            trouble.text = *error.what() ? error.what() : "an exception without a text";
        } catch (...) {
            trouble.text = "an exception of an unknown kind";
        }
    } catch (const std::bad_alloc&) { // perhaps only of the text
        trouble.outOfMemory = true;
    }
    return trouble;
}

void enterRoot()
{
    if (chdir("/") != 0)
        throw Failure(std::string("cannot go to /: ") + std::strerror(errno));
}

// For as long as it lives, the process works in `/`.
class ProcessInRoot
{
public:
    ProcessInRoot() : _before(open(".", O_PATH | O_DIRECTORY | O_CLOEXEC))
    {
        if (_before < 0)
            throw Failure(std::string("cannot tell the working directory: ") + std::strerror(errno));
    }
    ~ProcessInRoot()
    {
        // There is nothing to be done where the directory was closed to this process meanwhile: it stays in `/`.
        [[maybe_unused]] const int result = fchdir(_before);
        close(_before);
    }
    ProcessInRoot(const ProcessInRoot&) = delete;
    ProcessInRoot& operator=(const ProcessInRoot&) = delete;

private:
    int _before;
};
}

void inRoot(const std::function<void()>& work)
{
    bool apart = false;
    Trouble trouble;
    const auto workInRoot = [&work] {
        enterRoot();
        work();
    };
    try {
        std::thread([&] {
            apart = unshare(CLONE_FS) == 0;
            if (apart)
                trouble = troubleOf(workInRoot);
        }).join();
    } catch (const std::system_error& error) {
        throw Failure(std::string("cannot start a thread: ") + error.what());
    }
    if (!apart) {
        const ProcessInRoot process;
        trouble = troubleOf(workInRoot);
    }
    if (trouble.outOfMemory)
        throw std::bad_alloc();
    if (!trouble.text.empty())
        throw Failure(trouble.text);
}

}
