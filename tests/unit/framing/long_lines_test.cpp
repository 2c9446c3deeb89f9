// Lines that are longer than what is kept of them, and records longer than a batch.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "framing/framed_file.h"

namespace fdmorph::framing {
namespace {

using namespace std::string_literals;
using ::testing::ElementsAre;

constexpr std::size_t kLimit = kMinLineLimit;

TEST(LongLinesTest, LineUpToTheLimitIsWhole) {
  std::string const line(kLimit, 'x');
  ReadFile const found = readBytes(line + "\nb\n", rulesOf(Format::lines, 3));
  ASSERT_EQ(found.records.size(), 2U);
  EXPECT_TRUE(found.records[0] == line);
  EXPECT_THAT(found.areCut, ElementsAre(false, false));
}

TEST(LongLinesTest, OfALongerLineTheBeginningIsKept) {
  for (std::size_t size : {2 * kLimit, 3 * kLimit + 12'345}) {
    std::string const line(size, 'x');
    ReadFile const found = readBytes("a\n" + line + "\nb\n", rulesOf(Format::lines, 3));
    ASSERT_EQ(found.records.size(), 3U);
    EXPECT_TRUE(line.starts_with(found.records[1]));
    EXPECT_EQ(found.records[1].size(), kLimit + 1);
    EXPECT_EQ(found.records[2], "b");
    EXPECT_THAT(found.areCut, ElementsAre(false, true, false));
    EXPECT_THAT(found.offsets, ElementsAre(0, 2, 2 + size + 1));
    EXPECT_THAT(found.numbers, ElementsAre(1, 2, 3));
  }
}

TEST(LongLinesTest, BlanksAtTheEndAreNotMissed) {
  std::string const blanks(3 * kLimit, ' ');
  for (std::string const& end : {"\n"s, "\r\n"s, ""s}) {
    ReadFile const found = readBytes("a" + blanks + end, rulesOf(Format::lines, 3));
    ASSERT_EQ(found.records.size(), 1U);
    EXPECT_THAT(found.areCut, ElementsAre(false));
    EXPECT_EQ(found.records[0].find('\r'), std::string::npos);
  }
  EXPECT_THAT(readBytes("a" + blanks + "b\n", rulesOf(Format::lines, 3)).areCut, ElementsAre(true));
  EXPECT_THAT(readBytes("a" + blanks + "\r", rulesOf(Format::lines, 3)).areCut, ElementsAre(true));
  EXPECT_THAT(readBytes("a" + blanks + "\r\r\n", rulesOf(Format::lines, 3)).areCut,
              ElementsAre(true));
}

// A return and the line feed after it may come in different pieces: wherever the line
// is cut, the return is not text.
TEST(LongLinesTest, ReturnAndLineFeedMayComeApart) {
  constexpr std::size_t kPiece = 65536;  // bytes that are read at once of what is not kept
  FramingRules const rules = rulesOf(Format::lines, 3);
  for (std::size_t pieces : {0U, 1U, 2U}) {
    for (std::size_t shift : {0U, 1U, 2U}) {
      std::string const line = "a" + std::string(kLimit + pieces * kPiece - shift, ' ');
      ReadFile const found = readBytes(line + "\r\nb", rules);
      ASSERT_EQ(found.records.size(), 2U);
      EXPECT_EQ(found.records[0].find('\r'), std::string::npos);
      EXPECT_THAT(found.areCut, ElementsAre(false, false));
      EXPECT_EQ(found.records[1], "b");
      if (pieces == 0) continue;
      EXPECT_THAT(readBytes(line + "\rx\nb", rules).areCut, ElementsAre(true, false));
    }
  }
}

TEST(LongLinesTest, SkippedLineMayBeLong) {
  FramingRules rules = rulesOf(Format::lines, 3);
  rules.skip = 1;
  ReadFile const found = readBytes(std::string(5 * kLimit, 'x') + "\nb\nc", rules);
  EXPECT_THAT(found.records, ElementsAre("b", "c"));
  EXPECT_THAT(found.numbers, ElementsAre(2, 3));
}

TEST(LongLinesTest, LongRecordIsKeptWhole) {
  std::string const line(3 * kLimit, 'x');
  ReadFile const found = readBytes(line + "\nb\n", rulesOf(Format::lines, 3 * kLimit));
  ASSERT_EQ(found.records.size(), 2U);
  EXPECT_TRUE(found.records[0] == line);
}

TEST(LongRecordsTest, FixedRecordMayBeLongerThanABatch) {
  constexpr std::size_t kLength = 1'000'000;
  std::string const bytes = std::string(kLength, 'a') + std::string(kLength, 'b') + "c";
  ReadFile const found = readBytes(bytes, rulesOf(Format::fixed, kLength));
  ASSERT_EQ(found.records.size(), 2U);
  EXPECT_TRUE(found.records[0] + found.records[1] + "c" == bytes);
  EXPECT_EQ(summaryOf(found.error), "the file ends within a record @2000000 #3");
}

// The memory follows the file, not the length that is said.
TEST(LongRecordsTest, LengthBeyondAllMemoryIsAPartialRecord) {
  ReadFile const found = readBytes("abc", rulesOf(Format::fixed, UINT64_MAX));
  EXPECT_EQ(summaryOf(found.error), "the file ends within a record @0 #1");
}

TEST(LongRecordsTest, ManyRecordsOfABatchComeInOrder) {
  std::string const bytes(100'000, '\n');
  ReadFile const found = readBytes(bytes, rulesOf(Format::lines, 1));
  ASSERT_EQ(found.records.size(), 100'000U);
  EXPECT_EQ(found.numbers.back(), 100'000U);
  EXPECT_EQ(found.offsets.back(), 99'999U);
}

// As many records as a batch may have, in a block that goes on.
TEST(LongRecordsTest, FullBatchHidesNoFault) {
  std::string bytes;
  std::string const block = "\x7D\4\0\0"s;  // 32004 bytes
  for (int i = 0; i < 3; ++i) {
    bytes += block;
    for (int k = 0; k < 8000; ++k) bytes += "\0\4\0\0"s;
  }
  // 16384 records: two blocks of 8000, and 384 of the third.
  bytes.resize(2 * 32'004 + 4 + 384 * 4);
  ReadFile const found = readBytes(bytes, rulesOf(Format::bdw));
  EXPECT_EQ(found.records.size(), 16'384U);
  EXPECT_EQ(summaryOf(found.error),
            "the length in the descriptor goes beyond the end of the file @64008 #16385");
}

}  // namespace
}  // namespace fdmorph::framing
