// What an answer to Get Device ID comes to, for every length, completion code and revision, and what the driver's texts
// do.

#include "companions/bmc/DeviceId.h"

#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

using namespace VQ;

namespace
{
using Bytes = std::vector<unsigned char>;

const Bytes Whole = {0x00, 0x20, 0x81, 0x01, 0x17, 0x02, 0xBF, 0x02, 0x00, 0x00, 0x43, 0x00, 0xDE, 0xAD, 0xBE, 0xEF};
const std::set<unsigned> BusyCodes = {0xC0, 0xC3, 0xCE, 0xD0, 0xD1, 0xD2, 0xD5};

qoripmi_identity untouched()
{
    qoripmi_identity identity;
    std::memset(&identity, 0xA5, sizeof identity);
    return identity;
}

bool isUntouched(const qoripmi_identity& identity)
{
    const qoripmi_identity expected = untouched();
    return std::memcmp(&identity, &expected, sizeof expected) == 0;
}

bool same(const qoripmi_identity& left, const qoripmi_identity& right)
{
    return std::memcmp(&left, &right, sizeof left) == 0;
}

Verdict decode(const Bytes& answer, qoripmi_identity& identity)
{
    return decodeDeviceId(answer.data(), answer.size(), identity);
}

qoripmi_identity identityOf(const Bytes& answer)
{
    qoripmi_identity identity = untouched();
    EXPECT_EQ(decode(answer, identity), Verdict::Identity);
    return identity;
}

Bytes withRevision(unsigned majorByte, unsigned minorByte)
{
    Bytes answer = Whole;
    answer[3] = static_cast<unsigned char>(majorByte);
    answer[4] = static_cast<unsigned char>(minorByte);
    return answer;
}

bool fromDriver(const std::string& revision, const std::string& manufacturer, const std::string& product,
                qoripmi_identity& identity)
{
    const auto line = [](const std::string& text) { return Line(text.data(), static_cast<int>(text.size())); };
    return decodeDriverTexts(line(revision), line(manufacturer), line(product), identity);
}

// "1.17 2 67", or "none" with nothing written.
std::string told(const std::string& revision, const std::string& manufacturer = "0x000002\n",
                 const std::string& product = "0x0043\n")
{
    qoripmi_identity identity = untouched();
    if (!fromDriver(revision, manufacturer, product, identity))
        return isUntouched(identity) ? "none" : "none, but written";
    return std::to_string(identity.firmware_major) + "." + std::to_string(identity.firmware_minor) + " " +
           std::to_string(identity.manufacturer_id) + " " + std::to_string(identity.product_id);
}
}

TEST(DeviceId, FieldsStandWhereCallersReadThem)
{
    const qoripmi_identity identity = identityOf(Whole);
    unsigned char bytes[32];
    std::memcpy(bytes, &identity, sizeof bytes);
    const Bytes expected = {0x20, 0x81, 0x02, 0xBF, 0x02, 0x00, 0x00, 0x00, 0x43, 0x00, 1, 17, 0xDE, 0xAD, 0xBE, 0xEF,
                            2,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0, 0,  0,    0,    0,    0};
    EXPECT_EQ(Bytes(bytes, bytes + sizeof bytes), expected);
}

TEST(DeviceId, EveryLengthWithEveryCompletionCode)
{
    for (std::size_t length = 0; length <= 64; ++length) {
        for (unsigned code = 0; code <= 0xFF; ++code) {
            Bytes answer = Whole;
            answer.resize(length, 0x77);
            answer.shrink_to_fit(); // so that the sanitizer notices a read behind it
            if (length > 0)
                answer[0] = static_cast<unsigned char>(code);
            qoripmi_identity identity = untouched();
            const Verdict verdict = decode(answer, identity);
            const std::string what = std::to_string(length) + " bytes, code " + std::to_string(code);
            if (length > 0 && code != 0) {
                ASSERT_EQ(verdict, BusyCodes.count(code) ? Verdict::AskAgain : Verdict::Refused) << what;
                ASSERT_TRUE(isUntouched(identity)) << what;
            } else if (length < 12) {
                ASSERT_EQ(verdict, Verdict::Refused) << what;
                ASSERT_TRUE(isUntouched(identity)) << what;
            } else {
                qoripmi_identity expected = identityOf(Whole);
                if (length < 16) {
                    std::memset(expected.auxiliary, 0, sizeof expected.auxiliary);
                    expected.flags = 0;
                }
                ASSERT_EQ(verdict, Verdict::Identity) << what;
                ASSERT_TRUE(same(identity, expected)) << what;
            }
        }
    }
}

// The digits that a person reads in the hexadecimal byte are the number, where they are digits.
TEST(DeviceId, EveryRevision)
{
    for (unsigned majorByte = 0; majorByte <= 0xFF; ++majorByte) {
        for (unsigned minorByte = 0; minorByte <= 0xFF; ++minorByte) {
            char text[8];
            std::snprintf(text, sizeof text, "%02x", minorByte);
            const bool isBcd = std::strspn(text, "0123456789") == 2;
            const qoripmi_identity identity = identityOf(withRevision(majorByte, minorByte));
            ASSERT_EQ(identity.firmware_major, majorByte % 128) << text;
            ASSERT_EQ(identity.firmware_minor, isBcd ? std::strtoul(text, nullptr, 10) : minorByte) << text;
            ASSERT_EQ(identity.flags, 2 + (majorByte >= 128 ? 4 : 0) + (isBcd ? 0 : 8)) << text;
        }
    }
}

TEST(DeviceId, RevisionsAsMakersWriteThem)
{
    EXPECT_EQ(identityOf(withRevision(0x01, 0x17)).firmware_minor, 17);
    EXPECT_EQ(identityOf(withRevision(0x02, 0x05)).firmware_minor, 5);
    EXPECT_EQ(identityOf(withRevision(0x02, 0x99)).firmware_minor, 99);
    EXPECT_EQ(identityOf(withRevision(0x02, 0x1A)).firmware_minor, 26);
    EXPECT_EQ(identityOf(withRevision(0x02, 0xA1)).firmware_minor, 161);
    EXPECT_EQ(identityOf(withRevision(0x82, 0x05)).firmware_major, 2);
}

TEST(DeviceId, ManufacturerHas20BitsAndProduct16)
{
    Bytes answer = Whole;
    answer[7] = 0xA0;
    answer[8] = 0x28;
    answer[9] = 0xF0;
    answer[10] = 0x34;
    answer[11] = 0x12;
    EXPECT_EQ(identityOf(answer).manufacturer_id, 0x0028A0u);
    EXPECT_EQ(identityOf(answer).product_id, 0x1234u);
    answer[9] = 0xFF;
    answer[11] = 0xFF;
    EXPECT_EQ(identityOf(answer).manufacturer_id, 0xF28A0u);
    EXPECT_EQ(identityOf(answer).product_id, 0xFF34u);
}

TEST(DriverTexts, AreReadAsTheDriverWritesThem)
{
    EXPECT_EQ(told("1.17\n"), "1.17 2 67");
    EXPECT_EQ(told("2.5\n"), "2.5 2 67"); // 2.05
    EXPECT_EQ(told("127.99\n", "0x0028a0\n", "0xffff\n"), "127.99 10400 65535");
    EXPECT_EQ(told("0.0", "0x000157", "0x0003"), "0.0 343 3"); // without the ends of the lines
    EXPECT_EQ(told("3.1a\n"), "3.26 2 67");                    // no BCD
    EXPECT_EQ(told("3.FF\n", "0xF028A0\n"), "3.255 10400 67");
}

TEST(DriverTexts, EveryRevisionIsWhatTheDeviceGives)
{
    for (unsigned majorByte = 0; majorByte <= 0x7F; ++majorByte) {
        for (unsigned minorByte = 0; minorByte <= 0xFF; ++minorByte) {
            char text[16];
            std::snprintf(text, sizeof text, "%u.%x\n", majorByte, minorByte);
            qoripmi_identity identity = untouched();
            ASSERT_TRUE(fromDriver(text, "0x000002\n", "0x0043\n", identity)) << text;
            const qoripmi_identity device = identityOf(withRevision(majorByte, minorByte));
            ASSERT_EQ(identity.firmware_major, device.firmware_major) << text;
            ASSERT_EQ(identity.firmware_minor, device.firmware_minor) << text;
            ASSERT_EQ(identity.flags, (device.flags & QORIPMI_MINOR_BINARY) | QORIPMI_FROM_DRIVER) << text;
            ASSERT_EQ(identity.device_id + identity.ipmi_version + identity.support + identity.auxiliary[0], 0) << text;
        }
    }
}

TEST(DriverTexts, AnythingElseIsNone)
{
    for (const char* revision :
         {"",     "\n",   ".",    "1",    "1.",     ".17",    "128.1", "1.17 ",  " 1.17", "1.17\n\n", "1.117",
          "1.1g", "-1.2", "+1.2", "1,17", "1.17.2", "1000.1", "256.0", "0x1.17", "1..17", "1.-1",     "one.two"})
        EXPECT_EQ(told(revision), "none") << revision;
    for (const char* number : {"", "\n", "0x", "000002", "0x00002", "0x0000002", "2", "0x00000g", "0X000002",
                               " 0x000002", "0x000002 ", "-x000002", "0x-00002"})
        EXPECT_EQ(told("1.17\n", number), "none") << number;
    for (const char* number : {"", "0x", "0043", "0x043", "0x00043", "67", "0x00g3", "0X0043", "0x0043x"})
        EXPECT_EQ(told("1.17\n", "0x000002\n", number), "none") << number;
    EXPECT_EQ(told(std::string("1.17\0\n", 6)), "none");
    EXPECT_EQ(told(std::string("1\0.17\n", 6)), "none");
    EXPECT_EQ(told("1.17\n", std::string(40, '0')), "none");
}

TEST(DriverTexts, FileThatCouldNotBeReadIsNone)
{
    qoripmi_identity identity = untouched();
    EXPECT_FALSE(decodeDriverTexts(Line("1.17", -1), Line("0x000002", 8), Line("0x0043", 6), identity));
    EXPECT_TRUE(isUntouched(identity));
}
