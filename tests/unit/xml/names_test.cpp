// Splitting names at their first colon.

#include <gtest/gtest.h>

#include "xml/DMXMLElement.h"

namespace fdmorph {
namespace {

TEST(NonQualifiedName, IsWhatFollowsTheFirstColon) {
  EXPECT_EQ(CDMXMLNode::getNonQualifiedName("xs:element"), "element");
  EXPECT_EQ(CDMXMLNode::getNonQualifiedName("a:b:c"), "b:c");
  EXPECT_EQ(CDMXMLNode::getNonQualifiedName(":x"), "x");
  EXPECT_EQ(CDMXMLNode::getNonQualifiedName("x:"), "");
}

TEST(NonQualifiedName, WithoutAColonIsTheWholeName) {
  EXPECT_EQ(CDMXMLNode::getNonQualifiedName("element"), "element");
  EXPECT_EQ(CDMXMLNode::getNonQualifiedName(""), "");
}

TEST(NameQualifier, IsWhatPrecedesTheFirstColon) {
  EXPECT_EQ(CDMXMLNode::getNameQualifier("xs:element"), "xs");
  EXPECT_EQ(CDMXMLNode::getNameQualifier("a:b:c"), "a");
}

TEST(NameQualifier, IsEmptyWithoutAColonOrWithOneInFirstPlace) {
  EXPECT_EQ(CDMXMLNode::getNameQualifier("x"), "");
  EXPECT_EQ(CDMXMLNode::getNameQualifier(":x"), "");
  EXPECT_EQ(CDMXMLNode::getNameQualifier(""), "");
}

TEST(Names, AreNeverSplitInsideACharacter) {
  EXPECT_EQ(CDMXMLNode::getNameQualifier("\u00fc:\u4e2d"), "\u00fc");
  EXPECT_EQ(CDMXMLNode::getNonQualifiedName("\u00fc:\u4e2d"), "\u4e2d");
  EXPECT_EQ(CDMXMLNode::getNonQualifiedName("\u4e2d\u6587"), "\u4e2d\u6587");
}

}  // namespace
}  // namespace fdmorph
