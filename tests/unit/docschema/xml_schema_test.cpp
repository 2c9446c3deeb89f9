// The structure of a schema in one namespace.
#include "docschema/xml_schema.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/schema_source.h"

namespace fdmorph::docschema {
namespace {

using testing::HasSubstr;
using testing::Not;

std::string const kX =
    "<xs:simpleType><xs:restriction base=\"xs:string\"><xs:maxLength value=\"1\"/>"
    "</xs:restriction></xs:simpleType>";
std::string const kNine =
    "<xs:simpleType><xs:restriction base=\"xs:decimal\"><xs:totalDigits value=\"1\"/>"
    "<xs:fractionDigits value=\"0\"/><xs:minInclusive value=\"0\"/></xs:restriction>"
    "</xs:simpleType>";
std::string const kNone =
    "<xs:simpleType><xs:restriction base=\"xs:string\"><xs:length value=\"0\"/>"
    "</xs:restriction></xs:simpleType>";

// An element of PIC X.
std::string x(std::string const& name, std::string const& attributes = "") {
  return "<xs:element name=\"" + name + "\"" + attributes + ">" + kX + "</xs:element>";
}

std::string attribute(std::string const& name, std::string const& use = " use=\"required\"") {
  return "<xs:attribute name=\"" + name + "\"" + use + ">" + kX + "</xs:attribute>";
}

std::string sequence(std::string const& content) {
  return "<xs:sequence>" + content + "</xs:sequence>";
}

std::string unionOf(std::string const& members) {
  return "<xs:simpleType><xs:union>" + members + "</xs:union></xs:simpleType>";
}

// The items of an enhanced record.
std::string enhanced(std::string const& items) {
  return "01 R IDENTIFIED BY \"r\".\n" + items;
}

TEST(Schema, HasAGlobalElementForTheRecordAndTheWrapper) {
  SchemaRules rules;
  EXPECT_EQ(schemaOf("01 R PIC X.\n", rules), x("R"));
  rules.wrapper = "all";
  EXPECT_EQ(schemaOf("01 R PIC X.\n", rules),
            x("R") +
                "<xs:element name=\"all\"><xs:complexType><xs:sequence><xs:element ref=\"R\" "
                "minOccurs=\"0\" maxOccurs=\"unbounded\"/></xs:sequence></xs:complexType>"
                "</xs:element>");
}

// A document is the wrapper; the record is in it.
TEST(Schema, TakesAWrapperOfTheRecordsName) {
  SchemaRules rules;
  rules.wrapper = "R";
  EXPECT_EQ(schemaOf("01 R PIC X.\n", rules),
            "<xs:element name=\"R\"><xs:complexType><xs:sequence>" +
                x("R", " minOccurs=\"0\" maxOccurs=\"unbounded\"") +
                "</xs:sequence></xs:complexType></xs:element>");
}

TEST(Groups, AreNestedTypes) {
  EXPECT_EQ(contentOf("01 R.\n05 G.\n10 A PIC X.\n05 FILLER PIC X.\n05 B PIC X.\n"),
            sequence("<xs:element name=\"G\"><xs:complexType>" + sequence(x("A")) +
                     "</xs:complexType></xs:element>" + x("B")));
}

TEST(Groups, WithoutANameAreNotThere) {
  EXPECT_EQ(contentOf("01 R.\n05 FILLER.\n10 A PIC X.\n"), sequence(x("A")));
}

TEST(Tables, HaveTheirNumbersOfOccurrences) {
  EXPECT_EQ(contentOf("01 R.\n05 A PIC X OCCURS 3.\n"),
            sequence(x("A", " minOccurs=\"3\" maxOccurs=\"3\"")));
  EXPECT_EQ(contentOf("01 R.\n05 N PIC 9.\n05 A PIC X OCCURS 2 TO 5 DEPENDING ON N.\n"),
            sequence("<xs:element name=\"N\">" + kNine + "</xs:element>" +
                     x("A", " minOccurs=\"2\" maxOccurs=\"5\"")));
}

TEST(Attributes, FollowTheContent) {
  EXPECT_EQ(contentOf(enhanced("05 A PIC X IDENTIFIED BY \"a\" IS ATTRIBUTE.\n"
                               "05 B PIC X IDENTIFIED BY \"b\".\n")),
            sequence(x("b")) + attribute("a"));
}

TEST(Attributes, OfATextExtendItsType) {
  EXPECT_EQ(schemaOf(enhanced("05 A PIC X IDENTIFIED BY \"a\" IS ATTRIBUTE.\n05 V PIC X.\n")),
            "<xs:element name=\"r\"><xs:complexType><xs:simpleContent><xs:extension base=\"r\">" +
                attribute("a") +
                "</xs:extension></xs:simpleContent></xs:complexType></xs:element>"
                "<xs:simpleType name=\"r\"><xs:restriction base=\"xs:string\">"
                "<xs:maxLength value=\"1\"/></xs:restriction></xs:simpleType>");
}

TEST(Attributes, OfGroupsHaveTheTextInThem) {
  EXPECT_EQ(contentOf(enhanced("05 A IDENTIFIED BY \"a\" IS ATTRIBUTE.\n10 V PIC X.\n")),
            attribute("a"));
}

TEST(Texts, OfSeveralViewsAreUnions) {
  std::string const items = "05 E IDENTIFIED BY \"e\".\n10 V PIC X.\n10 W REDEFINES V PIC 9.\n";
  EXPECT_EQ(contentOf(enhanced(items), {}, {"V", "W"}),
            sequence("<xs:element name=\"e\">" + unionOf(kX + kNine) + "</xs:element>"));
  EXPECT_EQ(contentOf(enhanced(items)), sequence(x("e")));
}

TEST(Views, AreTheFirstWithARoleWithoutRules) {
  EXPECT_EQ(contentOf("01 R.\n05 A PIC X.\n05 B REDEFINES A PIC X.\n"), sequence(x("A")));
  EXPECT_EQ(contentOf("01 R.\n05 A.\n10 FILLER PIC X.\n05 B REDEFINES A PIC X.\n05 C PIC X.\n"),
            sequence("<xs:element name=\"A\"><xs:complexType/></xs:element>" + x("C")));
  EXPECT_EQ(contentOf("01 R.\n05 F.\n10 A PIC X.\n05 FILLER REDEFINES F.\n10 B PIC X.\n"),
            sequence("<xs:element name=\"F\"><xs:complexType>" + sequence(x("A")) +
                     "</xs:complexType></xs:element>"));
}

TEST(Views, AreAChoiceOfThoseWithRules) {
  std::string const record =
      "01 R.\n05 A PIC X.\n05 B REDEFINES A PIC X.\n05 C REDEFINES A PIC X.\n";
  EXPECT_EQ(contentOf(record, {}, {"B", "C"}),
            sequence("<xs:choice>" + x("B") + x("C") + "</xs:choice>"));
  EXPECT_EQ(contentOf(record, {}, {"B"}), sequence("<xs:choice>" + x("B") + "</xs:choice>"));
}

TEST(Views, ThatBeginWithTheSameNameAreOneSequence) {
  EXPECT_EQ(contentOf(enhanced("05 G.\n10 A PIC X IDENTIFIED BY \"a\".\n"
                               "10 B PIC X IDENTIFIED BY \"b\".\n"
                               "05 H REDEFINES G.\n10 C PIC 9 IDENTIFIED BY \"a\".\n"
                               "10 D PIC X IDENTIFIED BY \"d\".\n"),
                      {}, {"G", "H"}),
            sequence("<xs:sequence><!-- views that begin with the same name: each part may be "
                     "left out --><xs:element name=\"a\" minOccurs=\"0\">" +
                     unionOf(kX + kNine) + "</xs:element>" + x("b", " minOccurs=\"0\"") +
                     x("d", " minOccurs=\"0\"") + "</xs:sequence>"));
}

TEST(Views, MayHaveAttributesThatOthersLack) {
  EXPECT_EQ(contentOf(enhanced("05 A PIC X IDENTIFIED BY \"a\" IS ATTRIBUTE.\n"
                               "05 B REDEFINES A PIC X IDENTIFIED BY \"b\" IS ATTRIBUTE.\n"),
                      {}, {"A", "B"}),
            attribute("a", "") + attribute("b", ""));
}

TEST(Slots, OfDifferentItemsShareOneType) {
  EXPECT_EQ(schemaOf(enhanced("05 A PIC X IDENTIFIED BY \"s\".\n05 B PIC X IDENTIFIED BY \"b\".\n"
                              "05 C PIC 9 IDENTIFIED BY \"s\".\n")),
            "<xs:element name=\"r\"><xs:complexType><xs:sequence>"
            "<xs:element name=\"s\" type=\"s\"/>" +
                x("b") +
                "<xs:element name=\"s\" type=\"s\"/>"
                "</xs:sequence></xs:complexType></xs:element><xs:simpleType name=\"s\"><xs:union>" +
                kX + kNine + "</xs:union></xs:simpleType>");
}

TEST(Slots, ThatFollowOneAnotherAreOneElement) {
  EXPECT_EQ(contentOf(enhanced("05 N PIC 9.\n05 A PIC X IDENTIFIED BY \"s\".\n"
                               "05 B PIC X OCCURS 2 IDENTIFIED BY \"s\".\n"
                               "05 C PIC X OCCURS 0 TO 3 DEPENDING ON N IDENTIFIED BY \"s\".\n")),
            sequence(x("s", " minOccurs=\"3\" maxOccurs=\"6\"")));
}

// Xerces-C counts wrongly where two parts of a content model repeat under one name.
TEST(Slots, ThatRepeatAreWrittenOut) {
  std::string const part = "<xs:element name=\"s\" type=\"s\"/>";
  EXPECT_THAT(
      schemaOf(enhanced("05 N PIC 9 IDENTIFIED BY \"n\".\n"
                        "05 A PIC X OCCURS 2 IDENTIFIED BY \"s\".\n"
                        "05 B PIC X IDENTIFIED BY \"b\".\n05 C PIC X OCCURS 1 TO 3 "
                        "DEPENDING ON N IDENTIFIED BY \"s\".\n")),
      HasSubstr("<xs:sequence>" + part + part + "</xs:sequence>" + x("b") + "<xs:sequence>" + part +
                "<!-- at most 3 in all --><xs:element name=\"s\" type=\"s\" "
                "minOccurs=\"0\" maxOccurs=\"unbounded\"/></xs:sequence>"));
}

TEST(Slots, OfGroupsHaveTheContentOfBoth) {
  EXPECT_EQ(contentOf(enhanced("05 A IDENTIFIED BY \"s\".\n10 B PIC X IDENTIFIED BY \"b\".\n"
                               "05 C IDENTIFIED BY \"s\".\n10 D PIC X IDENTIFIED BY \"d\".\n")),
            sequence("<xs:element name=\"s\" minOccurs=\"2\" maxOccurs=\"2\"><xs:complexType>" +
                     sequence("<xs:choice>" + x("b") + x("d") + "</xs:choice>") +
                     "</xs:complexType></xs:element>"));
}

TEST(Slots, OfATextAndAGroupAreMixed) {
  EXPECT_THAT(schemaOf(enhanced("05 A PIC 9 IDENTIFIED BY \"s\".\n05 C IDENTIFIED BY \"s\".\n"
                                "10 D PIC X IDENTIFIED BY \"d\".\n")),
              HasSubstr("<xs:complexType mixed=\"true\"><xs:sequence minOccurs=\"0\">"
                        "<xs:choice minOccurs=\"0\">"));
}

TEST(Counts, MayLeaveOutTheirParts) {
  SchemaRules rules;
  rules.hasCounts = true;
  std::string const record = enhanced(
      "05 A PIC X IDENTIFIED BY \"a\" COUNT IN A-C.\n05 B PIC X OCCURS 2 IDENTIFIED BY \"b\" "
      "COUNT IN B-C.\n05 C PIC X IDENTIFIED BY \"c\".\n"
      "05 D PIC X IDENTIFIED BY \"d\" IS ATTRIBUTE COUNT IN D-C.\n");
  EXPECT_EQ(
      contentOf(record, rules),
      sequence(x("a", " minOccurs=\"0\"") + x("b", " minOccurs=\"0\" maxOccurs=\"2\"") + x("c")) +
          attribute("d", ""));
  EXPECT_EQ(
      contentOf(record),
      sequence(x("a") + x("b", " minOccurs=\"2\" maxOccurs=\"2\"") + x("c")) + attribute("d"));
}

TEST(EmptyParts, MayBeLeftOut) {
  SchemaRules rules;
  rules.omitsEmpty = true;
  EXPECT_EQ(contentOf("01 R.\n05 A PIC X.\n05 B PIC X OCCURS 2.\n05 N PIC 9.\n"
                      "05 T PIC X OCCURS 1 TO 3 DEPENDING ON N.\n",
                      rules),
            sequence(x("A", " minOccurs=\"0\"") + x("B", " minOccurs=\"0\" maxOccurs=\"2\"") +
                     "<xs:element name=\"N\" minOccurs=\"0\">" + kNine + "</xs:element>" +
                     x("T", " maxOccurs=\"3\"")));
}

TEST(EmptyParts, OfOtherViewsAndSlotsBeforeTheLastStay) {
  SchemaRules rules;
  rules.omitsEmpty = true;
  EXPECT_EQ(contentOf("01 R.\n05 A PIC X.\n05 B REDEFINES A PIC X.\n", rules, {"A", "B"}),
            sequence("<xs:choice>" + x("A", " minOccurs=\"0\"") + x("B") + "</xs:choice>"));
  EXPECT_EQ(contentOf(enhanced("05 A PIC X OCCURS 2 IDENTIFIED BY \"s\".\n"
                               "05 B PIC X IDENTIFIED BY \"s\".\n"),
                      rules),
            sequence(x("s", " minOccurs=\"2\" maxOccurs=\"3\"")));
}

TEST(BlankNumbers, AreLeftOutOrEmpty) {
  SchemaRules rules;
  rules.omitsBlankNumbers = true;
  EXPECT_EQ(contentOf("01 R.\n05 A PIC 9.\n05 B PIC 9 OCCURS 2.\n05 C PIC 9 COMP.\n", rules),
            sequence("<xs:element name=\"A\" minOccurs=\"0\">" + kNine +
                     "</xs:element><xs:element name=\"B\" minOccurs=\"2\" maxOccurs=\"2\">" +
                     unionOf(kNine + kNone) + "</xs:element><xs:element name=\"C\">" + kNine +
                     "</xs:element>"));
  EXPECT_EQ(contentOf(enhanced("05 E IDENTIFIED BY \"e\".\n10 V PIC 9.\n"), rules),
            sequence("<xs:element name=\"e\">" + unionOf(kNine + kNone) + "</xs:element>"));
  EXPECT_EQ(contentOf(enhanced("05 A PIC 9 IDENTIFIED BY \"a\" IS ATTRIBUTE.\n"), rules),
            "<xs:attribute name=\"a\">" + kNine + "</xs:attribute>");
}

TEST(Conditions, AreDocumentation) {
  std::string const item = "05 A PIC X.\n88 B VALUE \"<\".";
  EXPECT_EQ(typeOf(item),
            "<xs:element name=\"A\"><xs:annotation><xs:documentation>B: &quot;&lt;&quot;"
            "</xs:documentation></xs:annotation>" +
                kX + "</xs:element>");
  SchemaRules rules;
  rules.enumeratesConditions = true;
  EXPECT_EQ(typeOf(item, rules),
            "<xs:element name=\"A\"><xs:simpleType><xs:restriction base=\"xs:string\">"
            "<xs:enumeration value=\"&lt;\"/></xs:restriction></xs:simpleType></xs:element>");
}

TEST(TablesOfNoOccurrences, AreNotThere) {
  EXPECT_THAT(contentOf(enhanced("05 A PIC X IDENTIFIED BY \"a\".\n"
                                 "05 B PIC X OCCURS 0 IDENTIFIED BY \"b\".\n")),
              Not(HasSubstr("\"b\"")));
}

}  // namespace
}  // namespace fdmorph::docschema
