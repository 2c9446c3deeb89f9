// The clauses of one item.

#include <gtest/gtest.h>

#include "support/fixed_format.h"
#include "support/record_fixture.h"
#include "text/console.h"

namespace fdmorph {
namespace {

class Clauses : public RecordTest {
 protected:
  Clauses() { item->indent = 7; }

  /// The line of the item without indentation and line end, if it fits.
  std::string line(RecordOutput::Options const& options = {}) {
    std::string text = write(item, options);
    EXPECT_TRUE(isWritten);
    EXPECT_EQ(text.substr(0, 7), blanks(7));
    EXPECT_EQ(text.find('\n'), text.size() - 1);
    return text.substr(7, text.size() - 8);
  }

  void setPicture(std::string_view symbol, std::string_view size) {
    item->pictureSymbol = symbol;
    item->pictureSize = size;
  }

  CDMCOBOLRecordItem* item = makeField(nullptr, "a");
};

TEST_F(Clauses, LevelHasTwoDigits) {
  EXPECT_EQ(line(), "01 a PIC X(80).");
  item->levelNumber = 9;
  EXPECT_EQ(line(), "09 a PIC X(80).");
  item->levelNumber = 10;
  EXPECT_EQ(line(), "10 a PIC X(80).");
  item->levelNumber = 49;
  EXPECT_EQ(line(), "49 a PIC X(80).");
}

TEST_F(Clauses, IndentationComesFirst) {
  item->indent = 11;
  EXPECT_EQ(write(item), blanks(11) + "01 a PIC X(80).\n");
}

TEST_F(Clauses, ConditionHasItsNameAndValueOnly) {
  item->levelNumber = kConditionLevel;
  setPicture({}, {});
  item->dataName = "enumerator-0";
  item->itemValue = "RED \"x\"";
  item->identifiedBy = "color";
  item->xmlNamespace = "urn:a";
  item->isAttribute = true;
  item->countInName = "color-count";
  EXPECT_EQ(line(), "88 enumerator-0 value is \"RED \"x\"\".");
}

TEST_F(Clauses, RedefinesNamesTheOtherItem) {
  CDMCOBOLRecordItem other;
  other.dataName = "u-union-value-0";
  item->redefinedItem = &other;
  EXPECT_EQ(line(), "01 a redefines u-union-value-0 PIC X(80).");
}

TEST_F(Clauses, RedefinesOfAnItemWithoutANameIsReportedAndLeftOut) {
  CDMCOBOLRecordItem other;
  item->redefinedItem = &other;
  EXPECT_EQ(line(), "01 a PIC X(80).");
  EXPECT_EQ(captured.err(), "Error : Redefines specified, but no COBOL name present\n");
  EXPECT_EQ(console.m_nErrorCount, 1);
}

TEST_F(Clauses, SizeIsTheRepeatCountOfAnyPicture) {
  setPicture("9", "18");
  EXPECT_EQ(line(), "01 a PIC 9(18).");
  setPicture("S9", "5");
  EXPECT_EQ(line(), "01 a PIC S9(5).");
  setPicture("X", "abc");
  EXPECT_EQ(line(), "01 a PIC X(abc).");
}

TEST_F(Clauses, TotalDigitsAreTheRepeatCountOfANumber) {
  item->totalDigits = 5;
  setPicture("9", "18");
  EXPECT_EQ(line(), "01 a PIC 9(5).");
  setPicture("S9", "18");
  EXPECT_EQ(line(), "01 a PIC S9(5).");
  item->totalDigits = 0;
  EXPECT_EQ(line(), "01 a PIC S9(0).");
}

TEST_F(Clauses, TotalDigitsAreIgnoredForX) {
  item->totalDigits = 5;
  EXPECT_EQ(line(), "01 a PIC X(80).");
}

TEST_F(Clauses, FractionDigitsShortenTheIntegerPart) {
  setPicture("S9", "18");
  item->totalDigits = 7;
  item->fractionDigits = "2";
  EXPECT_EQ(line(), "01 a PIC S9(5).");
}

TEST_F(Clauses, FractionDigitsAloneDoNotShortenIt) {
  setPicture("S9", "18");
  item->fractionDigits = "2";
  EXPECT_EQ(line(), "01 a PIC S9(18).");
}

TEST_F(Clauses, DecimalHasAFractionPart) {
  setPicture("S9", "9");
  item->hasDecimal = true;
  EXPECT_EQ(line(), "01 a PIC S9(9)V9(9).");
  item->fractionDigits = "2";
  EXPECT_EQ(line(), "01 a PIC S9(9)V9(2).");
  item->totalDigits = 10;
  EXPECT_EQ(line(), "01 a PIC S9(8)V9(2).");
  item->fractionDigits = {};
  EXPECT_EQ(line(), "01 a PIC S9(10)V9(9).");
}

TEST_F(Clauses, FractionPartFollowsAnySymbol) {
  item->hasDecimal = true;
  EXPECT_EQ(line(), "01 a PIC X(80)V9(80).");
}

TEST_F(Clauses, CountBelowZeroIsPrintedAsComputed) {
  setPicture("S9", "9");
  item->hasDecimal = true;
  item->totalDigits = 2;
  item->fractionDigits = "5";
  EXPECT_EQ(line(), "01 a PIC S9(-3)V9(5).");
}

TEST_F(Clauses, UsageReplacesThePicture) {
  setPicture({}, "18");
  item->usage = "COMP-1";
  EXPECT_EQ(line(), "01 a USAGE COMP-1.");
}

TEST_F(Clauses, UsageFollowsThePicture) {
  item->usage = "COMP-2";
  EXPECT_EQ(line(), "01 a PIC X(80) USAGE COMP-2.");
}

TEST_F(Clauses, OccursHasTheUpperBound) {
  item->maxOccurs = "5";
  EXPECT_EQ(line(), "01 a PIC X(80) occurs 5 times.");
  item->maxOccurs = "0";
  EXPECT_EQ(line(), "01 a PIC X(80) occurs 0 times.");
}

TEST_F(Clauses, BoundsOf1AndUnboundedHaveNoOccurs) {
  item->maxOccurs = "1";
  EXPECT_EQ(line(), "01 a PIC X(80).");
  item->maxOccurs = "unbounded";
  EXPECT_EQ(line(), "01 a PIC X(80).");
}

TEST_F(Clauses, MinimumOccurrenceIsNeverWritten) {
  item->minOccurs = "0";
  EXPECT_EQ(line(), "01 a PIC X(80).");
}

TEST_F(Clauses, IdentifiedByQuotesTheXmlName) {
  item->identifiedBy = "my_a";
  EXPECT_EQ(line(), "01 a PIC X(80) identified by \"my_a\".");
}

TEST_F(Clauses, AttributeIsMarked) {
  item->isAttribute = true;
  EXPECT_EQ(line(), "01 a PIC X(80) is attribute.");
}

TEST_F(Clauses, RootWithANamespaceHasTheClause) {
  item->xmlNamespace = "urn:a";
  EXPECT_EQ(line(), "01 a PIC X(80) namespace is \"urn:a\".");
}

TEST_F(Clauses, NamespaceOfAChildIsWrittenIfItDiffers) {
  CDMCOBOLRecordItem parent;
  parent.xmlNamespace = "urn:a";
  item->parent = &parent;
  item->xmlNamespace = "urn:a";
  EXPECT_EQ(line(), "01 a PIC X(80).");
  item->xmlNamespace = "urn:b";
  EXPECT_EQ(line(), "01 a PIC X(80) namespace is \"urn:b\".");
  item->xmlNamespace = {};
  EXPECT_EQ(line(), "01 a PIC X(80).");
}

TEST_F(Clauses, CountInNeedsANameAndTheFlag) {
  EXPECT_EQ(line(), "01 a PIC X(80).");
  item->countInName = "a-count";
  EXPECT_EQ(line(), "01 a PIC X(80) count in a-count.");
  RecordOutput::Options options;
  options.countIn = false;
  EXPECT_EQ(line(options), "01 a PIC X(80).");
}

TEST_F(Clauses, PrefixPrecedesNameAndCountFieldOnly) {
  CDMCOBOLRecordItem other;
  other.dataName = "b";
  item->redefinedItem = &other;
  item->identifiedBy = "a";
  item->countInName = "a-count";
  RecordOutput::Options options;
  options.prefix = "W-";
  EXPECT_EQ(write(item, options),
            blanks(7) + "01 W-a redefines b PIC X(80) identified by \"a\" count in \n" +
                blanks(10) + "W-a-count.\n");
}

TEST_F(Clauses, AllClausesHaveAFixedOrder) {
  CDMCOBOLRecordItem other;
  other.dataName = "b";
  item->redefinedItem = &other;
  setPicture("S9", "9");
  item->hasDecimal = true;
  item->usage = "COMP-1";
  item->maxOccurs = "3";
  item->identifiedBy = "a";
  item->xmlNamespace = "urn:a";
  item->isAttribute = true;
  item->countInName = "a-count";
  EXPECT_EQ(write(item),
            layOut(blanks(7) + "01 a redefines b PIC S9(9)V9(9) USAGE COMP-1 occurs 3 times"
                               " identified by \"a\" namespace is \"urn:a\" is attribute"
                               " count in a-count."));
}

TEST_F(Clauses, EntryThatIsTooLongMovesItsLastTokenDown) {
  item->dataName = item->identifiedBy = "order-record";
  item->countInName = "order-record-count";
  setPicture({}, {});
  makeField(item, "id");
  EXPECT_EQ(write(item), blanks(7) + "01 order-record identified by \"order-record\" count in \n" +
                             blanks(10) + "order-record-count.\n" + blanks(8) +
                             "02 id PIC X(80).\n");
}

}  // namespace
}  // namespace fdmorph
