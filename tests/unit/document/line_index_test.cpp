#include "document/line_index.h"

#include <gtest/gtest.h>

namespace fdmorph::document {
namespace {

std::string at(LineIndex& index, std::uint64_t offset) {
  BytePlace place = index.at(offset);
  return std::to_string(place.line) + ':' + std::to_string(place.column);
}

TEST(LineIndex, CountsLinesAndBytesFromOne) {
  LineIndex index;
  index.add("ab\n\ncd");
  EXPECT_EQ(at(index, 0), "1:1");
  EXPECT_EQ(at(index, 2), "1:3");
  EXPECT_EQ(at(index, 3), "2:1");
  EXPECT_EQ(at(index, 4), "3:1");
  EXPECT_EQ(at(index, 5), "3:2");
  index.add("e\n");
  index.add("f");
  EXPECT_EQ(at(index, 6), "3:3");
  EXPECT_EQ(at(index, 8), "4:1");
}

TEST(LineIndex, FindsLineEndsOfUtf16InAnyBlocks) {
  LineIndex index;
  index.setUnit(LineIndex::Unit::utf16Little);
  index.add(std::string_view("a\0\n", 3));
  index.add(std::string_view("\0\0\n\n\0b\0", 7));
  EXPECT_EQ(at(index, 2), "1:3");
  EXPECT_EQ(at(index, 4), "2:1");
  EXPECT_EQ(at(index, 6), "2:3");
  EXPECT_EQ(at(index, 8), "3:1");
}

TEST(LineIndex, ForgetsLinesThatManyOthersFollow) {
  LineIndex index;
  for (int i = 0; i < 10; ++i) index.add(std::string(100'000, '\n'));
  index.add("x");
  EXPECT_EQ(at(index, 1'000'000), "1000001:1");
}

}  // namespace
}  // namespace fdmorph::document
