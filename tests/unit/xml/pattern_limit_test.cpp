// Patterns that the library must not write out are refused before it loads a
// schema.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "support/parser_fixture.h"
#include "text/console.h"

namespace fdmorph {
namespace {

using testing::HasSubstr;

std::string limitedSchema(std::string const& content) {
  return R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">)" + content + "</xs:schema>";
}

std::string restriction(std::string const& pattern) {
  return "<xs:restriction base='xs:string'><xs:pattern value='" + pattern + "'/></xs:restriction>";
}

std::string typeWith(std::string const& pattern) {
  return "<xs:simpleType name='T'>" + restriction(pattern) + "</xs:simpleType>";
}

class Patterns : public ParserTest {
 protected:
  /// The report of the only line, after the place.
  std::string refusal() {
    EXPECT_EQ(countOf("\n", captured.err()), 1) << captured.err();
    EXPECT_EQ(console.m_nErrorCount, 1);
    std::string const line = captured.err();
    std::size_t const end = line.find(") : ");
    return end == line.npos ? line : line.substr(end + 4);
  }
};

TEST_F(Patterns, BelowAndAtTheLimitAreLoaded) {
  EXPECT_TRUE(parseSchema(limitedSchema(typeWith("(a{999}){1000}"))));
  EXPECT_TRUE(parseSchema(limitedSchema(typeWith("(a{1000}){1000}"))));
  EXPECT_EQ(captured.err(), "");
}

TEST_F(Patterns, AboveTheLimitAreRefusedWithTheirType) {
  EXPECT_FALSE(parseSchema(limitedSchema("\n" + typeWith("(a{1000}){1001}"))));
  EXPECT_THAT(captured.err(), testing::StartsWith("Error : " + folder.path("a.xsd") + "(Line 2, "));
  EXPECT_EQ(refusal(), "the pattern of type T repeats more than 1000000 times\n");
}

TEST_F(Patterns, OneRepetitionAboveTheLimitIsRefused) {
  EXPECT_FALSE(parseSchema(limitedSchema(typeWith("a{1000001}"))));
  EXPECT_EQ(refusal(), "the pattern of type T repeats more than 1000000 times\n");
}

TEST_F(Patterns, AnonymousTypeIsNamedByWhatItBelongsTo) {
  EXPECT_FALSE(
      parseSchema(limitedSchema("<xs:element name='e'><xs:simpleType>" + restriction("a{1000001}") +
                                "</xs:simpleType></xs:element>")));
  EXPECT_EQ(refusal(), "the pattern of the type of element e repeats more than 1000000 times\n");
}

TEST_F(Patterns, SizeOfAllPatternsOfAFileIsLimited) {
  std::string const large = restriction("(a{1000}){1000}");
  std::string types;
  for (int i = 0; i < 11; ++i) {
    types += "<xs:simpleType name='T" + std::to_string(i) + "'>" + large + "</xs:simpleType>";
  }
  EXPECT_FALSE(parseSchema(limitedSchema(types)));
  EXPECT_EQ(refusal(),
            "the pattern of type T10 makes the patterns of the file larger than 10000000 "
            "characters\n");
}

TEST_F(Patterns, LoopsThatMultiplyAreLimited) {
  std::string pattern = "a";
  for (int i = 0; i < 40; ++i) pattern = "(" + pattern + ")+";
  EXPECT_FALSE(parseSchema(limitedSchema(typeWith(pattern))));
  EXPECT_THAT(refusal(), HasSubstr("larger than 10000000 characters"));
}

TEST_F(Patterns, DeepParenthesesAreRefused) {
  auto nested = [](std::size_t depth) {
    return typeWith(std::string(depth, '(') + "a" + std::string(depth, ')'));
  };
  EXPECT_TRUE(parseSchema(limitedSchema(nested(1'000))));
  EXPECT_FALSE(parseSchema(limitedSchema(nested(100'001))));
  EXPECT_EQ(refusal(), "the pattern of type T is nested more than 100000 levels deep\n");
}

TEST_F(Patterns, OfAnIncludedFileAreRefused) {
  folder.write("b.xsd", limitedSchema(typeWith("a{1000001}")));
  EXPECT_FALSE(parseSchema(limitedSchema("<xs:include schemaLocation='b.xsd'/>")));
  EXPECT_THAT(captured.err(), HasSubstr(folder.path("b.xsd") + "(Line 1, "));
  EXPECT_EQ(refusal(), "the pattern of type T repeats more than 1000000 times\n");
}

TEST_F(Patterns, OfTheSchemaOfADocumentAreRefused) {
  folder.write("s.xsd", limitedSchema(typeWith("a{1000001}")));
  parser.CheckDocument(
      folder.write("a.xml", R"(<a xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance")"
                            R"( xsi:noNamespaceSchemaLocation="s.xsd"/>)"),
      true);
  EXPECT_EQ(refusal(), "the pattern of type T repeats more than 1000000 times\n");
}

TEST_F(Patterns, BuiltFromEntitiesAreRefused) {
  std::string const text =
      "<!DOCTYPE xs:schema [<!ENTITY p '<xs:pattern value=\"a{1000001}\"/>'>]>" +
      limitedSchema(
          "<xs:simpleType name='T'><xs:restriction base='xs:string'>"
          "&p;</xs:restriction></xs:simpleType>");
  EXPECT_FALSE(parseSchema(text));
  EXPECT_EQ(refusal(), "the pattern of type T repeats more than 1000000 times\n");
}

TEST_F(Patterns, InUtf16AreRefused) {
  std::string wide = "\xff\xfe";
  for (char c : limitedSchema(typeWith("a{1000001}"))) wide += {c, '\0'};
  EXPECT_FALSE(parseSchema(wide));
  EXPECT_EQ(refusal(), "the pattern of type T repeats more than 1000000 times\n");
}

TEST_F(Patterns, ThatStandAcrossBlocksOfTheFileAreRefused) {
  std::string const content = limitedSchema(typeWith("a{1000001}"));
  std::size_t const before = content.find("pattern");
  std::string const padding(65536 - before - 3 - std::string("<!---->").size(), ' ');
  std::string const text = "<!--" + padding + "-->" + content;
  ASSERT_EQ(text.find("pattern"), 65536U - 3);
  EXPECT_FALSE(parseSchema(text));
  EXPECT_EQ(refusal(), "the pattern of type T repeats more than 1000000 times\n");
}

TEST_F(Patterns, WithCharacterReferencesAreRefused) {
  EXPECT_FALSE(parseSchema(limitedSchema(typeWith("a&#123;1000001}"))));
  EXPECT_EQ(refusal(), "the pattern of type T repeats more than 1000000 times\n");
}

TEST_F(Patterns, InEitherQuotesAreRefused) {
  std::string text = typeWith("a{1000001}");
  std::ranges::replace(text, '\'', '"');
  EXPECT_FALSE(parseSchema(limitedSchema(text)));
  EXPECT_EQ(refusal(), "the pattern of type T repeats more than 1000000 times\n");
}

TEST_F(Patterns, NamedInAnAnnotationAreNoPatterns) {
  EXPECT_TRUE(
      parseSchema(limitedSchema("<xs:annotation><xs:documentation>The pattern value='a{1000001}'"
                                "</xs:documentation></xs:annotation>")));
  EXPECT_EQ(captured.err(), "");
}

}  // namespace
}  // namespace fdmorph
