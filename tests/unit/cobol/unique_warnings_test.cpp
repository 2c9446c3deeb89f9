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

}  // namespace
}  // namespace fdmorph
