// Copies of files, names for them, and names on a command line.

#include "driver/file_helpers.h"

#include <gtest/gtest.h>

#include "support/captured_console.h"
#include "support/temporary_folder.h"
#include "text/console.h"

namespace fdmorph {
namespace {

class CopyFile : public ConsoleTest {
 protected:
  std::string copyOf(std::string_view text) {
    std::string const source = folder.write("source", text);
    EXPECT_TRUE(CopyFileToFile(source, folder.path("target")));
    EXPECT_EQ(captured.out() + captured.err(), "");
    return folder.read("target");
  }

  TemporaryFolder folder;
};

TEST_F(CopyFile, LastLineGetsALineEnd) {
  EXPECT_EQ(copyOf("a\nb"), "a\nb\n");
}

TEST_F(CopyFile, FileThatEndsWithALineEndGetsOneMore) {
  EXPECT_EQ(copyOf("a\nb\n"), "a\nb\n\n");
}

TEST_F(CopyFile, EmptyFileBecomesAnEmptyLine) {
  EXPECT_EQ(copyOf(""), "\n");
}

TEST_F(CopyFile, LinesEndAtTheirFirstNul) {
  EXPECT_EQ(copyOf(std::string_view("ab\0cd\nef", 8)), "ab\nef\n");
}

TEST_F(CopyFile, LinesMayHaveAnyLength) {
  std::string const line(100'000, 'x');
  EXPECT_EQ(copyOf(line + "\n" + line), line + "\n" + line + "\n");
  EXPECT_EQ(copyOf(std::string(1024, 'x')), std::string(1024, 'x') + "\n");
}

TEST_F(CopyFile, OtherBytesStay) {
  EXPECT_EQ(copyOf("a\r\n\t\xff\n"), "a\r\n\t\xff\n\n");
}

TEST_F(CopyFile, TargetIsReplaced) {
  folder.write("target", std::string(1000, 'x'));
  EXPECT_EQ(copyOf("a"), "a\n");
}

TEST_F(CopyFile, SourceThatDoesNotOpenIsReported) {
  std::string const source = folder.path("missing");
  std::string const target = folder.path("target");
  EXPECT_FALSE(CopyFileToFile(source, target));
  EXPECT_EQ(captured.out(),
            "Error : Unable to copy file contents of " + source + " to " + target + "\n");
  EXPECT_EQ(console.m_nErrorCount, 1);
}

TEST_F(CopyFile, TargetThatDoesNotOpenIsReported) {
  std::string const source = folder.write("source", "a");
  std::string const target = folder.path("missing/target");
  EXPECT_FALSE(CopyFileToFile(source, target));
  EXPECT_EQ(captured.out(),
            "Error : Unable to copy file contents of " + source + " to " + target + "\n");
}

TEST_F(CopyFile, FullDiskIsReported) {
  EXPECT_FALSE(CopyFileToFile(folder.write("source", "a"), "/dev/full"));
  EXPECT_EQ(captured.err(), "Error : Unable to write output file /dev/full\n");
  EXPECT_EQ(console.m_nErrorCount, 1);
}

TEST_F(CopyFile, SourceThatCannotBeReadIsReported) {
  std::string const target = folder.path("target");
  EXPECT_FALSE(CopyFileToFile(folder.path(""), target));
  EXPECT_EQ(captured.out(),
            "Error : Unable to copy file contents of " + folder.path("") + " to " + target + "\n");
  EXPECT_EQ(console.m_nErrorCount, 1);
}

class SameFile : public ConsoleTest {
 protected:
  WorkingFolder folder;
};

TEST_F(SameFile, IsOneByAnyNameOrLink) {
  folder.write("a", "");
  folder.write("b", "");
  std::filesystem::create_symlink("a", "symbolic");
  std::filesystem::create_hard_link("a", "hard");
  for (char const* name : {"a", "./a", "symbolic", "hard"}) EXPECT_TRUE(isSameFile(name, "a"));
  for (char const* name : {"b", "missing", "."}) EXPECT_FALSE(isSameFile(name, "a"));
}

TEST_F(SameFile, IsARegularOne) {
  EXPECT_FALSE(isSameFile("/dev/null", "/dev/null"));
  EXPECT_FALSE(isSameFile(".", "."));
  EXPECT_FALSE(isSameFile("missing", "missing"));
}

TEST_F(SameFile, AsTheInputIsRefused) {
  folder.write("a", "");
  EXPECT_FALSE(isRefusedOutput("b", "a"));
  EXPECT_EQ(captured.out(), "");
  EXPECT_TRUE(isRefusedOutput("./a", "a"));
  EXPECT_EQ(captured.out(), "Error : Output file ./a is the same file as a\n");
  EXPECT_EQ(console.m_nErrorCount, 1);
}

TEST_F(SameFile, AsTheLogIsRefusedIfThereIsALog) {
  folder.write("a", "");
  folder.write("fdmorph.log", "");
  EXPECT_FALSE(isRefusedOutput("fdmorph.log", "a"));
  console.logMode = true;
  EXPECT_TRUE(isRefusedOutput("fdmorph.log", "a"));
  console.logMode = false;
  EXPECT_EQ(captured.out(), "Error : Output file fdmorph.log is the same file as ./fdmorph.log\n");
}

TEST_F(SameFile, LinkToNoFileIsDangling) {
  folder.write("a", "");
  std::filesystem::create_symlink("a", "good");
  std::filesystem::create_symlink("missing", "dangling");
  EXPECT_TRUE(isDanglingLink("dangling"));
  for (char const* name : {"a", "good", "missing"}) EXPECT_FALSE(isDanglingLink(name));
}

class TemporaryName : public ConsoleTest {
 protected:
  WorkingFolder folder;
};

TEST_F(TemporaryName, IsInTheCurrentDirectoryAndHasNoExtension) {
  std::string const name = GetTemporaryFilename(".xml .cbl");
  EXPECT_EQ(name.substr(0, 2), "./");
  EXPECT_GT(name.size(), 2U);
  EXPECT_EQ(name.find_first_of("./", 2), std::string::npos) << name;
  EXPECT_EQ(captured.out() + captured.err(), "");
}

TEST_F(TemporaryName, BelongsToNoFileWithOneOfTheExtensions) {
  for (int i = 0; i < 100; ++i) {
    std::string const name = GetTemporaryFilename("xml .cbl");
    EXPECT_FALSE(folder.has(name + ".xml"));
    EXPECT_FALSE(folder.has(name + ".cbl"));
    folder.write(name + (i % 2 == 0 ? ".xml" : ".cbl"), "");
  }
}

TEST(SpaceyFilename, WithoutBlanksAndQuotesStaysAsItIs) {
  EXPECT_EQ(ProcessSpaceyFilename("a.cbl"), "a.cbl");
  EXPECT_EQ(ProcessSpaceyFilename("./sub/\u00fc_a.cbl"), "./sub/\u00fc_a.cbl");
}

TEST(SpaceyFilename, WithABlankIsQuoted) {
  EXPECT_EQ(ProcessSpaceyFilename("my file.cbl"), "\"my file.cbl\"");
  EXPECT_EQ(ProcessSpaceyFilename(" "), "\" \"");
}

TEST(SpaceyFilename, InQuotesWithABlankStaysAsItIs) {
  EXPECT_EQ(ProcessSpaceyFilename("\"my file.cbl\""), "\"my file.cbl\"");
}

TEST(SpaceyFilename, QuotesAreRemoved) {
  EXPECT_EQ(ProcessSpaceyFilename("\"a.cbl\""), "a.cbl");
  EXPECT_EQ(ProcessSpaceyFilename("a\"b\".cbl"), "ab.cbl");
  EXPECT_EQ(ProcessSpaceyFilename("a\" b.cbl"), "\"a b.cbl\"");
}

TEST(SpaceyFilename, OtherWhiteSpaceIsNotABlank) {
  EXPECT_EQ(ProcessSpaceyFilename("a\tb.cbl"), "a\tb.cbl");
}

TEST(SpaceyFilename, EmptyNameStaysEmpty) {
  EXPECT_EQ(ProcessSpaceyFilename(""), "");
  EXPECT_EQ(ProcessSpaceyFilename("\"\""), "");
}

}  // namespace
}  // namespace fdmorph
