// Mapping files as they are written.

#include "mapping/mapping_document.h"

#include <gtest/gtest.h>

namespace fdmorph::mapping {
namespace {

MappingDocument read(std::string_view content) {
  MappingReading reading = readMapping(content, "map.xml");
  EXPECT_FALSE(reading.fault);
  return std::move(reading.document);
}

std::string shown(TagPlace place) {
  return std::to_string(place.line) + ":" + std::to_string(place.column);
}

TEST(MappingDocument, HasThePlacesOfTagsAndTexts) {
  MappingDocument const document = read("<a>\n  \xC3\xBC<b\n x='1'>text</b><c/></a>\n");
  ASSERT_EQ(document.elements.size(), 3U);
  EXPECT_EQ(shown(document.elements[0].place), "1:1");
  EXPECT_EQ(shown(document.elements[1].place), "2:4");
  EXPECT_EQ(shown(document.elements[1].textPlace), "3:8");
  EXPECT_EQ(shown(document.elements[2].place), "3:16");
  EXPECT_EQ(document.elements[1].value, "text");
  EXPECT_EQ(document.elements[1].attributes, std::vector<std::string>{"x"});
  EXPECT_EQ(document.elements[2].parent, 0U);
}

TEST(MappingDocument, ByteOrderMarkIsNoCharacter) {
  EXPECT_EQ(shown(read("\xEF\xBB\xBF<a/>").elements[0].place), "1:1");
}

TEST(MappingDocument, LastPieceOfATextCounts) {
  MappingDocument const document = read("<xml-name>Old<!-- x -->New</xml-name>");
  EXPECT_EQ(document.elements[0].value, "New");
  ASSERT_TRUE(document.elements[0].lost);
  EXPECT_EQ(shown(*document.elements[0].lost), "1:24");
}

TEST(MappingDocument, SectionDoesNotCount) {
  MappingDocument const document = read("<xml-name>A<![CDATA[B]]></xml-name>");
  EXPECT_EQ(document.elements[0].value, "A");
  EXPECT_TRUE(document.elements[0].lost);
}

TEST(MappingDocument, CommentAfterATextLosesNothing) {
  MappingDocument const document = read("<xml-name>A<!-- x --></xml-name>");
  EXPECT_EQ(document.elements[0].value, "A");
  EXPECT_FALSE(document.elements[0].lost);
}

TEST(MappingDocument, TextBesideElementsIsLostUnlessItIsALoneBracket) {
  EXPECT_FALSE(read("<xml-cobol-mapping>\n >\n<b/></xml-cobol-mapping>").elements[0].lost);
  EXPECT_TRUE(read("<xml-cobol-mapping>\n >>\n<b/></xml-cobol-mapping>").elements[0].lost);
  EXPECT_TRUE(read("<xml-cobol-mapping-file>x</xml-cobol-mapping-file>").elements[0].lost);
}

TEST(MappingDocument, RemarksKeepTheirMarkupAndTheirPlace) {
  MappingDocument const document = read("<!--1--><a><?p  q?><b/> <!--2-->\n<!--3--></a>");
  ASSERT_EQ(document.remarks.size(), 4U);
  EXPECT_EQ(document.remarks[0].markup, "<!--1-->");
  EXPECT_EQ(document.remarks[0].parent, kNone);
  EXPECT_EQ(document.remarks[1].markup, "<?p q?>");
  EXPECT_EQ(document.remarks[1].next, 1U);
  EXPECT_TRUE(document.remarks[2].isAfterText);
  EXPECT_FALSE(document.remarks[3].isAfterText);
  EXPECT_EQ(document.remarks[3].next, 2U);
}

TEST(MappingDocument, FaultHasItsPlace) {
  MappingReading const reading = readMapping("<a>\n<b>", "map.xml");
  ASSERT_TRUE(reading.fault);
  EXPECT_EQ(reading.fault->file, "map.xml");
  EXPECT_EQ(reading.fault->line, 2U);
  EXPECT_TRUE(reading.document.elements.empty());
}

}  // namespace
}  // namespace fdmorph::mapping
