#include "text/xml_names.h"

#include <gtest/gtest.h>

namespace fdmorph {
namespace {

TEST(NcName, BeginsWithALetterOrAnUnderscore) {
  for (char const* name : {"a", "Z9", "_", "_1", "a-b.c", "\xC3\xA4", "a\xC2\xB7"}) {
    EXPECT_TRUE(isNcName(name)) << name;
  }
  for (char const* text : {"", "1a", "-a", ".a", "\xC2\xB7"}) EXPECT_FALSE(isNcName(text)) << text;
}

TEST(NcName, HasNoColonBlankOrBrokenCharacter) {
  for (char const* text : {"a:b", "a b", "a\xFF", "a/b", "\xC3\x97"}) {
    EXPECT_FALSE(isNcName(text)) << text;
  }
}

// U+00D7 is between two ranges of letters, U+10000 begins the last one.
TEST(NcName, KeepsToTheRangesOfTheStandard) {
  EXPECT_TRUE(isNcName("\xC3\x96"));
  EXPECT_TRUE(isNcName("\xC3\x98"));
  EXPECT_TRUE(isNcName("\xF0\x90\x80\x80"));
  EXPECT_FALSE(isNcName("\xE2\x80\x80"));  // U+2000
}

TEST(ToNcName, KeepsNames) {
  EXPECT_EQ(toNcName("ORDER-ID"), "ORDER-ID");
}

TEST(ToNcName, PutsAnUnderscoreBeforeADigitOrHyphen) {
  EXPECT_EQ(toNcName("1ST-NAME"), "_1ST-NAME");
  EXPECT_EQ(toNcName("-A"), "_-A");
}

TEST(ToNcName, ReplacesOtherCharacters) {
  EXPECT_EQ(toNcName("A:B C"), "A_B_C");
  EXPECT_EQ(toNcName("A\xFF"), "A_");
  EXPECT_EQ(toNcName(":"), "_");
  EXPECT_EQ(toNcName(""), "_");
}

}  // namespace
}  // namespace fdmorph
