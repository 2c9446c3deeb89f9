// National items: UTF-16.
#include <gtest/gtest.h>

#include "support/one_item.h"

namespace fdmorph::values {
namespace {

TEST(National, IsBigEndianForIbmAndLittleForGnuCobol) {
  EXPECT_EQ(ibmItem("PIC N(2)").textOf("0041 20AC"), "A\u20AC");
  EXPECT_EQ(gnuItem("PIC N(2)").textOf("4100 AC20"), "A\u20AC");
  EXPECT_EQ(ibmItem("PIC N(2)").bytesOf("A\u20AC"), "004120AC");
  EXPECT_EQ(gnuItem("PIC N(2)").bytesOf("A\u20AC"), "4100AC20");
  EXPECT_EQ(ibmItem("PIC NBN").textOf("0041 0020 0042"), "A B");
}

TEST(National, LosesBlanksAndNulsAtItsEnd) {
  EXPECT_EQ(ibmItem("PIC N(4)").textOf("0020 0041 0020 0000"), " A");
  EXPECT_EQ(ibmItem("PIC N(3) JUST").textOf("0020 0041 0020"), "A ");
  // A blank of another encoding is a character here.
  EXPECT_EQ(ibmItem("PIC N").textOf("4040"), "\u4040");
  Conventions conventions = ibm();
  conventions.trim = Trim::both;
  EXPECT_EQ(ibmItem("PIC N(3)", conventions).textOf("0020 0041 0020"), "A");
  conventions.trim = Trim::none;
  EXPECT_EQ(ibmItem("PIC N(3)", conventions).textOf("0041 0020 0000"), "A ");
}

TEST(National, HasPairsOfSurrogates) {
  EXPECT_EQ(ibmItem("PIC N(2)").textOf("D83D DE00"), "\U0001F600");
  EXPECT_EQ(ibmItem("PIC N(2)").bytesOf("\U0001F600"), "D83DDE00");
  for (char const* bytes : {"D83D 0041", "DE00 D83D", "0041 D83D", "D83D D83D"}) {
    EXPECT_EQ(ibmItem("PIC N(2)").textOf(bytes), "[character]") << bytes;
  }
}

TEST(National, IsEscaped) {
  OneItem const item = ibmItem("PIC N(3)");
  EXPECT_EQ(item.textOf<Target::xmlText>(hex("0026 000A 0022")), "&amp;&#10;\"");
  EXPECT_EQ(item.textOf<Target::json>(hex("0026 000A 0022")), "&\\n\\\"");
  EXPECT_EQ(item.textOf<Target::xmlText>(hex("0041 FFFF 0041")), "[character]");
  EXPECT_EQ(item.textOf<Target::json>(hex("0041 FFFF 0041")), "A\uFFFFA");
}

TEST(National, CountsItsLengthInUnits) {
  EXPECT_EQ(ibmItem("PIC N(2)").bytesOf("AB "), "00410042");
  EXPECT_EQ(ibmItem("PIC N(2)").bytesOf("ABC"), "[length]");
  EXPECT_EQ(ibmItem("PIC N(2)").bytesOf("A\U0001F600"), "[length]");
  Conventions conventions = ibm();
  conventions.truncates = true;
  EXPECT_EQ(ibmItem("PIC N(2)", conventions).bytesOf("A\U0001F600"), "00410020");
  EXPECT_EQ(ibmItem("PIC N(2) JUST", conventions).bytesOf("\U0001F600A"), "00200041");
}

TEST(National, RefusesTextsThatAreNotUtf8) {
  EXPECT_EQ(ibmItem("PIC N(2)").bytesOf("\xFF"), "[character]");
}

}  // namespace
}  // namespace fdmorph::values
