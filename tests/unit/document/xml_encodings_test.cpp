#include <gtest/gtest.h>

#include "support/document_fixture.h"

namespace fdmorph::document {
namespace {

std::string utf16(std::u16string_view text, bool isBig) {
  std::string out;
  for (char16_t unit : text) {
    char high = static_cast<char>(unit >> 8U);
    char low = static_cast<char>(unit & 0xFFU);
    out += isBig ? high : low;
    out += isBig ? low : high;
  }
  return out;
}

class XmlEncodings : public testing::TestWithParam<std::size_t> {
 protected:
  XmlEncodings() : fixture("A B") { fixture.blockSize = GetParam(); }
  DocumentFixture fixture;
};

TEST_P(XmlEncodings, AreUtf16InBothOrders) {
  for (bool isBig : {false, true}) {
    EXPECT_EQ(fixture.readXml(utf16(u"\uFEFF<l>\n<A>\u20AC\U0001F600</A></l>", isBig)),
              "1 A=\xE2\x82\xAC\xF0\x9F\x98\x80\n");
    EXPECT_EQ(fixture.readXml(utf16(u"\uFEFF<?xml version='1.0' encoding='UTF-16'?><A>1</A>\n"
                                    u"<A>\u0A0A</A>\n",
                                    isBig)),
              "1 A=1\n2 A=\xE0\xA8\x8A\n");
  }
}

// The mark has 2 bytes. The character U+0A0A has no line end in it.
TEST_P(XmlEncodings, CountBytesOfUtf16) {
  for (bool isBig : {false, true}) {
    EXPECT_EQ(fixture.readXml(utf16(u"\uFEFF<l><x/>\u0A0A\n\n <y/></l>", isBig)),
              "1 [1:9 unknown x: no record has this name]\n"
              "2 [3:3 unknown y: no record has this name]\n");
    EXPECT_EQ(fixture.readXml(utf16(u"\uFEFF<A/>\n  <x/>", isBig)),
              "1 A\n2 [2:5 unknown x: no record has this name]\n");
  }
}

TEST_P(XmlEncodings, AreThoseOfTheDeclaration) {
  EXPECT_EQ(fixture.readXml("<?xml version='1.0' encoding='ISO-8859-1'?><A>\xFC</A>\n<A>\xE4</A>"),
            "1 A=\xC3\xBC\n2 A=\xC3\xA4\n");
  EXPECT_EQ(fixture.readXml("<?xml version='1.0' encoding='US-ASCII'?><A>\xFC</A>"),
            "1 [1:45 xml not well-formed (invalid token)]\n");
  EXPECT_EQ(fixture.readXml("<?xml version='1.0' encoding='utf-8'?><A>\xC3\xBC</A>"),
            "1 A=\xC3\xBC\n");
  EXPECT_EQ(fixture.readXml("<?xml version='1.0' encoding='none'?><A/>"),
            "1 [1:31 xml unknown encoding]\n");
}

TEST_P(XmlEncodings, AreCodePagesOfOneByte) {
  EXPECT_EQ(fixture.readXml("<?xml version='1.0' encoding='windows-1252'?>"
                            "<A>\x80</A>\n<A>\x80</A>"),
            "1 A=\xE2\x82\xAC\n2 A=\xE2\x82\xAC\n");
  // A byte without a character, and an encoding in which `<` is another byte.
  EXPECT_EQ(fixture.readXml("<?xml version='1.0' encoding='ISO-8859-8'?>\n<A>\xA1</A>"),
            "1 [2:4 xml not well-formed (invalid token)]\n");
  EXPECT_EQ(fixture.readXml("<?xml version='1.0' encoding='IBM037'?><A/>"),
            "1 [1:31 xml unknown encoding]\n");
  EXPECT_EQ(fixture.readXml("<?xml version='1.0' encoding='Shift_JIS'?><A/>"),
            "1 [1:31 xml unknown encoding]\n");
}

TEST_P(XmlEncodings, MayHaveAByteOrderMarkInUtf8) {
  EXPECT_EQ(fixture.readXml("\xEF\xBB\xBF<l>\n<x/></l>"),
            "1 [2:1 unknown x: no record has this name]\n");
  EXPECT_EQ(fixture.readXml("\xEF\xBB\xBF<A/>\n<A/>"), "1 A\n2 A\n");
}

INSTANTIATE_TEST_SUITE_P(Blocks, XmlEncodings, testing::Values(1, 3, 4096));

}  // namespace
}  // namespace fdmorph::document
