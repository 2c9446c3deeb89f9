// The progress line.
#include "framing/progress.h"

#include <gtest/gtest.h>

namespace fdmorph::framing {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

TEST(ProgressLineTest, HasBytesRecordsRateAndTimeLeft) {
  EXPECT_EQ(progressLine({12'500'000, 50'000'000, 1000, seconds(5)}),
            "12.5 MB of 50.0 MB, 1000 records, 2.5 MB/s, 0:15 left");
}

TEST(ProgressLineTest, WhatIsNotKnownIsLeftOut) {
  EXPECT_EQ(progressLine({12'500'000, std::nullopt, 1, seconds(5)}), "12.5 MB, 1 record, 2.5 MB/s");
  EXPECT_EQ(progressLine({0, 50'000'000, 0, seconds(5)}), "0.0 MB of 50.0 MB, 0 records, 0.0 MB/s");
  EXPECT_EQ(progressLine({1'000'000, 50'000'000, 7, seconds(0)}), "1.0 MB of 50.0 MB, 7 records");
  // A file that has grown has no end to wait for.
  EXPECT_EQ(progressLine({60'000'000, 50'000'000, 7, seconds(1)}),
            "60.0 MB of 50.0 MB, 7 records, 60.0 MB/s");
}

TEST(ProgressLineTest, LargeNumbersStayShort) {
  EXPECT_EQ(progressLine({10'000'000'000, 100'000'000'000, 5, seconds(1000)}),
            "10.0 GB of 100.0 GB, 5 records, 10.0 MB/s, 2:30:00 left");
  EXPECT_EQ(progressLine({1, UINT64_MAX, 5, seconds(1000)}),
            "0.0 MB of 18446744073.7 GB, 5 records, 0.0 MB/s");
}

class ProgressTest : public ::testing::Test {
 protected:
  Progress make(bool isTerminal) {
    return Progress({isTerminal, [this](std::string_view text) { printed += text; },
                     [this]() -> Progress::Duration { return now; }},
                    100'000'000);
  }

  std::string printed;
  Progress::Duration now = seconds(1000);
};

TEST_F(ProgressTest, FirstLineAppearsAfterASecond) {
  Progress progress = make(true);
  now += milliseconds(999);
  progress.update(1'000'000, 1);
  EXPECT_EQ(printed, "");
  now += milliseconds(1);
  progress.update(2'000'000, 2);
  EXPECT_EQ(printed, "\r\x1b[Kfdrec: 2.0 MB of 100.0 MB, 2 records, 2.0 MB/s, 0:49 left");
}

TEST_F(ProgressTest, LineOfATerminalIsWrittenOver) {
  Progress progress = make(true);
  now += seconds(1);
  progress.update(2'000'000, 2);
  printed.clear();
  now += milliseconds(199);
  progress.update(3'000'000, 3);
  EXPECT_EQ(printed, "");
  now += milliseconds(801);
  progress.update(4'000'000, 4);
  EXPECT_EQ(printed, "\r\x1b[Kfdrec: 4.0 MB of 100.0 MB, 4 records, 2.0 MB/s, 0:48 left");
  printed.clear();
  now += seconds(2);
  progress.update(100'000'000, 5);
  progress.finish();
  std::string const last = "\r\x1b[Kfdrec: 100.0 MB of 100.0 MB, 5 records, 25.0 MB/s, 0:00 left";
  EXPECT_EQ(printed, last + last + "\n");
}

TEST_F(ProgressTest, MessageDoesNotStandOnTheLine) {
  Progress progress = make(true);
  progress.hide();
  EXPECT_EQ(printed, "");
  now += seconds(1);
  progress.update(2'000'000, 2);
  printed.clear();
  progress.hide();
  EXPECT_EQ(printed, "\r\x1b[K");
  progress.hide();
  EXPECT_EQ(printed, "\r\x1b[K");
}

TEST_F(ProgressTest, ShortRunOnATerminalHasNoLine) {
  Progress progress = make(true);
  progress.update(100'000'000, 5);
  progress.finish();
  EXPECT_EQ(printed, "");
}

TEST_F(ProgressTest, ElsewhereLinesFollowOneAnother) {
  Progress progress = make(false);
  now += seconds(1);
  progress.update(50'000'000, 2);
  now += milliseconds(999);
  progress.update(60'000'000, 3);
  progress.hide();
  now += milliseconds(3001);
  progress.update(100'000'000, 4);
  EXPECT_EQ(printed,
            "fdrec: 50.0 MB of 100.0 MB, 2 records, 50.0 MB/s, 0:01 left\n"
            "fdrec: 100.0 MB of 100.0 MB, 4 records, 20.0 MB/s, 0:00 left\n");
  printed.clear();
  progress.finish();
  EXPECT_EQ(printed, "fdrec: 100.0 MB of 100.0 MB, 4 records, 20.0 MB/s, 0:00 left\n");
}

}  // namespace
}  // namespace fdmorph::framing
