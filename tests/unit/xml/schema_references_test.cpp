// Which schema files the load of another one shows to be good.

#include "xml/schema_references.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace fdmorph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Reference {
  std::string from;
  std::string to;
  bool isRedefine = false;
};

class References : public testing::Test {
 protected:
  /// A load of `main` without a report that meets `references` and reads all files
  /// but those in `unread`.
  void load(std::string const& main, std::vector<Reference> const& met,
            std::set<std::string> const& unread = {}) {
    references.beginLoad(main);
    std::set<std::string> read;
    for (Reference const& reference : met) {
      references.addReference(reference.from, reference.to, reference.isRedefine);
      read.insert(reference.to);
    }
    for (std::string const& file : read) {
      if (!unread.contains(file)) references.addRead(file);
    }
    references.endCleanLoad([this](std::string const& file) { return namespaces[file]; });
  }

  /// Those of the files "a" to "f" that need no load.
  std::vector<std::string> covered() const {
    std::vector<std::string> result;
    for (char const* file : {"a", "b", "c", "d", "e", "f"}) {
      if (references.isCovered(file)) result.emplace_back(file);
    }
    return result;
  }

  std::map<std::string, std::string> namespaces;
  SchemaReferences references;
};

TEST_F(References, FileOutsideCirclesCoversNothing) {
  load("a", {{"a", "b"}, {"b", "c"}, {"a", "c"}});
  EXPECT_THAT(covered(), IsEmpty());
}

TEST_F(References, CircleIsCovered) {
  load("a", {{"a", "b"}, {"b", "c"}, {"c", "a"}});
  EXPECT_THAT(covered(), ElementsAre("a", "b", "c"));
}

TEST_F(References, FileThatRefersToItselfIsACircle) {
  load("a", {{"a", "a"}, {"a", "b"}});
  EXPECT_THAT(covered(), ElementsAre("a"));
}

TEST_F(References, OverlappingCirclesAreOne) {
  load("a", {{"a", "b"}, {"b", "a"}, {"b", "c"}, {"c", "b"}});
  EXPECT_THAT(covered(), ElementsAre("a", "b", "c"));
}

TEST_F(References, FilesBehindACircleAreNotCovered) {
  load("a", {{"a", "b"}, {"b", "a"}, {"b", "c"}, {"c", "d"}});
  EXPECT_THAT(covered(), ElementsAre("a", "b"));
}

TEST_F(References, CircleBehindAFileNeedsALoadOfItsOwn) {
  std::vector<Reference> const circle = {{"b", "c"}, {"c", "b"}};
  load("a", {{"a", "b"}, {"b", "c"}, {"c", "b"}});
  EXPECT_THAT(covered(), IsEmpty());
  load("b", circle);
  EXPECT_THAT(covered(), ElementsAre("b", "c"));
}

TEST_F(References, ReferencesOfAnEarlierLoadDoNotCount) {
  load("a", {{"a", "b"}});
  load("b", {{"b", "c"}, {"c", "d"}});
  load("d", {{"d", "c"}});
  EXPECT_THAT(covered(), IsEmpty());
}

TEST_F(References, MemberThatTheLoadSkipsIsNotCovered) {
  load("a", {{"a", "b"}, {"b", "a"}, {"a", "c"}, {"c", "a"}}, {"c"});
  EXPECT_THAT(covered(), ElementsAre("a", "b"));
}

TEST_F(References, FileThatTakesOnANamespaceIsNotCovered) {
  namespaces = {{"a", "urn:a"}, {"c", "urn:c"}};
  load("a", {{"a", "b"}, {"b", "c"}, {"c", "a"}});
  EXPECT_THAT(covered(), ElementsAre("a", "c"));
}

TEST_F(References, CircleWithARedefineCoversNothing) {
  load("a", {{"a", "b", true}, {"b", "a"}});
  EXPECT_THAT(covered(), IsEmpty());
}

TEST_F(References, CircleThatLeadsToARedefineCoversNothing) {
  load("a", {{"a", "b"}, {"b", "a"}, {"b", "c", true}, {"a", "c"}});
  EXPECT_THAT(covered(), IsEmpty());
}

TEST_F(References, LoadsAreCounted) {
  load("a", {});
  load("b", {});
  EXPECT_EQ(references.loads(), 2U);
}

}  // namespace
}  // namespace fdmorph
