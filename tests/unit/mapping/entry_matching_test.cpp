// Entries and the items of a changed copybook.

#include "mapping/entry_matching.h"

#include <gtest/gtest.h>

#include "mapping_fixture.h"

namespace fdmorph::mapping {
namespace {

constexpr char const* kReasons[] = {"same",   "given",     "moved",  "renamed",
                                    "parent", "elsewhere", "surplus"};

/// "KEY -> ITEM (reason)" for each entry that is not that of its own key, on a line.
std::string match(std::string_view lines, std::vector<std::string> const& keys,
                  std::vector<GivenRename> const& renames = {}) {
  Described const described(lines);
  std::string text;
  for (std::string const& each : keys) {
    bool const isGroup = each.ends_with("/");
    std::string const key = each.substr(0, each.size() - (isGroup ? 1 : 0));
    text += entry(key, "x", isGroup ? "group" : "string");
  }
  MappingDocument const document = readMapping(mappingFile(text), "map.xml").document;
  MappingContent const content = readEntries(document);
  Matching const matching = matchEntries(content.entries, described.data(), renames);
  std::string shown;
  for (std::size_t i = 0; i < keys.size(); ++i) {
    EntryMatch const& found = matching.entries[i];
    if (found.item != kNone && found.reason == MatchReason::sameKey) continue;
    shown += content.entries[i].key() + " -> " +
             (found.item == kNone ? "none" : described.data().items()[found.item].key) + " (" +
             kReasons[static_cast<std::size_t>(found.reason)] + ")\n";
  }
  for (std::string const& each : matching.unknown) shown += each + "\n";
  return shown;
}

TEST(EntryMatching, KeysOfTheSameItemsMatch) {
  EXPECT_EQ(match("01  A.\n    05  B PIC X.\n", {"A/", "A.B"}), "");
}

TEST(EntryMatching, ItemInAnotherGroupIsMoved) {
  EXPECT_EQ(match("01  A.\n    05  G.\n        10  B PIC X.\n", {"A/", "A.B"}),
            "A.B -> A.G.B (moved)\n");
}

TEST(EntryMatching, SecondCandidatePreventsAMove) {
  EXPECT_EQ(match("01  A.\n    05  G.\n        10  B PIC X.\n    05  H.\n        10  B PIC X.\n",
                  {"A/", "A.B"}),
            "A.B -> none (same)\n");
  EXPECT_EQ(match("01  A.\n    05  G.\n        10  B PIC X.\n", {"A/", "A.H.B", "A.I.B"}),
            "A.H.B -> none (same)\nA.I.B -> none (same)\n");
}

TEST(EntryMatching, AGroupIsNoMoveOfAnItem) {
  EXPECT_EQ(match("01  A.\n    05  G.\n        10  B.\n            15  C PIC X.\n", {"A/", "A.B"}),
            "A.B -> none (same)\n");
}

TEST(EntryMatching, GroupWithANewNameTakesItsMembersAlong) {
  EXPECT_EQ(match("01  A.\n    05  NEW-GROUP.\n        10  B PIC X.\n        10  C PIC X.\n"
                  "    05  H.\n        10  C PIC X.\n",
                  {"A/", "A.OLD/", "A.OLD.B", "A.OLD.C", "A.H/", "A.H.C"}),
            "A.OLD -> A.NEW-GROUP (renamed)\nA.OLD.B -> A.NEW-GROUP.B (moved)\n"
            "A.OLD.C -> A.NEW-GROUP.C (moved)\n");
}

TEST(EntryMatching, MembersOfSeveralNewGroupsFollowTheirGroups) {
  EXPECT_EQ(match("01  A.\n    05  X.\n        10  C PIC X.\n        10  D PIC X.\n"
                  "    05  Y.\n        10  C PIC X.\n        10  E PIC X.\n",
                  {"A/", "A.G/", "A.G.C", "A.G.D", "A.H/", "A.H.C", "A.H.E"}),
            "A.G -> A.X (renamed)\nA.G.C -> A.X.C (parent)\nA.G.D -> A.X.D (moved)\n"
            "A.H -> A.Y (renamed)\nA.H.C -> A.Y.C (parent)\nA.H.E -> A.Y.E (moved)\n");
}

TEST(EntryMatching, NearNameInTheSameGroupIsARename) {
  EXPECT_EQ(match("01  A.\n    05  CUSTOMER-NO PIC X.\n    05  FAX PIC X.\n",
                  {"A/", "A.CUSTMER-NO", "A.PHONE"}),
            "A.CUSTMER-NO -> A.CUSTOMER-NO (renamed)\nA.PHONE -> none (same)\n");
}

TEST(EntryMatching, ManyNewNamesInAGroupAreNotCompared) {
  std::string lines = "01  A.\n";
  std::vector<std::string> keys{"A/"};
  std::string expected;
  for (int i = 0; i < 51; ++i) {
    lines += "    05  CUSTOMER-" + std::to_string(i) + " PIC X.\n";
    keys.push_back("A.CUSTMER-" + std::to_string(i));
    expected += keys.back() + " -> none (same)\n";
  }
  EXPECT_EQ(match(lines, keys), expected);
}

TEST(EntryMatching, LetterCaseAloneIsARename) {
  EXPECT_EQ(match("01  A.\n    05  B PIC X.\n", {"a/", "a.b"}),
            "a -> A (renamed)\na.b -> A.B (renamed)\n");
}

TEST(EntryMatching, UserKnowsBetter) {
  EXPECT_EQ(match("01  A.\n    05  EMAIL PIC X.\n    05  FAX PIC X.\n", {"A/", "A.PHONE"},
                  {{"A.PHONE", "A.EMAIL"}}),
            "A.PHONE -> A.EMAIL (given)\n");
  EXPECT_EQ(match("01  A.\n    05  B PIC X.\n", {"A/", "A.C"}, {{"A.D", "A.E"}}),
            "A.C -> none (same)\nno entry for 'A.D'\nno item 'A.E' that can have an entry\n");
}

TEST(EntryMatching, EntriesOfOneKeyGoToItsItemsInOrder) {
  EXPECT_EQ(match("01  A.\n    05  PIC X.\n    05  PIC X.\n", {"A/", "A.FILLER", "A.FILLER"}), "");
  EXPECT_EQ(
      match("01  A.\n    05  B PIC X.\n    05  G.\n        10  C PIC X.\n", {"A/", "A.B", "A.B"}),
      "A.B -> none (surplus)\n");
}

TEST(EntryMatching, FillerThatRedefinesHasNoEntry) {
  EXPECT_EQ(match("01  A.\n    05  B PIC X.\n    05  FILLER REDEFINES B PIC 9.\n    05  PIC X.\n",
                  {"A/", "A.FILLER", "A.FILLER"}),
            "A.FILLER -> none (surplus)\n");
}

TEST(EntryMatching, ItemsThatAreNotConvertedKeepTheirEntries) {
  EXPECT_EQ(match("01  A.\n    05  B PIC X.\n    05  C REDEFINES B PIC X.\n01  D PIC X.\n",
                  {"A/", "A.C", "D"}),
            "A.C -> none (elsewhere)\nD -> none (elsewhere)\n");
}

}  // namespace
}  // namespace fdmorph::mapping
