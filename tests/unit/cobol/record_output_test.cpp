// Trees of items.

#include <gtest/gtest.h>

#include "support/fixed_format.h"
#include "support/record_fixture.h"

namespace fdmorph {
namespace {

class Record : public RecordTest {
 protected:
  CDMCOBOLRecordItem* root = makeGroup(nullptr, "r");
};

TEST_F(Record, IsWrittenFromTheTopDown) {
  CDMCOBOLRecordItem* group = makeGroup(root, "g");
  makeField(group, "a");
  makeField(group, "b");
  makeField(root, "c");
  EXPECT_EQ(write(root),
            "       01 r.\n"
            "        02 g.\n"
            "         03 a PIC X(80).\n"
            "         03 b PIC X(80).\n"
            "        02 c PIC X(80).\n");
  EXPECT_TRUE(isWritten);
}

TEST_F(Record, NullRecordIsNotWritten) {
  EXPECT_EQ(write(nullptr), "");
  EXPECT_FALSE(isWritten);
}

TEST_F(Record, WithAnEmptyRootIsNotWritten) {
  EXPECT_EQ(write(root), "");
  EXPECT_FALSE(isWritten);
  EXPECT_EQ(captured.err(),
            "Warning : Unable to convert schema element \"r\" to COBOL (empty structure)\n");
}

TEST_F(Record, LeavesOutAnUnwritableItemWithItsSubtree) {
  CDMCOBOLRecordItem* nameless = makeGroup(root, "");
  makeField(nameless, "a");
  makeField(root, "b");
  EXPECT_EQ(write(root),
            "       01 r.\n"
            "        02 b PIC X(80).\n");
  EXPECT_TRUE(isWritten);
  EXPECT_EQ(captured.err(), "");
}

TEST_F(Record, IsWrittenIfItsRootIs) {
  makeGroup(root, "empty");
  EXPECT_EQ(write(root), "       01 r.\n");
  EXPECT_TRUE(isWritten);
  EXPECT_EQ(countOf("(empty structure)", captured.err()), 1);
}

TEST_F(Record, SkipsNullEntries) {
  root->addChild(nullptr);
  makeField(root, "a");
  EXPECT_EQ(write(root),
            "       01 r.\n"
            "        02 a PIC X(80).\n");
}

TEST_F(Record, WritesAnItemWithTwoPlacesTwice) {
  root->addChild(makeField(root, "a"));
  EXPECT_EQ(write(root),
            "       01 r.\n"
            "        02 a PIC X(80).\n"
            "        02 a PIC X(80).\n");
}

TEST_F(Record, EndsAtLevel49) {
  CDMCOBOLRecordItem* group = root;
  while (group->levelNumber < 49) group = makeGroup(group, "g");
  makeField(group, "too-deep");
  std::string const text = write(root);
  EXPECT_TRUE(isWritten);
  EXPECT_EQ(countOf("\n", text), 49);
  EXPECT_EQ(countOf("49 g.", text), 1);
  EXPECT_EQ(countOf("too-deep", text), 0);
  EXPECT_EQ(captured.err(), "");
}

TEST_F(Record, ConditionsFollowTheirItem) {
  CDMCOBOLRecordItem* color = makeField(root, "color");
  makeCondition(color, "enumerator-0", "RED");
  makeCondition(color, "enumerator-1", "BLUE");
  EXPECT_EQ(write(root),
            "       01 r.\n"
            "        02 color PIC X(80).\n"
            "         88 enumerator-0 value is \"RED\".\n"
            "         88 enumerator-1 value is \"BLUE\".\n");
}

TEST_F(Record, ConditionWithoutAValueIsLeftOutSilently) {
  CDMCOBOLRecordItem* color = makeField(root, "color");
  makeCondition(color, "enumerator-0", "");
  EXPECT_EQ(write(root),
            "       01 r.\n"
            "        02 color PIC X(80).\n");
  EXPECT_EQ(captured.err(), "");
}

TEST_F(Record, UnionMembersRedefineTheOneBefore) {
  CDMCOBOLRecordItem* first = makeGroup(root, "r-union-value-0");
  makeField(first, "r-union-value-0-data");
  CDMCOBOLRecordItem* second = makeGroup(root, "r-union-value-1");
  makeField(second, "r-union-value-1-data");
  second->redefinedItem = first;
  RecordOutput::Options options;
  options.prefix = "WS-";
  EXPECT_EQ(write(root, options),
            "       01 WS-r.\n"
            "        02 WS-r-union-value-0.\n"
            "         03 WS-r-union-value-0-data PIC X(80).\n"
            "        02 WS-r-union-value-1 redefines r-union-value-0.\n"
            "         03 WS-r-union-value-1-data PIC X(80).\n");
}

}  // namespace
}  // namespace fdmorph
