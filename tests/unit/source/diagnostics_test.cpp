// The text of diagnostics.

#include "source/diagnostics.h"
#include "source/diagnostic_output.h"

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
  EXPECT_EQ(printDiagnostics(diagnostics),
            "m.cpy:2:2: error: unexpected 'w' [syntax]\n"
            "  two\n"
            "   ^\n"
            "a.cpy:1:6: note: copied from here\n");
}

TEST_F(DiagnosticsTest, NameTheProgramWithoutAPlace) {
  diagnostics.report(Code::directive, {}, "unknown directive 'X'");
  EXPECT_EQ(printDiagnostics(diagnostics), "zbc: warning: unknown directive 'X' [directive]\n");
  EXPECT_FALSE(diagnostics.hasErrors());
}

TEST_F(DiagnosticsTest, PrintBytesThatAreNotUtf8AsQuestionMarks) {
  std::uint32_t text = open("\xE9.cpy", "a\xE9\xFF b \xC3\xA9\n");
  diagnostics.report(Code::syntax, {text, 4}, "found " + compiler::quoted("\xE9"));
  EXPECT_EQ(printDiagnostics(diagnostics),
            "?.cpy:1:5: error: found '?' [syntax]\n"
            "  a?? b \xC3\xA9\n"
            "      ^\n");
}

// Escape, delete, and the C1 characters CSI and NEL.
TEST_F(DiagnosticsTest, PrintControlCharactersAsQuestionMarks) {
  std::uint32_t text = open("\x1B.cpy",
                            "a\x1B[2J\x7F \xC2\x9B"
                            "1m\xC2\x85\r\v b\n");
  diagnostics.report(Code::syntax, {text, 0}, "found " + compiler::quoted("\x1B]0;\a\xC2\x9B"));
  EXPECT_EQ(printDiagnostics(diagnostics),
            "?.cpy:1:1: error: found '?]0;?"
            "?' [syntax]\n"
            "  a?[2J? ?1m??? b\n"
            "  ^\n");
}

TEST_F(DiagnosticsTest, PrintATabAsOneBlank) {
  std::uint32_t text = open("a.cpy", "a\tb\n");
  diagnostics.report(Code::syntax, {text, 2}, "found 'b'");
  EXPECT_EQ(printDiagnostics(diagnostics),
            "a.cpy:1:3: error: found 'b' [syntax]\n"
            "  a b\n"
            "    ^\n");
}

TEST_F(DiagnosticsTest, CountReportsByCode) {
  std::uint32_t text = open("a.cpy", "ab");
  diagnostics.report(Code::syntax, {text, 0}, "x");
  diagnostics.report(Code::syntax, {text, 1}, "x");
  diagnostics.report(Code::tag, {text, 0}, "x");
  EXPECT_EQ(diagnostics.countOf(Code::syntax), 2U);
  EXPECT_EQ(diagnostics.lastOf(Code::syntax), (Place{text, 1}));
  EXPECT_EQ(diagnostics.countOf(Severity::error), 2U);
}

// U+0080 and U+009F are the first and the last of the C1 characters.
TEST(Printable, KeepsTextAndReplacesControlCharactersAtTheirBounds) {
  using namespace std::string_view_literals;
  EXPECT_EQ(printable("\0\x1F ~\x7F\xC2\x80\xC2\x9F\xC2\xA0\xC4\x80"sv), "?? ~???\xC2\xA0\xC4\x80");
  EXPECT_EQ(printable("a\nb"), "a?b");
  EXPECT_EQ(printable("\xC2"), "?");
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
