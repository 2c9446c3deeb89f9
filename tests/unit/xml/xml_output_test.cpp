// The primitives with which XML is written.

#include "xml/xml_output.h"

#include <gtest/gtest.h>

#include <clocale>

#include "support/parser_fixture.h"

namespace fdmorph {
namespace {

class XmlOutputTest : public ParserTest {
 protected:
  XmlOutputTest() {
    EXPECT_TRUE(parseDocument("<a/>"));
    parser.getXMLDocument();
  }

  /// What the standard output stream gets of one output.
  template <typename Write>
  std::string written(Write write) {
    {
      XmlOutput output(*parser.getFormatter());
      write(output);
    }
    return captured.out();
  }
};

TEST_F(XmlOutputTest, IndentIsThatManyBlanks) {
  EXPECT_EQ(written([](XmlOutput& output) { writeIndent(output, 3) << "x"; }), "   x");
}

TEST_F(XmlOutputTest, IndentOfZeroWritesNothing) {
  EXPECT_EQ(written([](XmlOutput& output) { writeIndent(output, 0); }), "");
}

TEST_F(XmlOutputTest, AttributeValueIsEscapedAndItsQuotesArePlain) {
  EXPECT_EQ(written([](XmlOutput& output) { writeAttr(output, "a", "<&\"x"); }),
            " a=\"&lt;&amp;&quot;x\"");
}

// An attribute value with these would be normalised to blanks by a reader.
TEST_F(XmlOutputTest, TabAndLineEndsOfAnAttributeValueBecomeReferences) {
  EXPECT_EQ(written([](XmlOutput& output) { writeAttr(output, "a", "\t\n"); }),
            " a=\"&#x9;&#xA;\"");
}

TEST_F(XmlOutputTest, ElementAttributeAndEndMakeOneTag) {
  EXPECT_EQ(written([](XmlOutput& output) {
              writeElem(output, "e");
              writeAttr(output, "a", "1") << "/>\n";
            }),
            "<e a=\"1\"/>\n");
}

TEST_F(XmlOutputTest, TextIsNotEscaped) {
  EXPECT_EQ(written([](XmlOutput& output) { output << "<a & b>"; }), "<a & b>");
}

TEST_F(XmlOutputTest, MultibyteTextComesOutAsUtf8) {
  ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
  EXPECT_EQ(written([](XmlOutput& output) { writeAttr(output, "a", "gr\xC3\xB6\xC3\x9F<"); }),
            " a=\"gr\xC3\xB6\xC3\x9F&lt;\"");
}

TEST_F(XmlOutputTest, DeclarationNamesTheEncoding) {
  EXPECT_EQ(written([](XmlOutput& output) { writeXmlDeclaration(output); }),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
}

TEST_F(XmlOutputTest, PiecesKeepTheirOrderAroundEscapedOnes) {
  EXPECT_EQ(written([](XmlOutput& output) {
              output << "1";
              writeAttr(output, "a", "&") << "2";
            }),
            "1 a=\"&amp;\"2");
}

}  // namespace
}  // namespace fdmorph
