// Files as code units.

#include "bundle/text_units.h"

#include <gtest/gtest.h>

#include <string>

#include "support/utf16.h"

namespace fdmorph::bundle {
namespace {

TEST(TextUnits, AreBytesOrPairsOfBytes) {
  EXPECT_EQ(TextUnits("<a/>").size(), 1U);
  EXPECT_EQ(TextUnits("").size(), 1U);
  EXPECT_EQ(TextUnits("\xFF\xFE<").size(), 2U);
  EXPECT_EQ(TextUnits("\xFE\xFF").size(), 2U);
  EXPECT_EQ(TextUnits(utf16Little("<a/>")).size(), 2U);  // without a byte order mark
  EXPECT_EQ(TextUnits(utf16Big("<a/>")).size(), 2U);
}

TEST(TextUnits, ShowAsciiCharacters) {
  std::string const bytes = "a\xC3\xA4z";
  TextUnits const text(bytes);
  EXPECT_EQ(text.ascii({0, bytes.size()}), "a\x7F\x7Fz");
  EXPECT_EQ(text.at(4), '\0');
  std::string const wide = utf16Big("a") + std::string("\x01\x61", 2) + utf16Big("z");
  TextUnits const units(wide);
  EXPECT_EQ(units.ascii({0, wide.size()}), "a\x7Fz");
  EXPECT_EQ(units.at(wide.size() - 1), '\0');
}

TEST(TextUnits, EncodeAsTheText) {
  EXPECT_EQ(TextUnits("<a/>").encode("x.xsd"), "x.xsd");
  EXPECT_EQ(TextUnits("\xFF\xFE").encode("ab"), utf16Little("ab"));
  EXPECT_EQ(TextUnits("\xFE\xFF").encode("ab"), utf16Big("ab"));
}

TEST(TextUnits, PlacesCountCharacters) {
  std::string const bytes = "\xEF\xBB\xBF<\xC3\xA4>\n<b>";
  TextUnits const text(bytes);
  TextCursor cursor;
  TextPlace place = text.placeOf(6, cursor);
  EXPECT_EQ(place.line, 1U);
  EXPECT_EQ(place.column, 3U);
  place = text.placeOf(9, cursor);
  EXPECT_EQ(place.line, 2U);
  EXPECT_EQ(place.column, 2U);
  place = text.placeOf(3, cursor);  // counts again
  EXPECT_EQ(place.line, 1U);
  EXPECT_EQ(place.column, 1U);
}

TEST(TextUnits, PlacesCountPairsOfSurrogatesOnce) {
  std::string const bytes = "\xFF\xFE" + std::string("\x3D\xD8\x00\xDE", 4) + utf16Little("x\ny");
  TextCursor cursor;
  TextPlace const place = TextUnits(bytes).placeOf(6, cursor);
  EXPECT_EQ(place.line, 1U);
  EXPECT_EQ(place.column, 2U);
}

}  // namespace
}  // namespace fdmorph::bundle
