// The memory of an inventory: parts that are apart, aligned, and as long as was asked for.

#include "flat/load/Inventory.h"

#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <vector>

using VQ::Load::Arena;

TEST(Arena, GivesPartsThatAreApartAndAligned)
{
    Arena arena;
    struct Part
    {
        unsigned char* bytes;
        std::size_t size;
    };
    std::vector<Part> parts;
    for (const std::size_t size : {1u, 15u, 16u, 17u, 31u, 32u, 16383u, 16384u, 16385u, 40000u, 3u, 2u << 20, 7u}) {
        parts.push_back({arena.take<unsigned char>(size), size});
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(parts.back().bytes) % alignof(std::max_align_t), 0u) << size;
        std::memset(parts.back().bytes, static_cast<int>(parts.size()), size);
    }
    for (std::size_t i = 0; i < parts.size(); ++i)
        EXPECT_EQ(std::string(parts[i].bytes, parts[i].bytes + parts[i].size),
                  std::string(parts[i].size, static_cast<char>(i + 1)))
            << parts[i].size;
}

TEST(Arena, KeepsTextsOfEveryLength)
{
    Arena arena;
    std::vector<const char*> kept;
    const std::string text(2000, 'x');
    for (std::size_t length = 0; length < text.size(); ++length)
        kept.push_back(arena.keep(text.c_str(), length));
    for (std::size_t length = 0; length < text.size(); ++length)
        EXPECT_EQ(kept[length], text.substr(0, length));
}
