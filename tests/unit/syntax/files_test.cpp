// File descriptions, and records that a bare copybook doesn't name.

#include <gtest/gtest.h>

#include "support/compiled_source.h"

namespace fdmorph::compiler {
namespace {

/// What is reported of a file with these clauses, in a program with an item N.
std::string reportOf(std::string const& clauses) {
  MemoryTree tree;
  tree.files["a.cpy"] = fixed("PROGRAM-ID. P.\nDATA DIVISION.\nFILE SECTION.\nFD F\n" + clauses +
                              "\n01 R PIC X.\nWORKING-STORAGE SECTION.\n01 N PIC 9.");
  std::string text = reportsOf(tree);
  return text.substr(0, text.find('\n'));
}

TEST(FileDescription, TakesAllClauses) {
  EXPECT_EQ(reportOf("IS EXTERNAL IS GLOBAL BLOCK CONTAINS 1 TO 10 RECORDS\n"
                     "RECORD CONTAINS 10 TO 80 CHARACTERS LABEL RECORDS ARE STANDARD\n"
                     "VALUE OF FILE-ID IS \"x\" & \"y\" OWNER IS N DATA RECORDS ARE R, S\n"
                     "LINAGE IS 60 LINES WITH FOOTING AT 55 LINES AT TOP 3\nLINES AT BOTTOM N\n"
                     "RECORDING MODE IS F CODE-SET IS ASCII REPORTS ARE A B."),
            "");
  EXPECT_EQ(reportOf("RECORD IS VARYING IN SIZE FROM 1 TO 80 CHARACTERS DEPENDING ON N."), "");
  EXPECT_EQ(reportOf("BLOCK 10 RECORD 80 LABEL RECORD OMITTED DATA RECORD R."), "");
  EXPECT_EQ(reportOf("BLOCK CONTAINS 1 RECORD RECORD IS VARYING."), "");
}

TEST(FileDescription, ReportsErrors) {
  EXPECT_EQ(reportOf("FOO BAR RECORD 80."),
            "a.cpy:5:8: error: expected a file description clause, found 'FOO' [syntax]");
  EXPECT_EQ(reportOf("RECORD 80 RECORD 80."),
            "a.cpy:5:18: error: duplicate RECORD clause [duplicate-clause]");
  EXPECT_EQ(reportOf("RECORD CONTAINS 20 TO 10."),
            "a.cpy:5:27: error: range must not end below its start [syntax]");
  EXPECT_EQ(reportOf("RECORD CONTAINS."),
            "a.cpy:5:23: error: expected a record size, found '.' [syntax]");
  EXPECT_EQ(reportOf("BLOCK CONTAINS MANY RECORDS."),
            "a.cpy:5:23: error: expected an unsigned integer, found 'MANY' [syntax]");
  EXPECT_EQ(
      reportOf("RECORD 80"),
      "a.cpy:5:17: error: expected '.' at the end of the file description, found '01' [period]");
  EXPECT_EQ(reportOf("RECORD VARYING DEPENDING ON M."),
            "a.cpy:5:36: error: 'M' is not defined [depending]");
}

TEST(Copybook, WithOneItemBelowLevel01HasThatRecord) {
  CompilationResult result = compile("05 A.\n 10 B PIC X.");
  EXPECT_EQ(attributeOf(result.dictionary, "A", "level"), "5");
  EXPECT_EQ(result.dictionary.find("COPYBOOK"), std::string::npos);
}

TEST(Copybook, WithSeveralItemsBelowLevel01GetsARecordAroundThem) {
  CompilationResult result = compile("05 A PIC X.\n05 B PIC XX.\n01 C PIC X.");
  EXPECT_EQ(attributeOf(result.dictionary, "COPYBOOK", "level"), "1");
  EXPECT_EQ(attributeOf(result.dictionary, "COPYBOOK", "length"), "3");
  // Neither is a table a record.
  result = compile("05 A OCCURS 2.\n 10 B PIC X.");
  EXPECT_EQ(attributeOf(result.dictionary, "COPYBOOK", "length"), "2");
}

}  // namespace
}  // namespace fdmorph::compiler
