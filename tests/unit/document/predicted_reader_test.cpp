// Records of documents that are spelled as they are written.
#include "document/predicted_reader.h"

#include <gtest/gtest.h>

#include "encoding.h"

namespace fdmorph::document {
namespace {

/// A prediction for the first record of a source.
class Prediction {
 public:
  explicit Prediction(std::string const& source, EncodingRules const& rules = {})
      : m_encoding(source, rules),
        reader(PredictedReader::make(m_encoding.set, rules.encode, m_encoding.diagnostics())) {}

  /// The bytes of the record, "declined" or "incomplete". Bytes after the record stay.
  std::string run(std::string_view document) {
    if (!reader) return "none";
    RecordPredictor::Outcome const outcome = reader->read(std::string(document) + "\n<R>");
    if (outcome.kind == RecordPredictor::Outcome::Kind::declined) return "declined";
    if (outcome.kind == RecordPredictor::Outcome::Kind::incomplete) return "incomplete";
    if (outcome.size != document.size()) return "size " + std::to_string(outcome.size);
    return printBytes(reader->record());
  }

 private:
  Encoding m_encoding;

 public:
  std::unique_ptr<PredictedReader> reader;
};

constexpr char kMixed[] =
    "01 R. 05 A PIC X(3). 05 Z PIC S9(3)V99. 05 P PIC 9(3) COMP-3. 05 B PIC S9(4) COMP."
    " 05 T PIC X OCCURS 2. 05 FILLER PIC X VALUE '.'.";

TEST(PredictedReader, TakesARecordAsItIsWritten) {
  Prediction prediction(kMixed);
  // -1.05: the last digit of a negative number has the zone 7; 12 packed: 0 1 2 F.
  EXPECT_EQ(prediction.run("<R><A>ab</A><Z>-1.05</Z><P>12</P><B>-2</B><T>p</T><T>q</T></R>"),
            "ab 0010u\\x01/\\xFF\\xFEpq.");
  EXPECT_EQ(prediction.run("<R><A/><Z>0.00</Z><P>0</P><B>0</B><T/><T></T></R>"),
            "   00000\\x00\\x0F\\x00\\x00  .");
  EXPECT_EQ(prediction.run("<R><A>abc</A><Z>999.99</Z><P>999</P><B>9999</B><T>x</T><T>y</T></R>"),
            "abc99999\\x99\\x9F'\\x0Fxy.");
}

TEST(PredictedReader, TakesNumbersInOtherSpellings) {
  Prediction prediction(kMixed);
  EXPECT_EQ(prediction.run("<R><A>ab</A><Z> +1.5 </Z><P>012</P><B>-0</B><T>p</T><T>q</T></R>"),
            "ab 00150\\x01/\\x00\\x00pq.");
}

TEST(PredictedReader, TakesReferences) {
  Prediction prediction("01 R. 05 A PIC X(9).");
  EXPECT_EQ(prediction.run("<R><A>&amp;&lt;&gt;&#10;&#13;&quot;\"\t'</A></R>"),
            "&<>\\x0A\\x0D\"\"\\x09'");
  EXPECT_EQ(prediction.run("<R><A>&#x41;</A></R>"), "declined");
  EXPECT_EQ(prediction.run("<R><A>\xC3\xA4</A></R>"), "\\xE4        ");
}

// All that the general parser or the encoder would tell, or spell otherwise.
TEST(PredictedReader, DeclinesWhatIsNotAsExpected) {
  Prediction prediction(kMixed);
  std::string const rest = "<Z>0.00</Z><P>0</P><B>0</B><T/><T/></R>";
  ASSERT_EQ(prediction.run("<R><A>a</A>" + rest), "a  00000\\x00\\x0F\\x00\\x00  .");
  for (std::string const& document :
       {"<Q><A>a</A>" + rest, "<R> <A>a</A>" + rest, "<R><A >a</A>" + rest, "<R><A>abcd</A>" + rest,
        "<R><A>a<!-- --></A>" + rest, "<R><A>]]></A>" + rest, "<R><A>\x01</A>" + rest,
        "<R><A>\xE2\x82\xAC</A>" + rest, "<R><A>\xFF</A>" + rest, "<R><A>a\n</A>" + rest,
        "<R>" + rest, std::string("<R><A>a</A><Z>1000</Z><P>0</P><B>0</B><T/><T/></R>"),
        std::string("<R><A>a</A><Z>1.001</Z><P>0</P><B>0</B><T/><T/></R>"),
        std::string("<R><A>a</A><Z>1.00</Z><P>-1</P><B>0</B><T/><T/></R>"),
        std::string("<R><A>a</A><Z>1.00</Z><P/><B>0</B><T/><T/></R>"),
        std::string("<R><A>a</A><Z>1.00</Z><P></P><B>0</B><T/><T/></R>"),
        std::string("<R><A>a</A><Z>1.00</Z><P>0</P><B>12345</B><T/><T/></R>"),
        std::string("<R><A>a</A><Z>1.00</Z><P>0</P><B>0</B><T/></R>"),
        std::string("<R><A>a</A><Z>1.00</Z><P>0</P><B>0</B><T/><T/><T/></R>")}) {
    EXPECT_EQ(prediction.run(document), "declined") << document;
  }
}

// Each part of a record is incomplete, wherever it is cut.
TEST(PredictedReader, AsksForMoreOfARecordThatIsCut) {
  Prediction prediction(kMixed);
  std::string const document = "<R><A>a</A><Z>-1.05</Z><P>12</P><B>-2</B><T/><T>&amp;</T></R>";
  for (std::size_t size = 1; size < document.size(); ++size) {
    EXPECT_EQ(prediction.reader->read(document.substr(0, size)).kind,
              RecordPredictor::Outcome::Kind::incomplete)
        << size;
  }
  EXPECT_EQ(prediction.reader->read(document).kind, RecordPredictor::Outcome::Kind::taken);
}

TEST(PredictedReader, TakesAttributesAndNamespaces) {
  Prediction prediction(
      "01 R IDENTIFIED BY 'r' NAMESPACE 'urn:r'. 05 IDENTIFIED BY 'id' IS ATTRIBUTE PIC 9(2)."
      " 05 N IDENTIFIED BY 'n'. 10 IDENTIFIED BY 'l' IS ATTRIBUTE PIC X(2). 10 V PIC X(3)."
      " 05 E IDENTIFIED BY 'e'.");
  EXPECT_EQ(prediction.run("<r xmlns=\"urn:r\" id=\"7\"><n l=\"a&quot;\">xyz</n><e/></r>"),
            "07a\"xyz");
  EXPECT_EQ(prediction.run("<r xmlns=\"urn:r\" id=\"7\"><n l=\"\"/><e/></r>"), "07     ");
  EXPECT_EQ(prediction.run("<r xmlns=\"urn:q\" id=\"7\"><n l=\"\"/><e/></r>"), "declined");
}

constexpr char kTable[] =
    "01 R. 05 N PIC 9. 05 T OCCURS 0 TO 3 DEPENDING ON N. 10 X PIC X. 05 Z PIC X.";

TEST(PredictedReader, CountsTheElementsOfATable) {
  Prediction prediction(kTable);
  EXPECT_EQ(prediction.run("<R><N>2</N><T><X>a</X></T><T><X>b</X></T><Z>z</Z></R>"), "2ab z");
  EXPECT_EQ(prediction.run("<R><N>0</N><Z>z</Z></R>"), "0   z");
  EXPECT_EQ(prediction.run("<R><N>1</N><Z>z</Z></R>"), "declined");
  EXPECT_EQ(prediction.run("<R><N>1</N><T><X>a</X></T><T><X>b</X></T><Z>z</Z></R>"), "declined");
  EncodingRules rules;
  rules.shifts = true;
  Prediction shifted(kTable, rules);
  EXPECT_EQ(shifted.run("<R><N>2</N><T><X>a</X></T><T><X>b</X></T><Z>z</Z></R>"), "2abz");
  EXPECT_EQ(shifted.run("<R><N>0</N><Z>z</Z></R>"), "0z");
}

TEST(PredictedReader, SetsACounterWithoutARole) {
  Prediction prediction(
      "01 R IDENTIFIED BY 'r'. 05 N PIC 9. 05 T IDENTIFIED BY 't' PIC X OCCURS 1 TO 3"
      " DEPENDING ON N. 05 Z IDENTIFIED BY 'z' PIC X.");
  EXPECT_EQ(prediction.run("<r><t>a</t><t/><z>z</z></r>"), "2a  z");
  EXPECT_EQ(prediction.run("<r><z>z</z></r>"), "declined");
}

TEST(PredictedReader, TakesTheFirstViewOfAnAreaWithoutRules) {
  constexpr char kViews[] =
      "01 R. 05 K PIC X. 05 A PIC X(2). 05 B REDEFINES A PIC 9(2). 05 Z PIC X.";
  EXPECT_EQ(Prediction(kViews).run("<R><K>k</K><A>a</A><Z>z</Z></R>"), "ka z");
  EXPECT_EQ(Prediction(kViews).run("<R><K>k</K><B>1</B><Z>z</Z></R>"), "declined");
  EncodingRules rules;
  rules.when = {"B: K = 'B'"};
  EXPECT_EQ(Prediction(kViews, rules).run("<R><K>k</K><A>a</A><Z>z</Z></R>"), "none");
}

// What follows the views of the record is not written; the longest view has 5 bytes.
TEST(PredictedReader, EndsARecordOfVaryingLengthWithItsViews) {
  constexpr char kLonger[] = "01 R. 05 K PIC X. 05 A PIC X(2). 05 B REDEFINES A PIC X(5).";
  EXPECT_EQ(Prediction(kLonger).run("<R><K>k</K><A>a</A></R>"), "ka    ");
  EncodingRules rules;
  rules.encode.endsWithViews = true;
  EXPECT_EQ(Prediction(kLonger, rules).run("<R><K>k</K><A>a</A></R>"), "ka ");
  rules.shifts = true;
  EXPECT_EQ(Prediction("01 R. 05 N PIC 9. 05 T PIC X OCCURS 0 TO 3 DEPENDING ON N."
                       " 05 A PIC X(2). 05 B REDEFINES A PIC X(5).",
                       rules)
                .run("<R><N>1</N><T>t</T><A>a</A></R>"),
            "1ta ");
}

TEST(PredictedReader, TakesNoCounts) {
  EncodingRules rules;
  rules.hasCounts = true;
  EXPECT_EQ(Prediction(kMixed, rules).run("<R/>"), "none");
}

}  // namespace
}  // namespace fdmorph::document
