// A run that reports very much: all messages count, the first ones are written.

#include <gtest/gtest.h>

#include <iostream>
#include <limits>
#include <sstream>

#include "support/captured_console.h"
#include "text/console.h"

namespace fdmorph {
namespace {

constexpr char kNotice[] = "Warning : Further messages are counted but not shown\n";

class Flood : public ConsoleTest {
 protected:
  Flood() { console.maxShownMessages = 3; }

  static void report(int messages) {
    for (int i = 0; i < messages; ++i) err() << "Error : item " << i << endLine;
  }
};

TEST_F(Flood, MessagesBelowTheLimitAreWritten) {
  report(2);
  EXPECT_EQ(captured.err(), "Error : item 0\nError : item 1\n");
  EXPECT_EQ(console.m_nErrorCount, 2);
  EXPECT_EQ(console.m_nWarningCount, 0);
}

TEST_F(Flood, MessagesUpToTheLimitAreWritten) {
  report(3);
  EXPECT_EQ(captured.err(), "Error : item 0\nError : item 1\nError : item 2\n");
  EXPECT_EQ(console.m_nWarningCount, 0);
}

TEST_F(Flood, OneLineStandsForTheMessagesAboveTheLimit) {
  report(5);
  EXPECT_EQ(captured.err(),
            std::string("Error : item 0\nError : item 1\nError : item 2\n") + kNotice);
}

TEST_F(Flood, HiddenMessagesCountAndTheNoticeIsAWarning) {
  report(5);
  EXPECT_EQ(console.m_nErrorCount, 5);
  EXPECT_EQ(console.m_nWarningCount, 1);
  EXPECT_EQ(reportStatus(), 6);
}

TEST_F(Flood, ErrorsAndWarningsOfBothStreamsShareTheLimit) {
  out() << "Warning : a" << endLine;
  err() << "Internal Error : b" << endLine;
  out() << "Error : c" << endLine;
  out() << "Warning : d" << endLine;
  EXPECT_EQ(captured.out(), "Warning : a\nError : c\n");
  EXPECT_EQ(captured.err(), std::string("Internal Error : b\n") + kNotice);
  EXPECT_EQ(console.m_nErrorCount, 2);
  EXPECT_EQ(console.m_nWarningCount, 3);
}

TEST_F(Flood, EveryPieceOfAHiddenMessageIsDropped) {
  report(3);
  std::string before = captured.err();
  {
    Message message = err();
    message << "Error : x" << std::string_view(" y ") << 7 << endLine;
    message << "more" << endLine;
  }
  EXPECT_EQ(captured.err(), before + kNotice);
}

TEST_F(Flood, StatusLinesAreWritten) {
  report(4);
  std::string before = captured.err();
  err() << "Successfully converted " << 1 << " of " << 2 << endLine;
  out() << "Checking" << endLine;
  EXPECT_EQ(captured.err(), before + "Successfully converted 1 of 2\n");
  EXPECT_EQ(captured.out(), "Checking\n");
}

TEST_F(Flood, LinesThatEndAPartOfTheRunAreWritten) {
  report(4);
  std::string before = captured.err();
  err(Shown::always) << "Error : Record of a exceeds " << 5 << " items" << endLine;
  EXPECT_EQ(captured.err(), before + "Error : Record of a exceeds 5 items\n");
  EXPECT_EQ(console.m_nErrorCount, 5);
}

TEST_F(Flood, SuchALineCanBeTheFirstAboveTheLimit) {
  report(3);
  std::string before = captured.err();
  err(Shown::always) << "Error : x" << endLine;
  EXPECT_EQ(captured.err(), before + kNotice + "Error : x\n");
}

// The text counts, as any text does, but it belongs to the output.
TEST_F(Flood, TextOfAnOutputFileIsWritten) {
  report(4);
  std::stringbuf file;
  std::streambuf* saved = redirectOutput(&file);
  out() << "Error : x" << endLine;
  redirectOutput(saved);
  EXPECT_EQ(file.str(), "Error : x\n");
}

TEST_F(Flood, SilencedMessagesNeitherCountNorShow) {
  beginQuietMode();
  for (int i = 0; i < 9; ++i) out() << "Error : x" << endLine;
  EXPECT_EQ(captured.err(), "");
  EXPECT_EQ(console.m_nErrorCount, 0);
}

TEST_F(Flood, CountsStayAtTheirLargestValue) {
  console.m_nErrorCount = std::numeric_limits<int>::max();
  console.m_nWarningCount = std::numeric_limits<int>::max();
  report(1);
  EXPECT_EQ(console.m_nErrorCount, std::numeric_limits<int>::max());
  EXPECT_EQ(reportStatus(), 255);
}

TEST_F(Flood, FiveMillionMessagesAreWrittenByDefault) {
  EXPECT_EQ(kMaxShownMessages, 5'000'000);
}

}  // namespace
}  // namespace fdmorph
