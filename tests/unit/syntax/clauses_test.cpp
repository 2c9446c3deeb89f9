#include "syntax/clauses.h"

#include <gtest/gtest.h>

#include "support/parsed_text.h"

namespace fdmorph::compiler {
namespace {

/// An item of level 05 with the clauses of a text.
struct ParsedClauses : ParsedText {
  explicit ParsedClauses(std::string const& content, Section section = Section::workingStorage)
      : ParsedText(content) {
    tree.openSection(section);
    item.level = 5;
    ClauseParser parser({tokens, names, values, pictures, tree});
    ClauseParser::Entry entry{item};
    while (parser.parse(entry)) {
    }
  }

  DataItem item;
};

TEST(Clauses, StandInAnyOrder) {
  ParsedClauses text("VALUE 5 OCCURS 2 TIMES COMP-3 PIC S9(3) SYNC");
  EXPECT_EQ(text.reports(), "");
  EXPECT_TRUE(text.tokens.isEnd());
  EXPECT_EQ(text.item.values.at(0).from.text, "5");
  EXPECT_EQ(text.item.occurs->most, 2);
  EXPECT_EQ(text.item.usage, Usage::comp3);
  EXPECT_EQ(text.item.picture->text, "S9(3)");
  EXPECT_TRUE(text.item.isSynchronized);
}

TEST(Clauses, EndBeforeAnyOtherWord) {
  ParsedClauses text("JUST RIGHT BLANK WHEN ZERO FOO");
  EXPECT_TRUE(text.item.isJustified);
  EXPECT_TRUE(text.item.isBlankWhenZero);
  EXPECT_EQ(text.tokens.peek().text, "FOO");
}

TEST(Clauses, StandInAnEntryOnce) {
  EXPECT_EQ(ParsedClauses("PIC X PICTURE X").reports(),
            "1:7: error: duplicate PICTURE clause [duplicate-clause]\n");
  EXPECT_EQ(ParsedClauses("COMP USAGE IS DISPLAY").reports(),
            "1:15: error: duplicate DISPLAY clause [duplicate-clause]\n");
  EXPECT_EQ(ParsedClauses("SIGN IS LEADING TRAILING").reports(),
            "1:17: error: duplicate TRAILING clause [duplicate-clause]\n");
}

TEST(SignClause, MayBeSeparate) {
  ParsedClauses text("SIGN IS TRAILING SEPARATE CHARACTER");
  EXPECT_EQ(text.item.sign.position, SignPosition::trailing);
  EXPECT_TRUE(text.item.sign.isSeparate);
  EXPECT_TRUE(text.tokens.isEnd());
  EXPECT_EQ(ParsedClauses("SIGN SEPARATE").reports(),
            "1:6: error: expected LEADING or TRAILING after SIGN, found 'SEPARATE' [syntax]\n");
}

TEST(UsageClause, NamesAUsage) {
  ParsedClauses unknown("USAGE COMP-9");
  EXPECT_EQ(unknown.reports(), "1:7: error: unknown usage 'COMP-9' [usage]\n");
  EXPECT_TRUE(unknown.item.isIncomplete);
  EXPECT_EQ(ParsedClauses("USAGE IS .").reports(),
            "1:10: error: expected a usage, found '.' [usage]\n");
  EXPECT_TRUE(ParsedClauses("BINARY-LONG UNSIGNED").item.isUnsigned);
}

TEST(PictureClause, NeedsAPicture) {
  ParsedClauses text("PIC .");
  EXPECT_EQ(text.reports(), "1:1: error: expected a picture string before '.' [picture]\n");
  EXPECT_TRUE(text.item.isIncomplete);
}

TEST(OccursClause, MayBeARange) {
  ParsedClauses text(
      "OCCURS 1 TO 5 TIMES DEPENDING ON N ASCENDING KEY IS A B OF C DESCENDING D INDEXED BY I J");
  EXPECT_EQ(text.reports(), "");
  EXPECT_TRUE(text.tokens.isEnd());
  OccursClause const& occurs = *text.item.occurs;
  EXPECT_EQ(occurs.least, 1);
  EXPECT_EQ(occurs.most, 5);
  EXPECT_EQ(occurs.depending.name, "N");
  ASSERT_EQ(occurs.keys.size(), 3);
  EXPECT_EQ(occurs.keys[1].qualifiers.size(), 1);
  using enum KeyOrder;
  EXPECT_EQ(occurs.keyOrders, (std::vector{ascending, ascending, descending}));
  EXPECT_EQ(occurs.indexes, (std::vector<std::string_view>{"I", "J"}));
}

TEST(OccursClause, MayBeUnboundedInTheLinkageSection) {
  ParsedClauses text("OCCURS 1 TO UNBOUNDED DEPENDING ON N", Section::linkage);
  EXPECT_EQ(text.reports(), "");
  EXPECT_EQ(text.item.occurs->most, 1);
  EXPECT_EQ(ParsedClauses("OCCURS 1 TO UNBOUNDED DEPENDING ON N").reports(),
            "1:13: error: expected a number of occurrences, found 'UNBOUNDED' [occurs]\n");
}

TEST(OccursClause, HasARangeThatRises) {
  EXPECT_EQ(ParsedClauses("OCCURS 3 TO 2 DEPENDING ON N").reports(),
            "1:1: error: OCCURS range must end above its start [occurs]\n");
  EXPECT_EQ(ParsedClauses("OCCURS 1 TO 2").reports(),
            "1:1: error: OCCURS with TO requires DEPENDING ON [occurs]\n");
  EXPECT_EQ(ParsedClauses("OCCURS 2147483648").reports(),
            "1:8: error: '2147483648' is not an integer from 0 to 2147483647 [occurs]\n");
}

TEST(AnyLength, CountsAsOneCharacter) {
  ParsedClauses length("ANY LENGTH", Section::linkage);
  EXPECT_EQ(length.item.picture->text, "X");
  ParsedClauses numeric("ANY NUMERIC", Section::linkage);
  EXPECT_EQ(numeric.item.picture->text, "9");
  // A picture of its own counts, wherever it stands.
  EXPECT_EQ(ParsedClauses("PIC N ANY LENGTH").item.picture->text, "N");
  EXPECT_EQ(ParsedClauses("ANY LENGTH PIC N").item.picture->text, "N");
  EXPECT_EQ(ParsedClauses("ANY X").reports(),
            "1:5: error: expected LENGTH or NUMERIC after ANY, found 'X' [syntax]\n");
}

TEST(StorageClauses, AreForRecords) {
  EXPECT_EQ(ParsedClauses("IS EXTERNAL").reports(),
            "1:4: error: EXTERNAL requires level 1 or 77, found level 5 [clause]\n");
  EXPECT_EQ(ParsedClauses("VOLATILE").reports(), "");
}

TEST(PictureTable, AnalysesAPictureOnce) {
  ParsedText text("");
  Picture const& first = text.pictures.find("X(3)");
  EXPECT_EQ(&text.pictures.find("X(3)"), &first);
  EXPECT_EQ(first.size, 3);
}

TEST(PictureTable, AnalysesAPictureAgainWhenItsConstantIsKnown) {
  ParsedText text("");
  EXPECT_FALSE(text.pictures.find("X(N)").isValid());
  Literal three;
  three.kind = Literal::Kind::number;
  three.text = "3";
  EXPECT_TRUE(text.constants.add("N", three));
  EXPECT_EQ(text.pictures.find("X(N)").size, 3);
}

}  // namespace
}  // namespace fdmorph::compiler
