// Elements, attributes and texts of a document in the bytes of its record.
#include <gtest/gtest.h>

#include "encoding.h"

namespace fdmorph::document {
namespace {

constexpr char kOrder[] =
    "01 R. 05 A PIC X(3). 05 N PIC 9(3). 05 G. 10 B PIC X(2). 10 C PIC 9(2). "
    "05 L PIC X(2) OCCURS 3. 05 Z PIC X VALUE 'z'.";

TEST(EncodeParts, InAnyOrderTakeTheirPlaces) {
  Encoding encoding(kOrder);
  EXPECT_EQ(encoding.run("<R><A>ab</A><N>7</N><G><B>x</B><C>1</C></G>"
                         "<L>p</L><L>q</L><L>r</L><Z>y</Z></R>"),
            "ab 007x 01p q r y");
  EXPECT_EQ(encoding.run("<R><Z>y</Z><L>p</L><G><C>1</C><B>x</B></G><L>q</L><N>7</N>"
                         "<A>ab</A><L>r</L></R>"),
            "ab 007x 01p q r y");
}

// A part that the document lacks has its VALUE, else blanks or zeros.
TEST(EncodeParts, ThatAreAbsentHaveTheirInitialBytes) {
  EXPECT_EQ(Encoding(kOrder).run("<R/>"), "   000  00      z");
  EXPECT_EQ(Encoding(kOrder).run("<R><L>p</L><G><B>x</B></G></R>"), "   000x 00p     z");
}

// The value of a group is that of all its items, which are not initialised then; but a
// counter in it is the lower bound of its table.
TEST(EncodeParts, ThatAreAbsentHaveTheValueOfAGroupAroundThem) {
  Encoding encoding(
      "01 R. 05 G VALUE 'abcd'. 10 A PIC X(2). 10 B PIC 9(2). 05 H. 10 C PIC 9."
      " 05 I VALUE ALL '79'. 10 J OCCURS 2. 15 N PIC 9. 15 T PIC 9 OCCURS 1 TO 2"
      " DEPENDING ON N.");
  EXPECT_EQ(encoding.run("<R/>"), "abcd0197179");
  EXPECT_EQ(encoding.run("<R><G><A>x</A></G></R>"), "x cd0197179");
}

TEST(EncodeParts, OfEachRecordStartAnew) {
  Encoding encoding(kOrder);
  EXPECT_EQ(encoding.run("<R><A>abc</A><L>p</L></R>"), "abc000  00p     z");
  EXPECT_EQ(encoding.run("<R/>"), "   000  00      z");
}

TEST(EncodeParts, WithoutAnItemAreUnknown) {
  Encoding encoding(kOrder);
  EXPECT_EQ(encoding.run("<R><Q/><G><A>x</A><B w=\"1\">x</B></G></R>"),
            "4 R/Q [unknown]; 11 R/G/A [unknown]; 19 R/G/B/@w [unknown]");
  EXPECT_EQ(encoding.run("<R v=\"1\"><A><Q/></A></R>"), "1 R/@v [unknown]; 13 R/A/Q [unknown]");
  // C is in G, and not in the record itself.
  EXPECT_EQ(encoding.run("<R><C>1</C></R>"), "4 R/C [unknown]");
}

TEST(EncodeParts, WithoutAnItemAreIgnoredIfAskedFor) {
  EncodingRules rules;
  rules.encode.ignoresUnknown = true;
  EXPECT_EQ(Encoding(kOrder, rules).run("<R v=\"1\"><Q><A>no</A></Q><A>ab<Q/></A></R>"),
            "ab 000  00      z");
}

TEST(EncodeParts, AreNoMoreThanTheItemHolds) {
  Encoding encoding(kOrder);
  EXPECT_EQ(encoding.run("<R><A>a</A><A>b</A></R>"), "12 R/A [occurs]");
  EXPECT_EQ(encoding.run("<R><L>1</L><L>2</L><L>3</L><L>4</L><L>5</L></R>"), "28 R/L[4] [occurs]");
}

TEST(EncodeParts, OfANilElementAreNotLookedAt) {
  Encoding encoding(kOrder);
  EXPECT_EQ(encoding.run("<R><A xsi:nil=\"true\">toolong</A>"
                         "<G xsi:nil=\"true\"><Q/><C>no</C></G></R>"),
            "   000  00      z");
  // In a table it is an occurrence.
  EXPECT_EQ(encoding.run("<R><L>p</L><L xsi:nil=\"true\"/><L>r</L></R>"), "   000  00p   r z");
  EXPECT_EQ(encoding.run("<R xsi:nil=\"true\"><Q/></R>"), "   000  00      z");
}

TEST(EncodeParts, HaveNoTextBesideElements) {
  Encoding encoding(kOrder);
  EXPECT_EQ(encoding.run("<R> <G>\t<B>x</B> </G> </R>"), "   000x 00      z");
  EXPECT_EQ(encoding.run("<R>a<G>b</G></R>"), "1 R [text]; 5 R/G [text]");
}

// The errors of values at each kind of item.
TEST(EncodeParts, TellErrorsOfValues) {
  Encoding encoding(
      "01 R. 05 X PIC X(2). 05 D PIC 9(2)V9. 05 P PIC S9(3) COMP-3. 05 B PIC 9(4) COMP."
      " 05 F COMP-1. 05 E PIC ZZ9.");
  EXPECT_EQ(encoding.run("<R><X>abc</X><D>1x</D><P></P><B>abc</B><F>one</F></R>"),
            "4 R/X [length]; 14 R/D [number]; 23 R/P [number]; 30 R/B [number]; 40 R/F [number]");
  EXPECT_EQ(encoding.run("<R><D>123</D><P>1000</P><B>-1</B><F>1e99</F></R>"),
            "4 R/D [overflow]; 14 R/P [overflow]; 25 R/B [overflow]; 34 R/F [overflow]");
  EXPECT_EQ(encoding.run("<R><D>1.23</D><P>1.5</P><B>0.1</B></R>"),
            "4 R/D [precision]; 15 R/P [precision]; 25 R/B [precision]");
  EXPECT_EQ(encoding.run("<R><X>\xE2\x82\xAC</X><E>1234</E></R>"),
            "4 R/X [character]; 14 R/E [length]");
}

TEST(EncodeParts, TellErrorsInTheOrderOfTheDocument) {
  EXPECT_EQ(Encoding(kOrder).run("<R><Z>no</Z><N>b</N><A>long</A></R>"),
            "4 R/Z [length]; 13 R/N [number]; 21 R/A [length]");
}

TEST(EncodeParts, TellTenErrorsOfARecord) {
  std::string document = "<R>";
  for (int i = 0; i < 2000; ++i) document += "<Q/>";
  Encoding encoding(kOrder);
  static_cast<void>(encoding.run(document + "</R>"));
  ASSERT_EQ(encoding.errors.size(), kMaxErrorsPerRecord);
  EXPECT_EQ(encoding.errors.front().column, 4U);
  EXPECT_EQ(encoding.errors.back().column, 40U);
}

TEST(EncodeParts, GiveErrorsTheBytesOfTheirItems) {
  Encoding encoding(kOrder);
  static_cast<void>(encoding.run("<R><L>p</L><L>toolong</L></R>"));
  ASSERT_EQ(encoding.errors.size(), 1U);
  EXPECT_EQ(encoding.errors[0].offset, 12U);
  EXPECT_EQ(encoding.errors[0].size, 2U);
}

constexpr char kMember[] =
    "01 MEMBER IDENTIFIED BY 'm'. 05 IDENTIFIED BY 'id' IS ATTRIBUTE PIC 9(2)."
    " 05 KIND IDENTIFIED BY 'kind' IS ATTRIBUTE. 10 KIND-VALUE PIC X(2)."
    " 05 NAME IDENTIFIED BY 'name'. 10 IDENTIFIED BY 'lang' IS ATTRIBUTE PIC X(2)."
    " 10 NAME-VALUE PIC X(4). 05 NOTHING IDENTIFIED BY 'nothing'. 05 FILLER PIC X VALUE '.'.";

TEST(EncodeParts, AreAttributesAndTexts) {
  Encoding encoding(kMember);
  EXPECT_EQ(encoding.run("<m kind=\"k\" id=\"5\"><name lang=\"en\">Ann</name><nothing/></m>"),
            "05k enAnn .");
  EXPECT_EQ(encoding.run("<m><name>Ann</name></m>"), "00    Ann .");
}

TEST(EncodeParts, TellErrorsOfAttributesAtTheirElement) {
  Encoding encoding(kMember);
  EXPECT_EQ(encoding.run("<m kind=\"kkk\" id=\"x\"><name>Annabel</name></m>"),
            "1 m/@id [number]; 1 m/@kind [length]; 22 m/name [length]");
  EXPECT_EQ(encoding.run("<m><id>1</id><nothing>x</nothing></m>"),
            "4 m/id [unknown]; 14 m/nothing [text]");
  EXPECT_EQ(encoding.run("<m><name><a/>Ann</name></m>"), "10 m/name/a [unknown]");
}

// A table may stand beside a part with its name: both are slots, filled in order.
TEST(EncodeParts, OfOneNameFillTheirSlotsInOrder) {
  Encoding encoding(
      "01 R IDENTIFIED BY 'r'. 05 A1 IDENTIFIED BY 'a' PIC X. 05 B IDENTIFIED BY 'b' PIC X."
      " 05 A2 IDENTIFIED BY 'a' PIC X OCCURS 2. 05 A3 IDENTIFIED BY 'a' PIC X.");
  EXPECT_EQ(encoding.run("<r><a>1</a><a>2</a><b>x</b><a>3</a><a>4</a></r>"), "1x234");
  EXPECT_EQ(encoding.run("<r><a>1</a><a>2</a></r>"), "1 2  ");
  EXPECT_EQ(encoding.run("<r><a>1</a><a xsi:nil=\"true\"/><a>3</a></r>"), "1  3 ");
  EXPECT_EQ(encoding.run("<r><a>1</a><a>2</a><a>3</a><a>4</a><a>5</a></r>"), "36 r/a[5] [occurs]");
  EXPECT_EQ(encoding.run("<r><a>1</a><a>2</a><a>33</a></r>"), "20 r/a[3] [length]");
}

TEST(EncodeParts, OfTransparentGroupsArePartsOfTheElementAround) {
  Encoding encoding(
      "01 R IDENTIFIED BY 'r'. 05 INNER. 10 A IDENTIFIED BY 'a' PIC X. 10 B IDENTIFIED BY 'b'."
      " 15 IDENTIFIED BY 'c' PIC X. 05 D IDENTIFIED BY 'd' PIC X.");
  EXPECT_EQ(encoding.run("<r><a>1</a><b><c>2</c></b><d>3</d></r>"), "123");
}

TEST(EncodeParts, OfTablesInTablesTakeTheirPlaces) {
  Encoding encoding("01 R. 05 T OCCURS 2. 10 A PIC X. 10 U OCCURS 2. 15 B PIC X. 15 C PIC 9.");
  EXPECT_EQ(encoding.run("<R><T><A>a</A><U><B>b</B><C>1</C></U><U><B>c</B></U></T>"
                         "<T><U/><U><C>9</C></U></T></R>"),
            "ab1c0  0 9");
  EXPECT_EQ(encoding.run("<R><T/><T><U/><U><C>x</C></U></T></R>"), "18 R/T[2]/U[2]/C [number]");
}

TEST(EncodeParts, OfARecordThatIsElementaryAreItsText) {
  EXPECT_EQ(Encoding("01 R PIC 9(3).").run("<R>12</R>"), "012");
  EXPECT_EQ(Encoding("01 R PIC 9(3).").run("<R>x</R>"), "1 R [number]");
}

TEST(EncodeParts, ThatAReaderFoundBrokenHaveNoOtherErrors) {
  Encoding encoding(kOrder);
  NameNumbers const names(encoding.set.names(), NameMatch::exact);
  Instances instances = DocumentText("<R><N>x</N><A>long</A></R>", names).readXml();
  instances.all[1].isBroken = true;
  Encoder encoder(encoding.set, names, {});
  DataErrors errors{{ErrorCode::xml, "of the reader", "", 0, "", 1, 2}};
  EXPECT_FALSE(encoder.encode(instances, errors));
  ASSERT_EQ(errors.size(), 2U);
  EXPECT_EQ(errors[0].code, ErrorCode::xml);
  EXPECT_EQ(errors[1].path, "R/A");
}

// Bytes from outside take the place of the record's, and the errors of items that they
// cover are none.
TEST(EncodeParts, MayBeReplacedByBytes) {
  Encoding encoding(kOrder);
  EXPECT_EQ(encoding.run("<R><A>toolong</A><N>5</N></R>", {{0, "123"}, {16, "Q"}}),
            "123005  00      Q");
  EXPECT_EQ(encoding.run("<R><A>toolong</A><N>5</N></R>", {{0, "12"}}), "4 R/A [length]");
  EXPECT_EQ(encoding.run("<R><N>x</N></R>", {{3, "123"}}), "4 R/N [number]");
}

}  // namespace
}  // namespace fdmorph::document
