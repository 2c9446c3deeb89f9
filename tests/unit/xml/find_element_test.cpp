// The search of a tree with a match rule.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/trees.h"
#include "xml/node_store.h"

namespace fdmorph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

CDMXMLElement* any(CDMXMLElement* candidate, void*) {
  return candidate;
}

CDMXMLElement* withKeyAsItsElementName(CDMXMLElement* candidate, void* key) {
  return candidate->name == *static_cast<std::string*>(key) ? candidate : nullptr;
}

CDMXMLElement* itsParent(CDMXMLElement* candidate, void*) {
  return candidate->getParent();
}

// root > (a > (a1, a2), b, c > (c1))
class FindElement : public testing::Test {
 protected:
  CDMXMLElement* at(char const* name) { return named(root, name); }

  std::vector<std::string> find(char const* start, CDMXMLElement::Match match, bool recurse,
                                void* key = nullptr) {
    std::vector<CDMXMLElement*> found;
    at(start)->findElement(key, match, found, recurse);
    return namesOf(found);
  }

  CDMXMLNodeStore store;
  CDMXMLElement* root =
      build(store, {"n",
                    {{"name", "root"}},
                    {{"n", {{"name", "a"}}, {{"x", {{"name", "a1"}}}, {"n", {{"name", "a2"}}}}},
                     {"x", {{"name", "b"}}},
                     {"n", {{"name", "c"}}, {{"x", {{"name", "c1"}}}}}}});
};

TEST_F(FindElement, RecursiveWalkVisitsAParentBeforeItsChildren) {
  EXPECT_THAT(find("root", any, true), ElementsAre("root", "a", "a1", "a2", "b", "c", "c1"));
}

TEST_F(FindElement, RecursiveWalkSkipsTheSiblingsOfItsStart) {
  EXPECT_THAT(find("a", any, true), ElementsAre("a", "a1", "a2"));
}

TEST_F(FindElement, LevelWalkVisitsTheStartAndItsFollowingSiblings) {
  EXPECT_THAT(find("a", any, false), ElementsAre("a", "b", "c"));
}

TEST_F(FindElement, LevelWalkSkipsEarlierSiblings) {
  EXPECT_THAT(find("b", any, false), ElementsAre("b", "c"));
}

TEST_F(FindElement, LevelWalkFromTheLastChildVisitsThatChildAlone) {
  EXPECT_THAT(find("c", any, false), ElementsAre("c"));
}

TEST_F(FindElement, KeyIsPassedToTheMatchRule) {
  std::string key = "x";
  EXPECT_THAT(find("root", withKeyAsItsElementName, true, &key), ElementsAre("a1", "b", "c1"));
}

TEST_F(FindElement, ResultOfTheMatchRuleIsRecorded) {
  EXPECT_THAT(find("a1", itsParent, false), ElementsAre("a", "a"));
}

TEST_F(FindElement, WithoutAMatchRuleNothingHappens) {
  EXPECT_THAT(find("root", nullptr, true), IsEmpty());
  EXPECT_THAT(find("root", nullptr, false), IsEmpty());
}

TEST_F(FindElement, ResultsAreAppended) {
  std::vector<CDMXMLElement*> found{root};
  at("c")->findElement(nullptr, any, found, false);
  EXPECT_THAT(namesOf(found), ElementsAre("root", "c"));
}

}  // namespace
}  // namespace fdmorph
