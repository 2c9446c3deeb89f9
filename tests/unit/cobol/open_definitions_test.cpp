// Hops that would repeat themselves for ever.

#include <gtest/gtest.h>

#include "cobol/recursion.h"

namespace fdmorph {
namespace {

using Scope = OpenDefinitions::Scope;
using Hop = Scope::Hop;

class OpenDefinitionsTest : public testing::Test {
 protected:
  OpenDefinitions open;
  CDMXMLElement type;
  CDMXMLElement other;
};

TEST_F(OpenDefinitionsTest, ClosedDefinitionCanBeEntered) {
  EXPECT_FALSE(open.wouldRecurse(&type));
}

TEST_F(OpenDefinitionsTest, OpenDefinitionCannotBeEnteredAgain) {
  Scope scope(open, &type, Hop::unguarded);
  EXPECT_TRUE(open.wouldRecurse(&type));
  EXPECT_FALSE(open.wouldRecurse(&other));
}

TEST_F(OpenDefinitionsTest, DefinitionOpenedByAGuardedHopCannotBeEnteredAgainEither) {
  Scope scope(open, &type, Hop::guarded);
  EXPECT_TRUE(open.wouldRecurse(&type));
}

TEST_F(OpenDefinitionsTest, UnguardedHopsInBetweenChangeNothing) {
  Scope scope(open, &type, Hop::unguarded);
  Scope inner(open, &other, Hop::unguarded);
  EXPECT_TRUE(open.wouldRecurse(&type));
}

TEST_F(OpenDefinitionsTest, GuardedHopInBetweenAllowsAnotherHop) {
  Scope scope(open, &type, Hop::unguarded);
  Scope inner(open, &other, Hop::guarded);
  EXPECT_FALSE(open.wouldRecurse(&type));
  EXPECT_TRUE(open.wouldRecurse(&other));
}

TEST_F(OpenDefinitionsTest, HopIsRefusedAgainAfterTheGuardedHop) {
  Scope scope(open, &type, Hop::unguarded);
  { Scope inner(open, &other, Hop::guarded); }
  EXPECT_TRUE(open.wouldRecurse(&type));
}

TEST_F(OpenDefinitionsTest, DefinitionIsClosedWhenItsScopeEnds) {
  { Scope scope(open, &type, Hop::unguarded); }
  { Scope scope(open, &type, Hop::guarded); }
  EXPECT_FALSE(open.wouldRecurse(&type));
}

TEST_F(OpenDefinitionsTest, LastOpeningOfADefinitionCounts) {
  Scope scope(open, &type, Hop::unguarded);
  Scope between(open, &other, Hop::guarded);
  {
    Scope again(open, &type, Hop::unguarded);
    EXPECT_TRUE(open.wouldRecurse(&type));
  }
  EXPECT_FALSE(open.wouldRecurse(&type));
}

TEST_F(OpenDefinitionsTest, GuardedHopIntoTheSameDefinitionOpensIt) {
  Scope scope(open, &type, Hop::unguarded);
  {
    Scope again(open, &type, Hop::guarded);
    EXPECT_TRUE(open.wouldRecurse(&type));
  }
  EXPECT_TRUE(open.wouldRecurse(&type));
}

TEST_F(OpenDefinitionsTest, OpenedAndNotedDefinitionsAreSeen) {
  EXPECT_FALSE(open.hasSeen(&type));
  { Scope scope(open, &type, Hop::unguarded); }
  EXPECT_TRUE(open.hasSeen(&type));
  EXPECT_FALSE(open.hasSeen(&other));
  open.note(&other);
  EXPECT_TRUE(open.hasSeen(&other));
}

TEST_F(OpenDefinitionsTest, NotedDeclarationIsNotOpen) {
  open.note(&type);
  EXPECT_FALSE(open.wouldRecurse(&type));
}

TEST_F(OpenDefinitionsTest, NoteLeavesAnOpenDefinitionOpen) {
  Scope scope(open, &type, Hop::unguarded);
  open.note(&type);
  EXPECT_TRUE(open.wouldRecurse(&type));
}

TEST_F(OpenDefinitionsTest, MemberIsOpenUntilItIsClosed) {
  EXPECT_TRUE(open.openMember(&type));
  EXPECT_FALSE(open.openMember(&type));
  EXPECT_TRUE(open.openMember(&other));
  open.closeMember(&type);
  EXPECT_TRUE(open.openMember(&type));
}

TEST_F(OpenDefinitionsTest, OpenMemberIsSeenButIsNotAnOpenDefinition) {
  EXPECT_TRUE(open.openMember(&type));
  EXPECT_TRUE(open.hasSeen(&type));
  EXPECT_FALSE(open.wouldRecurse(&type));
}

TEST_F(OpenDefinitionsTest, NextRecordHasNoOpenMembers) {
  EXPECT_TRUE(open.openMember(&type));
  open.clear();
  EXPECT_TRUE(open.openMember(&type));
}

TEST_F(OpenDefinitionsTest, NextRecordHasSeenNothing) {
  open.note(&other);
  { Scope scope(open, &type, Hop::guarded); }
  open.clear();
  EXPECT_FALSE(open.hasSeen(&type));
  EXPECT_FALSE(open.hasSeen(&other));
  EXPECT_FALSE(open.wouldRecurse(&type));
}

}  // namespace
}  // namespace fdmorph
