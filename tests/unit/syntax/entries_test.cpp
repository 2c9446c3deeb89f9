// Data description entries.

#include <gtest/gtest.h>

#include "support/compiled_source.h"

namespace fdmorph::compiler {
namespace {

std::optional<std::string> attribute(std::string_view lines, std::string const& name,
                                     std::string const& which) {
  return attributeOf(compile(lines).dictionary, name, which);
}

TEST(Entries, MayHaveKeywordsForNames) {
  char const* lines =
      "01 VALUE PIC X.\n01 INDEX PIC 9.\n01 ADDRESS PIC X.\n01 DATE PIC X.\n"
      "01 SIGN PIC X.\n01 OCCURS PIC X.";
  for (char const* name : {"VALUE", "INDEX", "ADDRESS", "DATE", "SIGN", "OCCURS"}) {
    EXPECT_EQ(attribute(lines, name, "length"), "1") << name;
  }
}

TEST(Entries, TakeClausesInAnyOrder) {
  char const* lines = "01 A VALUE 5 OCCURS 2 TIMES COMP-3 PIC S9(3).";
  EXPECT_EQ(attribute(lines, "A", "usage"), "comp-3");
  EXPECT_EQ(attribute(lines, "A", "maxOccurs"), "2");
  EXPECT_EQ(attribute(lines, "A", "value"), "5");
}

TEST(Entries, NameTheUsagesOfTheDictionary) {
  for (char const* usage : {"COMP", "BINARY", "COMPUTATIONAL-4"}) {
    EXPECT_EQ(attribute("01 A PIC 9 " + std::string(usage) + ".", "A", "usage"), "comp-4");
  }
  EXPECT_EQ(attribute("01 A PIC 9 PACKED-DECIMAL.", "A", "usage"), "comp-3");
  EXPECT_EQ(attribute("01 A USAGE IS POINTER.", "A", "usage"), "pointer");
  EXPECT_EQ(attribute("01 A PIC 9.", "A", "usage"), "display");
}

TEST(Entries, ResolveConstants) {
  char const* lines = "78 K VALUE 2 * 3 + 1.\n01 L CONSTANT AS 3.\n01 A PIC X(K) OCCURS L.";
  EXPECT_EQ(attribute(lines, "A", "picture"), "X(7)");
  EXPECT_EQ(attribute(lines, "A", "maxOccurs"), "3");
}

TEST(Entries, NameThePositionOfTheSign) {
  EXPECT_EQ(attribute("01 A PIC S9 SIGN LEADING.", "A", "sign"), "li");
  EXPECT_EQ(attribute("01 A PIC S9 LEADING SEPARATE CHARACTER.", "A", "sign"), "ls");
  EXPECT_EQ(attribute("01 A PIC S9 SIGN IS TRAILING SEPARATE.", "A", "sign"), "ts");
  EXPECT_EQ(attribute("01 A PIC S9.", "A", "sign"), std::nullopt);
}

TEST(Entries, ReadNumbersWithADecimalComma) {
  char const* lines =
      "ENVIRONMENT DIVISION.\nCONFIGURATION SECTION.\nSPECIAL-NAMES.\n"
      "    DECIMAL-POINT IS COMMA.\nDATA DIVISION.\nWORKING-STORAGE SECTION.\n"
      "01 A PIC 9,9 VALUE 1,5.\n01 B PIC 9V9 VALUE 1,5, .";
  EXPECT_EQ(attribute(lines, "A", "picture"), "9,9");
  EXPECT_EQ(attribute(lines, "B", "value"), "1,5");
}

TEST(Entries, OfRenamesSpanTheirItems) {
  char const* lines = "01 A.\n 05 B PIC XX.\n 05 C PIC 9(3).\n 05 D PIC X.\n66 R RENAMES B THRU C.";
  EXPECT_EQ(attribute(lines, "R", "length"), "5");
  EXPECT_EQ(attribute(lines, "R", "renames"), "true");
}

TEST(Entries, MayBe49LevelsDeep) {
  std::string lines;
  for (int level = 1; level <= 49; ++level) {
    lines += (level < 10 ? "0" : "") + std::to_string(level) + " G" + std::to_string(level) +
             (level == 49 ? " PIC X(3).\n" : ".\n");
  }
  EXPECT_EQ(attribute(lines, "G1", "length"), "3");
}

TEST(Entries, OfABareCopybookMayHaveTagsThatNothingReplaces) {
  std::string lines = "01 :T:-A.\n 05 :T:B PIC X.\n 05 C-:U: REDEFINES :T:B PIC X.";
  CompilationResult result = compile(lines);
  EXPECT_EQ(result.status, kStatusOk);
  EXPECT_EQ(attributeOf(result.dictionary, "T-A", "length"), "1");
  EXPECT_EQ(attributeOf(result.dictionary, "TB", "length"), "1");
  EXPECT_EQ(attributeOf(result.dictionary, "C-U", "redefines"), "true");
  // Each tag is warned of once.
  EXPECT_EQ(
      reportsOf(lines),
      "a.cpy:1:11: warning: tag ':T:' is not replaced; its letters become part of the name [tag]\n"
      "         01 :T:-A.\n"
      "            ^\n"
      "a.cpy:3:12: warning: tag ':U:' is not replaced; its letters become part of the name [tag]\n"
      "          05 C-:U: REDEFINES :T:B PIC X.\n"
      "             ^\n");
}

TEST(Entries, OnDebuggingLinesCountInDebuggingMode) {
  for (bool isDebugging : {false, true}) {
    MemoryTree tree;
    tree.files["a.cpy"] =
        "       PROGRAM-ID. P.\n       ENVIRONMENT DIVISION.\n       SOURCE-COMPUTER. X" +
        std::string(isDebugging ? " WITH DEBUGGING MODE" : "") +
        ".\n       DATA DIVISION.\n       WORKING-STORAGE SECTION.\n       01 A PIC X.\n"
        "      D01 B PIC X.\n       01 C PIC X.\n";
    std::string dictionary = compile(tree).dictionary;
    EXPECT_EQ(attributeOf(dictionary, "B", "length").has_value(), isDebugging);
    EXPECT_TRUE(attributeOf(dictionary, "C", "length"));
  }
}

TEST(Entries, AreFoundAfterParagraphsOfAnyWords) {
  MemoryTree tree;
  tree.files["a.cpy"] = fixed(
      "PROGRAM-ID. P.\nREMARKS. THE PROCEDURE DIVISION.\n    AND A DATA DIVISION WORD.\n"
      "DATA DIVISION.\nWORKING-STORAGE SECTION.\n01 A PIC X.");
  EXPECT_TRUE(attributeOf(compile(tree).dictionary, "A", "length"));
}

TEST(Entries, WithoutANameMayBeginWithTheirSign) {
  std::string dictionary = compile("01 G.\n 05 TRAILING PIC S9(3).").dictionary;
  EXPECT_EQ(attributeOf(dictionary, "FILLER", "sign"), "ti");
}

TEST(Entries, MayRedefineATableWithAWarning) {
  std::string lines = "01 A.\n 05 B PIC X OCCURS 2.\n 05 D REDEFINES B PIC XX.";
  EXPECT_EQ(compile(lines).status, kStatusOk);
  EXPECT_EQ(reportsOf(lines),
            "a.cpy:3:24: warning: redefined item 'B' is a table [redefines-table]\n"
            "          05 D REDEFINES B PIC XX.\n"
            "                         ^\n");
}

TEST(Entries, MayDependOnAnItemOfTheTableAroundThem) {
  CompilationResult result = compile(
      "01 R.\n 05 G OCCURS 3.\n  10 K PIC 9.\n"
      "  10 T PIC X OCCURS 1 TO 5 DEPENDING ON K.");
  EXPECT_EQ(attributeOf(result.dictionary, "T", "odo"), "R.G.K") << result.diagnostics;
}

TEST(Entries, OfTheLinkageSectionMayHaveAnyLength) {
  MemoryTree tree;
  tree.files["a.cpy"] = fixed(
      "PROGRAM-ID. P.\nDATA DIVISION.\nWORKING-STORAGE SECTION.\n01 W PIC X BASED.\n"
      "LINKAGE SECTION.\n01 A PIC X ANY LENGTH.\n01 B PIC 9 ANY NUMERIC.\n01 N PIC 9.\n"
      "01 C.\n 05 D PIC X OCCURS 1 TO UNBOUNDED TIMES DEPENDING ON N.");
  CompilationResult result = compile(tree);
  EXPECT_EQ(result.diagnostics, "");
  EXPECT_TRUE(attributeOf(result.dictionary, "W", "length"));
}

TEST(Entries, MayEndInTwoSeparators) {
  EXPECT_EQ(lengthOf("01 A PIC X(3).;", "A"), "3");
}

/// The size of the item A of a program in free format.
std::string lengthInProgram(std::string const& source) {
  MemoryTree tree;
  tree.files["a.cpy"] = ">>SOURCE FREE\n" + source;
  CompilationResult result = compile(tree);
  return attributeOf(result.dictionary, "A", "length").value_or(result.diagnostics);
}

TEST(Program, MayStandOnOneLine) {
  EXPECT_EQ(lengthInProgram("IDENTIFICATION DIVISION. PROGRAM-ID. T IS INITIAL. DATA DIVISION. "
                            "WORKING-STORAGE SECTION. 01 A PIC X. PROCEDURE DIVISION. STOP RUN."),
            "1");
}

TEST(Program, HasNoDataAfterAMisspeltHeader) {
  for (char const* header : {"DATA DIVISON.", "ENVIRONMENT DIVISION.\nDATA DIVISON."}) {
    std::string result =
        lengthInProgram("PROGRAM-ID. T.\n" + std::string(header) + "\n01 A PIC X.\n");
    EXPECT_NE(result.find("error: "), std::string::npos) << result;
  }
}

TEST(Program, MayNameACopyStatementInAComment) {
  EXPECT_EQ(lengthInProgram("PROGRAM-ID. T.\nINSTALLATION. COPY SHOP.\n"
                            "REMARKS. THIS MAKES A COPY OF THE FILE.\n"
                            "DATA DIVISION.\nWORKING-STORAGE SECTION.\n01 A PIC X."),
            "1");
}

TEST(Entries, MayBeCalledLikeACommentParagraph) {
  MemoryTree tree;
  tree.files["a.cpy"] = fixed("01 A.\n 05\nAUTHOR PIC X.\n 05 B COPY M.");
  tree.files["M.cpy"] = fixed("PIC X(4).");
  EXPECT_EQ(attributeOf(compile(tree).dictionary, "A", "length"), "5");
}

TEST(Entries, MayHaveSeparatorsAfterAnyWord) {
  EXPECT_EQ(lengthOf("01, A, PIC, X(2), VALUE; 'a'.", "A"), "2");
  EXPECT_EQ(lengthOf("01 A PIC IS, X(2).", "A"), "2");
}

TEST(Entries, DoNotBeginAtANumberOfAClause) {
  EXPECT_EQ(lengthOf("01 A PIC 9.\n 88 B VALUES 1\n 2 WHEN SET TO FALSE 0.", "A"), "1");
  MemoryTree tree;
  tree.files["a.cpy"] =
      fixed("FD F LINAGE IS\n10 LINES WITH FOOTING AT\n9 LINES AT TOP\n3.\n01 A PIC X.");
  EXPECT_EQ(compile(tree).diagnostics, "");
}

TEST(Program, HasItsDataAfterACommentOnTheSameLine) {
  EXPECT_EQ(lengthInProgram("ID DIVISION. PROGRAM-ID. T. AUTHOR. ME. DATA DIVISION. "
                            "WORKING-STORAGE SECTION. 01 A PIC X."),
            "1");
  EXPECT_EQ(lengthInProgram("PROGRAM-ID. T.\nAUTHOR ME.\nOPTIONS. ROUND UP.\n"
                            "           FILE SECTION HOLDS ALL.\nDATA DIVISION.\n"
                            "WORKING-STORAGE SECTION.\n01 A PIC X."),
            "1");
}

TEST(Program, ReportsDataAfterACommentOrInTheEnvironment) {
  for (char const* lines :
       {"AUTHOR. ME.\nWORKING-STORAGE SECTON.\n01 A PIC X.\nPROCEDURE DIVISION.",
        "CONFIGURATION SECTION.\nWORKING-STORAGE SECTON.\n1 A PIC X."}) {
    EXPECT_NE(lengthInProgram("PROGRAM-ID. T.\n" + std::string(lines))
                  .find("error: data item outside the data division [syntax]"),
              std::string::npos)
        << lines;
  }
}

TEST(Program, MayHaveNumbersInItsEnvironment) {
  EXPECT_EQ(lengthInProgram("PROGRAM-ID. T.\nENVIRONMENT DIVISION.\nCONFIGURATION SECTION.\n"
                            "OBJECT-COMPUTER. X MEMORY SIZE\n77 WORDS.\nSPECIAL-NAMES.\n"
                            "ALPHABET B IS 1 THRU 65,\n77 ALSO 78.\nDATA DIVISION.\n"
                            "WORKING-STORAGE SECTION.\n01 A PIC X."),
            "1");
}

TEST(Program, IgnoresStatementsInAComment) {
  EXPECT_EQ(lengthInProgram("ID DIVISION. PROGRAM-ID. T.\n"
                            "REMARKS. USES COPY M, REPLACE ==X== BY ==Y==, EXEC SQL, AND\n"
                            "  WITH DEBUGGING MODE.\n"
                            "DATA DIVISION.\nWORKING-STORAGE SECTION.\n01 A PIC X."),
            "1");
}

TEST(Entries, MayEndTheirPictureInAnySeparators) {
  EXPECT_EQ(lengthOf("01 A PIC 9(3);.", "A"), "3");
}

TEST(Entries, HaveOneValueButForConditions) {
  EXPECT_EQ(firstReport("01 A PIC 9 VALUE 1 THRU 2."),
            "a.cpy:1:27: error: expected a data description clause, found 'THRU' [syntax]");
}

TEST(Entries, OfTheLinkageSectionMayHaveAnyLengthWithoutAPicture) {
  MemoryTree tree;
  tree.files["a.cpy"] = fixed(
      "PROGRAM-ID. P.\nDATA DIVISION.\nWORKING-STORAGE SECTION.\n01 C PIC X.\n"
      "LINKAGE SECTION.\n01 A ANY LENGTH.\n01 B PIC N ANY LENGTH.");
  EXPECT_EQ(compile(tree).diagnostics, "");
  // A copybook may be one for that section.
  EXPECT_EQ(lengthOf("01 A ANY LENGTH.", "A"), "1");
  EXPECT_EQ(lengthOf("01 A PIC N ANY LENGTH.", "A"), "2");
}

TEST(Entries, MayHaveAPictureThatEndsInAComma) {
  EXPECT_EQ(lengthOf("01 A PIC 9,9,.", "A"), "4");
  EXPECT_EQ(lengthOf("01 A PIC 9,9, .", "A"), "3");
}

/// A line of 72 columns with `line` from column 8 on, and `rest` after it.
std::string lineOf72(std::string line, std::string const& rest) {
  line.insert(0, 7, ' ');
  line.resize(72, ' ');
  return line + rest + "\n";
}

TEST(Entries, LackAPeriodThatStandsPastColumn72) {
  char const* report = "expected '.' at the end of the data description entry, found '05'";
  auto reportOf = [](std::string const& line) {
    MemoryTree tree;
    tree.files["a.cpy"] = "       01 R.\n" + line + "       05 B PIC X.\n";
    std::string text = compile(tree).diagnostics;
    return text.substr(0, text.find('\n'));
  };
  EXPECT_EQ(
      reportOf(lineOf72("05 A PIC X", ".")),
      "a.cpy:2:18: error: " + std::string(report) + "; the line goes on past column 72 [period]");
  EXPECT_EQ(reportOf(lineOf72("05 A PIC X", "  ")),
            "a.cpy:2:18: error: " + std::string(report) + " [period]");
  // In free format the line ends where it does.
  EXPECT_EQ(reportOf(">>SOURCE FREE\n" + lineOf72("05 A PIC X", "VALUE 'a'")),
            "a.cpy:3:82: error: " + std::string(report) + " [period]");
}

TEST(Entries, DoNotLackThePictureOfACopyThatFailed) {
  MemoryTree tree;
  tree.files["a.cpy"] = fixed("01 A.\n COPY a.\n01 B COPY a.\n01 C.\n COPY SQLCA.\n01 D.\n COPY .");
  std::string diagnostics = compile(tree).diagnostics;
  EXPECT_EQ(diagnostics.find("[picture-missing]"), std::string::npos) << diagnostics;
  EXPECT_EQ(diagnostics.find("[period]"), std::string::npos) << diagnostics;
  EXPECT_NE(diagnostics.find("[copy-circle]"), std::string::npos) << diagnostics;
}

}  // namespace
}  // namespace fdmorph::compiler
