#pragma once

#include <cstddef>

namespace VQ
{

/// Reads a small regular file, such as the kernel shows its facts in, whole into `buffer`. The name is taken relative
/// to the directory (`openat`). The number of bytes; -1 where there is no such file, it can't be read, is of another
/// kind (a directory, a pipe, a device), or has `capacity` bytes or more. Never waits for anything but the file itself,
/// allocates nothing, and may be called after a fork.
int readSmallFile(int directory, const char* name, char* buffer, std::size_t capacity);

/// One line of text, without its line feed, if it has one.
class Line
{
public:
    /// The first `length` bytes of `text`; of none where `length` is below 0, as readSmallFile has it.
    Line(const char* text, int length);

    /// True when nothing is left.
    bool atEnd() const { return _next == _end; }

    /// Takes these characters off the front. False, and nothing taken, when it begins with others.
    bool take(const char* expected);

    /// True for letters, digits and punctuation of ASCII only, at least one.
    bool isWord() const;

    /// Takes a number off the front: as many digits of the base (10 or 16) as there are, but at most `most`, which must
    /// be at most 8. False where they are fewer than `fewest`.
    bool takeNumber(unsigned base, int fewest, int most, unsigned& number);

private:
    const char* _next;
    const char* _end;
};

}
