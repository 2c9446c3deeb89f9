// From lines to running text.

#include <gtest/gtest.h>

#include "source/source_reader.h"

namespace fdmorph::compiler {
namespace {

class SourceReader : public testing::Test {
 protected:
  std::string read(std::string_view content, Format format = Format::fixed, unsigned tabs = 8) {
    result = readSource(content, {format, tabs});
    return result.text;
  }

  SourceText result;
};

TEST_F(SourceReader, TakesColumns8To72OfAFixedLine) {
  std::string line = "123456 " + std::string(65, 'x') + "LABEL678";
  EXPECT_EQ(read(line + "\n"), "\n" + std::string(65, 'x') + "\n");
}

TEST_F(SourceReader, TakesTheWholeLineInVariableFormat) {
  std::string line = "123456 " + std::string(80, 'x');
  EXPECT_EQ(read(line, Format::variable), "\n" + std::string(80, 'x') + "\n");
}

TEST_F(SourceReader, DropsCommentsAndLinesOfOtherCompilers) {
  EXPECT_EQ(read("      * no\n      / no\n      c no\n       yes *> no\n"), "\nyes\n");
  EXPECT_EQ(result.excludedLine, 28U);  // the byte of the c
  EXPECT_TRUE(result.faults.empty());
}

TEST_F(SourceReader, MarksLinesForDebugging) {
  EXPECT_EQ(read("       a\n      Db\n      d c\n"), "\na\nb\n c\n");
  EXPECT_EQ(result.debugLines, (std::vector<std::uint32_t>{3, 5}));
}

TEST_F(SourceReader, DropsLinesThatChooseWhatIsListed) {
  EXPECT_EQ(read("       *CBL NOSOURCE\n       *control list.\n       *A\n"), "\n*A\n");
}

TEST_F(SourceReader, KeepsACommentMarkInALiteral) {
  EXPECT_EQ(read("       VALUE \"a *> b\"\n"), "\nVALUE \"a *> b\"\n");
}

TEST_F(SourceReader, ReportsAnUnknownIndicator) {
  EXPECT_EQ(read("      7 no\n"), "\n");
  EXPECT_EQ(result.faults.size(), 1U);
}

TEST_F(SourceReader, JoinsAContinuedWord) {
  EXPECT_EQ(read("       LONG-\n      -    NAME PIC X.\n"), "\nLONG-NAME PIC X.\n");
}

TEST_F(SourceReader, FillsAContinuedLiteralUpToColumn72) {
  std::string first = "       VALUE \"ab";
  std::string blanks(72 - first.size(), ' ');
  EXPECT_EQ(read(first + "\n      -    \"cd\".\n"), "\nVALUE \"ab" + blanks + "cd\".\n");
}

TEST_F(SourceReader, JoinsADoubledQuoteThatTheMarginCuts) {
  std::string first = "       \"" + std::string(63, 'x') + "\"";
  ASSERT_EQ(first.size(), 72U);
  EXPECT_EQ(read(first + "\n      -    \"\"y\"\n"), "\n\"" + std::string(63, 'x') + "\"\"y\"\n");
}

TEST_F(SourceReader, KeepsAClosedLiteralApartFromAContinuation) {
  EXPECT_EQ(read("       VALUE \"a\"\n      -    \"b\"\n"), "\nVALUE \"a\" \"b\"\n");
}

TEST_F(SourceReader, ExpandsTabs) {
  // The tab of the first column ends at column 9, the second one at column 17.
  EXPECT_EQ(read("\tA\tB\n"), "\n A       B\n");
  // The A ends at a stop; the tab goes on to the next one.
  EXPECT_EQ(read("       A\tB\n", Format::fixed, 4), "\nA    B\n");
}

TEST_F(SourceReader, ChangesTheFormatByDirective) {
  EXPECT_EQ(read("       a\n       >>SOURCE FORMAT IS FREE\nb *> c\n>>SOURCE FIXED\n       d\n"),
            "\na\nb\nd\n");
  EXPECT_EQ(read("      $SET SOURCEFORMAT\"FREE\"\nb\n"), "\nb\n");
}

TEST_F(SourceReader, KnowsTheFormatOfEachPlace) {
  std::string content = "       a\n      $SET SOURCEFORMAT\"FREE\"\nb\n";
  read(content);
  EXPECT_EQ(result.formatAt(0), Format::fixed);
  EXPECT_EQ(result.formatAt(7), Format::fixed);
  EXPECT_EQ(result.formatAt(static_cast<std::uint32_t>(content.find("b\n"))), Format::free);
}

TEST_F(SourceReader, LeavesConditionalDirectivesInTheText) {
  EXPECT_EQ(read("       a\n       >>IF B DEFINED *> c\n       >>END-IF\n"),
            "\na\n>>IF B DEFINED\n>>END-IF\n");
  EXPECT_EQ(result.directives, (std::vector<std::uint32_t>{3, 18}));
}

TEST_F(SourceReader, FindsDirectivesBehindASequenceNumber) {
  EXPECT_EQ(read("000100$SET SOURCEFORMAT\"FREE\"\nb\n"), "\nb\n");
  EXPECT_EQ(read("000100 >>SOURCE FREE\nb\n"), "\nb\n");
  EXPECT_EQ(read("000100 >>IF B DEFINED\n"), "\n>>IF B DEFINED\n");
  EXPECT_TRUE(result.faults.empty());
}

TEST_F(SourceReader, TakesALineThatBeginsWithACurrencySignForText) {
  EXPECT_EQ(read("           $$,$$9\n"), "\n    $$,$$9\n");
  EXPECT_EQ(read("           $ZZ9\n"), "\n    $ZZ9\n");
}

TEST_F(SourceReader, GivesTabsBehindAFarColumnNoWidth) {
  // 65,536 tabs of 255 columns each would be 16 MB.
  std::string tabs(70000, '\t');
  EXPECT_LT(read(tabs + "A\n", Format::variable, 255).size(), 140000U);
}

TEST_F(SourceReader, KnowsTheByteOfEachCharacter) {
  std::string content = "      * comment\r\n       AB\r\n      -   CD\r\n";
  ASSERT_EQ(read(content), "\nABCD\n");
  auto offsetOf = [this](std::size_t at) {
    SourceText::Piece best{};
    for (SourceText::Piece piece : result.pieces) {
      if (piece.at <= at) best = piece;
    }
    return best.offset + (at - best.at);
  };
  EXPECT_EQ(offsetOf(1), content.find("AB"));
  EXPECT_EQ(offsetOf(3), content.find("CD"));
  EXPECT_EQ(offsetOf(4), content.find("CD") + 1);
}

}  // namespace
}  // namespace fdmorph::compiler
