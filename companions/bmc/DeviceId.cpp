#include "companions/bmc/DeviceId.h"

#include <cstdint>
#include <cstring>

namespace VQ
{

static_assert(sizeof(qoripmi_identity) == 32, "callers reserve 32 bytes");
static_assert(offsetof(qoripmi_identity, manufacturer_id) == 4 && offsetof(qoripmi_identity, product_id) == 8 &&
                  offsetof(qoripmi_identity, firmware_major) == 10 && offsetof(qoripmi_identity, firmware_minor) == 11,
              "callers read these places");

namespace
{
constexpr std::size_t ShortestAnswer = 12;
constexpr std::size_t AnswerWithAuxiliary = 16;
constexpr unsigned MajorBits = 0x7F;
constexpr unsigned UpdatingBit = 0x80;
constexpr unsigned ManufacturerBits = 0xFFFFF;

// Node busy, timeout, command response could not be provided, the same while in update, initialization and for a
// destination that is not available, command not supported in present state.
bool meansBusy(unsigned char completionCode)
{
    switch (completionCode) {
    case 0xC0:
    case 0xC3:
    case 0xCE:
    case 0xD0:
    case 0xD1:
    case 0xD2:
    case 0xD5:
        return true;
    default:
        return false;
    }
}

void setMinor(qoripmi_identity& identity, unsigned byte)
{
    const unsigned tens = byte >> 4;
    const unsigned ones = byte & 0x0F;
    const bool isBcd = tens <= 9 && ones <= 9;
    identity.firmware_minor = static_cast<std::uint8_t>(isBcd ? tens * 10 + ones : byte);
    if (!isBcd)
        identity.flags |= QORIPMI_MINOR_BINARY;
}
}

Verdict decodeDeviceId(const unsigned char* data, std::size_t length, qoripmi_identity& identity)
{
    if (length >= 1 && data[0] != 0)
        return meansBusy(data[0]) ? Verdict::AskAgain : Verdict::Refused;
    if (length < ShortestAnswer)
        return Verdict::Refused;
    qoripmi_identity found = {};
    found.device_id = data[1];
    found.device_revision = data[2];
    found.firmware_major = static_cast<std::uint8_t>(data[3] & MajorBits);
    if ((data[3] & UpdatingBit) != 0)
        found.flags |= QORIPMI_UPDATING;
    setMinor(found, data[4]);
    found.ipmi_version = data[5];
    found.support = data[6];
    found.manufacturer_id =
        (data[7] | static_cast<unsigned>(data[8]) << 8 | static_cast<unsigned>(data[9]) << 16) & ManufacturerBits;
    found.product_id = static_cast<std::uint16_t>(data[10] | static_cast<unsigned>(data[11]) << 8);
    if (length >= AnswerWithAuxiliary) {
        std::memcpy(found.auxiliary, data + 12, sizeof found.auxiliary);
        found.flags |= QORIPMI_AUXILIARY;
    }
    identity = found;
    return Verdict::Identity;
}

// The driver writes the minor revision's byte in hexadecimal, so that BCD shows as the digits that it stands for.
bool decodeDriverTexts(Line revision, Line manufacturer, Line product, qoripmi_identity& identity)
{
    unsigned majorRevision = 0;
    unsigned minorRevision = 0;
    unsigned manufacturerId = 0;
    unsigned productId = 0;
    if (!revision.takeNumber(10, 1, 3, majorRevision) || majorRevision > MajorBits || !revision.take(".") ||
        !revision.takeNumber(16, 1, 2, minorRevision) || !revision.atEnd())
        return false;
    if (!manufacturer.take("0x") || !manufacturer.takeNumber(16, 6, 6, manufacturerId) || !manufacturer.atEnd())
        return false;
    if (!product.take("0x") || !product.takeNumber(16, 4, 4, productId) || !product.atEnd())
        return false;
    identity = {};
    identity.flags = QORIPMI_FROM_DRIVER;
    identity.firmware_major = static_cast<std::uint8_t>(majorRevision);
    setMinor(identity, minorRevision);
    identity.manufacturer_id = manufacturerId & ManufacturerBits;
    identity.product_id = static_cast<std::uint16_t>(productId);
    return true;
}

}
