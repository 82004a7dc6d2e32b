#include "tests/testing/Process.h"

#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
std::string readToTheEnd(int descriptor)
{
    std::string text;
    char part[4096];
    for (ssize_t size = 0; (size = read(descriptor, part, sizeof part)) > 0;)
        text.append(part, static_cast<std::size_t>(size));
    return text;
}
}

// Not by popen: some programs have put something else in its place.
Outcome run(const std::string& command)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        throw std::runtime_error("cannot make a pipe");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    std::string words[] = {"sh", "-c", command};
    char* const arguments[] = {words[0].data(), words[1].data(), words[2].data(), nullptr};
    pid_t child = -1;
    const int error = posix_spawn(&child, "/bin/sh", &actions, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    const std::string output = readToTheEnd(ends[0]);
    close(ends[0]);
    int status = 0;
    rusage usage{};
    if (error != 0 || wait4(child, &status, 0, &usage) != child)
        throw std::runtime_error("cannot run " + command);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, output, usage.ru_maxrss};
}

std::string shellLine(const std::vector<std::string>& words)
{
    std::string line;
    for (const std::string& word : words) {
        line += line.empty() ? "'" : " '";
        for (const char c : word)
            line += c == '\'' ? "'\\''" : std::string(1, c);
        line += "'";
    }
    return line;
}
