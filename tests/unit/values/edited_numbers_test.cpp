// Numeric-edited items as numbers. The texts are those that GnuCOBOL makes.
#include <gtest/gtest.h>

#include "support/one_item.h"

namespace fdmorph::values {
namespace {

Conventions edited(Conventions conventions = gnuCobol()) {
  conventions.hasEditedNumbers = true;
  return conventions;
}

Bytes bytesOfText(std::string_view text) {
  return {text.begin(), text.end()};
}

// The text of a number in a picture, or an error in brackets.
std::string edit(std::string const& picture, std::string_view number) {
  std::string const result = gnuItem("PIC " + picture, edited()).bytesOf(number);
  if (result.starts_with('[')) return result;
  Bytes const bytes = hex(result);
  return {bytes.begin(), bytes.end()};
}

std::string read(std::string const& picture, std::string_view text) {
  return gnuItem("PIC " + picture, edited()).textOf(bytesOfText(text));
}

struct Sample {
  char const* picture;
  char const* number;
  char const* text;
};

constexpr Sample kSamples[] = {
    // Zero suppression.
    {"ZZ9", "7", "  7"},
    {"ZZ9", "0", "  0"},
    {"ZZZ", "0", "   "},
    {"ZZZ.ZZ", "0.05", "   .05"},
    {"ZZZ.ZZ", "0.00", "      "},
    {"ZZ,ZZ9.99", "1234.50", " 1,234.50"},
    {"ZZ,ZZZ.99", "0.00", "      .00"},
    {"**,***.**", "12.34", "****12.34"},
    {"**,***.**", "0.00", "******.**"},
    {"Z,ZZZV99", "12.34", "   1234"},
    // Fixed signs.
    {"+99", "5", "+05"},
    {"+99", "-5", "-05"},
    {"-99", "5", " 05"},
    {"-99", "-5", "-05"},
    {"ZZ9-", "-12", " 12-"},
    {"ZZ9+", "12", " 12+"},
    {"+ZZ,ZZZ.ZZ", "0.00", "          "},
    {"+ZZ,ZZZ.ZZ", "-0.05", "-      .05"},
    {"ZZ9.99CR", "-1.50", "  1.50CR"},
    {"ZZ9.99CR", "1.50", "  1.50  "},
    {"ZZ9DB", "-1", "  1DB"},
    {"**.**CR", "0.00", "**.****"},
    // Floating signs and currency signs.
    {"++9", "5", " +5"},
    {"++9", "-15", "-15"},
    {"---9.99", "-1.25", "  -1.25"},
    {"---9.99", "1.25", "   1.25"},
    {"++,+++.++", "123.45", "  +123.45"},
    {"++,+++.++", "-0.05", "     -.05"},
    {"++,+++.++", "0.00", "         "},
    {"$$,$$9.99CR", "-12.34", "   $12.34CR"},
    {"$$,$$9.99CR", "2345.67", "$2,345.67  "},
    {"$ZZ9.99", "1.50", "$  1.50"},
    {"-$ZZ,ZZ9.99", "-12.34", "-$    12.34"},
    {"$**,***.**", "5.00", "$*****5.00"},
    {"$--,--9.99", "-12.34", "$   -12.34"},
    // Insertions.
    {"99B99/99", "123", "00 01/23"},
    {"/ZZ,ZZ9.99-", "123.45", "/   123.45 "},
    {"ZZ/ZZ0.ZZ", "5.00", "  / 50.00"},
    {"9,999", "12", "0,012"},
    {"ZZBZZ9", "12345", "12 345"},
    {"ZZBZZ9", "12", "    12"},
    // Digits that are not stored.
    {"ZZ9PP", "1200", " 12"},
};

TEST(EditedNumber, IsEditedByThePicture) {
  for (Sample const& sample : kSamples) {
    EXPECT_EQ(edit(sample.picture, sample.number), sample.text) << sample.picture;
  }
}

TEST(EditedNumber, IsReadFromItsCharacters) {
  for (Sample const& sample : kSamples) {
    EXPECT_EQ(read(sample.picture, sample.text), sample.number) << sample.picture;
  }
}

TEST(EditedNumber, IsReadWithZerosThatAreNotSuppressed) {
  EXPECT_EQ(read("ZZ9", "007"), "7");
  EXPECT_EQ(read("ZZ,ZZ9", "01,234"), "1234");
  EXPECT_EQ(read("ZZ/ZZ9", "     5"), "5");
}

TEST(EditedNumber, IsWrongIfThePictureDoesNotShowIt) {
  for (Sample const& sample :
       {Sample{"ZZ9", "", "   "}, Sample{"ZZ9", "", "1 2"}, Sample{"ZZ9", "", "12A"},
        Sample{"ZZ9.9", "", " 1234"}, Sample{"ZZZ.Z", "", "   . "}, Sample{"99", "", " 1"},
        Sample{"ZZ9-", "", "  1+"}, Sample{"ZZ9CR", "", "  1DB"}, Sample{"Z,ZZ9", "", "1 234"},
        Sample{"$Z9", "", " 12"}, Sample{"99/99", "", "12-34"}, Sample{"ZZ9", "", "-12"}}) {
    EXPECT_EQ(read(sample.picture, sample.text), "[digit]") << sample.picture << sample.text;
  }
}

TEST(EditedNumber, HasTheErrorsOfNumbers) {
  EXPECT_EQ(edit("ZZ9", "1000"), "[overflow]");
  EXPECT_EQ(edit("ZZ9", "-1"), "[overflow]");
  EXPECT_EQ(edit("ZZ9", "0.5"), "[precision]");
  EXPECT_EQ(edit("ZZ9", "A"), "[number]");
  EXPECT_EQ(edit("ZZ9", ""), "[number]");
  EXPECT_EQ(edit("++9", "100"), "[overflow]");  // the first sign is no digit
}

TEST(EditedNumber, IsInTheEncoding) {
  OneItem const item = ibmItem("PIC ZZ9.99-", edited(ibm()));
  EXPECT_EQ(item.bytesOf("-1.50"), "4040F14BF5F060");
  EXPECT_EQ(item.textOf("4040F14BF5F060"), "-1.50");
}

TEST(EditedNumber, HasADecimalCommaOrACurrencySignOfTheProgram) {
  std::string const before =
      "IDENTIFICATION DIVISION.\nPROGRAM-ID. P.\nENVIRONMENT DIVISION.\n"
      "CONFIGURATION SECTION.\nSPECIAL-NAMES. CURRENCY SIGN IS \"EUR\" WITH PICTURE SYMBOL \"U\"\n"
      " DECIMAL-POINT IS COMMA.\nDATA DIVISION.\nWORKING-STORAGE SECTION.\n01 R.\n";
  auto const dialect = compiler::Dialect::gnuCobol;
  OneItem const comma("PIC Z.ZZ9,99", edited(), dialect, before);
  EXPECT_EQ(hexOf(bytesOfText("1.234,50")), comma.bytesOf("1234.5"));
  EXPECT_EQ(comma.textOf(bytesOfText("1.234,50")), "1234.50");
  OneItem const fixed("PIC UZZ9", edited(), dialect, before);
  EXPECT_EQ(hexOf(bytesOfText("EUR  5")), fixed.bytesOf("5"));
  EXPECT_EQ(fixed.textOf(bytesOfText("EUR  5")), "5");
  OneItem const floating("PIC UUUU9", edited(), dialect, before);
  EXPECT_EQ(hexOf(bytesOfText("   EUR5")), floating.bytesOf("5"));
  EXPECT_EQ(hexOf(bytesOfText(" EUR123")), floating.bytesOf("123"));
  EXPECT_EQ(floating.textOf(bytesOfText(" EUR123")), "123");
}

// On an edited picture the clause changes nothing.
TEST(EditedNumber, IgnoresBlankWhenZero) {
  EXPECT_EQ(edit("ZZ9 BLANK WHEN ZERO", "0"), "  0");
  EXPECT_EQ(read("ZZ9 BLANK WHEN ZERO", "   "), "[digit]");
}

TEST(EditedNumber, IsATextUnlessAskedFor) {
  EXPECT_EQ(gnuItem("PIC ZZ9").textOf("202037"), "  7");
  EXPECT_EQ(gnuItem("PIC ZZ9").bytesOf("7"), "372020");
}

}  // namespace
}  // namespace fdmorph::values
