// The limits on what the entities of a document and of a schema expand to.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iconv.h>

#include <string>

#include "support/parser_fixture.h"
#include "text/console.h"

namespace fdmorph {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr std::size_t kMegabyte = std::size_t{1} << 20;

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

  /// With a small limit, which takes less time.
  bool isRefusedAtFifty(std::string const& text) {
    parser.setExpansionLimits({50, kMegabyte});
    bool const isGood = parseSchema(text);
    EXPECT_THAT(captured.err(), HasSubstr("more than '50' entity expansions"));
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
  EXPECT_TRUE(isRefusedAtFifty(text));
}

TEST_F(SchemaEntities, DeclarationInUtf16IsFound) {
  std::string wide = "\xff\xfe";
  for (char c : schemaWith(documentType(), kAnnotation)) wide += {c, '\0'};
  EXPECT_TRUE(isRefusedAtFifty(wide));
}

TEST_F(SchemaEntities, DeclarationInAnotherFileIsFound) {
  folder.write("a.dtd", nestedEntities());
  EXPECT_TRUE(
      isRefusedAtFifty(schemaWith("<!DOCTYPE xs:schema SYSTEM 'a.dtd'>", annotation("&e5;"))));
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

std::string repeated(std::string const& text, std::size_t count) {
  std::string result;
  for (std::size_t i = 0; i < count; ++i) result += text;
  return result;
}

/// A document in which an entity of one megabyte is used so many times.
std::string megabytes(std::size_t count, std::string const& more = "") {
  return "<!DOCTYPE a [<!ENTITY e '" + std::string(kMegabyte, 'x') + "'><!ENTITY x 'x'>]><a>" +
         repeated("&e;", count) + more + "</a>";
}

class DocumentEntities : public ParserTest {
 protected:
  /// The report on a document, after its place; empty if there is none.
  std::string check(std::string const& text) {
    parser.CheckDocument(folder.write("a.xml", text), false);
    std::string const line = captured.err();
    if (line.empty()) return line;
    EXPECT_EQ(countOf("\n", line), 1) << line;
    EXPECT_EQ(console.m_nErrorCount, 1);
    EXPECT_THAT(line, StartsWith("Fatal Error : " + folder.path("")));
    return line.substr(line.find(") : ") + 4);
  }

  static std::string tooMany(std::string const& limit) {
    return "parser has encountered more than '" + limit +
           "' entity expansions in the document; this is the limit imposed by the application\n";
  }
  static std::string tooLarge(std::string const& limit) {
    return "entities of the document expand to more than '" + limit +
           "' bytes; this is the limit imposed by the application\n";
  }
};

class SmallTextLimit : public DocumentEntities {
 protected:
  void SetUp() override { parser.setExpansionLimits({50'000, kMegabyte}); }
};

TEST_F(DocumentEntities, TextBelowAndAtTheLimitIsRead) {
  EXPECT_EQ(check(megabytes(63)), "");
  EXPECT_EQ(check(megabytes(64)), "");
}

TEST_F(DocumentEntities, TextAboveTheLimitIsRefused) {
  EXPECT_EQ(check(megabytes(64, "&x;")), tooLarge("67108864"));
}

TEST_F(DocumentEntities, LargeEntityThatIsUsedOftenIsRefused) {
  EXPECT_EQ(check("<!DOCTYPE a [<!ENTITY e '" + std::string(100'000, 'x') + "'>]><a>" +
                  repeated("&e;", 10'000) + "</a>"),
            tooLarge("67108864"));
}

TEST_F(SmallTextLimit, AppliesToAttributes) {
  auto document = [](std::size_t kilobytes) {
    return "<!DOCTYPE a [<!ENTITY e '" + std::string(1024, 'x') + "'>]><a b='" +
           repeated("&e;", kilobytes) + "'/>";
  };
  EXPECT_EQ(check(document(1023)), "");
  EXPECT_EQ(check(document(1024)), "");
  EXPECT_EQ(check(document(1025)), tooLarge("1048576"));
}

TEST_F(SmallTextLimit, AppliesToParameterEntities) {
  auto document = [](std::size_t kilobytes) {
    return "<!DOCTYPE a [<!ENTITY % e '<!--" + std::string(1024 - 7, 'x') + "-->'>" +
           repeated("%e;", kilobytes) + "]><a/>";
  };
  EXPECT_EQ(check(document(1024)), "");
  EXPECT_EQ(check(document(1025)), tooLarge("1048576"));
}

TEST_F(SmallTextLimit, AppliesToTheBytesOfExternalEntities) {
  folder.write("e.txt", std::string(1024, 'x'));
  std::string const head = "<!DOCTYPE a [<!ENTITY e SYSTEM 'e.txt'>]><a>";
  EXPECT_EQ(check(head + repeated("&e;", 1024) + "</a>"), "");
  EXPECT_EQ(check(head + repeated("&e;", 1025) + "</a>"), tooLarge("1048576"));
}

TEST_F(SmallTextLimit, AppliesToSchemas) {
  std::string const type = "<!DOCTYPE xs:schema [<!ENTITY e '" + std::string(1024, 'x') + "'>]>";
  EXPECT_FALSE(parseSchema(schemaWith(type, annotation(repeated("&e;", 1025)))));
  EXPECT_THAT(captured.err(), HasSubstr("expand to more than '1048576' bytes"));
  EXPECT_EQ(countOf("\n", captured.err()), 1);
}

TEST_F(SmallTextLimit, BeginsAnewWithEachParse) {
  std::string const text =
      "<!DOCTYPE a [<!ENTITY e '" + std::string(kMegabyte * 2 / 3, 'x') + "'>]><a>&e;</a>";
  EXPECT_EQ(check(text), "");
  EXPECT_EQ(check(text), "");
}

TEST_F(DocumentEntities, ParameterEntitiesCountAsExpansions) {
  std::string const head = "<!DOCTYPE a [<!ENTITY % e '<!---->'>";
  parser.setExpansionLimits({50, kMegabyte});
  EXPECT_EQ(check(head + repeated("%e;", 50) + "]><a/>"), "");
  EXPECT_EQ(check(head + repeated("%e;", 51) + "]><a/>"), tooMany("50"));
}

TEST_F(DocumentEntities, NestedParameterEntitiesAreLimited) {
  std::string declarations = "<!ENTITY % e0 '<!---->'>";
  for (int i = 1; i < 10; ++i) {
    std::string const below = "&#37;e" + std::to_string(i - 1) + ";";
    declarations += "<!ENTITY % e" + std::to_string(i) + " '" + repeated(below, 10) + "'>";
  }
  EXPECT_EQ(check("<!DOCTYPE a [" + declarations + "%e9;]><a/>"), tooMany("50000"));
}

TEST_F(DocumentEntities, EmptyEntitiesCountAsExpansions) {
  std::string const head = "<!DOCTYPE a [<!ENTITY e ''>]><a>";
  parser.setExpansionLimits({50, kMegabyte});
  EXPECT_EQ(check(head + repeated("&e;", 50) + "</a>"), "");
  EXPECT_EQ(check(head + repeated("&e;", 51) + "</a>"), tooMany("50"));
}

TEST_F(SchemaEntities, OfEachFileAreCountedByThemselves) {
  std::string const type = "<!DOCTYPE xs:schema [<!ENTITY e 'x'>]>";
  std::string const text = annotation(repeated("&e;", 30));
  folder.write("b.xsd", schemaWith(type, text));
  parser.setExpansionLimits({50, kMegabyte});
  parseSchema(schemaWith(type, "<xs:include schemaLocation='b.xsd'/>" + text));
  EXPECT_EQ(countOf("expansions", captured.err()), 0) << captured.err();
}

struct Encoding {
  char const* name;      ///< as iconv knows it
  char const* declared;  ///< as the document declares it
};

void PrintTo(Encoding const& encoding, std::ostream* stream) {
  *stream << encoding.declared;
}

class EncodedEntities : public SchemaEntities, public testing::WithParamInterface<Encoding> {
 protected:
  static std::string encode(std::string text) {
    iconv_t converter = iconv_open(GetParam().name, "UTF-8");
    std::string result(text.size() * 4 + 4, '\0');
    char* from = text.data();
    char* to = result.data();
    std::size_t rest = text.size();
    std::size_t room = result.size();
    EXPECT_EQ(iconv(converter, &from, &rest, &to, &room), 0U);
    iconv_close(converter);
    result.resize(result.size() - room);
    return result;
  }
};

TEST_P(EncodedEntities, AreLimited) {
  std::string const declaration =
      std::string("<?xml version='1.0' encoding='") + GetParam().declared + "'?>";
  EXPECT_TRUE(isRefusedAtFifty(encode(declaration + schemaWith(documentType(), kAnnotation))));
}

INSTANTIATE_TEST_SUITE_P(
    Encodings, EncodedEntities,
    testing::Values(Encoding{"UTF-16LE", "UTF-16LE"}, Encoding{"UTF-16BE", "UTF-16BE"},
                    Encoding{"UTF-32LE", "UCS-4LE"}, Encoding{"UTF-32BE", "UCS-4BE"},
                    Encoding{"IBM1047", "IBM1047"}, Encoding{"ISO-8859-15", "ISO-8859-15"}),
    [](auto const& each) { return "number" + std::to_string(each.index); });

TEST_F(SchemaEntities, InUtf7AreLimited) {
  // "+ADw-" is "<".
  std::string text = schemaWith(documentType(), kAnnotation);
  std::string encoded = "<?xml version='1.0' encoding='UTF-7'?>";
  for (char c : text) encoded += c == '<' ? "+ADw-" : std::string(1, c);
  EXPECT_TRUE(isRefusedAtFifty(encoded));
}

class Spellings : public SchemaEntities, public testing::WithParamInterface<char const*> {};

TEST_P(Spellings, OfALocationDoNotMatter) {
  parser.setExpansionLimits({50, kMegabyte});
  std::string const file = folder.write("b.xsd", schemaWith(documentType(), annotation("&e9;")));
  EXPECT_FALSE(parseSchema(
      schemaWith("", std::string("<xs:include schemaLocation='") + GetParam() + file + "'/>")));
  EXPECT_THAT(captured.err(), HasSubstr("more than '50' entity"));
  EXPECT_EQ(countOf("\n", captured.err()), 1) << captured.err();
}

INSTANTIATE_TEST_SUITE_P(Urls, Spellings,
                         testing::Values("file://", "FILE://", "file:", "file://localhost",
                                         "file:///%2e/", "/."),
                         [](auto const& each) { return "number" + std::to_string(each.index); });

}  // namespace
}  // namespace fdmorph
