// What a record learns from a schema: namespaces, and which parts may be missing.

#include "fit/schema_adoption.h"

#include <gtest/gtest.h>

#include <string>

#include "support/record_source.h"
#include "support/schema_model_fixture.h"

namespace fdmorph::fit {
namespace {

using record::PartDemand;
using record::RecordNode;
using record::RecordSource;
using record::Role;

class SchemaAdoptionTest : public SchemaModelTest {
 protected:
  /// The elements and attributes of a record: "NAME{NAMESPACE} LEAST TOGETHER...", with
  /// the names of the items, without the demand if the schema has none.
  std::string adopted(std::string const& schema, std::string const& source) {
    load(schema);
    RecordSource record(source);
    adoptSchema(record.tree, *model);
    std::string text;
    std::vector<RecordNode> const& nodes = record.tree.nodes();
    for (std::uint32_t i = 0; i < nodes.size(); ++i) {
      if (nodes[i].role != Role::element && nodes[i].role != Role::attribute) continue;
      text += nodes[i].item->name;
      text += '{' + std::string(nodes[i].namespaceUri) + '}';
      if (PartDemand const* demand = record.tree.demandOf(i)) {
        text += ' ' + std::to_string(demand->least);
        for (std::uint32_t each : demand->together) {
          text += ' ' + std::string(nodes[each].item->name);
        }
      }
      text += '\n';
    }
    return text;
  }

  static std::string part(std::string const& name, std::string const& attributes = "") {
    return "<xs:element name='" + name + "' type='xs:string' " + attributes + "/>";
  }
};

constexpr char kTwoParts[] = "01 r. 05 a PIC X. 05 b PIC X.";

TEST_F(SchemaAdoptionTest, ElementsGetTheNamespacesOfTheSchema) {
  std::string const content = "<xs:element name='r'><xs:complexType><xs:sequence>" + part("a") +
                              "</xs:sequence></xs:complexType></xs:element>";
  constexpr char kRecord[] = "01 r. 05 a PIC X.";
  EXPECT_EQ(adopted(schemaOf(content, " targetNamespace='urn:s'"), kRecord), "r{urn:s}\na{} 1\n");
  EXPECT_EQ(adopted(schemaOf(content, " targetNamespace='urn:s' elementFormDefault='qualified'"),
                    kRecord),
            "r{urn:s}\na{urn:s} 1\n");
}

TEST_F(SchemaAdoptionTest, NamespacesOfClausesGiveWay) {
  EXPECT_EQ(adopted(elementWith("<xs:sequence>" + part("a") + "</xs:sequence>"),
                    "01 R IDENTIFIED BY 'r' NAMESPACE 'urn:c'. 05 A IDENTIFIED BY 'a' PIC X."),
            "R{}\nA{} 1\n");
}

TEST_F(SchemaAdoptionTest, PartsThatTheSchemaLacksStayAsTheyAre) {
  EXPECT_EQ(adopted(elementWith("<xs:sequence>" + part("b") + "</xs:sequence>"), kTwoParts),
            "r{}\na{}\nb{} 1\n");
  EXPECT_EQ(adopted(schemaOf("<xs:element name='q' type='xs:string'/>"), kTwoParts),
            "r{}\na{}\nb{}\n");
}

TEST_F(SchemaAdoptionTest, AttributesMayBeMissingUnlessTheyAreRequired) {
  EXPECT_EQ(adopted(elementWith("<xs:attribute name='k'/>"
                                "<xs:attribute name='l' use='required'/>"),
                    "01 R IDENTIFIED BY 'r'. 05 K IDENTIFIED BY 'k' IS ATTRIBUTE PIC X."
                    " 05 L IDENTIFIED BY 'l' IS ATTRIBUTE PIC X."),
            "R{}\nK{} 1 K\nL{} 1\n");
}

TEST_F(SchemaAdoptionTest, AnElementWithMinOccursZeroMayBeMissing) {
  EXPECT_EQ(adopted(elementWith("<xs:sequence>" + part("a", "minOccurs='0'") + part("b") +
                                "</xs:sequence>"),
                    kTwoParts),
            "r{}\na{} 1 a\nb{} 1\n");
}

// Without all occurrences none is required, else the first ones are.
TEST_F(SchemaAdoptionTest, TablesHaveAtLeastMinOccurs) {
  constexpr char kTable[] = "01 r. 05 a PIC X OCCURS 5.";
  EXPECT_EQ(adopted(elementWith("<xs:sequence>" + part("a", "minOccurs='2' maxOccurs='5'") +
                                "</xs:sequence>"),
                    kTable),
            "r{}\na{} 2\n");
  EXPECT_EQ(adopted(elementWith("<xs:sequence>" + part("a", "minOccurs='0' maxOccurs='5'") +
                                "</xs:sequence>"),
                    kTable),
            "r{}\na{} 1 a\n");
  EXPECT_EQ(adopted(elementWith("<xs:sequence minOccurs='2' maxOccurs='2'>" +
                                part("a", "minOccurs='2' maxOccurs='2'") + "</xs:sequence>"),
                    kTable),
            "r{}\na{} 4\n");
}

TEST_F(SchemaAdoptionTest, PartsOfAnOptionalGroupAreMissingTogether) {
  EXPECT_EQ(adopted(elementWith("<xs:sequence><xs:sequence minOccurs='0'>" + part("a") + part("b") +
                                "</xs:sequence>" + part("c") + "</xs:sequence>"),
                    "01 r. 05 a PIC X. 05 b PIC X. 05 c PIC X."),
            "r{}\na{} 1 a b\nb{} 1 a b\nc{} 1\n");
}

// One in an optional group of its own may be missing alone, too.
TEST_F(SchemaAdoptionTest, TheInnermostOptionalGroupCounts) {
  EXPECT_EQ(adopted(elementWith("<xs:sequence minOccurs='0'>" + part("a") +
                                part("b", "minOccurs='0'") + "</xs:sequence>"),
                    kTwoParts),
            "r{}\na{} 1 a b\nb{} 1 b\n");
}

TEST_F(SchemaAdoptionTest, BranchesOfAChoiceMayBeMissing) {
  EXPECT_EQ(adopted(elementWith("<xs:choice><xs:sequence>" + part("a") + part("b") +
                                "</xs:sequence>" + part("c") + "</xs:choice>"),
                    "01 r. 05 a PIC X. 05 b PIC X. 05 c PIC X."),
            "r{}\na{} 1 a b\nb{} 1 a b\nc{} 1 c\n");
}

// A record with one branch of a choice always has that.
TEST_F(SchemaAdoptionTest, TheOnlyBranchOfARecordIsRequired) {
  EXPECT_EQ(adopted(elementWith("<xs:choice>" + part("a") + part("z") + "</xs:choice>"),
                    "01 r. 05 a PIC X."),
            "r{}\na{} 1\n");
}

TEST_F(SchemaAdoptionTest, MembersOfASubstitutionGroupAreAlternatives) {
  EXPECT_EQ(adopted(schemaOf("<xs:element name='h' type='xs:string' abstract='true'/>"
                             "<xs:element name='a' type='xs:string' substitutionGroup='h'/>"
                             "<xs:element name='b' type='xs:string' substitutionGroup='h'/>"
                             "<xs:element name='r'><xs:complexType><xs:sequence>"
                             "<xs:element ref='h'/></xs:sequence></xs:complexType></xs:element>"),
                    kTwoParts),
            "r{}\na{} 1 a\nb{} 1 b\n");
}

// The first slots hold what is required.
TEST_F(SchemaAdoptionTest, SlotsOfANameShareItsOccurrences) {
  EXPECT_EQ(adopted(elementWith("<xs:sequence>" + part("a", "minOccurs='2' maxOccurs='4'") +
                                "</xs:sequence>"),
                    "01 R IDENTIFIED BY 'r'. 05 S1 IDENTIFIED BY 'a' PIC X."
                    " 05 S2 IDENTIFIED BY 'a' PIC X OCCURS 2. 05 S3 IDENTIFIED BY 'a' PIC X."),
            "R{}\nS1{} 2\nS2{} 1\nS3{} 0 S3\n");
}

TEST_F(SchemaAdoptionTest, GoesAsDeepAsTheRecord) {
  EXPECT_EQ(adopted(schemaOf("<xs:complexType name='t'><xs:sequence><xs:element name='a' type='t'"
                             " minOccurs='0'/></xs:sequence></xs:complexType>"
                             "<xs:element name='r' type='t'/>"),
                    "01 r. 05 a. 10 b PIC X. 10 a. 15 c PIC X."),
            "r{}\na{} 1 a\nb{}\na{} 1 a\nc{}\n");
}

}  // namespace
}  // namespace fdmorph::fit
