// What a visit makes, what it ends with, and what it leaves as current item.

#include "cobol/schema_walker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/query_fixture.h"

namespace fdmorph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Walk : public QueryTest {
 protected:
  void use(Tree const& main) {
    QueryTest::use(main);
    walker.emplace(*namespaces, *components, *substitutions);
  }

  /// The record of the element of this name.
  CDMCOBOLRecordItem* record(std::string_view name) { return walker->buildRecord(at(name)); }

  /// A current item with the data name "top", at level 1 and indent 7.
  WalkPosition below(CDMCOBOLRecordItem*& top) {
    top = walker->builder().store().create();
    top->levelNumber = 1;
    top->indent = 7;
    top->dataName = "top";
    return {top, 2, 8};
  }

  /// The data names of the children.
  static std::vector<std::string> childrenOf(CDMCOBOLRecordItem const* item) {
    std::vector<std::string> names;
    for (CDMCOBOLRecordItem const* child : item->children) names.emplace_back(child->dataName);
    return names;
  }

  std::optional<SchemaWalker> walker;
};

Tree restriction(std::string const& base, std::vector<Tree> facets) {
  return {"xs:restriction", {{"base", base}}, std::move(facets)};
}
Tree facet(std::string const& name, std::string const& value) {
  return {"xs:" + name, {{"value", value}}};
}

TEST_F(Walk, HeadElementIsAtLevel1) {
  use(schema({element("a", {{"type", "xs:string"}})}));
  CDMCOBOLRecordItem const* a = record("a");
  ASSERT_NE(a, nullptr);
  EXPECT_EQ(a->levelNumber, 1);
  EXPECT_EQ(a->indent, 7);
  EXPECT_EQ(a->parent, nullptr);
}

TEST_F(Walk, EachItemAddsOneLevelAndGroupsAddNone) {
  use(schema({element("a", {}, {sequenceType({element("b", {{"type", "T"}})})}),
              sequenceType({element("c", {{"type", "xs:int"}})}, "T")}));
  CDMCOBOLRecordItem const* b = record("a")->children.front();
  EXPECT_EQ(b->levelNumber, 2);
  EXPECT_EQ(b->indent, 8);
  EXPECT_EQ(b->children.front()->levelNumber, 3);
  EXPECT_EQ(b->children.front()->indent, 9);
}

TEST_F(Walk, VisitOfNothingKeepsTheCurrentItem) {
  use(schema({}));
  CDMCOBOLRecordItem* top = nullptr;
  Visit visit = walker->getCOBOLFromSchema(nullptr, below(top));
  EXPECT_EQ(visit.item, nullptr);
  EXPECT_EQ(visit.current, top);
}

TEST_F(Walk, VisitOfAMemberEndsWithItsItem) {
  use(schema({element("a", {{"type", "xs:int"}})}));
  CDMCOBOLRecordItem* top = nullptr;
  Visit visit = walker->getCOBOLFromSchema(at("a"), below(top));
  ASSERT_NE(visit.item, nullptr);
  EXPECT_EQ(visit.item->dataName, "a");
  EXPECT_EQ(visit.item->levelNumber, 2);
  EXPECT_EQ(visit.current, top);
  EXPECT_THAT(top->children, ElementsAre(visit.item));
}

TEST_F(Walk, VisitOfAGroupEndsWithTheCurrentItem) {
  use(schema({element("a", {{"type", "xs:int"}}), component("group", "g", {{"xs:sequence"}})}));
  CDMCOBOLRecordItem* top = nullptr;
  Visit visit = walker->getCOBOLFromSchema(at("g"), below(top));
  EXPECT_EQ(visit.item, top);
  EXPECT_EQ(visit.current, top);
}

TEST_F(Walk, UnknownConstructChangesNothing) {
  use(schema({{"xs:annotation", {{"name", "n"}}, {element("a", {{"type", "xs:int"}})}}}));
  CDMCOBOLRecordItem* top = nullptr;
  Visit visit = walker->getCOBOLFromSchema(at("n"), below(top));
  EXPECT_EQ(visit.item, top);
  EXPECT_THAT(top->children, IsEmpty());
}

TEST_F(Walk, LastMemberThatFailsTakesAnEmptyCurrentItemAway) {
  use(schema({element("a", {{"type", "missing"}})}));
  CDMCOBOLRecordItem* top = nullptr;
  WalkPosition position = below(top);
  CDMCOBOLRecordItem* parent = walker->builder().store().create();
  top->parent = parent;
  parent->addChild(top);
  Visit visit = walker->getCOBOLFromSchema(at("a"), position);
  EXPECT_EQ(visit.item, nullptr);
  EXPECT_EQ(visit.current, parent);
  EXPECT_THAT(parent->children, IsEmpty());
}

TEST_F(Walk, RecordOfNothingConvertibleIsNull) {
  use(schema({element("a", {}, {sequenceType({element("b", {{"type", "missing"}})})})}));
  EXPECT_EQ(record("a"), nullptr);
}

TEST_F(Walk, RecordsAreIndependent) {
  use(schema({element("a", {{"type", "T"}}), element("b", {{"type", "T"}}),
              sequenceType({element("c", {{"type", "xs:int"}})}, "T")}));
  EXPECT_THAT(childrenOf(record("a")), ElementsAre("c"));
  walker->endRecord();
  EXPECT_THAT(childrenOf(record("b")), ElementsAre("c"));
}

TEST_F(Walk, ReferenceKeepsItsOccurrencesAndTakesTheDeclaration) {
  Tree ref = reference("note");
  ref.attributes.emplace_back("maxOccurs", "4");
  use(schema({element("a", {}, {sequenceType({ref})}),
              element("note", {{"type", "xs:string"}, {"maxOccurs", "9"}})}));
  CDMCOBOLRecordItem const* note = record("a")->children.front();
  EXPECT_EQ(note->maxOccurs, "4");
  EXPECT_EQ(note->levelNumber, 2);
  EXPECT_EQ(note->pictureSymbol, "X");
  EXPECT_EQ(note->schemaElement, at("note"));
}

TEST_F(Walk, RecursiveReferenceIsRefusedAndItsSiblingsStay) {
  use(schema(
      {element("a", {}, {sequenceType({reference("a"), element("b", {{"type", "xs:int"}})})})}));
  EXPECT_THAT(childrenOf(record("a")), ElementsAre("b"));
  EXPECT_EQ(captured.err(), "Error : Cannot convert recursive reference of a to COBOL record\n");
}

TEST_F(Walk, GroupThatContainsItselfIsRefused) {
  use(schema({element("a", {}, {sequenceType({{"xs:group", {{"ref", "g"}}}})}),
              component("group", "g",
                        {{"xs:sequence",
                          {},
                          {element("b", {{"type", "xs:int"}}), {"xs:group", {{"ref", "g"}}}}}})}));
  EXPECT_THAT(childrenOf(record("a")), ElementsAre("b"));
  EXPECT_EQ(captured.err(), "Error : Cannot convert recursive reference of g to COBOL record\n");
}

TEST_F(Walk, ProhibitedAttributeIsNoFailure) {
  use(schema({{"xs:attribute", {{"name", "x"}, {"type", "xs:int"}, {"use", "prohibited"}}}}));
  CDMCOBOLRecordItem* top = nullptr;
  Visit visit = walker->getCOBOLFromSchema(at("x"), below(top));
  EXPECT_EQ(visit.item, top);
  EXPECT_EQ(visit.current, top);
  EXPECT_THAT(top->children, IsEmpty());
}

TEST_F(Walk, AttributeMakesAMarkedItem) {
  use(schema({{"xs:attribute", {{"name", "x"}, {"type", "xs:int"}, {"maxOccurs", "3"}}}}));
  CDMCOBOLRecordItem* top = nullptr;
  Visit visit = walker->getCOBOLFromSchema(at("x"), below(top));
  ASSERT_NE(visit.item, nullptr);
  EXPECT_TRUE(visit.item->isAttribute);
  EXPECT_EQ(visit.item->maxOccurs, "1") << "not read from an attribute";
}

TEST_F(Walk, ExtensionAddsItsMembersAfterThoseOfTheBase) {
  Tree employee =
      component("complexType", "employee",
                {{"xs:complexContent",
                  {},
                  {{"xs:extension",
                    {{"base", "person"}},
                    {{"xs:sequence", {}, {element("badge", {{"type", "xs:int"}})}}}}}}});
  use(schema({element("staff", {{"type", "employee"}}), employee,
              sequenceType({element("name", {{"type", "xs:string"}})}, "person")}));
  CDMCOBOLRecordItem const* staff = record("staff");
  EXPECT_THAT(childrenOf(staff), ElementsAre("name", "badge"));
  EXPECT_EQ(staff->derivationKind, DerivationKind::complexContent);
}

TEST_F(Walk, ExtensionOfAnUnknownBaseFails) {
  use(schema({component("complexType", "T", {{"xs:extension", {{"base", "none"}}}})}));
  CDMCOBOLRecordItem* top = nullptr;
  WalkPosition position = below(top);
  top->addChild(walker->builder().store().create());
  Visit visit = walker->getCOBOLFromSchema(at("T")->getFirstChildElem(), position);
  EXPECT_EQ(visit.item, nullptr);
  EXPECT_EQ(visit.current, top);
  EXPECT_EQ(captured.err(),
            "Error : Cannot find referenced element none.  Element will not be converted to COBOL "
            "record item.\n");
}

TEST_F(Walk, RestrictionOfAnUnknownBaseChangesNothing) {
  use(schema({component("simpleType", "T", {restriction("none", {facet("length", "5")})})}));
  CDMCOBOLRecordItem* top = nullptr;
  Visit visit = walker->getCOBOLFromSchema(at("T")->getFirstChildElem(), below(top));
  EXPECT_EQ(visit.item, top);
  EXPECT_EQ(top->pictureSize, "");
  EXPECT_EQ(captured.err(), "");
}

TEST_F(Walk, FacetsOfARestrictionApplyOnTopOfThoseOfItsBase) {
  use(schema(
      {element("c", {{"type", "short"}}),
       component("simpleType", "code", {restriction("xs:string", {facet("maxLength", "4")})}),
       component("simpleType", "short", {restriction("code", {facet("length", "2")})})}));
  CDMCOBOLRecordItem const* c = record("c");
  EXPECT_EQ(c->pictureSymbol, "X");
  EXPECT_EQ(c->pictureSize, "2");
}

/// A union of the members, as the type of the element u.
Tree unionOf(std::string const& memberTypes, std::vector<Tree> inlineTypes = {}) {
  return element("u", {},
                 {{"xs:simpleType",
                   {},
                   {{"xs:union", {{"memberTypes", memberTypes}}, std::move(inlineTypes)}}}});
}
Tree stringOf(std::string const& length) {
  return {"xs:simpleType", {}, {restriction("xs:string", {facet("maxLength", length)})}};
}

TEST_F(Walk, MembersOfAUnionRedefineTheOneBefore) {
  use(schema({unionOf("xs:int xs:string", {stringOf("5")})}));
  CDMCOBOLRecordItem const* u = record("u");
  ASSERT_THAT(childrenOf(u), ElementsAre("u-union-value-0", "u-union-value-1", "u-union-value-2"));
  EXPECT_EQ(u->children[0]->redefinedItem, nullptr);
  EXPECT_EQ(u->children[1]->redefinedItem, u->children[0]);
  EXPECT_EQ(u->children[2]->redefinedItem, u->children[1]);
  EXPECT_THAT(childrenOf(u->children[2]), ElementsAre("u-union-value-2-data"));
  EXPECT_EQ(u->children[2]->children.front()->pictureSize, "5");
  EXPECT_EQ(u->children[2]->children.front()->levelNumber, 3);
}

TEST_F(Walk, MemberThatHoldsNothingUsesNoNumber) {
  use(schema({unionOf("", {stringOf("0"), stringOf("8")})}));
  CDMCOBOLRecordItem const* u = record("u");
  ASSERT_THAT(childrenOf(u), ElementsAre("u-union-value-0"));
  EXPECT_EQ(u->children.front()->children.front()->pictureSize, "8");
}

TEST_F(Walk, UnknownMemberTypeEndsTheUnion) {
  use(schema({unionOf("xs:int none", {stringOf("8")})}));
  EXPECT_THAT(childrenOf(record("u")), ElementsAre("u-union-value-0"));
  EXPECT_EQ(captured.err(), "Error : Unable to locate type none for <union> processing\n");
}

TEST_F(Walk, MemberOfASubstitutionGroupIsListedTwice) {
  use(schema({element("a", {}, {sequenceType({element("h", {{"type", "xs:int"}})})}),
              element("m", {{"substitutionGroup", "h"}, {"type", "xs:int"}})}));
  CDMCOBOLRecordItem const* a = record("a");
  EXPECT_THAT(childrenOf(a), ElementsAre("h", "m", "m"));
  EXPECT_EQ(a->children[1], a->children[2]);
}

TEST_F(Walk, MemberHasNoPlaceBesideAHeadWithoutAParent) {
  use(schema({element("h", {{"type", "xs:int"}}),
              element("m", {{"substitutionGroup", "h"}, {"type", "xs:int"}})}));
  EXPECT_THAT(childrenOf(record("h")), IsEmpty());
}

}  // namespace
}  // namespace fdmorph
