#pragma once

#include <cstdint>

// What the conversions of text share about Unicode characters.

namespace VQ
{

constexpr std::uint32_t ReplacementCharacter = 0xFFFD; ///< stands for what is no character
constexpr std::uint32_t LastCharacter = 0x10FFFF;
constexpr std::uint32_t FirstLeadSurrogate = 0xD800;  ///< UTF-16: the first unit of a pair, up to DBFFh
constexpr std::uint32_t FirstTrailSurrogate = 0xDC00; ///< UTF-16: the second unit of a pair, up to DFFFh
constexpr std::uint32_t LastSurrogate = 0xDFFF;

/// True for what Unicode assigns to characters; false for a surrogate and for values past the last character.
constexpr bool isCharacter(std::uint32_t value)
{
    return value < FirstLeadSurrogate || (value > LastSurrogate && value <= LastCharacter);
}

/// The value itself, or the replacement character where it is no character.
constexpr std::uint32_t characterOf(std::uint32_t value)
{
    return isCharacter(value) ? value : ReplacementCharacter;
}

}
