// From a finished document to the tool's own tree.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "support/parser_fixture.h"
#include "text/console.h"
#include "xml/DMDOMFormatTarget.h"

namespace fdmorph {
namespace {

using testing::ElementsAre;
using testing::Pair;
using testing::UnorderedElementsAre;

class TreeBuilding : public ParserTest {
 protected:
  CDMXMLElement* top(std::string_view text) {
    EXPECT_TRUE(parseDocument(text)) << captured.err();
    return parser.getXMLDocument();
  }
  CDMXMLElement* root(std::string_view text) { return top(text)->getFirstChildElem(); }
};

std::vector<std::string> elementNames(CDMXMLElement const* parent) {
  std::vector<std::string> names;
  for (CDMXMLElement const* child : parent->getChildElements()) names.push_back(child->name);
  return names;
}

std::vector<std::pair<std::string, std::string>> attributesOf(CDMXMLElement const* element) {
  std::vector<std::pair<std::string, std::string>> attributes;
  for (CDMXMLAttribute const* each : element->getAttributes()) {
    EXPECT_EQ(each->getParent(), element);
    attributes.emplace_back(each->name, each->value);
  }
  return attributes;
}

TEST_F(TreeBuilding, TopNodeStandsForTheDocument) {
  CDMXMLElement* document = top("<a>text</a>");
  EXPECT_EQ(document->name, "");
  EXPECT_EQ(document->value, "");
  EXPECT_TRUE(document->getAttributes().empty());
  EXPECT_EQ(document->getParent(), nullptr);
  EXPECT_THAT(elementNames(document), ElementsAre("a"));
  EXPECT_EQ(document->getFirstChildElem()->getParent(), document);
}

TEST_F(TreeBuilding, CommentsBesideTheRootLeaveOneChild) {
  EXPECT_THAT(elementNames(top("<!-- one --><a/><!-- two -->")), ElementsAre("a"));
}

TEST_F(TreeBuilding, ProcessingInstructionsAndDocumentTypesAreDropped) {
  EXPECT_THAT(elementNames(top("<?xml version='1.0'?><?p x?><!DOCTYPE a><a/>")), ElementsAre("a"));
  EXPECT_EQ(captured.err(), "");
}

TEST_F(TreeBuilding, ChildrenStandInDocumentOrder) {
  CDMXMLElement* a = root("<a><b/><c><d/></c><b/></a>");
  EXPECT_THAT(elementNames(a), ElementsAre("b", "c", "b"));
  EXPECT_THAT(elementNames(a->getChildElements()[1]), ElementsAre("d"));
  EXPECT_EQ(a->getFirstChildElem()->getNextSibling()->name, "c");
}

TEST_F(TreeBuilding, NamesKeepTheirPrefixes) {
  EXPECT_EQ(root("<x:a xmlns:x='urn:x'/>")->name, "x:a");
}

TEST_F(TreeBuilding, NamespaceDeclarationsAreOrdinaryAttributes) {
  EXPECT_THAT(attributesOf(root("<a xmlns='urn:d' xmlns:x='urn:x' x:b='1' c='2'/>")),
              UnorderedElementsAre(Pair("xmlns", "urn:d"), Pair("xmlns:x", "urn:x"),
                                   Pair("x:b", "1"), Pair("c", "2")));
}

TEST_F(TreeBuilding, ElementWithoutAttributesHasNone) {
  EXPECT_EQ(root("<a/>")->getFirstAttr(), nullptr);
}

TEST_F(TreeBuilding, AttributeValuesAreExpanded) {
  EXPECT_THAT(attributesOf(root("<a b='&lt;&amp;&quot;&#65;'/>")), ElementsAre(Pair("b", "<&\"A")));
}

TEST_F(TreeBuilding, TextBecomesTheValueOfItsElement) {
  EXPECT_EQ(root("<a>one</a>")->value, "one");
  EXPECT_EQ(root("<a/>")->value, "");
}

TEST_F(TreeBuilding, LastOfSeveralTextsIsKept) {
  EXPECT_EQ(root("<a>one<b/>two<b/>three</a>")->value, "three");
  EXPECT_EQ(root("<a>one<b/></a>")->value, "one");
}

TEST_F(TreeBuilding, TextOfAPrettyPrintedElementIsTheWhiteSpaceAfterItsLastChild) {
  EXPECT_EQ(root("<a>one\n  <b/>\n</a>")->value, "\n");
}

TEST_F(TreeBuilding, CharacterDataSectionsAreDropped) {
  EXPECT_EQ(root("<a><![CDATA[text]]></a>")->value, "");
  EXPECT_EQ(root("<a>one<![CDATA[two]]></a>")->value, "one");
}

TEST_F(TreeBuilding, EntitiesAreExpandedIntoTheText) {
  EXPECT_EQ(root("<!DOCTYPE a [<!ENTITY e 'text'>]><a>&e;</a>")->value, "text");
}

TEST_F(TreeBuilding, IgnorableWhiteSpaceIsDropped) {
  constexpr std::string_view kDocument =
      "<!DOCTYPE a [<!ELEMENT a (b)><!ELEMENT b EMPTY>]><a>\n  <b/>\n</a>";
  ASSERT_TRUE(parseDocument(kDocument, true)) << captured.err();
  EXPECT_EQ(parser.getXMLDocument()->getFirstChildElem()->value, "");
}

TEST_F(TreeBuilding, MultibyteTextIsConvertedEverywhere) {
  CDMXMLElement* a = root("<gr\u00fc\u00dfe \u00e4='\u20ac'>\u4e2d\U0001F600</gr\u00fc\u00dfe>");
  EXPECT_EQ(a->name, "gr\u00fc\u00dfe");
  EXPECT_EQ(a->value, "\u4e2d\U0001F600");
  EXPECT_THAT(attributesOf(a), ElementsAre(Pair("\u00e4", "\u20ac")));
}

TEST_F(TreeBuilding, DeepDocumentIsCopiedWhole) {
  constexpr int kDepth = 1000;
  std::string text;
  for (int i = 0; i < kDepth; ++i) text += "<a>";
  for (int i = 0; i < kDepth; ++i) text += "</a>";
  int depth = 0;
  for (CDMXMLElement const* at = root(text); at != nullptr; at = at->getFirstChildElem()) ++depth;
  EXPECT_EQ(depth, kDepth);
}

TEST_F(TreeBuilding, AllNodesOfATreeHaveOneFormatter) {
  CDMXMLElement* document = top("<a><b/></a>");
  CDMXMLElement* a = document->getFirstChildElem();
  ASSERT_NE(document->getXMLFormatter(), nullptr);
  EXPECT_EQ(a->getXMLFormatter(), document->getXMLFormatter());
  EXPECT_EQ(a->getFirstChildElem()->getFormatTarget(), &document->getXMLFormatter()->target());
}

TEST_F(TreeBuilding, EachTreeHasAFormatterOfItsOwn) {
  CDMXMLElement* first = top("<a/>");
  CDMXMLElement* second = parser.getXMLDocument();
  EXPECT_NE(first->getXMLFormatter(), second->getXMLFormatter());
}

TEST_F(TreeBuilding, SecondCallBuildsASecondTree) {
  CDMXMLElement* first = top("<a><b/></a>");
  CDMXMLElement* second = parser.getXMLDocument();
  ASSERT_NE(second, nullptr);
  EXPECT_NE(first, second);
  EXPECT_THAT(elementNames(first->getFirstChildElem()), ElementsAre("b"));
  EXPECT_THAT(elementNames(second->getFirstChildElem()), ElementsAre("b"));
}

TEST_F(TreeBuilding, TreeOutlivesItsParser) {
  auto shortLived = std::make_unique<CDMDOMParser>(store);
  shortLived->ParseFile(folder.write("a.xml", "<a b='1'>text</a>"), Type::XML_DOCUMENT, false);
  CDMXMLElement* a = shortLived->getXMLDocument()->getFirstChildElem();
  shortLived.reset();
  EXPECT_EQ(a->name, "a");
  EXPECT_EQ(a->value, "text");
  EXPECT_THAT(attributesOf(a), ElementsAre(Pair("b", "1")));
  ASSERT_NE(a->getXMLFormatter(), nullptr);
  a->getXMLFormatter()->begin();
  writeElem(*a->getXMLFormatter(), a->name) << "/>\n";
  EXPECT_EQ(captured.out(), "<a/>\n");
}

TEST_F(TreeBuilding, TreeOutlivesTheReleasedDocument) {
  CDMXMLElement* a = root("<a b='1'>text</a>");
  parser.releaseDocument();
  EXPECT_EQ(a->value, "text");
  EXPECT_THAT(attributesOf(a), ElementsAre(Pair("b", "1")));
  EXPECT_EQ(parser.getXMLDocument(), nullptr);
  EXPECT_EQ(root("<b/>")->name, "b") << "the parser serves again";
}

TEST_F(TreeBuilding, ThereIsNoTreeBeforeAParse) {
  EXPECT_EQ(parser.getXMLDocument(), nullptr);
}

TEST_F(TreeBuilding, ThereIsNoTreeAfterAFailedParse) {
  top("<a/>");
  EXPECT_FALSE(parseDocument(kMalformedDocument));
  EXPECT_EQ(parser.getXMLDocument(), nullptr);
}

}  // namespace
}  // namespace fdmorph
