// Files, lines and columns.

#include <gtest/gtest.h>

#include "source/source_files.h"
#include "support/memory_tree.h"

namespace fdmorph::compiler {
namespace {

TEST(LineTable, FindsTheLineOfEachByte) {
  LineTable lines("ab\n\ncd");
  EXPECT_EQ(lines.lineAt(0), 0U);
  EXPECT_EQ(lines.lineAt(2), 0U);  // the line feed ends its line
  EXPECT_EQ(lines.lineAt(3), 1U);
  EXPECT_EQ(lines.lineAt(4), 2U);
  EXPECT_EQ(lines.lineAt(6), 2U);  // the end of the file
  EXPECT_EQ(lines.beginOf(2), 4U);
}

TEST(LineTable, LeavesAByteOrderMarkOut) {
  LineTable lines(
      "\xEF\xBB\xBF"
      "a\nb");
  EXPECT_EQ(lines.beginOf(0), 3U);
  EXPECT_EQ(lines.lineAt(0), 0U);
  EXPECT_EQ(lines.beginOf(1), 5U);
}

class SourcesTest : public testing::Test {
 protected:
  /// The number of a new text with this content.
  std::uint32_t open(std::string const& content, Place copiedFrom = {}) {
    std::string path = "f" + std::to_string(tree.files.size());
    tree.files[path] = content;
    return sources.open(sources.file(path), copiedFrom);
  }

  MemoryTree tree;
  Sources sources{tree};
};

TEST_F(SourcesTest, LocateCountsCharacters) {
  // Ä has 2 bytes.
  std::uint32_t text = open("a\r\n\xC3\x84 b\r\n");
  LinePlace place = sources.locate({text, 6});
  EXPECT_EQ(place.line, 2U);
  EXPECT_EQ(place.column, 3U);
  EXPECT_EQ(place.text, "\xC3\x84 b");
}

TEST_F(SourcesTest, LocateCountsBytesOfNoCharacterToo) {
  // In Latin-1 these are two letters.
  LinePlace place = sources.locate({open("\xBF\xE9 b"), 3});
  EXPECT_EQ(place.column, 4U);
}

TEST_F(SourcesTest, LocateTakesAPlaceBeyondTheEndForTheEnd) {
  LinePlace place = sources.locate({open("a\nbc"), 99});
  EXPECT_EQ(place.line, 2U);
  EXPECT_EQ(place.column, 3U);
}

TEST_F(SourcesTest, FilesHaveTheNameOfTheirPathUnlessTheyAreGivenAnother) {
  tree.files["a"] = tree.files["b"] = "";
  EXPECT_EQ(sources.file("a")->name, "a");
  EXPECT_EQ(sources.file("b", "other")->name, "other");
  EXPECT_EQ(sources.file("none"), nullptr);
}

TEST_F(SourcesTest, PlacesOfAMemberPrecedeThoseAfterItsStatement) {
  std::uint32_t main = open("COPY A. COPY A. X");
  std::uint32_t first = open("long member", {main, 5});
  std::uint32_t second = open("long member", {main, 13});
  EXPECT_TRUE(sources.isBefore({first, 9}, {main, 8}));
  EXPECT_TRUE(sources.isBefore({main, 0}, {first, 0}));
  EXPECT_TRUE(sources.isBefore({first, 9}, {second, 0}));
  EXPECT_FALSE(sources.isBefore({main, 16}, {second, 9}));
}

TEST(Characters, AreNotCutIntoBytes) {
  EXPECT_EQ(firstCharacters("\xC3\xA9"
                            "a",
                            1),
            "\xC3\xA9");
  EXPECT_EQ(firstCharacters("ab", 3), "ab");
  EXPECT_EQ(firstCharacters("\xFF\xFE", 1), "\xFF");
  EXPECT_EQ(countCharacters("\xC3\xA9"
                            "a\xFF"),
            3U);
}

}  // namespace
}  // namespace fdmorph::compiler
