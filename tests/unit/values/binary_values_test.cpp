// Binary integers.
#include <gtest/gtest.h>

#include "support/one_item.h"

namespace fdmorph::values {
namespace {

TEST(Binary, IsBigEndian) {
  EXPECT_EQ(ibmItem("PIC S9(4) COMP").textOf("04D2"), "1234");
  EXPECT_EQ(ibmItem("PIC S9(4) COMP").textOf("FB2E"), "-1234");
  EXPECT_EQ(gnuItem("PIC S9(9) BINARY").textOf("FFFFFFFF"), "-1");
  EXPECT_EQ(gnuItem("PIC S9(18) COMP-4").textOf("0000000000000001"), "1");
  EXPECT_EQ(ibmItem("PIC S9(4) COMP").bytesOf("-1234"), "FB2E");
  EXPECT_EQ(ibmItem("PIC 9(4) COMP").bytesOf("1234"), "04D2");
}

// One or two digits: 2 bytes for IBM, 1 for GnuCOBOL.
TEST(Binary, HasTheSizesOfItsDialect) {
  EXPECT_EQ(ibmItem("PIC S99 COMP").textOf("FFFF"), "-1");
  EXPECT_EQ(gnuItem("PIC S99 COMP").textOf("FF"), "-1");
}

TEST(Binary, HasNoMoreDigitsThanItsPicture) {
  OneItem const item = ibmItem("PIC S9(4) COMP");
  EXPECT_EQ(item.textOf("270F"), "9999");
  EXPECT_EQ(item.textOf("2710"), "[range]");
  EXPECT_EQ(item.textOf("D8F1"), "-9999");
  EXPECT_EQ(item.textOf("D8F0"), "[range]");
  EXPECT_EQ(item.bytesOf("10000"), "[overflow]");
  EXPECT_EQ(gnuItem("PIC 9(4) COMP").textOf("FFFF"), "[range]");
  EXPECT_EQ(gnuItem("PIC 9(18) COMP").textOf("0DE0B6B3A763FFFF"), "999999999999999999");
  EXPECT_EQ(gnuItem("PIC 9(18) COMP").textOf("0DE0B6B3A7640000"), "[range]");
}

TEST(Binary, HasTheFullRangeOfItsBytesIfAskedFor) {
  Conventions conventions = ibm();
  conventions.hasFullBinaryRange = true;
  EXPECT_EQ(ibmItem("PIC S9(4) COMP", conventions).textOf("7FFF"), "32767");
  EXPECT_EQ(ibmItem("PIC S9(4) COMP", conventions).bytesOf("-32768"), "8000");
  EXPECT_EQ(ibmItem("PIC S9(4) COMP", conventions).bytesOf("32768"), "[overflow]");
  EXPECT_EQ(ibmItem("PIC 9(4) COMP", conventions).bytesOf("65535"), "FFFF");
}

TEST(Binary, HasDecimalPlacesAndPositionsOfScale) {
  EXPECT_EQ(ibmItem("PIC S9(3)V9 COMP").textOf("FB2E"), "-123.4");
  EXPECT_EQ(ibmItem("PIC S9(3)V9 COMP").textOf("0005"), "0.5");
  EXPECT_EQ(ibmItem("PIC V9999 COMP").textOf("0005"), "0.0005");
  EXPECT_EQ(ibmItem("PIC 99PP COMP").textOf("0005"), "500");
  EXPECT_EQ(ibmItem("PIC S9(3)V9 COMP").bytesOf("-123.4"), "FB2E");
  EXPECT_EQ(ibmItem("PIC 99PP COMP").bytesOf("500"), "0005");
}

TEST(NativeBinary, HoldsWhatItsBytesHold) {
  EXPECT_EQ(gnuItem("PIC S9(4) COMP-5").textOf("0080"), "-32768");
  EXPECT_EQ(gnuItem("PIC S9(4) COMP-5").bytesOf("32767"), "FF7F");
  EXPECT_EQ(gnuItem("PIC S9(4) COMP-5").bytesOf("32768"), "[overflow]");
  EXPECT_EQ(gnuItem("PIC 9(4) COMP-5").bytesOf("65535"), "FFFF");
  EXPECT_EQ(gnuItem("PIC 9(4) COMP-5").bytesOf("-1"), "[overflow]");
  EXPECT_EQ(ibmItem("PIC S9(4) COMP-5").textOf("0102"), "258");
  EXPECT_EQ(gnuItem("PIC 9(18) COMP-5").textOf("FFFFFFFFFFFFFFFF"), "18446744073709551615");
  EXPECT_EQ(gnuItem("PIC 9(18) COMP-5").bytesOf("18446744073709551615"), "FFFFFFFFFFFFFFFF");
  EXPECT_EQ(gnuItem("PIC 9(18) COMP-5").bytesOf("18446744073709551616"), "[overflow]");
  EXPECT_EQ(gnuItem("PIC S9(18) COMP-5").bytesOf("-9223372036854775808"), "0000000000000080");
  EXPECT_EQ(gnuItem("PIC S9(18) COMP-5").textOf("0000000000000080"), "-9223372036854775808");
  EXPECT_EQ(gnuItem("PIC S9(2)V99 COMP-5").textOf("FFFF"), "-0.01");
}

// The byte cannot hold 300, whatever follows the point.
TEST(NativeBinary, OverflowsBeforeItLosesPrecision) {
  EXPECT_EQ(gnuItem("PIC 99 COMP-5").bytesOf("300.5"), "[overflow]");
  EXPECT_EQ(gnuItem("PIC 99 COMP-5").bytesOf("255.5"), "[precision]");
}

TEST(ShortBinary, HasTheFewestBytesForItsDigits) {
  EXPECT_EQ(gnuItem("PIC S9(7) COMP-X").textOf("FFFFFE"), "-2");
  EXPECT_EQ(gnuItem("PIC S9(7) COMP-X").bytesOf("-2"), "FFFFFE");
  EXPECT_EQ(gnuItem("PIC S9(12) COMP-X").bytesOf("258"), "0000000102");
  EXPECT_EQ(gnuItem("PIC S9(12) COMP-N").bytesOf("258"), "0201000000");
  EXPECT_EQ(ibmItem("PIC S9(12) COMP-N").bytesOf("258"), "0000000102");
  EXPECT_EQ(gnuItem("PIC 9(4) COMP-X").bytesOf("65535"), "FFFF");
  EXPECT_EQ(gnuItem("PIC S9(7) COMP-X").bytesOf("8388608"), "[overflow]");
  EXPECT_EQ(gnuItem("PIC S9(7) COMP-X").bytesOf("-8388608"), "800000");
}

TEST(ShortBinary, OfCharactersHasNoSign) {
  EXPECT_EQ(gnuItem("PIC X COMP-X").textOf("FF"), "255");
  EXPECT_EQ(gnuItem("PIC XXX COMP-X").textOf("010000"), "65536");
  EXPECT_EQ(gnuItem("PIC X(3) COMP-N").textOf("010000"), "1");
  EXPECT_EQ(gnuItem("PIC X(3) COMP-5").textOf("01000000"), "1");
  EXPECT_EQ(gnuItem("PIC X(8) COMP-X").textOf("FFFFFFFFFFFFFFFF"), "18446744073709551615");
  EXPECT_EQ(gnuItem("PIC X COMP-X").bytesOf("256"), "[overflow]");
}

TEST(BinaryUsages, GoWithoutAPicture) {
  EXPECT_EQ(gnuItem("BINARY-CHAR").textOf("80"), "-128");
  EXPECT_EQ(gnuItem("BINARY-CHAR UNSIGNED").textOf("80"), "128");
  EXPECT_EQ(gnuItem("BINARY-SHORT").textOf("FEFF"), "-2");
  EXPECT_EQ(ibmItem("BINARY-SHORT").textOf("FFFE"), "-2");
  EXPECT_EQ(gnuItem("BINARY-LONG UNSIGNED").textOf("FFFFFFFF"), "4294967295");
  EXPECT_EQ(gnuItem("BINARY-DOUBLE").textOf("FFFFFFFFFFFFFFFF"), "-1");
  EXPECT_EQ(gnuItem("USAGE SIGNED-SHORT").textOf("FFFF"), "-1");
  EXPECT_EQ(gnuItem("USAGE UNSIGNED-INT").textOf("FFFFFFFF"), "4294967295");
  EXPECT_EQ(gnuItem("USAGE SIGNED-LONG").bytesOf("-1"), "FFFFFFFFFFFFFFFF");
}

TEST(Binary, HasTheOrderThatIsAskedFor) {
  Conventions conventions = gnuCobol();
  conventions.isBinaryBigEndian = false;
  conventions.isNativeBigEndian = true;
  EXPECT_EQ(gnuItem("PIC 9(4) COMP", conventions).textOf("0100"), "1");
  EXPECT_EQ(gnuItem("PIC 9(4) COMP-5", conventions).textOf("0001"), "1");
  EXPECT_EQ(gnuItem("BINARY-SHORT", conventions).textOf("0001"), "1");
}

TEST(Integers, AreReadAndWritten) {
  OneItem const zoned = ibmItem("PIC S9(3)");
  EXPECT_EQ(zoned.values.readInteger(zoned.format, hex("F0F1D2").data()), -12);
  EXPECT_EQ(zoned.values.readInteger(zoned.format, hex("F0F140").data()), std::nullopt);
  Bytes bytes(3);
  EXPECT_TRUE(zoned.values.writeInteger(zoned.format, bytes.data(), -7));
  EXPECT_EQ(hexOf(bytes), "F0F0D7");
  EXPECT_FALSE(zoned.values.writeInteger(zoned.format, bytes.data(), 1000));
  OneItem const native = gnuItem("BINARY-DOUBLE");
  EXPECT_EQ(native.values.readInteger(native.format, hex("0000000000000080").data()),
            std::numeric_limits<std::int64_t>::min());
  OneItem const large = gnuItem("BINARY-DOUBLE UNSIGNED");
  EXPECT_EQ(large.values.readInteger(large.format, hex("FFFFFFFFFFFFFFFF").data()), std::nullopt);
  OneItem const text = gnuItem("PIC X");
  EXPECT_EQ(text.values.readInteger(text.format, hex("31").data()), std::nullopt);
  OneItem const places = gnuItem("PIC 9V9");
  EXPECT_EQ(places.values.readInteger(places.format, hex("3130").data()), 1);
  EXPECT_EQ(places.values.readInteger(places.format, hex("3131").data()), std::nullopt);
}

}  // namespace
}  // namespace fdmorph::values
