// How items are made, linked and removed.

#include "cobol/record_builder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/query_fixture.h"

namespace fdmorph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Builder : public QueryTest {
 protected:
  Builder() {
    use(schemaOf(
        "urn:a",
        {element("e", {{"type", "xs:int"}}), reference("e"), {"xs:attribute", {{"name", "a"}}}}));
    builder.emplace(*namespaces);
  }

  /// A new item below `parent`, or without one.
  CDMCOBOLRecordItem* make(CDMCOBOLRecordItem* parent = nullptr) {
    CDMCOBOLRecordItem* item = builder->store().create();
    item->parent = parent;
    if (parent != nullptr) parent->addChild(item);
    return item;
  }

  CDMXMLElement* ref() const { return at("e")->getNextSibling(); }

  std::optional<RecordBuilder> builder;
};

TEST_F(Builder, FirstItemIsTheCurrentOne) {
  RecordBuilder::DeclaredItem declared = builder->findOrMakeItem(at("e"), nullptr);
  EXPECT_TRUE(declared.isNew);
  EXPECT_EQ(declared.current, declared.item);
  EXPECT_EQ(declared.item->parent, nullptr);
}

TEST_F(Builder, FurtherItemsAreAddedToTheCurrentOne) {
  CDMCOBOLRecordItem* current = make();
  RecordBuilder::DeclaredItem declared = builder->findOrMakeItem(at("e"), current);
  EXPECT_TRUE(declared.isNew);
  EXPECT_EQ(declared.current, current);
  EXPECT_EQ(declared.item->parent, current);
  EXPECT_THAT(current->children, ElementsAre(declared.item));
}

TEST_F(Builder, DeclarationCompletesAReference) {
  CDMCOBOLRecordItem* current = make();
  current->schemaElement = ref();
  RecordBuilder::DeclaredItem declared = builder->findOrMakeItem(at("e"), current);
  EXPECT_FALSE(declared.isNew);
  EXPECT_EQ(declared.item, current);
  EXPECT_EQ(declared.current, current);
  EXPECT_THAT(current->children, IsEmpty());
}

TEST_F(Builder, DeclarationCompletesTheValueOfASimpleContentOnce) {
  CDMCOBOLRecordItem* current = make();
  current->schemaElement = at("e");
  current->derivationKind = DerivationKind::simpleContent;
  EXPECT_FALSE(builder->findOrMakeItem(at("e"), current).isNew);
  EXPECT_EQ(current->derivationKind, DerivationKind::none);
  EXPECT_TRUE(builder->findOrMakeItem(at("e"), current).isNew);
}

TEST_F(Builder, DeclarationOfAnotherKindCompletesNothing) {
  CDMCOBOLRecordItem* current = make();
  current->schemaElement = ref();
  EXPECT_TRUE(builder->findOrMakeItem(at("a"), current).isNew);
}

TEST_F(Builder, RefusedItemLeavesItsParent) {
  CDMCOBOLRecordItem* current = make();
  CDMCOBOLRecordItem* item = make(current);
  EXPECT_EQ(builder->refuse(item, current), current);
  EXPECT_THAT(current->children, IsEmpty());
  EXPECT_EQ(builder->store().create(), item) << "released";
}

TEST_F(Builder, RefusedCurrentItemLeavesNone) {
  CDMCOBOLRecordItem* parent = make();
  CDMCOBOLRecordItem* current = make(parent);
  EXPECT_EQ(builder->refuse(current, current), nullptr);
  EXPECT_THAT(parent->children, IsEmpty());
}

TEST_F(Builder, PruneReplacesAnEmptyItemByItsParent) {
  CDMCOBOLRecordItem* parent = make();
  CDMCOBOLRecordItem* current = make(parent);
  EXPECT_EQ(builder->prune(at("a"), current), parent);
  EXPECT_THAT(parent->children, IsEmpty());
}

TEST_F(Builder, PruneKeepsAnItemWithMoreContentToCome) {
  CDMCOBOLRecordItem* parent = make();
  CDMCOBOLRecordItem* current = make(parent);
  EXPECT_EQ(builder->prune(at("e"), current), current) << "e has a next sibling";
  EXPECT_THAT(parent->children, ElementsAre(current));
}

TEST_F(Builder, PruneClimbsNoFurtherThanTheTypeOfTheItem) {
  CDMCOBOLRecordItem* parent = make();
  CDMCOBOLRecordItem* current = make(parent);
  current->typeElement = at("e");
  EXPECT_EQ(builder->prune(at("e"), current), parent);
}

TEST_F(Builder, PruneKeepsAnItemWithChildren) {
  CDMCOBOLRecordItem* current = make();
  make(current);
  EXPECT_EQ(builder->prune(at("a"), current), current);
}

TEST_F(Builder, PruneOnlyUnlinksADerivedItem) {
  CDMCOBOLRecordItem* parent = make();
  CDMCOBOLRecordItem* current = make(parent);
  current->derivationKind = DerivationKind::complexContent;
  EXPECT_EQ(builder->prune(at("a"), current), current);
  EXPECT_THAT(parent->children, IsEmpty());
  EXPECT_NE(builder->store().create(), current) << "not released";
}

TEST_F(Builder, PruneOfNothingIsNothing) {
  EXPECT_EQ(builder->prune(at("a"), nullptr), nullptr);
}

TEST_F(Builder, NamesComeFromTheDeclaration) {
  CDMCOBOLRecordItem* item = make();
  builder->setNames(item, at("e"), "my_name");
  EXPECT_EQ(item->schemaElement, at("e"));
  EXPECT_EQ(item->dataName, "my-name");
  EXPECT_EQ(item->identifiedBy, "my_name");
  EXPECT_EQ(item->countInName, "my-name-count");
}

TEST_F(Builder, NamesOfAReferenceKeepItsPrefix) {
  CDMCOBOLRecordItem* item = make();
  builder->setReferenceNames(item, "t:my_name");
  EXPECT_EQ(item->dataName, "t:my-name");
  EXPECT_EQ(item->identifiedBy, "t:my_name");
  EXPECT_EQ(item->xmlName, "t:my_name");
  EXPECT_EQ(item->countInName, "");
}

TEST_F(Builder, NamespaceIsThatOfTheElementOrEmpty) {
  CDMCOBOLRecordItem* item = make();
  builder->setElementNamespace(item, at("e"));
  EXPECT_EQ(item->xmlNamespace, "urn:a");
  builder->setElementNamespace(item, nullptr);
  EXPECT_EQ(item->xmlNamespace, "");
}

TEST_F(Builder, BuiltinPictureHasTheDefaultSize) {
  struct {
    char const* type;
    char const* symbol;
    char const* size;
  } const kPictures[] = {
      {"xs:string", "X", "80"}, {"xs:int", "S9", "18"}, {"xs:decimal", "S9", "9"}};
  for (auto const& [type, symbol, size] : kPictures) {
    CDMCOBOLRecordItem* item = make();
    item->schemaElement = at("e");
    builder->setBuiltinPicture(item, type);
    EXPECT_EQ(item->pictureSymbol, symbol) << type;
    EXPECT_EQ(item->pictureSize, size) << type;
  }
}

TEST_F(Builder, BuiltinPictureKeepsASizeThatIsThere) {
  CDMCOBOLRecordItem* item = make();
  item->schemaElement = at("e");
  item->pictureSize = "5";
  builder->setBuiltinPicture(item, "xs:string");
  EXPECT_EQ(item->pictureSize, "5");
}

/// A decimal item with a picture, at level 2 and indent 8.
class ValueItem : public Builder {
 protected:
  ValueItem() {
    item->levelNumber = 2;
    item->indent = 8;
    item->dataName = "price";
    item->pictureSymbol = "S9";
    item->pictureSize = "9";
    item->hasDecimal = true;
    item->totalDigits = 7;
    item->usage = "COMP-1";
  }

  CDMCOBOLRecordItem* item = make();
};

TEST_F(ValueItem, TakesThePictureAndNothingElse) {
  CDMCOBOLRecordItem const* value = builder->makeValueItem(item);
  EXPECT_EQ(value->dataName, "price-value");
  EXPECT_EQ(value->levelNumber, 3);
  EXPECT_EQ(value->indent, 9);
  EXPECT_EQ(value->parent, item);
  EXPECT_EQ(value->pictureSymbol, "S9");
  EXPECT_EQ(value->pictureSize, "9");
  EXPECT_FALSE(value->hasDecimal);
  EXPECT_EQ(value->totalDigits, -1);
  EXPECT_EQ(value->usage, "");
  EXPECT_EQ(item->pictureSymbol, "");
  EXPECT_EQ(item->pictureSize, "");
  EXPECT_TRUE(item->hasDecimal);
  EXPECT_THAT(item->children, IsEmpty());
}

TEST_F(ValueItem, BecomesTheFirstChildOfAGroup) {
  CDMCOBOLRecordItem* child = make(item);
  builder->moveValueToChild(at("e"), item);
  ASSERT_EQ(item->children.size(), 2U);
  EXPECT_EQ(item->children[0]->dataName, "price-value");
  EXPECT_EQ(item->children[1], child);
}

TEST_F(ValueItem, IsNotMadeWithoutChildren) {
  builder->moveValueToChild(at("e"), item);
  EXPECT_THAT(item->children, IsEmpty());
  EXPECT_EQ(item->pictureSymbol, "S9");
}

TEST_F(ValueItem, IsNotMadeForAnAttribute) {
  make(item);
  item->isAttribute = true;
  builder->moveValueToChild(at("e"), item);
  EXPECT_EQ(item->children.size(), 1U);
}

TEST_F(ValueItem, IsNotMadeIfAConditionNameComesFirst) {
  make(item)->levelNumber = kConditionLevel;
  make(item);
  builder->moveValueToChild(at("e"), item);
  EXPECT_EQ(item->children.size(), 2U);
}

TEST_F(ValueItem, IsNotMadeWithoutAPicture) {
  make(item);
  item->pictureSymbol = "";
  builder->moveValueToChild(at("e"), item);
  EXPECT_EQ(item->children.size(), 1U);
}

TEST_F(ValueItem, IsNotMadeForMixedContent) {
  make(item);
  builder->moveValueToChild(build(store, {"xs:element", {{"mixed", "true"}}}), item);
  EXPECT_EQ(item->children.size(), 1U);
  builder->moveValueToChild(build(store, {"xs:element", {{"mixed", "false"}}}), item);
  EXPECT_EQ(item->children.size(), 2U);
}

TEST_F(ValueItem, OfMixedContentHasNoPicture) {
  builder->addMixedValue(item);
  ASSERT_EQ(item->children.size(), 1U);
  CDMCOBOLRecordItem const* value = item->children.front();
  EXPECT_EQ(value->dataName, "price-mixed-value");
  EXPECT_EQ(value->levelNumber, 3);
  EXPECT_EQ(value->indent, 9);
  EXPECT_EQ(value->pictureSymbol, "");
  EXPECT_EQ(item->pictureSymbol, "S9");
}

}  // namespace
}  // namespace fdmorph
