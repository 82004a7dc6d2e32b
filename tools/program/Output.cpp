#include "tools/program/Output.h"

#include "tools/formats/Printable.h"
#include "tools/program/Errors.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sstream>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace VQ::Tool
{

namespace
{
[[noreturn]] void fail(const std::string& file)
{
    throw LoadError("cannot write " + file + ": " + std::strerror(errno));
}

bool writeAll(int descriptor, const std::string& content)
{
    for (std::size_t written = 0; written < content.size();) {
        const ssize_t now = write(descriptor, content.data() + written, content.size() - written);
        if (now < 0 && errno != EINTR)
            return false;
        written += now < 0 ? 0 : static_cast<std::size_t>(now);
    }
    return true;
}

void writeInto(const std::string& file, const std::string& content)
{
    const int descriptor = open(file.c_str(), O_WRONLY | O_CLOEXEC);
    if (descriptor < 0)
        fail(file);
    const bool written = writeAll(descriptor, content);
    if (close(descriptor) != 0 || !written)
        fail(file);
}

// Of the file that is replaced, else what a new file has.
mode_t modeFor(const struct stat* old)
{
    if (old)
        return old->st_mode & 07777;
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}
}

void complain(const std::string& lines)
{
    std::istringstream in(lines);
    for (std::string line; std::getline(in, line);)
        std::fprintf(stderr, "%s: %s\n", ProgramName, printable(line).c_str());
}

bool print(const std::string& output)
{
    const bool written = std::fwrite(output.data(), 1, output.size(), stdout) == output.size();
    if ((written && std::fflush(stdout) == 0) || errno == EPIPE)
        return true;
    complain("cannot write to standard output: " + std::string(std::strerror(errno)));
    return false;
}

void replaceFile(const std::string& file, const std::string& content)
{
    std::error_code error;
    const std::filesystem::path real = std::filesystem::canonical(file, error); // a link stays one
    const std::string target = error ? file : real.string();
    struct stat old
    {
    };
    const bool exists = stat(target.c_str(), &old) == 0;
    if (exists && !S_ISREG(old.st_mode))
        return writeInto(target, content);
    std::string beside = target + ".XXXXXX";
    const int descriptor = mkostemp(beside.data(), O_CLOEXEC);
    if (descriptor < 0)
        fail(file);
    // Whose file it was; only root can give it back.
    const bool mine = exists && fchown(descriptor, old.st_uid, old.st_gid) == 0;
    static_cast<void>(mine);
    const bool written = fchmod(descriptor, modeFor(exists ? &old : nullptr)) == 0 && writeAll(descriptor, content) &&
                         fsync(descriptor) == 0;
    const int reason = errno;
    if (close(descriptor) == 0 && written && std::rename(beside.c_str(), target.c_str()) == 0)
        return;
    errno = written ? errno : reason;
    const int last = errno;
    unlink(beside.c_str());
    errno = last;
    fail(file);
}

Setting terminalSetting(bool toFile)
{
    Setting setting;
    winsize size{};
    if (toFile || isatty(STDOUT_FILENO) == 0)
        return setting;
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0)
        setting.columns = size.ws_col;
    const char* noColour = std::getenv("NO_COLOR");
    const char* terminal = std::getenv("TERM");
    setting.colour = !(noColour && *noColour) && terminal && std::strcmp(terminal, "dumb") != 0;
    return setting;
}

}
