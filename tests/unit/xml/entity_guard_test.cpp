// The limit on entity expansion in schemas, whose grammars the library loads
// without a limit.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/parser_fixture.h"
#include "text/console.h"

namespace fdmorph {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

/// Declarations of entities that each hold the one below ten times: e9 is a
/// billion expansions, e5 111,111.
std::string nestedEntities() {
  std::string text = "<!ENTITY e0 \"x\">";
  for (int i = 1; i < 10; ++i) {
    std::string const below = "&e" + std::to_string(i - 1) + ";";
    text += "<!ENTITY e" + std::to_string(i) + " \"";
    for (int n = 0; n < 10; ++n) text += below;
    text += "\">";
  }
  return text;
}

std::string documentType() {
  return "<!DOCTYPE xs:schema [" + nestedEntities() + "]>";
}

std::string schemaWith(std::string const& prolog, std::string const& content) {
  return prolog + R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">)" + content +
         "</xs:schema>";
}

std::string annotation(std::string const& text) {
  return "<xs:annotation><xs:documentation>" + text + "</xs:documentation></xs:annotation>";
}

std::string const kAnnotation = annotation("&e9;");

class SchemaEntities : public ParserTest {
 protected:
  bool isRefused(std::string const& text) {
    bool const isGood = parseSchema(text);
    EXPECT_THAT(captured.err(), StartsWith("Fatal Error : " + folder.path("a.xsd") + "(Line "));
    EXPECT_THAT(captured.err(), HasSubstr("50000"));
    EXPECT_EQ(countOf("\n", captured.err()), 1);
    EXPECT_EQ(console.m_nErrorCount, 1);
    return !isGood;
  }
};

// The library validates by the document type, so the type must be complete.
TEST_F(SchemaEntities, FewAreExpanded) {
  ASSERT_TRUE(
      parseSchema(schemaWith("<!DOCTYPE xs:schema [<!ELEMENT xs:schema ANY>"
                             "<!ATTLIST xs:schema xmlns:xs CDATA #REQUIRED>"
                             "<!ELEMENT xs:element EMPTY>"
                             "<!ATTLIST xs:element name CDATA #IMPLIED type CDATA #IMPLIED>"
                             "<!ENTITY t \"xs:int\">]>",
                             "<xs:element name='a' type='&t;'/>")))
      << captured.err();
  CDMXMLElement const* root = parser.getXMLDocument()->getFirstChildElem();
  EXPECT_EQ(root->getFirstChildElem()->getAttribute("type")->value, "xs:int");
}

TEST_F(SchemaEntities, TooManyAreRefused) {
  EXPECT_TRUE(isRefused(schemaWith(documentType(), kAnnotation)));
}

TEST_F(SchemaEntities, DeclarationAcrossBlocksIsFound) {
  std::string const type = documentType();
  std::size_t const before = type.find("<!ENTITY") + std::string("<!---->").size();
  std::string const padding = "<!--" + std::string((1U << 16) - before - 4, ' ') + "-->";
  std::string const text = padding + schemaWith(type, kAnnotation);
  ASSERT_EQ(text.find("<!ENTITY"), (1U << 16) - 4);
  EXPECT_TRUE(isRefused(text));
}

TEST_F(SchemaEntities, DeclarationInUtf16IsFound) {
  std::string wide = "\xff\xfe";
  for (char c : schemaWith(documentType(), kAnnotation)) wide += {c, '\0'};
  EXPECT_TRUE(isRefused(wide));
}

TEST_F(SchemaEntities, DeclarationInAnotherFileIsFound) {
  folder.write("a.dtd", nestedEntities());
  EXPECT_TRUE(isRefused(schemaWith("<!DOCTYPE xs:schema SYSTEM 'a.dtd'>", annotation("&e5;"))));
}

TEST_F(SchemaEntities, SchemaIncludedByItsUrlIsLimitedToo) {
  std::string const file = folder.write("b.xsd", schemaWith(documentType(), annotation("&e5;")));
  EXPECT_FALSE(parseSchema(schemaWith("", "<xs:include schemaLocation='file://" + file + "'/>")));
  EXPECT_THAT(captured.err(), HasSubstr("50000"));
}

TEST_F(SchemaEntities, IncludedSchemaIsLimitedToo) {
  folder.write("b.xsd", schemaWith(documentType(), kAnnotation));
  EXPECT_FALSE(parseSchema(schemaWith("", "<xs:include schemaLocation='b.xsd'/>")));
  EXPECT_THAT(captured.err(), HasSubstr("50000"));
  EXPECT_FALSE(nothingCounted());
}

TEST_F(SchemaEntities, SchemaOfADocumentIsLimitedToo) {
  folder.write("s.xsd", schemaWith(documentType(), kAnnotation));
  parser.CheckDocument(
      folder.write("a.xml", R"(<a xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance")"
                            R"( xsi:noNamespaceSchemaLocation="s.xsd"/>)"),
      true);
  EXPECT_THAT(captured.err(), HasSubstr("50000"));
  EXPECT_FALSE(nothingCounted());
}

}  // namespace
}  // namespace fdmorph
