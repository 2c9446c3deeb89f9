// Names made unique within a record.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/record_fixture.h"

namespace fdmorph {
namespace {

using testing::ElementsAre;

class Unique : public RecordTest {
 protected:
  Unique() { options.uniqueNames = true; }

  /// The names after the record was written, in the order of the items.
  std::vector<std::string_view> names() {
    text = write(root, options);
    std::vector<std::string_view> result;
    collect(root, result);
    return result;
  }

  static void collect(CDMCOBOLRecordItem const* item, std::vector<std::string_view>& result) {
    result.push_back(item->dataName);
    for (CDMCOBOLRecordItem const* child : item->children) collect(child, result);
  }

  RecordOutput::Options options;
  CDMCOBOLRecordItem* root = makeGroup(nullptr, "R");
  std::string text;
};

TEST_F(Unique, EqualNamesAreNumberedFromTheSecondOn) {
  for (int i = 0; i < 3; ++i) makeField(root, "A");
  EXPECT_THAT(names(), ElementsAre("R", "A", "A-1", "A-2"));
}

TEST_F(Unique, CountFieldsFollowTheNames) {
  for (int i = 0; i < 3; ++i) makeField(root, "A");
  names();
  EXPECT_EQ(text,
            "       01 R count in R-count.\n"
            "        02 A PIC X(80) count in A-count.\n"
            "        02 A-1 PIC X(80) count in A-1-count.\n"
            "        02 A-2 PIC X(80) count in A-2-count.\n");
}

TEST_F(Unique, CountFieldsAreNamedEvenWithoutACollision) {
  CDMCOBOLRecordItem* a = makeField(root, "A");
  a->countInName = "other";
  names();
  EXPECT_EQ(a->countInName, "A-count");
}

TEST_F(Unique, CountFieldsNeedTheirFlag) {
  options.countIn = false;
  makeField(root, "A");
  makeField(root, "A");
  names();
  EXPECT_EQ(text,
            "       01 R.\n"
            "        02 A PIC X(80).\n"
            "        02 A-1 PIC X(80).\n");
}

TEST_F(Unique, TakenNumberIsSkipped) {
  makeField(root, "A-1");
  makeField(root, "A");
  makeField(root, "A");
  EXPECT_THAT(names(), ElementsAre("R", "A-1", "A", "A-2"));
}

TEST_F(Unique, LaterNameYieldsToAMadeName) {
  makeField(root, "A");
  makeField(root, "A");
  makeField(root, "A-1");
  EXPECT_THAT(names(), ElementsAre("R", "A", "A-1", "A-1-1"));
}

TEST_F(Unique, ComparisonIsCaseSensitive) {
  makeField(root, "A");
  makeField(root, "a");
  EXPECT_THAT(names(), ElementsAre("R", "A", "a"));
}

TEST_F(Unique, NameOfTheRootIsNotCompared) {
  makeField(root, "R");
  makeField(root, "R");
  EXPECT_THAT(names(), ElementsAre("R", "R", "R-1"));
}

TEST_F(Unique, NamesAreComparedOverTheWholeRecord) {
  CDMCOBOLRecordItem* group = makeGroup(root, "G");
  makeField(group, "A");
  makeField(root, "A");
  CDMCOBOLRecordItem* other = makeGroup(root, "G");
  makeField(other, "G-1");
  EXPECT_THAT(names(), ElementsAre("R", "G", "A", "A-1", "G-1", "G-1-1"));
}

TEST_F(Unique, ItemIsComparedWithItsGroup) {
  CDMCOBOLRecordItem* group = makeGroup(root, "A");
  makeField(group, "A");
  EXPECT_THAT(names(), ElementsAre("R", "A", "A-1"));
}

TEST_F(Unique, ConditionNamesTakePart) {
  for (char const* name : {"color", "size"}) {
    CDMCOBOLRecordItem* item = makeField(root, name);
    makeCondition(item, "enumerator-0", "x");
  }
  EXPECT_THAT(names(), ElementsAre("R", "color", "enumerator-0", "size", "enumerator-0-1"));
}

TEST_F(Unique, PrefixIsNotCompared) {
  options.prefix = "W-";
  makeField(root, "A");
  makeField(root, "W-A");
  EXPECT_THAT(names(), ElementsAre("R", "A", "W-A"));
}

TEST_F(Unique, UnwritableItemHoldsNoName) {
  makeGroup(root, "A");
  makeField(root, "A");
  EXPECT_THAT(names(), ElementsAre("R", "A", "A"));
}

TEST_F(Unique, NothingBelowAnUnwritableItemHoldsAName) {
  CDMCOBOLRecordItem* tooDeep = makeGroup(root, "G");
  makeField(tooDeep, "A");
  tooDeep->levelNumber = 50;
  makeField(root, "A");
  EXPECT_THAT(names(), ElementsAre("R", "G", "A", "A"));
}

TEST_F(Unique, ItemWithTwoPlacesKeepsItsName) {
  root->addChild(makeField(root, "A"));
  makeField(root, "A");
  EXPECT_THAT(names(), ElementsAre("R", "A", "A", "A-1"));
  EXPECT_EQ(countOf("02 A PIC", text), 2);
}

TEST_F(Unique, RedefinesFollowsTheNewName) {
  makeField(root, "A");
  CDMCOBOLRecordItem* first = makeField(root, "A");
  makeField(root, "B")->redefinedItem = first;
  names();
  EXPECT_EQ(countOf("02 B redefines A-1 PIC", text), 1);
}

TEST_F(Unique, EachRecordHasItsOwnNames) {
  makeField(root, "A");
  names();
  root = makeGroup(nullptr, "R");
  makeField(root, "A");
  EXPECT_THAT(names(), ElementsAre("R", "A"));
}

TEST_F(Unique, ManyEqualNamesAreNumberedInOrder) {
  constexpr int kMany = 3000;
  for (int i = 0; i <= kMany; ++i) makeField(root, "A");
  EXPECT_EQ(names().back(), "A-" + std::to_string(kMany));
}

TEST_F(Unique, WithoutTheFlagNamesRepeat) {
  options.uniqueNames = false;
  makeField(root, "A");
  makeField(root, "A");
  EXPECT_THAT(names(), ElementsAre("R", "A", "A"));
  EXPECT_EQ(root->countInName, "");
}

}  // namespace
}  // namespace fdmorph
