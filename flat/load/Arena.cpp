#include "flat/load/Inventory.h"

#include <algorithm>
#include <cstring>

namespace VQ::Load
{

namespace
{
constexpr std::size_t BlockSize = 16384;
constexpr std::size_t Unit = sizeof(std::max_align_t);

constexpr std::size_t unitsOf(std::size_t size)
{
    return (size + Unit - 1) / Unit;
}
}

void* Arena::takeBytes(std::size_t size)
{
    const std::size_t aligned = unitsOf(size) * Unit;
    if (aligned > _left) {
        const std::size_t units = unitsOf(std::max(aligned, BlockSize));
        _blocks.emplace_back(new std::max_align_t[units]); // filled by who takes it
        _next = reinterpret_cast<unsigned char*>(_blocks.back().get());
        _left = units * Unit;
    }
    void* const taken = _next;
    _next += aligned;
    _left -= aligned;
    return taken;
}

const char* Arena::keep(const char* text, std::size_t length)
{
    if (length == 0)
        return "";
    char* copy = take<char>(length + 1);
    std::memcpy(copy, text, length);
    copy[length] = '\0';
    return copy;
}

}
