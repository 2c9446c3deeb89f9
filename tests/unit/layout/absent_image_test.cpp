// The bytes of a record with nothing in it.
#include "layout/absent_image.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace fdmorph::layout {
namespace {

void put(AbsentImage& image, std::uint64_t offset, std::string_view text) {
  image.put(offset, {reinterpret_cast<unsigned char const*>(text.data()), text.size()});
}

std::string written(AbsentImage const& image, std::size_t size) {
  std::string bytes(size, '.');
  image.write(reinterpret_cast<unsigned char*>(bytes.data()));
  return bytes;
}

TEST(AbsentImage, HasItsBytesInPlace) {
  AbsentImage image;
  put(image, 1, "ab");
  put(image, 3, "c");
  put(image, 6, "d");
  EXPECT_EQ(written(image, 8), ".abc..d.");
}

TEST(AbsentImage, RepeatsTablesInTables) {
  AbsentImage image;
  put(image, 0, "x");
  put(image, 1, "y");
  image.repeat(1, 1, 3);
  image.repeat(0, 4, 3);
  EXPECT_EQ(written(image, 13), "xyyyxyyyxyyy.");
}

TEST(AbsentImage, OverwritesWhatIsThere) {
  AbsentImage image;
  image.fill(0, 6, '-');
  put(image, 2, "z");
  EXPECT_EQ(written(image, 7), "--z---.");
}

TEST(AbsentImage, HasLongTextsWithBlanks) {
  std::string const text = "value" + std::string(1000, ' ');
  AbsentImage image;
  put(image, 0, text);
  put(image, text.size(), "end");
  EXPECT_EQ(written(image, text.size() + 3), text + "end");
}

}  // namespace
}  // namespace fdmorph::layout
