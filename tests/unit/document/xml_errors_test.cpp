#include <gtest/gtest.h>

#include "support/document_fixture.h"

namespace fdmorph::document {
namespace {

TEST(XmlErrors, EndTheRun) {
  DocumentFixture fixture("A B");
  EXPECT_EQ(fixture.readXml("<l>\n<A/>\n<A><B></A><A/></l>"), "1 A\n2 [3:9 xml mismatched tag]\n");
  EXPECT_EQ(fixture.readXml("<l><A>&u;</A><A/></l>"), "1 [1:7 xml undefined entity]\n");
  EXPECT_EQ(fixture.readXml("<l><A b='' b=''/></l>"), "1 [1:12 xml duplicate attribute]\n");
  EXPECT_EQ(fixture.readXml("<l><A/>\n</l><A/>"), "1 A\n2 [2:5 xml junk after document element]\n");
  EXPECT_EQ(fixture.readXml("<l><A/><A>\x01</A></l>"),
            "1 A\n2 [1:11 xml not well-formed (invalid token)]\n");
  EXPECT_EQ(fixture.readXml("<l><A/><A>&#0;</A></l>"),
            "1 A\n2 [1:11 xml reference to invalid character number]\n");
  EXPECT_EQ(fixture.readXml("<l><A/><A>\xFF</A></l>"),
            "1 A\n2 [1:11 xml not well-formed (invalid token)]\n");
  EXPECT_EQ(fixture.readXml("<l><A/>\n<A>"), "1 A\n2 [2:4 xml an element is not closed]\n");
  EXPECT_EQ(fixture.readXml("x"), "1 [1:1 xml syntax error]\n");
}

TEST(XmlErrors, AreDocumentTypeDeclarations) {
  DocumentFixture fixture("A");
  EXPECT_EQ(fixture.readXml("<?xml version='1.0'?>\n <!DOCTYPE A>\n<A/>"),
            "1 [2:2 xml document type declaration]\n");
  EXPECT_EQ(fixture.readXml("<!-- c --><!DOCTYPE A [<!ENTITY e 'x'>]><A>&e;</A>"),
            "1 [1:11 xml document type declaration]\n");
  EXPECT_EQ(fixture.readXml("<A/><!DOCTYPE A>"),
            "1 A\n2 [1:7 xml not well-formed (invalid token)]\n");
}

TEST(XmlErrors, AreDeclarationsBetweenRecords) {
  DocumentFixture fixture("A");
  EXPECT_EQ(fixture.readXml("<A/>\n<?xml version='1.0'?>\n<A/>"),
            "1 A\n2 [2:1 xml XML or text declaration not at start of entity]\n");
}

TEST(XmlErrors, AreTextsBetweenRecords) {
  DocumentFixture fixture("A");
  EXPECT_EQ(fixture.readXml("<A/>\nx<A/>"), "1 A\n2 [2:1 xml text outside of a record]\n");
  EXPECT_EQ(fixture.readXml("<A/><![CDATA[ ]]>"), "1 A\n2 [1:5 xml text outside of a record]\n");
  EXPECT_EQ(fixture.readXml("<A/></A>"), "1 A\n2 [1:7 xml mismatched tag]\n");
}

TEST(XmlErrors, AreTooManyElementsInOneAnother) {
  DocumentFixture fixture("A");
  fixture.options.limits.depth = 3;
  EXPECT_EQ(fixture.readXml("<A><b><c/></b></A>"), "1 A(?b(?c))\n");
  EXPECT_EQ(fixture.readXml("<A><b><c><d/></c></b></A>"),
            "1 [1:10 xml more than 3 elements in one another]\n");
  EXPECT_EQ(fixture.readXml("<A/><A><b><c><d/></c></b></A>"),
            "1 A\n2 [1:14 xml more than 3 elements in one another]\n");
}

TEST(XmlErrors, AreNestedWithoutEnd) {
  DocumentFixture fixture("A");
  std::string text;
  for (int i = 0; i < 100'000; ++i) text += "<A>";
  EXPECT_EQ(fixture.readXml(text), "1 [1:3001 xml more than 1000 elements in one another]\n");
}

TEST(XmlErrors, AreTooManyParts) {
  DocumentFixture fixture("A b c");
  fixture.options.limits.parts = 3;
  EXPECT_EQ(fixture.readXml("<l><A><b/><b/></A><A><b/><b/></A></l>"), "1 A(b,b)\n2 A(b,b)\n");
  EXPECT_EQ(fixture.readXml("<A><b/><b/><b/></A>"), "1 [1:12 xml a record of more than 3 parts]\n");
  fixture.options.limits.attributes = 1;
  EXPECT_EQ(fixture.readXml("<A b='' c=''/>"), "1 [1:1 xml more than 1 attributes]\n");
}

TEST(XmlErrors, AreTooManyBytes) {
  DocumentFixture fixture("A");
  fixture.blockSize = 10;
  fixture.options.limits.recordBytes = 1000;
  std::string text(2000, 'x');
  EXPECT_EQ(fixture.readXml("<l>\n<A>" + text + "</A></l>"),
            "1 [2:1 xml a record of more than 1000 bytes]\n");
  fixture.options.limits.markupBytes = 500;
  EXPECT_EQ(fixture.readXml("<l>\n<!--" + text + "--></l>"),
            "1 [2:1 xml a tag, comment or processing instruction of more than 500 bytes]\n");
}

TEST(XmlErrors, AreTooManyNames) {
  DocumentFixture fixture("A");
  fixture.options.limits.names = 100;
  fixture.options.ignoresUnknown = true;
  std::string text = "<l>";
  for (int i = 0; i < 200; ++i) text += "<u" + std::to_string(i) + "/>";
  std::string result = fixture.readXml(text + "</l>");
  EXPECT_NE(result.find("xml too many different names"), std::string::npos) << result;
  text = "<l>";
  for (int i = 0; i < 200; ++i) text += "<u xmlns:p" + std::to_string(i) + "='x'/>";
  result = fixture.readXml(text + "</l>");
  EXPECT_NE(result.find("xml too many different names"), std::string::npos) << result;
}

// The place of what comes after a comment of many lines.
TEST(XmlErrors, HavePlacesAfterLongComments) {
  DocumentFixture fixture("A");
  std::string text = "<l><!--" + std::string(200'000, '\n') + "--> <A/><x";
  EXPECT_EQ(fixture.readXml(text), "1 A\n2 [200001:9 xml unclosed token]\n");
}

}  // namespace
}  // namespace fdmorph::document
