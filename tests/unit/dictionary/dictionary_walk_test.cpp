// Which elements the walk shows to a writer, and in which order.

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "dictionary/dictionary_writer.h"
#include "support/trees.h"

namespace fdmorph {
namespace {

/// Writes down its calls: "name(" for enter with the depth, ")" for leave.
class Recorder : public DictionaryWriter {
 public:
  Visit enter(CDMXMLElement const& element, unsigned depth) override {
    std::string name(dataNameOf(&element));
    calls += name + std::to_string(depth) + "(";
    if (skipped.contains(name)) return Visit::skip();
    if (descended.contains(name)) return Visit::descend(depth + 1);
    return Visit::around(depth + 1);
  }
  void leave(CDMXMLElement const& element, unsigned depth) override {
    calls += std::string(dataNameOf(&element)) + std::to_string(depth) + ")";
  }

  std::set<std::string> skipped;
  std::set<std::string> descended;
  std::string calls;
};

Tree item(std::string const& kind, std::string const& name, std::vector<Tree> children = {}) {
  return {kind, {{"name", name}}, std::move(children)};
}

class DictionaryWalk : public testing::Test {
 protected:
  std::string walk(Tree const& root) {
    walkDictionary(*buildDocument(store, root), 0, recorder);
    return recorder.calls;
  }

  CDMXMLNodeStore store;
  Recorder recorder;
};

TEST_F(DictionaryWalk, EntersAndLeavesAroundTheChildren) {
  EXPECT_EQ(walk(item("group", "G", {item("numeric", "A"), item("national", "B")})),
            "G0(A1(A1)B1(B1)G0)");
}

TEST_F(DictionaryWalk, LeavesElementsWithoutChildrenToo) {
  EXPECT_EQ(walk(item("group", "G")), "G0(G0)");
}

TEST_F(DictionaryWalk, SkippedElementHidesItsChildren) {
  recorder.skipped = {"G"};
  EXPECT_EQ(walk(item("group", "G", {item("numeric", "A")})), "G0(");
}

TEST_F(DictionaryWalk, DescendingDoesNotComeBack) {
  recorder.descended = {"G"};
  EXPECT_EQ(walk(item("group", "G", {item("numeric", "A")})), "G0(A1(A1)");
}

TEST_F(DictionaryWalk, ContainersAndConditionsAreWalkedUnseen) {
  EXPECT_EQ(
      walk({"dataItems",
            {},
            {item("alphanumeric", "A",
                  {item("alphanumericCondition", "C",
                        {item("alphanumericConstant", "V"), item("alphanumericRange", "R")})})}}),
      "A0(V1(V1)R1(R1)A0)");
}

TEST_F(DictionaryWalk, UnknownElementHidesItsChildren) {
  EXPECT_EQ(walk({"group", {}, {item("Numeric", "A", {item("numeric", "B")})}}), "0(0)");
}

TEST_F(DictionaryWalk, ContainerEndsAfterTheFirstRecord) {
  EXPECT_EQ(walk({"dataItems", {}, {item("group", "A"), item("group", "B")}}), "A0(A0)");
}

TEST_F(DictionaryWalk, SkippedRecordLetsTheNextOneIn) {
  recorder.skipped = {"A"};
  EXPECT_EQ(walk({"dataItems", {}, {item("group", "A"), item("group", "B"), item("group", "C")}}),
            "A0(B0(B0)");
}

// A list of records counts as walked even if its records are skipped.
TEST_F(DictionaryWalk, OnlyTheFirstListOfRecordsIsWalked) {
  recorder.skipped = {"A"};
  EXPECT_EQ(walk(item("program", "P",
                      {{"dataItems", {}, {item("group", "A")}},
                       {"fileSection", {}, {item("fd", "F", {item("group", "B")})}}})),
            "P0(A1(P0)");
}

TEST_F(DictionaryWalk, GroupShowsAllItsMembers) {
  recorder.skipped = {"A"};
  EXPECT_EQ(walk(item("group", "G", {item("numeric", "A"), item("numeric", "B")})),
            "G0(A1(B1(B1)G0)");
}

}  // namespace
}  // namespace fdmorph
