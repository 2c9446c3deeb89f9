// The form of mapping files.

#include "mapping/form_rules.h"

#include <gtest/gtest.h>

#include "mapping_fixture.h"

namespace fdmorph::mapping {
namespace {

std::string formOf(std::string const& text) {
  MappingReading const reading = readMapping(text, "map.xml");
  EXPECT_FALSE(reading.fault);
  MappingFindings findings;
  checkForm(reading.document, readEntries(reading.document), findings);
  return withoutPlaces(findings);
}

TEST(FormRules, NothingIsWrongWithTheUsualForm) {
  EXPECT_EQ(formOf(mappingFile(entry("A", "a"))), "");
}

TEST(FormRules, UnknownRootMakesTheRestOfNoUse) {
  EXPECT_EQ(
      formOf("<mapping><typo/></mapping>"),
      "root : expected the root element 'xml-cobol-mapping-file', found 'mapping'; nothing is "
      "read\n");
}

TEST(FormRules, NamespaceIsThatOfTheSchema) {
  EXPECT_EQ(formOf("<xml-cobol-mapping-file/>"),
            "namespace : expected the namespace "
            "'http://www.tallmere.example/schema/xml/v1.0/dmxmlmap.xsd', found none; a schema "
            "does not apply\n");
}

TEST(FormRules, UnknownElementIsSuggestedAndSaysWhatItDiscards) {
  EXPECT_EQ(formOf(mappingFile(entry("A", "a") + entry("B", "b") + "<xml-cobol-maping/>" +
                               entry("C", "c") + "<x:xml-name xmlns:x='urn:x'/>" + "<other/>")),
            "element : unknown element 'xml-cobol-maping'; did you mean 'xml-cobol-mapping'?; it "
            "discards the 2 entries before it\n"
            "element : unknown element 'x:xml-name'; did you mean 'xml-name'?; it discards the "
            "entry before it\n"
            "element : unknown element 'other'\n");
}

TEST(FormRules, ElementsAtOtherPlacesAreErrors) {
  EXPECT_EQ(
      formOf(mappingFile("<xml-name/>" + entry("A", "a<xml-type/>") + "<xml-cobol-mapping-file/>")),
      "place : 'xml-name': value outside an entry is ignored\n"
      "place : 'xml-type': expected directly in 'xml-cobol-mapping'\n"
      "place : 'xml-cobol-mapping-file': expected as the root only\n"
      "repeated : 'xml-type': the last of several counts, not this one\n");
}

TEST(FormRules, WhatIsIgnoredIsTold) {
  EXPECT_EQ(formOf(mappingFile("text<xml-cobol-mapping id='1'><cobol-name>A<![CDATA[B]]>"
                               "</cobol-name></xml-cobol-mapping>")),
            "text : text between elements is ignored\n"
            "attributes : 'xml-cobol-mapping': attribute 'id' is ignored\n"
            "text : only the last piece of the text counts, without CDATA sections: 'A'\n");
}

}  // namespace
}  // namespace fdmorph::mapping
