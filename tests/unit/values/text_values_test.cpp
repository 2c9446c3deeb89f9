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

}  // namespace
}  // namespace fdmorph::values
