// Tags and literals as they are written.

#include "bundle/tag_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/utf16.h"

namespace fdmorph::bundle {
namespace {

TEST(TagText, HasItsAttributesInOrder) {
  std::string const bytes = "x<xs:a b='1>\"' c\n= \"\"\t/>";
  TextUnits const text(bytes);
  std::optional<TagText> const tag = readTag(text, 1);
  ASSERT_TRUE(tag);
  EXPECT_EQ(tag->name, "xs:a");
  ASSERT_EQ(tag->attributes.size(), 2U);
  EXPECT_EQ(tag->attributes[0].name, "b");
  EXPECT_EQ(text.ascii(tag->attributes[0].value), "1>\"");
  EXPECT_EQ(tag->attributes[1].name, "c");
  EXPECT_EQ(text.ascii(tag->attributes[1].value), "");
  EXPECT_EQ(bytes.substr(tag->end), "\t/>");
  EXPECT_EQ(tag->valueOf("b"), tag->attributes[0].value);
  EXPECT_EQ(tag->valueOf("d"), std::nullopt);
}

TEST(TagText, WithoutAttributesEndsWithItsName) {
  std::string const bytes = "<a/><b>";
  EXPECT_EQ(readTag(TextUnits(bytes), 0)->end, 2U);
  EXPECT_EQ(readTag(TextUnits(bytes), 4)->end, 6U);
}

TEST(TagText, IsFoundInUtf16) {
  std::string const bytes = "\xFF\xFE" + utf16Little("<a b='c'/>");
  std::optional<TagText> const tag = readTag(TextUnits(bytes), 2);
  ASSERT_TRUE(tag);
  EXPECT_EQ(tag->valueOf("b"), (ByteRange{14, 16}));
}

TEST(TagText, IsNothingElsewhere) {
  for (char const* bytes : {"&e;", "", "<a b", "<a b=", "<a b=c", "<a b='c"}) {
    EXPECT_FALSE(readTag(TextUnits(bytes), 0)) << bytes;
  }
}

TEST(Literal, EndsBeforeWhiteSpace) {
  std::string const bytes = "SYSTEM 'a\".dtd' [";
  TextUnits const text(bytes);
  EXPECT_EQ(literalBefore(text, 16), (ByteRange{8, 14}));
  EXPECT_EQ(literalBefore(text, 15), (ByteRange{8, 14}));
  EXPECT_EQ(literalBefore(text, 7), std::nullopt);
  EXPECT_EQ(literalBefore(text, 0), std::nullopt);
}

TEST(Literal, NeedsBothQuotes) {
  EXPECT_EQ(literalBefore(TextUnits("a'"), 2), std::nullopt);
  EXPECT_EQ(literalBefore(TextUnits("''"), 2), (ByteRange{1, 1}));
}

TEST(Words, AreSeparatedByWhiteSpace) {
  std::string const bytes = " ab\n\tc  ";
  EXPECT_EQ(wordsOf(TextUnits(bytes), {0, bytes.size()}), (std::vector<ByteRange>{{1, 3}, {5, 6}}));
  EXPECT_TRUE(wordsOf(TextUnits(bytes), {0, 1}).empty());
}

}  // namespace
}  // namespace fdmorph::bundle
