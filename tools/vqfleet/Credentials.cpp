#include "tools/vqfleet/Credentials.h"

#include "tools/program/Errors.h"
#include "tools/program/InputFile.h"

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace VQ::Tool
{

namespace
{
constexpr std::uintmax_t MaxPasswordFile = 4096;

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
        for (char c = 0; read(_descriptor, &c, 1) == 1 && c != '\n';)
            text += c;
        return text;
    }

private:
    int _descriptor;
    termios _before{};
};
}

std::string readPassword(const std::string& file)
{
    const std::string text = readInput(file, MaxPasswordFile, "a file with a password");
    const std::string password = text.substr(0, text.find_first_of("\r\n"));
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
    return password;
}

}
