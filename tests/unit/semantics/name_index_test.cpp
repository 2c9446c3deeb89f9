// The index of names.

#include "semantics/name_index.h"

#include <gtest/gtest.h>

#include "support/item_builder.h"
#include "support/memory_tree.h"

namespace fdmorph::compiler {
namespace {

using Outcome = NameIndex::Outcome;

class NameIndexTest : public testing::Test {
 protected:
  NameIndex::Found find(std::string_view name, std::vector<std::string_view> qualifiers = {}) {
    NameIndex index(builder.data);
    index.extend(builder.data.items.size());
    return index.resolveAnywhere({name, std::move(qualifiers)});
  }

  ItemBuilder builder;
};

TEST_F(NameIndexTest, FindsAnItemInAnyLetterCase) {
  builder.add(1, "REC");
  DataItem& item = builder.add(5, "Item", "X");
  NameIndex::Found found = find("ITEM");
  EXPECT_EQ(found.outcome, Outcome::found);
  EXPECT_EQ(found.item, &item);
  EXPECT_EQ(find("OTHER").outcome, Outcome::unknown);
  EXPECT_EQ(find("OTHER").item, nullptr);
}

TEST_F(NameIndexTest, NeedsQualifiersForItemsOfOneName) {
  builder.add(1, "R");
  builder.add(5, "G");
  builder.add(10, "A", "X");
  builder.add(5, "H");
  DataItem& second = builder.add(10, "A", "X");
  EXPECT_EQ(find("A").outcome, Outcome::ambiguous);
  EXPECT_EQ(find("A").item, nullptr);
  EXPECT_EQ(find("A", {"H"}).item, &second);
  EXPECT_EQ(find("A", {"H", "R"}).item, &second);
  EXPECT_EQ(find("A", {"R"}).outcome, Outcome::ambiguous);
  EXPECT_EQ(find("A", {"R", "H"}).outcome, Outcome::unknown);
}

TEST_F(NameIndexTest, PrefersTheRecordOfTheReference) {
  builder.add(1, "R");
  DataItem& near = builder.add(5, "A", "X");
  DataItem& from = builder.add(5, "B", "X");
  builder.add(1, "S");
  builder.add(5, "A", "X");
  DataItem& far = builder.add(5, "C", "X");
  NameIndex index(builder.data);
  index.extend(builder.data.items.size());
  EXPECT_EQ(index.resolve({"A"}, from).item, &near);
  EXPECT_EQ(index.resolve({"C"}, from).item, &far);
  EXPECT_EQ(index.resolveInRecord({"C"}, from).outcome, Outcome::unknown);
}

TEST_F(NameIndexTest, HasOnlyTheItemsThatItWasExtendedBy) {
  builder.add(1, "A", "X");
  builder.add(1, "B", "X");
  NameIndex index(builder.data);
  EXPECT_EQ(index.resolveAnywhere({"A"}).outcome, Outcome::unknown);
  index.extend(1);
  EXPECT_EQ(index.resolveAnywhere({"A"}).outcome, Outcome::found);
  EXPECT_EQ(index.resolveAnywhere({"B"}).outcome, Outcome::unknown);
  index.extend(2);
  EXPECT_EQ(index.resolveAnywhere({"B"}).outcome, Outcome::found);
}

TEST_F(NameIndexTest, LeavesFillersOut) {
  builder.add(1, "FILLER", "X");
  EXPECT_EQ(find("FILLER").outcome, Outcome::unknown);
}

TEST_F(NameIndexTest, QualifiesByTheFileOfARecord) {
  DataItem& record = builder.add(1, "R");
  DataItem& item = builder.add(5, "A", "X");
  FileDescription& file = builder.data.files.emplace_back();
  file.name = "F";
  file.records = builder.data.workingStorage;
  builder.data.workingStorage = {};
  EXPECT_EQ(find("A", {"F"}).item, &item);
  EXPECT_EQ(find("R", {"F"}).item, &record);
  EXPECT_EQ(find("A", {"E"}).outcome, Outcome::unknown);
}

TEST_F(NameIndexTest, FindsNamesThatAreNotInAGroup) {
  DataItem& group = builder.add(1, "R");
  builder.add(5, "A", "X");
  builder.add(1, "B", "X");
  NameIndex index(builder.data);
  index.extend(builder.data.items.size());
  std::vector<QualifiedName> names{{"A"}, {"B"}, {"R"}};
  std::vector<QualifiedName const*> outside = index.findOutside(names, group);
  ASSERT_EQ(outside.size(), 1U);
  EXPECT_EQ(outside.front(), &names[1]);
}

}  // namespace
}  // namespace fdmorph::compiler
