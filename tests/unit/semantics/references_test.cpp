// References to items by their names.

#include <gtest/gtest.h>

#include "support/compiled_source.h"

namespace fdmorph::compiler {
namespace {

/// A record of `count` groups that all have an item N, and a table that
/// depends on one of them.
std::string groupsAndTable(int count, std::string const& name) {
  std::string lines = "01 R.\n";
  for (int i = 1; i <= count; ++i) {
    lines += " 05 G" + std::to_string(i) + ".\n  10 N PIC 9.\n  10 G.\n   15 M PIC 9.\n";
  }
  return lines + " 05 T PIC X OCCURS 1 TO 3 DEPENDING ON " + name + ".\n";
}

TEST(Reference, IsToldFromOthersOfItsNameByItsGroup) {
  // Few items of a name are looked through, many are looked up.
  for (int count : {3, 40}) {
    CompilationResult result = compile(groupsAndTable(count, "N OF G2"));
    EXPECT_EQ(attributeOf(result.dictionary, "T", "odo"), "R.G2.N") << result.diagnostics;
    result = compile(groupsAndTable(count, "M IN G IN G3 OF R"));
    EXPECT_EQ(attributeOf(result.dictionary, "T", "odo"), "R.G3.G.M") << result.diagnostics;
    result = compile(groupsAndTable(count, "N"));
    EXPECT_NE(result.diagnostics.find("'N' is ambiguous"), std::string::npos);
    result = compile(groupsAndTable(count, "M OF G"));
    EXPECT_NE(result.diagnostics.find("'M' is ambiguous"), std::string::npos);
    result = compile(groupsAndTable(count, "N OF NONE"));
    EXPECT_NE(result.diagnostics.find("'N' is not defined"), std::string::npos);
    // The groups have their order.
    result = compile(groupsAndTable(count, "M OF G2 OF G"));
    EXPECT_NE(result.diagnostics.find("'M' is not defined"), std::string::npos);
  }
}

TEST(Reference, IsFoundOnceInGroupsOfTheSameName) {
  std::string lines = groupsAndTable(40, "N OF H");
  lines += " 05 H.\n  10 H.\n   15 N PIC 9.";
  EXPECT_EQ(attributeOf(compile(lines).dictionary, "T", "odo"), "R.H.H.N");
}

}  // namespace
}  // namespace fdmorph::compiler
