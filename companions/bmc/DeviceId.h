#pragma once

#include "companions/SmallFile.h"
#include "companions/bmc/qoripmi.h"

#include <cstddef>

namespace VQ
{

/// What an answer to Get Device ID comes to.
enum class Verdict
{
    Identity, ///< it says who the BMC is
    AskAgain, ///< the BMC is busy, or lost the question: ask again
    Refused   ///< an error, or too short to be an answer
};

/// Reads the data of an answer to Get Device ID, which begin with the completion code. `identity` is written only for
/// Verdict::Identity. Longer answers than the standard's are taken: each field has its fixed place. The bit above the
/// major revision is no part of it, and the minor revision is read as BCD where it is one.
Verdict decodeDeviceId(const unsigned char* data, std::size_t length, qoripmi_identity& identity);

/// Reads what the driver tells of a BMC in sysfs: `firmware_revision` ("1.17"), `manufacturer_id` ("0x0028a0") and
/// `product_id` ("0x0043"). False, with nothing written, when one of them is anything else.
bool decodeDriverTexts(Line revision, Line manufacturer, Line product, qoripmi_identity& identity);

}
