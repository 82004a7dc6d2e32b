#include "companions/bmc/Driver.h"

#include "companions/bmc/DeviceId.h"

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace VQ
{

namespace
{
constexpr const char* Platform = "/sys/devices/platform";
constexpr const char* DirectoryPrefix = "ipmi_bmc.";
constexpr std::size_t LineCapacity = 64;
constexpr int PauseWhileOccupied = 20; // milliseconds

// ipmi_bmc.2 stands before ipmi_bmc.10.
bool standsBefore(const char* name, const char* other)
{
    const std::size_t length = std::strlen(name);
    const std::size_t otherLength = std::strlen(other);
    return length != otherLength ? length < otherLength : std::strcmp(name, other) < 0;
}

// The name of the first BMC's directory. False where there is none.
bool findFirst(DIR* platform, char (&first)[NAME_MAX + 1])
{
    first[0] = '\0';
    while (const struct dirent* entry =
               readdir(platform)) { // NOLINT(concurrency-mt-unsafe): a stream of this thread's own
        const char* name = entry->d_name;
        const bool isBmc = std::strncmp(name, DirectoryPrefix, std::strlen(DirectoryPrefix)) == 0;
        if (isBmc && (first[0] == '\0' || standsBefore(name, first)))
            std::memcpy(first, name, std::strlen(name) + 1);
    }
    return first[0] != '\0';
}

bool readTexts(int directory, qoripmi_identity& identity)
{
    char revision[LineCapacity];
    char manufacturer[LineCapacity];
    char product[LineCapacity];
    const int revisionLength = readSmallFile(directory, "firmware_revision", revision, sizeof revision);
    const int manufacturerLength = readSmallFile(directory, "manufacturer_id", manufacturer, sizeof manufacturer);
    const int productLength = readSmallFile(directory, "product_id", product, sizeof product);
    return decodeDriverTexts(Line(revision, revisionLength), Line(manufacturer, manufacturerLength),
                             Line(product, productLength), identity);
}

// Of the readers that are left behind, one at a time waits for a dead BMC. The lock ends with its process, and is one
// of the directory as it is opened here: what is inherited shares its lock with the caller.
bool occupy(int directory, const Deadline& deadline)
{
    const int own = openat(directory, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (own < 0)
        return false;
    while (flock(own, LOCK_EX | LOCK_NB) != 0) {
        if (deadline.left() == 0)
            return false;
        poll(nullptr, 0, PauseWhileOccupied);
    }
    return true;
}

// Before Linux 5.9 they stay open.
void closeAllBut(int one, int other)
{
    const unsigned low = static_cast<unsigned>(one < other ? one : other);
    const unsigned high = static_cast<unsigned>(one < other ? other : one);
    if (low > 0)
        syscall(SYS_close_range, 0U, low - 1, 0U);
    if (high - low > 1)
        syscall(SYS_close_range, low + 1, high - 1, 0U);
    syscall(SYS_close_range, high + 1, ~0U, 0U);
}

// The reading process. It begins with all that the caller has, and keeps nothing open that it does not need: what a
// server listens at must not stay taken when the server ends. It calls only what may be called between a fork and an
// exec.
[[noreturn]] void beReader(int directory, int result, const Deadline& deadline)
{
    closeAllBut(directory, result);
    qoripmi_identity identity;
    if (occupy(directory, deadline) && readTexts(directory, identity)) {
        const ssize_t written = write(result, &identity, sizeof identity);
        static_cast<void>(written); // who waits for it may have gone
    }
    _exit(0);
}

// A process like this one, as by fork, that the program does not notice: no signal tells of its end, and no handler of
// the program's is called in it. Its identifier; 0 in the new one; -1 where there is none.
pid_t divide()
{
    return static_cast<pid_t>(syscall(SYS_clone, 0, 0, 0, 0, 0));
}

// By way of a process that ends at once, so that nobody has to wait for the reader's end.
void startReader(int directory, int result, const Deadline& deadline)
{
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before); // handlers of the program are not for the new processes
    const pid_t child = divide();
    if (child == 0) {
        if (divide() == 0)
            beReader(directory, result, deadline);
        _exit(0);
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    while (child > 0 && waitpid(child, nullptr, __WALL) < 0 && errno == EINTR) {
    }
}

// What the reader writes at once. False where it ends without, or the time is over.
bool receive(int result, const Deadline& deadline, qoripmi_identity& identity)
{
    struct pollfd waiting = {result, POLLIN, 0};
    int ready = 0;
    do
        ready = poll(&waiting, 1, deadline.left());
    while (ready < 0 && errno == EINTR);
    qoripmi_identity received;
    if (ready <= 0 || read(result, &received, sizeof received) != sizeof received)
        return false;
    identity = received;
    return true;
}
}

int openDriverDirectory(const char* root)
{
    char path[PATH_MAX];
    const int length = std::snprintf(path, sizeof path, "%s%s", root, Platform);
    if (length <= 0 || static_cast<std::size_t>(length) >= sizeof path)
        return -1;
    DIR* platform = opendir(path);
    if (!platform)
        return -1;
    char name[NAME_MAX + 1];
    const int directory =
        findFirst(platform, name) ? openat(dirfd(platform), name, O_RDONLY | O_DIRECTORY | O_CLOEXEC) : -1;
    closedir(platform);
    return directory;
}

bool readDriver(int directory, const Deadline& deadline, qoripmi_identity& identity)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        return false;
    startReader(directory, ends[1], deadline);
    close(ends[1]);
    const bool done = receive(ends[0], deadline, identity);
    close(ends[0]);
    return done;
}

}
