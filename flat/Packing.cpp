#include "flat/systemprovider.h"

#include <cstdint>
#include <cstring>

namespace
{
enum Tag : std::uint32_t
{
    TagInteger = 0,
    TagString = 1,
    TagIntegerArray = 2,
    TagStringArray = 3,
};

// A packed value may begin at any address, so its words are copied rather than stored.
char* putWord(void* address, std::uint32_t word)
{
    std::memcpy(address, &word, sizeof word);
    return static_cast<char*>(address) + sizeof word;
}

char* putHead(void* address, Tag tag, std::uint32_t word)
{
    return putWord(putWord(address, tag), word);
}
}

// Values and not references: callers find these functions by mangled names, which say so.
// NOLINTBEGIN(performance-unnecessary-value-param)

void* packI(void* buffer, int value)
{
    return putHead(buffer, TagInteger, static_cast<std::uint32_t>(value));
}

void* packS(void* buffer, std::string value)
{
    char* text = putHead(buffer, TagString, static_cast<std::uint32_t>(value.size()));
    // Up to the first zero byte only; what the text holds after it is counted and not copied: callers step over a
    // value by its length, and read its text up to the zero byte.
    std::strcpy(text, value.c_str());
    return text + value.size() + 1;
}

void* packAI(void* buffer, std::vector<int> values)
{
    void* next = putHead(buffer, TagIntegerArray, static_cast<std::uint32_t>(values.size()));
    for (const int value : values)
        next = packI(next, value);
    return next;
}

void* packAS(void* buffer, std::vector<std::string> values)
{
    void* next = putHead(buffer, TagStringArray, static_cast<std::uint32_t>(values.size()));
    for (const std::string& value : values)
        next = packS(next, value);
    return next;
}

// NOLINTEND(performance-unnecessary-value-param)
