// Tables with DEPENDING ON, and count records.
#include <gtest/gtest.h>

#include "encoding.h"

namespace fdmorph::document {
namespace {

constexpr char kTable[] = "01 R. 05 N PIC 9. 05 T PIC X OCCURS 1 TO 4 DEPENDING ON N. 05 Z PIC X.";

TEST(EncodeCounter, AgreesWithTheElementsOfItsTable) {
  Encoding encoding(kTable);
  EXPECT_EQ(encoding.run("<R><N>2</N><T>a</T><T>b</T><Z>z</Z></R>"), "2ab  z");
  EXPECT_EQ(encoding.run("<R><T>a</T><N>2</N><T>b</T></R>"), "2ab   ");
  EXPECT_EQ(encoding.run("<R><N>3</N><T>a</T></R>"), "12 R/T [odo]");
  EXPECT_EQ(encoding.run("<R><N>2</N></R>"), "1 R/T [odo]");
}

TEST(EncodeCounter, ThatIsAbsentIsSetFromTheTable) {
  Encoding encoding(kTable);
  EXPECT_EQ(encoding.run("<R><T>a</T><T>b</T><T>c</T></R>"), "3abc  ");
  EXPECT_EQ(encoding.run("<R><N xsi:nil=\"true\"/><T>a</T></R>"), "1a    ");
}

TEST(EncodeCounter, IsNotBelowTheLowerBound) {
  Encoding encoding(kTable);
  EXPECT_EQ(encoding.run("<R/>"), "1 R/T [odo]");
  EXPECT_EQ(encoding.run("<R><N>0</N></R>"), "1 R/T [odo]");
}

TEST(EncodeCounter, IsNotComparedWithTooManyElements) {
  EXPECT_EQ(Encoding(kTable).run("<R><N>2</N><T>a</T><T>b</T><T>c</T><T>d</T><T>e</T></R>"),
            "44 R/T[5] [occurs]");
}

// A counter with an error of its own tells that once; the values of its table are
// looked at, and their number is not.
TEST(EncodeCounter, WithAnErrorIsNotCompared) {
  EXPECT_EQ(Encoding(kTable).run("<R><N>x</N><T>a</T><T>bb</T></R>"),
            "4 R/N [number]; 20 R/T[2] [length]");
}

TEST(EncodeCounter, ThatCannotHoldTheNumberIsAnError) {
  std::string document = "<R>";
  for (int i = 0; i < 12; ++i) document += "<T>a</T>";
  EXPECT_EQ(Encoding("01 R. 05 N PIC 9. 05 T PIC X OCCURS 0 TO 20 DEPENDING ON N.")
                .run(document + "</R>"),
            "4 R/T [odo]");
}

constexpr char kTwoTables[] =
    "01 R. 05 N PIC 9. 05 T PIC X OCCURS 0 TO 3 DEPENDING ON N. 05 U PIC X OCCURS 0 TO 3"
    " DEPENDING ON N.";

TEST(EncodeCounter, OfSeveralTablesIsTheSameForAll) {
  Encoding encoding(kTwoTables);
  EXPECT_EQ(encoding.run("<R><T>a</T><U>b</U></R>"), "1a  b  ");
  EXPECT_EQ(encoding.run("<R><T>a</T><U>b</U><U>c</U></R>"), "12 R/U [odo]");
  EXPECT_EQ(encoding.run("<R><N>1</N><T>a</T></R>"), "1 R/U [odo]");
}

// Tables in absent parts neither set nor check a counter.
TEST(EncodeCounter, OfATableInAnAbsentPartIsTheLowerBound) {
  constexpr char kGroup[] =
      "01 R. 05 N PIC 9 VALUE 5. 05 G. 10 T PIC X OCCURS 2 TO 4 DEPENDING ON N.";
  EXPECT_EQ(Encoding(kGroup).run("<R/>"), "2    ");
  EXPECT_EQ(Encoding(kGroup).run("<R><N>3</N></R>"), "3    ");
  EXPECT_EQ(Encoding(kGroup).run("<R><G/></R>"), "4 R/G/T [odo]");
  EXPECT_EQ(Encoding(kGroup).run("<R><G xsi:nil=\"true\"/></R>"), "2    ");
}

TEST(EncodeCounter, InATableIsOfTheSameOccurrence) {
  Encoding encoding("01 R. 05 T OCCURS 2. 10 N PIC 9. 10 U PIC X OCCURS 0 TO 2 DEPENDING ON N.");
  EXPECT_EQ(encoding.run("<R><T><U>a</U></T><T><N>2</N><U>b</U><U>c</U></T></R>"), "1a 2bc");
  EXPECT_EQ(encoding.run("<R><T><N>1</N></T><T><N>1</N><U>b</U></T></R>"), "4 R/T[1]/U [odo]");
}

TEST(EncodeCounter, WithoutARoleIsSetFromTheTable) {
  Encoding encoding(
      "01 R IDENTIFIED BY 'r'. 05 N PIC 9. 05 T IDENTIFIED BY 't' PIC X OCCURS 0 TO 3"
      " DEPENDING ON N.");
  EXPECT_EQ(encoding.run("<r><t>a</t><t>b</t></r>"), "2ab ");
  EXPECT_EQ(encoding.run("<r/>"), "0   ");
}

TEST(EncodeCounter, OfATableWithoutARoleIsWithinItsBounds) {
  Encoding encoding("01 R. 05 N PIC 9. 05 FILLER OCCURS 2 TO 3 DEPENDING ON N. 10 FILLER PIC X.");
  EXPECT_EQ(encoding.run("<R><N>3</N></R>"), "3   ");
  EXPECT_EQ(encoding.run("<R><N>4</N></R>"), "4 R/N [odo]");
  EXPECT_EQ(encoding.run("<R/>"), "2   ");
}

TEST(EncodeCounter, ThatIsGivenIsTheNumberOfElements) {
  EncodingRules rules;
  rules.counters = {{"EIBCALEN", 2}};
  Encoding encoding("01 R. 05 T PIC X OCCURS 0 TO 3 DEPENDING ON EIBCALEN.", rules);
  EXPECT_EQ(encoding.run("<R><T>a</T><T>b</T></R>"), "ab ");
  EXPECT_EQ(encoding.run("<R><T>a</T></R>"), "4 R/T [odo]");
}

TEST(EncodeCounter, ShiftsWhatFollows) {
  EncodingRules rules;
  rules.shifts = true;
  Encoding encoding(kTable, rules);
  EXPECT_EQ(encoding.run("<R><T>a</T><T>b</T><Z>z</Z></R>"), "2abz");
  // The error has the place of its item in the record as it is written.
  EXPECT_EQ(encoding.run("<R><T>a</T><Z>zz</Z></R>"), "12 R/Z [length]");
  EXPECT_EQ(encoding.errors[0].offset, 2U);
}

TEST(EncodeCounter, ShiftsRecordsWithBytesFromOutside) {
  EncodingRules rules;
  rules.shifts = true;
  Encoding encoding(kTable, rules);
  EXPECT_EQ(encoding.run("<R><T>a</T><Z>zz</Z></R>", {{2, "Q"}}), "1aQ");
}

constexpr char kCounts[] =
    "01 R IDENTIFIED BY 'r'. 05 A IDENTIFIED BY 'a' COUNT IN A-COUNT PIC X."
    " 05 T IDENTIFIED BY 't' COUNT IN T-COUNT OCCURS 2. 10 B IDENTIFIED BY 'b' COUNT IN B-COUNT"
    " PIC X OCCURS 2.";

TEST(EncodeCounts, AreTheNumbersSeen) {
  EncodingRules rules;
  rules.hasCounts = true;
  Encoding encoding(kCounts, rules);
  EXPECT_EQ(encoding.run("<r><a>x</a><t/><t><b>1</b><b>2</b></t></r>"), "x  12");
  // A-COUNT 1, T-COUNT 2, then B-COUNT of each occurrence: 0 and 2.
  EXPECT_EQ(encoding.counts(),
            "\\x01\\x00\\x00\\x00\\x02\\x00\\x00\\x00\\x00\\x00\\x00\\x00\\x02\\x00\\x00\\x00");
  EXPECT_EQ(encoding.run("<r/>"), "     ");
  EXPECT_EQ(encoding.counts(),
            "\\x00\\x00\\x00\\x00\\x00\\x00\\x00\\x00\\x00\\x00\\x00\\x00\\x00\\x00\\x00\\x00");
}

// Those of the record itself, of transparent groups and of value items are 1.
TEST(EncodeCounts, OfWhatIsNoPartAreOneWhereItIsThere) {
  EncodingRules rules;
  rules.hasCounts = true;
  Encoding encoding(
      "01 R IDENTIFIED BY 'r' COUNT IN R-COUNT. 05 G COUNT IN G-COUNT. 10 A IDENTIFIED BY 'a'."
      " 15 V COUNT IN V-COUNT PIC X.",
      rules);
  EXPECT_EQ(encoding.run("<r><a>x</a></r>"), "x");
  EXPECT_EQ(encoding.counts(), "\\x01\\x00\\x00\\x00\\x01\\x00\\x00\\x00\\x01\\x00\\x00\\x00");
  EXPECT_EQ(encoding.run("<r/>"), " ");
  EXPECT_EQ(encoding.counts(), "\\x01\\x00\\x00\\x00\\x01\\x00\\x00\\x00\\x00\\x00\\x00\\x00");
}

TEST(EncodeCounts, WithoutACountRecordHaveNoEffect) {
  Encoding encoding(kCounts);
  EXPECT_EQ(encoding.run("<r><a>x</a></r>"), "x    ");
  EXPECT_EQ(encoding.counts(), "");
}

}  // namespace
}  // namespace fdmorph::document
