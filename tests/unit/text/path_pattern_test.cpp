// Patterns of paths.

#include "text/path_pattern.h"

#include <gtest/gtest.h>

#include <string>

namespace fdmorph {
namespace {

bool matches(std::string const& pattern, std::string const& path) {
  return PathPattern(pattern).matches(path);
}

TEST(PathPatterns, NamesMatchThemselves) {
  EXPECT_TRUE(matches("ORDER/LINE/@id", "ORDER/LINE/@id"));
  EXPECT_FALSE(matches("ORDER/LINE", "ORDER/LINE/@id"));
  EXPECT_FALSE(matches("ORDER/LINE/@id", "ORDER/LINE"));
  EXPECT_FALSE(matches("ORDER/LINE/id", "ORDER/LINE/@id"));
  EXPECT_FALSE(matches("order/LINE", "ORDER/LINE"));
}

TEST(PathPatterns, StarIsOneElementOrAttribute) {
  EXPECT_TRUE(matches("ORDER/*/PRICE", "ORDER/LINE/PRICE"));
  EXPECT_TRUE(matches("*/@*", "ORDER/@id"));
  EXPECT_FALSE(matches("*/*", "ORDER/@id"));
  EXPECT_FALSE(matches("*/@*", "ORDER/LINE"));
  EXPECT_FALSE(matches("ORDER/*", "ORDER"));
  EXPECT_FALSE(matches("ORDER/*", "ORDER/LINE/PRICE"));
}

TEST(PathPatterns, TwoStarsAreAnyNumberOfNames) {
  EXPECT_TRUE(matches("**/PRICE", "PRICE"));
  EXPECT_TRUE(matches("**/PRICE", "ORDER/LINE/PRICE"));
  EXPECT_TRUE(matches("ORDER/**", "ORDER/LINE/PRICE"));
  EXPECT_TRUE(matches("ORDER/**/A/B", "ORDER/A/X/A/B"));
  EXPECT_TRUE(matches("**/A/**/B", "X/A/A/Y/B"));
  EXPECT_FALSE(matches("ORDER/**/A/B", "ORDER/A/X/B"));
  EXPECT_FALSE(matches("**/PRICE", "ORDER/PRICE/TAX"));
}

TEST(PathPatterns, SlashesAroundAPathDoNotMatter) {
  EXPECT_TRUE(matches("/ORDER/LINE/", "ORDER/LINE"));
  EXPECT_EQ(PathPattern("/A/").text(), "/A/");
}

}  // namespace
}  // namespace fdmorph
