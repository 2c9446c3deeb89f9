// The nearest element that declares a namespace.

#include <gtest/gtest.h>

#include "support/trees.h"
#include "xml/node_store.h"

namespace fdmorph {
namespace {

TEST(NamespaceScope, IsTheElementItselfIfItDeclaresOne) {
  for (char const* declaration : {"xmlns", "xmlns:x", "targetNamespace"}) {
    CDMXMLNodeStore store;
    CDMXMLElement const* element = build(store, {"a", {{declaration, "urn:a"}}});
    EXPECT_EQ(element->getNamespaceScope(), element) << declaration;
  }
}

TEST(NamespaceScope, IsTheNearestElementAboveOtherwise) {
  CDMXMLNodeStore store;
  CDMXMLElement* root = build(store, {"a",
                                      {{"name", "outer"}, {"xmlns", "urn:a"}},
                                      {{"b",
                                        {{"name", "inner"}, {"xmlns:x", "urn:b"}},
                                        {{"c", {}, {{"d", {{"name", "leaf"}}}}}}}}});
  EXPECT_EQ(named(root, "leaf")->getNamespaceScope(), named(root, "inner"));
  EXPECT_EQ(named(root, "leaf")->getNamespaceScope(), named(root, "inner")) << "asked again";
  EXPECT_EQ(named(root, "leaf")->getParent()->getNamespaceScope(), named(root, "inner"));
}

TEST(NamespaceScope, IsNullWithoutADeclaration) {
  CDMXMLNodeStore store;
  CDMXMLElement* root = build(store, {"a", {{"xmlnsx", "1"}}, {{"b", {{"name", "leaf"}}}}});
  EXPECT_EQ(named(root, "leaf")->getNamespaceScope(), nullptr);
  EXPECT_EQ(root->getNamespaceScope(), nullptr);
}

}  // namespace
}  // namespace fdmorph
