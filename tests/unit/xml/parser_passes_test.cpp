// Checking a document without building it has to report what a parse reports.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/parser_fixture.h"
#include "text/console.h"

namespace fdmorph {
namespace {

using testing::HasSubstr;

/// A document that expands an entity so many times.
std::string expansions(int count) {
  std::string text = "<!DOCTYPE a [<!ENTITY e \"x\">]><a>";
  for (int i = 0; i < count; ++i) text += "&e;";
  return text + "</a>";
}

struct Document {
  char const* name;
  std::string text;
};

void PrintTo(Document const& document, std::ostream* stream) {
  *stream << document.name;
}

class Passes : public ParserTest, public testing::WithParamInterface<Document> {
 protected:
  void SetUp() override {
    folder.write("s.xsd", kGoodSchema);
    folder.write("bad.xsd", kBadSchema);
    folder.write("a.xml", GetParam().text);
  }

  /// The reports and counts of one way to look at the document.
  template <typename Look>
  std::string reportsOf(Look look) {
    std::string before = captured.err();
    int errors = console.m_nErrorCount;
    int warnings = console.m_nWarningCount;
    CDMDOMParser fresh(store);
    look(fresh, folder.path("a.xml"));
    return captured.err().substr(before.size()) + std::to_string(console.m_nErrorCount - errors) +
           " and " + std::to_string(console.m_nWarningCount - warnings);
  }

  std::string reportsOfBothPasses() {
    return reportsOf([](CDMDOMParser& fresh, std::string const& file) {
      fresh.CheckDocument(file, false);
      fresh.CheckDocument(file, true);
    });
  }
};

TEST_P(Passes, ReportTheSameWithAndWithoutADocument) {
  std::string parsed = reportsOf([](CDMDOMParser& fresh, std::string const& file) {
    fresh.ParseFile(file, Type::XML_DOCUMENT, false);
    fresh.ParseFile(file, Type::XML_DOCUMENT, true);
  });
  EXPECT_EQ(reportsOfBothPasses(), parsed);
}

constexpr char kWithSchema[] = R"(<a xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance")"
                               R"( xsi:noNamespaceSchemaLocation=")";

constexpr char kRepeatedIdentifiers[] =
    "<!DOCTYPE r [<!ELEMENT r (a*)><!ELEMENT a EMPTY>"
    "<!ATTLIST a id ID #IMPLIED ref IDREF #IMPLIED>]>\n"
    "<r><a id='x'/>\n<a id='x' ref='missing'/></r>";

INSTANTIATE_TEST_SUITE_P(
    Documents, Passes,
    testing::Values(
        Document{"good", std::string(kWithSchema) + "s.xsd\">1</a>"},
        Document{"invalid", std::string(kWithSchema) + "s.xsd\">x</a>"},
        Document{"missing_schema", std::string(kWithSchema) + "missing.xsd\">1</a>"},
        Document{"bad_schema", std::string(kWithSchema) + "bad.xsd\">1</a>"},
        Document{"no_schema", "<a/>"}, Document{"document_type", std::string(kInvalidDocument)},
        Document{"malformed", std::string(kMalformedDocument)},
        Document{"missing_document_type", "<!DOCTYPE a SYSTEM 'x.dtd'><a/>"},
        Document{"missing_entity", "<!DOCTYPE a [<!ENTITY e SYSTEM 'x.ent'>]><a>&e;</a>"},
        Document{"repeated_identifiers", kRepeatedIdentifiers},
        Document{"undeclared_entity", "<a>&e;</a>"}, Document{"unbound_prefix", "<x:a/>"},
        Document{"repeated_attribute", "<a b='1' b='2'/>"},
        Document{"unknown_encoding", "<?xml version='1.0' encoding='none'?><a/>"},
        Document{"wrong_encoding", "<a>\xff\xfe</a>"}, Document{"two_roots", "<a/><b/>"},
        Document{"truncated", "<a><b>"}, Document{"text", "text"}, Document{"empty", ""}),
    [](auto const& instance) { return std::string(instance.param.name); });

class CheckDocument : public ParserTest {
 protected:
  void check(std::string_view text, bool validate) {
    parser.CheckDocument(folder.write("a.xml", text), validate);
  }
};

TEST_F(CheckDocument, GoodDocumentOfAGoodSchemaPrintsNothing) {
  folder.write("s.xsd", kGoodSchema);
  std::string text = std::string(kWithSchema) + "s.xsd\">1</a>";
  check(text, false);
  check(text, true);
  EXPECT_EQ(captured.err(), "");
  EXPECT_EQ(captured.out(), "");
}

TEST_F(CheckDocument, FirstPassChecksFormOnly) {
  check(kInvalidDocument, false);
  EXPECT_EQ(captured.err(), "");
}

TEST_F(CheckDocument, SchemaThatCannotBeFoundIsReportedByTheSecondPassAlone) {
  std::string text = std::string(kWithSchema) + "missing.xsd\">1</a>";
  check(text, false);
  EXPECT_EQ(captured.err(), "");
  check(text, true);
  EXPECT_THAT(captured.err(), HasSubstr("missing.xsd"));
  EXPECT_NE(console.m_nErrorCount + console.m_nWarningCount, 0);
}

TEST_F(CheckDocument, ErrorThatBothPassesFindCountsTwice) {
  check(kMalformedDocument, false);
  check(kMalformedDocument, true);
  EXPECT_EQ(countOf("Fatal Error : ", captured.err()), 2);
  EXPECT_EQ(parser.getErrorCount(), console.m_nErrorCount);
  EXPECT_GE(console.m_nErrorCount, 2);
}

TEST_F(CheckDocument, BuildsNoTree) {
  check("<a/>", false);
  EXPECT_EQ(parser.getXMLDocument(), nullptr);
}

TEST_F(CheckDocument, MissingFileIsReportedAndCounts) {
  parser.CheckDocument(folder.path("missing.xml"), false);
  EXPECT_THAT(captured.err(), HasSubstr(folder.path("missing.xml")));
  EXPECT_NE(console.m_nErrorCount, 0);
}

TEST_F(CheckDocument, FiftyThousandExpansionsAreAllowed) {
  check(expansions(50'000), false);
  EXPECT_EQ(captured.err(), "");
}

TEST_F(CheckDocument, OneExpansionMoreIsRefused) {
  check(expansions(50'001), false);
  EXPECT_THAT(captured.err(), HasSubstr("50000"));
  EXPECT_EQ(console.m_nErrorCount, 1);
}

TEST_F(ParserTest, EntityExpansionOfAParseIsLimited) {
  EXPECT_FALSE(parseDocument(expansions(50'001)));
  EXPECT_THAT(captured.err(), HasSubstr("50000"));
  EXPECT_EQ(console.m_nErrorCount, 1);
}

// Each entity holds the one before ten times, so a short document asks for a
// billion expansions.
TEST_F(ParserTest, NestedExpansionsAreLimited) {
  std::string text = "<!DOCTYPE a [<!ENTITY e0 \"x\">";
  for (int i = 1; i < 10; ++i) {
    std::string below = "&e" + std::to_string(i - 1) + ";";
    text += "<!ENTITY e" + std::to_string(i) + " \"";
    for (int n = 0; n < 10; ++n) text += below;
    text += "\">";
  }
  EXPECT_FALSE(parseDocument(text + "]><a>&e9;</a>"));
  EXPECT_EQ(console.m_nErrorCount, 1);
}

}  // namespace
}  // namespace fdmorph
