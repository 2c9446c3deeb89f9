// Schemas of several namespaces.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/schema_source.h"

namespace fdmorph::docschema {
namespace {

using testing::HasSubstr;

constexpr char kHead[] = R"(<?xml version="1.0" encoding="UTF-8"?>)"
                         R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema")";

// The content of the element of an item of no bytes.
std::string empty(std::string const& head) {
  return "<xs:element " + head + "><xs:complexType/></xs:element>";
}

TEST(OneNamespace, IsThatOfTheFile) {
  std::vector<SchemaFile> const files = schemaFiles(
      "01 R IDENTIFIED BY \"r\" NAMESPACE IS \"urn:r\".\n05 A IDENTIFIED BY \"a\".\n"
      "05 B IDENTIFIED BY \"b\" NAMESPACE IS \"\".\n");
  ASSERT_EQ(files.size(), 1);
  EXPECT_EQ(files[0].text, std::string(kHead) +
                               " xmlns:n1=\"urn:r\" targetNamespace=\"urn:r\" "
                               "elementFormDefault=\"qualified\"><xs:element name=\"r\">"
                               "<xs:complexType><xs:sequence>" +
                               empty("name=\"a\"") + empty("name=\"b\" form=\"unqualified\"") +
                               "</xs:sequence></xs:complexType></xs:element></xs:schema>");
}

TEST(AnotherNamespace, HasAFileWithAGroup) {
  std::vector<SchemaFile> const files = schemaFiles(
      "01 R IDENTIFIED BY \"r\".\n05 A OCCURS 2 IDENTIFIED BY \"a\" NAMESPACE IS \"urn:a\".\n"
      "10 B IDENTIFIED BY \"b\" NAMESPACE IS \"\".\n10 C IDENTIFIED BY \"c\".\n");
  ASSERT_EQ(files.size(), 2);
  EXPECT_EQ(files[0].name, "schema.xsd");
  EXPECT_EQ(files[0].text,
            std::string(kHead) +
                " xmlns:n1=\"urn:a\"><xs:import namespace=\"urn:a\" "
                "schemaLocation=\"schema-1.xsd\"/><xs:element name=\"r\"><xs:complexType>"
                "<xs:sequence><xs:group ref=\"n1:a\"/></xs:sequence></xs:complexType>"
                "</xs:element></xs:schema>");
  EXPECT_EQ(files[1].name, "schema-1.xsd");
  EXPECT_EQ(files[1].text,
            std::string(kHead) +
                " xmlns:n1=\"urn:a\" targetNamespace=\"urn:a\" "
                "elementFormDefault=\"qualified\"><xs:group name=\"a\"><xs:sequence>"
                "<xs:element name=\"a\" minOccurs=\"2\" maxOccurs=\"2\"><xs:complexType>"
                "<xs:sequence>" +
                empty("name=\"b\" form=\"unqualified\"") + empty("name=\"c\"") +
                "</xs:sequence></xs:complexType></xs:element></xs:sequence></xs:group>"
                "</xs:schema>");
}

TEST(ElementsOfOneName, MayHaveAnotherTypeAtEachPlace) {
  std::vector<SchemaFile> const files = schemaFiles(
      "01 R IDENTIFIED BY \"r\".\n"
      "05 G IDENTIFIED BY \"g\".\n10 A PIC X IDENTIFIED BY \"a\" NAMESPACE IS \"urn:a\".\n"
      "05 H IDENTIFIED BY \"h\".\n10 A PIC 9 IDENTIFIED BY \"a\" NAMESPACE IS \"urn:a\".\n");
  ASSERT_EQ(files.size(), 2);
  EXPECT_THAT(files[0].text, HasSubstr("<xs:group ref=\"n1:a\"/>"));
  EXPECT_THAT(files[0].text, HasSubstr("<xs:group ref=\"n1:a-2\"/>"));
}

TEST(Attributes, OfANamespaceAreQualified) {
  std::string const attribute =
      "<xs:attribute name=\"a\" use=\"required\" form=\"qualified\"><xs:simpleType>"
      "<xs:restriction base=\"xs:string\"><xs:maxLength value=\"1\"/></xs:restriction>"
      "</xs:simpleType></xs:attribute>";
  std::vector<SchemaFile> files = schemaFiles(
      "01 R IDENTIFIED BY \"r\" NAMESPACE IS \"urn:r\".\n"
      "05 A PIC X IDENTIFIED BY \"a\" IS ATTRIBUTE NAMESPACE IS \"urn:r\".\n");
  ASSERT_EQ(files.size(), 1);
  EXPECT_THAT(files[0].text, HasSubstr("<xs:complexType>" + attribute + "</xs:complexType>"));
  files = schemaFiles(
      "01 R IDENTIFIED BY \"r\".\n"
      "05 A PIC X IDENTIFIED BY \"a\" IS ATTRIBUTE NAMESPACE IS \"urn:a\".\n");
  ASSERT_EQ(files.size(), 2);
  EXPECT_THAT(files[0].text, HasSubstr("<xs:attributeGroup ref=\"n1:r\"/>"));
  EXPECT_THAT(files[1].text,
              HasSubstr("<xs:attributeGroup name=\"r\">" + attribute + "</xs:attributeGroup>"));
}

TEST(TheWrapper, IsInNoNamespace) {
  SchemaRules rules;
  rules.wrapper = "records";
  std::vector<SchemaFile> const files =
      schemaFiles("01 R IDENTIFIED BY \"r\" NAMESPACE IS \"urn:r\".\n", rules);
  ASSERT_EQ(files.size(), 2);
  EXPECT_EQ(files[0].text,
            std::string(kHead) +
                " xmlns:n1=\"urn:r\"><xs:import namespace=\"urn:r\" "
                "schemaLocation=\"schema-1.xsd\"/><xs:element name=\"records\">"
                "<xs:complexType><xs:sequence><xs:element ref=\"n1:r\" minOccurs=\"0\" "
                "maxOccurs=\"unbounded\"/></xs:sequence></xs:complexType></xs:element>"
                "</xs:schema>");
}

// The prefix xml belongs to its namespace; no other prefix may have it.
TEST(TheNamespaceOfXml, HasItsOwnPrefix) {
  std::vector<SchemaFile> const files = schemaFiles(
      "01 R IDENTIFIED BY \"r\".\n05 A PIC X IDENTIFIED BY \"lang\" IS ATTRIBUTE "
      "NAMESPACE IS \"http://www.w3.org/XML/1998/namespace\".\n");
  ASSERT_EQ(files.size(), 2);
  EXPECT_THAT(
      files[0].text,
      HasSubstr("XMLSchema\"><xs:import namespace=\"http://www.w3.org/XML/1998/namespace\""));
  EXPECT_THAT(files[0].text, HasSubstr("ref=\"xml:r\""));
}

}  // namespace
}  // namespace fdmorph::docschema
