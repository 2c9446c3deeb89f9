#include "document/namespace_scopes.h"

#include <gtest/gtest.h>

namespace fdmorph::document {
namespace {

TEST(NamespaceScopes, HideOuterDeclarationsUntilTheirEnd) {
  NamespaceScopes scopes;
  std::uint32_t p = scopes.prefixNumber("p");
  EXPECT_EQ(scopes.namespaceOf(p), std::nullopt);
  EXPECT_EQ(scopes.namespaceOf(NamespaceScopes::kDefaultPrefix), "");
  ASSERT_FALSE(scopes.enter({{p, "u"}}));
  ASSERT_FALSE(scopes.enter({{p, "v"}, {NamespaceScopes::kDefaultPrefix, "w"}}));
  EXPECT_EQ(scopes.namespaceOf(p), "v");
  EXPECT_EQ(scopes.depthOf(p), 2U);
  EXPECT_EQ(scopes.namespaceOf(NamespaceScopes::kDefaultPrefix), "w");
  scopes.leave();
  EXPECT_EQ(scopes.namespaceOf(p), "u");
  EXPECT_EQ(scopes.depthOf(p), 1U);
  scopes.leave();
  EXPECT_EQ(scopes.namespaceOf(p), std::nullopt);
  EXPECT_EQ(scopes.depthOf(p), 0U);
}

TEST(NamespaceScopes, HaveTheNumberOfEqualDeclarations) {
  NamespaceScopes scopes;
  std::uint32_t p = scopes.prefixNumber("p");
  std::uint64_t outside = scopes.scope();
  ASSERT_FALSE(scopes.enter({{p, "u"}}));
  std::uint64_t first = scopes.scope();
  EXPECT_NE(first, outside);
  scopes.leave();
  EXPECT_EQ(scopes.scope(), outside);
  ASSERT_FALSE(scopes.enter({{p, "v"}}));
  EXPECT_NE(scopes.scope(), first);
  scopes.leave();
  ASSERT_FALSE(scopes.enter({{p, "u"}}));
  EXPECT_EQ(scopes.scope(), first);
}

TEST(NamespaceScopes, NeverShareANumberAmongDifferentDeclarations) {
  NamespaceScopes scopes;
  std::uint32_t p = scopes.prefixNumber("p");
  std::uint64_t first = 0;
  for (int i = 0; i < 10'000; ++i) {
    ASSERT_FALSE(scopes.enter({{p, "u" + std::to_string(i)}}));
    EXPECT_GT(scopes.scope(), first);
    first = scopes.scope();
    scopes.leave();
  }
}

}  // namespace
}  // namespace fdmorph::document
