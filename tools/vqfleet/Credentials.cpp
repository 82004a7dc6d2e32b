#include "tools/vqfleet/Credentials.h"

#include "tools/program/Errors.h"
#include "tools/program/InputFile.h"

#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/signalfd.h>
#include <termios.h>
#include <unistd.h>

namespace VQ::Tool
{

namespace
{
constexpr std::uintmax_t MaxPasswordFile = 4096;

// Holds back the signals by which a person ends the program; a held one takes effect with the end of the object.
class HeldSignals
{
public:
    HeldSignals()
    {
        sigset_t held;
        sigemptyset(&held);
        for (int signal : {SIGINT, SIGQUIT, SIGTERM, SIGHUP})
            sigaddset(&held, signal);
        sigprocmask(SIG_BLOCK, &held, &_before);
        _arrived = signalfd(-1, &held, SFD_CLOEXEC);
    }

    ~HeldSignals()
    {
        close(_arrived);
        sigprocmask(SIG_SETMASK, &_before, nullptr);
    }

    HeldSignals(const HeldSignals&) = delete;
    HeldSignals& operator=(const HeldSignals&) = delete;

    // Waits until the descriptor has something to read; false where a signal came first.
    bool waitFor(int descriptor) const
    {
        pollfd events[] = {{descriptor, POLLIN, 0}, {_arrived, POLLIN, 0}};
        return poll(events, 2, -1) > 0 && events[1].revents == 0;
    }

private:
    sigset_t _before{};
    int _arrived = -1;
};

// Shows nothing of what is typed.
class Terminal
{
public:
    Terminal() : _descriptor(open("/dev/tty", O_RDWR | O_CLOEXEC))
    {
        if (_descriptor < 0 || tcgetattr(_descriptor, &_before) != 0)
            throw LoadError(
                "there is no terminal to ask for the password on: --password-file FILE or --netrc gives it");
        termios silent = _before;
        silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        silent.c_cc[VSUSP] = _POSIX_VDISABLE; // a shell would come back to a terminal that shows nothing
        tcsetattr(_descriptor, TCSAFLUSH, &silent);
    }

    ~Terminal()
    {
        tcsetattr(_descriptor, TCSAFLUSH, &_before);
        close(_descriptor);
    }

    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    void say(const std::string& text)
    {
        if (write(_descriptor, text.data(), text.size()) < 0)
            throw LoadError("cannot write to the terminal");
    }

    std::string line()
    {
        std::string text;
        for (char c = 0; _signals.waitFor(_descriptor) && read(_descriptor, &c, 1) == 1 && c != '\n';)
            text += c;
        return text;
    }

private:
    HeldSignals _signals; // the first member: what they do waits until the terminal is as it was
    int _descriptor;
    termios _before{};
};
}

std::string readPassword(const std::string& file)
{
    const std::string text = readInput(file, MaxPasswordFile, "a file with a password");
    std::string password = text.substr(0, text.find_first_of("\r\n"));
    if (password.empty())
        throw LoadError(file + " has no password on its first line");
    return password;
}

std::string askForPassword(const std::string& user)
{
    Terminal terminal;
    terminal.say("Password of " + user + ": ");
    std::string password = terminal.line();
    terminal.say("\n");
    if (password.empty())
        throw LoadError("no password was given for " + user);
    return password;
}

}
