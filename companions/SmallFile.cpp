#include "companions/SmallFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace VQ
{

namespace
{
bool isRegular(int file)
{
    struct stat status;
    return fstat(file, &status) == 0 && S_ISREG(status.st_mode);
}

// All of the file that fits: a file of the kernel may come in parts.
int readAll(int file, char* buffer, std::size_t capacity)
{
    std::size_t length = 0;
    while (length < capacity) {
        const ssize_t count = read(file, buffer + length, capacity - length);
        if (count == 0)
            return static_cast<int>(length);
        if (count > 0)
            length += static_cast<std::size_t>(count);
        else if (errno != EINTR)
            return -1;
    }
    return -1;
}

// The digit's value; 16 for what is no digit of any base here.
unsigned digit(char character)
{
    if (character >= '0' && character <= '9')
        return static_cast<unsigned>(character - '0');
    if (character >= 'a' && character <= 'f')
        return static_cast<unsigned>(character - 'a') + 10;
    if (character >= 'A' && character <= 'F')
        return static_cast<unsigned>(character - 'A') + 10;
    return 16;
}
}

int readSmallFile(int directory, const char* name, char* buffer, std::size_t capacity)
{
    // Without O_NONBLOCK a pipe of that name would be waited for.
    const int file = openat(directory, name, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (file < 0)
        return -1;
    const int length = isRegular(file) ? readAll(file, buffer, capacity) : -1;
    close(file);
    return length;
}

Line::Line(const char* text, int length) : _next(text), _end(length > 0 ? text + length : text)
{
    if (_next != _end && _end[-1] == '\n')
        --_end;
}

bool Line::isWord() const
{
    for (const char* at = _next; at != _end; ++at)
        if (*at <= ' ' || *at > '~')
            return false;
    return !atEnd();
}

bool Line::take(const char* expected)
{
    const char* at = _next;
    for (; *expected != '\0'; ++expected, ++at)
        if (at == _end || *at != *expected)
            return false;
    _next = at;
    return true;
}

bool Line::takeNumber(unsigned base, int fewest, int most, unsigned& number)
{
    unsigned value = 0;
    int count = 0;
    for (; count < most && _next != _end && digit(*_next) < base; ++_next, ++count)
        value = value * base + digit(*_next);
    number = value;
    return count >= fewest;
}

}
