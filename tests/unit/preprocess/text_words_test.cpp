// The scanner of text words.

#include "preprocess/text_words.h"

#include <gtest/gtest.h>

#include <vector>

namespace fdmorph::compiler {
namespace {

using Kind = TextWord::Kind;

class TextWords : public testing::Test {
 protected:
  /// The words of a source in free format, without the end.
  std::vector<TextWord> scan(std::string_view content) {
    text = readSource(content, {Format::free, 8});
    WordScanner scanner(text, 1);
    std::vector<TextWord> words;
    for (TextWord word = scanner.next(); !word.isEnd(); word = scanner.next()) {
      words.push_back(word);
    }
    return words;
  }

  std::vector<std::string> texts(std::string_view content) {
    std::vector<std::string> result;
    for (TextWord const& each : scan(content)) result.emplace_back(each.text);
    return result;
  }

  SourceText text;
};

using Texts = std::vector<std::string>;

TEST_F(TextWords, AreWordsLiteralsAndOtherCharacters) {
  EXPECT_EQ(texts("A-1 PIC S9(3)V9. ==:T:=="),
            (Texts{"A-1", "PIC", "S9", "(", "3", ")", "V9", ".", "==", ":", "T", ":", "=="}));
}

TEST_F(TextWords, KeepTheQuotesAndThePrefixOfALiteral) {
  EXPECT_EQ(texts("X\"41\" 'it''s' n'a' Q\"b\""),
            (Texts{"X\"41\"", "'it''s'", "n'a'", "Q", "\"b\""}));
}

TEST_F(TextWords, RecordWhetherABlankPrecedesThem) {
  std::vector<TextWord> words = scan("A B:C");
  ASSERT_EQ(words.size(), 4U);
  EXPECT_TRUE(words[0].precededBySpace);
  EXPECT_TRUE(words[1].precededBySpace);
  EXPECT_FALSE(words[2].precededBySpace);
  EXPECT_FALSE(words[3].precededBySpace);
}

TEST_F(TextWords, RecordWhetherTheyAreFirstOnTheirLine) {
  std::vector<TextWord> words = scan("A B\n  C");
  ASSERT_EQ(words.size(), 3U);
  EXPECT_TRUE(words[0].isFirstOnLine);
  EXPECT_FALSE(words[1].isFirstOnLine);
  EXPECT_TRUE(words[2].isFirstOnLine);
}

TEST_F(TextWords, EndAnOpenLiteralWithItsLine) {
  std::vector<TextWord> words = scan("\"a\nb");
  ASSERT_EQ(words.size(), 2U);
  EXPECT_EQ(words[0].text, "\"a");
  EXPECT_TRUE(words[0].isOpen);
  EXPECT_EQ(words[1].text, "b");
}

TEST_F(TextWords, HaveThePlaceOfTheirFirstByte) {
  std::vector<TextWord> words = scan("A *> comment\n  BC");
  ASSERT_EQ(words.size(), 2U);
  EXPECT_EQ(words[0].place, (Place{1, 0}));
  EXPECT_EQ(words[1].place, (Place{1, 15}));
}

TEST_F(TextWords, MarkDirectivesOfConditionalCompilationOnly) {
  std::vector<TextWord> words = scan(">>IF A\n$ 5");
  ASSERT_EQ(words.size(), 5U);
  EXPECT_EQ(words[0].kind, Kind::directive);
  EXPECT_EQ(words[0].text, ">>");
  EXPECT_EQ(words[3].kind, Kind::symbol);
}

TEST_F(TextWords, TakeBytesBeyondAsciiForLetters) {
  EXPECT_EQ(texts("\xC3\xA9t\xE9 b"), (Texts{"\xC3\xA9t\xE9", "b"}));
}

TEST_F(TextWords, CanBeSkippedUpToTheNextLine) {
  text = readSource("A B\nC", {Format::free, 8});
  WordScanner scanner(text, 1);
  EXPECT_EQ(scanner.next().text, "A");
  scanner.skipLine();
  EXPECT_EQ(scanner.next().text, "C");
  EXPECT_TRUE(scanner.next().isEnd());
  EXPECT_TRUE(scanner.next().isEnd());
}

}  // namespace
}  // namespace fdmorph::compiler
