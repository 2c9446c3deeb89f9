// Tokens that are too long for a line, and line ends in tokens.

#include <gtest/gtest.h>

#include "support/fixed_format.h"

namespace fdmorph {
namespace {

constexpr char kContinued[] = "\n      -   ";

TEST(LongToken, FirstOneBeginsOnTheFirstLine) {
  EXPECT_EQ(layOut(blanks(7) + repeat(72, 'x')),
            blanks(7) + repeat(65, 'x') + kContinued + repeat(7, 'x') + "\n");
}

TEST(LongToken, LaterOneBeginsOnALineOfItsOwn) {
  EXPECT_EQ(
      layOut(blanks(7) + "a " + repeat(72, 'y')),
      blanks(7) + "a \n" + blanks(10) + repeat(62, 'y') + kContinued + repeat(10, 'y') + "\n");
}

TEST(LongToken, Of62FillsALineOfItsOwn) {
  std::string const head = repeat(20, 'x');
  EXPECT_EQ(layOut(blanks(7) + head + " " + repeat(62, 'y')),
            blanks(7) + head + " \n" + blanks(10) + repeat(62, 'y') + "\n");
}

TEST(LongToken, Of63IsContinuedWithOneCharacter) {
  std::string const head = repeat(20, 'x');
  EXPECT_EQ(layOut(blanks(7) + head + " " + repeat(63, 'y')),
            blanks(7) + head + " \n" + blanks(10) + repeat(62, 'y') + kContinued + "y\n");
}

TEST(LongToken, FillsEachLineToColumn72) {
  EXPECT_EQ(layOut(blanks(7) + "a " + repeat(200, 'y')),
            blanks(7) + "a \n" + blanks(10) + repeat(62, 'y') + kContinued + repeat(62, 'y') +
                kContinued + repeat(62, 'y') + kContinued + repeat(14, 'y') + "\n");
}

TEST(LongToken, KeepsTheMarginAfterTheHyphen) {
  EXPECT_EQ(layOut(blanks(9) + "a " + repeat(72, 'y')), blanks(9) + "a \n" + blanks(12) +
                                                            repeat(60, 'y') + kContinued +
                                                            blanks(2) + repeat(12, 'y') + "\n");
}

TEST(LongToken, TextContinuesAfterItsEnd) {
  EXPECT_EQ(
      layOut(blanks(7) + "a " + repeat(72, 'y') + " b c"),
      blanks(7) + "a \n" + blanks(10) + repeat(62, 'y') + kContinued + repeat(10, 'y') + " b c\n");
}

TEST(LongToken, ThatEndsAtColumn72LeavesTheBlankToTheNextLine) {
  EXPECT_EQ(layOut(blanks(7) + "a " + repeat(124, 'y') + " b"),
            blanks(7) + "a \n" + blanks(10) + repeat(62, 'y') + kContinued + repeat(62, 'y') +
                "\n" + blanks(10) + " b\n");
}

TEST(LongLiteral, ReopensWithAQuoteOnTheNextLine) {
  EXPECT_EQ(layOut(blanks(7) + "a \"" + repeat(100, 'y') + "\""),
            blanks(7) + "a \n" + blanks(10) + "\"" + repeat(61, 'y') + kContinued + "\"" +
                repeat(39, 'y') + "\"\n");
}

TEST(LongLiteral, ReopensOnEachFurtherLine) {
  EXPECT_EQ(layOut(blanks(7) + "a \"" + repeat(150, 'y') + "\""),
            blanks(7) + "a \n" + blanks(10) + "\"" + repeat(61, 'y') + kContinued + "\"" +
                repeat(61, 'y') + kContinued + "\"" + repeat(28, 'y') + "\"\n");
}

TEST(LongLiteral, ReopensAfterTheMargin) {
  EXPECT_EQ(layOut(blanks(11) + "a \"" + repeat(100, 'y') + "\""),
            blanks(11) + "a \n" + blanks(14) + "\"" + repeat(57, 'y') + kContinued + blanks(4) +
                "\"" + repeat(43, 'y') + "\"\n");
}

TEST(LongLiteral, ReopensInACommentToo) {
  EXPECT_EQ(layOut(blanks(7) + "* \"" + repeat(100, 'y') + "\""),
            blanks(6) + "* \n      *   \"" + repeat(61, 'y') + "\n      *   \"" + repeat(39, 'y') +
                "\"\n");
}

TEST(LongLiteral, IsATokenThatBeginsWithAQuote) {
  EXPECT_EQ(layOut(blanks(7) + "a is\"" + repeat(100, 'y') + "\""),
            blanks(7) + "a \n" + blanks(10) + "is\"" + repeat(59, 'y') + kContinued +
                repeat(41, 'y') + "\"\n");
}

TEST(LongLiteral, BreakAtABlankIsAnOrdinaryMove) {
  EXPECT_EQ(
      layOut(blanks(7) + "value is \"" + repeat(40, 'y') + " " + repeat(30, 'z') + "\"."),
      blanks(7) + "value is \"" + repeat(40, 'y') + " \n" + blanks(10) + repeat(30, 'z') + "\".\n");
}

// 254 blanks are one token that is too long for a line: 62 on a line of its own,
// three times 62 after a hyphen, and 6 that reach column 16.
std::string const kTokenOfBlanks = std::string("\n") + blanks(72) + kContinued + blanks(62) +
                                   kContinued + blanks(62) + kContinued + blanks(62) + kContinued +
                                   blanks(6);

TEST(ManyBlanks, AreOneTokenUpTo254) {
  EXPECT_EQ(layOut(blanks(7) + "a" + blanks(254) + "b"), blanks(7) + "a" + kTokenOfBlanks + "b\n");
}

TEST(ManyBlanks, BeyondThatAreFurtherTokens) {
  EXPECT_EQ(layOut(blanks(7) + "a" + blanks(255) + "b"), blanks(7) + "a" + kTokenOfBlanks + " b\n");
}

TEST(ManyBlanks, SecondTokenOfBlanksMovesDownAlone) {
  EXPECT_EQ(layOut(blanks(7) + "a" + blanks(254 + 60) + "b"),
            blanks(7) + "a" + kTokenOfBlanks + "\n" + blanks(70) + "b\n");
}

TEST(ManyBlanks, TabsCountLikeBlanks) {
  EXPECT_EQ(layOut(blanks(7) + "a" + repeat(254, '\t') + "b"),
            blanks(7) + "a" + kTokenOfBlanks + "b\n");
}

TEST(LineEnd, AtTheStartOfATokenDropsIt) {
  EXPECT_EQ(layOut(blanks(7) + "a \nb c"), blanks(7) + "a  c\n");
  EXPECT_EQ(layOut(blanks(7) + "a \rb c"), blanks(7) + "a  c\n");
}

TEST(LineEnd, AtTheStartOfTheFirstTokenDropsIt) {
  EXPECT_EQ(layOut(blanks(7) + "\nb c"), blanks(7) + " c\n");
}

TEST(LineEnd, WhereALongTokenIsCutDropsTheRest) {
  EXPECT_EQ(layOut(blanks(7) + "a " + repeat(62, 'y') + "\n" + repeat(30, 'z')),
            blanks(7) + "a \n" + blanks(10) + repeat(62, 'y') + "\n");
  EXPECT_EQ(layOut(blanks(7) + "a " + repeat(62, 'y') + "\r" + repeat(30, 'z')),
            blanks(7) + "a \n" + blanks(10) + repeat(62, 'y') + "\n");
}

// A line end counts only where a piece of the token begins.
TEST(LineEnd, InTheMiddleOfATokenIsWrittenUnchanged) {
  EXPECT_EQ(layOut(blanks(7) + "\"a\nb\" c"), blanks(7) + "\"a\nb\" c\n");
  EXPECT_EQ(layOut(blanks(7) + "\"a\rb\" c"), blanks(7) + "\"a\rb\" c\n");
}

}  // namespace
}  // namespace fdmorph
