// Texts that are too long to be in memory.
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "document/record_text.h"
#include "document/text_buffer.h"

namespace fdmorph::document {
namespace {

TEST(TextBuffer, KeepsShortPieces) {
  TextBuffer text;
  std::string drained;
  text.drainAbove(1'000'000, [&](std::string_view piece) { drained += piece; });
  text.append("one");
  text.beginPiece();
  text.append("two");
  EXPECT_EQ(text.text(), "onetwo");
  EXPECT_EQ(drained, "");
  EXPECT_EQ(text.drained(), 0U);
}

TEST(TextBuffer, DrainsTheBeginningOfALongPiece) {
  TextBuffer text;
  text.append("before ");
  std::string drained;
  text.drainAbove(1000, [&](std::string_view piece) { drained += piece; });
  std::string expected;
  for (int i = 0; i < 10'000; ++i) {
    std::string const word = std::to_string(i) + ' ';
    expected += word;
    text.append(word);
  }
  EXPECT_EQ(text.drained(), drained.size());
  EXPECT_LT(text.text().size(), 20'000U);
  // The bytes before the piece stay.
  EXPECT_EQ(text.text().substr(0, 7), "before ");
  EXPECT_EQ(drained + std::string(text.text().substr(7)), expected);
  EXPECT_EQ(text.offsetOf(text.end()), 7 + expected.size());
}

std::string all(RecordText const& text) {
  std::string result;
  text.write([&result](std::string_view piece) { result += piece; });
  return result;
}

TEST(RecordText, IsTheSameWithAFile) {
  RecordText text;
  text += "<r";
  text += ">first";
  text.spill(2);
  EXPECT_EQ(text.memory(), "<r");
  text += " second";
  text.spill(2);
  text += " third";
  text.insert(2, " a='1'");
  EXPECT_EQ(all(text), "<r a='1'>first second third");
  text.clear();
  EXPECT_TRUE(text.isEmpty());
  text += "next";
  EXPECT_EQ(all(text), "next");
}

TEST(RecordText, IsReadFromAnyPlace) {
  RecordText text;
  text += "0123456";
  text.spill(0);
  text += "789";
  std::array<char, 4> bytes{};
  EXPECT_EQ(text.read(1, bytes), 4U);
  EXPECT_EQ(std::string(bytes.data(), 4), "1234");
  EXPECT_EQ(text.read(5, bytes), 4U);
  EXPECT_EQ(std::string(bytes.data(), 4), "5678");
  EXPECT_EQ(text.read(8, bytes), 2U);
  EXPECT_EQ(text.read(10, bytes), 0U);
}

}  // namespace
}  // namespace fdmorph::document
