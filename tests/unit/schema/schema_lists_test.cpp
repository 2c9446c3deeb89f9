// The lists of a schema document.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/schema_fixture.h"

namespace fdmorph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SchemaLists : public SchemaTest {
 protected:
  static std::vector<std::string> attributeNames(std::list<CDMXMLAttribute*> const& list) {
    std::vector<std::string> names;
    for (CDMXMLAttribute const* each : list) names.push_back(each->name);
    return names;
  }
};

TEST_F(SchemaLists, EmptyDocumentListsNothing) {
  CDMXMLSchemaDoc empty;
  EXPECT_EQ(empty.rootElement, nullptr);
  EXPECT_EQ(empty.targetNamespace, "");
  EXPECT_EQ(empty.schemaPath, "");
  EXPECT_TRUE(empty.elements.empty());
  EXPECT_FALSE(empty.InitializeElementLists());
}

TEST_F(SchemaLists, DocumentWithoutATreeIsEmpty) {
  SchemaSet const nothing = SchemaPreprocessing(loader).PreProcessSchema(nullptr, "/s/main.xsd");
  EXPECT_EQ(nothing.main.rootElement, nullptr);
  EXPECT_EQ(nothing.main.schemaPath, "/s/main.xsd");
}

TEST_F(SchemaLists, EachKindOfGlobalComponentHasItsList) {
  CDMXMLSchemaDoc& doc = load(schema({
      component("element", "e1"),
      component("complexType", "c1"),
      component("simpleType", "s1"),
      component("attribute", "a1"),
      component("group", "g1"),
      component("attributeGroup", "ag1"),
      component("element", "e2"),
      component("complexType", "c2"),
  }));
  EXPECT_THAT(namesOf(doc.elements), ElementsAre("e1", "e2"));
  EXPECT_THAT(namesOf(doc.complexTypes), ElementsAre("c1", "c2"));
  EXPECT_THAT(namesOf(doc.simpleTypes), ElementsAre("s1"));
  EXPECT_THAT(namesOf(doc.attributes), ElementsAre("a1"));
  EXPECT_THAT(namesOf(doc.groups), ElementsAre("g1"));
  EXPECT_THAT(namesOf(doc.attributeGroups), ElementsAre("ag1"));
  EXPECT_THAT(namesOf(doc.redefinedElements), IsEmpty());
  EXPECT_EQ(doc.rootElement->name, "xs:schema");
}

TEST_F(SchemaLists, DuplicatesAreInDocumentOrder) {
  CDMXMLSchemaDoc& doc = load(schema({component("element", "a"), component("element", "a")}));
  EXPECT_THAT(namesOf(doc.elements), ElementsAre("a", "a"));
  EXPECT_EQ(doc.elements.findByName("a"), doc.rootElement->getFirstChildElem());
}

TEST_F(SchemaLists, LocalElementIsInNoList) {
  CDMXMLSchemaDoc& doc =
      load(schema({component("complexType", "T", {component("element", "local")})}));
  EXPECT_TRUE(doc.elements.empty());
}

TEST_F(SchemaLists, MembersOfSubstitutionGroupsAreInBothLists) {
  Tree member = component("element", "m");
  member.attributes.emplace_back("substitutionGroup", "h");
  CDMXMLSchemaDoc& doc = load(schema({component("element", "h"), member}));
  EXPECT_THAT(namesOf(doc.elements), ElementsAre("h", "m"));
  EXPECT_THAT(namesOf(doc.substitutionGroupElements), ElementsAre("m"));
}

TEST_F(SchemaLists, AnyKindWithTheAttributeIsListedAsAMember) {
  Tree odd = component("complexType", "T");
  odd.attributes.emplace_back("substitutionGroup", "h");
  EXPECT_THAT(namesOf(load(schema({odd})).substitutionGroupElements), ElementsAre("T"));
}

TEST_F(SchemaLists, TargetNamespaceIsTheRootsAttribute) {
  EXPECT_EQ(load(schemaOf("urn:a", {component("element", "e")})).targetNamespace, "urn:a");
}

TEST_F(SchemaLists, SchemaWithDeclarationsOnlyHasNoTargetNamespace) {
  CDMXMLSchemaDoc& doc = load({"xs:schema",
                               {{"xmlns:b", "urn:b"}, {"xmlns", "urn:d"}, {"xmlns:a", "urn:a"}},
                               {component("element", "e")}});
  EXPECT_EQ(doc.targetNamespace, "");
  EXPECT_THAT(attributeNames(doc.namespaceAttributes), ElementsAre("xmlns:b", "xmlns", "xmlns:a"));
}

TEST_F(SchemaLists, OnlyTheLocalPartOfTheTargetNamespaceIsCompared) {
  CDMXMLSchemaDoc& doc =
      load({"xs:schema", {{"xmlns:targetNamespace", "urn:t"}}, {component("element", "e")}});
  EXPECT_EQ(doc.targetNamespace, "urn:t");
  EXPECT_THAT(doc.namespaceAttributes, IsEmpty());
}

TEST_F(SchemaLists, DeclarationHasTheQualifierOrTheLocalPart) {
  CDMXMLSchemaDoc& doc = load({"xs:schema",
                               {{"xmlns:a", "urn:a"}, {"x:xmlns", "urn:x"}, {"x:a", "1"}},
                               {component("element", "e")}});
  EXPECT_THAT(attributeNames(doc.namespaceAttributes), ElementsAre("xmlns:a", "x:xmlns"));
}

TEST_F(SchemaLists, OtherAttributesAreIgnored) {
  CDMXMLSchemaDoc& doc = load({"xs:schema",
                               {{"version", "1"}, {"xmlnsx", "1"}, {"xml:lang", "en"}},
                               {component("element", "e")}});
  EXPECT_THAT(doc.namespaceAttributes, IsEmpty());
}

TEST_F(SchemaLists, SchemaWithoutChildrenRecordsNothing) {
  CDMXMLSchemaDoc& doc = load(schemaOf("urn:a", {}));
  EXPECT_NE(doc.rootElement, nullptr);
  EXPECT_EQ(doc.targetNamespace, "");
  EXPECT_THAT(doc.namespaceAttributes, IsEmpty());
  EXPECT_FALSE(doc.InitializeElementLists());
}

TEST_F(SchemaLists, ListsAreAppendedTo) {
  CDMXMLSchemaDoc& doc = load(schema({component("element", "a")}));
  EXPECT_TRUE(doc.InitializeElementLists());
  EXPECT_THAT(namesOf(doc.elements), ElementsAre("a", "a"));
}

TEST_F(SchemaLists, LastSchemaElementOfAFileIsItsRoot) {
  CDMXMLSchemaDoc& doc =
      load(schema({component("element", "outer"),
                   {"xs:annotation", {}, {schema({component("element", "in")})}}}));
  EXPECT_EQ(doc.rootElement->getParent()->name, "xs:annotation");
  EXPECT_THAT(namesOf(doc.elements), ElementsAre("in"));
}

TEST_F(SchemaLists, RootOtherThanASchemaIsIgnored) {
  CDMXMLSchemaDoc& doc = load({"html", {}, {component("element", "a")}});
  EXPECT_EQ(doc.rootElement, nullptr);
  EXPECT_TRUE(doc.elements.empty());
}

}  // namespace
}  // namespace fdmorph
