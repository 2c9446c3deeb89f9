// Items live until they are released.

#include <gtest/gtest.h>

#include <set>

#include "cobol/record_builder.h"

namespace fdmorph {
namespace {

/// True if the store creates `count` items, all of them different.
bool createsDistinctItems(RecordStore& store, int count) {
  std::set<CDMCOBOLRecordItem*> items;
  for (int i = 0; i < count; ++i) items.insert(store.create());
  return items.size() == static_cast<std::size_t>(count);
}

CDMCOBOLRecordItem* addChild(RecordStore& store, CDMCOBOLRecordItem* parent) {
  CDMCOBOLRecordItem* child = store.create();
  child->parent = parent;
  parent->addChild(child);
  return child;
}

TEST(RecordStoreTest, ReleasedItemsAreReusedWithDefaultValues) {
  RecordStore store;
  CDMCOBOLRecordItem* item = store.create();
  item->dataName = "a";
  item->levelNumber = 5;
  item->pictureSymbol = "X";
  store.release(item);
  CDMCOBOLRecordItem* again = store.create();
  EXPECT_EQ(again, item);
  EXPECT_EQ(again->dataName, "");
  EXPECT_EQ(again->levelNumber, -1);
  EXPECT_EQ(again->pictureSymbol, "");
  EXPECT_TRUE(again->children.empty());
}

TEST(RecordStoreTest, ReleaseIncludesTheSubtree) {
  RecordStore store;
  CDMCOBOLRecordItem* root = store.create();
  CDMCOBOLRecordItem* group = addChild(store, root);
  std::set<CDMCOBOLRecordItem*> released{root, group, addChild(store, group),
                                         addChild(store, root)};
  store.release(root);
  for (int i = 0; i < 4; ++i) released.erase(store.create());
  EXPECT_TRUE(released.empty());
}

TEST(RecordStoreTest, ItemWithTwoPlacesIsReleasedOnce) {
  RecordStore store;
  CDMCOBOLRecordItem* root = store.create();
  root->addChild(addChild(store, root));
  addChild(store, root->children.front());
  store.release(root);
  EXPECT_TRUE(createsDistinctItems(store, 10));
}

TEST(RecordStoreTest, ItemRemovedFromItsParentSurvivesIt) {
  RecordStore store;
  CDMCOBOLRecordItem* root = store.create();
  CDMCOBOLRecordItem* child = addChild(store, root);
  child->dataName = "kept";
  root->removeChild(child);
  store.release(root);
  EXPECT_EQ(child->dataName, "kept");
  EXPECT_TRUE(createsDistinctItems(store, 3));
  EXPECT_EQ(child->dataName, "kept");
}

TEST(RecordStoreTest, RedefinedItemIsNotOwned) {
  RecordStore store;
  CDMCOBOLRecordItem* root = store.create();
  CDMCOBOLRecordItem* first = addChild(store, root);
  CDMCOBOLRecordItem* second = addChild(store, root);
  second->redefinedItem = first;
  store.release(root);
  EXPECT_TRUE(createsDistinctItems(store, 6));
}

TEST(RecordStoreTest, ReleaseOfNullDoesNothing) {
  RecordStore store;
  store.release(nullptr);
  CDMCOBOLRecordItem* root = store.create();
  root->addChild(nullptr);
  store.release(root);
  EXPECT_TRUE(createsDistinctItems(store, 3));
}

TEST(RecordStoreTest, ReleaseOfADeepTreeNeedsNoDeepStack) {
  RecordStore store;
  CDMCOBOLRecordItem* root = store.create();
  CDMCOBOLRecordItem* at = root;
  for (int i = 0; i < 200'000; ++i) at = addChild(store, at);
  store.release(root);
  EXPECT_EQ(store.create()->dataName, "");
}

TEST(RecordStoreTest, ClearRemovesItemsAndTexts) {
  RecordStore store;
  store.create()->dataName = store.texts().keep("a");
  store.release(store.create());
  store.clear();
  EXPECT_TRUE(createsDistinctItems(store, 300));
  EXPECT_EQ(store.texts().keep("a"), "a");
}

}  // namespace
}  // namespace fdmorph
