// Files that end at any byte.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "framing/framed_file.h"

namespace fdmorph::framing {
namespace {

using namespace std::string_literals;

constexpr std::array<std::size_t, 4> kBatches{1, 3, 7, 1000};  // bytes

// A file, the offsets after each of its records, and the offset of the error of a file
// that ends within a record.
struct Whole {
  FramingRules rules;
  std::string bytes;
  std::vector<std::size_t> begins;  // of records, with their descriptors
  std::vector<std::size_t> ends;
};

// Files of the records "one", "", "three".
Whole wholeOf(Format format) {
  switch (format) {
    case Format::fixed:
      return {rulesOf(format, 5),
              "one  "
              "     "
              "three",
              {0, 5, 10},
              {5, 10, 15}};
    case Format::rdw:
      return {rulesOf(format), "\0\7\0\0one\0\4\0\0\0\11\0\0three"s, {0, 7, 11}, {7, 11, 20}};
    case Format::gnucobolVariable:
      return {rulesOf(format), "\0\3\0\0one\0\0\0\0\0\5\0\0three"s, {0, 7, 11}, {7, 11, 20}};
    default:
      return {};
  }
}

void expectCuts(Whole const& whole, std::size_t batchBytes) {
  for (std::size_t size = 0; size <= whole.bytes.size(); ++size) {
    ReadFile const found = readBytes(whole.bytes.substr(0, size), whole.rules, {}, batchBytes);
    std::size_t complete = 0;
    while (complete < whole.ends.size() && whole.ends[complete] <= size) ++complete;
    EXPECT_EQ(found.records.size(), complete) << "cut at " << size;
    bool const isBorder = size == (complete == 0 ? 0 : whole.ends[complete - 1]);
    EXPECT_EQ(found.error.has_value(), !isBorder) << "cut at " << size;
    if (!found.error) continue;
    EXPECT_EQ(found.error->offset, whole.begins[complete]) << "cut at " << size;
    EXPECT_EQ(found.error->number, complete + 1) << "cut at " << size;
  }
}

TEST(CutFilesTest, CompleteRecordsComeBeforeOneError) {
  for (Format each : {Format::fixed, Format::rdw, Format::gnucobolVariable}) {
    for (std::size_t batchBytes : kBatches) expectCuts(wholeOf(each), batchBytes);
  }
}

// Two blocks: one with "one" and "", one with "three".
TEST(CutFilesTest, RecordsOfACutBlockComeOut) {
  std::string const bytes = "\0\17\0\0\0\7\0\0one\0\4\0\0\0\15\0\0\0\11\0\0three"s;
  // By the number of bytes that are left: the complete records and the place of the error.
  struct Expected {
    std::size_t from;
    std::size_t records;
    int offset;  // -1: none
  };
  std::vector<Expected> const expected{
      {0, 0, -1},   // nothing
      {1, 0, 0},    // in the first block descriptor
      {5, 0, 4},    // in the first record; with 4 bytes the block has none of it, see below
      {11, 1, 0},   // between two records of the block
      {12, 1, 11},  // in the second record
      {15, 2, -1},  // between the blocks
      {16, 2, 15},  // in the second block descriptor
      {20, 2, 19},  // in the third record
      {28, 3, -1},  // the whole
  };
  ASSERT_EQ(bytes.size(), 28U);
  for (std::size_t size = 0; size <= bytes.size(); ++size) {
    Expected which{};
    for (Expected const& each : expected) {
      if (each.from <= size) which = each;
    }
    // A block without any of its bytes is told at its descriptor.
    if (size == 4) which = {4, 0, 0};
    if (size == 19) which = {19, 2, 15};
    for (std::size_t batchBytes : kBatches) {
      ReadFile const found = readBytes(bytes.substr(0, size), rulesOf(Format::bdw), {}, batchBytes);
      EXPECT_EQ(found.records.size(), which.records) << "cut at " << size;
      int const offset = found.error ? static_cast<int>(found.error->offset) : -1;
      EXPECT_EQ(offset, which.offset) << "cut at " << size;
    }
  }
}

// What is left of a line is a line.
TEST(CutFilesTest, LinesAreNeverPartial) {
  std::string const bytes = "one\r\n\nthree\n";
  std::vector<std::size_t> const counts{0, 1, 1, 1, 1, 1, 2, 3, 3, 3, 3, 3, 3};
  for (std::size_t size = 0; size <= bytes.size(); ++size) {
    for (std::size_t batchBytes : kBatches) {
      ReadFile const found =
          readBytes(bytes.substr(0, size), rulesOf(Format::lines, 5), {}, batchBytes);
      EXPECT_EQ(found.records.size(), counts[size]) << "cut at " << size;
      EXPECT_FALSE(found.error);
    }
  }
}

}  // namespace
}  // namespace fdmorph::framing
