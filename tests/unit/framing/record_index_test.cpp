// The index of a file.
#include "framing/record_index.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "framing/framed_file.h"

namespace fdmorph::framing {
namespace {

using namespace std::string_literals;

MadeIndex indexOf(std::string const& bytes, FramingRules const& rules, std::uint64_t step) {
  TemporaryFolder folder;
  InputStream input;
  EXPECT_FALSE(input.open(folder.write("data", bytes)));
  return indexFile(input, rules, step);
}

// Records of 6 bytes each: after 10 bytes the next one begins at 12.
TEST(RecordIndexTest, HasTheFirstRecordAfterEachStep) {
  std::string bytes;
  for (int i = 0; i < 5; ++i) bytes += "\0\6\0\0ab"s;
  EXPECT_EQ(indexOf(bytes, rulesOf(Format::rdw), 10).index.text(),
            "fdrec-index 1 format=rdw rdw=inclusive,big header=0 trailer=0\n"
            "records 5\n"
            "end 30\n"
            "1 0\n"
            "3 12\n"
            "5 24\n");
}

// Three blocks of 14 bytes with two records each.
TEST(RecordIndexTest, HasTheOffsetsOfBlocks) {
  FramingRules rules = rulesOf(Format::bdw);
  rules.isRdwExclusive = true;
  rules.isRdwLittle = true;
  rules.header = 1;
  rules.trailer = 2;
  std::string bytes = "H";
  for (int i = 0; i < 3; ++i) bytes += "\0\0\12\0\0\0\1\0a\0\0\1\0b"s;
  EXPECT_EQ(indexOf(bytes + "TT", rules, 10).index.text(),
            "fdrec-index 1 format=bdw rdw=exclusive,little header=1 trailer=2\n"
            "records 6\n"
            "end 43\n"
            "1 1\n"
            "3 15\n"
            "5 29\n");
}

// Blocks without records belong to the next block with one, or to nothing.
TEST(RecordIndexTest, HasNoEntriesForEmptyBlocks) {
  std::string const empty = "\0\4\0\0"s;
  std::string const block = "\0\11\0\0\0\5\0\0a"s;
  std::string const head = "fdrec-index 1 format=bdw rdw=inclusive,big header=0 trailer=0\n";
  EXPECT_EQ(indexOf(empty + empty, rulesOf(Format::bdw), 1).index.text(),
            head + "records 0\nend 8\n");
  EXPECT_EQ(indexOf(empty + block + empty + block + empty, rulesOf(Format::bdw), 1).index.text(),
            head + "records 2\nend 30\n1 0\n2 13\n");
}

TEST(RecordIndexTest, HasTheOffsetsOfLines) {
  EXPECT_EQ(indexOf("one\r\ntwo\n\nfour", rulesOf(Format::lines, 5), 6).index.text(),
            "fdrec-index 1 format=lines header=0 trailer=0\n"
            "records 4\n"
            "end 14\n"
            "1 0\n"
            "3 9\n");
}

TEST(RecordIndexTest, HasTheLengthOfFixedRecords) {
  EXPECT_EQ(indexOf("aaabbbcccdddeee", rulesOf(Format::fixed, 3), 5).index.text(),
            "fdrec-index 1 format=fixed length=3 header=0 trailer=0\n"
            "records 5\n"
            "end 15\n"
            "1 0\n"
            "3 6\n"
            "5 12\n");
}

TEST(RecordIndexTest, EmptyFileHasNoEntries) {
  EXPECT_EQ(indexOf("", rulesOf(Format::gnucobolVariable), 5).index.text(),
            "fdrec-index 1 format=gnucobol-variable header=0 trailer=0\n"
            "records 0\n"
            "end 0\n");
}

TEST(RecordIndexTest, SkipAndLimitDoNotCount) {
  FramingRules rules = rulesOf(Format::lines, 1);
  rules.skip = 1;
  rules.limit = 1;
  EXPECT_EQ(indexOf("a\nb\nc\n", rules, 100).index.records, 3U);
}

// Each fault is the one that the reader tells.
TEST(RecordIndexTest, FaultsAreThoseOfTheReader) {
  struct Faulty {
    Format format;
    std::string bytes;
  };
  std::string const block = "\0\17\0\0\0\6\0\0ab\0\5\0\0c"s;
  std::vector<Faulty> const files{{Format::fixed, "aaabb"},
                                  {Format::rdw, "\0\4\0\0\0\3\0\0"s},
                                  {Format::rdw, "\0\4\0\0\0\4\0\1"s},
                                  {Format::rdw, "\0\4\0\0\0\7\0\0ab"s},
                                  {Format::rdw, "\0\4\0\0\x7F\0\0\0ab"s},
                                  {Format::rdw, "\0\4\0\0\0"s},
                                  {Format::bdw, "\x80\0\0\0"s},
                                  {Format::bdw, block.substr(0, 10)},
                                  {Format::bdw, block.substr(0, 12)},
                                  {Format::bdw, block.substr(0, 14)},
                                  {Format::bdw, block.substr(0, 4)},
                                  {Format::bdw, "\0\14\0\0\0\6\0\0ab\1\2"s},
                                  {Format::bdw, "\0\12\0\0\0\7\0\0abc"s}};
  for (Faulty const& each : files) {
    FramingRules const rules = rulesOf(each.format, 3);
    std::optional<FrameError> const expected = readBytes(each.bytes, rules).error;
    std::optional<FrameError> const found = indexOf(each.bytes, rules, 100).error;
    ASSERT_TRUE(expected);
    EXPECT_EQ(summaryOf(found), summaryOf(expected));
    EXPECT_EQ(found.value_or(FrameError{}).found, expected->found);
  }
}

TEST(RecordIndexTest, FileShorterThanItsHeaderIsTold) {
  for (Format each : {Format::fixed, Format::rdw, Format::lines}) {
    FramingRules rules = rulesOf(each, 1);
    rules.header = 4;
    EXPECT_EQ(summaryOf(indexOf("abc", rules, 100).error),
              "the file is shorter than its header and trailer @0 #1");
  }
}

// The file has a hole of 64 GB, which takes a minute to read.
TEST(RecordIndexTest, DataAreNotRead) {
  constexpr std::uint64_t kRecords = std::uint64_t{1} << 20;
  constexpr std::uint64_t kLength = 65536;
  TemporaryFolder folder;
  std::string const path = folder.write("data", "");
  std::filesystem::resize_file(path, kRecords * kLength);
  InputStream input;
  ASSERT_FALSE(input.open(path));
  MadeIndex const made = indexFile(input, rulesOf(Format::fixed, kLength));
  EXPECT_EQ(made.index.records, kRecords);
  EXPECT_EQ(made.index.entries.size(), kRecords * kLength / kIndexStep);
  EXPECT_FALSE(made.error);
}

// Descriptors that are far apart, between holes.
TEST(RecordIndexTest, LongRecordsArePassedOver) {
  constexpr std::size_t kRecords = 100;
  constexpr std::size_t kLength = 32768;
  TemporaryFolder folder;
  std::string const path = folder.path("data");
  std::ofstream file(path, std::ios::binary);
  for (std::size_t i = 0; i < kRecords; ++i) {
    file.seekp(static_cast<std::streamoff>(i * kLength));
    file.write("\x80\0\0\0", 4);
  }
  file.close();
  std::filesystem::resize_file(path, kRecords * kLength);
  InputStream input;
  ASSERT_FALSE(input.open(path));
  MadeIndex const made = indexFile(input, rulesOf(Format::rdw), 10 * kLength);
  EXPECT_EQ(made.index.records, kRecords);
  EXPECT_EQ(made.index.end, kRecords * kLength);
  ASSERT_EQ(made.index.entries.size(), 10U);
  EXPECT_EQ(made.index.entries[9], (RecordIndex::Entry{91, 90 * kLength}));
}

TEST(ParseIndexTest, ReadsWhatIsWritten) {
  FramingRules const rules = rulesOf(Format::lines, 3);
  MadeIndex const made = indexOf("one\ntwo\nsix\n", rules, 4);
  ParsedIndex const parsed = parseIndex(made.index.text(), rules);
  EXPECT_FALSE(parsed.fault);
  EXPECT_EQ(parsed.index.entries, made.index.entries);
  EXPECT_EQ(parsed.index.records, 3U);
  EXPECT_EQ(parsed.index.end, 12U);
  EXPECT_EQ(parsed.index.text(), made.index.text());
}

TEST(ParseIndexTest, IndexOfOtherOptionsIsRefused) {
  FramingRules rules = rulesOf(Format::rdw);
  std::string const text = indexOf("\0\4\0\0"s, rules, 4).index.text();
  rules.isRdwExclusive = true;
  EXPECT_EQ(parseIndex(text, rules).fault.value_or(""),
            "it is for format=rdw rdw=inclusive,big header=0 trailer=0, "
            "not for format=rdw rdw=exclusive,big header=0 trailer=0");
}

TEST(ParseIndexTest, OtherTextsAreRefused) {
  FramingRules const rules = rulesOf(Format::lines, 3);
  std::string const head = "fdrec-index 1 format=lines header=0 trailer=0\n";
  std::vector<std::string> const wrong{
      "",
      "index",
      "fdrec-index 2 format=lines header=0 trailer=0\nrecords 0\nend 0\n",
      head,
      head + "records 1\n",
      head + "records 1\nend 4\n",                  // no place of the record
      head + "records 0\nend 4\n1 0\n",             // a place of none
      head + "records 2\nend 8\n1 0\n2 4",          // cut
      head + "records 2\nend 8\n1 0\n2\n",          // no offset
      head + "records 2\nend 8\n1 0\n2 x\n",        // no number
      head + "records 2\nend 8\n1 0\n2 4 \n",       // a blank too many
      head + "records 2\nend 8\n1 1\n2 4\n",        // not from the beginning
      head + "records 2\nend 8\n1 0\n2 8\n",        // beyond the end
      head + "records 2\nend 8\n1 0\n3 4\n",        // beyond the last record
      head + "records 3\nend 12\n1 0\n3 8\n2 4\n",  // backwards
      head + "records 3\nend 12\n1 0\n2 4\n2 8\n",  // no record between
      head + "records 2\nend 99999999999999999999\n1 0\n",
  };
  for (std::string const& each : wrong) {
    EXPECT_EQ(parseIndex(each, rules).fault.value_or(""), "it is not an index of records") << each;
  }
}

}  // namespace
}  // namespace fdmorph::framing
