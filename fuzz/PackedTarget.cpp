// The reader of packed values over any bytes: it stays within them, and gives back what was packed.

#include "flat/systemprovider_packed.h"
#include "fuzz/Require.h"

#include <algorithm>
#include <cstring>
#include <memory>

namespace
{
// Takes what stands there, value by value, in an order that the bytes themselves choose.
void readAll(const unsigned char* data, std::size_t size)
{
    const std::unique_ptr<unsigned char[]> exact(new unsigned char[size]); // ends where its memory ends
    std::copy(data, data + size, exact.get());
    PackedReader reader = packedReader(exact.get(), size);
    bool moved = true;
    while (moved) {
        const PackedReader before = reader;
        int32_t integer = 0;
        uint32_t number = 0;
        const char* text = nullptr;
        moved = packedInteger(&reader, &integer) || packedIntegers(&reader, &number) || packedTexts(&reader, &number);
        if (!moved && packedText(&reader, &text, &number)) {
            moved = true;
            require(std::memchr(text, 0, std::size_t{number} + 1) != nullptr, "a text ends with a zero byte");
            require(text + number + 1 == reinterpret_cast<const char*>(reader.next), "the reader stands behind it");
        }
        require(reader.next + reader.left == exact.get() + size, "the reader stays within its bytes");
        require(moved == (reader.left < before.left), "it moves when it takes a value, and else stays");
    }
}
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    readAll(data, size);
    return 0;
}
