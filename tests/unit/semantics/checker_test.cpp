// The checker on data divisions made by hand.

#include "semantics/checker.h"
#include "source/diagnostic_output.h"

#include <gtest/gtest.h>

#include "support/item_builder.h"
#include "support/memory_tree.h"

namespace fdmorph::compiler {
namespace {

class CheckerTest : public testing::Test {
 protected:
  /// Checks the items; the errors and warnings, each on a line.
  std::string check() {
    Checker(builder.data, diagnostics).check();
    return printDiagnostics(diagnostics);
  }

  static void redefine(DataItem& item, std::string_view name) {
    item.isRedefinition = true;
    item.related = std::make_unique<QualifiedName>(QualifiedName{name});
  }

  static void setValue(DataItem& item, Literal::Kind kind, std::string_view text = {}) {
    Literal literal;
    literal.kind = kind;
    literal.text = text;
    item.values.push_back({literal, {}});
  }

  MemoryTree tree;
  Sources sources{tree};
  Diagnostics diagnostics{sources};
  ItemBuilder builder;
};

TEST_F(CheckerTest, PassesUsageAndSignOnFromGroups) {
  DataItem& group = builder.add(1, "G");
  group.usage = Usage::comp3;
  DataItem& inherited = builder.add(5, "A", "9(5)");
  DataItem& own = builder.add(5, "B", "9(5)");
  own.usage = Usage::display;
  EXPECT_EQ(check(), "");
  EXPECT_EQ(inherited.effectiveUsage, Usage::comp3);
  EXPECT_EQ(inherited.size, 3U);
  EXPECT_EQ(own.size, 5U);
  EXPECT_EQ(group.size, 8U);
}

TEST_F(CheckerTest, FindsTheRedefinedItem) {
  builder.add(1, "R");
  DataItem& base = builder.add(5, "A", "X(4)");
  DataItem& first = builder.add(5, "B", "X(2)");
  redefine(first, "A");
  DataItem& second = builder.add(5, "C", "X(3)");
  redefine(second, "b");
  EXPECT_EQ(check(), "");
  EXPECT_EQ(first.redefined, &base);
  EXPECT_EQ(second.redefined, &base);
}

TEST_F(CheckerTest, ReportsARedefinitionOfAnotherItem) {
  builder.add(1, "R");
  builder.add(5, "A", "X");
  builder.add(5, "B", "X");
  redefine(builder.add(5, "C", "X"), "A");
  EXPECT_EQ(check(),
            "zbc: error: cannot redefine 'A', which is not the preceding item of the same group "
            "[redefines]\n");
}

TEST_F(CheckerTest, ReportsAnItemWithoutAPicture) {
  builder.add(1, "A");
  EXPECT_EQ(check(), "zbc: error: item 'A' has no PICTURE clause [picture-missing]\n");
}

TEST_F(CheckerTest, TakesAPictureFromTheValue) {
  builder.add(1, "R");
  DataItem& text = builder.add(5, "A");
  setValue(text, Literal::Kind::text, "\"a\"\"b\"");
  DataItem& zero = builder.add(5, "B");
  setValue(zero, Literal::Kind::zero);
  DataItem& national = builder.add(5, "C");
  setValue(national, Literal::Kind::text, "N\"abc\"");
  DataItem& terminated = builder.add(5, "D");
  setValue(terminated, Literal::Kind::text, "Z\"ab\"");
  DataItem& empty = builder.add(5, "E");
  setValue(empty, Literal::Kind::text, "\"\"");
  EXPECT_EQ(check(), "");
  EXPECT_EQ(text.picture->text, "X(3)");
  EXPECT_EQ(text.size, 3U);
  EXPECT_EQ(zero.picture->text, "9");
  EXPECT_EQ(national.picture->text, "N(3)");
  EXPECT_EQ(national.size, 6U);
  EXPECT_EQ(terminated.picture->text, "X(3)");
  EXPECT_EQ(empty.picture->text, "X(1)");
}

TEST_F(CheckerTest, TakesNoPictureFromANumberNorAtLevel01) {
  builder.add(1, "R");
  setValue(builder.add(5, "A"), Literal::Kind::number, "12");
  setValue(builder.add(1, "B"), Literal::Kind::text, "\"b\"");
  EXPECT_EQ(check(),
            "zbc: error: item 'A' has no PICTURE clause [picture-missing]\n"
            "zbc: error: item 'B' has no PICTURE clause [picture-missing]\n");
}

TEST_F(CheckerTest, ResolvesTheObjectOfDependingOn) {
  builder.add(1, "R");
  DataItem& count = builder.add(5, "N", "99");
  DataItem& table = builder.addTable(5, "T", 10, "X");
  table.occurs->isDepending = true;
  table.occurs->depending = {"n"};
  EXPECT_EQ(check(), "");
  EXPECT_EQ(table.dependingOn, &count);
}

TEST_F(CheckerTest, ReportsAnObjectOfDependingOnThatIsNotAnInteger) {
  builder.add(1, "R");
  builder.add(5, "N", "9V9");
  DataItem& table = builder.addTable(5, "T", 10, "X");
  table.occurs->isDepending = true;
  table.occurs->depending = {"N"};
  EXPECT_EQ(check(), "zbc: error: 'N' is not an integer item [depending]\n");
}

TEST_F(CheckerTest, ReportsAKeyOutsideItsTable) {
  builder.add(1, "R");
  DataItem& table = builder.addTable(5, "T", 10);
  builder.add(10, "K", "X");
  builder.add(5, "L", "X");
  table.occurs->keys = {{"K"}, {"L"}};
  EXPECT_EQ(check(), "zbc: error: key 'L' is not in the table [occurs]\n");
}

TEST_F(CheckerTest, WarnsOfRecordsOfOneName) {
  builder.add(1, "A", "X");
  builder.add(1, "a", "X");
  EXPECT_EQ(check(), "zbc: warning: duplicate record name 'a' [duplicate-name]\n");
}

TEST_F(CheckerTest, MeasuresARenamedRange) {
  builder.add(1, "R");
  builder.add(5, "A", "X(2)");
  DataItem& first = builder.add(5, "B", "X(3)");
  builder.add(5, "C", "X(4)");
  DataItem& renames = builder.data.items.emplace_back();
  renames.level = kRenamesLevel;
  renames.name = "N";
  renames.parent = builder.data.workingStorage.first;
  renames.parent->lastChild->next = &renames;
  renames.related = std::make_unique<QualifiedName>(QualifiedName{"B"});
  renames.through = std::make_unique<QualifiedName>(QualifiedName{"C"});
  EXPECT_EQ(check(), "");
  EXPECT_EQ(renames.offset, first.offset);
  EXPECT_EQ(renames.size, 7U);
}

}  // namespace
}  // namespace fdmorph::compiler
