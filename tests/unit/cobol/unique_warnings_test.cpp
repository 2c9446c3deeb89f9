// Each item searches its name in a walk over the record from the root, each
// further try in a walk of its own, and each walk warns about the items
// without content that it passes: up to the holder of the name, or else up to
// the item itself. So does the attempt to write an item without content.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/record_fixture.h"
#include "text/console.h"

namespace fdmorph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class UniqueWarnings : public RecordTest {
 protected:
  UniqueWarnings() { options.uniqueNames = true; }

  /// The items without content that the output warns about, in order.
  std::vector<std::string> warnings() {
    write(root, options);
    std::vector<std::string> names;
    std::istringstream lines(captured.err());
    for (std::string line; std::getline(lines, line);) {
      std::size_t quote = line.find('"');
      names.push_back(line.substr(quote + 1, line.rfind('"') - quote - 1));
      EXPECT_EQ(line, "Warning : Unable to convert schema element \"" + names.back() +
                          "\" to COBOL (empty structure)");
    }
    EXPECT_EQ(console.m_nWarningCount, static_cast<int>(names.size()));
    return names;
  }

  RecordOutput::Options options;
  CDMCOBOLRecordItem* root = makeGroup(nullptr, "R");
};

TEST_F(UniqueWarnings, WithoutTheFlagThereIsOneForEachItem) {
  options.uniqueNames = false;
  makeGroup(root, "E");
  makeField(root, "A");
  makeField(root, "A");
  makeGroup(root, "F");
  EXPECT_THAT(warnings(), ElementsAre("E", "F"));
}

// Writing E; A searches itself; the second A finds the first, and tries A-1.
TEST_F(UniqueWarnings, EachTryPassesThePrecedingItems) {
  makeGroup(root, "E");
  makeField(root, "A");
  makeField(root, "A");
  EXPECT_THAT(warnings(), ElementsAre("E", "E", "E", "E"));
}

// Writing E; the second A stops at the first, before E; A-1 passes E.
TEST_F(UniqueWarnings, WalkEndsAtTheHolderOfTheName) {
  makeField(root, "A");
  makeGroup(root, "E");
  makeField(root, "A");
  EXPECT_THAT(warnings(), ElementsAre("E", "E"));
}

TEST_F(UniqueWarnings, WalkEndsAtTheItemItself) {
  makeField(root, "A");
  makeField(root, "A");
  makeGroup(root, "E");
  EXPECT_THAT(warnings(), ElementsAre("E"));
}

TEST_F(UniqueWarnings, WalkKeepsTheOrderOfTheItems) {
  makeGroup(root, "E");
  makeGroup(root, "F");
  makeField(root, "A");
  EXPECT_THAT(warnings(), ElementsAre("E", "F", "E", "F"));
}

// Writing E; A's walk; A-1's walk; then A, A-1 and A-2 are tried.
TEST_F(UniqueWarnings, EveryFailedNumberIsATry) {
  makeGroup(root, "E");
  makeField(root, "A");
  makeField(root, "A-1");
  makeField(root, "A");
  EXPECT_THAT(warnings(), ElementsAre("E", "E", "E", "E", "E", "E"));
}

TEST_F(UniqueWarnings, TriesWithItemsBeforeAndBetweenTheHolders) {
  makeGroup(root, "E");
  makeField(root, "A");
  makeGroup(root, "F");
  makeField(root, "A");
  makeField(root, "A");
  EXPECT_THAT(warnings(), ElementsAre("E",         // written
                                      "E",         // A, found free
                                      "F",         // written
                                      "E",         // second A: A is taken
                                      "E", "F",    // A-1 is free
                                      "E",         // third A: A is taken
                                      "E", "F",    // A-1 is taken
                                      "E", "F"));  // A-2 is free
}

// Nothing precedes B but E: it is written, then passed by B and by A.
TEST_F(UniqueWarnings, WalkGoesIntoGroups) {
  CDMCOBOLRecordItem* group = makeGroup(root, "G");
  makeGroup(group, "E");
  makeField(group, "B");
  makeField(root, "A");
  EXPECT_THAT(warnings(), ElementsAre("E", "E", "E"));
}

TEST_F(UniqueWarnings, WalkStopsInsideAGroupThatHoldsTheName) {
  CDMCOBOLRecordItem* group = makeGroup(root, "G");
  makeField(group, "A");
  makeGroup(group, "E");
  makeField(root, "A");
  EXPECT_THAT(warnings(), ElementsAre("E", "E"));
}

TEST_F(UniqueWarnings, GroupThatHoldsTheNameEndsTheWalkBeforeItsContent) {
  CDMCOBOLRecordItem* group = makeGroup(root, "A");
  makeGroup(group, "E");
  makeField(root, "A");
  EXPECT_THAT(warnings(), ElementsAre("E", "E"));
}

// The size alone makes H unwritable; what is below it is skipped.
TEST_F(UniqueWarnings, WalkSkipsEverythingBelowAnUnwritableItem) {
  CDMCOBOLRecordItem* unwritable = makeGroup(root, "H");
  unwritable->pictureSize = "5";
  makeGroup(unwritable, "E");
  makeField(root, "A");
  EXPECT_THAT(warnings(), ElementsAre("H", "H"));
}

TEST_F(UniqueWarnings, SilentlyUnwritableItemsStaySilent) {
  CDMCOBOLRecordItem* tooDeep = makeGroup(root, "E");
  tooDeep->levelNumber = 50;
  makeCondition(makeField(root, "B"), "enumerator-0", "");
  makeField(root, "A");
  makeField(root, "A");
  EXPECT_THAT(warnings(), IsEmpty());
}

TEST_F(UniqueWarnings, ItemWithTwoPlacesIsPassedTwice) {
  root->addChild(makeGroup(root, "E"));
  makeField(root, "A");
  EXPECT_THAT(warnings(), ElementsAre("E", "E", "E", "E"));
}

// The second writing of M finds the first place of M, before E.
TEST_F(UniqueWarnings, SecondWritingOfAnItemWalksToItsFirstPlace) {
  CDMCOBOLRecordItem* member = makeField(root, "M");
  makeGroup(root, "E");
  root->addChild(member);
  EXPECT_THAT(warnings(), ElementsAre("E"));
}

TEST_F(UniqueWarnings, RootPassesNothing) {
  makeGroup(root, "E");
  EXPECT_THAT(warnings(), ElementsAre("E"));
}

TEST_F(UniqueWarnings, EmptyRootWarnsOnce) {
  EXPECT_THAT(warnings(), ElementsAre("R"));
}

TEST_F(UniqueWarnings, GrowWithTheNamesThatAreTried) {
  makeField(root, "A");
  makeField(root, "A");
  for (int i = 0; i < 3; ++i) {
    makeGroup(root, "E");
    for (int j = 0; j < 3; ++j) makeField(root, "A");
  }
  makeField(root, "A-4");
  makeField(root, "A");
  // A and A-1 come before all E: trying them prints nothing. Each E is reported
  // once itself. After the first E, A-2, A-3 and A-4 are made; after the second
  // A-5 to A-7, after the third A-8 to A-10. A try of a name that is held passes
  // the E before its holder, and the try that succeeds all E so far.
  std::size_t const afterFirst = 1 + 1 + (1 + 1) + (2 + 1);
  std::size_t const afterSecond = 1 + (3 + 2) + (3 + 2 + 2) + (3 + 4 + 2);
  std::size_t const afterThird = 1 + (3 + 6 + 3) + (3 + 6 + 3 + 3) + (3 + 6 + 6 + 3);
  std::size_t const heldName = 1 + 3;          // A-4, then A-4-1
  std::size_t const lastName = 3 + 6 + 9 + 3;  // up to A-11
  EXPECT_EQ(warnings().size(), afterFirst + afterSecond + afterThird + heldName + lastName);
}

// The record of the test before, in runs that show fewer messages.
TEST_F(UniqueWarnings, HiddenOnesLeaveCountsAndNamesAsTheyAre) {
  for (int shown : {0, 1, 5, 20, 60}) {
    console.m_nWarningCount = 0;
    console.maxShownMessages = shown;
    CDMCOBOLRecordItem* record = makeGroup(nullptr, "R");
    makeField(record, "A");
    makeField(record, "A");
    for (int i = 0; i < 3; ++i) {
      makeGroup(record, "E");
      for (int j = 0; j < 3; ++j) makeField(record, "A");
    }
    makeField(record, "A-4");
    makeField(record, "A");
    write(record, options);
    EXPECT_EQ(console.m_nWarningCount, 100 + 1) << "the notice is one more; shown: " << shown;
    EXPECT_EQ(record->children.back()->dataName, "A-11");
    EXPECT_EQ(record->children[record->children.size() - 2]->dataName, "A-4-1");
  }
}

}  // namespace
}  // namespace fdmorph
