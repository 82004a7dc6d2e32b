// The optional libraries' readers of any bytes: a BMC's answer, the IPMI driver's texts, Xen's.

#include "companions/bmc/DeviceId.h"
#include "companions/xen/Domain.h"
#include "fuzz/Require.h"

#include <cstring>
#include <string>

using namespace VQ;

namespace
{
bool isUntouched(const qoripmi_identity& identity)
{
    qoripmi_identity expected;
    std::memset(&expected, 0xA5, sizeof expected);
    return std::memcmp(&identity, &expected, sizeof expected) == 0;
}

void checkIdentity(const qoripmi_identity& identity)
{
    require(identity.firmware_major <= 127, "the major revision has 7 bits");
    require(identity.manufacturer_id <= 0xFFFFF, "the manufacturer has 20 bits");
    require((identity.flags & QORIPMI_MINOR_BINARY) != 0 || identity.firmware_minor <= 99, "BCD has two digits");
    for (const unsigned char byte : identity.reserved)
        require(byte == 0, "what is not used is 0");
}

void checkAnswer(const unsigned char* data, std::size_t size)
{
    qoripmi_identity identity;
    std::memset(&identity, 0xA5, sizeof identity);
    if (decodeDeviceId(data, size, identity) != Verdict::Identity) {
        require(isUntouched(identity), "without an answer nothing is written");
        return;
    }
    require(size >= 12 && data[0] == 0, "an answer is whole and without an error");
    checkIdentity(identity);
    require((identity.flags & QORIPMI_FROM_DRIVER) == 0, "it came from the BMC");
}

// The three texts stand one behind the other, each ended by a zero byte.
void checkDriverTexts(const std::string& all)
{
    const std::size_t first = all.find('\0');
    const std::size_t second = first == std::string::npos ? first : all.find('\0', first + 1);
    if (second == std::string::npos)
        return;
    const auto line = [&](std::size_t from, std::size_t to) {
        return Line(all.data() + from, static_cast<int>(to - from));
    };
    qoripmi_identity identity;
    std::memset(&identity, 0xA5, sizeof identity);
    if (!decodeDriverTexts(line(0, first), line(first + 1, second), line(second + 1, all.size()), identity)) {
        require(isUntouched(identity), "without an answer nothing is written");
        return;
    }
    checkIdentity(identity);
    require((identity.flags & QORIPMI_FROM_DRIVER) != 0, "it came from the driver");
}

void checkXen(const std::string& text)
{
    const int length = static_cast<int>(text.size());
    const Line line(text.data(), length);
    if (hypervisorIsXen(line) == Says::Yes)
        require(text == "xen" || text == "xen\n", "Xen goes by one name");
    if (featuresOfControl(line) != Says::Nothing)
        require(text.size() >= 8 && text.find_first_not_of("0123456789abcdefABCDEF\n") == std::string::npos,
                "features are hexadecimal words");
    if (flagOfControl(line) != Says::Nothing)
        require(text[0] == '0' || text[0] == '1', "a flag is one digit");
    if (capabilitiesOfControl(text.data(), length) == Says::Yes)
        require(text.find("control_d") != std::string::npos, "the capability goes by its name");
}
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    checkAnswer(data, size);
    checkDriverTexts(text);
    checkXen(text);
    return 0;
}
