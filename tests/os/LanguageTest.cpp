// Language edition and code set. The two read the same variable by different rules; the asymmetry is meant.

#include "os/OperatingSystem.h"
#include "tests/testing/FakeLibc.h"

#include <cstdlib>
#include <ostream>

using VQ::OperatingSystem;

namespace
{
constexpr const char* Unset = nullptr;

void setVariable(const char* name, const char* value)
{
    if (value)
        setenv(name, value, 1);
    else
        unsetenv(name);
}

struct Language
{
    const char* lang;
    const char* lcCtype;
    const char* edition;
    const char* codeSet; ///< LIBC where libc must be asked
};

std::ostream& operator<<(std::ostream& out, const Language& l)
{
    return out << "LANG " << (l.lang ? l.lang : "unset") << ", LC_CTYPE " << (l.lcCtype ? l.lcCtype : "unset");
}

const Language Languages[] = {
    // the ordinary forms
    {"en_US.UTF-8", Unset, "en-US", "UTF-8"},
    {"de_DE.ISO-8859-1", Unset, "de-DE", "ISO-8859-1"},
    {"POSIX", Unset, "POSIX", "POSIX"},
    {"C", Unset, "C", "C"},
    {"C.UTF-8", Unset, "C", "UTF-8"},
    {"en_US", Unset, "en-US", "en_US"},
    // no value
    {Unset, Unset, "", "LIBC"},
    {"", Unset, "", "LIBC"},
    {"", "", "", "LIBC"},
    // LC_CTYPE in place of an empty LANG, for the edition only
    {Unset, " de_DE.ISO-8859-1 ", "de-DE", "LIBC"},
    {"", "fr_FR.UTF-8", "fr-FR", "LIBC"},
    {Unset, "   ", "   ", "LIBC"},
    {"en_US.UTF-8", "de_DE.ISO-8859-1", "en-US", "UTF-8"},
    // blanks; a value of nothing else is a value
    {"   ", Unset, "   ", "   "},
    {"   ", "de_DE.ISO-8859-1", "   ", "   "},
    {" ", Unset, " ", " "},
    {"  en_US.UTF-8  ", Unset, "en-US", "UTF-8"},
    {"  en_US", Unset, "en-US", "en_US"},
    {"en_US  ", Unset, "en-US", "en_US"},
    {"en US.UTF 8", Unset, "en US", "UTF 8"},
    {"en_US .UTF-8", Unset, "en-US ", "UTF-8"},
    {"en_US. UTF-8", Unset, "en-US", " UTF-8"},
    {"\ten_US.UTF-8\t", Unset, "\ten-US", "UTF-8\t"},
    // modifiers are nothing special
    {"en_US.UTF-8@euro", Unset, "en-US", "UTF-8@euro"},
    {"de_DE@euro", Unset, "de-DE@euro", "de_DE@euro"},
    {"ca_ES@my_mod.x", Unset, "ca-ES@my-mod", "x"},
    // the edition is cut at the last dot, the code set at the first
    {"x.y.z", Unset, "x.y", "y.z"},
    {"a_b.c_d.e_f", Unset, "a-b.c-d", "c_d.e_f"},
    {"en_US..UTF-8", Unset, "en-US.", ".UTF-8"},
    {".", Unset, "", "LIBC"},
    {" . ", Unset, "", "LIBC"},
    {"..", Unset, ".", "."},
    {".UTF-8", Unset, "", "UTF-8"},
    {"en_US.", Unset, "en-US", "LIBC"},
    {".", "fr_FR", "", "LIBC"},
    // underscores
    {"_", Unset, "-", "_"},
    {"zh_Hant_TW.UTF-8", Unset, "zh-Hant-TW", "UTF-8"},
    // text outside ASCII passes as it is
    {"\xC3\xA9_\xFF.\xE9", Unset, "\xC3\xA9-\xFF", "\xE9"},
};

class LanguageOf : public FakeLibcTest, public testing::WithParamInterface<Language>
{
protected:
    LanguageOf()
    {
        libc.codeSet = "LIBC";
        setVariable("LANG", GetParam().lang);
        setVariable("LC_CTYPE", GetParam().lcCtype);
    }
};

using CodeSet = FakeLibcTest;
}

TEST_P(LanguageOf, EnvironmentIsItsEdition)
{
    EXPECT_EQ(OperatingSystem().getLanguageEdition(), GetParam().edition);
    EXPECT_EQ(libc.langinfoCalls, 0);
}

TEST_P(LanguageOf, EnvironmentIsItsCodeSetAndLibcIsAskedOnlyWhenItHasNone)
{
    EXPECT_EQ(OperatingSystem().getCodeSet(), GetParam().codeSet);
    EXPECT_EQ(libc.langinfoCalls, GetParam().codeSet == std::string("LIBC") ? 1 : 0);
}

TEST_P(LanguageOf, EnvironmentDoesNotDependOnOtherVariables)
{
    setenv("LC_ALL", "ja_JP.EUC-JP", 1);
    EXPECT_EQ(OperatingSystem().getLanguageEdition(), GetParam().edition);
    EXPECT_EQ(OperatingSystem().getCodeSet(), GetParam().codeSet);
}

INSTANTIATE_TEST_SUITE_P(Languages, LanguageOf, testing::ValuesIn(Languages));

TEST_F(CodeSet, OfLibcIsTakenAsItStands)
{
    libc.codeSet = " ANSI_X3.4-1968 ";
    EXPECT_EQ(OperatingSystem().getCodeSet(), " ANSI_X3.4-1968 ");
}

TEST_F(CodeSet, IsEmptyWhenLibcHasNone)
{
    libc.codeSet = "";
    EXPECT_EQ(OperatingSystem().getCodeSet(), "");
}

TEST_F(CodeSet, IsWholeHoweverLongTheVariable)
{
    setenv("LANG", (std::string(5000, 'a') + "." + std::string(7000, 'b')).c_str(), 1);
    EXPECT_EQ(OperatingSystem().getLanguageEdition(), std::string(5000, 'a'));
    EXPECT_EQ(OperatingSystem().getCodeSet(), std::string(7000, 'b'));
}
