// The bytes of input and output files.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "framing/framed_file.h"
#include "framing/output_stream.h"

namespace fdmorph::framing {
namespace {

// Every write to this device fails, as on a full disk.
constexpr char kFullDevice[] = "/dev/full";

std::string readRest(InputStream& input, std::size_t block) {
  std::string text, piece(block, '\0');
  while (std::size_t const got = input.read(piece.data(), piece.size())) text.append(piece, 0, got);
  return text;
}

TEST(InputStreamTest, ReadsAFileInBlocks) {
  TemporaryFolder folder;
  InputStream input;
  ASSERT_FALSE(input.open(folder.write("a", "0123456789")));
  EXPECT_EQ(input.end(), 10U);
  EXPECT_EQ(readRest(input, 3), "0123456789");
  EXPECT_EQ(input.position(), 10U);
  EXPECT_FALSE(input.failure());
}

TEST(InputStreamTest, SkipStopsAtTheEnd) {
  TemporaryFolder folder;
  InputStream input;
  ASSERT_FALSE(input.open(folder.write("a", "0123456789")));
  EXPECT_EQ(input.skip(4), 4U);
  EXPECT_EQ(input.position(), 4U);
  EXPECT_EQ(input.skip(7), 6U);
  EXPECT_EQ(input.skip(1), 0U);
  EXPECT_EQ(readRest(input, 3), "");
}

TEST(InputStreamTest, EmptyFileHasAKnownEnd) {
  TemporaryFolder folder;
  InputStream input;
  ASSERT_FALSE(input.open(folder.write("a", "")));
  EXPECT_EQ(input.end(), 0U);
  EXPECT_FALSE(input.hasBytes());
}

// Its size is said to be 0.
TEST(InputStreamTest, FileOfTheSystemIsReadToItsEnd) {
  InputStream input;
  ASSERT_FALSE(input.open("/proc/self/status"));
  EXPECT_FALSE(input.end());
  EXPECT_TRUE(readRest(input, 1000).starts_with("Name:"));
}

TEST(InputStreamTest, FailuresAreInWords) {
  TemporaryFolder folder;
  EXPECT_EQ(InputStream().open(folder.path("none")), "No such file or directory");
  EXPECT_EQ(InputStream().open(folder.path("")), "Is a directory");
  InputStream memory;  // reading at the offset 0 fails
  ASSERT_FALSE(memory.open("/proc/self/mem"));
  EXPECT_EQ(readRest(memory, 10), "");
  EXPECT_EQ(memory.failure(), "Input/output error");
}

// Records before the failure come out, and no record is said to be partial.
TEST(InputStreamTest, FailureIsNoFaultOfTheRecords) {
  InputStream input;
  ASSERT_FALSE(input.open("/proc/self/mem"));
  ReadFile const found = readAll(input, rulesOf(Format::fixed, 3));
  EXPECT_TRUE(found.records.empty());
  EXPECT_FALSE(found.error);
  EXPECT_EQ(found.failure, "Input/output error");
}

TEST(OutputStreamTest, FileAppearsWhenItIsComplete) {
  TemporaryFolder folder;
  std::string const path = folder.write("a", "old");
  OutputStream output;
  ASSERT_FALSE(output.open(path));
  EXPECT_FALSE(output.isStandardOutput());
  output.write("new ");
  output.write({});
  EXPECT_EQ(folder.read("a"), "old");
  output.write("text");
  EXPECT_TRUE(output.commit());
  EXPECT_EQ(folder.read("a"), "new text");
}

TEST(OutputStreamTest, FileStaysWithoutCommit) {
  TemporaryFolder folder;
  std::string const path = folder.write("a", "old");
  {
    OutputStream output;
    ASSERT_FALSE(output.open(path));
    output.write(std::string(3'000'000, 'x'));
  }
  EXPECT_EQ(folder.read("a"), "old");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path("")), {}), 1);
}

// Texts below, at and above the size of a block, which is 1 MB.
TEST(OutputStreamTest, TextsOfAnyLengthStayInOrder) {
  TemporaryFolder folder;
  OutputStream output;
  ASSERT_FALSE(output.open(folder.path("a")));
  std::string expected;
  std::size_t const block = std::size_t{1} << 20;
  char letter = 'a';
  for (std::size_t size : {std::size_t{1}, block - 1, std::size_t{1}, block, block + 1,
                           std::size_t{5}, 3 * block, std::size_t{0}, block - 5, std::size_t{6}}) {
    std::string const text(size, letter++);
    output.write(text);
    expected += text;
  }
  EXPECT_TRUE(output.commit());
  EXPECT_TRUE(folder.read("a") == expected);
}

TEST(OutputStreamTest, FailureIsKept) {
  OutputStream output;
  ASSERT_FALSE(output.open(kFullDevice));
  output.write("text");
  EXPECT_FALSE(output.failure());
  EXPECT_FALSE(output.flush());
  EXPECT_EQ(output.failure(), "No space left on device");
  output.write(std::string(3'000'000, 'x'));
  EXPECT_FALSE(output.commit());
}

TEST(OutputStreamTest, NameThatCannotBeWrittenIsToldAtOnce) {
  TemporaryFolder folder;
  OutputStream output;
  EXPECT_EQ(output.open(folder.path("none/a")), "No such file or directory");
  output.write("text");
  EXPECT_FALSE(output.commit());
}

TEST(OutputStreamTest, SeveralOutputsAreApart) {
  TemporaryFolder folder;
  OutputStream first, second;
  ASSERT_FALSE(first.open(folder.path("a")));
  ASSERT_FALSE(second.open(folder.path("b")));
  first.write("one");
  second.write("two");
  EXPECT_TRUE(second.commit());
  EXPECT_FALSE(folder.has("a"));
  EXPECT_TRUE(first.commit());
  EXPECT_EQ(folder.read("a") + folder.read("b"), "onetwo");
}

}  // namespace
}  // namespace fdmorph::framing
