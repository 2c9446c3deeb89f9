// The members of groups.

#include "mapping/group_rules.h"

#include <gtest/gtest.h>

#include "mapping_fixture.h"

namespace fdmorph::mapping {
namespace {

constexpr char kAttribute[] = "<xml-attribute>true</xml-attribute>";

class GroupRules : public testing::Test {
 protected:
  std::string check(std::string const& entries) {
    return withoutPlaces(checkMapping(mappingFile(entries), "map.xml", described.data()));
  }

  Described described{
      "01  REC.\n"
      "    05  FIRST-ID PIC X(4).\n"
      "    05  ROWS PIC X(4) OCCURS 3.\n"
      "    05  PART.\n"
      "        10  A PIC X.\n"
      "    05  FILLER.\n"
      "        10  B PIC 9.\n"};
};

TEST_F(GroupRules, OnlySingleItemsOfGroupsCanBeAttributes) {
  EXPECT_EQ(check(entry("REC", "rec", "group", kAttribute) +
                  entry("REC.FIRST-ID", "id", "string", kAttribute) +
                  entry("REC.ROWS", "rows", "string", kAttribute) +
                  entry("REC.PART", "part", "group", kAttribute) +
                  entry("REC.FILLER", "", "group", "<xml-attribute>false</xml-attribute>") +
                  entry("REC.FILLER.B", "b", "integer", kAttribute)),
            "attribute REC: a record cannot be an attribute\n"
            "attribute REC.ROWS: a table cannot be an attribute\n"
            "attribute REC.PART: a group cannot be an attribute\n"
            "attribute REC.FILLER.B: an item in a group called FILLER cannot be an attribute\n");
}

TEST_F(GroupRules, ItemLeftOutIsNoAttribute) {
  EXPECT_EQ(check(entry("REC.ROWS", "", "", kAttribute) + entry("REC.PART", "part", "group") +
                  entry("REC.FILLER", "", "group") + entry("REC.FIRST-ID", "id")),
            "");
}

TEST_F(GroupRules, ItemWithoutAnEntryTakesTheFlagOfTheOneBefore) {
  EXPECT_EQ(check(entry("REC.FIRST-ID", "id", "string", kAttribute) + entry("REC.ROWS", "rows") +
                  entry("REC.PART", "part", "group")),
            "");
  EXPECT_EQ(
      check(entry("REC.FIRST-ID", "id", "string", kAttribute) + entry("REC.PART", "part", "group")),
      "no-entry REC.FIRST-ID: 'REC.ROWS' has no entry, and would become an attribute like "
      "this item\n");
}

TEST_F(GroupRules, NamesOfAGroupDifferUnlessTheTypeIsTheSame) {
  EXPECT_EQ(check(entry("REC.FIRST-ID", "x", "token") + entry("REC.ROWS", "x", "token")), "");
  EXPECT_EQ(check(entry("REC.FIRST-ID", "x", "token") + entry("REC.ROWS", "x", "int")),
            "same-name REC.ROWS: 'x' is the name of 'REC.FIRST-ID' as well, and the "
            "types differ\n");
}

TEST_F(GroupRules, MembersOfFillerGroupsAreMembersOfTheGroupAround) {
  EXPECT_EQ(check(entry("REC.FILLER.B", "FIRST-ID", "integer")),
            "same-name REC.FILLER.B: 'FIRST-ID' is the name of 'REC.FIRST-ID' as well, and the "
            "types differ\n");
}

}  // namespace
}  // namespace fdmorph::mapping
