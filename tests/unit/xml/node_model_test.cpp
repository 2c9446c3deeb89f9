// Elements, attributes and the links between them.

#include <gtest/gtest.h>

#include "xml/DMXMLElement.h"

namespace fdmorph {
namespace {

TEST(Node, BeginsEmptyWithTheTypeOfItsClass) {
  CDMXMLElement element;
  CDMXMLAttribute attribute;
  EXPECT_EQ(static_cast<int>(element.nodeType), 1);
  EXPECT_EQ(static_cast<int>(attribute.nodeType), 2);
  EXPECT_EQ(element.name + element.value + attribute.name + attribute.value, "");
}

TEST(Element, BeginsWithoutLinks) {
  CDMXMLElement element;
  EXPECT_EQ(element.getParent(), nullptr);
  EXPECT_EQ(element.getPrevSibling(), nullptr);
  EXPECT_EQ(element.getNextSibling(), nullptr);
  EXPECT_EQ(element.getFirstAttr(), nullptr);
  EXPECT_EQ(element.getFirstChildElem(), nullptr);
}

TEST(Element, IsParentMeansThatItHasAParent) {
  CDMXMLElement parent;
  CDMXMLElement child;
  child.setParent(&parent);
  parent.addChildElement(&child);
  EXPECT_TRUE(child.isParent());
  EXPECT_FALSE(parent.isParent());
}

TEST(Element, ChildrenAreLinkedInTheOrderOfAddition) {
  CDMXMLElement parent;
  CDMXMLElement a;
  CDMXMLElement b;
  CDMXMLElement c;
  for (CDMXMLElement* child : {&a, &b, &c}) parent.addChildElement(child);
  EXPECT_EQ(parent.getChildElements(), (std::vector<CDMXMLElement*>{&a, &b, &c}));
  EXPECT_EQ(parent.getFirstChildElem(), &a);
  EXPECT_EQ(a.getPrevSibling(), nullptr);
  EXPECT_EQ(a.getNextSibling(), &b);
  EXPECT_EQ(b.getPrevSibling(), &a);
  EXPECT_EQ(b.getNextSibling(), &c);
  EXPECT_EQ(c.getPrevSibling(), &b);
  EXPECT_EQ(c.getNextSibling(), nullptr);
}

TEST(Element, AddingAChildLeavesItsParentToTheCaller) {
  CDMXMLElement parent;
  CDMXMLElement child;
  parent.addChildElement(&child);
  EXPECT_EQ(child.getParent(), nullptr);
}

TEST(Element, ChildFromAnotherElementBecomesTheLastOfItsNewChain) {
  CDMXMLElement former;
  CDMXMLElement moved;
  CDMXMLElement leftBehind;
  former.addChildElement(&moved);
  former.addChildElement(&leftBehind);
  CDMXMLElement parent;
  CDMXMLElement first;
  parent.addChildElement(&first);
  parent.addChildElement(&moved);
  EXPECT_EQ(first.getNextSibling(), &moved);
  EXPECT_EQ(moved.getPrevSibling(), &first);
  EXPECT_EQ(moved.getNextSibling(), nullptr);
}

TEST(Element, ChildFromAnotherElementCanBeTheOnlyOne) {
  CDMXMLElement former;
  CDMXMLElement before;
  CDMXMLElement moved;
  CDMXMLElement after;
  for (CDMXMLElement* child : {&before, &moved, &after}) former.addChildElement(child);
  CDMXMLElement parent;
  parent.addChildElement(&moved);
  EXPECT_EQ(moved.getPrevSibling(), nullptr);
  EXPECT_EQ(moved.getNextSibling(), nullptr);
}

TEST(Element, NeighboursAreThoseOfTheElementPassedIn) {
  CDMXMLElement parent;
  CDMXMLElement a;
  CDMXMLElement b;
  parent.addChildElement(&a);
  parent.addChildElement(&b);
  EXPECT_EQ(CDMXMLElement::getNextChildElem(&a), &b);
  EXPECT_EQ(CDMXMLElement::getPrevChildElem(&b), &a);
  EXPECT_EQ(CDMXMLElement::getPrevChildElem(&a), nullptr);
  EXPECT_EQ(CDMXMLElement::getNextChildElem(&b), nullptr);
}

TEST(Attributes, AreLinkedInTheOrderOfAddition) {
  CDMXMLElement element;
  CDMXMLAttribute a;
  CDMXMLAttribute b;
  element.addAttribute(&a);
  element.addAttribute(&b);
  EXPECT_EQ(element.getFirstAttr(), &a);
  EXPECT_EQ(CDMXMLElement::getNextAttr(&a), &b);
  EXPECT_EQ(CDMXMLElement::getPrevAttr(&b), &a);
  EXPECT_EQ(CDMXMLElement::getPrevAttr(&a), nullptr);
  EXPECT_EQ(CDMXMLElement::getNextAttr(&b), nullptr);
}

TEST(Attributes, ParentIsSetByTheCaller) {
  CDMXMLElement element;
  CDMXMLAttribute attribute;
  element.addAttribute(&attribute);
  EXPECT_EQ(attribute.getParent(), nullptr);
  attribute.setParent(&element);
  EXPECT_EQ(attribute.getParent(), &element);
}

TEST(Attributes, MayBeInTheListsOfSeveralElements) {
  CDMXMLElement one;
  CDMXMLElement two;
  CDMXMLAttribute shared;
  shared.name = "targetNamespace";
  one.addAttribute(&shared);
  two.addAttribute(&shared);
  EXPECT_EQ(one.getAttribute("targetNamespace"), &shared);
  EXPECT_EQ(two.getAttribute("targetNamespace"), &shared);
}

TEST(GetAttribute, ComparesTheWholeNameByteForByte) {
  CDMXMLElement element;
  CDMXMLAttribute prefixed;
  prefixed.name = "xsd:name";
  CDMXMLAttribute upper;
  upper.name = "NAME";
  element.addAttribute(&prefixed);
  element.addAttribute(&upper);
  EXPECT_EQ(element.getAttribute("name"), nullptr);
  EXPECT_EQ(element.getAttribute("xsd:name"), &prefixed);
  EXPECT_EQ(element.getAttribute("NAME"), &upper);
  EXPECT_EQ(element.getAttribute("NAM"), nullptr);
}

TEST(GetAttribute, FirstOfANameWins) {
  CDMXMLElement element;
  CDMXMLAttribute own;
  CDMXMLAttribute lent;
  own.name = lent.name = "targetNamespace";
  element.addAttribute(&own);
  element.addAttribute(&lent);
  EXPECT_EQ(element.getAttribute("targetNamespace"), &own);
}

TEST(Element, HasNeitherFormatterNorTargetWithoutATree) {
  CDMXMLElement element;
  EXPECT_EQ(element.getXMLFormatter(), nullptr);
  EXPECT_EQ(element.getFormatTarget(), nullptr);
}

}  // namespace
}  // namespace fdmorph
