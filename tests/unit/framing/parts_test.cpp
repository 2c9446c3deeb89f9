// Parts of files: together they are the whole.
#include "framing/parts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "framing/framed_file.h"

namespace fdmorph::framing {
namespace {

using namespace std::string_literals;
using ::testing::ElementsAre;

TEST(PartsTest, PartIsTwoNumbers) {
  std::optional<Part> const part = parsePart("3/7");
  ASSERT_TRUE(part);
  EXPECT_EQ(part->number, 3U);
  EXPECT_EQ(part->count, 7U);
  for (char const* wrong : {"", "/", "1", "1/", "/2", "0/2", "3/2", "1/0", "-1/2", "1/2x", " 1/2",
                            "1 /2", "1/1000001", "99999999999999999999/2"}) {
    EXPECT_FALSE(parsePart(wrong)) << wrong;
  }
}

// Twenty records of 1 to 20 letters, framed.
struct Framed {
  FramingRules rules;
  std::string bytes;
};

std::vector<Framed> framedFiles() {
  std::string fixed, described, gnucobol, blocks, block, lines;
  for (std::size_t i = 1; i <= 20; ++i) {
    std::string const text(i, static_cast<char>('a' + i));
    std::string const record = "\0"s + static_cast<char>(i + 4) + "\0\0"s + text;
    fixed += text + std::string(20 - i, '.');
    described += record;
    gnucobol += "\0"s + static_cast<char>(i) + "\0\0"s + text;
    lines += text + "\n";
    block += record;
    if (i % 3 != 0 && i != 20) continue;
    blocks += "\0"s + static_cast<char>(block.size() + 4) + "\0\0"s + block;
    block.clear();
  }
  return {{rulesOf(Format::fixed, 20), fixed},
          {rulesOf(Format::rdw), described},
          {rulesOf(Format::gnucobolVariable), gnucobol},
          {rulesOf(Format::bdw), blocks},
          {rulesOf(Format::lines, 20), lines}};
}

PartRange rangeOf(Part part, Framed const& file, std::uint64_t step) {
  std::uint64_t const end = file.bytes.size() - file.rules.trailer;
  if (file.rules.format == Format::fixed) return partBySize(part, file.rules, end);
  TemporaryFolder folder;
  InputStream input;
  EXPECT_FALSE(input.open(folder.write("data", file.bytes)));
  MadeIndex const made = indexFile(input, file.rules, step);
  EXPECT_FALSE(made.error);
  // What is used is the text of the index.
  ParsedIndex const parsed = parseIndex(made.index.text(), file.rules);
  EXPECT_FALSE(parsed.fault) << *parsed.fault;
  return partByIndex(part, parsed.index);
}

void expectPartsToBeTheWhole(Framed const& file, std::uint64_t step) {
  ReadFile const whole = readBytes(file.bytes, file.rules);
  for (std::uint64_t count = 1; count <= 7; ++count) {
    ReadFile parts;
    for (std::uint64_t number = 1; number <= count; ++number) {
      ReadFile const part = readBytes(file.bytes, file.rules, rangeOf({number, count}, file, step));
      parts.records.insert(parts.records.end(), part.records.begin(), part.records.end());
      parts.numbers.insert(parts.numbers.end(), part.numbers.begin(), part.numbers.end());
      parts.offsets.insert(parts.offsets.end(), part.offsets.begin(), part.offsets.end());
      EXPECT_FALSE(part.error) << summaryOf(part.error);
    }
    EXPECT_EQ(parts.records, whole.records);
    EXPECT_EQ(parts.numbers, whole.numbers);
    EXPECT_EQ(parts.offsets, whole.offsets);
  }
}

TEST(PartsTest, PartsAreTheWhole) {
  for (Framed const& each : framedFiles()) {
    ASSERT_EQ(readBytes(each.bytes, each.rules).records.size(), 20U);
    for (std::uint64_t step : {1U, 40U, 1000U}) expectPartsToBeTheWhole(each, step);
  }
}

TEST(PartsTest, HeaderAndTrailerAreInNoPart) {
  for (Framed each : framedFiles()) {
    each.rules.header = 5;
    each.rules.trailer = 7;
    each.bytes = "HHHHH" + each.bytes + "TTTTTTT";
    expectPartsToBeTheWhole(each, 40);
  }
}

// They count the records of the whole file.
TEST(PartsTest, SkipAndLimitApplyToTheWhole) {
  for (Framed each : framedFiles()) {
    each.rules.skip = 6;
    each.rules.limit = 9;
    ASSERT_EQ(readBytes(each.bytes, each.rules).numbers.front(), 7U);
    ASSERT_EQ(readBytes(each.bytes, each.rules).numbers.back(), 15U);
    expectPartsToBeTheWhole(each, 40);
  }
}

TEST(PartsTest, EmptyFileHasEmptyParts) {
  for (Framed each : framedFiles()) {
    each.bytes.clear();
    expectPartsToBeTheWhole(each, 40);
  }
}

TEST(PartsTest, PartsOfAFixedFileHaveEqualNumbersOfRecords) {
  FramingRules const rules = rulesOf(Format::fixed, 10);
  std::vector<std::uint64_t> numbers;
  for (std::uint64_t i = 1; i <= 3; ++i) {
    numbers.push_back(partBySize({i, 3}, rules, 80).firstNumber);
  }
  EXPECT_THAT(numbers, ElementsAre(1, 3, 6));  // 8 records: 2, 3 and 3
}

TEST(PartsTest, LastPartHasThePartialRecord) {
  FramingRules const rules = rulesOf(Format::fixed, 4);
  std::string const bytes = "aaaabbbbcc";
  ReadFile const first = readBytes(bytes, rules, partBySize({1, 2}, rules, bytes.size()));
  EXPECT_THAT(first.records, ElementsAre("aaaa"));
  EXPECT_FALSE(first.error);
  ReadFile const last = readBytes(bytes, rules, partBySize({2, 2}, rules, bytes.size()));
  EXPECT_THAT(last.records, ElementsAre("bbbb"));
  EXPECT_EQ(summaryOf(last.error), "the file ends within a record @8 #3");
}

// A border of the index that is none in the file.
TEST(PartsTest, RecordAcrossTheEndOfAPartIsTold) {
  PartRange range;
  range.end = 8;
  ReadFile const found = readBytes("\0\6\0\0ab\0\6\0\0ab"s, rulesOf(Format::rdw), range);
  EXPECT_THAT(found.records, ElementsAre("ab"));
  EXPECT_EQ(summaryOf(found.error), "the file ends within a descriptor @6 #2");
}

// The numbers of records and bytes are far from 2^64, but their products are not.
TEST(PartsTest, LargeFilesAreSplit) {
  FramingRules const rules = rulesOf(Format::fixed, 100);
  std::uint64_t const end = 9'000'000'000'000'000'000;
  PartRange const range = partBySize({500'001, 1'000'000}, rules, end);
  EXPECT_EQ(range.begin, 4'500'000'000'000'000'000U);
  EXPECT_EQ(range.end, 4'500'009'000'000'000'000U);
}

}  // namespace
}  // namespace fdmorph::framing
