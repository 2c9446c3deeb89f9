// A text of options is split as a POSIX shell would, without any expansion.
#include "library/option_words.h"

#include <gtest/gtest.h>

namespace fdmorph::library {
namespace {

using Words = std::vector<std::string>;

TEST(OptionWords, AreSeparatedByBlanks) {
  EXPECT_EQ(optionWords("--single  --dialect\tgnucobol\n"),
            (Words{"--single", "--dialect", "gnucobol"}));
  EXPECT_EQ(optionWords(""), Words{});
  EXPECT_EQ(optionWords(" \t "), Words{});
}

TEST(OptionWords, ApostrophesKeepEverything) {
  EXPECT_EQ(optionWords(R"(--when 'A: K = "1"')"), (Words{"--when", R"(A: K = "1")"}));
  EXPECT_EQ(optionWords(R"('a\b $c')"), (Words{R"(a\b $c)"}));
  EXPECT_EQ(optionWords("''"), Words{""});
}

TEST(OptionWords, QuotationsMayBePartsOfWords) {
  EXPECT_EQ(optionWords(R"(--when='A: K = 1' --root="a"b'c')"),
            (Words{"--when=A: K = 1", "--root=abc"}));
}

TEST(OptionWords, BackslashesTakeTheMeaningOfTheNextCharacter) {
  EXPECT_EQ(optionWords(R"(a\ b \'c\" "d\"e\\f")"), (Words{"a b", "'c\"", R"(d"e\f)"}));
}

// In quotation marks a backslash stays before a character without a meaning.
TEST(OptionWords, OtherBackslashesInQuotationMarksStay) {
  EXPECT_EQ(optionWords(R"("a\b" c\)"), (Words{R"(a\b)", "c\\"}));
}

TEST(OptionWords, AQuotationThatDoesNotEndIsAnError) {
  EXPECT_EQ(optionWords("a 'b"), std::nullopt);
  EXPECT_EQ(optionWords("a \"b'"), std::nullopt);
  EXPECT_EQ(optionWords("\"a\\\""), std::nullopt);
}

}  // namespace
}  // namespace fdmorph::library
