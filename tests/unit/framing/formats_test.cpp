// A file of each format, and each fault in it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "framing/framed_file.h"

namespace fdmorph::framing {
namespace {

using namespace std::string_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(FixedFormatTest, RecordsFollowOneAnother) {
  ReadFile const found = readBytes("aaabbbccc", rulesOf(Format::fixed, 3));
  EXPECT_THAT(found.records, ElementsAre("aaa", "bbb", "ccc"));
  EXPECT_THAT(found.offsets, ElementsAre(0, 3, 6));
  EXPECT_THAT(found.numbers, ElementsAre(1, 2, 3));
  EXPECT_THAT(found.raw, ElementsAre("aaa", "bbb", "ccc"));
  EXPECT_FALSE(found.error);
}

TEST(FixedFormatTest, PartialRecordAtTheEndIsTold) {
  ReadFile const found = readBytes("aaabb", rulesOf(Format::fixed, 3));
  EXPECT_THAT(found.records, ElementsAre("aaa"));
  EXPECT_EQ(summaryOf(found.error), "the file ends within a record @3 #2");
  EXPECT_EQ(found.error->found, "bb");
}

TEST(FixedFormatTest, AtMost16BytesAreShown) {
  ReadFile const whole = readBytes("0123456789ABCDEF", rulesOf(Format::fixed, 20));
  EXPECT_EQ(whole.error->found, "0123456789ABCDEF");
  EXPECT_FALSE(whole.error->isFoundCut);
  ReadFile const cut = readBytes("0123456789ABCDEFG", rulesOf(Format::fixed, 20));
  EXPECT_EQ(cut.error->found, "0123456789ABCDEF");
  EXPECT_TRUE(cut.error->isFoundCut);
}

TEST(FixedFormatTest, RecordsOfNoBytesCannotBeTold) {
  EXPECT_EQ(summaryOf(readBytes("a", rulesOf(Format::fixed, 0)).error),
            "records of 0 bytes cannot be told apart @0 #1");
  EXPECT_FALSE(readBytes("", rulesOf(Format::fixed, 0)).error);
}

TEST(RdwFormatTest, DescriptorCountsItself) {
  ReadFile const found = readBytes("\0\6\0\0ab\0\4\0\0\0\5\0\0c"s, rulesOf(Format::rdw));
  EXPECT_THAT(found.records, ElementsAre("ab", "", "c"));
  EXPECT_THAT(found.offsets, ElementsAre(4, 10, 14));
  EXPECT_THAT(found.raw, ElementsAre("\0\6\0\0ab"s, "\0\4\0\0"s, "\0\5\0\0c"s));
  EXPECT_FALSE(found.error);
}

TEST(RdwFormatTest, ExclusiveDescriptorDoesNotCountItself) {
  FramingRules rules = rulesOf(Format::rdw);
  rules.isRdwExclusive = true;
  EXPECT_THAT(readBytes("\0\2\0\0ab\0\0\0\0\0\1\0\0c"s, rules).records, ElementsAre("ab", "", "c"));
}

TEST(RdwFormatTest, LittleDescriptorHasItsBytesInReverse) {
  FramingRules rules = rulesOf(Format::rdw);
  rules.isRdwLittle = true;
  std::string const longer(252, 'x');  // with the descriptor 256 bytes
  EXPECT_THAT(readBytes("\0\0\6\0ab"s + "\0\0\0\1"s + longer, rules).records,
              ElementsAre("ab", longer));
  rules.isRdwExclusive = true;
  EXPECT_THAT(readBytes("\0\0\2\0ab"s, rules).records, ElementsAre("ab"));
}

struct Fault {
  std::string bytes;
  std::string summary;
  std::string found;
};

void expectFaults(FramingRules const& rules, std::vector<Fault> const& faults) {
  for (Fault const& each : faults) {
    ReadFile const found = readBytes(each.bytes, rules);
    EXPECT_EQ(summaryOf(found.error), each.summary);
    EXPECT_EQ(found.error.value_or(FrameError{}).found, each.found) << each.summary;
    EXPECT_THAT(found.records, ElementsAre("ab")) << each.summary;
  }
}

// Each after a good record of 6 bytes.
TEST(RdwFormatTest, FaultyDescriptorEndsTheFile) {
  std::string const good = "\0\6\0\0ab"s;
  expectFaults(rulesOf(Format::rdw),
               {{good + "\0"s, "the file ends within a descriptor @6 #2", "\0"s},
                {good + "\0\3\0\0"s,
                 "the length in the descriptor is less than its own 4 bytes @6 #2", "\0\3\0\0"s},
                {good + "\0\7\0\0cd"s,
                 "the length in the descriptor goes beyond the end of the file @6 #2", "\0\7\0\0"s},
                {good + "\0\5\1\0c"s,
                 "the descriptor has no two zero bytes (spanned records are not supported) @6 #2",
                 "\0\5\1\0"s},
                {good + "\0\5\0\1c"s,
                 "the descriptor has no two zero bytes (spanned records are not supported) @6 #2",
                 "\0\5\0\1"s}});
}

TEST(GnucobolVariableFormatTest, DescriptorHasTheLengthOfTheData) {
  ReadFile const found =
      readBytes("\0\2\0\0ab\0\0\0\0\0\1\0\0c"s, rulesOf(Format::gnucobolVariable));
  EXPECT_THAT(found.records, ElementsAre("ab", "", "c"));
  EXPECT_FALSE(found.error);
}

// Options of descriptor words do not apply to it.
TEST(GnucobolVariableFormatTest, HasOneFormOnly) {
  FramingRules rules = rulesOf(Format::gnucobolVariable);
  rules.isRdwLittle = true;
  EXPECT_THAT(readBytes("\0\2\0\0ab"s, rules).records, ElementsAre("ab"));
}

TEST(BdwFormatTest, BlocksHoldRecords) {
  ReadFile const found = readBytes(
      "\0\17\0\0\0\6\0\0ab\0\5\0\0c"s
      "\0\4\0\0"s
      "\0\12\0\0\0\6\0\0de"s,
      rulesOf(Format::bdw));
  EXPECT_THAT(found.records, ElementsAre("ab", "c", "de"));
  EXPECT_THAT(found.offsets, ElementsAre(8, 14, 27));
  EXPECT_THAT(found.raw, ElementsAre("\0\6\0\0ab"s, "\0\5\0\0c"s, "\0\6\0\0de"s));
  EXPECT_FALSE(found.error);
}

TEST(BdwFormatTest, OptionsApplyToBothDescriptors) {
  FramingRules rules = rulesOf(Format::bdw);
  rules.isRdwLittle = true;
  rules.isRdwExclusive = true;
  EXPECT_THAT(readBytes("\0\0\13\0\0\0\2\0ab\0\0\1\0c"s, rules).records, ElementsAre("ab", "c"));
}

// Each after a good block of 10 bytes.
TEST(BdwFormatTest, FaultyBlockEndsTheFile) {
  std::string const good = "\0\12\0\0\0\6\0\0ab"s;
  expectFaults(
      rulesOf(Format::bdw),
      {{good + "\0\12"s, "the file ends within a descriptor @10 #2", "\0\12"s},
       {good + "\x80\0\0\x0A\0\6\0\0cd"s, "extended blocks are not supported @10 #2",
        "\x80\0\0\x0A"s},
       {good + "\0\3\0\0"s, "the length in the descriptor is less than its own 4 bytes @10 #2",
        "\0\3\0\0"s},
       // The block has nothing of its first record.
       {good + "\0\12\0\0"s, "the length in the descriptor goes beyond the end of the file @10 #2",
        "\0\12\0\0"s},
       // The record counts 7 bytes, but the block has 6 for it.
       {good + "\0\12\0\0\0\7\0\0cdef"s,
        "the length in the descriptor goes beyond the end of the block @14 #2", "\0\7\0\0"s},
       // The block ends 2 bytes after its only record, which is empty.
       {"\0\14\0\0\0\6\0\0ab\1\2\3\4"s, "the block has bytes after its last record @10 #2",
        "\1\2"s}});
}

// The complete records of the block come out.
TEST(BdwFormatTest, BlockThatTheFileHasAPartOfIsToldAfterItsRecords) {
  expectFaults(
      rulesOf(Format::bdw),
      {{"\0\17\0\0\0\6\0\0ab"s,
        "the length in the descriptor goes beyond the end of the file @0 #2", "\0\17\0\0"s},
       {"\0\17\0\0\0\6\0\0ab\0\5\0\0"s,
        "the length in the descriptor goes beyond the end of the file @10 #2", "\0\5\0\0"s}});
}

TEST(LinesFormatTest, LineFeedEndsARecord) {
  ReadFile const found = readBytes("ab\n\ncd \n", rulesOf(Format::lines, 4));
  EXPECT_THAT(found.records, ElementsAre("ab", "", "cd "));
  EXPECT_THAT(found.offsets, ElementsAre(0, 3, 4));
  EXPECT_THAT(found.raw, ElementsAre("ab\n", "\n", "cd \n"));
}

TEST(LinesFormatTest, ReturnBeforeALineFeedIsDropped) {
  ReadFile const found = readBytes("a\r\n\r\nb\rc\r\r\n", rulesOf(Format::lines, 4));
  EXPECT_THAT(found.records, ElementsAre("a", "", "b\rc\r"));
  EXPECT_THAT(found.raw, ElementsAre("a\r\n", "\r\n", "b\rc\r\r\n"));
}

TEST(LinesFormatTest, LastLineNeedsNoLineFeed) {
  ReadFile const found = readBytes("ab\nc\r", rulesOf(Format::lines, 4));
  EXPECT_THAT(found.records, ElementsAre("ab", "c\r"));
  EXPECT_FALSE(found.error);
}

TEST(FormatsTest, EmptyFileHasNoRecords) {
  for (Format each :
       {Format::fixed, Format::rdw, Format::bdw, Format::gnucobolVariable, Format::lines}) {
    ReadFile const found = readBytes("", rulesOf(each, 3));
    EXPECT_THAT(found.records, IsEmpty());
    EXPECT_FALSE(found.error);
    EXPECT_FALSE(found.failure);
  }
}

}  // namespace
}  // namespace fdmorph::framing
