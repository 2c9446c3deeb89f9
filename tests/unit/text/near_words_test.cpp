// The word that a misspelt word is meant for.

#include "text/near_words.h"

#include <gtest/gtest.h>

namespace fdmorph {
namespace {

constexpr std::string_view kWords[] = {"PIC", "PICTURE", "OCCURS", "VALUE", "COMP-3", "COMP-5"};

TEST(NearestWord, HasOneMistake) {
  EXPECT_EQ(nearestWord("PCI", kWords), "PIC");       // exchanged
  EXPECT_EQ(nearestWord("PIX", kWords), "PIC");       // wrong
  EXPECT_EQ(nearestWord("PI", kWords), "PIC");        // missing
  EXPECT_EQ(nearestWord("VALLUE", kWords), "VALUE");  // too much
}

TEST(NearestWord, IsFoundInAnyCase) {
  EXPECT_EQ(nearestWord("valeu", kWords), "VALUE");
}

TEST(NearestWord, HasTwoMistakesInALongWordOnly) {
  EXPECT_EQ(nearestWord("OCURSS", kWords), "OCCURS");
  EXPECT_EQ(nearestWord("VLAEU", kWords), "");
}

TEST(NearestWord, IsTheOnlyOneAsNear) {
  EXPECT_EQ(nearestWord("COMP-4", kWords), "");
  EXPECT_EQ(nearestWord("COPM-3", kWords), "COMP-3");
}

TEST(NearestWord, IsNotOfAnotherKind) {
  EXPECT_EQ(nearestWord("CUSTOMER", kWords), "");
  EXPECT_EQ(nearestWord("X", kWords), "");
  EXPECT_EQ(nearestWord("", kWords), "");
  EXPECT_EQ(nearestWord(std::string(1000, 'A'), kWords), "");
}

TEST(SuggestWord, AsksOrSaysNothing) {
  EXPECT_EQ(suggestWord("PCI", kWords), "; did you mean PIC?");
  EXPECT_EQ(suggestWord("CUSTOMER", kWords), "");
}

}  // namespace
}  // namespace fdmorph
