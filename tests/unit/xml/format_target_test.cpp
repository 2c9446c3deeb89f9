// Where XML goes, and the primitives that write it.

#include "xml/DMDOMFormatTarget.h"

#include <gtest/gtest.h>

#include <clocale>
#include <iostream>
#include <sstream>
#include <xercesc/framework/MemBufFormatTarget.hpp>
#include <xercesc/framework/XMLFormatter.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "support/captured_console.h"
#include "text/console.h"
#include "text/utf8.h"
#include "xml/DMDOMParser.h"
#include "xml/transcoding.h"

namespace fdmorph {
namespace {

class FormatTarget : public ConsoleTest {
 protected:
  /// Writes a document of one line.
  void write(std::string_view text) {
    formatter.begin();
    formatter << text << "\n";
    formatter.end();
  }

  XmlFormatter formatter;
  std::ostringstream file;
};

TEST_F(FormatTarget, IsTheOutputStreamAtFirst) {
  write("<a/>");
  EXPECT_EQ(captured.out(), "<a/>\n");
}

TEST_F(FormatTarget, SetStreamTakesTheXmlAndNothingElse) {
  formatter.target().setTarget(file);
  write("<a/>");
  out() << "text";
  EXPECT_EQ(file.str(), "<a/>\n");
  EXPECT_EQ(captured.out(), "text");
  EXPECT_EQ(std::cout.rdbuf(), captured.outBuffer());
}

TEST_F(FormatTarget, RestoreSendsTheXmlToTheOutputStreamAgain) {
  formatter.target().setTarget(file);
  formatter.target().restoreTarget();
  write("<b/>");
  EXPECT_EQ(captured.out(), "<b/>\n");
  EXPECT_EQ(file.str(), "");
}

TEST_F(FormatTarget, QuietRunDropsConsoleOutputAndWritesTheFile) {
  beginQuietMode();
  write("dropped");
  formatter.target().setTarget(file);
  write("kept");
  EXPECT_EQ(file.str(), "kept\n");
  EXPECT_EQ(captured.out(), "");
}

TEST_F(FormatTarget, ConsoleGetsEachLineAtOnce) {
  formatter.begin();
  formatter << "<a>\n";
  EXPECT_EQ(captured.out(), "<a>\n");
}

TEST_F(FormatTarget, FileGetsItsTextWithTheEnd) {
  formatter.target().setTarget(file);
  formatter.begin();
  formatter << "<a>\n";
  EXPECT_EQ(file.str(), "");
  formatter.end();
  EXPECT_EQ(file.str(), "<a>\n");
}

TEST_F(FormatTarget, FlushWritesEverythingSoFar) {
  formatter.target().setTarget(file);
  formatter.begin();
  formatter << "<a>\n";
  formatter.flush();
  EXPECT_EQ(file.str(), "<a>\n");
}

class Primitives : public ConsoleTest {
 protected:
  /// What the standard output stream gets.
  template <typename Write>
  std::string written(Write write) {
    XmlFormatter formatter;
    formatter.begin();
    write(formatter);
    formatter.end();
    return captured.out();
  }
};

TEST_F(Primitives, IndentIsThatManyBlanks) {
  EXPECT_EQ(written([](XmlFormatter& xml) { writeIndent(xml, 3) << "x"; }), "   x");
}

TEST_F(Primitives, IndentOfZeroWritesNothing) {
  EXPECT_EQ(written([](XmlFormatter& xml) { writeIndent(xml, 0); }), "");
}

TEST_F(Primitives, AttributeValueIsEscapedAndItsQuotesArePlain) {
  EXPECT_EQ(written([](XmlFormatter& xml) { writeAttr(xml, "a", "<&\"x>'"); }),
            " a=\"&lt;&amp;&quot;x>'\"");
}

// A reader would turn these characters of an attribute value into blanks.
TEST_F(Primitives, TabAndLineEndsOfAnAttributeValueBecomeReferences) {
  EXPECT_EQ(written([](XmlFormatter& xml) { writeAttr(xml, "a", "\t\n\r"); }),
            " a=\"&#x9;&#xA;&#xD;\"");
}

TEST_F(Primitives, ElementAttributeAndEndMakeOneTag) {
  EXPECT_EQ(written([](XmlFormatter& xml) {
              writeElem(xml, "e");
              writeAttr(xml, "a", "1") << "/>\n";
            }),
            "<e a=\"1\"/>\n");
}

TEST_F(Primitives, TextIsNotEscaped) {
  EXPECT_EQ(written([](XmlFormatter& xml) { xml << std::string_view("<a & b>"); }), "<a & b>");
}

TEST_F(Primitives, MultibyteTextComesOutAsUtf8) {
  ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
  EXPECT_EQ(written([](XmlFormatter& xml) {
              writeAttr(xml, "a", "gr\xC3\xB6\xC3\x9F<");
              xml << std::string_view("\xE4\xB8\xAD");
            }),
            " a=\"gr\xC3\xB6\xC3\x9F&lt;\"\xE4\xB8\xAD");
}

TEST_F(Primitives, TextThatIsNotValidInTheLocaleIsReportedAndLeftOut) {
  ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
  EXPECT_EQ(written([](XmlFormatter& xml) { writeAttr(xml, "a", "x\xFF"); }), " a=\"\"");
  EXPECT_EQ(captured.err(), "Error : Unable to convert multibyte character to Unicode");
}

// The XML library's own formatter is the judge of the escapes.
TEST_F(Primitives, EveryCharacterComesOutAsTheLibraryWritesIt) {
  ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
  CDMXMLNodeStore store;
  CDMDOMParser library(store);
  xerces::MemBufFormatTarget judged;
  xerces::XMLFormatter judge(xerces::XMLUni::fgUTF8EncodingString, &judged,
                             xerces::XMLFormatter::AttrEscapes,
                             xerces::XMLFormatter::UnRep_CharRef);
  std::string all;
  for (unsigned code = 1; code < 0x11000; ++code) {
    bool isSurrogate = code >= 0xD800 && code < 0xE000;
    if (!isSurrogate) appendUtf8(all, code);
  }
  judge << toLibraryText(all).c_str();
  std::string expected(reinterpret_cast<char const*>(judged.getRawBuffer()), judged.getLen());
  EXPECT_TRUE(written([&](XmlFormatter& xml) { writeAttr(xml, "a", all); }) ==
              " a=\"" + expected + "\"");
}

TEST_F(Primitives, DeclarationNamesTheEncoding) {
  EXPECT_EQ(written([](XmlFormatter& xml) { writeXmlDeclaration(xml); }),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
}

}  // namespace
}  // namespace fdmorph
