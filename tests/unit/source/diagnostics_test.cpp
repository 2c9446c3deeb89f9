// The text of diagnostics.

#include "source/diagnostics.h"

#include <gtest/gtest.h>

#include "support/memory_tree.h"

namespace fdmorph::compiler {
namespace {

class DiagnosticsTest : public testing::Test {
 protected:
  /// The number of the text of a file with this content.
  std::uint32_t open(std::string const& path, std::string const& content, Place copiedFrom = {}) {
    tree.files[path] = content;
    return sources.open(sources.file(path), copiedFrom);
  }

  MemoryTree tree;
  Sources sources{tree};
  Diagnostics diagnostics{sources};
};

TEST_F(DiagnosticsTest, PrintThePlaceTheLineAndTheStatementsThatIncludeIt) {
  std::uint32_t main = open("a.cpy", "COPY M.\n");
  std::uint32_t member = open("m.cpy", "one\ntwo\n", {main, 5});
  diagnostics.report(Code::syntax, {member, 5}, "unexpected 'w'");
  EXPECT_EQ(diagnostics.print(),
            "m.cpy:2:2: error: unexpected 'w' [syntax]\n"
            "  two\n"
            "   ^\n"
            "a.cpy:1:6: note: copied from here\n");
}

TEST_F(DiagnosticsTest, NameTheProgramWithoutAPlace) {
  diagnostics.report(Code::directive, {}, "unknown directive 'X'");
  EXPECT_EQ(diagnostics.print(), "zbc: warning: unknown directive 'X' [directive]\n");
  EXPECT_FALSE(diagnostics.hasErrors());
}

TEST_F(DiagnosticsTest, PrintBytesThatAreNotUtf8AsQuestionMarks) {
  std::uint32_t text = open("\xE9.cpy", "a\xE9\xFF b\x01 \xC3\xA9\n");
  diagnostics.report(Code::syntax, {text, 4}, "found " + compiler::quoted("\xE9"));
  EXPECT_EQ(diagnostics.print(),
            "?.cpy:1:5: error: found '?' [syntax]\n"
            "  a?? b  \xC3\xA9\n"
            "      ^\n");
}

TEST_F(DiagnosticsTest, CountReportsByCode) {
  std::uint32_t text = open("a.cpy", "ab");
  diagnostics.report(Code::syntax, {text, 0}, "x");
  diagnostics.report(Code::syntax, {text, 1}, "x");
  diagnostics.report(Code::tag, {text, 0}, "x");
  EXPECT_EQ(diagnostics.countOf(Code::syntax), 2U);
  EXPECT_EQ(diagnostics.lastOf(Code::syntax), (Place{text, 1}));
  EXPECT_EQ(diagnostics.errorCount(), 2U);
}

TEST(Quoted, CutsBetweenCharacters) {
  std::string e = "\xC3\xA9";
  std::string sixty;
  for (int i = 0; i < 60; ++i) sixty += e;
  EXPECT_EQ(compiler::quoted(sixty), "'" + sixty + "'");
  EXPECT_EQ(compiler::quoted(sixty + e), "'" + sixty + "...'");
}

}  // namespace
}  // namespace fdmorph::compiler
