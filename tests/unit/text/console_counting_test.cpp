// What the counting inserter counts: pieces by their heads.

#include <gtest/gtest.h>

#include <iostream>
#include <sstream>

#include "support/captured_console.h"
#include "text/console.h"

namespace fdmorph {
namespace {

using namespace std::string_view_literals;

class Counting : public ConsoleTest {
 protected:
  static int errors() { return console.m_nErrorCount; }
  static int warnings() { return console.m_nWarningCount; }
};

TEST_F(Counting, ErrorOnTheOutputStreamCounts) {
  out() << "Error : Source filename not specified";
  EXPECT_EQ(errors(), 1);
  EXPECT_EQ(warnings(), 0);
  EXPECT_EQ(captured.out(), "Error : Source filename not specified");
}

TEST_F(Counting, ErrorOnTheErrorStreamCounts) {
  err() << "Error : x";
  EXPECT_EQ(errors(), 1);
  EXPECT_EQ(captured.err(), "Error : x");
  EXPECT_EQ(captured.out(), "");
}

TEST_F(Counting, InternalErrorCountsAsOneError) {
  err() << "Internal Error : x";
  EXPECT_EQ(errors(), 1);
  EXPECT_EQ(warnings(), 0);
}

TEST_F(Counting, WarningCountsAsAWarning) {
  out() << "Warning : x";
  EXPECT_EQ(errors(), 0);
  EXPECT_EQ(warnings(), 1);
}

TEST_F(Counting, HeadsCountInAnyCase) {
  out() << "ERROR : x";
  out() << "internal error : x";
  out() << "wARNING : x";
  EXPECT_EQ(errors(), 2);
  EXPECT_EQ(warnings(), 1);
}

TEST_F(Counting, HeadAloneCounts) {
  out() << "Error :";
  out() << "Internal Error :";
  out() << "Warning :";
  EXPECT_EQ(errors(), 2);
  EXPECT_EQ(warnings(), 1);
}

TEST_F(Counting, BlankAndColonBelongToTheHead) {
  for (char const* text : {"Errors found", "Error", "Error ", "Error: x", "Error  : x", "Warning",
                           "Warnings : 2", "Warning: x", "Internal Error", ""}) {
    out() << text;
  }
  EXPECT_EQ(errors(), 0);
  EXPECT_EQ(warnings(), 0);
}

TEST_F(Counting, OnlyTheHeadOfAPieceCounts) {
  out() << "Fatal Error : x";
  out() << " Error : x";
  out() << "An Internal Error : x, a Warning : y";
  EXPECT_EQ(errors(), 0);
  EXPECT_EQ(warnings(), 0);
}

TEST_F(Counting, PieceWithSeveralHeadsCountsOnce) {
  out() << "Warning : Whitespace facet encountered Warning : Whitespace facet encountered";
  EXPECT_EQ(warnings(), 1);
}

TEST_F(Counting, LaterPieceOfALineCountsAsWell) {
  out() << "Error : a, "
        << "Error : b, "
        << "Warning : c";
  EXPECT_EQ(errors(), 2);
  EXPECT_EQ(warnings(), 1);
}

TEST_F(Counting, StringsAndNumbersAreNotCounted) {
  out() << "Error : x"sv << 17LL;
  EXPECT_EQ(errors(), 0);
  EXPECT_EQ(captured.out(), "Error : x17");
}

TEST_F(Counting, OtherStreamsCountNothing) {
  std::ostringstream other;
  insertCounted(other, "Error : x");
  EXPECT_EQ(other.str(), "Error : x");
  EXPECT_EQ(errors(), 0);
}

TEST_F(Counting, SilencedOutputIsNeitherShownNorCounted) {
  beginQuietMode();
  out() << "Error : x";
  out() << "Warning : x";
  EXPECT_EQ(errors(), 0);
  EXPECT_EQ(warnings(), 0);
  RestoreStreams();
  EXPECT_EQ(captured.out(), "");
}

TEST_F(Counting, ErrorStreamStillCountsWhenOutputIsSilenced) {
  beginQuietMode();
  err() << "Error : x";
  EXPECT_EQ(errors(), 1);
  EXPECT_EQ(captured.err(), "Error : x");
}

TEST_F(Counting, OutputAimedAtAFileStillCounts) {
  std::stringbuf file;
  redirectOutput(&file);
  out() << "Error : x";
  EXPECT_EQ(errors(), 1);
  EXPECT_EQ(file.str(), "Error : x");
}

TEST_F(Counting, StatusIsErrorsPlusWarnings) {
  out() << "Error : a";
  out() << "Warning : b";
  out() << "Warning : c";
  EXPECT_EQ(reportStatus(), 3);
}

TEST_F(Counting, StatusOfACleanRunIsZero) {
  EXPECT_EQ(reportStatus(), 0);
}

TEST_F(Counting, StatusIsAtMost255) {
  console.m_nErrorCount = 200;
  console.m_nWarningCount = 55;
  EXPECT_EQ(reportStatus(), 255);
  console.m_nWarningCount = 56;
  EXPECT_EQ(reportStatus(), 255);
  console.m_nErrorCount = 512;
  console.m_nWarningCount = 0;
  EXPECT_EQ(reportStatus(), 255);
}

}  // namespace
}  // namespace fdmorph
