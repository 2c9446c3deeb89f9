// Types and references that lead into a structure that is open already.

#include "cobol/recursion.h"

#include <gtest/gtest.h>

#include "cobol/record_builder.h"
#include "support/query_fixture.h"

namespace fdmorph {
namespace {

class Recursion : public QueryTest {
 protected:
  /// An item below `parent`, made from the element of this name.
  CDMCOBOLRecordItem* open(CDMCOBOLRecordItem* parent, CDMXMLElement* from,
                           CDMXMLElement* type = nullptr) {
    CDMCOBOLRecordItem* item = items.create();
    item->parent = parent;
    item->schemaElement = from;
    item->typeElement = type;
    return item;
  }

  CDMXMLElement* type(std::string_view name) { return document->complexTypes.findByName(name); }

  bool isRecursive(CDMCOBOLRecordItem const* item) { return isRecursivePattern(item, *components); }

  RecordStore items;
};

TEST_F(Recursion, NeedsAnItemMadeFromAnElement) {
  use(schema({element("e")}));
  EXPECT_FALSE(isRecursive(nullptr));
  EXPECT_FALSE(isRecursive(open(nullptr, nullptr)));
}

TEST_F(Recursion, TypeInsideItselfIsRecursive) {
  use(schema(
      {element("head", {{"type", "T"}}), sequenceType({element("c", {{"type", "T"}})}, "T")}));
  CDMCOBOLRecordItem* head = open(nullptr, at("head"), type("T"));
  EXPECT_TRUE(isRecursive(open(head, at("c"))));
}

TEST_F(Recursion, FirstUseOfATypeIsNotRecursive) {
  use(schema({element("head", {{"type", "T"}}), component("complexType", "T")}));
  EXPECT_FALSE(isRecursive(open(nullptr, at("head"))));
}

TEST_F(Recursion, ItemItselfIsNotCompared) {
  use(schema({element("head", {{"type", "T"}}), component("complexType", "T")}));
  EXPECT_FALSE(isRecursive(open(nullptr, at("head"), type("T"))));
}

TEST_F(Recursion, LengthOfTheCircleDoesNotMatter) {
  use(schema({element("head", {{"type", "T"}}), sequenceType({element("u", {{"type", "U"}})}, "T"),
              sequenceType({element("v", {{"type", "V"}})}, "U"),
              sequenceType({element("t", {{"type", "T"}})}, "V")}));
  CDMCOBOLRecordItem* head = open(nullptr, at("head"), type("T"));
  CDMCOBOLRecordItem* u = open(head, at("u"), type("U"));
  EXPECT_FALSE(isRecursive(u));
  CDMCOBOLRecordItem* v = open(u, at("v"), type("V"));
  EXPECT_FALSE(isRecursive(v));
  EXPECT_TRUE(isRecursive(open(v, at("t"))));
}

TEST_F(Recursion, OtherTypeOfTheSameNameIsNotRecursive) {
  use(schema({element("head", {{"type", "T"}}), component("complexType", "T"),
              component("complexType", "T"), element("c", {{"type", "T"}})}));
  CDMXMLElement* second = type("T")->getNextSibling();
  ASSERT_EQ(second->getAttribute("name")->value, "T");
  CDMCOBOLRecordItem* head = open(nullptr, at("head"), second);
  EXPECT_FALSE(isRecursive(open(head, at("c"))));
}

TEST_F(Recursion, OnlyComplexTypesCanBeRecursive) {
  use(schema({element("head", {{"type", "S"}}), component("simpleType", "S"),
              element("builtin", {{"type", "xs:string"}}), element("unknown", {{"type", "N"}})}));
  CDMCOBOLRecordItem* head = open(nullptr, at("head"), at("S"));
  EXPECT_FALSE(isRecursive(open(head, at("head"))));
  EXPECT_FALSE(isRecursive(open(head, at("builtin"))));
  EXPECT_FALSE(isRecursive(open(head, at("unknown"))));
}

TEST_F(Recursion, ElementThatRefersToItselfIsRecursive) {
  use(schema({element("a", {}, {sequenceType({reference("a")})})}));
  CDMCOBOLRecordItem* a = open(nullptr, at("a"));
  CDMXMLElement* ref = at("a")->getFirstChildElem()->getFirstChildElem()->getFirstChildElem();
  ASSERT_NE(ref->getAttribute("ref"), nullptr);
  EXPECT_TRUE(isRecursive(open(a, ref)));
  EXPECT_TRUE(isRecursive(open(open(a, nullptr), ref)));
}

TEST_F(Recursion, ReferenceIsComparedWithElementsNotWithTypes) {
  use(schema({element("a"), reference("a"), element("b")}));
  CDMXMLElement* ref = at("a")->getNextSibling();
  EXPECT_FALSE(isRecursive(open(open(nullptr, at("b"), at("a")), ref)));
  EXPECT_TRUE(isRecursive(open(open(nullptr, at("a")), ref)));
}

TEST_F(Recursion, TypeIsComparedWithTypesNotWithElements) {
  use(schema({component("complexType", "T"), element("c", {{"type", "T"}})}));
  EXPECT_FALSE(isRecursive(open(open(nullptr, type("T")), at("c"))));
}

TEST_F(Recursion, ReferenceTakesPrecedenceOverAType) {
  use(schema({element("a"), component("complexType", "T"),
              element("both", {{"ref", "a"}, {"type", "T"}})}));
  EXPECT_FALSE(isRecursive(open(open(nullptr, nullptr, type("T")), at("both"))));
  EXPECT_TRUE(isRecursive(open(open(nullptr, at("a")), at("both"))));
}

TEST_F(Recursion, MissingReferenceIsNotRecursive) {
  use(schema({reference("missing"), element("a")}));
  CDMXMLElement* ref = document->rootElement->getFirstChildElem();
  EXPECT_FALSE(isRecursive(open(open(nullptr, at("a")), ref)));
}

// The faster test gives the same answer once the record has seen the target.
TEST_F(Recursion, WithinAWalkOnlyWhatWasSeenCanBeOpen) {
  use(schema(
      {element("head", {{"type", "T"}}), sequenceType({element("c", {{"type", "T"}})}, "T")}));
  CDMCOBOLRecordItem* c = open(open(nullptr, at("head"), type("T")), at("c"));
  OpenDefinitions definitions;
  EXPECT_FALSE(definitions.wouldContainItself(c, *components));
  definitions.note(type("T"));
  EXPECT_TRUE(definitions.wouldContainItself(c, *components));
  EXPECT_FALSE(definitions.wouldContainItself(c->parent, *components));
}

TEST_F(Recursion, ElementWithoutTypeAndReferenceIsNotRecursive) {
  use(schema({element("a"), element("b")}));
  EXPECT_FALSE(isRecursive(open(open(nullptr, at("b")), at("b"))));
}

}  // namespace
}  // namespace fdmorph
