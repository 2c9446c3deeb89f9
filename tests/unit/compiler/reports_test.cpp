// Whole reports, one error each.

#include <gtest/gtest.h>

#include "support/compiled_source.h"
#include "support/parameter_name.h"

namespace fdmorph::compiler {
namespace {

class Report : public testing::TestWithParam<WrongSource> {};

TEST_P(Report, NamesThePlaceTheTextAndTheCode) {
  EXPECT_EQ(firstReport(GetParam().source), GetParam().report);
  CompilationResult result = compile(GetParam().source);
  std::size_t second = result.diagnostics.find("error: ");
  EXPECT_EQ(result.diagnostics.find("error: ", second + 1), std::string::npos)
      << result.diagnostics;
}

INSTANTIATE_TEST_SUITE_P(
    All, Report,
    testing::Values(
        WrongSource{"MOVE A TO B.",
                    "a.cpy:1:8: error: expected a program or a data description, found 'MOVE' "
                    "[syntax]"},
        WrongSource{
            "01 A PIC X\n01 B PIC X.",
            "a.cpy:1:18: error: expected '.' at the end of the data description entry, found '01' "
            "[period]"},
        WrongSource{"01 A PIC X.\n50 B PIC X.",
                    "a.cpy:2:8: error: invalid level number '50' [level]"},
        WrongSource{"01 A.\n 10 B PIC X.\n 05 C PIC X.",
                    "a.cpy:3:12: error: level 5 does not match any open level [level-order]"},
        WrongSource{"01 A.", "a.cpy:1:11: error: item 'A' has no PICTURE clause [picture-missing]"},
        WrongSource{"01 A PIC X.\n 05 B PIC X.",
                    "a.cpy:1:17: error: item 'A' is a group and has a PICTURE clause [picture]"},
        WrongSource{"01 A PIC X PIC X.",
                    "a.cpy:1:19: error: duplicate PIC clause [duplicate-clause]"},
        WrongSource{"01 A PIC 9Z.", "a.cpy:1:17: error: zero suppression after '9' [picture]"},
        WrongSource{"01 A PIC X COMP.",
                    "a.cpy:1:17: error: picture is not allowed with usage comp-4 [usage]"},
        WrongSource{"01 A PIC X USAGE FOO.", "a.cpy:1:25: error: unknown usage 'FOO' [usage]"},
        WrongSource{
            "01 A PIC 9 JUST.",
            "a.cpy:1:11: error: JUSTIFIED requires an alphanumeric or national picture [clause]"},
        WrongSource{"01 A.\n 05 B PIC X.\n 05 C PIC X.\n 05 D REDEFINES B PIC X.",
                    "a.cpy:4:24: error: cannot redefine 'B', which is not the preceding item of "
                    "the same group [redefines]"},
        WrongSource{"01 A PIC X OCCURS 1 TO 3 DEPENDING ON N.",
                    "a.cpy:1:46: error: 'N' is not defined [depending]"},
        WrongSource{"01 A PIC X OCCURS 0.",
                    "a.cpy:1:19: error: a table must occur at least once [occurs]"},
        WrongSource{"01 A PIC X OCCURS 3 TO 2 DEPENDING ON B.\n01 B PIC 9.",
                    "a.cpy:1:19: error: OCCURS range must end above its start [occurs]"},
        WrongSource{"01 A PIC X VALUE .",
                    "a.cpy:1:25: error: expected a literal after VALUE, found '.' [value]"},
        WrongSource{"01 A PIC X VALUE \"x.",
                    "a.cpy:1:25: error: literal has no closing quote [literal]"},
        WrongSource{"01 A PIC X VALUE X\"4\".",
                    "a.cpy:1:25: error: invalid hexadecimal literal 'X\"4\"' [literal]"},
        WrongSource{"01 A.\n 05 B PIC X.\n66 C RENAMES D.",
                    "a.cpy:3:21: error: 'D' is not defined [renames]"},
        WrongSource{
            "01 R.\n 05 A.\n  10 B PIC X.\n66 C RENAMES A THRU B.",
            "a.cpy:4:28: error: RENAMES ends with 'B', which is in its first item [renames]"},
        WrongSource{"COPY M.",
                    "a.cpy:1:13: error: copy member 'M' not found in '.' [copy-missing]"},
        WrongSource{"COPY .",
                    "a.cpy:1:8: error: expected the name of a copy member after COPY, found '.' "
                    "[copy-syntax]"},
        WrongSource{"EXEC SQL SELECT", "a.cpy:1:8: error: EXEC block has no END-EXEC [exec-end]"},
        WrongSource{"DATA DIVISION.\nWORKING-STORAGE SECTION.\n01 :T:-A PIC X.",
                    "a.cpy:3:11: error: tag ':T:' in name ':T:-A' is not replaced [name]"},
        WrongSource{"01 A PIC X FOO BAR.",
                    "a.cpy:1:19: error: expected a data description clause, found 'FOO' [syntax]"},
        WrongSource{"01 A PIC X.\n 88 B VALUE 1 PIC X.",
                    "a.cpy:2:22: error: expected '.' at the end of the condition entry, found "
                    "'PIC' [syntax]"},
        WrongSource{"01 A.\n 05 B PIC X.\n66 C RENAMES B PIC X.",
                    "a.cpy:3:23: error: expected '.' at the end of the level 66 entry, found 'PIC' "
                    "[syntax]"},
        WrongSource{"01 A.\n 05 B PIC X GLOBAL.",
                    "a.cpy:2:20: error: GLOBAL requires level 1 or 77, found level 5 [clause]"},
        WrongSource{"01 A.\n 05 B PIC X EXTERNAL.",
                    "a.cpy:2:20: error: EXTERNAL requires level 1 or 77, found level 5 [clause]"},
        WrongSource{"01 A.\n 05 B OCCURS 5 ASCENDING KEY D.\n  10 C PIC X.\n 05 D PIC X.",
                    "a.cpy:2:37: error: key 'D' is not in the table [occurs]"},
        WrongSource{"01 A PIC S9 BLANK WHEN ZERO.",
                    "a.cpy:1:11: error: BLANK WHEN ZERO is not allowed with 'S' or '*' in the "
                    "picture [clause]"},
        WrongSource{"78 K VALUE 1.\n78 K VALUE 2.",
                    "a.cpy:2:11: error: constant 'K' is already defined [constant]"}),
    [](auto const& test) { return parameterName(test.index, test.param.source); });

TEST(Diagnostics, ShowTheLineTheCaretAndTheCopyChain) {
  MemoryTree tree;
  tree.files["a.cpy"] = fixed("COPY M.");
  tree.files["M.cpy"] = "      * text\n       COPY N.\n";
  tree.files["N.cpy"] = "       01\tA PIC Q.\n";
  EXPECT_EQ(compile(tree).diagnostics,
            "N.cpy:1:17: error: unknown picture symbol 'Q' [picture]\n"
            "         01 A PIC Q.\n"
            "                  ^\n"
            "M.cpy:2:13: note: copied from here\n"
            "a.cpy:1:13: note: copied from here\n");
}

TEST(Diagnostics, ShowTheCaretInTheMiddleOfALongLine) {
  // Column 201, with 80 characters ahead of it and 160 in all.
  MemoryTree tree;
  tree.files["a.cpy"] = "       >>SOURCE FREE\n01 A PIC " + std::string(191, ' ') + "Q." +
                        std::string(200, ' ') + "*>";
  EXPECT_EQ(compile(tree).diagnostics,
            "a.cpy:2:201: error: unknown picture symbol 'Q' [picture]\n"
            "  ..." +
                std::string(80, ' ') + "Q." + std::string(78, ' ') + "\n" + std::string(85, ' ') +
                "^\n");
}

TEST(Diagnostics, WarnOfACopybookWhoseLinesAreAllIgnored) {
  MemoryTree tree;
  tree.files["a.cpy"] = "   05 A PIC X.\n";
  CompilationResult result = compile(tree);
  EXPECT_EQ(result.status, kStatusError);
  EXPECT_EQ(result.diagnostics,
            "zbc: error: 'a.cpy' has no data description [no-data]\n"
            "a.cpy:1:1: note: the source looks like free format; SOURCEFORMAT(FREE) reads it "
            "[format]\n"
            "     05 A PIC X.\n"
            "  ^\n"
            "a.cpy:1:7: warning: lines with a letter in column 7 are ignored, and the others have "
            "no data [left-out]\n"
            "     05 A PIC X.\n"
            "        ^\n");
}

TEST(Diagnostics, CountCharactersAndNotBytes) {
  MemoryTree tree;
  tree.files["a.cpy"] = "       01 \xC3\x84 PIC Q.\n";
  EXPECT_EQ(compile(tree).diagnostics,
            "a.cpy:1:17: error: unknown picture symbol 'Q' [picture]\n"
            "         01 \xC3\x84 PIC Q.\n"
            "                  ^\n");
}

TEST(Diagnostics, StandInTheOrderOfTheSource) {
  // The checker finds the first of them after the parser found the second.
  std::string text = compile("01 A.\n01 B PIC Q.").diagnostics;
  EXPECT_LT(text.find("picture-missing"), text.find("[picture]"));
}

TEST(Diagnostics, DoNotFollowFromOthers) {
  auto count = [](std::string_view lines) {
    std::string text = compile(lines).diagnostics;
    std::size_t errors = 0;
    for (std::size_t at = 0; (at = text.find(": ", at)) != std::string::npos; ++at) {
      std::string_view rest = std::string_view(text).substr(at + 2);
      errors += rest.starts_with("error: ") || rest.starts_with("warning: ") ? 1U : 0U;
    }
    return errors;
  };
  EXPECT_EQ(count("01 A PIX X."), 1U);
  EXPECT_EQ(count("01 A USAGE FOO."), 1U);
  EXPECT_EQ(count("01 R.\n 05 A PIC X.\n 05 B REDEFINES."), 1U);
  EXPECT_EQ(count("78 K VALUE FOO.\n01 A PIC X(K) OCCURS K VALUE K."), 1U);
  EXPECT_EQ(count("78 K VALUE FOO.\n78 L VALUE K + 1.\n01 A PIC X(L)."), 1U);
  EXPECT_EQ(count("01 N PIC X(.\n01 A PIC X OCCURS 1 TO 2 DEPENDING ON N."), 1U);
  EXPECT_EQ(count("01 R.\n 05 E PIX X.\n 05 F REDEFINES E PIC X(3)."), 1U);
}

TEST(Diagnostics, EndAfterAHundredErrors) {
  std::string lines;
  for (int i = 0; i < 150; ++i) lines += "01 A" + std::to_string(i) + ".\n";
  std::string text = compile(lines).diagnostics;
  std::size_t count = 0;
  for (std::size_t at = 0; (at = text.find(": error: ", at)) != std::string::npos; ++at) ++count;
  EXPECT_EQ(count, 100U);
  EXPECT_TRUE(text.ends_with("zbc: 50 more errors are not shown\n"));
}

TEST(Diagnostics, WarnOfAnUnknownDirectiveOnce) {
  Directives directives;
  EXPECT_EQ(applyDirectives("frob noobj FROB", directives), std::nullopt);
  MemoryTree tree;
  tree.files["a.cpy"] = fixed("01 A PIC X.");
  CompilationResult result = compile(tree, directives);
  EXPECT_EQ(result.diagnostics, "zbc: warning: unknown directive 'FROB' [directive]\n");
  EXPECT_EQ(result.status, kStatusOk);
}

}  // namespace
}  // namespace fdmorph::compiler
