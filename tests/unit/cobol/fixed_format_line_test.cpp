// Logical lines on physical lines: margins, blanks, comments and streams.

#include <gtest/gtest.h>

#include <iostream>

#include "support/captured_console.h"
#include "support/fixed_format.h"
#include "text/console.h"

namespace fdmorph {
namespace {

TEST(FixedFormatLine, ThatFitsIsUnchanged) {
  EXPECT_EQ(layOut("       01 a PIC X(80)."), "       01 a PIC X(80).\n");
}

TEST(FixedFormatLine, BeginsNoFurtherLeftThanAreaA) {
  EXPECT_EQ(layOut("01 a."), blanks(7) + "01 a.\n");
  EXPECT_EQ(layOut("   01 a."), blanks(7) + "01 a.\n");
}

TEST(FixedFormatLine, KeepsADeeperIndentation) {
  EXPECT_EQ(layOut(blanks(11) + "05 a."), blanks(11) + "05 a.\n");
}

TEST(FixedFormatLine, MayEndAtColumn72) {
  std::string const line = blanks(7) + "a " + repeat(63, 'x');
  EXPECT_EQ(line.size(), 72U);
  EXPECT_EQ(layOut(line), line + "\n");
}

TEST(FixedFormatLine, TokenThatWouldReachColumn73MovesDown) {
  EXPECT_EQ(layOut(blanks(7) + repeat(40, 'x') + " " + repeat(25, 'y')),
            blanks(7) + repeat(40, 'x') + " \n" + blanks(10) + repeat(25, 'y') + "\n");
}

TEST(FixedFormatLine, BlanksBeforeAMovedTokenStayOnTheLineAbove) {
  EXPECT_EQ(layOut(blanks(7) + repeat(40, 'x') + "   " + repeat(25, 'y')),
            blanks(7) + repeat(40, 'x') + "   \n" + blanks(10) + repeat(25, 'y') + "\n");
}

TEST(FixedFormatLine, BlankAfterColumn72BeginsTheNextLine) {
  EXPECT_EQ(layOut(blanks(7) + repeat(65, 'x') + " b"),
            blanks(7) + repeat(65, 'x') + "\n" + blanks(10) + " b\n");
}

TEST(FixedFormatLine, RunOfBlanksThatDoesNotFitMovesDownWhole) {
  EXPECT_EQ(layOut(blanks(7) + repeat(63, 'x') + blanks(5) + "b"),
            blanks(7) + repeat(63, 'x') + "\n" + blanks(10) + blanks(5) + "b\n");
}

TEST(FixedFormatLine, TabComesOutAsOneBlank) {
  EXPECT_EQ(layOut(blanks(7) + "a\tb \t c"), blanks(7) + "a b   c\n");
}

TEST(FixedFormatLine, LeadingTabCountsAsOneColumn) {
  EXPECT_EQ(layOut("\ta"), blanks(7) + "a\n");
  EXPECT_EQ(layOut(repeat(11, '\t') + "a"), blanks(11) + "a\n");
}

TEST(FixedFormatLine, TrailingBlanksAreLeftOut) {
  EXPECT_EQ(layOut(blanks(7) + "a.  \t"), blanks(7) + "a.\n");
}

TEST(FixedFormatLine, WrappedLinesAreIndentedByTheMargin) {
  EXPECT_EQ(layOut(blanks(11) + repeat(40, 'x') + " " + repeat(40, 'y') + " " + repeat(40, 'z')),
            blanks(11) + repeat(40, 'x') + " \n" + blanks(14) + repeat(40, 'y') + " \n" +
                blanks(14) + repeat(40, 'z') + "\n");
}

TEST(FixedFormatLine, LongEntryTakesFourLines) {
  std::string const name = "customer-reference-identifier";
  std::string const uri = "\"urn:example:orders:customer:reference:identifier:v1\"";
  std::string const first = blanks(11) + "05 " + name + " PIC X(80) identified by ";
  std::string const second = blanks(14) + "\"" + name + "\" namespace is ";
  std::string const third = blanks(14) + uri + " ";
  EXPECT_EQ(first.size(), 68U);
  EXPECT_EQ(second.size(), 59U);
  EXPECT_EQ(third.size(), 68U);
  EXPECT_EQ(
      layOut(blanks(11) + "05 " + name + " PIC X(80) identified by \"" + name + "\" namespace is " +
             uri + " count in " + name + "-count."),
      first + "\n" + second + "\n" + third + "\n" + blanks(14) + "count in " + name + "-count.\n");
}

TEST(FixedFormatComment, AsteriskIsInColumn7) {
  EXPECT_EQ(layOut(blanks(7) + "* text"), blanks(6) + "* text\n");
}

TEST(FixedFormatComment, AsteriskMovesRightWithTheMargin) {
  EXPECT_EQ(layOut(blanks(11) + "* text"), blanks(10) + "* text\n");
}

TEST(FixedFormatComment, WrappedLinesAreComments) {
  EXPECT_EQ(layOut(blanks(7) + "* " + repeat(40, 'x') + " " + repeat(30, 'y')),
            blanks(6) + "* " + repeat(40, 'x') + " \n      *   " + repeat(30, 'y') + "\n");
}

TEST(FixedFormatComment, WrappedLinesKeepTheMargin) {
  EXPECT_EQ(layOut(blanks(9) + "* " + repeat(40, 'x') + " " + repeat(30, 'y')),
            blanks(8) + "* " + repeat(40, 'x') + " \n      *     " + repeat(30, 'y') + "\n");
}

TEST(FixedFormatComment, LongTokenContinuesWithoutAHyphen) {
  EXPECT_EQ(
      layOut(blanks(7) + "* " + repeat(100, 'y')),
      blanks(6) + "* \n      *   " + repeat(62, 'y') + "\n      *   " + repeat(38, 'y') + "\n");
}

TEST(FixedFormatComment, NeedsAnAsteriskAsAToken) {
  EXPECT_EQ(layOut(blanks(7) + "*x y"), blanks(7) + "*x y\n");
  EXPECT_EQ(layOut(blanks(7) + "** y"), blanks(7) + "** y\n");
  EXPECT_EQ(layOut(blanks(7) + "x * y"), blanks(7) + "x * y\n");
}

class FixedFormatStream : public ConsoleTest {};

TEST_F(FixedFormatStream, FailedStreamIsReplacedByTheOutputStream) {
  for (auto state : {std::ios::failbit, std::ios::badbit}) {
    std::ostringstream stream;
    stream.setstate(state);
    OutputFixedFormatCOBOL("a", stream);
    EXPECT_EQ(stream.str(), "");
  }
  EXPECT_EQ(captured.out(), blanks(7) + "a\n" + blanks(7) + "a\n");
}

TEST_F(FixedFormatStream, GoodStreamReceivesTheLine) {
  EXPECT_EQ(layOut("a"), blanks(7) + "a\n");
  EXPECT_EQ(captured.out(), "");
}

TEST_F(FixedFormatStream, LineIsLostWhenTheOutputStreamHasFailedToo) {
  std::cout.setstate(std::ios::badbit);
  OutputFixedFormatCOBOL("a", std::cout);
  std::cout.clear();
  EXPECT_EQ(captured.out(), "");
}

TEST_F(FixedFormatStream, OutputStreamShowsTheBannerFirst) {
  console.headerShown = false;
  OutputFixedFormatCOBOL("a", std::cout);
  EXPECT_TRUE(console.headerShown);
  EXPECT_EQ(captured.out(),
            "Tallmere FDMORPH Version 1.0\n"
            "Converts between COBOL data definitions and XML Schema\n"
            "\n" +
                blanks(7) + "a\n");
}

TEST_F(FixedFormatStream, OtherStreamsShowNoBanner) {
  console.headerShown = false;
  EXPECT_EQ(layOut("a"), blanks(7) + "a\n");
  EXPECT_FALSE(console.headerShown);
}

TEST_F(FixedFormatStream, LinesAreNotCountedAsReports) {
  OutputFixedFormatCOBOL("Error : a", std::cout);
  OutputFixedFormatCOBOL("Warning : a", std::cout);
  EXPECT_EQ(reportStatus(), 0);
}

}  // namespace
}  // namespace fdmorph
