// Texts in XML: references, and bytes that are no UTF-8.

#include "tools/vqfleet/XmlText.h"

#include <gtest/gtest.h>
#include <stdexcept>

using namespace VQ::Tool;

TEST(XmlText, UnescapesWhatXmlDefinesAndNumbersInBothBases)
{
    EXPECT_EQ(unescapedXml("a &lt;b&gt; &amp; &quot;c&quot; &apos;d&apos;"), "a <b> & \"c\" 'd'");
    EXPECT_EQ(unescapedXml("&#65;&#x42;&#x63;"), "ABc");
}

TEST(XmlText, KeepsCharactersThatXmlForbids)
{
    EXPECT_EQ(unescapedXml("a&#1;b&#27;[31m&#13;"), "a\001b\033[31m\r");
    EXPECT_EQ(unescapedXml("a&#0;b"), std::string("a\0b", 3));
}

TEST(XmlText, JoinsTheHalvesOfACharacter)
{
    EXPECT_EQ(unescapedXml("&#55357;&#56832;"), "\xF0\x9F\x98\x80");
    EXPECT_EQ(unescapedXml("&#55357;x"), "\xEF\xBF\xBDx");
    EXPECT_EQ(unescapedXml("&#56832;"), "\xEF\xBF\xBD");
    EXPECT_EQ(unescapedXml("&#xe4;&#x20AC;&#x10FFFF;"), "\xC3\xA4\xE2\x82\xAC\xF4\x8F\xBF\xBF");
}

TEST(XmlText, RefusesWhatNamesNoCharacter)
{
    for (const char* raw : {"&lol;", "&#;", "&#x;", "&#12a;", "&#x110000;", "&#99999999999999999999;", "&", "&amp",
                            "&#-1;", "&;", "&Lt;"})
        EXPECT_THROW(unescapedXml(raw), std::runtime_error) << raw;
}

TEST(XmlText, EscapesSoThatUnescapingGivesTheSame)
{
    const std::string text = "a<b>&\"c\"\001\t\n\r \xC3\xA4";
    EXPECT_EQ(escapedXml(text), "a&lt;b&gt;&amp;&quot;c&quot;&#1;&#9;&#10;&#13; \xC3\xA4");
    EXPECT_EQ(unescapedXml(escapedXml(text)), text);
}

TEST(XmlText, TakesBytesThatAreNoUtf8AsLatin1)
{
    EXPECT_EQ(validUtf8("\xE4\xC3\xA4"), "\xC3\xA4\xC3\xA4");
    EXPECT_EQ(validUtf8("\xF0\x9F\x98\x80"), "\xF0\x9F\x98\x80");
    EXPECT_EQ(validUtf8("\xC0\x80"), "\xC3\x80\xC2\x80") << "longer than it needs to be";
    EXPECT_EQ(validUtf8("\xED\xA0\x80"), "\xC3\xAD\xC2\xA0\xC2\x80") << "half a character";
    EXPECT_EQ(validUtf8("\xE2\x82"), "\xC3\xA2\xC2\x82") << "cut off";
    EXPECT_EQ(validUtf8("\xF5\x80\x80\x80"), "\xC3\xB5\xC2\x80\xC2\x80\xC2\x80") << "beyond the last character";
}
