#include "support/smbios/EntryPoint.h"

#include "support/smbios/SmBios.h"
#include "tests/testing/EntryPoints.h"

#include <gtest/gtest.h>

using namespace VQ;

namespace
{
bool accepts32(const Bytes& bytes)
{
    return isEntryPoint32(bytes.data(), bytes.size());
}

bool accepts64(const Bytes& bytes)
{
    return isEntryPoint64(bytes.data(), bytes.size());
}

bool acceptsDmi(const Bytes& bytes)
{
    return isEntryPointDmi(bytes.data(), bytes.size());
}

EntryPoint parsed(const Bytes& bytes)
{
    return parseEntryPoint({"the file", Buffer(bytes.begin(), bytes.end()), {}});
}

std::string errorOf(const Bytes& bytes)
{
    try {
        parsed(bytes);
    } catch (const SmBiosError& error) {
        return error.what();
    }
    return "no error";
}

// The 32-bit form with another value in one byte, and checksums that hold again.
Bytes changed32(std::size_t offset, unsigned char value)
{
    Bytes bytes = entryPoint32(0x000E1234, 1000, 20);
    bytes[offset] = value;
    setChecksum(bytes, 0x10, 0x0F, 0x15);
    setChecksum(bytes, 0x00, bytes[0x05], 0x04);
    return bytes;
}

Bytes changed64(std::size_t offset, unsigned char value)
{
    Bytes bytes = entryPoint64(0x000E1234, 1000);
    bytes[offset] = value;
    setChecksum(bytes, 0x00, 0x18, 0x05);
    return bytes;
}

const char* const Expected = "the file: no SMBIOS entry point: expected the bytes \"_SM3_\" (5F 53 4D 33 5F), \"_SM_\" "
                             "(5F 53 4D 5F) or \"_DMI_\" (5F 44 4D 49 5F) of an intact entry point, found ";
}

TEST(EntryPoint32, TellsVersionAddressLengthAndCount)
{
    const EntryPoint entryPoint = parsed(entryPoint32(0xFEDC1234, 0xABCD, 0x0123));
    EXPECT_EQ(entryPoint.majorVersion, 2);
    EXPECT_EQ(entryPoint.minorVersion, 4);
    EXPECT_EQ(entryPoint.tableAddress, 0xFEDC1234u);
    EXPECT_EQ(entryPoint.tableLength, 0xABCDu);
    EXPECT_EQ(entryPoint.structureCount, 0x0123u);
}

TEST(EntryPoint64, TellsVersionAddressAndMaximumLengthAndHasNoCount)
{
    const EntryPoint entryPoint = parsed(entryPoint64(0x123456789ABCDEF0, 0x89ABCDEF));
    EXPECT_EQ(entryPoint.majorVersion, 3);
    EXPECT_EQ(entryPoint.minorVersion, 2);
    EXPECT_EQ(entryPoint.tableAddress, 0x123456789ABCDEF0u);
    EXPECT_EQ(entryPoint.tableLength, 0x89ABCDEFu);
    EXPECT_EQ(entryPoint.structureCount, EntryPoint::NoCount);
}

TEST(EntryPointDmi, TellsVersionAddressLengthAndCount)
{
    const EntryPoint entryPoint = parsed(entryPointDmi(0xFEDC1234, 0xABCD, 0x0123));
    EXPECT_EQ(entryPoint.majorVersion, 2);
    EXPECT_EQ(entryPoint.minorVersion, 0);
    EXPECT_EQ(entryPoint.tableAddress, 0xFEDC1234u);
    EXPECT_EQ(entryPoint.tableLength, 0xABCDu);
    EXPECT_EQ(entryPoint.structureCount, 0x0123u);
}

TEST(EntryPointDmi, VersionIsBcd)
{
    Bytes bytes = entryPointDmi(0xE0000, 1000, 20);
    bytes[0x0E] = 0x31;
    setChecksum(bytes, 0x00, 0x0F, 0x05);
    EXPECT_EQ(parsed(bytes).majorVersion, 3);
    EXPECT_EQ(parsed(bytes).minorVersion, 1);
}

TEST(EntryPoint32, VersionIsThatOfItsBytesNotOfTheBcdRevision)
{
    const EntryPoint entryPoint = parsed(changed32(0x07, 31));
    EXPECT_EQ(entryPoint.majorVersion, 2);
    EXPECT_EQ(entryPoint.minorVersion, 31);
}

TEST(EntryPoint32, EveryWrongByteUnderAChecksumIsNoticed)
{
    const Bytes intact = entryPoint32(0xE0000, 1000, 20);
    for (std::size_t i = 0; i < intact.size(); ++i) {
        Bytes broken = intact;
        broken[i] = static_cast<unsigned char>(broken[i] ^ 0x01);
        EXPECT_FALSE(accepts32(broken)) << i;
    }
    EXPECT_TRUE(accepts32(intact));
}

TEST(EntryPoint64, EveryWrongByteUnderTheChecksumIsNoticed)
{
    const Bytes intact = entryPoint64(0xE0000, 1000);
    for (std::size_t i = 0; i < intact.size(); ++i) {
        Bytes broken = intact;
        broken[i] = static_cast<unsigned char>(broken[i] ^ 0x01);
        EXPECT_FALSE(accepts64(broken)) << i;
    }
    EXPECT_TRUE(accepts64(intact));
}

TEST(EntryPointDmi, EveryWrongByteUnderTheChecksumIsNoticed)
{
    const Bytes intact = entryPointDmi(0xE0000, 1000, 20);
    for (std::size_t i = 0; i < intact.size(); ++i) {
        Bytes broken = intact;
        broken[i] = static_cast<unsigned char>(broken[i] ^ 0x01);
        EXPECT_FALSE(acceptsDmi(broken)) << i;
    }
    EXPECT_TRUE(acceptsDmi(intact));
}

TEST(EntryPointDmi, AnchorMustStandAndMayBeFollowedByAnything)
{
    Bytes bytes = entryPointDmi(0xE0000, 1000, 20);
    bytes.resize(0x20, 0x55);
    EXPECT_TRUE(acceptsDmi(bytes)) << "bytes after it";
    bytes[0x04] = '-';
    setChecksum(bytes, 0x00, 0x0F, 0x05);
    EXPECT_FALSE(acceptsDmi(bytes));
}

TEST(EntryPoint32, IntermediatePartHasAChecksumOfItsOwn)
{
    Bytes bytes = entryPoint32(0xE0000, 1000, 20);
    bytes[0x15] = static_cast<unsigned char>(bytes[0x15] + 1);
    setChecksum(bytes, 0x00, 0x1F, 0x04);
    EXPECT_FALSE(accepts32(bytes));
}

TEST(EntryPoint32, IntermediateAnchorMustStand)
{
    EXPECT_TRUE(accepts32(changed32(0x10, '_')));
    EXPECT_FALSE(accepts32(changed32(0x11, 'd')));
    EXPECT_FALSE(accepts32(changed32(0x14, '-')));
}

TEST(EntryPoint32, AnchorMustStand)
{
    EXPECT_FALSE(accepts32(changed32(0x02, 'm')));
    EXPECT_FALSE(accepts64(changed64(0x03, '2')));
    EXPECT_FALSE(accepts64(changed64(0x04, '-')));
}

TEST(EntryPoint32, FormsAreNotTakenForEachOther)
{
    EXPECT_FALSE(accepts64(entryPoint32(0xE0000, 1000, 20)));
    EXPECT_FALSE(accepts32(entryPoint64(0xE0000, 1000)));
    EXPECT_FALSE(acceptsDmi(entryPoint32(0xE0000, 1000, 20)));
    EXPECT_FALSE(accepts32(entryPointDmi(0xE0000, 1000, 20)));
}

TEST(EntryPoint32, Length1EhOfVersion21IsAccepted)
{
    const Bytes bytes = changed32(0x05, 0x1E);
    EXPECT_TRUE(accepts32(bytes));
    EXPECT_EQ(parsed(bytes).structureCount, 20u);
}

TEST(EntryPoint32, Length1EhIsAcceptedWhereNotMoreThan1EhBytesAreHandedOver)
{
    Bytes bytes = changed32(0x05, 0x1E);
    bytes.resize(0x1E);
    EXPECT_TRUE(accepts32(bytes));
    EXPECT_EQ(parsed(bytes).tableLength, 1000u);
    EXPECT_EQ(parsed(bytes).structureCount, 20u);
}

TEST(EntryPoint32, Length20hIsAccepted)
{
    Bytes bytes = entryPoint32(0xE0000, 1000, 20);
    bytes.resize(0x20, 0x55);
    bytes[0x05] = 0x20;
    setChecksum(bytes, 0x00, 0x20, 0x04);
    EXPECT_TRUE(accepts32(bytes));
}

TEST(EntryPoint32, LengthBelow1EhOrBeyondTheBytesIsRefused)
{
    EXPECT_FALSE(accepts32(changed32(0x05, 0x1D)));
    EXPECT_FALSE(accepts32(changed32(0x05, 0x00)));
    EXPECT_FALSE(accepts32(changed32(0x05, 0x20)));
    EXPECT_FALSE(accepts32(changed32(0x05, 0xFF)));
}

TEST(EntryPoint64, LengthBelow18hOrBeyondTheBytesIsRefused)
{
    EXPECT_FALSE(accepts64(changed64(0x06, 0x17)));
    EXPECT_FALSE(accepts64(changed64(0x06, 0x19)));
    EXPECT_FALSE(accepts64(changed64(0x06, 0xFF)));
}

TEST(EntryPoint64, LongerFormIsAcceptedWithTheChecksumOfItsLength)
{
    Bytes bytes = entryPoint64(0xE0000, 1000);
    bytes.resize(0x20, 0x55);
    EXPECT_TRUE(accepts64(bytes)) << "bytes after it";
    bytes[0x06] = 0x20;
    setChecksum(bytes, 0x00, 0x20, 0x05);
    EXPECT_TRUE(accepts64(bytes)) << "bytes that belong to it";
}

TEST(EntryPoint32, CutOffIsRefusedAtEveryLength)
{
    const Bytes whole = entryPoint32(0xE0000, 1000, 20);
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_FALSE(accepts32(Bytes(whole.begin(), whole.begin() + static_cast<long>(size)))) << size;
}

TEST(EntryPoint64, CutOffIsRefusedAtEveryLength)
{
    const Bytes whole = entryPoint64(0xE0000, 1000);
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_FALSE(accepts64(Bytes(whole.begin(), whole.begin() + static_cast<long>(size)))) << size;
}

TEST(EntryPointDmi, CutOffIsRefusedAtEveryLength)
{
    const Bytes whole = entryPointDmi(0xE0000, 1000, 20);
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_FALSE(acceptsDmi(Bytes(whole.begin(), whole.begin() + static_cast<long>(size)))) << size;
}

TEST(EntryPoint, ErrorTellsWhereWhatWasExpectedAndWhatStandsThere)
{
    EXPECT_EQ(errorOf({'H', 'e', 'l', 'l', 'o', '!'}), Expected + std::string("48 65 6C 6C 6F"));
    EXPECT_EQ(errorOf({0x00, 0xFF}), Expected + std::string("00 FF"));
    EXPECT_EQ(errorOf({}), Expected + std::string("nothing"));
    Bytes broken = entryPoint32(0xE0000, 1000, 20);
    broken[0x04] = 0x84; // its checksum is 7Dh
    EXPECT_EQ(errorOf(broken), Expected + std::string("5F 53 4D 5F 84"));
}
