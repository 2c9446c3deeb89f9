// IDENTIFIED BY, NAMESPACE IS, IS ATTRIBUTE and COUNT IN.

#include <gtest/gtest.h>

#include "support/compiled_source.h"
#include "support/parsed_text.h"
#include "syntax/clauses.h"

namespace fdmorph::compiler {
namespace {

/// An item of level 05 with the clauses of a text.
struct ParsedXml : ParsedText {
  explicit ParsedXml(std::string const& content) : ParsedText(content) {
    tree.openSection(Section::workingStorage);
    item.level = 5;
    ClauseParser parser({tokens, names, values, pictures, tree});
    ClauseParser::Entry entry{item};
    while (parser.parse(entry)) {
    }
  }

  XmlClauses const& xml() const { return *item.xml; }

  DataItem item;
};

TEST(XmlClauses, StandInAnyOrderWithOthers) {
  ParsedXml text(
      "COUNT IN A-COUNT NAMESPACE IS \"urn:x\" PIC X IS ATTRIBUTE IDENTIFIED BY 'a' COMP-5");
  EXPECT_EQ(text.reports(), "");
  EXPECT_TRUE(text.tokens.isEnd());
  EXPECT_EQ(text.xml().countIn.name, "A-COUNT");
  EXPECT_EQ(text.xml().namespaceName.text, "\"urn:x\"");
  EXPECT_EQ(text.xml().identifiedBy.text, "'a'");
  EXPECT_TRUE(text.xml().isAttribute);
  EXPECT_EQ(text.item.usage, Usage::comp5);
}

TEST(XmlClauses, MayLeaveOutByAndIs) {
  ParsedXml text("identified \"a\" namespace \"b\" attribute");
  EXPECT_EQ(text.reports(), "");
  EXPECT_EQ(text.xml().identifiedBy.text, "\"a\"");
  EXPECT_EQ(text.xml().namespaceName.text, "\"b\"");
  EXPECT_TRUE(text.xml().isAttribute);
}

TEST(XmlClauses, MayHaveEmptyLiterals) {
  ParsedXml text("IDENTIFIED BY \"\" NAMESPACE IS \"\"");
  EXPECT_EQ(text.reports(), "");
  EXPECT_EQ(text.xml().identifiedBy.kind, Literal::Kind::text);
  EXPECT_EQ(text.xml().namespaceName.kind, Literal::Kind::text);
}

TEST(XmlClauses, AreAbsentFromOrdinaryItems) {
  EXPECT_EQ(ParsedXml("PIC X").item.xml, nullptr);
}

TEST(XmlClauses, StandInAnEntryOnce) {
  EXPECT_EQ(ParsedXml("IDENTIFIED BY \"a\" IDENTIFIED BY \"b\"").reports(),
            "1:19: error: duplicate IDENTIFIED clause [duplicate-clause]\n");
  EXPECT_EQ(ParsedXml("NAMESPACE \"a\" NAMESPACE \"b\"").reports(),
            "1:15: error: duplicate NAMESPACE clause [duplicate-clause]\n");
  EXPECT_EQ(ParsedXml("ATTRIBUTE IS ATTRIBUTE").reports(),
            "1:14: error: duplicate ATTRIBUTE clause [duplicate-clause]\n");
  EXPECT_EQ(ParsedXml("COUNT IN A COUNT IN B").reports(),
            "1:12: error: duplicate COUNT clause [duplicate-clause]\n");
}

TEST(XmlClauses, NeedLiteralsInQuotes) {
  EXPECT_EQ(ParsedXml("IDENTIFIED BY 5").reports(),
            "1:15: error: IDENTIFIED requires a literal in quotes [xml-clause]\n");
  EXPECT_EQ(ParsedXml("NAMESPACE IS SPACES").reports(),
            "1:14: error: NAMESPACE requires a literal in quotes [xml-clause]\n");
  EXPECT_EQ(ParsedXml("IDENTIFIED BY ALL \"a\"").reports(),
            "1:19: error: IDENTIFIED requires a literal in quotes [xml-clause]\n");
  EXPECT_EQ(ParsedXml("IDENTIFIED BY").reports(),
            "1:14: error: expected a literal after IDENTIFIED, found the end of the source "
            "[xml-clause]\n");
}

TEST(XmlClauses, NeedTheNameOfTheCount) {
  EXPECT_EQ(ParsedXml("COUNT A").reports(),
            "1:7: error: expected IN after COUNT, found 'A' [syntax]\n");
  EXPECT_EQ(ParsedXml("COUNT IN 5").reports(), "1:10: error: expected a name before '5' [name]\n");
}

TEST(XmlClauses, FollowTheNamesOfTables) {
  ParsedXml text("OCCURS 3 ASCENDING KEY A B INDEXED BY I J COUNT IN N IDENTIFIED BY \"a\"");
  EXPECT_EQ(text.reports(), "");
  EXPECT_EQ(text.item.occurs->keys.size(), 2);
  EXPECT_EQ(text.xml().countIn.name, "N");
}

// The words are names of items wherever a clause cannot begin.
TEST(XmlWords, AreNamesOfItems) {
  CompilationResult result = compile(
      "01 R.\n"
      " 05 COUNT PIC 9.\n"
      " 05 NAMESPACE PIC X.\n"
      " 05 IDENTIFIED.\n"
      "  10 ATTRIBUTE PIC X.\n"
      " 05 T PIC X OCCURS 1 TO 3 DEPENDING ON COUNT IN R.\n"
      " 66 N RENAMES NAMESPACE.\n");
  EXPECT_EQ(result.diagnostics, "");
  EXPECT_EQ(attributeOf(result.dictionary, "T", "odo"), "R.COUNT");
  EXPECT_EQ(attributeOf(result.dictionary, "ATTRIBUTE", "length"), "1");
}

TEST(XmlWords, AreNamesBeforeClausesOfTheSameWord) {
  CompilationResult result = compile(
      "01 R IDENTIFIED BY \"r\".\n"
      " 05 COUNT PIC 9 COUNT IN COUNT-COUNT.\n"
      " 05 IDENTIFIED IDENTIFIED BY \"i\" PIC X.\n"
      " 05 NAMESPACE NAMESPACE IS \"n\" PIC X.\n"
      " 05 ATTRIBUTE IS ATTRIBUTE IDENTIFIED BY \"a\" PIC X.\n");
  EXPECT_EQ(result.diagnostics, "");
  for (char const* name : {"COUNT", "IDENTIFIED", "NAMESPACE", "ATTRIBUTE"}) {
    EXPECT_EQ(attributeOf(result.dictionary, name, "length"), "1") << name;
  }
}

// An element may be called like a clause or a usage.
TEST(XmlWords, MakeTheWordBeforeThemAName) {
  CompilationResult result = compile(
      "01 R IDENTIFIED BY \"r\".\n"
      " 05 OBJECT IDENTIFIED BY \"object\".\n"
      "  10 VALUE PIC X IDENTIFIED BY \"value\".\n"
      " 05 INDEX OCCURS 3 TIMES IDENTIFIED BY \"index\".\n"
      "  10 PIC IDENTIFIED BY \"pic\".\n"
      "   15 DISPLAY PIC X IS ATTRIBUTE IDENTIFIED BY \"display\".\n"
      " 05 COMP-1 PIC X OCCURS 2 IDENTIFIED BY \"comp-1\".\n"
      " 05 SIGN IDENTIFIED BY \"sign\" PIC X.\n");
  EXPECT_EQ(result.diagnostics, "");
  EXPECT_EQ(attributeOf(result.dictionary, "INDEX", "maxOccurs"), "3");
  for (char const* name : {"OBJECT", "VALUE", "PIC", "DISPLAY", "SIGN"}) {
    EXPECT_EQ(attributeOf(result.dictionary, name, "length"), "1") << name;
  }
}

TEST(XmlRecord, MayHaveItemsWithoutPicture) {
  CompilationResult result = compile(
      "01 R.\n"
      " 05 A.\n"
      " 05 B PIC X IDENTIFIED BY \"b\".\n");
  EXPECT_EQ(result.diagnostics, "");
  EXPECT_EQ(attributeOf(result.dictionary, "A", "length"), "0");
  EXPECT_EQ(attributeOf(result.dictionary, "R", "length"), "1");
}

TEST(XmlRecord, IsEachRecordByItself) {
  EXPECT_EQ(firstReport("01 R PIC X IDENTIFIED BY \"r\".\n01 S.\n 05 A.\n"),
            "a.cpy:3:12: error: item 'A' has no PICTURE clause [picture-missing]");
}

TEST(XmlRecord, MayBeTheOneAroundACopybook) {
  EXPECT_EQ(lengthOf("05 A.\n05 B PIC X COUNT IN B-COUNT.\n", "A"), "0");
  EXPECT_EQ(lengthOf("05 A IDENTIFIED BY \"a\".\n", "A"), "0");
}

TEST(XmlRecord, MayRepeatPictureSymbolsAndItemsZeroTimes) {
  CompilationResult result = compile(
      "01 R IDENTIFIED BY \"r\".\n"
      " 05 A PIC S9(18)V9(0).\n"
      " 05 B PIC X(0).\n"
      " 05 C PIC X OCCURS 0 TIMES.\n"
      " 05 D PIC S9(0)V9(2).\n");
  EXPECT_EQ(result.diagnostics, "");
  EXPECT_EQ(attributeOf(result.dictionary, "A", "length"), "18");
  EXPECT_EQ(attributeOf(result.dictionary, "A", "alignment"), "0");
  EXPECT_EQ(attributeOf(result.dictionary, "B", "length"), "0");
  EXPECT_EQ(attributeOf(result.dictionary, "C", "maxOccurs"), "0");
  EXPECT_EQ(attributeOf(result.dictionary, "D", "alignment"), "2");
  EXPECT_EQ(attributeOf(result.dictionary, "R", "length"), "20");
}

class NotOnTheseLevels : public testing::TestWithParam<WrongSource> {};

TEST_P(NotOnTheseLevels, IsAnError) {
  EXPECT_EQ(firstReport(GetParam().source), GetParam().report);
}

INSTANTIATE_TEST_SUITE_P(
    XmlClauses, NotOnTheseLevels,
    testing::Values(
        WrongSource{"01 R.\n 05 A PIC X.\n 66 N RENAMES A IDENTIFIED BY \"n\".\n",
                    "a.cpy:3:24: error: expected '.' at the end of the level 66 entry, found "
                    "'IDENTIFIED' [syntax]"},
        WrongSource{"01 R PIC X.\n 88 C VALUE \"c\" IDENTIFIED BY \"n\".\n",
                    "a.cpy:2:24: error: expected '.' at the end of the condition entry, found "
                    "'IDENTIFIED' [syntax]"},
        WrongSource{"78 K VALUE 5 COUNT IN N.\n01 R PIC X.\n",
                    "a.cpy:1:21: error: expected '.' at the end of the constant entry, found "
                    "'COUNT' [syntax]"},
        WrongSource{"01 K CONSTANT 5 IS ATTRIBUTE.\n01 R PIC X.\n",
                    "a.cpy:1:24: error: expected '.' at the end of the constant entry, found "
                    "'IS' [syntax]"}));

}  // namespace
}  // namespace fdmorph::compiler
