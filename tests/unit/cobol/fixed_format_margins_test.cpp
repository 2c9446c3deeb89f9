// Margins that leave little room on a line.

#include <gtest/gtest.h>

#include <sstream>

#include "support/fixed_format.h"

namespace fdmorph {
namespace {

std::string const kContinued = "\n      -   ";

std::string lay(int margin, std::initializer_list<std::string_view> tokens,
                bool isComment = false) {
  FixedFormatLayout layout(margin, isComment);
  for (std::string_view token : tokens) layout.OutputCOBOLToken(token);
  return layout.text();
}

TEST(WideMargin, Of60LeavesTwoColumnsOnAWrappedLine) {
  EXPECT_EQ(lay(60, {"01", " ", "abcde"}), blanks(67) + "01 \n" + blanks(70) + "ab" + kContinued +
                                               blanks(60) + "cd" + kContinued + blanks(60) + "e");
}

TEST(WideMargin, Of60LeavesOneColumnAfterAReopenedQuote) {
  EXPECT_EQ(lay(60, {"01", " ", "\"abc\""}),
            blanks(67) + "01 \n" + blanks(70) + "\"a" + kContinued + blanks(60) + "\"b" +
                kContinued + blanks(60) + "\"c" + kContinued + blanks(60) + "\"\"");
}

TEST(WideMargin, Of61LeavesOneColumnOnAWrappedLine) {
  EXPECT_EQ(lay(61, {"01", " ", "abc"}), blanks(68) + "01 \n" + blanks(71) + "a" + kContinued +
                                             blanks(61) + "b" + kContinued + blanks(61) + "c");
}

TEST(WideMargin, Of61Becomes60IfAQuoteIsReopened) {
  EXPECT_EQ(lay(61, {"01", " ", "\"ab\""}), blanks(68) + "01 \n" + blanks(71) + "\"" + kContinued +
                                                blanks(60) + "\"a" + kContinued + blanks(60) +
                                                "\"b" + kContinued + blanks(60) + "\"\"");
}

TEST(WideMargin, Of61AppliesAgainAfterTheLiteral) {
  std::string const literal = lay(61, {"01", " ", "\"ab\""});
  EXPECT_EQ(lay(61, {"01", " ", "\"ab\"", " ", "c"}),
            literal + "\n" + blanks(71) + " \n" + blanks(71) + "c");
}

TEST(WideMargin, Above61Becomes60) {
  for (int margin : {62, 63, 65, 72, 100, 1000}) {
    EXPECT_EQ(lay(margin, {"01", " ", "abcde"}), lay(60, {"01", " ", "abcde"})) << margin;
    EXPECT_EQ(lay(margin, {"01", " ", "\"abc\""}), lay(60, {"01", " ", "\"abc\""})) << margin;
  }
}

TEST(WideMargin, ComesFromTheIndentationOfTheLine) {
  EXPECT_EQ(layOut(blanks(67) + "01 abcde"), lay(60, {"01", " ", "abcde"}) + "\n");
  EXPECT_EQ(layOut(blanks(68) + "01 abcde"), lay(61, {"01", " ", "abcde"}) + "\n");
  EXPECT_EQ(layOut(blanks(69) + "01 abcde"), lay(60, {"01", " ", "abcde"}) + "\n");
  EXPECT_EQ(layOut(blanks(200) + "01 abcde"), lay(60, {"01", " ", "abcde"}) + "\n");
}

TEST(WideMargin, OfACommentLeavesTheSameRoom) {
  EXPECT_EQ(lay(61, {"*", " ", "abcd"}, true), blanks(67) + "* \n      *   " + blanks(61) +
                                                   "a\n      *   " + blanks(61) + "b\n      *   " +
                                                   blanks(61) + "c\n      *   " + blanks(61) + "d");
}

TEST(AnyMargin, LeavesNoLineLongerThanColumn72) {
  for (std::size_t indent = 0; indent < 90; ++indent) {
    std::istringstream lines(layOut(blanks(indent) + "05 " + repeat(100, 'x') + " \"" +
                                    repeat(100, 'y') + "\"  " + repeat(62, 'z') + "."));
    for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 72U) << indent;
  }
}

TEST(AnyMargin, LosesNoCharacter) {
  for (std::size_t indent = 0; indent < 90; ++indent) {
    std::string const text = layOut(blanks(indent) + "05 " + repeat(100, 'x') + ".");
    std::size_t count = 0;
    for (char c : text) count += c == 'x' ? 1U : 0U;
    EXPECT_EQ(count, 100U) << indent;
  }
}

}  // namespace
}  // namespace fdmorph
