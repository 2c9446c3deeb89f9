// What the options of a source do to its items.
#include "frontend/compiled_source.h"

#include <gtest/gtest.h>

#include "support/memory_tree.h"

namespace fdmorph::compiler {
namespace {

constexpr char kNumbers[] =
    "01 A.\n 05 B PIC 99 COMP.\n 05 C PIC 99 COMP-5.\n 05 D PIC 9(6) COMP-X.\n 05 E POINTER.\n";

// The sizes of the items of a copybook, and that of its record before them.
std::string sizesOf(SourceOptions options) {
  options.reading.format = Format::free;
  MemoryTree tree;
  tree.files["a.cpy"] = kNumbers;
  CompiledSource const source("a.cpy", options, tree);
  std::string sizes;
  for (DataItem const& each : source.data().items) sizes += std::to_string(each.size) + " ";
  return sizes;
}

TEST(BinarySize, IsThatOfTheDialect) {
  SourceOptions options;
  EXPECT_EQ(sizesOf(options), "13 1 1 3 8 ");
  options.dialect = Dialect::ibm;
  EXPECT_EQ(sizesOf(options), "11 2 2 3 4 ");
}

// Pointers keep the size of the dialect.
TEST(BinarySize, MayBeThatOfTheOtherDialect) {
  SourceOptions options;
  options.binarySize = Dialect::ibm;
  EXPECT_EQ(sizesOf(options), "15 2 2 3 8 ");
  options.dialect = Dialect::ibm;
  options.binarySize = Dialect::gnuCobol;
  EXPECT_EQ(sizesOf(options), "9 1 1 3 4 ");
}

}  // namespace
}  // namespace fdmorph::compiler
