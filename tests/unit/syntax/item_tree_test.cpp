#include "syntax/item_tree.h"

#include <gtest/gtest.h>

#include "support/parsed_text.h"

namespace fdmorph::compiler {
namespace {

/// A tree that items are added to. Each stands at a place of its own.
class ItemTreeTest : public testing::Test {
 protected:
  DataItem& make(std::uint8_t level) {
    DataItem& item = text.tree.newItem(level, {1, m_offset++});
    item.name = "I";
    return item;
  }
  DataItem& add(std::uint8_t level) {
    DataItem& item = make(level);
    text.tree.attach(item);
    return item;
  }

  ParsedText text{"                    "};

 private:
  std::uint32_t m_offset = 0;
};

TEST_F(ItemTreeTest, PlacesItemsByTheirLevels) {
  DataItem& record = add(1);
  DataItem& group = add(5);
  DataItem& first = add(10);
  DataItem& second = add(10);
  DataItem& last = add(5);
  EXPECT_EQ(text.data.workingStorage.first, &record);
  EXPECT_EQ(record.firstChild, &group);
  EXPECT_EQ(group.firstChild, &first);
  EXPECT_EQ(first.next, &second);
  EXPECT_EQ(group.next, &last);
  EXPECT_EQ(record.lastChild, &last);
  EXPECT_EQ(last.parent, &record);
  EXPECT_EQ(text.reports(), "");
}

TEST_F(ItemTreeTest, KeepsTheRecordsOfEachSection) {
  text.tree.openSection(Section::linkage);
  DataItem& linkage = add(1);
  text.tree.openSection(Section::localStorage);
  DataItem& local = add(77);
  FileDescription& file = text.data.files.emplace_back();
  text.tree.openFile(&file);
  DataItem& first = add(1);
  DataItem& second = add(1);
  EXPECT_EQ(text.data.linkage.first, &linkage);
  EXPECT_EQ(text.data.localStorage.first, &local);
  EXPECT_EQ(file.records.first, &first);
  EXPECT_EQ(file.records.last, &second);
  EXPECT_EQ(text.data.workingStorage.first, nullptr);
}

TEST_F(ItemTreeTest, ReportsALevelThatMatchesNoneOnce) {
  add(1);
  DataItem& group = add(5);
  add(10);
  DataItem& mismatch = add(7);
  add(7);
  EXPECT_EQ(mismatch.parent, &group);
  EXPECT_EQ(mismatch.level, 10);
  EXPECT_EQ(text.reports(), "1:4: error: level 7 does not match any open level [level-order]\n");
}

TEST_F(ItemTreeTest, NeedsARecordInAProgram) {
  text.data.isProgram = true;
  add(5);
  EXPECT_EQ(text.reports(),
            "1:1: error: expected level 1 or 77 to begin a record, found level 5 [level-order]\n");
}

TEST_F(ItemTreeTest, PutsARecordAroundTheItemsOfACopybook) {
  DataItem& first = add(5);
  DataItem& second = add(5);
  text.tree.finish();
  DataItem* record = text.data.workingStorage.first;
  ASSERT_NE(record, nullptr);
  EXPECT_TRUE(record->isImplied);
  EXPECT_EQ(record->firstChild, &first);
  EXPECT_EQ(record->lastChild, &second);
}

TEST_F(ItemTreeTest, NeedsNoRecordAroundASingleItem) {
  DataItem& only = add(5);
  add(10);
  text.tree.finish();
  EXPECT_EQ(text.data.workingStorage.first, &only);
  EXPECT_EQ(text.data.workingStorage.last, &only);
  EXPECT_EQ(only.parent, nullptr);
}

TEST_F(ItemTreeTest, HasNoItemsBelowLevel77) {
  add(77);
  add(5);
  EXPECT_EQ(text.reports(), "1:2: error: level 5 is below an item of level 77 [level-order]\n");
}

TEST_F(ItemTreeTest, NeedsAFileDescriptionInTheFileSection) {
  text.tree.openSection(Section::file);
  add(1);
  EXPECT_EQ(text.reports(),
            "1:1: error: record does not follow a file description [level-order]\n");
}

TEST_F(ItemTreeTest, AddsConditionsToTheItemBefore) {
  DataItem& record = add(1);
  DataItem& item = add(5);
  DataItem& first = make(88);
  text.tree.attachCondition(first);
  DataItem& second = make(88);
  text.tree.attachCondition(second);
  EXPECT_EQ(item.firstCondition, &first);
  EXPECT_EQ(first.next, &second);
  EXPECT_EQ(record.firstCondition, nullptr);
  text.tree.openSection(Section::linkage);
  text.tree.attachCondition(make(88));
  EXPECT_EQ(text.reports(),
            "1:5: error: condition 'I' does not follow a data item [level-order]\n");
}

TEST_F(ItemTreeTest, AddsRenamesToTheRecord) {
  text.tree.attachRenames(make(66));
  EXPECT_EQ(text.reports(), "1:1: error: level 66 does not follow a record [level-order]\n");
  DataItem& record = add(1);
  add(5);
  add(10);
  DataItem& renames = make(66);
  text.tree.attachRenames(renames);
  EXPECT_EQ(renames.parent, &record);
  EXPECT_EQ(text.tree.lastItem(), &renames);
}

TEST_F(ItemTreeTest, IsEmptyUntilAnEntryOrFile) {
  EXPECT_TRUE(text.tree.isEmpty());
  text.tree.openSection(Section::workingStorage);
  EXPECT_TRUE(text.tree.isEmpty());
  text.tree.openFile(nullptr);
  EXPECT_FALSE(text.tree.isEmpty());
}

}  // namespace
}  // namespace fdmorph::compiler
