#include "syntax/token_stream.h"

#include <gtest/gtest.h>

#include "support/parsed_text.h"

namespace fdmorph::compiler {
namespace {

TEST(TokenStream, SkipsOnlyWhatIsThere) {
  ParsedText text("IS Contains A");
  EXPECT_FALSE(text.tokens.skip(Keyword::are));
  EXPECT_TRUE(text.tokens.skip(Keyword::is));
  EXPECT_FALSE(text.tokens.skipWord("CONTAIN"));
  EXPECT_TRUE(text.tokens.skipWord("CONTAINS"));
  EXPECT_FALSE(text.tokens.skipPeriod());
  EXPECT_EQ(text.tokens.last().text, "Contains");
  EXPECT_EQ(text.tokens.take().text, "A");
  EXPECT_TRUE(text.tokens.isEnd());
}

TEST(TokenStream, FindsWhereAnEntryStarts) {
  for (char const* entry : {"05 A", "5 PIC", "88 B", "01 FILLER"}) {
    EXPECT_TRUE(ParsedText(entry).tokens.isEntryStart()) << entry;
  }
  // No level, or numbers in a list of values or a table's size.
  for (char const* other : {"50 A", "005 A", "5.", "5 6", "5 THRU 6", "5 TIMES", "5 FALSE"}) {
    EXPECT_FALSE(ParsedText(other).tokens.isEntryStart()) << other;
  }
  ParsedText text("A 05 B");
  text.tokens.take();
  EXPECT_FALSE(text.tokens.isEntryStart());  // not at the beginning of its line
}

TEST(TokenStream, FindsHeaders) {
  for (char const* header :
       {"DATA DIVISION", "FILE SECTION", "FD F", "SD F", "END PROGRAM P", "PROGRAM-ID. P"}) {
    EXPECT_TRUE(ParsedText(header).tokens.isHeader()) << header;
  }
  for (char const* other : {"DATA", "END", "FOO DIVISION", "FOO SECTION", "01 A"}) {
    EXPECT_FALSE(ParsedText(other).tokens.isHeader()) << other;
  }
}

TEST(TokenStream, SkipsASentenceWithItsPeriod) {
  ParsedText text("A B . C D\n05 E");
  text.tokens.skipSentence();
  EXPECT_EQ(text.tokens.peek().text, "C");
  text.tokens.skipSentence();
  EXPECT_EQ(text.tokens.peek().text, "05");  // where the period is missing
}

TEST(TokenStream, MissesAPeriodRightAfterTheLastToken) {
  ParsedText text("ABC\n  DEF");
  text.tokens.take();
  text.tokens.expectPeriod("test");
  EXPECT_EQ(text.reports(),
            "1:4: error: expected '.' at the end of the test, found 'DEF' [period]\n");
}

TEST(TokenStream, SaysThatALineGoesOnPastItsMargin) {
  ParsedText text("ABC");
  TokenStream tokens(text.lexer, text.errors, [](Place place) { return place.offset == 0; });
  tokens.take();
  tokens.expectPeriod("test");
  EXPECT_EQ(text.reports(),
            "1:4: error: expected '.' at the end of the test, found the end of the source; "
            "the line goes on past column 72 [period]\n");
}

TEST(TokenStream, ReportsOneErrorAtAPlace) {
  ParsedText text("A B");
  text.tokens.expected(Code::syntax, "a number");
  text.tokens.expected(Code::value, "a literal");
  text.tokens.take();
  text.tokens.expected(Code::value, "a literal");
  EXPECT_EQ(text.reports(),
            "1:1: error: expected a number, found 'A' [syntax]\n"
            "1:3: error: expected a literal, found 'B' [value]\n");
}

TEST(TokenStream, MissesNoPeriodThatAMemberMayHold) {
  ParsedText text("A B");
  Token first = text.tokens.take();
  text.diagnostics.report(Code::copyMissing, first.place, "test");
  text.tokens.expectPeriod("test");
  EXPECT_EQ(text.reports(), "1:1: error: test [copy-missing]\n");
  TokenStream::MissingCopies copies = text.tokens.takeMissingCopies();
  EXPECT_TRUE(copies.isAny);
  EXPECT_FALSE(copies.isAfterNext);
  EXPECT_FALSE(text.tokens.takeMissingCopies().isAny);
  text.diagnostics.report(Code::copyCircle, {1, 100}, "test");
  EXPECT_TRUE(text.tokens.takeMissingCopies().isAfterNext);
}

TEST(LevelNumber, IsOneOrTwoDigits) {
  EXPECT_EQ(levelOf(ParsedText("01").tokens.peek()), 1);
  EXPECT_EQ(levelOf(ParsedText("49").tokens.peek()), 49);
  EXPECT_EQ(levelOf(ParsedText("88").tokens.peek()), 88);
  for (char const* other : {"00", "50", "010", "+5", "A"}) {
    EXPECT_EQ(levelOf(ParsedText(other).tokens.peek()), std::nullopt) << other;
  }
}

}  // namespace
}  // namespace fdmorph::compiler
