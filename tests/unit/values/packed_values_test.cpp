// Packed numbers.
#include <gtest/gtest.h>

#include "support/one_item.h"

namespace fdmorph::values {
namespace {

TEST(Packed, HasItsSignInTheLastNibble) {
  OneItem const item = ibmItem("PIC S9(3)V99 COMP-3");
  for (char const* positive : {"12345C", "12345A", "12345E", "12345F"}) {
    EXPECT_EQ(item.textOf(positive), "123.45") << positive;
  }
  for (char const* negative : {"12345D", "12345B"}) {
    EXPECT_EQ(item.textOf(negative), "-123.45") << negative;
  }
  EXPECT_EQ(item.textOf("00000D"), "0.00");
  EXPECT_EQ(item.textOf("123450"), "[digit]");
  EXPECT_EQ(item.textOf("123459"), "[digit]");
  EXPECT_EQ(item.textOf("1A345C"), "[digit]");
  EXPECT_EQ(item.textOf("A2345C"), "[digit]");
  EXPECT_EQ(item.textOf("1234AC"), "[digit]");
  EXPECT_EQ(item.bytesOf("123.45"), "12345C");
  EXPECT_EQ(item.bytesOf("-1"), "00100D");
  EXPECT_EQ(item.bytesOf("-0.00"), "00000C");
}

TEST(Packed, WithoutASignIsWrittenWithF) {
  OneItem const item = ibmItem("PIC 9(3) COMP-3");
  EXPECT_EQ(item.bytesOf("123"), "123F");
  EXPECT_EQ(item.textOf("123C"), "123");
  EXPECT_EQ(item.textOf("123D"), "[digit]");
  EXPECT_EQ(item.bytesOf("-1"), "[overflow]");
}

TEST(Packed, OfAnEvenNumberOfDigitsHasAPad) {
  OneItem const item = ibmItem("PIC S9(4) COMP-3");
  EXPECT_EQ(item.textOf("01234C"), "1234");
  EXPECT_EQ(item.textOf("11234C"), "[range]");
  EXPECT_EQ(item.textOf("91234C"), "[range]");
  EXPECT_EQ(item.textOf("A1234C"), "[digit]");
  EXPECT_EQ(item.bytesOf("-1234"), "01234D");
  EXPECT_EQ(item.bytesOf("12345"), "[overflow]");
}

TEST(Packed, KeepsItsPadWithTheFullRangeOfBinaryNumbers) {
  Conventions conventions = ibm();
  conventions.hasFullBinaryRange = true;
  EXPECT_EQ(ibmItem("PIC S9(4) COMP-3", conventions).textOf("11234C"), "[range]");
}

TEST(Packed, HasPositionsOfScale) {
  EXPECT_EQ(ibmItem("PIC S9(3)PP COMP-3").textOf("123D"), "-12300");
  EXPECT_EQ(ibmItem("PIC VPP9 COMP-3").textOf("5C"), "0.005");
}

TEST(Packed, HasAtMost38Digits) {
  std::string const nines(38, '9');
  EXPECT_EQ(gnuItem("PIC S9(38) COMP-3").textOf("0" + nines + "D"), "-" + nines);
  EXPECT_EQ(gnuItem("PIC S9(38) COMP-3").bytesOf("-" + nines), "0" + nines + "D");
}

TEST(UnsignedPacked, HasNoSign) {
  EXPECT_EQ(gnuItem("PIC 9(4) COMP-6").textOf("1234"), "1234");
  EXPECT_EQ(gnuItem("PIC 9(3) COMP-6").textOf("0123"), "123");
  EXPECT_EQ(gnuItem("PIC 9(3) COMP-6").textOf("1123"), "[range]");
  EXPECT_EQ(gnuItem("PIC 9(3) COMP-6").textOf("A123"), "[digit]");
  EXPECT_EQ(gnuItem("PIC 9(4) COMP-6").textOf("123C"), "[digit]");
  EXPECT_EQ(gnuItem("PIC 9(3)V9 COMP-6").bytesOf("1.5"), "0015");
  EXPECT_EQ(gnuItem("PIC 9(3) COMP-6").bytesOf("123"), "0123");
  EXPECT_EQ(gnuItem("PIC 9(3) COMP-6").bytesOf("-1"), "[overflow]");
}

}  // namespace
}  // namespace fdmorph::values
