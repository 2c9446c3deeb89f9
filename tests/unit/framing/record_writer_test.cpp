// Records that are written.
#include "framing/record_writer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "framing/framed_file.h"

namespace fdmorph::framing {
namespace {

using namespace std::string_literals;
using ::testing::ElementsAre;

class RecordWriterTest : public ::testing::Test {
 protected:
  // The file of these records. Those that cannot be written are in `refused`.
  std::string write(std::vector<std::string> const& records, FramingRules const& rules) {
    OutputStream output;
    EXPECT_FALSE(output.open(folder.path("out")));
    RecordWriter writer(output, rules);
    refused.clear();
    for (std::size_t i = 0; i < records.size(); ++i) {
      WriteResult const result = writer.write(records[i]);
      if (result != WriteResult::written) refused.push_back({i, std::string(wordsOf(result))});
    }
    writer.finish();
    EXPECT_TRUE(output.commit());
    return folder.read("out");
  }

  TemporaryFolder folder;
  std::vector<std::pair<std::size_t, std::string>> refused;
};

constexpr char kTooLong[] = "the record is too long for its file";

TEST_F(RecordWriterTest, FixedRecordIsPaddedWithBlanks) {
  FramingRules rules = rulesOf(Format::fixed, 4);
  EXPECT_EQ(write({"ab", "cdef", ""}, rules), "ab  cdef    ");
  rules.blank = '\x40';
  rules.recordLength = 10'000;
  EXPECT_EQ(write({"ab"}, rules), "ab" + std::string(9'998, '\x40'));
  EXPECT_TRUE(refused.empty());
}

TEST_F(RecordWriterTest, LongFixedRecordIsRefused) {
  EXPECT_EQ(write({"abcde", "ab"}, rulesOf(Format::fixed, 4)), "ab  ");
  EXPECT_THAT(refused, ElementsAre(std::pair(0, kTooLong)));
}

TEST_F(RecordWriterTest, DescriptorsPrecedeRecords) {
  FramingRules rules = rulesOf(Format::rdw);
  EXPECT_EQ(write({"ab", ""}, rules), "\0\6\0\0ab\0\4\0\0"s);
  rules.isRdwLittle = true;
  EXPECT_EQ(write({"ab", ""}, rules), "\0\0\6\0ab\0\0\4\0"s);
  rules.isRdwExclusive = true;
  EXPECT_EQ(write({"ab", ""}, rules), "\0\0\2\0ab\0\0\0\0"s);
  rules.isRdwLittle = false;
  EXPECT_EQ(write({"ab", ""}, rules), "\0\2\0\0ab\0\0\0\0"s);
  EXPECT_EQ(write({"ab", ""}, rulesOf(Format::gnucobolVariable)), "\0\2\0\0ab\0\0\0\0"s);
}

// 65535 is the largest number of two bytes.
TEST_F(RecordWriterTest, RecordTooLongForADescriptorIsRefused) {
  std::string const longest(65535, 'x');
  EXPECT_EQ(write({longest, longest + "x"}, rulesOf(Format::gnucobolVariable)),
            "\xFF\xFF\0\0"s + longest);
  EXPECT_THAT(refused, ElementsAre(std::pair(1, kTooLong)));
  std::string const shorter(65531, 'x');
  EXPECT_EQ(write({longest, shorter}, rulesOf(Format::rdw)), "\xFF\xFF\0\0"s + shorter);
  EXPECT_THAT(refused, ElementsAre(std::pair(0, kTooLong)));
}

// A block of 16 bytes has 12 for records with their descriptors.
TEST_F(RecordWriterTest, BlocksAreFilledUpToTheByte) {
  FramingRules rules = rulesOf(Format::bdw);
  rules.blockSize = 16;
  EXPECT_EQ(write({"ab", "cd", "e"}, rules),
            "\0\20\0\0\0\6\0\0ab\0\6\0\0cd"
            "\0\11\0\0\0\5\0\0e"s);
  EXPECT_EQ(write({"ab", "cde"}, rules),
            "\0\12\0\0\0\6\0\0ab"
            "\0\13\0\0\0\7\0\0cde"s);
}

// The size of a block counts its descriptor, whether the descriptor does so or not.
TEST_F(RecordWriterTest, ExclusiveBlocksHaveTheSameSize) {
  FramingRules rules = rulesOf(Format::bdw);
  rules.isRdwExclusive = true;
  rules.blockSize = 16;
  EXPECT_EQ(write({"ab", "cd", "e"}, rules),
            "\0\14\0\0\0\2\0\0ab\0\2\0\0cd"
            "\0\5\0\0\0\1\0\0e"s);
}

TEST_F(RecordWriterTest, RecordLongerThanABlockIsAlone) {
  FramingRules rules = rulesOf(Format::bdw);
  rules.blockSize = 12;
  EXPECT_EQ(write({"a", "bcdefghij", "k"}, rules),
            "\0\11\0\0\0\5\0\0a"
            "\0\21\0\0\0\15\0\0bcdefghij"
            "\0\11\0\0\0\5\0\0k"s);
}

// Block descriptors go up to 32767, and count themselves and the record's.
TEST_F(RecordWriterTest, RecordTooLongForABlockIsRefused) {
  std::string const longest(32759, 'x');
  EXPECT_EQ(write({longest + "x", longest}, rulesOf(Format::bdw)),
            "\x7F\xFF\0\0\x7F\xFB\0\0"s + longest);
  EXPECT_THAT(refused, ElementsAre(std::pair(0, kTooLong)));
}

TEST_F(RecordWriterTest, LinesLoseTheirTrailingBlanks) {
  EXPECT_EQ(write({" ab  ", "   ", "", "c\t"}, rulesOf(Format::lines, 5)), " ab\n\n\nc\t\n");
}

TEST_F(RecordWriterTest, LineFeedInALineIsRefused) {
  EXPECT_EQ(write({"a\nb", "c", "\n"}, rulesOf(Format::lines, 5)), "c\n");
  EXPECT_THAT(refused, ElementsAre(std::pair(0, "the record has a line feed (x'0A') in it"),
                                   std::pair(2, "the record has a line feed (x'0A') in it")));
}

TEST_F(RecordWriterTest, NoRecordsAreAnEmptyFile) {
  for (Format each :
       {Format::fixed, Format::rdw, Format::bdw, Format::gnucobolVariable, Format::lines}) {
    EXPECT_EQ(write({}, rulesOf(each, 1)), "");
  }
}

// Records of random lengths come back, whatever the size of blocks and batches is.
TEST_F(RecordWriterTest, RandomRecordsComeBack) {
  std::mt19937 random(1);
  for (std::size_t run = 0; run < 100; ++run) {
    FramingRules rules = rulesOf(
        std::array{Format::rdw, Format::bdw, Format::gnucobolVariable, Format::lines}[run % 4]);
    rules.isRdwExclusive = random() % 2 == 0;
    rules.isRdwLittle = random() % 2 == 0;
    rules.blockSize = static_cast<std::uint32_t>(1 + random() % 300);
    std::vector<std::string> records(random() % 200);
    for (std::string& each : records) {
      each.resize(random() % (run % 8 < 4 ? 20 : 400));
      for (char& byte : each) byte = static_cast<char>('A' + random() % 26);
    }
    std::string const bytes = write(records, rules);
    ReadFile const found = readBytes(bytes, rules, {}, 1 + random() % 1000);
    EXPECT_EQ(found.records, records);
    EXPECT_FALSE(found.error) << summaryOf(found.error);
  }
}

// Rejected records keep their framing; blocks are made anew.
TEST_F(RecordWriterTest, RawRecordsAreAsTheyCame) {
  struct Copied {
    Format format;
    std::string bytes;
    std::string written;
  };
  std::vector<Copied> const files{
      {Format::fixed, "ab cd ", "ab cd "},
      {Format::rdw, "\0\6\0\0ab\0\4\0\0"s, "\0\6\0\0ab\0\4\0\0"s},
      {Format::gnucobolVariable, "\0\2\0\0ab"s, "\0\2\0\0ab"s},
      {Format::lines, "a \r\n\nb ", "a \r\n\nb "},
      {Format::bdw, "\0\12\0\0\0\6\0\0ab\0\11\0\0\0\5\0\0c"s, "\0\17\0\0\0\6\0\0ab\0\5\0\0c"s}};
  for (Copied const& each : files) {
    FramingRules const rules = rulesOf(each.format, 3);
    InputStream input;
    ASSERT_FALSE(input.open(folder.write("in", each.bytes)));
    RecordReader reader(input, rules);
    OutputStream output;
    ASSERT_FALSE(output.open(folder.path("out")));
    RecordWriter writer(output, rules);
    Batch batch;
    while (reader.next(batch)) {
      for (Frame const& frame : batch.frames) writer.writeRaw(batch, frame);
    }
    writer.finish();
    ASSERT_TRUE(output.commit());
    EXPECT_EQ(folder.read("out"), each.written);
  }
}

}  // namespace
}  // namespace fdmorph::framing
