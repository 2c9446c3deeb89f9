// The views of areas that items share, and several record types.
#include <gtest/gtest.h>

#include "encoding.h"

namespace fdmorph::document {
namespace {

constexpr char kViews[] =
    "01 R. 05 K PIC X. 05 V1. 10 A PIC X(2). 10 B PIC 9(2). 05 V2 REDEFINES V1. 10 C PIC 9(3)."
    " 05 V3 REDEFINES V1. 10 D PIC X(5).";

EncodingRules views(std::vector<std::string> when) {
  EncodingRules rules;
  rules.when = std::move(when);
  return rules;
}

// Here the views are groups with names, so that the names are those of the views.
TEST(EncodeView, IsTheOneThatHasTheDocumentsParts) {
  Encoding encoding(kViews, views({"V1: K = 'A'", "V2: K = 'B'", "V3: K = 'C'"}));
  EXPECT_EQ(encoding.run("<R><K>A</K><V1><A>x</A><B>1</B></V1></R>"), "Ax 01 ");
  EXPECT_EQ(encoding.run("<R><V2><C>7</C></V2><K>B</K></R>"), "B0070 ");
  EXPECT_EQ(encoding.run("<R><K>C</K><V3><D>abcde</D></V3></R>"), "Cabcde");
}

TEST(EncodeView, IsTheOneThatTheRulesChoose) {
  Encoding encoding(kViews, views({"V1: K = 'A'", "V2: K = 'B'", "V3: K = 'C'"}));
  EXPECT_EQ(encoding.run("<R><K>A</K><V2><C>7</C></V2></R>"), "12 R/V2 [view]");
  EXPECT_EQ(encoding.run("<R><K>X</K><V2><C>7</C></V2></R>"), "12 R/V2 [view]");
}

TEST(EncodeView, MustBeChosenEvenIfNothingOfItIsThere) {
  Encoding encoding(kViews, views({"V1: K = 'A'", "V2: K = 'B'"}));
  EXPECT_EQ(encoding.run("<R><K>B</K></R>"), "B  00 ");
  EXPECT_EQ(encoding.run("<R><K>X</K></R>"), "1 R [view]");
}

TEST(EncodeView, IsToldIfTheRecordHasNoOtherError) {
  Encoding encoding(kViews, views({"V1: K = 'A'", "V2: K = 'B'"}));
  EXPECT_EQ(encoding.run("<R><K>A</K><V2><C>x</C></V2></R>"), "16 R/V2/C [number]");
  EXPECT_EQ(encoding.run("<R><K>X</K><Q/></R>"), "12 R/Q [unknown]");
}

TEST(EncodeView, IsNotToldBesideAnErrorOfTheReader) {
  Encoding encoding(kViews, views({"V1: K = 'A'", "V2: K = 'B'"}));
  NameNumbers const names(encoding.set.names(), NameMatch::exact);
  Instances const instances = DocumentText("<R><V2><C>7</C></V2></R>", names).readXml();
  Encoder encoder(encoding.set, names, {});
  DataErrors errors{{ErrorCode::json, "of the reader", "R/K", 0, "", 1, 2}};
  EXPECT_FALSE(encoder.encode(instances, errors));
  ASSERT_EQ(errors.size(), 1U);
  EXPECT_EQ(errors[0].code, ErrorCode::json);
}

TEST(EncodeView, OfPartsThatNoViewHasTogetherIsAnError) {
  Encoding encoding(kViews, views({"V1: K = 'A'", "V2: K = 'B'"}));
  EXPECT_EQ(encoding.run("<R><K>A</K><V2><C>x</C></V2><V1/></R>"), "12 R/V2 [view]");
}

// Without a rule it is the first that has a role.
TEST(EncodeView, WithoutARuleIsTheFirst) {
  Encoding encoding(kViews);
  EXPECT_EQ(encoding.run("<R><V1><A>x</A></V1></R>"), " x 00 ");
  EXPECT_EQ(encoding.run("<R><V2><C>x</C></V2></R>"), "4 R/V2 [view]");
}

TEST(EncodeView, WithoutARuleIsTheFirstThatHasARole) {
  Encoding encoding(
      "01 R IDENTIFIED BY 'r'. 05 RAW PIC X(3) VALUE 'abc'."
      " 05 NUM REDEFINES RAW IDENTIFIED BY 'n' PIC 9(2). 05 O IDENTIFIED BY 'o' PIC X.");
  EXPECT_EQ(encoding.run("<r><n>7</n></r>"), "07c ");
  EXPECT_EQ(encoding.run("<r/>"), "abc ");
}

// What a view does not cover is as the first definition's absent bytes, and its own
// absent parts are as their pictures say: VALUE under REDEFINES is ignored.
TEST(EncodeView, LeavesTheRestOfItsAreaAsTheFirstDefinition) {
  Encoding encoding(
      "01 R. 05 F PIC X(6) VALUE 'abcdef'. 05 G REDEFINES F. 10 P PIC 9(2). 10 Q PIC X(2)"
      " VALUE 'no'.",
      views({"G:"}));
  EXPECT_EQ(encoding.run("<R><G><P>5</P></G></R>"), "05  ef");
}

constexpr char kSameNames[] =
    "01 R IDENTIFIED BY 'r'. 05 K IDENTIFIED BY 'k' PIC X."
    " 05 V1. 10 IDENTIFIED BY 'a' PIC X(3). 05 V2 REDEFINES V1. 10 IDENTIFIED BY 'a' PIC 9(3)."
    " 10 IDENTIFIED BY 'b' PIC X. 05 Z IDENTIFIED BY 'z' PIC X.";

// Of several views that have all parts it is the first whose test holds for the
// finished record, also where what is tested follows in the document.
TEST(EncodeView, OfSeveralIsTheFirstWhoseTestHolds) {
  Encoding encoding(kSameNames, views({"V1: K = 'A'", "V2: K = 'B'"}));
  EXPECT_EQ(encoding.run("<r><a>7</a><k>A</k><z>z</z></r>"), "A7   z");
  EXPECT_EQ(encoding.run("<r><a>7</a><k>B</k><z>z</z></r>"), "B007 z");
  EXPECT_EQ(encoding.run("<r><a>7</a><b>x</b><k>B</k></r>"), "B007x ");
  EXPECT_EQ(encoding.run("<r><k>C</k><a>7</a></r>"), "12 r/a [view]");
  EXPECT_EQ(encoding.run("<r><k>B</k><a>x</a></r>"), "12 r/a [number]");
}

TEST(EncodeView, MayBeTestedByItemsOfItsOwn) {
  Encoding encoding(
      "01 R IDENTIFIED BY 'r'. 05 V1. 10 T1 IDENTIFIED BY 't' PIC X. 10 A IDENTIFIED BY 'a' PIC X."
      " 05 V2 REDEFINES V1. 10 T2 IDENTIFIED BY 't' PIC X. 10 A2 IDENTIFIED BY 'a' PIC 9.",
      views({"V1: T1 = '1'", "V2: T1 = '2'"}));
  EXPECT_EQ(encoding.run("<r><t>1</t><a>5</a></r>"), "15");
  EXPECT_EQ(encoding.run("<r><t>2</t><a>x</a></r>"), "12 r/a [number]");
  EXPECT_EQ(encoding.run("<r><t>3</t><a>x</a></r>"), "4 r/t [view]");
}

// Both views have an element a, at other places, and H takes what G does not.
TEST(EncodeView, OfSeveralThatTestTheirOwnItemsIsTheFirst) {
  Encoding encoding(
      "01 R IDENTIFIED BY 'r'. 05 G. 10 A PIC X IDENTIFIED BY 'a'. 10 F PIC X."
      " 05 H REDEFINES G. 10 F PIC X. 10 A PIC X IDENTIFIED BY 'a'.",
      views({"G: A OF G = 'x'", "H:"}));
  EXPECT_EQ(encoding.run("<r><a>x</a></r>"), "x ");
  EXPECT_EQ(encoding.run("<r><a>y</a></r>"), " y");
}

// The rules of the first area look at the second one, whose view they find when the
// rest of the record is there. Before that, B of H2 is blank.
TEST(EncodeView, MayDependOnTheViewOfALaterArea) {
  Encoding encoding(
      "01 R IDENTIFIED BY 'r'."
      " 05 G. 10 A PIC X IDENTIFIED BY 'a'. 10 F PIC X."
      " 05 H REDEFINES G. 10 F PIC X. 10 A PIC X IDENTIFIED BY 'a'."
      " 05 G2. 10 B PIC X IDENTIFIED BY 'b'. 10 F PIC X."
      " 05 H2 REDEFINES G2. 10 F PIC X. 10 B PIC X IDENTIFIED BY 'b'."
      " 05 T PIC X IDENTIFIED BY 't'.",
      views({"G: B OF H2 = ' '", "H: B OF H2 = 'x'", "G2: T = '1'", "H2: T = '2'"}));
  EXPECT_EQ(encoding.run("<r><a>x</a><b>x</b><t>1</t></r>"), "x x 1");
  EXPECT_EQ(encoding.run("<r><a>x</a><b>x</b><t>2</t></r>"), " x x2");
  EXPECT_EQ(encoding.run("<r><a>x</a><b>y</b><t>2</t></r>"), "4 r/a [view]");
}

// The first of the area, FILL, has no role. B has a role, but neither is it the first nor
// has it a rule.
TEST(EncodeView, WithRulesHasOneOrIsTheFirst) {
  Encoding encoding(
      "01 R IDENTIFIED BY 'r'. 05 FILL PIC X(2). 05 B REDEFINES FILL PIC 9 IDENTIFIED BY 'b'."
      " 05 C REDEFINES FILL PIC X IDENTIFIED BY 'c'.",
      views({"C:"}));
  EXPECT_EQ(encoding.run("<r><b>x</b></r>"), "4 r/b [view]");
  EXPECT_EQ(encoding.run("<r><c>x</c></r>"), "x ");
}

TEST(EncodeView, InATableIsThatOfItsOccurrence) {
  Encoding encoding(
      "01 R IDENTIFIED BY 'r'. 05 T IDENTIFIED BY 't' OCCURS 3. 10 K IDENTIFIED BY 'k' PIC X."
      " 10 V1 IDENTIFIED BY 'a' PIC X(2). 10 V2 REDEFINES V1 IDENTIFIED BY 'a' PIC 9(2).",
      views({"V1: K = 'A'", "V2: K = 'B'", "V1: K = ' '"}));
  EXPECT_EQ(encoding.run("<r><t><a>1</a><k>A</k></t><t><k>B</k><a>1</a></t></r>"), "A1 B01   ");
  EXPECT_EQ(encoding.run("<r><t><a>1</a><k>A</k></t><t><k>C</k><a>1</a></t></r>"),
            "38 r/t[2]/a [view]");
  // Areas of absent parts are not tested.
  EXPECT_EQ(
      Encoding("01 R IDENTIFIED BY 'r'. 05 G IDENTIFIED BY 'g'. 10 V1 IDENTIFIED BY 'a' PIC X."
               " 10 V2 REDEFINES V1 IDENTIFIED BY 'b' PIC X.",
               views({"V1: V1 = 'A'"}))
          .run("<r/>"),
      " ");
}

// The alternatives of a choice that repeats: the names are slots of both areas.
TEST(EncodeView, MayHaveNamesOfOtherAreas) {
  Encoding encoding(
      "01 R IDENTIFIED BY 'r'. 05 K1 IDENTIFIED BY 'k' PIC X. 05 K2 IDENTIFIED BY 'l' PIC X."
      " 05 A1 IDENTIFIED BY 'a' PIC X. 05 B1 REDEFINES A1 IDENTIFIED BY 'b' PIC 9."
      " 05 A2 IDENTIFIED BY 'a' PIC X. 05 B2 REDEFINES A2 IDENTIFIED BY 'b' PIC 9.",
      views({"A1: K1 = 'A'", "B1: K1 = 'B'", "A2: K2 = 'A'", "B2: K2 = 'B'"}));
  EXPECT_EQ(encoding.run("<r><k>A</k><l>B</l><a>x</a><b>5</b></r>"), "ABx5");
  EXPECT_EQ(encoding.run("<r><k>B</k><l>A</l><a>x</a><b>5</b></r>"), "BA5x");
  EXPECT_EQ(encoding.run("<r><k>A</k><l>A</l><a>x</a><a>y</a></r>"), "AAxy");
  EXPECT_EQ(encoding.run("<r><k>B</k><l>B</l><b>1</b><b>2</b></r>"), "BB12");
}

TEST(EncodeView, MayHaveAViewInIt) {
  Encoding encoding(
      "01 R IDENTIFIED BY 'r'. 05 K IDENTIFIED BY 'k' PIC X. 05 V1. 10 A IDENTIFIED BY 'a' PIC "
      "X(2)."
      " 05 V2 REDEFINES V1. 10 W1. 15 B IDENTIFIED BY 'b' PIC X. 10 W2 REDEFINES W1."
      " 15 C IDENTIFIED BY 'b' PIC 9.",
      views({"V1: K = 'A'", "V2: K = 'B'", "V2: K = 'C'", "W1: K = 'B'", "W2: K = 'C'"}));
  EXPECT_EQ(encoding.run("<r><k>A</k><a>xy</a></r>"), "Axy");
  EXPECT_EQ(encoding.run("<r><b>x</b><k>B</k></r>"), "Bx ");
  EXPECT_EQ(encoding.run("<r><b>4</b><k>C</k></r>"), "C4 ");
  EXPECT_EQ(encoding.run("<r><b>x</b><k>C</k></r>"), "4 r/b [number]");
}

constexpr char kUnion[] =
    "01 R IDENTIFIED BY 'r'. 05 U IDENTIFIED BY 'u'. 10 U1 PIC 9(3). 10 U2 REDEFINES U1 PIC X(4).";

// Among views that are texts it is the first whose item accepts the text.
TEST(EncodeView, OfATextIsTheFirstThatAcceptsIt) {
  Encoding encoding(kUnion);
  EXPECT_EQ(encoding.run("<r><u>12</u></r>"), "012 ");
  EXPECT_EQ(encoding.run("<r><u>abc</u></r>"), "abc ");
  EXPECT_EQ(encoding.run("<r><u>abcde</u></r>"), "4 r/u [number]");
}

TEST(EncodeView, OfATextHoldsWithItsRule) {
  Encoding encoding(kUnion, views({"U1: U1 = 0 THRU 99", "U2: U2 = '100 '"}));
  EXPECT_EQ(encoding.run("<r><u>12</u></r>"), "012 ");
  EXPECT_EQ(encoding.run("<r><u>100</u></r>"), "100 ");
  EXPECT_EQ(encoding.run("<r><u>555</u></r>"), "4 r/u [view]");
  EXPECT_EQ(encoding.run("<r><u>abcde</u></r>"), "4 r/u [number]");
}

TEST(EncodeView, EndsTheRecordIfAskedFor) {
  EncodingRules rules = views({"V1: K = 'A'", "V2: K = 'B'", "V3: K = 'C'"});
  rules.encode.endsWithViews = true;
  Encoding encoding(kViews, rules);
  EXPECT_EQ(encoding.run("<R><K>A</K></R>"), "A  00");
  EXPECT_EQ(encoding.run("<R><K>B</K><V2><C>7</C></V2></R>"), "B007");
  EXPECT_EQ(encoding.run("<R><K>C</K><V3><D>x</D></V3></R>"), "Cx    ");
}

TEST(EncodeView, HasCountsOfItsOwn) {
  EncodingRules rules = views({"V1: K = 'A'", "V2: K = 'B'"});
  rules.hasCounts = true;
  Encoding encoding(
      "01 R IDENTIFIED BY 'r'. 05 K IDENTIFIED BY 'k' PIC X. 05 V1 COUNT IN V1-COUNT."
      " 10 A IDENTIFIED BY 'a' COUNT IN A-COUNT PIC X. 05 V2 REDEFINES V1 COUNT IN V2-COUNT."
      " 10 B IDENTIFIED BY 'a' COUNT IN B-COUNT PIC X.",
      rules);
  EXPECT_EQ(encoding.run("<r><a>x</a><k>B</k></r>"), "Bx");
  EXPECT_EQ(encoding.counts(),
            "\\x00\\x00\\x00\\x00\\x00\\x00\\x00\\x00\\x01\\x00\\x00\\x00\\x01\\x00\\x00\\x00");
}

constexpr char kRecords[] =
    "01 HEAD. 05 T PIC X. 05 A PIC X(2). 01 LINE-REC. 05 T PIC X. 05 B PIC 9(3).";

TEST(EncodeRecord, WithoutARuleIsTheFirst) {
  EncodingRules rules;
  rules.records = {"HEAD", "LINE-REC"};
  Encoding encoding(kRecords, rules);
  EXPECT_EQ(encoding.run("<HEAD><T>H</T><A>x</A></HEAD>"), "Hx ");
  EXPECT_EQ(encoding.run("<LINE-REC><T>x</T></LINE-REC>"), "1 LINE-REC [view]");
}

TEST(EncodeRecord, IsTheOneThatTheRulesChoose) {
  EncodingRules rules = views({"HEAD: T OF HEAD = 'H'", "LINE-REC: T OF LINE-REC = 'L'"});
  rules.records = {"HEAD", "LINE-REC"};
  Encoding encoding(kRecords, rules);
  EXPECT_EQ(encoding.run("<HEAD><T>H</T><A>x</A></HEAD>"), "Hx ");
  EXPECT_EQ(encoding.run("<LINE-REC><T>L</T><B>5</B></LINE-REC>"), "L005");
  EXPECT_EQ(encoding.record(), 1U);
  EXPECT_EQ(encoding.run("<LINE-REC><T>H</T><B>5</B></LINE-REC>"), "1 LINE-REC [view]");
  EXPECT_EQ(encoding.run("<LINE-REC><T>H</T><B>x</B></LINE-REC>"), "19 LINE-REC/B [number]");
}

TEST(EncodeRecord, IsChosenByARuleWithoutATest) {
  EncodingRules rules = views({"HEAD: T OF HEAD = 'H'", "LINE-REC:"});
  rules.records = {"HEAD", "LINE-REC"};
  Encoding encoding(kRecords, rules);
  EXPECT_EQ(encoding.run("<HEAD><T>H</T><A>x</A></HEAD>"), "Hx ");
  EXPECT_EQ(encoding.run("<HEAD><T>x</T></HEAD>"), "1 HEAD [view]");
  EXPECT_EQ(encoding.run("<LINE-REC><T>x</T><B>5</B></LINE-REC>"), "x005");
  EXPECT_EQ(encoding.record(), 1U);
}

}  // namespace
}  // namespace fdmorph::document
