#include "document/json_scanner.h"

#include <gtest/gtest.h>

namespace fdmorph::document {
namespace {

TEST(JsonScanner, FindsMalformedUtf8AtTheByteThatDoesNotFit) {
  auto find = [](std::string_view text) { return findMalformedUtf8(text); };
  EXPECT_EQ(find("ab\xC3\xBC\xE2\x82\xAC\xF0\x9F\x98\x80 and more"), std::string_view::npos);
  EXPECT_EQ(find("0123456789\x80"), 10U);
  EXPECT_EQ(find("a\xC3(\xC3\xBC"), 2U);
  EXPECT_EQ(find("a\xE2\x82"), 3U);
  EXPECT_EQ(find("\xC0\x80"), 0U);
  EXPECT_EQ(find("\xE0\x9F\xBF"), 1U);
  EXPECT_EQ(find("\xED\xA0\x80"), 1U);
  EXPECT_EQ(find("\xF0\x8F\xBF\xBF"), 1U);
  EXPECT_EQ(find("\xF4\x90\x80\x80"), 1U);
  EXPECT_EQ(find("\xF5\x80\x80\x80"), 0U);
  EXPECT_EQ(find("\xEF\xBF\xBF"), std::string_view::npos);
}

TEST(JsonScanner, EscapesTexts) {
  std::string out;
  appendJsonEscaped(out, "a\"\\/\b\f\n\r\t\x01\xC3\xBC\xED\xA0\x81");
  EXPECT_EQ(out, "a\\\"\\\\/\\b\\f\\n\\r\\t\\u0001\xC3\xBC\\ud801");
}

TEST(JsonScanner, ReadsStrings) {
  JsonScanner scanner(R"( "a\"\\\/\b\f\n\r\t\u0041\u00fC\u20AC\ud83d\uDE00b")", 0);
  ASSERT_EQ(scanner.peek(), '"');
  JsonScanner::String string = scanner.readString();
  EXPECT_EQ(string.text,
            "a\"\\/\b\f\n\r\tA\xC3\xBC\xE2\x82\xAC\xF0\x9F\x98\x80"
            "b");
  EXPECT_FALSE(string.hasLoneSurrogate);
  EXPECT_TRUE(scanner.isAtEnd());
}

TEST(JsonScanner, NoticesSurrogatesThatStandAlone) {
  for (std::string_view text : {R"("\ud800")", R"("\udc00")", R"("\ud800x")", R"("\udc00\ud800")",
                                R"("\ud800\u0041")", R"("\ud800\n")"}) {
    JsonScanner scanner(text, 0);
    EXPECT_TRUE(scanner.readString().hasLoneSurrogate) << text;
    EXPECT_FALSE(scanner.hasFault());
    EXPECT_TRUE(scanner.isAtEnd());
  }
  JsonScanner scanner(R"("\ud800\ud83d\ude00")", 0);
  JsonScanner::String string = scanner.readString();
  EXPECT_TRUE(string.hasLoneSurrogate);
  EXPECT_EQ(string.text, "\xED\xA0\x80\xF0\x9F\x98\x80");
}

}  // namespace
}  // namespace fdmorph::document
