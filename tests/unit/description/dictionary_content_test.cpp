// What of the data the dictionary has.

#include "description/dictionary_content.h"

#include <gtest/gtest.h>

#include "support/compiled_source.h"

namespace fdmorph::compiler {
namespace {

CompilationResult compileWith(std::string_view lines, std::string const& text) {
  MemoryTree tree;
  tree.files["a.cpy"] = fixed(lines);
  Directives directives;
  EXPECT_EQ(applyDirectives(text, directives), std::nullopt);
  return compile(tree, directives);
}

/// The codes of all reports, in the order of the source.
std::string codesOf(CompilationResult const& result) {
  std::string codes;
  for (std::size_t at = result.diagnostics.find(" ["); at != std::string::npos;
       at = result.diagnostics.find(" [", at + 1)) {
    std::size_t end = result.diagnostics.find("]\n", at);
    if (end != std::string::npos) codes += result.diagnostics.substr(at + 1, end - at);
  }
  return codes;
}

TEST(DictionaryContent, IsWarnedOfWhereAReaderLosesSomething) {
  CompilationResult result = compile(
      "01 R.\n 05 A PIC X.\n  88 A-1 VALUE \"1\".\n 05 B REDEFINES A PIC 9.\n"
      " 05 C PIC 9(19).\n01 S PIC X.\n");
  EXPECT_EQ(codesOf(result), "[lost-conditions][lost-redefinitions][long-number][lost-records]");
}

// A reader sees the first record only.
TEST(DictionaryContent, IsNotWarnedOfInOtherRecords) {
  CompilationResult result = compile(
      "01 R PIC X.\n01 S.\n 05 A PIC X.\n  88 A-1 VALUE \"1\".\n 05 B REDEFINES A PIC 9.\n"
      " 05 C PIC 9(19).\n");
  EXPECT_EQ(codesOf(result), "[lost-records]");
}

TEST(DictionaryContent, IsNotWarnedOfWithoutADictionary) {
  MemoryTree tree;
  tree.files["a.cpy"] = fixed("01 R PIC X.\n 88 C VALUE \"1\".\n01 S PIC X.\n");
  EXPECT_EQ(compileSource("a.cpy", {}, tree).diagnostics, "");
}

TEST(DictionaryContent, OfARedefinitionIsWarnedOfOnlyWhereItIsChosen) {
  std::string lines = "01 R.\n 05 A PIC X(20).\n 05 B REDEFINES A PIC 9(20).\n  88 B-1 VALUE 1.\n";
  EXPECT_EQ(codesOf(compileWith(lines, "REDEFINES(A)")), "[view-left-out]");
  EXPECT_EQ(codesOf(compileWith(lines, "REDEFINES(B)")),
            "[view-left-out][long-number][lost-conditions]");
}

TEST(DictionaryContent, HasOneOfSeveralNamedViews) {
  CompilationResult result =
      compileWith("01 R.\n 05 A PIC X.\n 05 B REDEFINES A PIC X.\n 05 C REDEFINES A PIC X.\n",
                  "REDEFINES(C B)");
  EXPECT_EQ(attributeOf(result.dictionary, "B", "redefines"), std::nullopt);
  EXPECT_EQ(result.dictionary.find("name=\"C\""), std::string::npos);
}

TEST(DictionaryContent, ChoosesViewsInAllItemsOfAName) {
  CompilationResult result = compileWith(
      "01 R.\n 05 G.\n  10 A PIC X.\n  10 B REDEFINES A PIC X.\n"
      " 05 H.\n  10 A PIC X.\n  10 B REDEFINES A PIC X.\n",
      "REDEFINES(B)");
  EXPECT_EQ(result.dictionary.find("name=\"A\""), std::string::npos);
}

TEST(DictionaryContent, ChoosesTheFirstRecordOfAName) {
  CompilationResult result = compileWith("01 R PIC X.\n01 R PIC X(2).\n", "RECORD(R)");
  EXPECT_EQ(attributeOf(result.dictionary, "R", "length"), "1");
}

// A record that redefines stands alone where it is chosen.
TEST(DictionaryContent, HasAChosenRecordWithoutTheOneItRedefines) {
  CompilationResult result = compileWith("01 R PIC X.\n01 S REDEFINES R PIC 9.\n", "RECORD(S)");
  EXPECT_EQ(attributeOf(result.dictionary, "S", "redefines"), std::nullopt);
  EXPECT_EQ(attributeOf(result.dictionary, "S", "length"), "1");
}

TEST(Directive, HasOneOfItsWords) {
  Directives directives;
  EXPECT_EQ(applyDirectives("CONDITIONS(off)", directives), std::nullopt);
  EXPECT_FALSE(directives.choice.hasConditions);
  EXPECT_EQ(applyDirectives("CONDITIONS(NO)", directives), "CONDITIONS(NO)");
  EXPECT_EQ(applyDirectives("SECTION(SCREEN)", directives), "SECTION(SCREEN)");
  EXPECT_EQ(applyDirectives("DIALECT(ACU)", directives), "DIALECT(ACU)");
  EXPECT_EQ(applyDirectives("RECORD()", directives), "RECORD()");
  EXPECT_EQ(applyDirectives("LIST()", directives), "LIST()");
  EXPECT_EQ(applyDirectives("COPYMISSING(IGNORE)", directives), "COPYMISSING(IGNORE)");
}

TEST(Dialect, OfIbmHasItsSizes) {
  auto lengthWith = [](std::string const& clauses) {
    CompilationResult result = compileWith("01 A " + clauses + ".\n", "DIALECT(IBM)");
    return attributeOf(result.dictionary, "A", "length").value_or(result.diagnostics);
  };
  EXPECT_EQ(lengthWith("PIC 9 COMP"), "2");
  EXPECT_EQ(lengthWith("PIC 9(2) BINARY"), "2");
  EXPECT_EQ(lengthWith("PIC 9(5) COMP-5"), "4");
  EXPECT_EQ(lengthWith("PIC 9(10) COMP-4"), "8");
  EXPECT_EQ(lengthWith("PIC 9(2) COMP-X"), "1");
  EXPECT_EQ(lengthWith("PIC X COMP-5"), "1");
  EXPECT_EQ(lengthWith("PROCEDURE-POINTER"), "4");
  EXPECT_EQ(lengthWith("BINARY-CHAR"), "1");
}

}  // namespace
}  // namespace fdmorph::compiler
