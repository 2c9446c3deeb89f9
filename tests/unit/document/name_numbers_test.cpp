#include "document/name_numbers.h"

#include <gtest/gtest.h>

namespace fdmorph::document {
namespace {

TEST(NameNumbers, FindsNamesByNamespaceAndLocalName) {
  layout::Names names;
  std::uint32_t first = names.add("u", "a");
  std::uint32_t second = names.add("", "a");
  NameNumbers index(names, NameMatch::exact);
  EXPECT_EQ(index.find("u", "a"), first);
  EXPECT_EQ(index.find("", "a"), second);
  EXPECT_EQ(index.find("v", "a"), layout::kNone);
  EXPECT_EQ(index.numberOf(second), second);
  EXPECT_EQ(index.localName(second), "a");
}

TEST(NameNumbers, GivesNamesWithOneLocalNameOneNumber) {
  layout::Names names;
  std::uint32_t first = names.add("u", "a");
  std::uint32_t other = names.add("u", "b");
  std::uint32_t second = names.add("", "a");
  NameNumbers index(names, NameMatch::local);
  EXPECT_EQ(index.size(), 2U);
  EXPECT_EQ(index.find("v", "a"), index.numberOf(first));
  EXPECT_EQ(index.numberOf(second), index.numberOf(first));
  EXPECT_EQ(index.find("", "b"), index.numberOf(other));
  EXPECT_EQ(index.find("u", "c"), layout::kNone);
  EXPECT_EQ(index.localName(index.numberOf(other)), "b");
}

}  // namespace
}  // namespace fdmorph::document
