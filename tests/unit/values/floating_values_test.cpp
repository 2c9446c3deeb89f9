// Floating-point numbers. The hexadecimal ones are worked out by hand: a sign bit, a
// power of 16 plus 64, and a fraction of hexadecimal digits.
#include <gtest/gtest.h>

#include "support/one_item.h"

namespace fdmorph::values {
namespace {

TEST(Ieee, IsLittleEndianForGnuCobol) {
  EXPECT_EQ(gnuItem("COMP-1").textOf("0000803F"), "1");
  EXPECT_EQ(gnuItem("COMP-2").textOf("000000000000F03F"), "1");
  EXPECT_EQ(gnuItem("FLOAT-SHORT").textOf("000000C0"), "-2");
  EXPECT_EQ(gnuItem("FLOAT-LONG").textOf("00000000000000C0"), "-2");
  EXPECT_EQ(gnuItem("COMP-1").bytesOf("1"), "0000803F");
  EXPECT_EQ(gnuItem("COMP-2").bytesOf("-2"), "00000000000000C0");
  Conventions conventions = gnuCobol();
  conventions.floats = FloatForm::ieeeBig;
  EXPECT_EQ(gnuItem("COMP-1", conventions).textOf("3F800000"), "1");
  EXPECT_EQ(gnuItem("COMP-2", conventions).bytesOf("1"), "3FF0000000000000");
}

// 0.1 is not the same number in both sizes.
TEST(Ieee, HasItsShortestText) {
  EXPECT_EQ(gnuItem("COMP-1").textOf("CDCCCC3D"), "0.1");
  EXPECT_EQ(gnuItem("COMP-2").textOf("9A9999999999B93F"), "0.1");
  EXPECT_EQ(gnuItem("COMP-1").textOf("0050C347"), "1e+05");
  EXPECT_EQ(gnuItem("COMP-1").textOf("0020F147"), "123456");
}

TEST(Ieee, HasSpecialNumbers) {
  OneItem const item = gnuItem("COMP-1");
  EXPECT_EQ(item.textOf("0000807F"), "INF");
  EXPECT_EQ(item.textOf("000080FF"), "-INF");
  EXPECT_EQ(item.textOf("0000C07F"), "NaN");
  EXPECT_EQ(item.textOf("0000C0FF"), "NaN");
  EXPECT_EQ(item.textOf("00000080"), "-0");
  EXPECT_EQ(item.bytesOf(" INF "), "0000807F");
  EXPECT_EQ(item.bytesOf("-INF"), "000080FF");
  EXPECT_EQ(item.bytesOf("NaN"), "0000C07F");
  EXPECT_EQ(item.bytesOf("-0"), "00000080");
  for (char const* text : {"+INF", "inf", "nan", "infinity", "-NaN", "0x1p3", "1e", "e5", ""}) {
    EXPECT_EQ(item.bytesOf(text), "[number]") << text;
  }
}

TEST(Ieee, TakesTheNearestNumber) {
  OneItem const item = gnuItem("COMP-1");
  EXPECT_EQ(item.bytesOf("+1.5E+2"), "00001643");
  EXPECT_EQ(item.bytesOf(".5"), "0000003F");
  EXPECT_EQ(item.bytesOf("5."), "0000A040");
  EXPECT_EQ(item.bytesOf("1e39"), "[overflow]");
  EXPECT_EQ(item.bytesOf("-1e99999999999999999999"), "[overflow]");
  EXPECT_EQ(item.bytesOf("1e-99999999999999999999"), "00000000");
  EXPECT_EQ(item.bytesOf("-1e-60"), "00000080");
  EXPECT_EQ(item.bytesOf("1e-45"), "01000000");
  EXPECT_EQ(item.bytesOf("0e99999"), "00000000");
  EXPECT_EQ(item.bytesOf("0.000001e41"), "0C139A79");  // 1e35
  // Halfway between two floats, and a little above: once rounded to a double it
  // would be halfway.
  EXPECT_EQ(item.bytesOf("1.00000005960464477539062500000000000000000001"), "0100803F");
  EXPECT_EQ(gnuItem("COMP-2").bytesOf("1e309"), "[overflow]");
  EXPECT_EQ(gnuItem("COMP-2").bytesOf("1e-400"), "0000000000000000");
}

// 1 = 1/16 * 16; 100 = x'64' / 256 * 256; 118.625 = x'76.A'.
TEST(Hexadecimal, HasAFractionOfHexadecimalDigits) {
  OneItem const item = ibmItem("COMP-1");
  EXPECT_EQ(item.textOf("41100000"), "1");
  EXPECT_EQ(item.textOf("42640000"), "100");
  EXPECT_EQ(item.textOf("C276A000"), "-118.625");
  EXPECT_EQ(item.textOf("40800000"), "0.5");
  EXPECT_EQ(item.textOf("45186A00"), "1e+05");
  EXPECT_EQ(item.bytesOf("1"), "41100000");
  EXPECT_EQ(item.bytesOf("100"), "42640000");
  EXPECT_EQ(item.bytesOf("-118.625"), "C276A000");
  EXPECT_EQ(item.bytesOf("0.5"), "40800000");
  OneItem const wide = ibmItem("COMP-2");
  EXPECT_EQ(wide.textOf("4110000000000000"), "1");
  EXPECT_EQ(wide.bytesOf("-118.625"), "C276A00000000000");
  EXPECT_EQ(wide.bytesOf("1e2"), "4264000000000000");
}

// 0.1 = x'0.1999999999..': rounded to 6 digits x'0.19999A'. Its nearest double is
// x'0.1999999999999A', 14 digits.
TEST(Hexadecimal, IsRoundedToItsDigits) {
  EXPECT_EQ(ibmItem("COMP-1").bytesOf("0.1"), "4019999A");
  EXPECT_EQ(ibmItem("COMP-2").bytesOf("0.1"), "401999999999999A");
  EXPECT_EQ(ibmItem("COMP-1").textOf("4019999A"), "0.1");
  EXPECT_EQ(ibmItem("COMP-2").textOf("401999999999999A"), "0.1");
  // x'1.000008' and x'1.000018' are halfway: to the even digit. x'0.FFFFFF8' carries.
  EXPECT_EQ(ibmItem("COMP-1").bytesOf("1.000000476837158203125"), "41100000");
  EXPECT_EQ(ibmItem("COMP-1").bytesOf("1.000001430511474609375"), "41100002");
  EXPECT_EQ(ibmItem("COMP-1").bytesOf("0.9999999701976776123046875"), "41100000");
}

TEST(Hexadecimal, IsReadWithoutNormalisation) {
  EXPECT_EQ(ibmItem("COMP-1").textOf("42010000"), "1");
  EXPECT_EQ(ibmItem("COMP-1").textOf("43001000"), "1");
}

TEST(Hexadecimal, ZeroHasNoSign) {
  EXPECT_EQ(ibmItem("COMP-1").textOf("80000000"), "0");
  EXPECT_EQ(ibmItem("COMP-1").textOf("C1000000"), "0");
  EXPECT_EQ(ibmItem("COMP-1").bytesOf("-0"), "00000000");
  EXPECT_EQ(ibmItem("COMP-2").bytesOf("0.0"), "0000000000000000");
}

// The largest number is (1 - 16^-6) * 16^63, about 7.237005e+75. 16^-65, about
// 5.397605e-79, is the least normalised one; the least of all is 16^-70.
TEST(Hexadecimal, HasARangeOfItsOwn) {
  OneItem const item = ibmItem("COMP-1");
  EXPECT_EQ(item.textOf("7FFFFFFF"), "7.237005e+75");
  EXPECT_EQ(item.bytesOf("7.237005e+75"), "7FFFFFFF");
  EXPECT_EQ(item.bytesOf("7.3e75"), "[overflow]");
  EXPECT_EQ(item.bytesOf("1e400"), "[overflow]");
  EXPECT_EQ(item.bytesOf("INF"), "[number]");
  EXPECT_EQ(item.bytesOf("NaN"), "[number]");
  EXPECT_EQ(item.bytesOf("5.397605346934028e-79"), "00100000");
  EXPECT_EQ(item.bytesOf("2.698802673467014e-79"), "00080000");  // half of it
  EXPECT_EQ(item.bytesOf("5.147557589468029e-85"), "00000001");  // 16^-70
  EXPECT_EQ(item.bytesOf("1e-86"), "00000000");
  EXPECT_EQ(item.bytesOf("-1e-86"), "00000000");
  EXPECT_EQ(item.bytesOf("1e-400"), "00000000");
  EXPECT_EQ(item.bytesOf("-5.397605346934028e-79"), "80100000");
}

// Shortest for the hexadecimal number, which has fewer bits than a float of IEEE 754:
// 16777215 is x'FFFFFF', 1048577 is x'100001'.
TEST(Hexadecimal, HasItsShortestText) {
  OneItem const item = ibmItem("COMP-1");
  EXPECT_EQ(item.textOf("46FFFFFF"), "16777215");
  EXPECT_EQ(item.textOf("45100001"), "65536.06");
  for (char const* bytes : {"41100000", "41100001", "41FFFFFF", "40FFFFFF", "4019999A", "3F100001",
                            "00000001", "00100000", "7F100000", "3AABCDEF", "C5123456"}) {
    std::string const text = item.textOf(bytes);
    EXPECT_EQ(item.bytesOf(text), bytes) << text;
  }
}

// All digits F: the nearest double is 16^63, which is too large to be written. The one
// below it is (1 - 2^-53) * 16^63.
TEST(Hexadecimal, HasATextThatCanBeWritten) {
  OneItem const item = ibmItem("COMP-2");
  EXPECT_EQ(item.textOf("7FFFFFFFFFFFFFFF"), "7.2370055773322614e+75");
  EXPECT_EQ(item.bytesOf("7.2370055773322614e+75"), "7FFFFFFFFFFFFFF8");
  EXPECT_EQ(item.textOf("FFFFFFFFFFFFFFFF"), "-7.2370055773322614e+75");
}

// 2^53 + 1 needs 54 bits: the nearest double is 2^53.
TEST(Hexadecimal, OfEightBytesIsThatOfTheNearestDouble) {
  EXPECT_EQ(ibmItem("COMP-2").textOf("4E20000000000001"), "9007199254740992");
  EXPECT_EQ(ibmItem("COMP-2").textOf("4E20000000000003"), "9007199254740996");
}

}  // namespace
}  // namespace fdmorph::values
