// The condition names of a restriction, and their numbers.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "cobol/facets.h"
#include "support/record_fixture.h"

namespace fdmorph {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

class Enumeration : public RecordTest {
 protected:
  Enumeration() { restriction.name = "xs:restriction"; }

  void add(std::initializer_list<std::string_view> values) {
    EnumerationList list(item, &restriction, builder);
    for (std::string_view value : values) list.add(value);
  }

  /// The condition names with their values.
  std::vector<std::string> conditions() const {
    std::vector<std::string> result;
    for (CDMCOBOLRecordItem const* child : item->children) {
      if (child->levelNumber != kConditionLevel) continue;
      result.push_back(std::string(child->dataName) + "=" + std::string(child->itemValue));
    }
    return result;
  }

  CDMXMLElement restriction;
  CDMCOBOLRecordItem* item = makeField(nullptr, "color");
};

TEST_F(Enumeration, ValuesAreNumberedInOrder) {
  add({"RED", "BLUE", "GREEN"});
  EXPECT_THAT(conditions(),
              ElementsAre("enumerator-0=RED", "enumerator-1=BLUE", "enumerator-2=GREEN"));
}

TEST_F(Enumeration, ConditionIsAChildOfItsItem) {
  item->levelNumber = 5;
  item->indent = 11;
  add({"RED"});
  ASSERT_EQ(item->children.size(), 1U);
  CDMCOBOLRecordItem const* condition = item->children.front();
  EXPECT_EQ(condition->levelNumber, 88);
  EXPECT_EQ(condition->indent, 12);
  EXPECT_EQ(condition->parent, item);
  EXPECT_EQ(condition->pictureSymbol, "");
  EXPECT_EQ(condition->identifiedBy, "");
}

TEST_F(Enumeration, RepeatedValueHasOneCondition) {
  add({"A", "A"});
  EXPECT_THAT(conditions(), ElementsAre("enumerator-0=A"));
}

TEST_F(Enumeration, RepeatedValueRaisesTheNextNumberByItsPosition) {
  add({"A", "B", "B", "C"});
  EXPECT_THAT(conditions(), ElementsAre("enumerator-0=A", "enumerator-1=B", "enumerator-3=C"));
}

TEST_F(Enumeration, RepeatedFirstValueRaisesNothing) {
  add({"A", "A", "A", "B"});
  EXPECT_THAT(conditions(), ElementsAre("enumerator-0=A", "enumerator-1=B"));
}

TEST_F(Enumeration, RepetitionsAddUp) {
  add({"A", "B", "B", "B", "C", "D"});
  EXPECT_THAT(conditions(),
              ElementsAre("enumerator-0=A", "enumerator-1=B", "enumerator-4=C", "enumerator-3=D"));
}

TEST_F(Enumeration, OtherChildrenAddToTheNumber) {
  makeField(item, "color-value");
  add({"RED", "BLUE"});
  EXPECT_THAT(conditions(), ElementsAre("enumerator-1=RED", "enumerator-2=BLUE"));
}

TEST_F(Enumeration, ValuesAreComparedExactly) {
  add({"red", "RED", "red "});
  EXPECT_THAT(conditions(),
              ElementsAre("enumerator-0=red", "enumerator-1=RED", "enumerator-2=red "));
}

TEST_F(Enumeration, OfADerivedTypeReplacesTheOneOfItsBase) {
  add({"RED", "BLUE", "GREEN"});
  add({"GREEN", "RED"});
  EXPECT_THAT(conditions(), ElementsAre("enumerator-0=GREEN", "enumerator-1=RED"));
}

TEST_F(Enumeration, ValueItemOfTheBaseStaysFirstAndAddsToTheNumber) {
  add({"RED", "BLUE"});
  CDMCOBOLRecordItem* value = makeField(item, "color-value");
  add({"BLUE"});
  EXPECT_EQ(item->children.front(), value);
  EXPECT_THAT(conditions(), ElementsAre("enumerator-1=BLUE"));
}

TEST_F(Enumeration, WithoutValuesKeepsTheOneOfTheBase) {
  add({"RED"});
  add({});
  EXPECT_THAT(conditions(), ElementsAre("enumerator-0=RED"));
}

TEST_F(Enumeration, HolderOtherThanARestrictionKeepsTheConditions) {
  add({"RED", "BLUE"});
  restriction.name = "xs:simpleType";
  add({"BLUE", "GREEN"});
  EXPECT_THAT(conditions(),
              ElementsAre("enumerator-0=RED", "enumerator-1=BLUE", "enumerator-3=GREEN"));
}

TEST_F(Enumeration, EmptyValueIsAValue) {
  add({"", "A", ""});
  EXPECT_THAT(conditions(), ElementsAre("enumerator-0=", "enumerator-1=A"));
}

TEST_F(Enumeration, ReplacedConditionsAreReleasedOnce) {
  add({"RED", "BLUE"});
  add({"GREEN"});
  EXPECT_THAT((std::set{item->children.front(), store.create(), store.create()}), SizeIs(3));
}

}  // namespace
}  // namespace fdmorph
