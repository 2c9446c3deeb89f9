// Line ends, blocks and lost output.

#include <gtest/gtest.h>

#include <iostream>
#include <sstream>

#include "support/captured_console.h"
#include "text/console.h"

namespace fdmorph {
namespace {

/// Counts how often it is flushed.
class FlushCounter : public std::stringbuf {
 public:
  int flushes = 0;

 protected:
  int sync() override {
    ++flushes;
    return 0;
  }
};

/// Refuses everything, like a full disk.
class FullBuffer : public std::streambuf {};

class Lines : public ConsoleTest {};

TEST_F(Lines, ConsoleAndLogAreReadLineByLine) {
  EXPECT_TRUE(isLineByLine(captured.outBuffer()));
  EXPECT_TRUE(isLineByLine(captured.errBuffer()));
  EXPECT_TRUE(isLineByLine(console.logStream.rdbuf()));
}

TEST_F(Lines, FilesAreNotReadLineByLine) {
  std::stringbuf file;
  EXPECT_FALSE(isLineByLine(&file));
}

TEST_F(Lines, LineIsFlushedOnTheConsole) {
  FlushCounter buffer;
  console.consoleOut = &buffer;
  std::ostream stream(&buffer);
  endLine(stream);
  EXPECT_EQ(buffer.str(), "\n");
  EXPECT_EQ(buffer.flushes, 1);
}

TEST_F(Lines, LineWaitsForItsBlockInAFile) {
  FlushCounter buffer;
  std::ostream stream(&buffer);
  endLine(stream);
  EXPECT_EQ(buffer.str(), "\n");
  EXPECT_EQ(buffer.flushes, 0);
}

TEST_F(Lines, WriteFailureNamesTheFileAndCounts) {
  reportWriteFailure("out.cpy");
  EXPECT_EQ(captured.err(), "Error : Unable to write output file out.cpy\n");
  EXPECT_EQ(console.m_nErrorCount, 1);
}

TEST_F(Lines, FlushOfAGoodConsoleReportsNothing) {
  out() << "x";
  EXPECT_TRUE(flushConsole());
  EXPECT_EQ(captured.err(), "");
}

TEST_F(Lines, OutputThatTheDeviceRefusedIsReportedOnce) {
  FullBuffer full;
  std::cout.rdbuf(&full);
  out() << "a" << endLine;
  out() << "b" << endLine;
  EXPECT_FALSE(flushConsole());
  EXPECT_EQ(captured.err(), "Error : Unable to write output file standard output\n");
  EXPECT_EQ(console.m_nErrorCount, 1);
}

TEST_F(Lines, LostMessageIsAFailureWithoutAReport) {
  std::cerr.setstate(std::ios::badbit);
  EXPECT_FALSE(flushConsole());
  std::cerr.clear();
  EXPECT_EQ(captured.out() + captured.err(), "");
}

TEST_F(Lines, LossIsRememberedAfterARedirection) {
  FullBuffer full;
  std::cout.rdbuf(&full);
  console.consoleOut = &full;
  out() << "a";
  std::stringbuf file;
  std::streambuf* before = redirectOutput(&file);
  EXPECT_EQ(before, &full);
  out() << "b";
  redirectOutput(captured.outBuffer());
  EXPECT_FALSE(flushConsole());
}

TEST_F(Lines, SilencedOutputIsNotALoss) {
  beginQuietMode();
  out() << "x" << endLine;
  EXPECT_TRUE(flushConsole());
  EXPECT_EQ(captured.err(), "");
}

}  // namespace
}  // namespace fdmorph
