// Whether the elements, attributes and texts of a type have items.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fit_fixture.h"

namespace fdmorph::fit {
namespace {

using testing::HasSubstr;

class Parts : public FitTest {
 protected:
  /// Of an element r with this content of xs:complexType, and the items in its record.
  std::string checkParts(std::string const& content, std::string const& items) {
    return check(elementWith(content), "01 R IDENTIFIED BY 'r'.\n" + items);
  }

  static std::string sequence(std::string const& parts) {
    return "<xs:sequence>" + parts + "</xs:sequence>";
  }
  static std::string text(std::string const& name, std::string const& attributes = "") {
    return "<xs:element name='" + name + "' type='xs:boolean' " + attributes + "/>";
  }
  static std::string item(std::string const& name, std::string const& clauses = "") {
    return " 02 " + name + " PIC X(5) " + clauses + " IDENTIFIED BY '" + name + "'.\n";
  }
};

TEST_F(Parts, ThatAllHaveItemsFit) {
  EXPECT_EQ(checkParts(sequence(text("a") + text("b", "maxOccurs='3'")) +
                           "<xs:attribute name='x' type='xs:byte'/>",
                       item("a") + item("b", "OCCURS 3") +
                           " 02 X PIC S999 IS ATTRIBUTE IDENTIFIED BY 'x'.\n"),
            "");
}

TEST_F(Parts, RequiredOnesWithoutItemAreErrors) {
  EXPECT_EQ(checkParts(sequence(text("a") + text("b") + text("c", "minOccurs='0'")), item("a")),
            "1: error: r/b: element 'b' has no item; schema: once; item: none [no-item]\n"
            "1: warning: r/c: element 'c' has no item; schema: 0 to 1 times; item: none "
            "[no-item]\n");
}

TEST_F(Parts, ElementsOfChoicesAreNotRequired) {
  EXPECT_THAT(checkParts("<xs:choice>" + text("a") + text("b") + "</xs:choice>", item("a")),
              HasSubstr("1: warning: r/b: element 'b' has no item;"));
}

TEST_F(Parts, AttributesWithoutItem) {
  EXPECT_EQ(checkParts("<xs:attribute name='x' type='xs:byte' use='required'/>"
                       "<xs:attribute name='y' type='xs:byte'/>",
                       item("FILLER")),
            "1: error: r/@x: attribute 'x' has no item; schema: required, byte, from -128 to 127; "
            "item: none [no-item]\n"
            "1: warning: r/@y: attribute 'y' has no item; schema: optional, byte, from -128 to "
            "127; item: none [no-item]\n"
            "2: error: r/FILLER: the schema has no element 'FILLER' here; item: item FILLER "
            "[no-element]\n");
}

TEST_F(Parts, ItemsWithoutElement) {
  EXPECT_EQ(checkParts(sequence(text("a")),
                       item("a") + item("b") + " 02 X PIC X IS ATTRIBUTE IDENTIFIED BY 'x'.\n"),
            "3: error: r/b: the schema has no element 'b' here; item: item b [no-element]\n"
            "4: error: r/@x: the element has no attribute 'x'; item: attribute X [no-element]\n");
}

TEST_F(Parts, RecordThatIsNoGlobalElement) {
  EXPECT_EQ(check(elementWith(""), "01 OTHER IDENTIFIED BY 'q'.\n 02 A PIC X.\n"),
            "1: error: q: the schema has no global element 'q' (a.xsd); item: record OTHER "
            "[no-element]\n");
}

TEST_F(Parts, MoreOccurrencesThanTheRecordHolds) {
  EXPECT_EQ(checkParts(sequence(text("a", "minOccurs='2' maxOccurs='4'")), item("a", "OCCURS 3")),
            "2: error: r/a: there may be more occurrences than the record holds; schema: 2 to 4 "
            "times; item: 3 times [occurs]\n");
  EXPECT_EQ(repairs.at(1).occurrences, 4);
}

TEST_F(Parts, UnboundedOccurrencesAreErrors) {
  std::string const schema = sequence(text("a", "maxOccurs='unbounded'"));
  EXPECT_EQ(checkParts(schema, item("a", "OCCURS 3")),
            "2: error: r/a: there may be more occurrences than the record holds; schema: once or "
            "more, unbounded; item: 3 times [occurs]\n");
  EXPECT_EQ(repairs.at(1).occurrences, kDefaultOccurrences);
  options.limits.occurrences = 3;
  EXPECT_EQ(checkParts(schema, item("a", "OCCURS 3")), "");
  options.limits.occurrences = 4;
  EXPECT_NE(checkParts(schema, item("a", "OCCURS 3")), "");
  EXPECT_EQ(repairs.at(1).occurrences, 4);
}

TEST_F(Parts, SlotsHoldTheirSum) {
  std::string const items = item("a", "OCCURS 2") + " 02 B PIC X(5) IDENTIFIED BY 'a'.\n";
  EXPECT_EQ(checkParts(sequence(text("a", "maxOccurs='3'")), items), "");
  EXPECT_NE(checkParts(sequence(text("a", "maxOccurs='5'")), items), "");
  EXPECT_EQ(repairs.at(2).occurrences, 3);
}

TEST_F(Parts, OccurrencesOfGroupsMultiply) {
  std::string const schema = "<xs:sequence maxOccurs='2'><xs:choice maxOccurs='3'>" + text("a") +
                             "</xs:choice>" + text("a") + "</xs:sequence>";
  EXPECT_THAT(checkParts(schema, item("a", "OCCURS 8")), testing::Not(HasSubstr("[occurs]")));
  EXPECT_THAT(checkParts(schema, item("a", "OCCURS 7")), HasSubstr("2 to 8 times; item: 7 times"));
}

TEST_F(Parts, HugeOccurrencesAreFast) {
  EXPECT_THAT(checkParts("<xs:sequence maxOccurs='1000000000'>" +
                             text("a", "maxOccurs='2000000000'") + "</xs:sequence>",
                         item("a")),
              HasSubstr("1 to 2000000000000000000 times; item: once [occurs]"));
}

TEST_F(Parts, AlternativesAreNoted) {
  EXPECT_EQ(
      checkParts("<xs:choice>" + text("a") + text("b") + "</xs:choice>", item("a") + item("b")),
      "1: note: r: the record has items for 2 alternatives of a choice: a, b [choice]\n");
}

TEST_F(Parts, OfOneAreaMustExcludeEachOther) {
  std::string const items = item("a") + " 02 B REDEFINES a PIC X(5) IDENTIFIED BY 'b'.\n";
  EXPECT_THAT(checkParts("<xs:choice>" + text("a") + text("b") + "</xs:choice>", items),
              testing::Not(HasSubstr("error")));
  EXPECT_EQ(checkParts(sequence(text("a") + text("b")), items),
            "3: error: r/b: 'b' shares the bytes of 'a', and a document may have both "
            "[no-item]\n");
}

TEST_F(Parts, OfAnyTwoViewsMustExcludeEachOther) {
  std::string const items = item("a") + " 02 B REDEFINES a PIC X(5) IDENTIFIED BY 'b'.\n" +
                            " 02 C REDEFINES a PIC X(5) IDENTIFIED BY 'c'.\n";
  std::string const schema = "<xs:choice>" + text("a") + "<xs:sequence>" + text("b") + text("c") +
                             "</xs:sequence></xs:choice>";
  EXPECT_THAT(checkParts(schema, items), HasSubstr("4: error: r/c: 'c' shares the bytes of 'b'"));
}

TEST_F(Parts, FreeOrderIsNoted) {
  std::string const note = "1: note: r: elements of a group may be in any order [order]\n";
  EXPECT_EQ(checkParts("<xs:all>" + text("a") + text("b") + "</xs:all>", item("a") + item("b")),
            note);
  EXPECT_THAT(checkParts("<xs:sequence maxOccurs='2'>" + text("a") + text("b") + "</xs:sequence>",
                         item("a", "OCCURS 2") + item("b", "OCCURS 2")),
              HasSubstr(note));
}

TEST_F(Parts, OtherOrderIsNoted) {
  EXPECT_EQ(checkParts(sequence(text("a") + text("b")), item("b") + item("a")),
            "1: note: r: the record has 'b' before 'a', the schema after it [order]\n");
  EXPECT_EQ(
      checkParts(sequence(text("a") + text("b") + text("a")), item("a", "OCCURS 2") + item("b")),
      "1: note: r: there may be elements 'a' before and after other elements [order]\n");
}

TEST_F(Parts, WildcardsAreNotedAndAdmitItems) {
  EXPECT_EQ(checkParts(sequence(text("a") + "<xs:any minOccurs='0'/>") + "<xs:anyAttribute/>",
                       item("a") + item("b") + " 02 X PIC X IS ATTRIBUTE IDENTIFIED BY 'x'.\n"),
            "1: note: r: there may be other attributes [any]\n"
            "1: note: r: there may be other elements [any]\n");
}

TEST_F(Parts, NilIsNoted) {
  EXPECT_EQ(checkParts(sequence(text("a", "nillable='true'")), item("a")),
            "2: note: r/a: the element may be nil [nillable]\n");
}

TEST_F(Parts, MixedContentIsNoted) {
  EXPECT_EQ(check(schemaOf("<xs:element name='r'><xs:complexType mixed='true'><xs:sequence>" +
                           text("a") + "</xs:sequence></xs:complexType></xs:element>"),
                  "01 R IDENTIFIED BY 'r'.\n" + item("a")),
            "1: note: r: there may be text between the elements [mixed]\n");
}

TEST_F(Parts, RecursionEndsWithTheRecord) {
  std::string const schema =
      schemaOf("<xs:complexType name='T'><xs:sequence>" + text("a") +
               "<xs:element name='t' type='T' minOccurs='0'/></xs:sequence></xs:complexType>"
               "<xs:element name='r' type='T'/>");
  EXPECT_EQ(check(schema, "01 R IDENTIFIED BY 'r'.\n" + item("a")),
            "1: warning: r/t: element 't' has no item; schema: 0 to 1 times; item: none "
            "[no-item]\n"
            "1: note: r/t: documents may nest deeper than the record: 't' is of a type that "
            "contains it [recursive]\n");
  EXPECT_EQ(check(schema, "01 R IDENTIFIED BY 'r'.\n" + item("a") + " 02 T IDENTIFIED BY 't'.\n"),
            "3: note: r/t: documents may nest deeper than the record: type 'T' contains itself "
            "[recursive]\n"
            "3: error: r/t/a: element 'a' has no item; schema: once; item: none [no-item]\n"
            "3: warning: r/t/t: element 't' has no item; schema: 0 to 1 times; item: none "
            "[no-item]\n"
            "3: note: r/t/t: documents may nest deeper than the record: 't' is of a type that "
            "contains it [recursive]\n");
}

TEST_F(Parts, SubstitutesAreParts) {
  std::string const schema = schemaOf(
      "<xs:element name='h' type='xs:byte' abstract='true'/>"
      "<xs:element name='m' type='xs:byte' substitutionGroup='h'/>"
      "<xs:element name='n' type='xs:byte' substitutionGroup='h'/>"
      "<xs:element name='r'><xs:complexType><xs:sequence>"
      "<xs:element ref='h'/></xs:sequence></xs:complexType></xs:element>");
  EXPECT_EQ(check(schema, "01 R IDENTIFIED BY 'r'.\n 02 M PIC S999 IDENTIFIED BY 'm'.\n"),
            "1: warning: r/n: element 'n' has no item; schema: 0 to 1 times; item: none "
            "[no-item]\n"
            "1: note: r: other elements may stand for 'h' [substitution]\n");
  EXPECT_EQ(check(schema, "01 R IDENTIFIED BY 'r'.\n"),
            "1: error: r/m: element 'm' has no item; schema: once; item: none [no-item]\n"
            "1: error: r/n: element 'n' has no item; schema: once; item: none [no-item]\n");
}

TEST_F(Parts, DerivedTypesAreNoted) {
  EXPECT_EQ(check(schemaOf("<xs:complexType name='B'/><xs:complexType name='D'><xs:complexContent>"
                           "<xs:extension base='B'/></xs:complexContent></xs:complexType>"
                           "<xs:element name='r' type='B'/>"),
                  "01 R IDENTIFIED BY 'r'.\n"),
            "1: note: r: documents may name a type that is derived from type 'B' "
            "[substitution]\n");
}

TEST_F(Parts, TextOfAnElementWithAttributesIsItsValueItem) {
  std::string const schema = schemaOf(
      "<xs:element name='r'><xs:complexType><xs:simpleContent><xs:extension base='xs:byte'>"
      "<xs:attribute name='x' type='xs:byte'/></xs:extension></xs:simpleContent>"
      "</xs:complexType></xs:element>");
  std::string const attribute = " 02 X PIC S999 IS ATTRIBUTE IDENTIFIED BY 'x'.\n";
  EXPECT_EQ(check(schema, "01 R IDENTIFIED BY 'r'.\n 02 V PIC S999.\n" + attribute), "");
  EXPECT_EQ(check(schema, "01 R IDENTIFIED BY 'r'.\n 02 V PIC S99.\n" + attribute),
            "2: error: r: numbers may have more integer digits than the item; schema: byte, from "
            "-128 to 127; item: S99 [digits]\n");
  EXPECT_EQ(check(schema, "01 R IDENTIFIED BY 'r'.\n" + attribute),
            "1: error: r: the text has no item; schema: byte, from -128 to 127; item: none "
            "[no-item]\n");
}

TEST_F(Parts, UnionTakesTheViewThatFits) {
  std::string const type = "<xs:simpleType><xs:union>" + restricted("byte", "") +
                           restricted("string", "<xs:maxLength value='9'/>") +
                           "</xs:union></xs:simpleType>";
  std::string const schema = schemaOf("<xs:element name='r'>" + type + "</xs:element>");
  EXPECT_EQ(
      check(schema, "01 R IDENTIFIED BY 'r'.\n 02 V PIC A(9).\n 02 W REDEFINES V PIC S999.\n"), "");
  EXPECT_EQ(
      check(schema, "01 R IDENTIFIED BY 'r'.\n 02 V PIC X(8).\n 02 W REDEFINES V PIC S999.\n"),
      "2: error: r: texts may have 9 characters, the item holds 8; schema: string, at most 9 "
      "characters; item: X(8) [length]\n");
}

TEST_F(Parts, ConditionsAreComparedWithTheEnumeration) {
  std::string const schema =
      schemaOf("<xs:element name='r'>" +
               restricted("string", "<xs:enumeration value='A'/><xs:enumeration value='B'/>") +
               "</xs:element>");
  std::string const record = "01 R IDENTIFIED BY 'r'.\n";
  std::string const value = " 02 V PIC X.\n";
  EXPECT_EQ(check(schema, record + " 88 C1 VALUE 'A'.\n 88 C2 VALUE 'B'.\n" + value), "");
  EXPECT_EQ(check(schema, record + " 88 C1 VALUE 'A' THRU 'B'.\n" + value), "");
  EXPECT_EQ(check(schema, record + value), "");
  EXPECT_EQ(check(schema, record + value + "  88 C1 VALUE 'A'.\n  88 C2 VALUE 'C', 'D'.\n"),
            "1: warning: r: no level 88 has 'B'; schema: string, 2 values of at most 1 character; "
            "item: level 88 [value]\n"
            "1: warning: r: the schema does not allow 'C', 'D'; schema: string, 2 values of at "
            "most 1 character; item: level 88 [value]\n");
}

TEST_F(Parts, OtherNamespaceIsAccepted) {
  std::string const schema =
      schemaOf("<xs:element name='r'><xs:complexType><xs:sequence>" + text("a") +
                   "</xs:sequence></xs:complexType></xs:element>",
               " targetNamespace='urn:x'");
  EXPECT_EQ(check(schema, "01 R IDENTIFIED BY 'r' NAMESPACE IS 'urn:x'.\n" + item("a")), "");
  EXPECT_EQ(check(schema, "01 R IDENTIFIED BY 'r'.\n" + item("a")), "");
}

TEST_F(Parts, NumericItemOfAnElementWithoutText) {
  EXPECT_EQ(checkParts(sequence("<xs:element name='e'><xs:complexType/></xs:element>"),
                       " 02 E PIC 9 IDENTIFIED BY 'e'.\n"),
            "2: error: r/e: an element without a text does not fit into a numeric item; schema: no "
            "text; item: 9 [category]\n");
}

}  // namespace
}  // namespace fdmorph::fit
