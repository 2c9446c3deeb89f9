// Zoned numbers and their signs.
#include <gtest/gtest.h>

#include "support/one_item.h"

namespace fdmorph::values {
namespace {

Conventions overpunch() {
  return conventionsOf(compiler::Dialect::ibm, "ascii");
}

TEST(Zoned, HasNoLeadingZerosAndAllDecimalPlaces) {
  EXPECT_EQ(ibmItem("PIC 9(3)").textOf("F0F1F2"), "12");
  EXPECT_EQ(ibmItem("PIC 9(3)").textOf("F0F0F0"), "0");
  EXPECT_EQ(ibmItem("PIC 9(3)V99").textOf("F0F0F1F2F0"), "1.20");
  EXPECT_EQ(ibmItem("PIC 9(3)V99").textOf("F0F0F0F0F5"), "0.05");
  EXPECT_EQ(ibmItem("PIC V99").textOf("F0F5"), "0.05");
  EXPECT_EQ(ibmItem("PIC S9V9").textOf("F0D0"), "0.0");
}

TEST(Zoned, HasPositionsOfScale) {
  EXPECT_EQ(ibmItem("PIC 99PPP").textOf("F1F2"), "12000");
  EXPECT_EQ(ibmItem("PIC 99PPP").textOf("F0F0"), "0");
  EXPECT_EQ(ibmItem("PIC VPP9").textOf("F5"), "0.005");
  EXPECT_EQ(ibmItem("PIC S9P").textOf("D5"), "-50");
  EXPECT_EQ(ibmItem("PIC 99PPP").bytesOf("12000"), "F1F2");
  EXPECT_EQ(ibmItem("PIC 99PPP").bytesOf("12001"), "[precision]");
  EXPECT_EQ(ibmItem("PIC 99PPP").bytesOf("100000"), "[overflow]");
  EXPECT_EQ(ibmItem("PIC VPP9").bytesOf("0.005"), "F5");
  EXPECT_EQ(ibmItem("PIC VPP9").bytesOf(".05"), "[overflow]");
  EXPECT_EQ(ibmItem("PIC VPP9").bytesOf("0.0005"), "[precision]");
}

TEST(Zoned, OfEbcdicHasItsSignInTheZone) {
  OneItem const item = ibmItem("PIC S99");
  for (char const* positive : {"F1C2", "F1F2", "F1A2", "F1E2"}) {
    EXPECT_EQ(item.textOf(positive), "12") << positive;
  }
  for (char const* negative : {"F1D2", "F1B2"}) EXPECT_EQ(item.textOf(negative), "-12") << negative;
  for (char const* wrong : {"F102", "F142", "F192", "F1FA", "F1CF"}) {
    EXPECT_EQ(item.textOf(wrong), "[digit]") << wrong;
  }
  EXPECT_EQ(item.bytesOf("12"), "F1C2");
  EXPECT_EQ(item.bytesOf("-12"), "F1D2");
  EXPECT_EQ(item.bytesOf("-0"), "F0C0");
}

TEST(Zoned, HasALeadingSign) {
  OneItem const item = ibmItem("PIC S99 SIGN LEADING");
  EXPECT_EQ(item.textOf("D1F2"), "-12");
  EXPECT_EQ(item.textOf("C1F2"), "12");
  EXPECT_EQ(item.bytesOf("-12"), "D1F2");
  EXPECT_EQ(item.bytesOf("12"), "C1F2");
}

TEST(Zoned, WithoutASignTakesNoNegativeOne) {
  OneItem const item = ibmItem("PIC 99");
  EXPECT_EQ(item.textOf("F1C2"), "12");
  EXPECT_EQ(item.textOf("F1D2"), "[digit]");
  EXPECT_EQ(item.textOf("F1D0"), "[digit]");
  EXPECT_EQ(item.bytesOf("12"), "F1F2");
  EXPECT_EQ(item.bytesOf("-12"), "[overflow]");
  EXPECT_EQ(item.bytesOf("-0"), "F0F0");
}

TEST(Zoned, OfGnuCobolHasItsSignInADigit) {
  OneItem const item = gnuItem("PIC S99");
  EXPECT_EQ(item.textOf("31 32"), "12");
  EXPECT_EQ(item.textOf("31 72"), "-12");
  EXPECT_EQ(item.textOf("31 79"), "-19");
  EXPECT_EQ(item.textOf("31 7A"), "[digit]");
  // {A-I and }J-R
  EXPECT_EQ(item.textOf("31 7B"), "10");
  EXPECT_EQ(item.textOf("31 49"), "19");
  EXPECT_EQ(item.textOf("31 7D"), "-10");
  EXPECT_EQ(item.textOf("31 52"), "-19");
  EXPECT_EQ(item.bytesOf("12"), "3132");
  EXPECT_EQ(item.bytesOf("-12"), "3172");
  EXPECT_EQ(gnuItem("PIC 99").textOf("31 72"), "[digit]");
  EXPECT_EQ(gnuItem("PIC 99").bytesOf("12"), "3132");
}

TEST(Zoned, OfOverpunchHasItsSignInALetter) {
  OneItem const item = ibmItem("PIC S99", overpunch());
  EXPECT_EQ(item.textOf("31 7B"), "10");
  EXPECT_EQ(item.textOf("31 41"), "11");
  EXPECT_EQ(item.textOf("31 7D"), "-10");
  EXPECT_EQ(item.textOf("31 4A"), "-11");
  EXPECT_EQ(item.textOf("31 32"), "12");
  EXPECT_EQ(item.textOf("31 72"), "[digit]");
  EXPECT_EQ(item.bytesOf("10"), "317B");
  EXPECT_EQ(item.bytesOf("19"), "3149");
  EXPECT_EQ(item.bytesOf("-10"), "317D");
  EXPECT_EQ(item.bytesOf("-19"), "3152");
  EXPECT_EQ(ibmItem("PIC 99", overpunch()).bytesOf("12"), "3132");
}

TEST(Zoned, HasASeparateSign) {
  OneItem const trailing = ibmItem("PIC S99 SIGN TRAILING SEPARATE");
  EXPECT_EQ(trailing.textOf("F1F2 4E"), "12");
  EXPECT_EQ(trailing.textOf("F1F2 60"), "-12");
  EXPECT_EQ(trailing.textOf("F1F2 40"), "[digit]");
  EXPECT_EQ(trailing.textOf("F1D2 4E"), "12");  // other zones do not count
  EXPECT_EQ(trailing.bytesOf("12"), "F1F24E");
  EXPECT_EQ(trailing.bytesOf("-12"), "F1F260");
  OneItem const leading = gnuItem("PIC S9V9 SIGN LEADING SEPARATE");
  EXPECT_EQ(leading.textOf("2D 31 32"), "-1.2");
  EXPECT_EQ(leading.textOf("2B 31 32"), "1.2");
  EXPECT_EQ(leading.textOf("20 31 32"), "[digit]");
  EXPECT_EQ(leading.bytesOf("-1.2"), "2D3132");
}

TEST(Zoned, TakesAnyZoneExceptWhereTheSignIs) {
  EXPECT_EQ(ibmItem("PIC 999").textOf("11 C2 F3"), "123");
  EXPECT_EQ(ibmItem("PIC 999").textOf("00 00 F3"), "3");
  EXPECT_EQ(ibmItem("PIC 999").textOf("F1 40 F3"), "[digit]");
  EXPECT_EQ(ibmItem("PIC 999").textOf("F1 FA F3"), "[digit]");
  EXPECT_EQ(gnuItem("PIC 999").textOf("20 32 33"), "[digit]");
  EXPECT_EQ(gnuItem("PIC 999").textOf("40 32 33"), "23");
}

TEST(Zoned, TakesOnlyTheZoneOfZeroWithStrictZones) {
  Conventions conventions = ibm();
  conventions.hasStrictZones = true;
  EXPECT_EQ(ibmItem("PIC S99", conventions).textOf("F1D2"), "-12");
  EXPECT_EQ(ibmItem("PIC S99", conventions).textOf("C1D2"), "[digit]");
  EXPECT_EQ(ibmItem("PIC S99 SIGN TRAILING SEPARATE", conventions).textOf("F1D24E"), "[digit]");
}

TEST(Zoned, HasAtMost38Digits) {
  std::string digits;
  std::string text;
  for (int i = 0; i < 38; ++i) {
    digits += "39";
    text += "9";
  }
  OneItem const item = gnuItem("PIC 9(38)");
  EXPECT_EQ(item.textOf(digits), text);
  EXPECT_EQ(item.bytesOf(text), digits);
  EXPECT_EQ(item.bytesOf("1" + text), "[overflow]");
}

TEST(BlankWhenZero, MakesBlanksZero) {
  OneItem const item = ibmItem("PIC 99V9 BLANK WHEN ZERO");
  EXPECT_EQ(item.textOf("404040"), "0.0");
  EXPECT_EQ(item.textOf("40F0F1"), "[digit]");
  EXPECT_EQ(item.bytesOf("0"), "404040");
  EXPECT_EQ(item.bytesOf("0.1"), "F0F0F1");
  EXPECT_EQ(ibmItem("PIC ZZ9 BLANK WHEN ZERO").textOf("404040"), "");
}

TEST(BlankNumbers, AreErrors) {
  EXPECT_EQ(ibmItem("PIC 99").textOf("4040"), "[digit]");
  EXPECT_EQ(ibmItem("PIC 99").textOf("0000"), "[digit]");
  EXPECT_EQ(ibmItem("PIC 999 COMP-3").textOf("4040"), "[digit]");
  EXPECT_EQ(ibmItem("PIC 999 COMP-3").textOf("0000"), "[digit]");
}

TEST(BlankNumbers, AreZeroBeforeTheFirstDigit) {
  Conventions conventions = ibm();
  conventions.blankNumbers = BlankNumbers::leading;
  EXPECT_EQ(ibmItem("PIC S999", conventions).textOf("4040D7"), "-7");
  EXPECT_EQ(ibmItem("PIC S999 SIGN LEADING SEPARATE", conventions).textOf("604040F7"), "-7");
  EXPECT_EQ(ibmItem("PIC S99 SIGN LEADING", conventions).textOf("40F7"), "7");
  EXPECT_EQ(ibmItem("PIC 999", conventions).textOf("F140F7"), "[digit]");
  EXPECT_EQ(ibmItem("PIC 999", conventions).textOf("40F740"), "[digit]");
  EXPECT_EQ(ibmItem("PIC 99", conventions).textOf("4040"), "[digit]");
  EXPECT_EQ(ibmItem("PIC 999 COMP-3", conventions).textOf("4040"), "[digit]");
}

TEST(BlankNumbers, AreZero) {
  Conventions conventions = ibm();
  conventions.blankNumbers = BlankNumbers::zero;
  EXPECT_EQ(ibmItem("PIC 99V9", conventions).textOf("404040"), "0.0");
  EXPECT_EQ(ibmItem("PIC 99V9", conventions).textOf("000000"), "0.0");
  EXPECT_EQ(ibmItem("PIC 99V9", conventions).textOf("400040"), "[digit]");
  EXPECT_EQ(ibmItem("PIC S99 SIGN LEADING SEPARATE", conventions).textOf("404040"), "0");
  EXPECT_EQ(ibmItem("PIC 999 COMP-3", conventions).textOf("4040"), "0");
  EXPECT_EQ(ibmItem("PIC 99V9 COMP-3", conventions).textOf("0000"), "0.0");
  EXPECT_EQ(ibmItem("PIC 9999 COMP-6", conventions).textOf("4040"), "4040");
  EXPECT_EQ(ibmItem("PIC 99PP", conventions).textOf("4040"), "0");
  EXPECT_EQ(ibmItem("PIC 99", conventions).bytesOf(""), "[number]");
}

TEST(BlankNumbers, AreLeftOut) {
  Conventions conventions = ibm();
  conventions.blankNumbers = BlankNumbers::omit;
  EXPECT_EQ(ibmItem("PIC 99", conventions).textOf("4040"), "(omitted)");
  EXPECT_EQ(ibmItem("PIC 99", conventions).textOf("0000"), "(omitted)");
  EXPECT_EQ(ibmItem("PIC 999 COMP-3", conventions).textOf("4040"), "(omitted)");
  EXPECT_EQ(ibmItem("PIC 99 BLANK WHEN ZERO", conventions).textOf("4040"), "0");
  EXPECT_EQ(ibmItem("PIC 99", conventions).bytesOf(" "), "4040");
  EXPECT_EQ(ibmItem("PIC S999 COMP-3", conventions).bytesOf(""), "4040");
  EXPECT_EQ(ibmItem("PIC 9999 COMP-6", conventions).bytesOf(""), "[number]");
  EXPECT_EQ(ibmItem("PIC 9999 COMP", conventions).bytesOf(""), "[number]");
}

}  // namespace
}  // namespace fdmorph::values
