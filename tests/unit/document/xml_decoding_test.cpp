#include <gtest/gtest.h>

#include "support/decoded.h"

namespace fdmorph::document {
namespace {

TEST(XmlDecoding, ItemsAreElementsInTheOrderOfTheRecord) {
  Decoded record("01 R. 02 A PIC X(3). 02 G. 03 B PIC 9(3)V9. 03 C PIC X.");
  EXPECT_EQ(record.xml("ab 0123z"), "<R><A>ab</A><G><B>12.3</B><C>z</C></G></R>");
}

TEST(XmlDecoding, FillersHaveNoElement) {
  Decoded record("01 R. 02 FILLER PIC X(2). 02 A PIC X.");
  EXPECT_EQ(record.xml("..x"), "<R><A>x</A></R>");
}

TEST(XmlDecoding, ElementWithoutTextIsOneTag) {
  Decoded record("01 R. 02 A PIC X(2). 02 B PIC X.");
  EXPECT_EQ(record.xml("  b"), "<R><A/><B>b</B></R>");
}

TEST(XmlDecoding, GroupWithoutPartsIsOneTag) {
  Decoded record("01 R. 02 G. 03 FILLER PIC X. 02 A PIC X.");
  EXPECT_EQ(record.xml("?a"), "<R><G/><A>a</A></R>");
}

TEST(XmlDecoding, MarkupAndLineEndsAreEscaped) {
  Decoded record("01 R PIC X(9).");
  EXPECT_EQ(record.xml("<&>\n\r\t\"'x"), "<R>&lt;&amp;&gt;&#10;&#13;\t\"'x</R>");
}

TEST(XmlDecoding, AttributesPrecedeTheContentAndEscapeMore) {
  Decoded record(
      "01 R IDENTIFIED BY 'r'. 02 E PIC X(2) IDENTIFIED BY 'e'."
      " 02 T PIC X(2) IDENTIFIED BY 't' IS ATTRIBUTE.");
  EXPECT_EQ(record.xml("ab\t\""), "<r t=\"&#9;&quot;\"><e>ab</e></r>");
}

TEST(XmlDecoding, EmptyAttributeIsWritten) {
  Decoded record(
      "01 R IDENTIFIED BY 'r'. 02 T PIC X IDENTIFIED BY 't' IS ATTRIBUTE."
      " 02 V PIC X(2).");
  EXPECT_EQ(record.xml("   "), "<r t=\"\"/>");
  EXPECT_EQ(record.xml("a42"), "<r t=\"a\">42</r>");
}

TEST(XmlDecoding, GroupThatIsAnAttributeHasTheTextOfItsValueItem) {
  Decoded record(
      "01 R IDENTIFIED BY 'r'. 02 T IDENTIFIED BY 't' IS ATTRIBUTE. 03 V PIC X(2)."
      " 02 E PIC X IDENTIFIED BY 'e'.");
  EXPECT_EQ(record.xml("onx"), "<r t=\"on\"><e>x</e></r>");
}

TEST(XmlDecoding, TransparentGroupHasNoElement) {
  Decoded record(
      "01 R IDENTIFIED BY 'r'. 02 G. 03 A PIC X IDENTIFIED BY 'a'. 03 B PIC X IDENTIFIED BY 'b'.");
  EXPECT_EQ(record.xml("12"), "<r><a>1</a><b>2</b></r>");
}

TEST(XmlDecoding, ElementOfZeroBytesHasNoContent) {
  Decoded record("01 R IDENTIFIED BY 'r'. 02 A IDENTIFIED BY 'a'. 02 B PIC X IDENTIFIED BY 'b'.");
  EXPECT_EQ(record.xml("x"), "<r><a/><b>x</b></r>");
}

TEST(XmlDecoding, TableIsASequenceOfElements) {
  Decoded record("01 R. 02 T OCCURS 2. 03 A PIC X. 03 B PIC 9 OCCURS 2.");
  EXPECT_EQ(record.xml("x12y34"),
            "<R><T><A>x</A><B>1</B><B>2</B></T><T><A>y</A><B>3</B><B>4</B></T></R>");
}

TEST(XmlDecoding, OwnNamespaceIsTheDefaultAndOthersHavePrefixes) {
  Decoded record(
      "01 R IDENTIFIED BY 'r' NAMESPACE IS 'urn:a'."
      " 02 X PIC X IDENTIFIED BY 'x' NAMESPACE IS 'urn:b'."
      " 02 Y PIC X IDENTIFIED BY 'y'."
      " 02 T PIC X IDENTIFIED BY 't' NAMESPACE IS 'urn:a' IS ATTRIBUTE.");
  EXPECT_EQ(record.xml("123"),
            "<r xmlns=\"urn:a\" xmlns:n1=\"urn:b\" xmlns:n2=\"urn:a\" n2:t=\"3\">"
            "<n1:x>1</n1:x><y>2</y></r>");
}

// Namespaces in XML 1.0, 3: no other prefix may be bound to it.
TEST(XmlDecoding, NamespaceOfXmlHasItsOwnPrefix) {
  Decoded record(
      "01 R IDENTIFIED BY 'r'."
      " 02 L PIC X IDENTIFIED BY 'lang' IS ATTRIBUTE"
      " NAMESPACE IS 'http://www.w3.org/XML/1998/namespace'."
      " 02 X PIC X IDENTIFIED BY 'x' NAMESPACE IS 'urn:b'.");
  EXPECT_EQ(record.xml("12"), "<r xmlns:n1=\"urn:b\" xml:lang=\"1\"><n1:x>2</n1:x></r>");
}

TEST(XmlDecoding, ElementInNoNamespaceEndsTheDefaultAndTheWayBackBeginsItAgain) {
  Decoded record(
      "01 R IDENTIFIED BY 'r' NAMESPACE IS 'urn:a'."
      " 02 G IDENTIFIED BY 'g' NAMESPACE IS ''."
      " 03 X PIC X IDENTIFIED BY 'x'."
      " 03 Y PIC X IDENTIFIED BY 'y' NAMESPACE IS 'urn:a'.");
  EXPECT_EQ(record.xml("12"),
            "<r xmlns=\"urn:a\"><g xmlns=\"\"><x>1</x><y xmlns=\"urn:a\">2</y></g></r>");
}

TEST(XmlDecoding, PrettyFormIndentsElementsButNotTexts) {
  Decoded record("01 R. 02 G. 03 A PIC X. 02 B PIC X OCCURS 2.");
  record.output.isPretty = true;
  EXPECT_EQ(record.xml("1 3"), "<R>\n  <G>\n    <A>1</A>\n  </G>\n  <B/>\n  <B>3</B>\n</R>");
  record.output.hasWrapper = true;
  EXPECT_EQ(record.xml("123"),
            "  <R>\n    <G>\n      <A>1</A>\n    </G>\n    <B>2</B>\n    <B>3</B>\n  </R>");
}

TEST(XmlDecoding, FirstViewWithARoleIsConverted) {
  Decoded record("01 R. 02 A PIC X(2). 02 N REDEFINES A PIC 99. 02 B PIC X.");
  EXPECT_EQ(record.xml("12z"), "<R><A>12</A><B>z</B></R>");
}

TEST(XmlDecoding, RulesChooseAView) {
  Decoded record("01 R. 02 K PIC X. 02 A PIC X(2). 02 N REDEFINES A PIC 99.");
  record.when = {"N: K = 'N'", "A:"};
  EXPECT_EQ(record.xml("N12"), "<R><K>N</K><N>12</N></R>");
  EXPECT_EQ(record.xml("A12"), "<R><K>A</K><A>12</A></R>");
}

TEST(XmlDecoding, NoRuleThatHoldsIsAnError) {
  Decoded record("01 R. 02 K PIC X. 02 G. 03 A PIC X(2). 03 N REDEFINES A PIC 99.");
  record.when = {"N: K = 'N'", "A: K = 'A' , 'B'"};
  EXPECT_EQ(record.xml("C12"), "view 1 R/G\n");
}

TEST(XmlDecoding, ConditionNamesAndRangesAreTests) {
  Decoded record(
      "01 R. 02 K PIC 9. 88 IS-N VALUE 1 THRU 3, 7. 02 A PIC X(2). 02 N REDEFINES A PIC 99.");
  record.when = {"N: IS-N", "A:"};
  EXPECT_EQ(record.xml("312"), "<R><K>3</K><N>12</N></R>");
  EXPECT_EQ(record.xml("712"), "<R><K>7</K><N>12</N></R>");
  EXPECT_EQ(record.xml("412"), "<R><K>4</K><A>12</A></R>");
}

TEST(XmlDecoding, TestsInATableLookAtTheSameOccurrence) {
  Decoded record("01 R. 02 T OCCURS 2. 03 K PIC X. 03 A PIC X. 03 N REDEFINES A PIC 9.");
  record.when = {"N: K = 'N'", "A:"};
  EXPECT_EQ(record.xml("N1X2"), "<R><T><K>N</K><N>1</N></T><T><K>X</K><A>2</A></T></R>");
}

}  // namespace
}  // namespace fdmorph::document
