// The limits of sources: what is at a limit compiles, and what is above it is
// reported once.

#include <gtest/gtest.h>

#include "description/dictionary_writer.h"
#include "description/directives.h"
#include "support/compiled_source.h"
#include "support/item_builder.h"

namespace fdmorph::compiler {
namespace {

std::string repeated(std::string_view text, std::size_t count) {
  std::string result;
  for (std::size_t i = 0; i < count; ++i) result += text;
  return result;
}

std::string conditionOf(std::size_t depth) {
  return ">>IF " + repeated("(", depth) + "1 = 1" + repeated(")", depth) +
         "\n01 A PIC X.\n>>END-IF\n";
}
std::string settingOf(std::size_t size) {
  return "$SET CONSTANT V \"" + std::string(size, 'x') + "\"\n01 A PIC X.\n";
}
std::string definitionOf(std::size_t size) {
  return ">>DEFINE V AS \"" + std::string(size, 'x') + "\"\n01 A PIC X.\n";
}
std::string literalOf(std::size_t size) {
  return "01 A PIC X(9000) VALUE \"" + std::string(size - 2, 'x') + "\".\n";
}
std::string joinedLiteralOf(std::size_t size) {
  return "01 A PIC X(9000) VALUE \"" + std::string(size - 5, 'x') + "\" & \"abcde\".\n";
}
std::string nameOf(std::size_t size) {
  return "01 " + std::string(size, 'A') + " PIC X.\n";
}
std::string parenthesesOf(std::size_t depth) {
  return "01 K CONSTANT AS " + repeated("(", depth) + "1" + repeated(")", depth) +
         ".\n01 A PIC X(K).\n";
}
std::string repetitionsOf(std::size_t count) {
  return "01 A PIC X(" + std::to_string(count) + ").\n";
}
std::string digitsOf(std::size_t count) {
  return "01 A PIC 9(" + std::to_string(count) + ").\n";
}
std::string tableOf(std::size_t count) {
  return "01 A.\n 05 B PIC X OCCURS " + std::to_string(count) + ".\n";
}
std::string nestedTablesOf(std::size_t size) {
  return "01 A.\n 05 B OCCURS 2.\n  10 C PIC X(" + std::to_string(size / 2) + ").\n 05 D PIC X(" +
         std::to_string(size % 2 + 1) + ").\n";
}

struct Limit {
  char const* name;
  std::size_t limit;
  std::string (*sourceOf)(std::size_t amount);
  char const* report;
};

class SourceLimit : public testing::TestWithParam<Limit> {
 protected:
  static std::string reports(std::size_t amount) {
    MemoryTree tree;
    tree.files["a.cpy"] = GetParam().sourceOf(amount);
    Directives directives;
    directives.reading.format = Format::free;
    return compileSource("a.cpy", directives, tree).diagnostics;
  }
};

TEST_P(SourceLimit, IsAllowedAndNothingAboveIt) {
  EXPECT_EQ(reports(GetParam().limit - 1), "");
  EXPECT_EQ(reports(GetParam().limit), "");
  std::string const above = reports(GetParam().limit + 1);
  std::size_t const found = above.find(GetParam().report);
  ASSERT_NE(found, std::string::npos) << above;
  EXPECT_EQ(above.find("error: ", above.find("error: ") + 1), std::string::npos) << above;
}

constexpr std::size_t kTwoGigabytes = 2147483647;  // less one byte

INSTANTIATE_TEST_SUITE_P(
    All, SourceLimit,
    testing::Values(
        // The relation is one level.
        Limit{"Condition", 63, conditionOf, "error: condition is nested too deeply [conditional]"},
        Limit{"Setting", 8191, settingOf,
              "error: value of 'V' is longer than 8191 bytes [conditional]"},
        Limit{"Definition", 8191, definitionOf,
              "error: value of 'V' is longer than 8191 bytes [conditional]"},
        Limit{"Literal", 8191, literalOf, "error: literal is longer than 8191 bytes [literal]"},
        Limit{"JoinedLiteral", 8191, joinedLiteralOf,
              "error: literal is longer than 8191 bytes [literal]"},
        Limit{"Name", 63, nameOf, "is longer than 63 characters [name]"},
        Limit{"Parentheses", 64, parenthesesOf,
              "error: more than 64 nested parentheses [constant]"},
        Limit{"Repetitions", kTwoGigabytes, repetitionsOf,
              "error: picture describes too many characters [picture]"},
        Limit{"Digits", 38, digitsOf, "error: picture has more than 38 digits [picture]"},
        Limit{"Occurrences", kTwoGigabytes, tableOf,
              "is not an integer from 0 to 2147483647 [occurs]"},
        Limit{"ItemSize", kTwoGigabytes - 1, nestedTablesOf,
              "error: item is larger than 2 GB [size]"}),
    [](testing::TestParamInfo<Limit> const& each) { return each.param.name; });

// The source is one of the files that are open.
TEST(CopyLimit, Is64OpenFiles) {
  auto compiled = [](int members) {
    MemoryTree tree;
    std::string name = "a.cpy";
    for (int i = 1; i <= members; ++i) {
      std::string const next = "M" + std::to_string(i);
      tree.files[name] = fixed("COPY " + next + ".");
      name = next + ".cpy";
    }
    tree.files[name] = fixed("01 A PIC X.");
    return compile(tree).diagnostics;
  };
  EXPECT_EQ(compiled(62), "");
  EXPECT_EQ(compiled(63), "");
  EXPECT_NE(compiled(64).find("COPY statements are nested more than 64 deep [copy-limit]"),
            std::string::npos);
}

TEST(CopyLimit, Is100000FilesWithTheSource) {
  auto compiled = [](std::size_t copies) {
    MemoryTree tree;
    tree.files["a.cpy"] = fixed(repeated("COPY M.\n", copies) + "01 A PIC X.");
    tree.files["M.cpy"] = "*";
    return compile(tree).diagnostics;
  };
  EXPECT_EQ(compiled(99998), "");
  EXPECT_EQ(compiled(99999), "");
  EXPECT_NE(compiled(100000).find("too much text is copied [copy-limit]"), std::string::npos);
}

// The first copy of a member does not count.
TEST(CopyLimit, Is32MegabytesOfMembersCopiedAgain) {
  auto compiled = [](std::size_t copies) {
    MemoryTree tree;
    tree.files["a.cpy"] = fixed(repeated("COPY M.\n", copies) + "01 A PIC X.");
    tree.files["M.cpy"] = std::string(1 << 20, ' ');
    return compile(tree).diagnostics;
  };
  EXPECT_EQ(compiled(32), "");
  EXPECT_EQ(compiled(33), "");
  EXPECT_NE(compiled(34).find("too much text is copied [copy-limit]"), std::string::npos);
}

// Each replacement makes 1,023 bytes of words and 1 byte for what separates them.
// The limit ends the replacement after the one that passes it.
TEST(ReplacementLimit, Is32MegabytesOfText) {
  auto compiled = [](std::size_t words) {
    MemoryTree tree;
    tree.files["a.cpy"] = "REPLACE ==TEXT== BY ==\"" + std::string(1021, 'x') +
                          "\"==.\n01 A PIC X(1021).\n" + "88 B VALUES\n" +
                          repeated("TEXT\n", words) + ".";
    Directives directives;
    directives.reading.format = Format::free;
    return compileSource("a.cpy", directives, tree).diagnostics;
  };
  EXPECT_EQ(compiled(32 * 1024), "");
  EXPECT_EQ(compiled(32 * 1024 + 1), "");
  EXPECT_NE(compiled(32 * 1024 + 2).find("too much text is replaced [copy-limit]"),
            std::string::npos);
}

std::optional<std::string> wrongIn(std::string_view directive, std::size_t count,
                                   std::string_view separator) {
  Directives directives;
  std::string text = std::string(directive) + "(x";
  for (std::size_t i = 1; i < count; ++i) text.append(separator).append("x");
  return applyDirectives(text + ")", directives);
}

TEST(DirectiveLimit, Is1000FoldersAnd20Extensions) {
  EXPECT_EQ(wrongIn("COPYPATH", 999, ":"), std::nullopt);
  EXPECT_EQ(wrongIn("COPYPATH", 1000, ":"), std::nullopt);
  EXPECT_EQ(wrongIn("COPYPATH", 1001, ":"), "COPYPATH(" + repeated("x:", 30) + "...)");
  EXPECT_EQ(wrongIn("COPYEXT", 19, ","), std::nullopt);
  EXPECT_EQ(wrongIn("COPYEXT", 20, ","), std::nullopt);
  EXPECT_EQ(wrongIn("COPYEXT", 21, ","), "COPYEXT(" + repeated("x,", 20) + "x)");
}

TEST(DirectiveLimit, Is255ColumnsBetweenTabStops) {
  Directives directives;
  EXPECT_EQ(applyDirectives("TABS(254) TABS(255)", directives), std::nullopt);
  EXPECT_EQ(applyDirectives("TABS(256)", directives), "TABS(256)");
}

// Each line has one error.
TEST(ReportLimit, Is100ErrorsThatAreShown) {
  auto compiled = [](std::size_t errors) {
    MemoryTree tree;
    tree.files["a.cpy"] = fixed(repeated("77 A PIC F.\n", errors));
    return compile(tree).diagnostics;
  };
  EXPECT_EQ(compiled(99).find("not shown"), std::string::npos);
  EXPECT_EQ(compiled(100).find("not shown"), std::string::npos);
  EXPECT_TRUE(compiled(101).ends_with("zbc: 1 more error is not shown\n"));
}

// Two values of four bytes each.
TEST(ValueLimit, CountsTheTextOfAllValues) {
  auto written = [](std::size_t limit) {
    MemoryTree tree;
    Sources sources(tree);
    Diagnostics diagnostics(sources);
    ItemBuilder builder;
    for (char const* name : {"A", "B"}) {
      Literal value;
      value.kind = Literal::Kind::text;
      value.text = "\"text\"";
      builder.add(1, name, "X(4)").values.push_back({value, {}});
    }
    std::string dictionary =
        buildDictionary(builder.data, chooseContent(builder.data, {}, diagnostics),
                        DictionaryOrder::workingStorageFirst, diagnostics, limit);
    return dictionary.empty() ? printDiagnostics(diagnostics) : "written";
  };
  EXPECT_EQ(written(9), "written");
  EXPECT_EQ(written(8), "written");
  EXPECT_EQ(written(7), "zbc: error: the values of all items exceed 1 GB [size]\n");
}

}  // namespace
}  // namespace fdmorph::compiler
