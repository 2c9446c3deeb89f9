// Children of record items.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cobol/DMCOBOLRecordItem.h"

namespace fdmorph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Children : public testing::Test {
 protected:
  Children() { red.levelNumber = blue.levelNumber = kConditionLevel; }

  CDMCOBOLRecordItem parent;
  CDMCOBOLRecordItem a;
  CDMCOBOLRecordItem b;
  CDMCOBOLRecordItem c;
  CDMCOBOLRecordItem red;
  CDMCOBOLRecordItem blue;
};

TEST_F(Children, CanBeAddedAtTheBackAndAtTheFront) {
  parent.addChild(&a);
  parent.addChild(&b);
  parent.addFirstChild(&c);
  EXPECT_THAT(parent.children, ElementsAre(&c, &a, &b));
}

TEST_F(Children, AddingLeavesTheParentToTheCaller) {
  parent.addChild(&a);
  EXPECT_EQ(a.parent, nullptr);
}

TEST_F(Children, RemovalRemovesEveryEntry) {
  parent.addChild(&a);
  parent.addChild(&b);
  parent.addChild(&a);
  parent.removeChild(&a);
  EXPECT_THAT(parent.children, ElementsAre(&b));
}

TEST_F(Children, RemovalKeepsTheOrderOfTheRest) {
  for (auto* child : {&a, &b, &c}) parent.addChild(child);
  parent.removeChild(&b);
  EXPECT_THAT(parent.children, ElementsAre(&a, &c));
}

TEST_F(Children, RemovalLeavesTheParentLink) {
  a.parent = &parent;
  parent.addChild(&a);
  parent.removeChild(&a);
  EXPECT_EQ(a.parent, &parent);
}

TEST_F(Children, RemovalOfAMissingItemChangesNothing) {
  parent.addChild(&a);
  parent.removeChild(&b);
  EXPECT_THAT(parent.children, ElementsAre(&a));
}

TEST_F(Children, RemovedItemCanBeAddedAgain) {
  parent.addChild(&a);
  parent.removeChild(&a);
  parent.addChild(&a);
  parent.removeChild(&a);
  EXPECT_THAT(parent.children, IsEmpty());
}

TEST_F(Children, NullEntriesStayInPlace) {
  parent.addChild(nullptr);
  parent.addChild(&a);
  parent.removeChild(&a);
  EXPECT_THAT(parent.children, ElementsAre(nullptr));
  EXPECT_THAT(parent.removeConditions(), IsEmpty());
}

TEST_F(Children, ConditionsAreRemovedInOrder) {
  for (auto* child : {&a, &red, &b, &blue}) parent.addChild(child);
  EXPECT_THAT(parent.removeConditions(), ElementsAre(&red, &blue));
  EXPECT_THAT(parent.children, ElementsAre(&a, &b));
}

TEST_F(Children, WithoutConditionsNothingIsRemoved) {
  parent.addChild(&a);
  EXPECT_THAT(parent.removeConditions(), IsEmpty());
  EXPECT_THAT(parent.children, ElementsAre(&a));
}

}  // namespace
}  // namespace fdmorph
