// When the banner is printed, and where.

#include <gtest/gtest.h>

#include <iostream>
#include <sstream>

#include "support/captured_console.h"
#include "text/console.h"

namespace fdmorph {
namespace {

using namespace std::string_view_literals;

std::string const kBanner =
    "Tallmere FDMORPH Version 1.0\n"
    "Converts between COBOL data definitions and XML Schema\n"
    "\n";

class Banner : public ConsoleTest {
 protected:
  Banner() { console.headerShown = false; }
};

TEST_F(Banner, IsTwoLinesAndAnEmptyOne) {
  DisplayHeader();
  EXPECT_EQ(captured.out(), kBanner);
}

TEST_F(Banner, IsShownOnce) {
  DisplayHeader();
  DisplayHeader();
  out() << "x";
  EXPECT_EQ(captured.out(), kBanner + "x");
}

TEST_F(Banner, ComesBeforeTheFirstTextOnTheOutputStream) {
  out() << "a";
  out() << "b";
  EXPECT_EQ(captured.out(), kBanner + "ab");
}

TEST_F(Banner, GoesToTheOutputStreamWhenTheFirstTextIsOnTheErrorStream) {
  err() << "x";
  EXPECT_EQ(captured.out(), kBanner);
  EXPECT_EQ(captured.err(), "x");
}

TEST_F(Banner, IsPrintedForAnEmptyText) {
  out() << "";
  EXPECT_EQ(captured.out(), kBanner);
}

TEST_F(Banner, IsNotPrintedForStringsNumbersAndLineEnds) {
  out() << "x"sv << 1LL << endLine;
  EXPECT_EQ(captured.out(), "x1\n");
}

TEST_F(Banner, IsNotPrintedForOtherStreams) {
  std::ostringstream other;
  insertCounted(other, "x");
  EXPECT_EQ(captured.out(), "");
  EXPECT_EQ(other.str(), "x");
}

TEST_F(Banner, CanBePrintedBeforeTextThatIsNotInserted) {
  std::ostringstream other;
  beginOutput(other);
  EXPECT_EQ(captured.out(), "");
  beginOutput(std::cerr);
  beginOutput(std::cout);
  EXPECT_EQ(captured.out(), kBanner);
  EXPECT_EQ(captured.err(), "");
}

TEST_F(Banner, IsNotPrintedBeforeTextThatIsDropped) {
  beginQuietMode();
  beginOutput(std::cout);
  EXPECT_FALSE(console.headerShown);
}

TEST_F(Banner, IsNotPrintedForASilencedStream) {
  beginQuietMode();
  out() << "x";
  EXPECT_FALSE(console.headerShown);
}

TEST_F(Banner, BecomesTheFirstLinesOfAFileInAQuietRun) {
  beginQuietMode();
  std::stringbuf file;
  redirectOutput(&file);
  out() << "x";
  EXPECT_EQ(file.str(), kBanner + "x");
}

TEST_F(Banner, IsLostToTheErrorStreamInAQuietRun) {
  beginQuietMode();
  err() << "x";
  std::stringbuf file;
  redirectOutput(&file);
  out() << "y";
  EXPECT_EQ(file.str(), "y");
  EXPECT_EQ(captured.err(), "x");
}

}  // namespace
}  // namespace fdmorph
