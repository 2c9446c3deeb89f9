// Comparisons that ignore case, and the search for a last character.

#include <gtest/gtest.h>

#include <string>

#include "text/multibyte.h"

namespace fdmorph {
namespace {

TEST(Strrchr, TextWithoutTheCharacterGivesAnEmptyString) {
  EXPECT_STREQ(my_strrchr("abc", "."), "");
}

TEST(Strrchr, EmptyTextGivesAnEmptyString) {
  EXPECT_STREQ(my_strrchr("", "."), "");
}

TEST(Strrchr, PointsToTheLastOfSeveral) {
  char const* text = "a.b.c";
  EXPECT_EQ(my_strrchr(text, "."), text + 3);
}

TEST(Strrchr, FindsTheFirstAndTheLastCharacter) {
  EXPECT_STREQ(my_strrchr(".CBL", "."), ".CBL");
  EXPECT_STREQ(my_strrchr("a.", "."), ".");
}

TEST(Strrchr, IgnoresCase) {
  EXPECT_STREQ(my_strrchr("aXbxc", "X"), "xc");
}

TEST(Strrchr, OnlyTheStartOfTheWantedTextCounts) {
  EXPECT_STREQ(my_strrchr("a.xsd", ".cpy"), ".xsd");
}

TEST(Strrchr, StepsByMultibyteCharacters) {
  EXPECT_STREQ(my_strrchr("gr\u00fc\u00df.\u4e2d\u6587", "."), ".\u4e2d\u6587");
  EXPECT_STREQ(my_strrchr("\u4e2d.\u4e2d", "\u4e2d"), "\u4e2d");
}

TEST(Strrchr, ByteThatStartsNoCharacterCountsAsOne) {
  EXPECT_STREQ(my_strrchr("a\xff.b", "."), ".b");
}

TEST(Stricmp, EqualButForCase) {
  EXPECT_EQ(my_stricmp("-HELP", "-help"), 0);
  EXPECT_EQ(my_stricmp("", ""), 0);
}

TEST(Stricmp, DifferenceOfTheLowerCaseForms) {
  EXPECT_EQ(my_stricmp("abD", "ABc"), 'd' - 'c');
  EXPECT_EQ(my_stricmp("A", "b"), 'a' - 'b');
}

TEST(Stricmp, ShorterTextDiffers) {
  EXPECT_LT(my_stricmp("-HEL", "-HELP"), 0);
  EXPECT_GT(my_stricmp("-HELPX", "-HELP"), 0);
}

TEST(Strnicmp, NoCharactersAreEqual) {
  EXPECT_EQ(my_strnicmp("a", "b", 0), 0);
}

TEST(Strnicmp, ComparesAtMostSoManyBytes) {
  EXPECT_EQ(my_strnicmp("-Cfile", "-C", 2), 0);
  EXPECT_EQ(my_strnicmp("abcX", "ABCy", 3), 0);
}

TEST(Strnicmp, TextThatEndsEarlierDiffers) {
  EXPECT_NE(my_strnicmp("-Cfile", "-C", 4), 0);
  EXPECT_LT(my_strnicmp(".xs", ".XSD", 4), 0);
  EXPECT_LT(my_strnicmp("", ".XSD", 4), 0);
}

TEST(Strnicmp, TextsThatBothEndWithinAreEqual) {
  EXPECT_EQ(my_strnicmp("-c", "-C", 4), 0);
}

TEST(Strnicmp, DifferenceAtTheFirstMismatch) {
  EXPECT_EQ(my_strnicmp("axz", "abz", 3), 'x' - 'b');
  EXPECT_EQ(my_strnicmp("AX", "ab", 2), 'x' - 'b');
}

TEST(Strnicmp, ComparesMultibyteTextByItsBytes) {
  EXPECT_EQ(my_strnicmp("\u00e9", "\u00e9", 2), 0);
  EXPECT_NE(my_strnicmp("\u00e9", "\u00e8", 2), 0);
}

TEST(IsAscii, BytesBelow128Are) {
  EXPECT_TRUE(isAscii(""));
  EXPECT_TRUE(isAscii("my_item-name\t\x7f"));
}

TEST(IsAscii, AnyOtherByteIsNot) {
  EXPECT_FALSE(isAscii("na\u00efve"));
  EXPECT_FALSE(isAscii(std::string(1, '\x80')));
}

}  // namespace
}  // namespace fdmorph
