// Texts of one byte a character and of UTF-8.
#include <gtest/gtest.h>

#include "support/one_item.h"

namespace fdmorph::values {
namespace {

TEST(Text, LosesBlanksAndNulsAtItsEnd) {
  EXPECT_EQ(ibmItem("PIC X(5)").textOf("C1 40 C2 40 00"), "A B");
  EXPECT_EQ(ibmItem("PIC X(3)").textOf("40 40 40"), "");
  EXPECT_EQ(ibmItem("PIC X(3)").textOf("40 C1 40"), " A");
  EXPECT_EQ(gnuItem("PIC X(20)").textOf("41" + std::string(38, '0')), "A");
  std::string blanks;
  for (int i = 0; i < 19; ++i) blanks += "20";
  EXPECT_EQ(gnuItem("PIC X(20)").textOf("41" + blanks), "A");
  EXPECT_EQ(gnuItem("PIC X(21)").textOf("41" + blanks + "42"), "A                   B");
}

// A blank is x'40' in EBCDIC, and no other blank there.
TEST(Text, KeepsOtherBlanks) {
  EXPECT_EQ(ibmItem("PIC X(2)").textOf("C1 41"), "A\u00A0");
}

TEST(Text, OfJustifiedItemsLosesThemAtItsBeginning) {
  EXPECT_EQ(ibmItem("PIC X(4) JUSTIFIED RIGHT").textOf("00 40 C1 40"), "A ");
}

TEST(Text, IsTrimmedAsAskedFor) {
  Conventions conventions = ibm();
  conventions.trim = Trim::both;
  EXPECT_EQ(ibmItem("PIC X(4)", conventions).textOf("40 C1 40 00"), "A");
  EXPECT_EQ(ibmItem("PIC X(4) JUST", conventions).textOf("40 C1 40 40"), "A");
  conventions.trim = Trim::none;
  EXPECT_EQ(ibmItem("PIC X(4)", conventions).textOf("40 C1 40 00"), " A ");
  EXPECT_EQ(ibmItem("PIC X(4) JUST", conventions).textOf("00 40 C1 40"), " A ");
}

// & < > LF CR " TAB, as x'50 4C 6E 25 0D 7F 05' of code page 037.
TEST(Text, IsEscapedForXml) {
  OneItem const item = ibmItem("PIC X(8)");
  Bytes const bytes = hex("50 4C 6E 25 0D 7F 05 C1");
  EXPECT_EQ(item.textOf<Target::xmlText>(bytes), "&amp;&lt;&gt;&#10;&#13;\"\tA");
  EXPECT_EQ(item.textOf<Target::xmlAttribute>(bytes), "&amp;&lt;&gt;&#10;&#13;&quot;&#9;A");
  EXPECT_EQ(item.textOf<Target::plain>(bytes), "&<>\n\r\"\tA");
}

TEST(Text, IsEscapedForJson) {
  OneItem const item = gnuItem("PIC X(12)");
  EXPECT_EQ(item.textOf<Target::json>(hex("22 5C 08 0C 0A 0D 09 01 1F 26 7F 41")),
            "\\\"\\\\\\b\\f\\n\\r\\t\\u0001\\u001f&\x7F"
            "A");
}

TEST(Text, IsInEveryTargetTheSameWithoutSpecialCharacters) {
  OneItem const item = ibmItem("PIC X(11)");
  Bytes const bytes = hex("C8 85 93 93 96 6B 40 E6 96 99 93");
  EXPECT_EQ(item.textOf<Target::xmlText>(bytes), "Hello, Worl");
  EXPECT_EQ(item.textOf<Target::json>(bytes), "Hello, Worl");
}

// Controls are no characters of XML 1.0, but of JSON.
TEST(Text, RefusesControlsInXml) {
  OneItem const item = gnuItem("PIC X(3)");
  Bytes const bytes = hex("41 01 42");
  EXPECT_EQ(item.textOf<Target::xmlText>(bytes), "[character]");
  EXPECT_EQ(item.textOf<Target::xmlAttribute>(bytes), "[character]");
  EXPECT_EQ(item.textOf<Target::json>(bytes), "A\\u0001B");
  EXPECT_EQ(item.textOf<Target::plain>(bytes),
            "A\x01"
            "B");
  EXPECT_EQ(gnuItem("PIC X(3)").textOf("41 00 42"), "[character]");
}

TEST(Text, ReplacesOrDropsWhatXmlForbids) {
  Conventions conventions = gnuCobol();
  conventions.controls = Controls::replace;
  EXPECT_EQ(gnuItem("PIC X(3)", conventions).textOf("41 01 42"), "A\uFFFDB");
  EXPECT_EQ(gnuItem("PIC X(3)", conventions).textOf("EF BF BF"), "\uFFFD");
  EXPECT_EQ(gnuItem("PIC X(3)", conventions).textOf("41 FF 42"), "[character]");
  conventions.controls = Controls::drop;
  EXPECT_EQ(gnuItem("PIC X(3)", conventions).textOf("41 01 42"), "AB");
  EXPECT_EQ(gnuItem("PIC X(3)", conventions).textOf("EF BF BE"), "");
  EXPECT_EQ(gnuItem("PIC X(3)", conventions).textOf<Target::json>(hex("EF BF BE")), "\uFFFE");
  EXPECT_EQ(gnuItem("PIC X(3)", conventions).textOf("41 C3 42"), "[character]");
}

TEST(Text, OfUtf8IsItself) {
  EXPECT_EQ(gnuItem("PIC X(9)").textOf("C3 A9 E2 82 AC F0 9F 98 80"), "\u00E9\u20AC\U0001F600");
}

// Overlong, a surrogate, above U+10FFFF, a lone continuation, cut at the end.
TEST(Text, RefusesMalformedUtf8) {
  for (char const* bytes : {"C0 80 41 41", "ED A0 80 41", "F4 90 80 80", "80 41 41 41",
                            "41 41 E2 82", "E0 9F BF 41", "F0 8F BF BF"}) {
    EXPECT_EQ(gnuItem("PIC X(4)").textOf(bytes), "[character]") << bytes;
    EXPECT_EQ(gnuItem("PIC X(4)").textOf<Target::json>(hex(bytes)), "[character]") << bytes;
  }
}

TEST(Text, RefusesBytesThatTheEncodingLacks) {
  Conventions const ascii = conventionsOf(compiler::Dialect::gnuCobol, "ascii");
  EXPECT_EQ(gnuItem("PIC X(2)", ascii).textOf("41 80"), "[character]");
  EXPECT_EQ(gnuItem("PIC X(10)", ascii).textOf("41 41 41 41 80 41 41 41 41 41"), "[character]");
}

TEST(Text, IsStoredWithBlanksAfterIt) {
  EXPECT_EQ(ibmItem("PIC X(5)").bytesOf("Ab"), "C182404040");
  EXPECT_EQ(ibmItem("PIC X(2)").bytesOf(""), "4040");
  EXPECT_EQ(ibmItem("PIC A(2)").bytesOf("Z"), "E940");
  EXPECT_EQ(ibmItem("PIC ZZ9.99").bytesOf("1,5"), "F16BF5404040");
  EXPECT_EQ(gnuItem("PIC X(12)").bytesOf("abcdefghij"), "6162636465666768696A2020");
  EXPECT_EQ(gnuItem("PIC X(12)").bytesOf("abcdefgh\u00E9j"), "6162636465666768C3A96A20");
}

TEST(Text, OfJustifiedItemsIsStoredWithBlanksBeforeIt) {
  EXPECT_EQ(ibmItem("PIC X(4) JUST").bytesOf("A"), "404040C1");
  EXPECT_EQ(gnuItem("PIC X(4) JUST").bytesOf("\u00E9"), "2020C3A9");
}

// Blanks beyond the end are dropped: of justified items, those before the text.
TEST(Text, ThatIsTooLongIsAnError) {
  EXPECT_EQ(ibmItem("PIC X(3)").bytesOf("ABCD"), "[length]");
  EXPECT_EQ(ibmItem("PIC X(3)").bytesOf("ABC   "), "C1C2C3");
  EXPECT_EQ(ibmItem("PIC X(3)").bytesOf("ABC  D"), "[length]");
  EXPECT_EQ(ibmItem("PIC X(3) JUST").bytesOf("ABCD"), "[length]");
  EXPECT_EQ(ibmItem("PIC X(3) JUST").bytesOf("  ABC"), "C1C2C3");
}

// The length is in bytes of the encoding.
TEST(Text, ThatIsTooLongIsCutBetweenCharacters) {
  EXPECT_EQ(gnuItem("PIC X(3)").bytesOf("A\u20AC"), "[length]");
  Conventions conventions = gnuCobol();
  conventions.truncates = true;
  EXPECT_EQ(gnuItem("PIC X(3)", conventions).bytesOf("A\u20AC"), "412020");
  EXPECT_EQ(gnuItem("PIC X(3)", conventions).bytesOf("A\u20ACB"), "412020");
  EXPECT_EQ(gnuItem("PIC X(3)", conventions).bytesOf("ABCD"), "414243");
  EXPECT_EQ(gnuItem("PIC X(3) JUST", conventions).bytesOf("ABCD"), "424344");
  EXPECT_EQ(gnuItem("PIC X(3) JUST", conventions).bytesOf("\u20ACA"), "202041");
}

TEST(Text, WithACharacterThatTheEncodingLacksIsAnError) {
  EXPECT_EQ(ibmItem("PIC X(3)").bytesOf("A\u20AC"), "[character]");
  Conventions conventions = ibm();
  conventions.unmappable = U'?';
  EXPECT_EQ(ibmItem("PIC X(3)", conventions).bytesOf("A\u20ACB"), "C16FC2");
  conventions.unmappable = U'\u20AC';  // the encoding lacks this one, too
  EXPECT_EQ(ibmItem("PIC X(3)", conventions).bytesOf("\u2022"), "[character]");
}

TEST(Text, ThatIsNotUtf8IsAnErrorWhateverReplacesCharacters) {
  Conventions conventions = ibm();
  conventions.unmappable = U'?';
  for (char const* text : {"A\xFF", "\xED\xA0\x80", "\xC3"}) {
    EXPECT_EQ(ibmItem("PIC X(3)", conventions).bytesOf(text), "[character]");
    EXPECT_EQ(gnuItem("PIC X(3)").bytesOf(text), "[character]");
    EXPECT_EQ(gnuItem("PIC X(3) JUST").bytesOf(text), "[character]");
  }
}

TEST(Text, OfControlsIsStored) {
  EXPECT_EQ(ibmItem("PIC X(3)").bytesOf(std::string_view("\0\n\t", 3)), "002505");
}

}  // namespace
}  // namespace fdmorph::values
