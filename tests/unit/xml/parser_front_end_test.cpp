// Parsing documents and schemas.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <xercesc/validators/schema/SchemaValidator.hpp>

#include "support/parser_fixture.h"
#include "text/console.h"
#include "xml/transcoding.h"

namespace fdmorph {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class ParseSchema : public ParserTest {};
class ParseDocument : public ParserTest {};
class Counts : public ParserTest {};

TEST_F(ParseSchema, GoodOneIsAnnouncedAfterAnEmptyLine) {
  EXPECT_TRUE(parseSchema(kGoodSchema));
  EXPECT_EQ(captured.out(), "\nValidating " + folder.path("a.xsd") + " for well-formedness.\n");
  EXPECT_EQ(captured.err(), "");
}

TEST_F(ParseSchema, AnnouncementNeedsNoBanner) {
  console.headerShown = false;
  CDMDOMParser::announceSchema("a.xsd");
  EXPECT_EQ(captured.out(), "\nValidating a.xsd for well-formedness.\n");
}

TEST_F(ParseSchema, ErrorOfTheGrammarStopsIt) {
  EXPECT_FALSE(parseSchema(kBadSchema));
  EXPECT_THAT(captured.err(), StartsWith("Error : " + folder.path("a.xsd") + "(Line 2, Col "));
  EXPECT_EQ(console.m_nErrorCount, 1);
  EXPECT_EQ(parser.getXMLDocument(), nullptr);
}

TEST_F(ParseSchema, ValidateFlagIsIgnored) {
  std::string file = folder.write("a.xsd", kBadSchema);
  EXPECT_FALSE(parser.ParseFile(file, Type::XML_SCHEMA, false));
  EXPECT_EQ(console.m_nErrorCount, 1);
}

TEST_F(ParseSchema, EarlierWarningIsEnoughToStopIt) {
  console.m_nWarningCount = 1;
  EXPECT_FALSE(parseSchema(kGoodSchema));
  EXPECT_EQ(captured.err(), "");
  EXPECT_EQ(parser.getXMLDocument(), nullptr);
}

TEST_F(ParseSchema, EarlierErrorIsEnoughToStopIt) {
  out() << "Error : x";
  EXPECT_FALSE(parseSchema(kGoodSchema));
}

TEST_F(ParseSchema, MissingFileIsReported) {
  EXPECT_FALSE(parser.ParseFile(folder.path("missing.xsd"), Type::XML_SCHEMA, true));
  EXPECT_THAT(captured.err(), HasSubstr(folder.path("missing.xsd")));
  EXPECT_FALSE(nothingCounted());
}

TEST_F(ParseSchema, MalformedFileIsReported) {
  EXPECT_FALSE(parseSchema("<xs:schema"));
  EXPECT_FALSE(nothingCounted());
  EXPECT_NE(captured.err(), "");
}

TEST_F(ParseDocument, GoodOnePrintsNothing) {
  EXPECT_TRUE(parseDocument("<a/>"));
  EXPECT_EQ(captured.out(), "");
  EXPECT_EQ(captured.err(), "");
}

TEST_F(ParseDocument, WithoutValidationOnlyFormIsChecked) {
  EXPECT_TRUE(parseDocument(kInvalidDocument, false));
  EXPECT_EQ(captured.err(), "");
}

TEST_F(ParseDocument, WithValidationTheDocumentTypeIsChecked) {
  EXPECT_FALSE(parseDocument(kInvalidDocument, true));
  EXPECT_FALSE(nothingCounted());
}

TEST_F(ParseDocument, EachCallChoosesItsOwnValidation) {
  EXPECT_TRUE(parseDocument(kInvalidDocument, false));
  EXPECT_FALSE(parseDocument(kInvalidDocument, true));
  EXPECT_TRUE(parseDocument(kInvalidDocument, false));
}

TEST_F(ParseDocument, EarlierCountsDoNotStopIt) {
  console.m_nErrorCount = 1;
  EXPECT_TRUE(parseDocument("<a/>"));
}

TEST_F(ParseDocument, ErrorIsReportedWithItsPlace) {
  EXPECT_FALSE(parseDocument(kMalformedDocument));
  EXPECT_THAT(captured.err(),
              StartsWith("Fatal Error : " + folder.path("a.xml") + "(Line 3, Col "));
  EXPECT_THAT(captured.err(), HasSubstr(") : "));
  EXPECT_EQ(countOf("\n", captured.err()), 1);
  EXPECT_EQ(parser.getErrorCount(), 1);
  EXPECT_EQ(parser.getWarningCount(), 0);
}

TEST_F(ParseDocument, FileMayHaveAMultibyteName) {
  std::string const good = folder.write("gr\u00fc\u00dfe.xml", "<a/>");
  EXPECT_TRUE(parser.ParseFile(good, Type::XML_DOCUMENT, false));
  std::string const bad = folder.write("\u4e2d\u6587.xml", kMalformedDocument);
  EXPECT_FALSE(parser.ParseFile(bad, Type::XML_DOCUMENT, false));
  EXPECT_THAT(captured.err(), StartsWith("Fatal Error : " + bad + "(Line 3, Col "));
}

TEST_F(ParseDocument, ReportEndsAfterTheBracketWhenNotVerbose) {
  parser.setVerboseError(false);
  EXPECT_FALSE(parseDocument(kMalformedDocument));
  EXPECT_THAT(captured.err(), EndsWith(")\n"));
}

TEST_F(ParseDocument, MissingFileIsReportedAndCounts) {
  EXPECT_FALSE(parser.ParseFile(folder.path("missing.xml"), Type::XML_DOCUMENT, false));
  EXPECT_THAT(captured.err(), HasSubstr(folder.path("missing.xml")));
  EXPECT_FALSE(nothingCounted());
}

TEST_F(ParseDocument, ParserCanBeGivenAValidator) {
  CDMDOMParser other(store, *new xerces::SchemaValidator());
  EXPECT_TRUE(other.ParseFile(folder.write("a.xml", "<a/>"), Type::XML_DOCUMENT, true) ||
              !nothingCounted());
  EXPECT_TRUE(other.ParseFile(folder.write("a.xml", "<a/>"), Type::XML_DOCUMENT, false));
}

TEST_F(Counts, OfAllParsesAreAdded) {
  parseDocument(kMalformedDocument);
  parseDocument(kMalformedDocument);
  EXPECT_EQ(parser.getErrorCount(), 2);
}

TEST_F(Counts, OfAllParsersAreAdded) {
  parseDocument(kMalformedDocument);
  CDMDOMParser other(store);
  other.ParseFile(folder.path("a.xml"), Type::XML_DOCUMENT, false);
  EXPECT_EQ(parser.getErrorCount(), 2);
  EXPECT_EQ(other.getErrorCount(), 2);
  std::string before = captured.err();
  parser.DisplayErrorSummary();
  other.DisplayErrorSummary();
  EXPECT_EQ(captured.err(), before + "2 error(s), 0 warning(s)\n2 error(s), 0 warning(s)\n");
}

TEST_F(Counts, IncludeTheToolsOwnMessages) {
  out() << "Warning : x";
  EXPECT_EQ(parser.getErrorCount(), 0);
  EXPECT_EQ(parser.getWarningCount(), 1);
}

TEST_F(Counts, RecordHoldsWhatAParsePrints) {
  std::vector<ParserReport> record;
  parser.recordReports(&record);
  parseDocument(kMalformedDocument);
  parser.recordReports(nullptr);
  ASSERT_EQ(record.size(), 1U);
  EXPECT_EQ(record.front().line + "\n", captured.err());
  EXPECT_EQ(record.front().kind, ParserReport::Kind::error);
}

}  // namespace
}  // namespace fdmorph
