#include "text/output_file.h"

#include <gtest/gtest.h>

#include <iostream>

#include "support/captured_console.h"
#include "support/temporary_folder.h"
#include "text/console.h"

namespace fdmorph {
namespace {

// Every write to this device fails, as on a full disk.
constexpr char kFullDevice[] = "/dev/full";
constexpr char kFailure[] = "Error : Unable to write output file /dev/full\n";

class OutputFileTest : public ConsoleTest {
 protected:
  TemporaryFolder folder;
};

TEST_F(OutputFileTest, FileHoldsWhatTheStreamWasGiven) {
  OutputFile file;
  ASSERT_TRUE(file.open(folder.path("a.txt")));
  file.stream() << "one\n" << 2 << '\n';
  EXPECT_TRUE(file.close());
  EXPECT_EQ(folder.read("a.txt"), "one\n2\n");
  EXPECT_EQ(captured.out(), "");
  EXPECT_EQ(captured.err(), "");
}

TEST_F(OutputFileTest, EarlierContentIsReplaced) {
  folder.write("a.txt", "a longer text\n");
  OutputFile file;
  ASSERT_TRUE(file.open(folder.path("a.txt")));
  file.stream() << "new\n";
  EXPECT_TRUE(file.close());
  EXPECT_EQ(folder.read("a.txt"), "new\n");
}

TEST_F(OutputFileTest, ConstructorCreatesNoFileAndLeavesTheStreamAlone) {
  OutputFile file;
  EXPECT_FALSE(file.isOpen());
  EXPECT_EQ(std::cout.rdbuf(), captured.outBuffer());
}

TEST_F(OutputFileTest, WithoutAFileTheStreamIsStandardOutput) {
  OutputFile file;
  EXPECT_FALSE(file.open(""));
  EXPECT_FALSE(file.open(folder.path("none/a.txt")));
  file.aimStandardOutput();
  file.stream() << "text";
  EXPECT_EQ(captured.out(), "text");
  EXPECT_FALSE(file.close());
  EXPECT_EQ(captured.err(), "");
}

TEST_F(OutputFileTest, StandardOutputIsLeftAloneUnlessAimed) {
  OutputFile file;
  ASSERT_TRUE(file.open(folder.path("a.txt")));
  out() << "progress";
  file.stream() << "content";
  EXPECT_TRUE(file.close());
  EXPECT_EQ(captured.out(), "progress");
  EXPECT_EQ(folder.read("a.txt"), "content");
}

TEST_F(OutputFileTest, AimedStandardOutputLandsInTheFileInOrder) {
  OutputFile file;
  ASSERT_TRUE(file.open(folder.path("a.txt")));
  file.aimStandardOutput();
  file.stream() << "one ";
  out() << "two ";
  std::cout << "three";
  EXPECT_TRUE(file.close());
  out() << "after";
  EXPECT_EQ(folder.read("a.txt"), "one two three");
  EXPECT_EQ(captured.out(), "after");
}

TEST_F(OutputFileTest, DestructorRestoresStandardOutputAndLeavesTheOldFile) {
  folder.write("a.txt", "old");
  {
    OutputFile file;
    ASSERT_TRUE(file.open(folder.path("a.txt")));
    file.aimStandardOutput();
    out() << "inside";
  }
  EXPECT_EQ(std::cout.rdbuf(), captured.outBuffer());
  EXPECT_EQ(folder.read("a.txt"), "old");
}

TEST_F(OutputFileTest, EarlierFileStaysUntilTheNewOneIsClosed) {
  folder.write("a.txt", "old");
  OutputFile file;
  ASSERT_TRUE(file.open(folder.path("a.txt")));
  file.stream() << std::string(100'000, 'x') << std::flush;
  EXPECT_EQ(folder.read("a.txt"), "old");
  EXPECT_TRUE(file.close());
  EXPECT_EQ(folder.read("a.txt"), std::string(100'000, 'x'));
}

TEST_F(OutputFileTest, SilencedOutputStaysSilencedAfterTheFile) {
  beginQuietMode();
  OutputFile file;
  ASSERT_TRUE(file.open(folder.path("a.txt")));
  file.aimStandardOutput();
  out() << "inside";
  EXPECT_TRUE(file.close());
  out() << "after";
  EXPECT_EQ(folder.read("a.txt"), "inside");
  EXPECT_EQ(std::cout.rdbuf(), nullptr);
  EXPECT_EQ(captured.out(), "");
}

TEST_F(OutputFileTest, FailedWriteIsReportedByClose) {
  OutputFile file;
  ASSERT_TRUE(file.open(kFullDevice));
  file.stream() << "text";
  EXPECT_FALSE(file.close());
  EXPECT_EQ(captured.err(), kFailure);
  EXPECT_EQ(console.m_nErrorCount, 1);
}

TEST_F(OutputFileTest, FailedWriteOfAnAimedStreamIsReportedByClose) {
  OutputFile file;
  ASSERT_TRUE(file.open(kFullDevice));
  file.aimStandardOutput();
  out() << "text" << std::flush;
  EXPECT_FALSE(file.close());
  EXPECT_EQ(captured.err(), kFailure);
  EXPECT_TRUE(std::cout.good());
}

// The only file in the folder is the new one, under its temporary name.
TEST_F(OutputFileTest, TextWaitsForItsBlock) {
  OutputFile file;
  ASSERT_TRUE(file.open(folder.path("a.txt")));
  std::filesystem::directory_iterator const written(folder.path(""));
  std::string const line(1000, 'x');
  for (int i = 0; i < 65; ++i) file.stream() << line;
  EXPECT_EQ(std::filesystem::file_size(written->path()), 0U);
  file.stream() << line;
  EXPECT_EQ(std::filesystem::file_size(written->path()), 65'536U);
  EXPECT_TRUE(file.close());
  EXPECT_EQ(folder.read("a.txt"), std::string(66'000, 'x'));
}

}  // namespace
}  // namespace fdmorph
