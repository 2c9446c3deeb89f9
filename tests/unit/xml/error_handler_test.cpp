// The form of a parser's reports, and their counting.

#include "xml/DMDOMErrorHandler.h"

#include <gtest/gtest.h>
#include <xercesc/sax/SAXParseException.hpp>

#include "support/captured_console.h"
#include "text/console.h"
#include "xml/DMDOMParser.h"

namespace fdmorph {
namespace {

xerces::SAXParseException at(XMLFileLoc line, XMLFileLoc column) {
  return {u"text of the library", u"", u"/data/a.xsd", line, column};
}

class ErrorHandler : public ConsoleTest {
 protected:
  static void SetUpTestSuite() { CDMDOMParser::InitializePlatform(); }

  CDMDOMErrorHandler handler;
};

TEST_F(ErrorHandler, VerboseReportEndsWithTheMessage) {
  handler.setVerboseError(true);
  handler.error(at(12, 7));
  EXPECT_EQ(captured.err(), "Error : /data/a.xsd(Line 12, Col 7) : text of the library\n");
}

TEST_F(ErrorHandler, PlainReportEndsAfterTheBracket) {
  handler.error(at(12, 7));
  EXPECT_EQ(captured.err(), "Error : /data/a.xsd(Line 12, Col 7)\n");
}

TEST_F(ErrorHandler, ReportBeginsWithItsType) {
  handler.warning(at(1, 2));
  handler.fatalError(at(3, 4));
  EXPECT_EQ(captured.err(),
            "Warning : /data/a.xsd(Line 1, Col 2)\n"
            "Fatal Error : /data/a.xsd(Line 3, Col 4)\n");
}

TEST_F(ErrorHandler, LargeNumbersAreDecimal) {
  handler.error(at(1234567, 65536));
  EXPECT_EQ(captured.err(), "Error : /data/a.xsd(Line 1234567, Col 65536)\n");
}

TEST_F(ErrorHandler, FileWithoutANameLeavesItsPlaceEmpty) {
  handler.error({u"text", nullptr, nullptr, 0, 0});
  EXPECT_EQ(captured.err(), "Error : (Line 0, Col 0)\n");
}

TEST_F(ErrorHandler, WarningAddsToTheWarnings) {
  handler.warning(at(1, 1));
  EXPECT_EQ(console.m_nErrorCount, 0);
  EXPECT_EQ(console.m_nWarningCount, 1);
}

TEST_F(ErrorHandler, FatalErrorsAddToTheErrors) {
  handler.error(at(1, 1));
  handler.fatalError(at(1, 1));
  EXPECT_EQ(console.m_nErrorCount, 2);
  EXPECT_EQ(console.m_nWarningCount, 0);
}

TEST_F(ErrorHandler, SummaryOfNothing) {
  handler.DisplayErrorMsgSummary();
  EXPECT_EQ(captured.err(), "0 error(s), 0 warning(s)\n");
}

TEST_F(ErrorHandler, SummaryCoversTheToolsOwnMessages) {
  handler.error(at(1, 1));
  out() << "Error : x";
  out() << "Warning : x";
  std::string before = captured.err();
  handler.DisplayErrorMsgSummary();
  EXPECT_EQ(captured.err(), before + "2 error(s), 1 warning(s)\n");
}

TEST_F(ErrorHandler, SummaryCountsNothingAndNeedsNoBanner) {
  console.headerShown = false;
  handler.DisplayErrorMsgSummary();
  EXPECT_EQ(captured.out(), "");
  EXPECT_TRUE(nothingCounted());
}

TEST_F(ErrorHandler, RecordedReportsAreStillPrinted) {
  std::vector<ParserReport> record;
  handler.recordReports(&record);
  handler.warning(at(1, 2));
  handler.fatalError(at(3, 4));
  handler.recordReports(nullptr);
  handler.error(at(5, 6));
  ASSERT_EQ(record.size(), 2U);
  EXPECT_EQ(record[0].kind, ParserReport::Kind::warning);
  EXPECT_EQ(record[0].line, "Warning : /data/a.xsd(Line 1, Col 2)");
  EXPECT_EQ(record[1].kind, ParserReport::Kind::error);
  EXPECT_EQ(record[1].line, "Fatal Error : /data/a.xsd(Line 3, Col 4)");
  EXPECT_EQ(countOf("\n", captured.err()), 3);
}

}  // namespace
}  // namespace fdmorph
