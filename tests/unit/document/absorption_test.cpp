// Parts that are encoded while their record is read give the record, and the errors,
// that they give when all of it is there.
#include <gtest/gtest.h>

#include "encoding.h"
#include "support/document_fixture.h"

namespace fdmorph::document {
namespace {

/// Reads documents in small blocks, and encodes their parts as soon as they end.
class Absorption {
 public:
  explicit Absorption(std::string const& source, EncodingRules const& rules = {})
      : m_encoding(source, rules),
        m_names(m_encoding.set.names(), rules.encode.isJson ? NameMatch::local : NameMatch::exact),
        m_encoder(m_encoding.set, m_names, rules.encode),
        m_isJson(rules.encode.isJson) {
    for (layout::Layout const& each : m_encoding.set.layouts()) {
      m_options.records.push_back(m_names.numberOf(each[0].name));
    }
  }

  /// The record of a document and its counts, or its errors, one a line.
  std::string whole(std::string_view document) { return run(document, nullptr, SIZE_MAX); }
  std::string absorbed(std::string_view document) { return run(document, &m_encoder, 3); }

  /// Whether both are the same.
  testing::AssertionResult isSame(std::string_view document) {
    std::string const expected = whole(document);
    std::string const found = absorbed(document);
    if (found == expected) return testing::AssertionSuccess();
    return testing::AssertionFailure() << document << "\nwhole:\n"
                                       << expected << "\nabsorbed:\n"
                                       << found;
  }

  std::size_t mostParts = 0;  ///< of the last document, at the end of its record

 private:
  std::string run(std::string_view document, PartAbsorber* absorber, std::size_t blockSize) {
    m_options.absorption = {absorber, 1, 1};
    std::unique_ptr<DocumentReader> reader;
    ReadBlock const read = blocksOf(document, blockSize);
    if (m_isJson) {
      reader = std::make_unique<JsonReader>(read, m_names, m_options);
    } else {
      reader = std::make_unique<XmlReader>(read, m_names, m_options);
    }
    std::string text;
    DocumentRecord record;
    while (reader->next(record)) {
      mostParts = record.instances.all.size();
      if (!record.instances.all.empty() && m_encoder.encode(record.instances, record.errors)) {
        text += printBytes(m_encoder.result().bytes) + ' ' + printBytes(m_encoder.result().counts) +
                '\n';
      }
      for (DataError const& each : record.errors) {
        text += std::to_string(each.line) + ':' + std::to_string(each.column) + ' ' + each.path +
                ": " + each.text + " [" + std::string(nameOf(each.code)) + "]\n";
      }
    }
    return text;
  }

  Encoding m_encoding;
  NameNumbers m_names;
  Encoder m_encoder;
  ReaderOptions m_options;
  bool m_isJson;
};

constexpr char kOrder[] =
    "01 R. 05 N PIC 9. 05 T OCCURS 3. 10 A PIC X(2). 10 K PIC 9."
    " 10 U OCCURS 0 TO 3 DEPENDING ON K PIC 9. 05 L OCCURS 1 TO 4 DEPENDING ON N."
    " 10 B PIC X. 05 Z PIC X(3).";

TEST(Absorption, KeepsTheFirstOccurrenceOnly) {
  Absorption order(kOrder);
  std::string const document =
      "<R><N>2</N><T><A>p</A><K>2</K><U>1</U><U>2</U></T><T><A>q</A></T><T><A>s</A></T>"
      "<L><B>x</B></L><L><B>y</B></L><Z>z</Z></R>";
  EXPECT_EQ(order.absorbed(document), "2p 2120q 0000s 0000xy  z   \n");
  // R, N, T, L and Z.
  EXPECT_EQ(order.mostParts, 5U);
}

TEST(Absorption, GivesTheSameRecords) {
  Absorption order(kOrder);
  for (std::string_view each : {
           "<R/>",
           "<R><N>1</N><L><B>x</B></L></R>",
           "<R><L><B>x</B></L><L><B>y</B></L><Z>z</Z><N>2</N></R>",
           "<R><L><B>x</B></L><L><B>y</B></L></R>",
           "<R>\n <T>\n  <A>1</A>\n  <U>4</U>\n  <U>5</U>\n  <K>2</K>\n </T>\n <T/>\n <T/>\n</R>",
           "<w><R><Z>1</Z></R><R><T><A>1</A></T><T><A>2</A></T></R></w>",
           "<R xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance'><T xsi:nil='1'><Q/></T>"
           "<T><A>2</A></T><Z xsi:nil='true'/></R>",
       }) {
    EXPECT_TRUE(order.isSame(each));
  }
}

TEST(Absorption, GivesTheSameErrors) {
  Absorption order(kOrder);
  for (std::string_view each : {
           "<R><N>2</N><L><B>x</B></L></R>",
           "<R><L><B>x</B></L><N>2</N></R>",
           "<R><T/><T/><T/><T><A>4</A></T><T/></R>",
           "<R><T><A>toolong</A></T><T><K>x</K></T><T><U>1</U><K>2</K></T></R>",
           "<R><Q/><T><Q a='1'/></T><Q>x</Q></R>",
           "<R>text<T>more<A>1</A>text</T><T/>end</R>",
           "<R z='1'><T z='2'><A z='3'/></T></R>",
           "<R><N>x</N><L/><L/></R>",
           "<R><Z>1</Z><Z>2</Z><N>1</N><L/></R>",
           "<R><T><U>1</U><U>2</U><U>3</U><U>4</U></T></R>",
           "<R><T><A>1</A></T><T><A></T></R>",
           "<R><T><A>1</A><A>2</A></T><T><A><B/></A></T></R>",
       }) {
    EXPECT_TRUE(order.isSame(each));
  }
}

TEST(Absorption, FillsSlotsInTheirOrder) {
  Absorption slots(
      "01 R IDENTIFIED BY 'r'. 05 A IDENTIFIED BY 's' PIC X. 05 B IDENTIFIED BY 's' PIC X"
      " OCCURS 2. 05 C IDENTIFIED BY 'q' PIC X. 05 D IDENTIFIED BY 's' PIC 9.");
  EXPECT_EQ(slots.absorbed("<r><s>1</s><s>2</s><q>q</q><s>3</s><s>4</s></r>"), "123q4 \n");
  for (std::string_view each :
       {"<r><s>1</s></r>", "<r><s>1</s><s>2</s><s>3</s><s>x</s></r>",
        "<r><s>1</s><s>2</s><s>3</s><s>4</s><s>5</s><q>1</q><s>6</s></r>"}) {
    EXPECT_TRUE(slots.isSame(each));
  }
}

TEST(Absorption, LeavesViewsToTheEnd) {
  EncodingRules rules;
  rules.when = {"V: K = '1'", "W: K = '2'"};
  std::string const source =
      "01 R. 05 T OCCURS 2. 10 V. 15 A PIC X(2). 10 W REDEFINES V. 15 B PIC 9(2). 10 K PIC X."
      " 05 Z PIC X.";
  for (EncodingRules const& each : {EncodingRules{}, rules}) {
    Absorption views(source, each);
    EXPECT_TRUE(views.isSame("<R><T><V><A>ab</A></V><K>1</K></T><T><V/><K>1</K></T></R>"));
    EXPECT_TRUE(views.isSame("<R><T><W><B>12</B></W><K>2</K></T><T><K>1</K></T><Z>z</Z></R>"));
    EXPECT_TRUE(views.isSame("<R><T><W><B>12</B></W><K>1</K></T></R>"));
    EXPECT_TRUE(views.isSame("<R><T><W><B>12</B></W><V/></T><T><V><A>xyz</A></V></T></R>"));
  }
}

TEST(Absorption, CountsWhatItHasEncoded) {
  EncodingRules rules;
  rules.hasCounts = true;
  Absorption counts(
      "01 R. 05 T OCCURS 3 COUNT IN T-C. 10 A PIC X COUNT IN A-C. 05 Z PIC X COUNT IN Z-C.", rules);
  EXPECT_EQ(counts.absorbed("<R><T><A>1</A></T><T/></R>"),
            "1    \\x02\\x00\\x00\\x00\\x01\\x00\\x00\\x00\\x00\\x00\\x00\\x00\\x00\\x00\\x00\\x00"
            "\\x00\\x00\\x00\\x00\n");
}

TEST(Absorption, TakesTheMembersOfJson) {
  Absorption order(kOrder, json());
  std::string const document =
      R"({"N":2,"T":[{"A":"p","K":2,"U":[1,2]},{"A":"q"},{"A":"s"}],"L":[{"B":"x"},{"B":"y"}],)"
      R"("Z":"z"})";
  EXPECT_EQ(order.absorbed(document), "2p 2120q 0000s 0000xy  z   \n");
  EXPECT_EQ(order.mostParts, 5U);
}

TEST(Absorption, GivesTheSameRecordsAndErrorsOfJson) {
  Absorption order(kOrder, json());
  for (std::string_view each : {
           R"({"T":[{"A":"1"},null,{"A":"3"}],"Z":null})",
           R"({"L":[{"B":"x"},{}],"N":2})",
           R"({"L":[{"B":"x"},{}],"N":3})",
           R"({"T":[{"A":"1"},{"A":"2"}],"Z":"z","T":[{"A":"3"}]})",
           R"({"T":[{"A":"1","A":"2"},{"A":"3"}],"T":[]})",
           R"({"T":[{"A":"1"},{"A":"\ud800"},[1],{"A":["x"]},{"A":"long"},5]})",
           R"({"T":{"A":"1"},"Z":["z"],"N":[1]})",
           R"({"T":[{"A":"1"},{"A":"2"}],"Z":})",
           R"({"T":[{"A":"1"},{"Q":1,"A":"2"}],"Q":[1,2],"Q":3})",
           R"({"T":[],"L":[{"B":"1"}],"N":1})",
           "{\"T\":[{\"A\":\"1\"},{\"A\":\"\xFF\"}]}",
           "{\"Z\":\"1\"}\n{\"Z\":\"2\",\"T\":[{},{},{},{}]}\n\n{\"Z\":\"3\"}",
       }) {
    EXPECT_TRUE(order.isSame(each));
  }
}

}  // namespace
}  // namespace fdmorph::document
