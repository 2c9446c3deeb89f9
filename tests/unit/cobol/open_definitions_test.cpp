// Hops that would repeat themselves for ever.

#include <gtest/gtest.h>

#include <deque>

#include "cobol/record_builder.h"
#include "cobol/recursion.h"
#include "support/query_fixture.h"

namespace fdmorph {
namespace {

using Scope = OpenDefinitions::Scope;

class OpenDefinitionsTest : public QueryTest {
 protected:
  OpenDefinitionsTest() {
    use(schema({component("complexType", "T"), component("complexType", "U"), element("g")}));
    type = at("T");
    other = at("U");
  }

  /// An item made from no element, below `parent`.
  CDMCOBOLRecordItem* itemBelow(CDMCOBOLRecordItem* parent) {
    CDMCOBOLRecordItem* item = items.create();
    item->parent = parent;
    if (parent != nullptr) parent->addChild(item);
    return item;
  }

  bool mayFollow(CDMXMLElement const* definition, CDMCOBOLRecordItem const* item = nullptr) const {
    return open.mayFollow(definition, Hop::unguarded, item);
  }

  OpenDefinitions open;
  RecordStore items;
  CDMXMLElement const* type;
  CDMXMLElement const* other;
};

TEST_F(OpenDefinitionsTest, ClosedDefinitionCanBeEntered) {
  EXPECT_TRUE(mayFollow(type));
}

// The unguarded hops.

TEST_F(OpenDefinitionsTest, OpenDefinitionCannotBeEnteredAgain) {
  Scope scope(open, type, Hop::unguarded, nullptr);
  EXPECT_FALSE(mayFollow(type, itemBelow(nullptr)));
  EXPECT_TRUE(mayFollow(other, itemBelow(nullptr)));
}

TEST_F(OpenDefinitionsTest, DefinitionOpenedByAGuardedHopCannotBeEnteredAgainEither) {
  Scope scope(open, type, Hop::guarded, nullptr);
  EXPECT_FALSE(mayFollow(type, itemBelow(nullptr)));
}

TEST_F(OpenDefinitionsTest, UnguardedHopsInBetweenChangeNothing) {
  Scope scope(open, type, Hop::unguarded, nullptr);
  Scope inner(open, other, Hop::unguarded, nullptr);
  EXPECT_FALSE(mayFollow(type, itemBelow(nullptr)));
}

TEST_F(OpenDefinitionsTest, GuardedHopInBetweenAllowsAnotherHop) {
  Scope scope(open, type, Hop::unguarded, nullptr);
  Scope inner(open, other, Hop::guarded, itemBelow(nullptr));
  EXPECT_TRUE(mayFollow(type, itemBelow(nullptr)));
  EXPECT_FALSE(mayFollow(other, itemBelow(nullptr)));
}

TEST_F(OpenDefinitionsTest, HopIsRefusedAgainAfterTheGuardedHop) {
  Scope scope(open, type, Hop::unguarded, nullptr);
  { Scope inner(open, other, Hop::guarded, nullptr); }
  EXPECT_FALSE(mayFollow(type, itemBelow(nullptr)));
}

TEST_F(OpenDefinitionsTest, DefinitionIsClosedWhenItsScopeEnds) {
  { Scope scope(open, type, Hop::unguarded, nullptr); }
  { Scope scope(open, type, Hop::guarded, nullptr); }
  EXPECT_TRUE(mayFollow(type));
}

TEST_F(OpenDefinitionsTest, LastOpeningOfADefinitionCounts) {
  CDMCOBOLRecordItem* item = itemBelow(nullptr);
  item->derivationKind = DerivationKind::complexContent;
  Scope scope(open, type, Hop::unguarded, nullptr);
  Scope between(open, other, Hop::guarded, nullptr);
  {
    Scope again(open, type, Hop::unguarded, itemBelow(nullptr));
    EXPECT_FALSE(mayFollow(type, item));
  }
  EXPECT_TRUE(mayFollow(type, item));
}

// All hops: the state of the walk.

TEST_F(OpenDefinitionsTest, SameItemInTheSameStateIsARepetition) {
  CDMCOBOLRecordItem* item = itemBelow(nullptr);
  Scope scope(open, type, Hop::guarded, item);
  EXPECT_FALSE(open.mayFollow(type, Hop::guarded, item));
}

TEST_F(OpenDefinitionsTest, SameItemInAnotherStateIsNone) {
  CDMCOBOLRecordItem* item = itemBelow(nullptr);
  Scope scope(open, type, Hop::guarded, item);
  item->derivationKind = DerivationKind::simpleContent;
  EXPECT_TRUE(open.mayFollow(type, Hop::guarded, item));
  item->derivationKind = DerivationKind::none;
  item->typeElement = at("T");
  EXPECT_TRUE(open.mayFollow(type, Hop::guarded, item));
  item->typeElement = nullptr;
  item->schemaElement = at("g");
  EXPECT_TRUE(open.mayFollow(type, Hop::guarded, item));
  item->schemaElement = nullptr;
  itemBelow(item);
  EXPECT_TRUE(open.mayFollow(type, Hop::guarded, item));
}

TEST_F(OpenDefinitionsTest, NoItemTwiceIsARepetition) {
  Scope scope(open, type, Hop::guarded, nullptr);
  EXPECT_FALSE(open.mayFollow(type, Hop::guarded, nullptr));
  EXPECT_TRUE(open.mayFollow(type, Hop::guarded, itemBelow(nullptr)));
}

TEST_F(OpenDefinitionsTest, ItemBelowIsARepetitionUnlessSomethingNewIsOpenAboveIt) {
  CDMCOBOLRecordItem* top = itemBelow(nullptr);
  Scope scope(open, type, Hop::guarded, top);
  CDMCOBOLRecordItem* below = itemBelow(itemBelow(top));
  EXPECT_FALSE(open.mayFollow(type, Hop::guarded, below));
  below->parent->typeElement = at("U");
  EXPECT_TRUE(open.mayFollow(type, Hop::guarded, below)) << "U would be refused now";
  below->parent->typeElement = nullptr;
  below->parent->schemaElement = at("g");
  EXPECT_TRUE(open.mayFollow(type, Hop::guarded, below)) << "g would be refused now";
}

TEST_F(OpenDefinitionsTest, WhatWasOpenBeforeIsNotNew) {
  CDMCOBOLRecordItem* root = itemBelow(nullptr);
  root->typeElement = at("U");
  CDMCOBOLRecordItem* top = itemBelow(root);
  Scope scope(open, type, Hop::guarded, top);
  CDMCOBOLRecordItem* below = itemBelow(itemBelow(top));
  below->parent->typeElement = at("U");
  EXPECT_FALSE(open.mayFollow(type, Hop::guarded, below));
}

TEST_F(OpenDefinitionsTest, InlineTypesAndLocalElementsAreNeverReferredTo) {
  use(schema({element("g", {}, {sequenceType({element("local")})})}));
  CDMCOBOLRecordItem* top = itemBelow(nullptr);
  Scope scope(open, at("g"), Hop::guarded, top);
  CDMCOBOLRecordItem* below = itemBelow(itemBelow(top));
  below->parent->typeElement = at("g")->getFirstChildElem();
  below->parent->schemaElement = at("local");
  EXPECT_FALSE(open.mayFollow(at("g"), Hop::guarded, below));
}

TEST_F(OpenDefinitionsTest, ItemInThePlaceOfARemovedOneIsARepetition) {
  CDMCOBOLRecordItem* root = itemBelow(nullptr);
  CDMCOBOLRecordItem* removed = itemBelow(root);
  Scope scope(open, type, Hop::guarded, removed);
  root->removeChild(removed);
  items.release(removed);
  CDMCOBOLRecordItem* next = itemBelow(root);
  EXPECT_EQ(next, removed) << "the store uses it again";
  EXPECT_FALSE(open.mayFollow(type, Hop::guarded, next));
  itemBelow(root);
  EXPECT_TRUE(open.mayFollow(type, Hop::guarded, next)) << "the parent is no longer empty";
}

TEST_F(OpenDefinitionsTest, ItemElsewhereIsNoRepetition) {
  CDMCOBOLRecordItem* root = itemBelow(nullptr);
  Scope scope(open, type, Hop::guarded, itemBelow(root));
  EXPECT_TRUE(open.mayFollow(type, Hop::guarded, itemBelow(itemBelow(root))));
}

TEST_F(OpenDefinitionsTest, ItemBelowOthersThatAreLikeTheRemovedOnesIsARepetition) {
  CDMCOBOLRecordItem* removed = itemBelow(nullptr);
  removed->typeElement = at("U");
  Scope scope(open, type, Hop::guarded, itemBelow(removed));
  items.release(removed);
  CDMCOBOLRecordItem* next = itemBelow(nullptr);
  CDMCOBOLRecordItem* below = itemBelow(next);
  EXPECT_TRUE(open.mayFollow(type, Hop::guarded, below));
  next->typeElement = at("U");
  EXPECT_FALSE(open.mayFollow(type, Hop::guarded, below));
}

TEST_F(OpenDefinitionsTest, AnyOfTheOpeningsCanBeRepeated) {
  CDMCOBOLRecordItem* top = itemBelow(nullptr);
  Scope first(open, type, Hop::guarded, top);
  CDMCOBOLRecordItem* middle = itemBelow(top);
  middle->derivationKind = DerivationKind::simpleContent;
  Scope second(open, type, Hop::guarded, middle);
  EXPECT_FALSE(open.mayFollow(type, Hop::guarded, itemBelow(middle)));
}

TEST_F(OpenDefinitionsTest, MemberOpenedSinceMakesADifference) {
  CDMCOBOLRecordItem* item = itemBelow(nullptr);
  Scope scope(open, type, Hop::guarded, item);
  EXPECT_TRUE(open.openMember(other));
  EXPECT_TRUE(open.mayFollow(type, Hop::guarded, item));
  open.closeMember(other);
  EXPECT_FALSE(open.mayFollow(type, Hop::guarded, item));
}

// Whatever the items look like.

TEST_F(OpenDefinitionsTest, ChainHasALimitOfHopsIntoOpenDefinitions) {
  std::deque<Scope> chain;
  std::deque<CDMXMLElement> types;  // another one for each item: no repetition
  CDMCOBOLRecordItem* item = nullptr;
  for (unsigned opened = 0; opened <= OpenDefinitions::kMaxReopened; ++opened) {
    item = itemBelow(item);
    item->typeElement = &types.emplace_back();
    ASSERT_TRUE(open.mayFollow(type, Hop::guarded, item)) << opened;
    chain.emplace_back(open, type, Hop::guarded, item);
  }
  EXPECT_FALSE(open.mayFollow(type, Hop::guarded, itemBelow(item)));
  EXPECT_TRUE(open.mayFollow(other, Hop::guarded, itemBelow(item)));
  while (chain.size() > 1) chain.pop_back();
  EXPECT_TRUE(open.mayFollow(type, Hop::guarded, itemBelow(item)));
}

// What the record has seen.

TEST_F(OpenDefinitionsTest, OpenedAndNotedDefinitionsAreSeen) {
  EXPECT_FALSE(open.hasSeen(type));
  { Scope scope(open, type, Hop::unguarded, nullptr); }
  EXPECT_TRUE(open.hasSeen(type));
  EXPECT_FALSE(open.hasSeen(other));
  open.note(other);
  EXPECT_TRUE(open.hasSeen(other));
}

TEST_F(OpenDefinitionsTest, NotedDeclarationIsNotOpen) {
  open.note(type);
  EXPECT_TRUE(mayFollow(type));
}

TEST_F(OpenDefinitionsTest, NoteLeavesAnOpenDefinitionOpen) {
  Scope scope(open, type, Hop::unguarded, nullptr);
  open.note(type);
  EXPECT_FALSE(mayFollow(type));
}

TEST_F(OpenDefinitionsTest, MemberIsOpenUntilItIsClosed) {
  EXPECT_TRUE(open.openMember(type));
  EXPECT_FALSE(open.openMember(type));
  EXPECT_TRUE(open.openMember(other));
  open.closeMember(type);
  EXPECT_TRUE(open.openMember(type));
}

TEST_F(OpenDefinitionsTest, OpenMemberIsSeenButIsNotAnOpenDefinition) {
  EXPECT_TRUE(open.openMember(type));
  EXPECT_TRUE(open.hasSeen(type));
  EXPECT_TRUE(mayFollow(type));
}

TEST_F(OpenDefinitionsTest, NextRecordHasNoOpenMembers) {
  EXPECT_TRUE(open.openMember(type));
  open.clear();
  EXPECT_TRUE(open.openMember(type));
}

TEST_F(OpenDefinitionsTest, NextRecordHasSeenNothing) {
  open.note(other);
  { Scope scope(open, type, Hop::guarded, nullptr); }
  open.clear();
  EXPECT_FALSE(open.hasSeen(type));
  EXPECT_FALSE(open.hasSeen(other));
  EXPECT_TRUE(mayFollow(type));
}

}  // namespace
}  // namespace fdmorph
