// Text conversions, product names and dates of any bytes.

#include "fuzz/Require.h"
#include "support/common/DateTime.h"
#include "support/common/ProductName.h"
#include "support/common/Text.h"
#include "support/pegasus/CimDateTime.h"
#include "support/pegasus/CimText.h"

#include <cstring>
#include <string>

using namespace VQ;

namespace
{
void checkNarrow(const std::string& text)
{
    const std::wstring wide = make_wstring(text);
    const std::string utf8 = make_string(wide);
    require(utf8.size() >= text.size(), "no byte is lost");
    require(utf8.size() > text.size() || utf8 == text, "UTF-8 is kept as it stands");
    require(make_wstring(utf8) == wide, "what is written is read back");
    require(make_string(make_String(text)) == utf8, "a CIM string has the same characters");
}

void checkWide(const unsigned char* data, std::size_t size)
{
    std::wstring wide(size / sizeof(wchar_t), L'\0');
    if (!wide.empty())
        std::memcpy(wide.data(), data, wide.size() * sizeof(wchar_t));
    const std::string utf8 = make_string(wide);
    require(make_wstring(utf8).size() == wide.size(), "each character stays one");
    require(make_string(make_wstring(utf8)) == utf8, "any wide text becomes UTF-8");
    require(make_string(make_String(wide)) == utf8, "a CIM string has the same characters");
}

void checkCimString(const unsigned char* data, std::size_t size)
{
    Pegasus::String string;
    for (std::size_t i = 0; i + 1 < size; i += 2)
        string.append(Pegasus::Char16(static_cast<Pegasus::Uint16>(data[i] | data[i + 1] << 8)));
    const std::string utf8 = make_string(string);
    require(make_string(make_wstring(utf8)) == utf8, "any CIM string becomes UTF-8");
}

void checkProductName(const std::string& text)
{
    const ProductName name(text);
    const std::string block = "-[" + name.getArchitectedData() + "]-";
    const std::string rest = name.getUnarchitectedData();
    if (rest.size() == text.size()) {
        require(name.getArchitectedData().empty() && rest == text, "without a block the whole text is the rest");
        return;
    }
    const std::size_t at = text.find(block);
    require(at != std::string::npos && text.substr(0, at) + text.substr(at + block.size()) == rest,
            "block and rest make the text");
    require(text.find("-[") == at, "the first opening mark begins the block");
}

void checkTrimmed(const std::string& text)
{
    const std::string trimmed = trimBlanks(text);
    require(text.find(trimmed) != std::string::npos && trimBlanks(trimmed) == trimmed, "trimming is done at once");
    const bool blankOnly = text.find_first_not_of(' ') == std::string::npos;
    require(blankOnly ? trimmed == text : trimmed.front() != ' ' && trimmed.back() != ' ', "no blank at an end");
}

// A digit or an unknown in every place but the two separators.
void checkCim(const DateTime& date)
{
    const std::string text = make_string(make_CIMDateTime(date).toString());
    require(text.size() == 25 && text[14] == '.' && (text[21] == '+' || text[21] == '-'), "a date is a timestamp");
    const std::size_t unknown = text.find('*');
    require(unknown == std::string::npos ||
                (text.substr(unknown, 21 - unknown).find_first_not_of("*.") == std::string::npos &&
                 (unknown == 0 || unknown == 4 || unknown == 6 || unknown == 8 || unknown == 10 || unknown == 12 ||
                  unknown == 15)),
            "from the first unknown field on all fields are unknown");
}

void checkDates(const unsigned char* data, std::size_t size)
{
    DateTime any;
    if (size < sizeof any)
        return;
    std::memcpy(static_cast<void*>(&any), data, sizeof any); // every field has every value, as no constructor gives it
    checkCim(any);

    long seconds = 0;
    std::memcpy(&seconds, data, sizeof seconds);
    const DateTime instant(seconds, data[sizeof seconds]);
    require(!(instant != DateTime()) || (instant.getMonth() >= 1 && instant.getMonth() <= 12 && instant.getDay() >= 1 &&
                                         instant.getDay() <= 31 && instant.getHour() <= 23),
            "an instant has the fields of a date");
    checkCim(instant);
}
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    checkNarrow(text);
    checkWide(data, size);
    checkCimString(data, size);
    checkProductName(text);
    checkTrimmed(text);
    checkDates(data, size);
    return 0;
}
