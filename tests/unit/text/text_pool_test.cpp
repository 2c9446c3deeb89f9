// Texts that stay where they are.

#include "text/text_pool.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace fdmorph {
namespace {

TEST(TextPoolTest, KeepsACopy) {
  TextPool pool;
  std::string text = "order";
  std::string_view kept = pool.keep(text);
  text = "other";
  EXPECT_EQ(kept, "order");
}

TEST(TextPoolTest, EqualTextsShareOneCopy) {
  TextPool pool;
  std::string_view first = pool.keep("order");
  std::string_view second = pool.keep(std::string("order"));
  EXPECT_EQ(first.data(), second.data());
}

TEST(TextPoolTest, PartOfAKeptTextIsKeptSeparately) {
  TextPool pool;
  pool.keep("order-record");
  EXPECT_EQ(pool.keep("order"), "order");
  EXPECT_EQ(pool.keep("order-record"), "order-record");
}

TEST(TextPoolTest, EmptyTextIsKept) {
  TextPool pool;
  EXPECT_EQ(pool.keep(""), "");
  pool.keep("a");
  EXPECT_EQ(pool.keep(""), "");
}

TEST(TextPoolTest, TextLongerThanABlockIsKeptWhole) {
  TextPool pool;
  std::string const longText(100'000, 'x');
  pool.keep("a");
  std::string_view kept = pool.keep(longText);
  pool.keep("b");
  EXPECT_EQ(kept, longText);
}

TEST(TextPoolTest, AppendedTextIsACopyToo) {
  TextPool pool;
  std::string text = "order-1";
  std::string_view appended = pool.append(text);
  text = "other-1";
  EXPECT_EQ(appended, "order-1");
  EXPECT_EQ(pool.append(""), "");
}

TEST(TextPoolTest, AppendedTextIsNotFoundAgain) {
  TextPool pool;
  std::string_view appended = pool.append("order-1");
  EXPECT_EQ(pool.keep("order-1"), "order-1");
  EXPECT_NE(pool.keep("order-1").data(), appended.data());
}

TEST(TextPoolTest, ViewsStayValidWhenMoreTextsFollow) {
  TextPool pool;
  std::vector<std::string_view> kept;
  for (int i = 0; i < 10'000; ++i) kept.push_back(pool.keep("name-" + std::to_string(i)));
  for (int i = 0; i < 10'000; ++i) {
    EXPECT_EQ(kept[static_cast<std::size_t>(i)], "name-" + std::to_string(i));
  }
}

TEST(TextPoolTest, CanBeUsedAgainAfterClear) {
  TextPool pool;
  pool.keep("a");
  pool.clear();
  EXPECT_EQ(pool.keep("a"), "a");
  EXPECT_EQ(pool.keep("b"), "b");
}

}  // namespace
}  // namespace fdmorph
