#pragma once

#include "flat/systemprovider_packed.h"

#include <algorithm>
#include <cstdint>
#include <gtest/gtest.h>
#include <string>
#include <vector>

// What accessors deliver, as values. Each call also checks that nothing is written after the value.

/// A buffer full of one byte, so that what a call wrote can be told from what it left.
class MarkedBuffer
{
public:
    static constexpr char Mark = '\x7E';

    char* data() { return _bytes.data(); }
    std::string first(std::size_t count) const { return std::string(_bytes.data(), count); }
    bool isUntouchedFrom(std::size_t position) const
    {
        return std::all_of(_bytes.begin() + static_cast<long>(position), _bytes.end(),
                           [](char byte) { return byte == Mark; });
    }
    std::size_t size() const { return _bytes.size(); }

private:
    std::vector<char> _bytes = std::vector<char>(4096, Mark);
};

inline std::string textIn(MarkedBuffer& buffer)
{
    std::string text(buffer.data());
    EXPECT_TRUE(buffer.isUntouchedFrom(text.size() + 1)) << "something follows the terminator of \"" << text << '"';
    return text;
}

inline std::string textOf(void (*get)(char*))
{
    MarkedBuffer buffer;
    get(buffer.data());
    return textIn(buffer);
}

inline std::string textOf(void (*get)(char*, unsigned int), unsigned int index)
{
    MarkedBuffer buffer;
    get(buffer.data(), index);
    return textIn(buffer);
}

inline void expectEndsAt(const PackedReader& reader, MarkedBuffer& buffer)
{
    const auto end = static_cast<std::size_t>(reinterpret_cast<const char*>(reader.next) - buffer.data());
    EXPECT_TRUE(buffer.isUntouchedFrom(end)) << "something follows the packed list";
}

inline std::vector<std::string> textsOf(void (*get)(void*))
{
    MarkedBuffer buffer;
    get(buffer.data());
    PackedReader reader = packedReader(buffer.data(), buffer.size());
    std::uint32_t count = 0;
    EXPECT_TRUE(packedTexts(&reader, &count)) << "no packed list of texts";
    std::vector<std::string> texts;
    const char* text = nullptr;
    std::uint32_t length = 0;
    while (texts.size() < count && packedText(&reader, &text, &length))
        texts.emplace_back(text, length);
    EXPECT_EQ(texts.size(), count);
    expectEndsAt(reader, buffer);
    return texts;
}

inline std::vector<std::int32_t> integersOf(void (*get)(void*, unsigned int), unsigned int index)
{
    MarkedBuffer buffer;
    get(buffer.data(), index);
    PackedReader reader = packedReader(buffer.data(), buffer.size());
    std::uint32_t count = 0;
    EXPECT_TRUE(packedIntegers(&reader, &count)) << "no packed list of integers";
    std::vector<std::int32_t> integers;
    std::int32_t integer = 0;
    while (integers.size() < count && packedInteger(&reader, &integer))
        integers.push_back(integer);
    EXPECT_EQ(integers.size(), count);
    expectEndsAt(reader, buffer);
    return integers;
}
