#include <gtest/gtest.h>

#include "support/document_fixture.h"

namespace fdmorph::document {
namespace {

struct XmlRecordLine : testing::Test {
  XmlRecordLine() : fixture("A B") { fixture.options.keepsText = true; }

  std::vector<std::string> const& textsOf(std::string_view text) {
    result = fixture.readXml(text);
    return fixture.texts;
  }

  DocumentFixture fixture;
  std::string result;
};

using Texts = std::vector<std::string>;

TEST_F(XmlRecordLine, IsOneLine) {
  EXPECT_EQ(textsOf("<l>\n<A>\n <B>x</B\n>\r\n<B/><B></B></A>\n</l>"),
            Texts{"<A>&#10; <B>x</B>&#10;<B/><B/></A>"});
}

TEST_F(XmlRecordLine, EscapesWhatItMust) {
  EXPECT_EQ(textsOf("<A b=' &#10;&#9;&quot;&amp;\n'>&#13;<![CDATA[<&>]]>\t\"'</A>"),
            Texts{"<A b=\" &#10;&#9;&quot;&amp; \">&#13;&lt;&amp;&gt;\t\"'</A>"});
}

TEST_F(XmlRecordLine, DeclaresWhatIsInForceAroundItIfItIsUsed) {
  fixture.recordNamespace = "u";
  EXPECT_EQ(textsOf("<l xmlns='u' xmlns:p='v' xmlns:q='w' xmlns:r='x' xmlns:s='y'>"
                    "<A s:a='' xmlns:r='z'><p:B/><r:B/></A>"
                    "<A><C xmlns='v'><B/></C></A><A xmlns='u'/><q:A/></l>"),
            (Texts{"<A xmlns=\"u\" xmlns:s=\"y\" xmlns:p=\"v\" s:a=\"\" xmlns:r=\"z\">"
                   "<p:B/><r:B/></A>",
                   "<A xmlns=\"u\"><C xmlns=\"v\"><B/></C></A>", "<A xmlns=\"u\"/>",
                   "<q:A xmlns:q=\"w\"/>"}));
}

TEST_F(XmlRecordLine, HasPartsThatAreNilOrIgnored) {
  fixture.options.ignoresUnknown = true;
  std::string text =
      "<A xmlns:x=\"http://www.w3.org/2001/XMLSchema-instance\"><B x:nil=\"true\">t<B/></B>"
      "<u v=\"1\">2</u></A>";
  EXPECT_EQ(textsOf(text), Texts{text});
}

TEST_F(XmlRecordLine, IsKeptOfWhatIsNoRecord) {
  EXPECT_EQ(textsOf("<l><u><v>1</v></u></l>"), Texts{"<u><v>1</v></u>"});
}

TEST_F(XmlRecordLine, ReadsAgainAsTheSameRecord) {
  fixture.recordNamespace = "u";
  std::string text = textsOf("<p:l xmlns:p='u' xmlns='v'><p:A> <p:B>\n</p:B><u/></p:A></p:l>")[0];
  std::string before = result;
  EXPECT_EQ(before, "1 A= (?B=\n,?u)\n");
  EXPECT_EQ(fixture.readXml(text), before);
}

}  // namespace
}  // namespace fdmorph::document
