// The name rule, and which items can be written.

#include "cobol/DMCOBOLRecordItem.h"

#include <gtest/gtest.h>

#include <string>

#include "support/captured_console.h"
#include "text/console.h"

namespace fdmorph {
namespace {

std::string ruled(std::string const& name) {
  TextPool texts;
  std::string_view target;
  CDMCOBOLRecordItem::setCOBOLDataName(target, name, texts);
  return std::string(target);
}

TEST(NameRule, UnderscoresBecomeHyphens) {
  EXPECT_EQ(ruled("my_item_name"), "my-item-name");
  EXPECT_EQ(ruled("__a_"), "--a-");
  EXPECT_EQ(ruled("_"), "-");
}

TEST(NameRule, NothingElseChanges) {
  EXPECT_EQ(ruled("a.b"), "a.b");
  EXPECT_EQ(ruled("Order-Record"), "Order-Record");
  EXPECT_EQ(ruled("9times"), "9times");
  EXPECT_EQ(ruled("MOVE"), "MOVE");
  EXPECT_EQ(ruled(""), "");
}

TEST(NameRule, NamesAreNeverCut) {
  std::string const name(100, 'n');
  EXPECT_EQ(ruled(name), name);
  EXPECT_EQ(ruled(std::string(100, '_')), std::string(100, '-'));
}

TEST(NameRule, MultibyteCharactersStayWhole) {
  EXPECT_EQ(ruled("gr\u00fc\u00df_e\u4e2d"), "gr\u00fc\u00df-e\u4e2d");
}

TEST(NameRule, DataNameIsTheTarget) {
  TextPool texts;
  CDMCOBOLRecordItem item;
  item.setCOBOLName("a_b", texts);
  EXPECT_EQ(item.dataName, "a-b");
  EXPECT_EQ(item.identifiedBy, "");
}

TEST(NewItem, HasTheDefaultValues) {
  CDMCOBOLRecordItem item;
  EXPECT_EQ(item.levelNumber, -1);
  EXPECT_EQ(item.totalDigits, -1);
  EXPECT_EQ(item.indent, 0);
  EXPECT_EQ(item.minOccurs, "1");
  EXPECT_EQ(item.maxOccurs, "1");
  EXPECT_EQ(item.derivationKind, DerivationKind::none);
  EXPECT_FALSE(item.hasDecimal);
  EXPECT_FALSE(item.isAttribute);
  EXPECT_EQ(item.parent, nullptr);
  EXPECT_EQ(item.redefinedItem, nullptr);
  EXPECT_TRUE(item.children.empty());
}

class Writable : public ConsoleTest {
 protected:
  Writable() {
    item.levelNumber = 5;
    item.dataName = "item";
    item.pictureSymbol = "X";
    item.pictureSize = "80";
  }

  bool isWritable() { return item.IsValidCOBOLItem(); }

  bool isRefusedSilently() { return !isWritable() && captured.err().empty(); }

  bool isRefusedAsEmpty() {
    return !isWritable() && captured.err() ==
                                "Warning : Unable to convert schema element \"item\" to COBOL "
                                "(empty structure)\n";
  }

  CDMCOBOLRecordItem item;
  CDMCOBOLRecordItem child;
};

TEST_F(Writable, ItemWithAPicture) {
  EXPECT_TRUE(isWritable());
  EXPECT_EQ(captured.err(), "");
}

TEST_F(Writable, NewItemIsUnwritable) {
  item = CDMCOBOLRecordItem();
  EXPECT_TRUE(isRefusedSilently());
}

TEST_F(Writable, LevelsFrom1To49) {
  for (int level : {1, 49}) {
    item.levelNumber = level;
    EXPECT_TRUE(isWritable()) << level;
  }
  for (int level : {-1, 0, 50, 66, 77, 87, 89}) {
    item.levelNumber = level;
    EXPECT_TRUE(isRefusedSilently()) << level;
  }
}

TEST_F(Writable, EmptyItemAboveLevel49IsSilent) {
  item.pictureSymbol = item.pictureSize = {};
  item.levelNumber = 50;
  EXPECT_TRUE(isRefusedSilently());
}

TEST_F(Writable, ItemWithoutAMinimumOccurrenceIsUnwritable) {
  item.minOccurs = {};
  EXPECT_TRUE(isRefusedSilently());
}

TEST_F(Writable, ItemWithoutANameIsUnwritable) {
  item.dataName = {};
  EXPECT_TRUE(isRefusedSilently());
}

TEST_F(Writable, ConditionNeedsOnlyANameAndAValue) {
  item.levelNumber = kConditionLevel;
  item.itemValue = "RED";
  EXPECT_TRUE(isWritable());
  item.pictureSymbol = {};
  EXPECT_TRUE(isWritable());
  item.pictureSize = {};
  EXPECT_TRUE(isWritable());
}

TEST_F(Writable, ConditionWithoutANameIsUnwritable) {
  item.levelNumber = kConditionLevel;
  item.itemValue = "RED";
  item.dataName = {};
  EXPECT_TRUE(isRefusedSilently());
}

TEST_F(Writable, ConditionWithoutAValueIsUnwritable) {
  item.levelNumber = kConditionLevel;
  EXPECT_TRUE(isRefusedSilently());
}

TEST_F(Writable, PictureWithoutASizeIsEmpty) {
  item.pictureSize = {};
  EXPECT_TRUE(isRefusedAsEmpty());
}

TEST_F(Writable, PictureWithoutASizeIsEmptyEvenWithAUsageOrChildren) {
  item.pictureSize = {};
  item.usage = "COMP-1";
  item.addChild(&child);
  EXPECT_TRUE(isRefusedAsEmpty());
}

TEST_F(Writable, FloatingPointUsageNeedsNoPicture) {
  item.pictureSymbol = item.pictureSize = {};
  for (char const* usage : {"COMP-1", "COMP-2"}) {
    item.usage = usage;
    EXPECT_TRUE(isWritable()) << usage;
  }
  item.pictureSize = "18";
  EXPECT_TRUE(isWritable());
}

TEST_F(Writable, OtherUsagesNeedAPicture) {
  item.pictureSymbol = item.pictureSize = {};
  item.usage = "COMP-3";
  EXPECT_TRUE(isRefusedAsEmpty());
}

TEST_F(Writable, GroupHasChildrenAndNoPicture) {
  item.pictureSymbol = item.pictureSize = {};
  item.addChild(&child);
  EXPECT_TRUE(isWritable());
}

TEST_F(Writable, SizeWithoutASymbolIsEmptyEvenWithChildren) {
  item.pictureSymbol = {};
  item.addChild(&child);
  EXPECT_TRUE(isRefusedAsEmpty());
}

TEST_F(Writable, NeitherPictureNorUsageNorChildrenIsEmpty) {
  item.pictureSymbol = item.pictureSize = {};
  EXPECT_TRUE(isRefusedAsEmpty());
  EXPECT_EQ(console.m_nWarningCount, 1);
}

TEST_F(Writable, EmptyItemWarnsOnEachCall) {
  item.pictureSymbol = item.pictureSize = {};
  for (int i = 0; i < 3; ++i) EXPECT_FALSE(isWritable());
  EXPECT_EQ(countOf("(empty structure)\n", captured.err()), 3);
  EXPECT_EQ(console.m_nWarningCount, 3);
}

}  // namespace
}  // namespace fdmorph
