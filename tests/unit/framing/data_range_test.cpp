// Headers, trailers, and the records that are left out.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <thread>

#include "framing/framed_file.h"

namespace fdmorph::framing {
namespace {

using namespace std::string_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Reads the bytes through a pipe, whose size nobody knows.
ReadFile readPipe(std::string const& bytes, FramingRules const& rules) {
  std::array<int, 2> ends{};
  EXPECT_EQ(pipe(ends.data()), 0);
  std::thread writer([&] {
    EXPECT_EQ(write(ends[1], bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    close(ends[1]);
  });
  InputStream input;
  EXPECT_FALSE(input.open("/dev/fd/" + std::to_string(ends[0])));
  EXPECT_FALSE(input.end());
  ReadFile found = readAll(input, rules);
  writer.join();
  close(ends[0]);
  return found;
}

// What a file and a pipe with these bytes both have.
ReadFile readBoth(std::string const& bytes, FramingRules const& rules) {
  ReadFile file = readBytes(bytes, rules);
  ReadFile const pipe = readPipe(bytes, rules);
  EXPECT_EQ(file.records, pipe.records);
  EXPECT_EQ(file.numbers, pipe.numbers);
  EXPECT_EQ(file.offsets, pipe.offsets);
  EXPECT_EQ(summaryOf(file.error), summaryOf(pipe.error));
  return file;
}

TEST(DataRangeTest, HeaderAndTrailerAreLeftOut) {
  FramingRules rules = rulesOf(Format::fixed, 2);
  rules.header = 3;
  rules.trailer = 1;
  ReadFile const found = readBoth("HHHaabbT", rules);
  EXPECT_THAT(found.records, ElementsAre("aa", "bb"));
  EXPECT_THAT(found.offsets, ElementsAre(3, 5));
  EXPECT_FALSE(found.error);
}

TEST(DataRangeTest, PartialRecordBeforeATrailerIsTold) {
  FramingRules rules = rulesOf(Format::fixed, 2);
  rules.trailer = 3;
  ReadFile const found = readBoth("aabTTT", rules);
  EXPECT_THAT(found.records, ElementsAre("aa"));
  EXPECT_EQ(summaryOf(found.error), "the file ends within a record @2 #2");
}

TEST(DataRangeTest, NothingBetweenHeaderAndTrailerIsNoRecords) {
  FramingRules rules = rulesOf(Format::rdw);
  rules.header = 2;
  rules.trailer = 3;
  ReadFile const found = readBoth("HHTTT", rules);
  EXPECT_THAT(found.records, IsEmpty());
  EXPECT_FALSE(found.error);
}

TEST(DataRangeTest, FileShorterThanHeaderAndTrailerIsTold) {
  FramingRules rules = rulesOf(Format::fixed, 1);
  rules.header = 2;
  rules.trailer = 3;
  std::string const expected = "the file is shorter than its header and trailer @0 #1";
  for (std::string const& bytes : {"HHTT"s, "HHT"s, "HH"s, "H"s}) {
    EXPECT_EQ(summaryOf(readBoth(bytes, rules).error), expected) << bytes;
  }
  EXPECT_FALSE(readBoth("", rules).error);
  rules.trailer = 0;
  EXPECT_EQ(summaryOf(readBoth("H", rules).error), expected);
}

TEST(DataRangeTest, TrailerMayBeLongerThanAnyBlockThatIsRead) {
  FramingRules rules = rulesOf(Format::fixed, 10);
  rules.trailer = 1'000'000;
  std::string const data(700'000, 'd');
  ReadFile const found = readBoth(data + std::string(1'000'000, 't'), rules);
  ASSERT_EQ(found.records.size(), 70'000U);
  for (std::string const& each : found.records) ASSERT_EQ(each, "dddddddddd");
}

struct Framed {
  FramingRules rules;
  std::string bytes;
};

// Records "1" to "6" in each format.
std::vector<Framed> sixRecords() {
  std::string fixed, described, exclusive, lines;
  for (char digit = '1'; digit <= '6'; ++digit) {
    fixed += digit;
    described += "\0\5\0\0"s + digit;
    exclusive += "\0\1\0\0"s + digit;
    lines += digit + "\n"s;
  }
  std::string const blocks =
      "\0\16\0\0"s + described.substr(0, 10) + "\0\30\0\0"s + described.substr(10, 20);
  return {{rulesOf(Format::fixed, 1), fixed},
          {rulesOf(Format::rdw), described},
          {rulesOf(Format::bdw), blocks},
          {rulesOf(Format::gnucobolVariable), exclusive},
          {rulesOf(Format::lines, 1), lines}};
}

TEST(DataRangeTest, SkipAndLimitCountRecords) {
  for (Framed each : sixRecords()) {
    each.rules.skip = 2;
    EXPECT_THAT(readBoth(each.bytes, each.rules).records, ElementsAre("3", "4", "5", "6"));
    each.rules.limit = 3;
    ReadFile const found = readBoth(each.bytes, each.rules);
    EXPECT_THAT(found.records, ElementsAre("3", "4", "5"));
    EXPECT_THAT(found.numbers, ElementsAre(3, 4, 5));
    each.rules.limit = 0;
    EXPECT_THAT(readBoth(each.bytes, each.rules).records, IsEmpty());
    each.rules.limit = UINT64_MAX;
    each.rules.skip = 6;
    EXPECT_THAT(readBoth(each.bytes, each.rules).records, IsEmpty());
    each.rules.skip = UINT64_MAX;
    ReadFile const none = readBoth(each.bytes, each.rules);
    EXPECT_THAT(none.records, IsEmpty());
    EXPECT_FALSE(none.error);
  }
}

// What follows the last wanted record is not looked at.
TEST(DataRangeTest, LimitEndsTheRunBeforeAFault) {
  FramingRules rules = rulesOf(Format::fixed, 2);
  rules.limit = 1;
  EXPECT_FALSE(readBoth("aab", rules).error);
  rules.limit = 2;
  EXPECT_EQ(summaryOf(readBoth("aab", rules).error), "the file ends within a record @2 #2");
}

TEST(DataRangeTest, FaultAmongSkippedRecordsIsTold) {
  FramingRules rules = rulesOf(Format::fixed, 2);
  rules.skip = 9;
  EXPECT_EQ(summaryOf(readBoth("aabbc", rules).error), "the file ends within a record @4 #3");
  FramingRules described = rulesOf(Format::rdw);
  described.skip = 9;
  EXPECT_EQ(summaryOf(readBoth("\0\4\0\0\0\3\0\0"s, described).error),
            "the length in the descriptor is less than its own 4 bytes @4 #2");
}

}  // namespace
}  // namespace fdmorph::framing
