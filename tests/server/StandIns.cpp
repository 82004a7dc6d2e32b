// Loaded in front of a CIM server's own libraries, and inherited by its provider processes: serves a dump file in place
// of the machine's SMBIOS table, writes power actions down in place of taking them, and can move the server's clock.
//
//   VQ_TEST_DUMP    the dump file
//   VQ_TEST_CALLS   the file for the calls, a line each
//   VQ_TEST_LATER   where this file exists, the server's clock is ahead by the seconds that it holds, or by a thousand
//                   where it is empty: what has not been used for some minutes is then idle at once

#include "support/smbios/DumpSource.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <string>
#include <sys/time.h>
#include <unistd.h>

namespace
{
void record(const std::string& call)
{
    const char* const file = std::getenv("VQ_TEST_CALLS");
    std::FILE* const calls = file != nullptr ? std::fopen(file, "a") : nullptr;
    if (calls == nullptr)
        return;
    std::fprintf(calls, "%s\n", call.c_str());
    std::fclose(calls);
}

__attribute__((constructor)) void serveDump()
{
    if (const char* const file = std::getenv("VQ_TEST_DUMP"))
        vqServeSmBiosDump(file);
}

// What the file VQ_TEST_LATER says, and 1000 where it is empty; 0 where it is not there.
long secondsAhead()
{
    const char* const later = std::getenv("VQ_TEST_LATER");
    const int file = later ? open(later, O_RDONLY | O_CLOEXEC) : -1;
    if (file < 0)
        return 0;
    char text[16] = {};
    const ssize_t got = read(file, text, sizeof text - 1);
    close(file);
    return got > 0 ? std::atol(text) : 1000;
}
}

extern "C" {

VQ_EXPORT int reboot(int how)
{
    char text[32];
    std::snprintf(text, sizeof text, "reboot 0x%08x", static_cast<unsigned>(how));
    record(text);
    errno = EPERM;
    return -1;
}

VQ_EXPORT FILE* popen(const char* command, const char* mode)
{
    record(std::string("popen ") + command + " " + mode);
    return std::fopen("/dev/null", "r");
}

VQ_EXPORT int pclose(FILE* stream)
{
    record("pclose");
    return std::fclose(stream);
}

VQ_EXPORT int gettimeofday(struct timeval* time, void*)
{
    struct timespec now = {};
    clock_gettime(CLOCK_REALTIME, &now);
    time->tv_sec = now.tv_sec + secondsAhead();
    time->tv_usec = static_cast<suseconds_t>(now.tv_nsec / 1000);
    return 0;
}
}
