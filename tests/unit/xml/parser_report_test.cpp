// Reports as values.

#include <gtest/gtest.h>

#include "support/captured_console.h"
#include "text/console.h"
#include "xml/DMDOMParser.h"

namespace fdmorph {
namespace {

using Kind = ParserReport::Kind;

class Report : public ConsoleTest {};

TEST_F(Report, IsOneLineOnTheErrorStream) {
  printReport({Kind::error, "Error : a.xsd(Line 1, Col 2) : text"});
  EXPECT_EQ(captured.err(), "Error : a.xsd(Line 1, Col 2) : text\n");
  EXPECT_EQ(captured.out(), "");
}

TEST_F(Report, CountsByItsKind) {
  printReport({Kind::error, "x"});
  printReport({Kind::error, "x"});
  printReport({Kind::warning, "x"});
  EXPECT_EQ(console.m_nErrorCount, 2);
  EXPECT_EQ(console.m_nWarningCount, 1);
}

TEST_F(Report, HeadOfTheLineIsNotCountedASecondTime) {
  printReport({Kind::error, "Error : x"});
  printReport({Kind::warning, "Warning : x"});
  EXPECT_EQ(console.m_nErrorCount, 1);
  EXPECT_EQ(console.m_nWarningCount, 1);
}

TEST_F(Report, UncountedReportIsOnlyPrinted) {
  printReport({Kind::uncounted, "An error occured during parsing"});
  EXPECT_EQ(captured.err(), "An error occured during parsing\n");
  EXPECT_TRUE(nothingCounted());
}

TEST_F(Report, DoesNotPrintTheBanner) {
  console.headerShown = false;
  printReport({Kind::error, "Error : x"});
  EXPECT_EQ(captured.out(), "");
}

TEST_F(Report, WarningCountsAsAReport) {
  EXPECT_TRUE(nothingCounted());
  printReport({Kind::warning, "x"});
  EXPECT_FALSE(nothingCounted());
}

TEST_F(Report, MessagesOfTheToolCountAsWell) {
  out() << "Error : x";
  EXPECT_FALSE(nothingCounted());
}

}  // namespace
}  // namespace fdmorph
