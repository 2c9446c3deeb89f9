// Names, pictures and values that a compiler takes.

#include "cobol/legal_record.h"

#include <gtest/gtest.h>

#include <string>

#include "support/record_fixture.h"

namespace fdmorph {
namespace {

class Legal : public RecordTest {
 protected:
  void settle(std::string_view prefix = "") {
    makeLegal(
        top, prefix, [](std::string_view name) { return name == "copy" || name == "COPY"; },
        store.texts());
  }

  CDMCOBOLRecordItem* numeric(std::string_view symbol, std::string_view size) {
    CDMCOBOLRecordItem* item = makeField(top, "n");
    item->pictureSymbol = symbol;
    item->pictureSize = size;
    return item;
  }

  CDMCOBOLRecordItem* top = makeGroup(nullptr, "top");
};

TEST(LegalNames, WhatIsNotAllowedBecomesOneHyphen) {
  EXPECT_EQ(legalName("order.date", 30), "order-date");
  EXPECT_EQ(legalName("_a..b_", 30), "a-b");
  EXPECT_EQ(legalName("-a--b-", 30), "a-b");
  EXPECT_EQ(legalName("gr\xC3\xBC\xC3\x9F", 30), "gr");
  EXPECT_EQ(legalName("_1", 30), "X-1");
  EXPECT_EQ(legalName("\xC3\xBC", 30), "X");
}

TEST(LegalNames, LongOnesAreCut) {
  EXPECT_EQ(legalName("abcdef", 4), "abcd");
  EXPECT_EQ(legalName("abc-def", 4), "abc");
}

TEST_F(Legal, NamesAreDifferentInAnyCase) {
  CDMCOBOLRecordItem* first = makeField(top, "name");
  CDMCOBOLRecordItem* second = makeField(top, "NAME");
  CDMCOBOLRecordItem* third = makeField(top, "name");
  settle();
  EXPECT_EQ(first->dataName, "name");
  EXPECT_EQ(second->dataName, "NAME-1");
  EXPECT_EQ(third->dataName, "name-2");
}

TEST_F(Legal, NumberOfALongNameFitsIn) {
  std::string const name(40, 'n');
  CDMCOBOLRecordItem* first = makeField(top, name);
  CDMCOBOLRecordItem* second = makeField(top, name);
  settle();
  EXPECT_EQ(first->dataName, std::string(30, 'n'));
  EXPECT_EQ(second->dataName, std::string(28, 'n') + "-1");
}

TEST_F(Legal, CountNamesAreNamesOfTheRecord) {
  CDMCOBOLRecordItem* item = makeField(top, "a");
  item->countInName = "a-count";
  CDMCOBOLRecordItem* like = makeField(top, "a-count");
  settle();
  EXPECT_EQ(item->countInName, "a-count");
  EXPECT_EQ(like->dataName, "a-count-1");
}

TEST_F(Legal, PrefixBelongsToTheLength) {
  std::string const name(30, 'n');
  CDMCOBOLRecordItem* item = makeField(top, name);
  CDMCOBOLRecordItem* again = makeField(top, name);
  settle("WS-");
  EXPECT_EQ(top->dataName, "WS-top");
  EXPECT_EQ(item->dataName, "WS-" + std::string(27, 'n'));
  EXPECT_EQ(again->dataName, "WS-" + std::string(25, 'n') + "-1");
}

TEST_F(Legal, ReservedWordsAreNoNames) {
  CDMCOBOLRecordItem* item = makeField(top, "copy");
  CDMCOBOLRecordItem* again = makeField(top, "COPY");
  settle();
  EXPECT_EQ(item->dataName, "copy-1");
  EXPECT_EQ(again->dataName, "COPY-2");
  CDMCOBOLRecordItem* longer = makeField(top, "copybook");
  settle("P-");
  EXPECT_EQ(longer->dataName, "P-copybook");
}

TEST_F(Legal, UnwrittenItemsTakeNoName) {
  makeGroup(top, "a");
  CDMCOBOLRecordItem* written = makeField(top, "a");
  settle();
  EXPECT_EQ(written->dataName, "a");
}

TEST_F(Legal, ItemThatIsListedTwiceStaysOnce) {
  CDMCOBOLRecordItem* item = makeField(top, "a");
  makeField(top, "b");
  top->addChild(item);
  settle();
  EXPECT_EQ(write(top), "       01 top.\n        02 a PIC X(80).\n        02 b PIC X(80).\n");
}

TEST_F(Legal, QuotationMarksAreDoubled) {
  CDMCOBOLRecordItem* condition = makeCondition(makeField(top, "a"), "c", "a\"b");
  settle();
  EXPECT_EQ(condition->itemValue, "a\"\"b");
}

TEST_F(Legal, FractionLeavesAnIntegerDigit) {
  CDMCOBOLRecordItem* item = numeric("S9", "9");
  item->hasDecimal = true;
  item->totalDigits = 5;
  item->fractionDigits = "5";
  settle();
  EXPECT_EQ(item->pictureSize, "1");
  EXPECT_EQ(item->fractionDigits, "5");
  EXPECT_EQ(write(top), "       01 top.\n        02 n PIC S9(1)V9(5).\n");
}

TEST_F(Legal, FractionWithoutAFacetHasTheDefaultDigits) {
  CDMCOBOLRecordItem* item = numeric("S9", "9");
  item->hasDecimal = true;
  settle();
  EXPECT_EQ(write(top), "       01 top.\n        02 n PIC S9(9)V9(9).\n");
}

TEST_F(Legal, FractionOfNoDigitsIsNone) {
  CDMCOBOLRecordItem* item = numeric("S9", "9");
  item->hasDecimal = true;
  item->totalDigits = 7;
  item->fractionDigits = "0";
  settle();
  EXPECT_EQ(write(top), "       01 top.\n        02 n PIC S9(7).\n");
}

TEST_F(Legal, DigitsAreBounded) {
  CDMCOBOLRecordItem* item = numeric("9", "500");
  settle();
  EXPECT_EQ(item->pictureSize, "31");
}

TEST_F(Legal, TextHasAtLeastOneCharacter) {
  CDMCOBOLRecordItem* item = makeField(top, "a");
  item->pictureSize = "0";
  settle();
  EXPECT_EQ(item->pictureSize, "1");
}

}  // namespace
}  // namespace fdmorph
