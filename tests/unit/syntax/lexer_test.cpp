#include "syntax/lexer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "support/parsed_text.h"

namespace fdmorph::compiler {
namespace {

using Kind = Token::Kind;
using Tokens = std::vector<std::pair<Kind, std::string>>;
using testing::ElementsAre;
using testing::Pair;

Tokens takeAll(Lexer& lexer) {
  Tokens tokens;
  for (Token token = lexer.take(); token.kind != Kind::end; token = lexer.take()) {
    tokens.emplace_back(token.kind, std::string(token.text));
  }
  return tokens;
}

Tokens tokensOf(std::string const& text) {
  LexedText lexed(text);
  return takeAll(lexed.lexer);
}

Tokens tokensWithDecimalComma(std::string const& text) {
  LexedText lexed(text);
  lexed.lexer.useDecimalComma();
  return takeAll(lexed.lexer);
}

TEST(Lexer, TellsTheKindsOfTokens) {
  EXPECT_THAT(
      tokensOf("05 A-1 VALUE 'x' ( :"),
      ElementsAre(Pair(Kind::number, "05"), Pair(Kind::word, "A-1"), Pair(Kind::word, "VALUE"),
                  Pair(Kind::literal, "'x'"), Pair(Kind::symbol, "("), Pair(Kind::symbol, ":")));
}

TEST(Lexer, FindsKeywordsInAnyCase) {
  LexedText lexed("Pic x Values value-1");
  EXPECT_TRUE(lexed.lexer.take().is(Keyword::picture));
  EXPECT_EQ(lexed.lexer.take().kind, Kind::picture);
  EXPECT_TRUE(lexed.lexer.take().is(Keyword::value));
  EXPECT_TRUE(lexed.lexer.take().is(Keyword::none));
}

TEST(Lexer, EndsAgainAndAgain) {
  LexedText lexed("A");
  EXPECT_EQ(lexed.lexer.peek(3).kind, Kind::end);
  EXPECT_EQ(lexed.lexer.take().text, "A");
  EXPECT_EQ(lexed.lexer.take().kind, Kind::end);
  EXPECT_EQ(lexed.lexer.take().kind, Kind::end);
}

TEST(Lexer, PeeksWithoutTaking) {
  LexedText lexed("A B C");
  EXPECT_EQ(lexed.lexer.peek(2).text, "C");
  EXPECT_EQ(lexed.lexer.peek().text, "A");
  EXPECT_EQ(lexed.lexer.take().text, "A");
  EXPECT_EQ(lexed.lexer.peek().text, "B");
}

TEST(Lexer, NotesWhatIsFirstOnItsLine) {
  LexedText lexed("A B\n  C");
  EXPECT_TRUE(lexed.lexer.take().isFirstOnLine);
  EXPECT_FALSE(lexed.lexer.take().isFirstOnLine);
  EXPECT_TRUE(lexed.lexer.take().isFirstOnLine);
}

TEST(Lexer, DropsSeparators) {
  EXPECT_THAT(tokensOf("A, B; C ,"),
              ElementsAre(Pair(Kind::word, "A"), Pair(Kind::word, "B"), Pair(Kind::word, "C")));
}

TEST(Lexer, ReadsNumbersAsOneToken) {
  for (char const* number :
       {"1", "-1", "+1", "1.5", "-1.5", "+.5", ".5", "1.5E3", "1.5E-3", "1.5E+3", "-0.25"}) {
    EXPECT_THAT(tokensOf(number), ElementsAre(Pair(Kind::number, number)));
  }
}

TEST(Lexer, EndsANumberAtThePeriodOfTheSentence) {
  EXPECT_THAT(tokensOf("VALUE 1."), ElementsAre(Pair(Kind::word, "VALUE"), Pair(Kind::number, "1"),
                                                Pair(Kind::period, ".")));
  EXPECT_THAT(tokensOf("1.5."), ElementsAre(Pair(Kind::number, "1.5"), Pair(Kind::period, ".")));
}

TEST(Lexer, ReadsAListOfNumbers) {
  EXPECT_THAT(tokensOf("1,2 3"), ElementsAre(Pair(Kind::number, "1"), Pair(Kind::number, "2"),
                                             Pair(Kind::number, "3")));
}

TEST(Lexer, ReadsDecimalCommas) {
  EXPECT_THAT(
      tokensWithDecimalComma("1,5 ,5 1, 2."),
      ElementsAre(Pair(Kind::number, "1,5"), Pair(Kind::number, ",5"), Pair(Kind::number, "1"),
                  Pair(Kind::number, "2"), Pair(Kind::period, ".")));
}

TEST(Lexer, ReadsAWordWithDigitsAsAName) {
  EXPECT_THAT(tokensOf("1A 12-B"), ElementsAre(Pair(Kind::word, "1A"), Pair(Kind::word, "12-B")));
}

TEST(Lexer, KeepsATagInItsName) {
  EXPECT_THAT(tokensOf(":T:-A B-:T:-C"),
              ElementsAre(Pair(Kind::word, ":T:-A"), Pair(Kind::word, "B-:T:-C")));
}

TEST(Lexer, ReadsAPictureUpToABlank) {
  for (char const* picture : {"X(3)", "S9(5)V99", "$,$$9.99-", "Z(3)9.9(2)", "X(K-1)", "X(:N:)"}) {
    EXPECT_THAT(tokensOf("PIC " + std::string(picture) + " VALUE"),
                ElementsAre(Pair(Kind::word, "PIC"), Pair(Kind::picture, picture),
                            Pair(Kind::word, "VALUE")));
  }
  EXPECT_THAT(tokensOf("PICTURE IS X."),
              ElementsAre(Pair(Kind::word, "PICTURE"), Pair(Kind::word, "IS"),
                          Pair(Kind::picture, "X"), Pair(Kind::period, ".")));
}

/// The picture string that is read from `text`.
std::string pictureIn(std::string const& text) {
  return tokensOf("PIC " + text).at(1).second;
}

TEST(Lexer, LeavesTheSeparatorsAfterAPicture) {
  EXPECT_EQ(pictureIn("9,9."), "9,9");
  EXPECT_EQ(pictureIn("9,9, VALUE 1."), "9,9");
  EXPECT_EQ(pictureIn("9,9,, ."), "9,9");
  EXPECT_EQ(pictureIn("9,9;."), "9,9");
  EXPECT_EQ(pictureIn("9,9,;."), "9,9");
  EXPECT_EQ(pictureIn("X.,"), "X");
}

TEST(Lexer, CountsACommaBeforeThePeriodToThePicture) {
  EXPECT_THAT(
      tokensOf("PIC 9,9,."),
      ElementsAre(Pair(Kind::word, "PIC"), Pair(Kind::picture, "9,9,"), Pair(Kind::period, ".")));
  EXPECT_EQ(pictureIn("9,9,,."), "9,9,,");
  EXPECT_EQ(pictureIn("9,9.."), "9,9.");
}

TEST(Lexer, MarksALiteralWithoutItsClosingQuote) {
  LexedText lexed("'a' 'b");
  EXPECT_FALSE(lexed.lexer.take().isOpen);
  EXPECT_TRUE(lexed.lexer.take().isOpen);
}

TEST(IntegerText, IsDigitsWithOrWithoutASign) {
  for (char const* text : {"0", "12", "+1", "-1"}) EXPECT_TRUE(isIntegerText(text)) << text;
  for (char const* text : {"", "+", "1.5", "1-", "A"}) EXPECT_FALSE(isIntegerText(text)) << text;
}

}  // namespace
}  // namespace fdmorph::compiler
