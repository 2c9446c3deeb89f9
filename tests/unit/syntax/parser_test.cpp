#include "syntax/parser.h"

#include <gtest/gtest.h>

#include "support/parsed_text.h"

namespace fdmorph::compiler {
namespace {

/// A text that is parsed whole.
struct ParsedSource : ParsedText {
  explicit ParsedSource(std::string const& content) : ParsedText(content) {
    Parser(lexer, pool, variables, diagnostics, data).parse();
  }
};

TEST(Parser, KeepsTheRecordsOfEachSection) {
  ParsedSource text(
      "ID DIVISION. PROGRAM-ID. P.\nDATA DIVISION.\nFILE SECTION.\nFD F.\n01 A PIC X.\n"
      "WORKING-STORAGE SECTION.\n01 B PIC X.\nLOCAL-STORAGE SECTION.\n01 C PIC X.\n"
      "LINKAGE SECTION.\n01 D PIC X.\nPROCEDURE DIVISION.\n01 E PIC X.");
  EXPECT_EQ(text.reports(), "");
  EXPECT_TRUE(text.data.isProgram);
  EXPECT_EQ(text.data.programName, "P");
  EXPECT_EQ(text.data.files.at(0).records.first->name, "A");
  EXPECT_EQ(text.data.workingStorage.first->name, "B");
  EXPECT_EQ(text.data.localStorage.first->name, "C");
  EXPECT_EQ(text.data.linkage.first->name, "D");
  EXPECT_EQ(text.data.items.size(), 4);
}

TEST(Parser, SkipsSectionsWithoutData) {
  ParsedSource text(
      "DATA DIVISION.\nSCREEN SECTION.\n01 A LINE 5.\nREPORT SECTION.\nRD B.\n"
      "LINKAGE SECTION.\n01 D PIC X.");
  EXPECT_EQ(text.reports(), "");
  EXPECT_EQ(text.data.items.size(), 1);
}

TEST(Parser, EndsWithTheFirstProgram) {
  char const* program = "PROGRAM-ID. P.\nDATA DIVISION.\nWORKING-STORAGE SECTION.\n01 A PIC X.\n";
  EXPECT_EQ(ParsedSource(program + std::string(program)).data.items.size(), 1);
  EXPECT_EQ(ParsedSource(std::string(program) + "END PROGRAM P.\n01 B PIC X.").data.items.size(),
            1);
}

TEST(Parser, ReportsATextThatIsNoSourceOnce) {
  EXPECT_EQ(ParsedSource("some text. 01 A PIC X.").reports(),
            "1:1: error: expected a program or a data description, found 'some' [syntax]\n");
  EXPECT_EQ(ParsedSource("99 bottles\n99 bottles").reports(),
            "1:1: error: expected a program or a data description, found '99' [syntax]\n");
}

TEST(Parser, GoesOnAfterAnError) {
  ParsedSource text("01 A PIC X.\nFOO BAR.\n50 B.\n01 C PIC X.");
  EXPECT_EQ(text.reports(),
            "2:1: error: expected a data description entry, found 'FOO' [syntax]\n"
            "3:1: error: invalid level number '50' [level]\n");
  EXPECT_EQ(text.data.workingStorage.last->name, "C");
}

TEST(Parser, ReportsAnUnknownSection) {
  EXPECT_EQ(ParsedSource("DATA DIVISION.\nSTORAGE SECTION.\n").reports(),
            "2:1: error: unknown section 'STORAGE' [syntax]\n");
}

TEST(Parser, SkipsAnUnknownSectionAfterASkippedOne) {
  ParsedSource text(
      "DATA DIVISION.\nSCREEN SECTION.\n01 A LINE 5.\nFORMS SECTION.\n01 B LINE 6.\n"
      "LINKAGE SECTION.\n01 D PIC X.");
  EXPECT_EQ(text.reports(), "4:1: error: unknown section 'FORMS' [syntax]\n");
  EXPECT_EQ(text.data.items.size(), 1);
}

/// A program whose SPECIAL-NAMES paragraph holds `names`, and its data.
std::string programWith(std::string const& names, std::string const& data) {
  return "ENVIRONMENT DIVISION.\nCONFIGURATION SECTION.\nSPECIAL-NAMES.\n" + names +
         ".\nDATA DIVISION.\nWORKING-STORAGE SECTION.\n" + data;
}

TEST(Environment, SetsTheDecimalPoint) {
  ParsedSource text(programWith("DECIMAL-POINT IS COMMA", "01 A PIC 9,9 VALUE 1,5."));
  EXPECT_EQ(text.reports(), "");
  DataItem const& item = *text.data.workingStorage.first;
  EXPECT_EQ(item.values.at(0).from.text, "1,5");
  EXPECT_EQ(item.picture->scale, 1);
}

TEST(Environment, SetsTheCurrencySign) {
  ParsedSource one(programWith("CURRENCY SIGN IS \"#\"", "01 A PIC ##9."));
  EXPECT_EQ(one.reports(), "");
  EXPECT_EQ(one.data.workingStorage.first->picture->size, 3);
  // The first of the symbols stands for the text, the others for a digit each.
  ParsedSource longer(
      programWith("CURRENCY SIGN \"EUR\" WITH PICTURE SYMBOL \"#\"", "01 A PIC ##9."));
  EXPECT_EQ(longer.reports(), "");
  EXPECT_EQ(longer.data.workingStorage.first->picture->size, 5);
  EXPECT_EQ(ParsedSource(programWith("CURRENCY SIGN IS \"9\"", "")).reports(),
            "4:18: error: invalid currency sign '\"9\"' [environment]\n");
}

TEST(Environment, NamesCharacters) {
  // Characters are counted from 1.
  ParsedSource text(programWith("SYMBOLIC CHARACTERS A B ARE 66 256", "01 C PIC X VALUE A."));
  EXPECT_EQ(text.reports(), "");
  EXPECT_EQ(text.data.workingStorage.first->values.at(0).from.text, "X\"41\"");
  EXPECT_EQ(ParsedSource(programWith("SYMBOLIC CHARACTERS A IS 257", "")).reports(),
            "4:26: error: character position '257' is not from 1 to 256 [environment]\n");
}

TEST(FileDescription, AddsAFileWithItsRecords) {
  ParsedSource text(
      "FILE SECTION.\nSD S.\n01 A PIC X.\nFD F RECORD IS VARYING FROM 1 TO 9 DEPENDING ON N OF M "
      "BLOCK 1 RECORD.\n01 B PIC X.\n01 C PIC X.");
  EXPECT_EQ(text.reports(), "");
  ASSERT_EQ(text.data.files.size(), 2);
  EXPECT_EQ(text.data.files[0].name, "S");
  EXPECT_EQ(text.data.files[0].depending.name, "");
  EXPECT_EQ(text.data.files[1].depending.name, "N");
  EXPECT_EQ(text.data.files[1].depending.qualifiers.at(0), "M");
  EXPECT_EQ(text.data.files[1].records.last->name, "C");
}

TEST(FileDescription, NeedsAName) {
  EXPECT_EQ(ParsedSource("FD 5.\n").reports(),
            "1:1: error: expected a file name after FD, found '5' [syntax]\n");
}

TEST(Condition, NeedsAValue) {
  ParsedSource text("01 A PIC 9.\n88 B.\n88 C VALUE 1 WHEN SET TO FALSE .\n88 D VALUE 1 PIC X.");
  EXPECT_EQ(text.reports(),
            "2:4: error: condition 'B' has no VALUE clause [value]\n"
            "3:32: error: expected a literal after FALSE, found '.' [value]\n"
            "4:14: error: expected '.' at the end of the condition entry, found 'PIC' [syntax]\n");
}

TEST(Renames, NamesItsItems) {
  ParsedSource text("01 A.\n05 B PIC X.\n66 C RENAMES B THROUGH B OF A.\n66 D.");
  EXPECT_EQ(text.reports(), "4:4: error: level 66 entry has no RENAMES clause [renames]\n");
  DataItem const& item = *text.data.workingStorage.first->lastChild;
  EXPECT_EQ(item.name, "C");
  EXPECT_EQ(item.related->name, "B");
  EXPECT_EQ(item.through->qualifiers.at(0), "A");
}

TEST(ConstantEntry, IsNoItemOfData) {
  ParsedSource text(
      "78 N VALUE 2.\n01 M CONSTANT AS N * 2.\n01 A PIC X(M).\n78 n VALUE 3.\n78 O 5.");
  EXPECT_EQ(text.reports(),
            "4:4: error: constant 'n' is already defined [constant]\n"
            "5:6: error: expected VALUE in the constant entry, found '5' [constant]\n");
  EXPECT_EQ(text.data.workingStorage.first, text.data.workingStorage.last);
  EXPECT_EQ(text.data.workingStorage.first->picture->size, 4);
}

}  // namespace
}  // namespace fdmorph::compiler
