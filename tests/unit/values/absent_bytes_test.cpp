// Items that a document has nothing for.
#include "values/absent_bytes.h"

#include <gtest/gtest.h>

#include "support/one_item.h"

namespace fdmorph::values {
namespace {

std::string absentOf(OneItem const& item) {
  Bytes bytes(item.format.size, 0xEE);
  writeAbsent(LiteralBytes(item.values), item.item(), item.format, bytes.data());
  return hexOf(bytes);
}

std::string ibmAbsent(std::string const& clauses) {
  return absentOf(ibmItem(clauses));
}

TEST(AbsentItem, OfCharactersIsBlank) {
  EXPECT_EQ(ibmAbsent("PIC XX"), "4040");
  EXPECT_EQ(ibmAbsent("PIC AA"), "4040");
  EXPECT_EQ(ibmAbsent("PIC ZZ9"), "404040");
  EXPECT_EQ(ibmAbsent("PIC XBX"), "404040");
  EXPECT_EQ(ibmAbsent("PIC N(2)"), "00200020");
  EXPECT_EQ(absentOf(gnuItem("PIC N(2)")), "20002000");
  EXPECT_EQ(ibmAbsent("PIC 99 BLANK WHEN ZERO"), "4040");
}

TEST(AbsentItem, OfNumbersIsZero) {
  EXPECT_EQ(ibmAbsent("PIC 99"), "F0F0");
  EXPECT_EQ(ibmAbsent("PIC S99"), "F0C0");
  EXPECT_EQ(ibmAbsent("PIC S99 SIGN LEADING SEPARATE"), "4EF0F0");
  EXPECT_EQ(ibmAbsent("PIC S999 COMP-3"), "000C");
  EXPECT_EQ(ibmAbsent("PIC 999 COMP-3"), "000F");
  EXPECT_EQ(ibmAbsent("PIC S9(4) COMP"), "0000");
  EXPECT_EQ(ibmAbsent("COMP-1"), "00000000");
  EXPECT_EQ(absentOf(gnuItem("PIC 9(4) COMP-6")), "0000");
}

TEST(AbsentItem, OfAddressesAndIndexesIsNul) {
  EXPECT_EQ(ibmAbsent("USAGE POINTER"), "00000000");
  EXPECT_EQ(ibmAbsent("USAGE INDEX"), "00000000");
}

TEST(AbsentItem, WithoutANameIsBlank) {
  std::string const before = "01 R.\n 05 FILLER PIC 99.\n";
  OneItem const item("PIC X", ibm(), compiler::Dialect::ibm, before);
  compiler::DataItem const& filler = *item.item().parent->firstChild;
  Bytes bytes(2);
  writeAbsent(LiteralBytes(item.values), filler, makeItemFormat(filler, ibm()), bytes.data());
  EXPECT_EQ(hexOf(bytes), "4040");
}

TEST(AbsentItem, HasItsValue) {
  EXPECT_EQ(ibmAbsent("PIC X(4) VALUE \"AB\""), "C1C24040");
  EXPECT_EQ(ibmAbsent("PIC X(4) VALUE ALL \"AB\""), "C1C2C1C2");
  EXPECT_EQ(ibmAbsent("PIC X(3) VALUE ALL \"AB\""), "C1C2C1");
  EXPECT_EQ(ibmAbsent("PIC X(2) VALUE X\"0102\""), "0102");
  EXPECT_EQ(ibmAbsent("PIC X(3) VALUE ZERO"), "F0F0F0");
  EXPECT_EQ(ibmAbsent("PIC X(3) VALUE QUOTE"), "7F7F7F");
  EXPECT_EQ(ibmAbsent("PIC X(3) VALUE LOW-VALUES"), "000000");
  EXPECT_EQ(ibmAbsent("PIC X(3) VALUE HIGH-VALUES"), "FFFFFF");
  EXPECT_EQ(ibmAbsent("PIC X(3) VALUE SPACES"), "404040");
  EXPECT_EQ(ibmAbsent("PIC N(2) VALUE N\"A\""), "00410020");
  EXPECT_EQ(ibmAbsent("PIC N(2) VALUE NX\"20AC\""), "20AC0020");
  EXPECT_EQ(ibmAbsent("PIC N(2) VALUE ALL \"A\""), "00410041");
  EXPECT_EQ(absentOf(gnuItem("PIC X(3) VALUE Z\"A\"")), "410020");
}

// JUSTIFIED is about what is moved to an item, not about its initial value.
TEST(AbsentItem, HasItsValueOnTheLeft) {
  EXPECT_EQ(ibmAbsent("PIC X(4) JUSTIFIED VALUE \"AB\""), "C1C24040");
  EXPECT_EQ(ibmAbsent("PIC X(2) JUSTIFIED VALUE \"ABC\""), "C1C2");
}

TEST(AbsentItem, HasTheValueOfANumber) {
  EXPECT_EQ(ibmAbsent("PIC S9(3)V99 VALUE -1.5"), "F0F0F1F5D0");
  EXPECT_EQ(ibmAbsent("PIC S9(3)V99 COMP-3 VALUE 1.5"), "00150C");
  EXPECT_EQ(ibmAbsent("PIC S9(4) COMP VALUE -2"), "FFFE");
  EXPECT_EQ(absentOf(gnuItem("PIC S9(4) COMP-5 VALUE -2")), "FEFF");
  EXPECT_EQ(ibmAbsent("COMP-1 VALUE 1"), "41100000");
  EXPECT_EQ(ibmAbsent("PIC S9(3) VALUE ZERO"), "F0F0C0");
  EXPECT_EQ(ibmAbsent("PIC 99 BLANK WHEN ZERO VALUE ZERO"), "F0F0");
  EXPECT_EQ(ibmAbsent("PIC ZZ9 VALUE \"  7\""), "4040F7");
}

TEST(AbsentItem, HasNoValueInARedefinition) {
  std::string const before = "01 R.\n 05 A PIC XX.\n";
  OneItem const item("REDEFINES A PIC XX VALUE \"AB\"", ibm(), compiler::Dialect::ibm, before);
  EXPECT_EQ(absentOf(item), "4040");
}

TEST(LiteralBytes, AreTheTextOfAGroup) {
  OneItem const item = ibmItem("PIC X(6) VALUE \"AB\"");
  Bytes bytes(6);
  EXPECT_TRUE(
      LiteralBytes(item.values).write(makeTextFormat(6), item.item().values[0].from, bytes.data()));
  EXPECT_EQ(hexOf(bytes), "C1C240404040");
}

}  // namespace
}  // namespace fdmorph::values
