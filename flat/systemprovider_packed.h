/// Reads the packed values that the flat interface (systemprovider.h) writes. C99 and C++, header only.
///
/// A packed value is a tag and what follows it, in 32-bit words of the host's byte order and bytes, with no alignment
/// and no padding:
///
///     integer            0   the value, signed
///     text               1   its length n without terminator, n bytes, a zero byte
///     list of integers   2   the count, then as many integers, each with its own tag
///     list of texts      3   the count, then as many texts, each with its own tag
///
/// A reader never looks past the size it was given, and checks every tag and length: on anything but the value asked
/// for a function returns 0, and the reader stays where it was. Reading a list:
///
///     PackedReader reader = packedReader(buffer, size);
///     uint32_t count;
///     const char* text;
///     uint32_t length;
///     if (packedTexts(&reader, &count))
///         while (count-- > 0 && packedText(&reader, &text, &length))
///             puts(text);

#ifndef SYSTEMPROVIDER_PACKED_H
#define SYSTEMPROVIDER_PACKED_H

#include <stddef.h>
#include <stdint.h>
#include <string.h>

enum PackedTag
{
    PackedTagInteger = 0,
    PackedTagText = 1,
    PackedTagIntegers = 2,
    PackedTagTexts = 3
};

enum
{
    PackedWordSize = 4,
    PackedHeadSize = 8 ///< the tag and the word that follows each
};

/// The place that is read next, and how many bytes may be read from there.
typedef struct PackedReader
{
    const unsigned char* next;
    size_t left;
} PackedReader;

/// A reader of up to `size` bytes.
static inline PackedReader packedReader(const void* buffer, size_t size)
{
    PackedReader reader;
    reader.next = (const unsigned char*)buffer;
    reader.left = size;
    return reader;
}

/// For the functions below: the word after the tag, when a value of this tag stands here. Moves nothing.
static inline int packedHead(const PackedReader* reader, uint32_t tag, uint32_t* word)
{
    uint32_t found;
    if (reader->left < PackedHeadSize)
        return 0;
    memcpy(&found, reader->next, PackedWordSize); // words are not aligned
    if (found != tag)
        return 0;
    memcpy(word, reader->next + PackedWordSize, PackedWordSize);
    return 1;
}

/// For the functions below: moves past so many bytes, which must be left.
static inline void packedSkip(PackedReader* reader, size_t size)
{
    reader->next += size;
    reader->left -= size;
}

/// Takes an integer.
static inline int packedInteger(PackedReader* reader, int32_t* value)
{
    uint32_t word;
    if (!packedHead(reader, PackedTagInteger, &word))
        return 0;
    memcpy(value, &word, PackedWordSize);
    packedSkip(reader, PackedHeadSize);
    return 1;
}

/// Takes a text: where it stands in the buffer, and its length in bytes. It is zero-terminated there; a text that was
/// packed with a zero byte in it ends at that byte, before its length.
static inline int packedText(PackedReader* reader, const char** text, uint32_t* length)
{
    uint32_t size;
    const unsigned char* begin;
    if (!packedHead(reader, PackedTagText, &size) || size >= reader->left - PackedHeadSize)
        return 0;
    begin = reader->next + PackedHeadSize;
    if (!memchr(begin, 0, (size_t)size + 1))
        return 0;
    *text = (const char*)begin;
    *length = size;
    packedSkip(reader, PackedHeadSize + (size_t)size + 1);
    return 1;
}

/// Enters a list of integers; `packedInteger` then takes one after the other, `count` of them.
static inline int packedIntegers(PackedReader* reader, uint32_t* count)
{
    if (!packedHead(reader, PackedTagIntegers, count))
        return 0;
    packedSkip(reader, PackedHeadSize);
    return 1;
}

/// Enters a list of texts; `packedText` then takes one after the other, `count` of them.
static inline int packedTexts(PackedReader* reader, uint32_t* count)
{
    if (!packedHead(reader, PackedTagTexts, count))
        return 0;
    packedSkip(reader, PackedHeadSize);
    return 1;
}

#endif
