#include "text/xml_writer.h"

#include <gtest/gtest.h>

#include <sstream>

namespace fdmorph {
namespace {

/// Text that is UTF-8 already, with as few escapes as possible.
struct Verbatim {
  static constexpr XmlEscapes kEscapes = XmlEscapes::minimal;
  static std::string toUtf8(std::string_view text) { return std::string(text); }
};

std::string escaped(std::string_view value, XmlEscapes escapes) {
  std::string out;
  appendXmlEscaped(out, value, escapes);
  return out;
}

TEST(XmlEscapes, MinimalFormReplacesWhatEndsAValueOrIsNormalised) {
  EXPECT_EQ(escaped("<>&\"'", XmlEscapes::minimal), "&lt;>&amp;&quot;'");
  EXPECT_EQ(escaped("\t\n\r ", XmlEscapes::minimal), "&#x9;&#xA;&#xD; ");
}

TEST(XmlEscapes, FullFormReplacesTheEndOfATagAsWell) {
  EXPECT_EQ(escaped("<>&\"'", XmlEscapes::full), "&lt;&gt;&amp;&quot;'");
  EXPECT_EQ(escaped("\t\n\r ", XmlEscapes::full), "&#9;&#10;&#13; ");
}

TEST(XmlEscapes, BytesOfUtf8StayAsTheyAre) {
  EXPECT_EQ(escaped("gr\xC3\xB6<", XmlEscapes::full), "gr\xC3\xB6&lt;");
}

TEST(XmlEscapes, PlainValuesArePrintableAsciiWithoutEscapes) {
  EXPECT_TRUE(isPlainXmlValue("A-b_1 ~!'"));
  EXPECT_TRUE(isPlainXmlValue(""));
  for (std::string_view text : {"a<", ">", "&", "\"", "\t", "\x1F", "\x7F", "\xC3\xB6"}) {
    EXPECT_FALSE(isPlainXmlValue(text)) << text;
  }
}

TEST(XmlText, HasNoControlCharacters) {
  EXPECT_TRUE(isXmlText("a\xC3\xB6 "));
  EXPECT_FALSE(isXmlText("a\nb"));
  EXPECT_FALSE(isXmlText(std::string_view("\0", 1)));
}

TEST(Utf8OrLatin1, KeepsUtf8) {
  EXPECT_EQ(Utf8OrLatin1::toUtf8("gr\xC3\xB6\xC3\x9F"), "gr\xC3\xB6\xC3\x9F");
}

TEST(Utf8OrLatin1, ReadsOtherBytesAsLatin1) {
  EXPECT_EQ(Utf8OrLatin1::toUtf8("gr\xF6"), "gr\xC3\xB6");
}

TEST(Utf8OrLatin1, PutsBlanksForControlCharactersThatXmlCannotHold) {
  EXPECT_EQ(Utf8OrLatin1::toUtf8("a\x01\x1F\tb"), "a  \tb");
}

TEST(XmlWriter, NestsAndIndentsElements) {
  XmlWriter<Verbatim> xml;
  xml.begin("a");
  xml.attribute("x", "1");
  xml.begin("b");
  xml.end("b");
  xml.begin("c");
  xml.begin("d");
  xml.attribute("n", std::uint64_t{7});
  xml.end("d");
  xml.end("c");
  xml.end("a");
  EXPECT_EQ(xml.release(),
            "<a x=\"1\">\n"
            "   <b/>\n"
            "   <c>\n"
            "      <d n=\"7\"/>\n"
            "   </c>\n"
            "</a>\n");
}

TEST(XmlWriter, DeclaresUtf8) {
  XmlWriter<Verbatim> xml;
  xml.declaration();
  EXPECT_EQ(xml.release(), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
}

TEST(XmlWriter, EscapesAttributesInTheFormOfItsEncoding) {
  XmlWriter<Verbatim> minimal;
  minimal.attribute("a", ">\t");
  EXPECT_EQ(minimal.release(), " a=\">&#x9;\"");
  XmlWriter<Utf8OrLatin1> full;
  full.attribute("a", ">\t\xF6");
  EXPECT_EQ(full.release(), " a=\"&gt;&#9;\xC3\xB6\"");
}

TEST(XmlWriter, ConvertsTextWithoutEscapes) {
  XmlWriter<Utf8OrLatin1> xml;
  xml.text("<\xF6>");
  EXPECT_EQ(xml.release(), "<\xC3\xB6>");
}

TEST(XmlWriter, ReleaseLeavesNothing) {
  XmlWriter<Verbatim> xml;
  xml.markup("a");
  EXPECT_EQ(xml.release(), "a");
  EXPECT_EQ(xml.release(), "");
}

TEST(XmlWriter, TargetGetsTheTextInBlocks) {
  std::ostringstream target;
  XmlWriter<Verbatim> xml;
  xml.setTarget(&target, false);
  std::string const line(999, 'x');
  for (int i = 0; i < 65; ++i) xml.markup(line + "\n");
  EXPECT_EQ(target.str(), "");
  xml.markup(line + "\n");
  EXPECT_EQ(target.str().size(), 66'000U) << "past 65,536 bytes, at the end of a line";
  xml.markup("rest");
  xml.setTarget(nullptr, false);
  EXPECT_EQ(target.str().size(), 66'004U);
}

TEST(XmlWriter, TargetThatIsReadLineByLineGetsEachLine) {
  std::ostringstream target;
  XmlWriter<Verbatim> xml;
  xml.setTarget(&target, true);
  xml.markup("one\nt");
  EXPECT_EQ(target.str(), "") << "the line is not at its end";
  xml.markup("wo\n");
  EXPECT_EQ(target.str(), "one\ntwo\n");
}

}  // namespace
}  // namespace fdmorph
