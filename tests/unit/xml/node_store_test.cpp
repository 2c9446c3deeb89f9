// Copies of trees.

#include "xml/node_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/trees.h"

namespace fdmorph {
namespace {

using testing::ElementsAre;

class CopyTree : public testing::Test {
 protected:
  CDMXMLNodeStore store;
};

TEST_F(CopyTree, HasTheSameContentInTheSameOrder) {
  CDMXMLElement* top = buildDocument(
      store, {"r", {{"z", "1"}, {"a", "2"}}, {{"x", {{"name", "x"}}}, {"y", {{"name", "y"}}}}});
  top->getFirstChildElem()->value = "text";
  CDMXMLElement const* copy = store.copyTree(*top);
  ASSERT_EQ(copy->getChildElements().size(), 1U);
  CDMXMLElement const* root = copy->getFirstChildElem();
  EXPECT_EQ(root->name, "r");
  EXPECT_EQ(root->value, "text");
  ASSERT_EQ(root->getAttributes().size(), 2U);
  EXPECT_EQ(root->getAttributes()[0]->name, "z");
  EXPECT_EQ(root->getAttributes()[0]->value, "1");
  EXPECT_EQ(root->getAttributes()[1]->name, "a");
  EXPECT_THAT(namesOf(root->getChildElements()), ElementsAre("x", "y"));
}

TEST_F(CopyTree, SharesNoNodeWithItsOriginal) {
  CDMXMLElement* top = buildDocument(store, {"r", {{"name", "r"}}});
  CDMXMLElement* copy = store.copyTree(*top);
  CDMXMLElement* root = copy->getFirstChildElem();
  EXPECT_NE(root, top->getFirstChildElem());
  EXPECT_NE(root->getFirstAttr(), top->getFirstChildElem()->getFirstAttr());
  root->getFirstAttr()->value = "changed";
  EXPECT_EQ(top->getFirstChildElem()->getFirstAttr()->value, "r");
}

TEST_F(CopyTree, IsLinkedLikeItsOriginal) {
  CDMXMLElement* top = buildDocument(store, {"r", {}, {{"x", {}, {{"y"}}}, {"z"}}});
  CDMXMLElement* root = store.copyTree(*top)->getFirstChildElem();
  CDMXMLElement* x = root->getFirstChildElem();
  EXPECT_EQ(x->getParent(), root);
  ASSERT_NE(x->getNextSibling(), nullptr);
  EXPECT_EQ(x->getNextSibling()->name, "z");
  EXPECT_EQ(x->getNextSibling()->getPrevSibling(), x);
  ASSERT_NE(x->getFirstChildElem(), nullptr);
  EXPECT_EQ(x->getFirstChildElem()->getParent(), x);
}

TEST_F(CopyTree, SkipsAttributesOfOtherElements) {
  CDMXMLElement* owner = build(store, {"schema", {{"targetNamespace", "urn:a"}}});
  CDMXMLElement* top = buildDocument(store, {"r", {{"name", "r"}}});
  top->getFirstChildElem()->addAttribute(owner->getFirstAttr());
  CDMXMLElement const* root = store.copyTree(*top)->getFirstChildElem();
  EXPECT_NE(root->getAttribute("name"), nullptr);
  EXPECT_EQ(root->getAttribute("targetNamespace"), nullptr);
}

TEST_F(CopyTree, KeepsChildrenThatWereMovedElsewhere) {
  CDMXMLElement* top =
      buildDocument(store, {"r", {}, {{"x", {{"name", "x"}}}, {"y", {{"name", "y"}}}}});
  CDMXMLElement* elsewhere = store.newElement();
  elsewhere->addChildElement(named(top, "x"));
  CDMXMLElement* root = store.copyTree(*top)->getFirstChildElem();
  EXPECT_THAT(namesOf(root->getChildElements()), ElementsAre("x", "y"));
  EXPECT_EQ(root->getFirstChildElem()->getNextSibling(), named(root, "y"));
}

TEST_F(CopyTree, HasNeitherParentNorFormatter) {
  CDMXMLElement* top = buildDocument(store, {"r"});
  CDMXMLElement const* copy = store.copyTree(*top);
  EXPECT_EQ(copy->getParent(), nullptr);
  EXPECT_EQ(copy->getXMLFormatter(), nullptr);
}

}  // namespace
}  // namespace fdmorph
