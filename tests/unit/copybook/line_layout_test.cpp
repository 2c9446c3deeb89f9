// Entries and comments as lines.
#include "copybook/line_layout.h"

#include <gtest/gtest.h>

namespace fdmorph::copybook {
namespace {

std::string entry(std::vector<Word> words, std::size_t depth = 0, LineForm form = LineForm::fixed) {
  LineLayout layout(form);
  layout.addEntry(depth, words);
  return layout.takeText();
}

std::string comment(std::string_view text, LineForm form = LineForm::fixed) {
  LineLayout layout(form);
  layout.addComment(text);
  return layout.takeText();
}

std::string xs(std::size_t count) {
  return std::string(count, 'x');
}

TEST(Entries, BeginInAreaAOrB) {
  EXPECT_EQ(entry({{"01"}, {"A"}}), "       01 A.\n");
  EXPECT_EQ(entry({{"05"}, {"A"}}, 1), "           05 A.\n");
  EXPECT_EQ(entry({{"10"}, {"A"}}, 2), "             10 A.\n");
  EXPECT_EQ(entry({{"01"}, {"A"}}, 0, LineForm::free), "01 A.\n");
}

// Column 72 is the last one: "01 " and 62 characters with the period fill it.
TEST(Entries, EndAtColumn72) {
  EXPECT_EQ(entry({{"01"}, {xs(61)}}), "       01 " + xs(61) + ".\n");
  EXPECT_EQ(entry({{"01"}, {xs(40)}, {"PIC"}, {"X(20)"}}), "       01 " + xs(40) + " PIC X(20).\n");
  EXPECT_EQ(entry({{"01"}, {xs(52)}, {"PIC"}, {"X(20)"}}),
            "       01 " + xs(52) + " PIC\n               X(20).\n");
}

// A word of 60 characters fits only further left; one of 70 fits no line.
TEST(Entries, MoveOrContinueLongWords) {
  EXPECT_EQ(entry({{"01"}, {"A"}, {xs(60)}}), "       01 A\n           " + xs(60) + ".\n");
  EXPECT_EQ(entry({{"01"}, {"A"}, {xs(70)}}),
            "       01 A\n       " + xs(65) + "\n      -    " + xs(5) + ".\n");
}

TEST(Literals, FillTheLineAndContinue) {
  // "       01 A VALUE " has 18 columns: the quote and 53 characters follow.
  EXPECT_EQ(entry({{"01"}, {"A"}, {"VALUE"}, {"\"" + xs(70) + "\"", true}}),
            "       01 A VALUE \"" + xs(53) + "\n      -    \"" + xs(17) + "\".\n");
}

TEST(Literals, AreJoinedWhereAQuoteWouldEndTheLine) {
  // Character 53 is the first of two quotes. The part before it, its quote and " &"
  // end in column 72.
  std::string text = "\"" + xs(52) + "\"\"" + xs(20) + "\"";
  EXPECT_EQ(entry({{"01"}, {"A"}, {"VALUE"}, {text, true}}), "       01 A VALUE \"" + xs(50) +
                                                                 "\" &\n               \"" + xs(2) +
                                                                 "\"\"" + xs(20) + "\".\n");
}

TEST(Literals, AreNotDividedInACharacter) {
  // An e with acute accent is in columns 72 and 73.
  std::string text = "\"" + xs(52) + "\xC3\xA9" + xs(20) + "\"";
  EXPECT_EQ(entry({{"01"}, {"A"}, {"VALUE"}, {text, true}}), "       01 A VALUE \"" + xs(50) +
                                                                 "\" &\n               \"" + xs(2) +
                                                                 "\xC3\xA9" + xs(20) + "\".\n");
}

TEST(Literals, KeepTheirPrefixInFreeFormat) {
  // 80 columns less 'X"' after "01 A VALUE ", a quote and " &": 64 digits.
  std::string text = "X\"" + std::string(90, '0') + "\"";
  EXPECT_EQ(entry({{"01"}, {"A"}, {"VALUE"}, {text, true}}, 0, LineForm::free),
            "01 A VALUE X\"" + std::string(64, '0') + "\" &\n        X\"" + std::string(26, '0') +
                "\".\n");
}

TEST(Comments, AreBrokenAtBlanks) {
  EXPECT_EQ(comment("a"), "      * a\n");
  EXPECT_EQ(comment("a\n\nb"), "      * a\n      *\n      * b\n");
  EXPECT_EQ(comment(xs(60) + " " + xs(10)), "      * " + xs(60) + "\n      * " + xs(10) + "\n");
  EXPECT_EQ(comment(xs(70)), "      * " + xs(64) + "\n      * " + xs(6) + "\n");
  EXPECT_EQ(comment("a", LineForm::free), "*> a\n");
}

TEST(Comments, HaveNoControlCharacters) {
  EXPECT_EQ(comment("a\x1B[1m"), "      * a?[1m\n");
}

}  // namespace
}  // namespace fdmorph::copybook
