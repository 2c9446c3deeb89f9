#include "document/record_predictor.h"

#include <gtest/gtest.h>

#include "support/document_fixture.h"

namespace fdmorph::document {
namespace {

/// Takes records that are spelled in one way.
class OneSpelling : public RecordPredictor {
 public:
  explicit OneSpelling(std::string_view spelling) : m_spelling(spelling) {}

  Outcome read(std::string_view bytes) override {
    ++m_asked;
    EXPECT_TRUE(bytes.starts_with('<'));
    if (bytes.starts_with(m_spelling)) return {Outcome::Kind::taken, m_spelling.size()};
    if (m_spelling.starts_with(bytes)) return {Outcome::Kind::incomplete};
    return {Outcome::Kind::declined};
  }

  [[nodiscard]] int asked() const { return m_asked; }

 private:
  std::string m_spelling;
  int m_asked = 0;
};

struct RecordPredictorTest : testing::Test {
  RecordPredictorTest() : fixture("A B"), predictor("<A><B>\n</B></A>") {
    fixture.predictor = &predictor;
  }
  DocumentFixture fixture;
  OneSpelling predictor;
};

constexpr std::array<std::size_t, 5> kBlockSizes{SIZE_MAX, 1, 2, 9, 30};

TEST_F(RecordPredictorTest, TakesRecordsOfAWrapper) {
  for (std::size_t size : kBlockSizes) {
    fixture.blockSize = size;
    EXPECT_EQ(fixture.readXml("<?xml version='1.0'?><!-- > -->\n<l>\n<A><B>\n</B></A>\n"
                              "<A><B>\n</B></A>\n</l>\n"),
              "1 predicted\n2 predicted\n");
  }
}

/// Records without the difference of who has read them.
std::string withoutPredictions(std::string text) {
  constexpr std::string_view kPredicted = "predicted\n";
  for (std::size_t at = 0; (at = text.find(kPredicted)) != std::string::npos;) {
    text.replace(at, kPredicted.size(), "A(B=\n)\n");
  }
  return text;
}

TEST_F(RecordPredictorTest, LeavesTheOthersToTheParser) {
  std::string_view text =
      "<l><A><B>\n</B></A>\n<A><B/></A><A><B>\n</B></A>\n<x/>"
      "<A/><A><B>1</B><!-- </A> --></A><A><A><B>\n</B></A></A><!-- c -->"
      "<A><B>\n</B></A>\n <y/></l>";
  std::string expected =
      "1 predicted\n2 A(B)\n3 predicted\n4 [5:1 unknown x: no record has this name]\n"
      "5 A\n6 A(B=1)\n7 A(A(B=\n))\n8 predicted\n"
      "9 [8:2 unknown y: no record has this name]\n";
  EXPECT_EQ(fixture.readXml(text), expected);
  // Where blocks end in a tag, the parser may get more than one record.
  for (std::size_t size : kBlockSizes) {
    fixture.blockSize = size;
    EXPECT_EQ(withoutPredictions(fixture.readXml(text)), withoutPredictions(expected)) << size;
  }
}

// Text in a wrapper is ignored, also where it is spelled as a record.
TEST_F(RecordPredictorTest, IsNotAskedInCdata) {
  for (std::size_t size : kBlockSizes) {
    fixture.blockSize = size;
    EXPECT_EQ(fixture.readXml("<l><![CDATA[>\n<A><B>\n</B></A>\n]]>\n<A><B>\n</B></A></l>"),
              "1 predicted\n");
    EXPECT_EQ(fixture.readXml("<l><![CDATA[>\n<A><B>\n</B></A>\n</l>"),
              "1 [4:5 xml unclosed CDATA section]\n");
  }
}

TEST_F(RecordPredictorTest, TakesRecordsAfterTheFirst) {
  for (std::size_t size : kBlockSizes) {
    fixture.blockSize = size;
    EXPECT_EQ(fixture.readXml("<A><B>\n</B></A>\n<A><B>\n</B></A>\n<A>x</A>\n"
                              "<A><B>\n</B></A>\n<A>"),
              "1 A(B=\n)\n2 predicted\n3 A=x\n4 predicted\n5 [8:4 xml an element is not closed]\n");
  }
}

TEST_F(RecordPredictorTest, IsNotAskedInsideARootThatIsARecord) {
  EXPECT_EQ(fixture.readXml("<A><A><B>\n</B></A></A>"), "1 A(A(B=\n))\n");
  EXPECT_EQ(predictor.asked(), 0);
}

TEST_F(RecordPredictorTest, IsNotAskedInOtherEncodingsOrNamespaces) {
  EXPECT_EQ(fixture.readXml("<l xmlns='u'><A><B>\n</B></A></l>"),
            "1 [1:14 unknown A: no record has this name]\n");
  EXPECT_EQ(fixture.readXml("<l xmlns:p='u'><A><B>\n</B></A></l>"), "1 A(B=\n)\n");
  EXPECT_EQ(fixture.readXml("<?xml version='1.0' encoding='ISO-8859-1'?>\n"
                            "<l><A><B>\n</B></A></l>"),
            "1 A(B=\n)\n");
  EXPECT_EQ(predictor.asked(), 0);
}

TEST_F(RecordPredictorTest, IsAskedLessOftenIfItDeclines) {
  std::string text = "<l>";
  std::string expected;
  for (int i = 1; i <= 20'000; ++i) {
    text += "<A>x</A>";
    expected += std::to_string(i) + " A=x\n";
  }
  EXPECT_EQ(fixture.readXml(text + "</l>"), expected);
  EXPECT_LT(predictor.asked(), 100);
  EXPECT_GT(predictor.asked(), 10);
}

TEST_F(RecordPredictorTest, IsAskedAgainAfterAPause) {
  std::string text = "<l>";
  for (int i = 0; i < 20; ++i) text += "<A>x</A>";
  for (int i = 0; i < 20'000; ++i) text += "<A><B>\n</B></A>";
  std::string result = fixture.readXml(text + "\n <x/></l>");
  EXPECT_NE(result.find("20020 predicted\n20021 [20002:2 unknown"), std::string::npos)
      << result.substr(result.size() - 100);
}

}  // namespace
}  // namespace fdmorph::document
