// The buffers of the standard streams in a quiet or a logged run.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <iomanip>
#include <iostream>

#include "support/captured_console.h"
#include "support/temporary_folder.h"
#include "text/console.h"

namespace fdmorph {
namespace {

class Streams : public ConsoleTest {
 protected:
  std::string log() const { return folder.read("fdmorph.log"); }

  WorkingFolder folder;
};

TEST_F(Streams, QuietModeRemovesTheOutputBuffer) {
  beginQuietMode();
  EXPECT_TRUE(console.quietMode);
  EXPECT_EQ(std::cout.rdbuf(), nullptr);
  EXPECT_EQ(console.savedCoutBuffer, captured.outBuffer());
}

TEST_F(Streams, RestoreEndsQuietMode) {
  beginQuietMode();
  RestoreStreams();
  out() << "x";
  EXPECT_EQ(captured.out(), "x");
}

TEST_F(Streams, RestoreLeavesTheErrorStreamOfAQuietRunAlone) {
  beginQuietMode();
  RestoreStreams();
  EXPECT_EQ(std::cerr.rdbuf(), captured.errBuffer());
}

TEST_F(Streams, RestoreDoesNothingInAnOrdinaryRun) {
  RestoreStreams();
  EXPECT_EQ(std::cout.rdbuf(), captured.outBuffer());
  EXPECT_EQ(std::cerr.rdbuf(), captured.errBuffer());
}

TEST_F(Streams, LogTakesBothStreams) {
  openLog();
  EXPECT_TRUE(console.logMode);
  out() << "a" << endLine;
  err() << "b" << endLine;
  out() << "c" << endLine;
  RestoreStreams();
  EXPECT_EQ(log(), "a\nb\nc\n");
  EXPECT_EQ(captured.out(), "");
  EXPECT_EQ(captured.err(), "");
}

TEST_F(Streams, LogIsTruncated) {
  folder.write("fdmorph.log", "an earlier and much longer log\n");
  openLog();
  out() << "a" << endLine;
  RestoreStreams();
  EXPECT_EQ(log(), "a\n");
}

TEST_F(Streams, LogBeginsWithTheBanner) {
  console.headerShown = false;
  openLog();
  RestoreStreams();
  EXPECT_EQ(log(),
            "Tallmere FDMORPH Version 1.0\n"
            "Converts between COBOL data definitions and XML Schema\n"
            "\n");
}

TEST_F(Streams, TextOfBothStreamsIsCountedInALog) {
  openLog();
  out() << "Error : a";
  err() << "Warning : b";
  EXPECT_EQ(console.m_nErrorCount, 1);
  EXPECT_EQ(console.m_nWarningCount, 1);
}

// The field width belongs to a stream, so it shows which of the two has written.
TEST_F(Streams, OutputStreamWritesWhatBothShare) {
  openLog();
  std::cout << std::setw(4);
  err() << "x";
  RestoreStreams();
  EXPECT_EQ(log(), "   x");
}

TEST_F(Streams, RestoreClosesTheLogAndRestoresTheConsole) {
  openLog();
  RestoreStreams();
  EXPECT_FALSE(console.logStream.is_open());
  out() << "a";
  err() << "b";
  EXPECT_EQ(captured.out(), "a");
  EXPECT_EQ(captured.err(), "b");
}

TEST_F(Streams, LogThatCannotBeOpenedIsSilent) {
  std::filesystem::create_directory("fdmorph.log");
  console.headerShown = false;
  openLog();
  EXPECT_FALSE(console.logMode);
  EXPECT_TRUE(console.headerShown);
  EXPECT_EQ(std::cout.rdbuf(), captured.outBuffer());
  EXPECT_EQ(countOf("\n", captured.out()), 3) << "the banner alone";
  EXPECT_EQ(captured.err(), "");
}

TEST_F(Streams, LogIsNotAFifo) {
  ASSERT_EQ(mkfifo("fdmorph.log", 0600), 0);
  openLog();
  EXPECT_FALSE(console.logMode);
  EXPECT_TRUE(std::filesystem::is_fifo("fdmorph.log"));
}

// Not even with a reader, who would see the end of the text at once.
TEST_F(Streams, LogIsNotAFifoWithAReader) {
  ASSERT_EQ(mkfifo("fdmorph.log", 0600), 0);
  int reader = open("fdmorph.log", O_RDONLY | O_NONBLOCK);
  ASSERT_GE(reader, 0);
  openLog();
  EXPECT_FALSE(console.logMode);
  close(reader);
}

TEST_F(Streams, LogIsNotAFifoBehindALink) {
  ASSERT_EQ(mkfifo("pipe", 0600), 0);
  std::filesystem::create_symlink("pipe", "fdmorph.log");
  openLog();
  EXPECT_FALSE(console.logMode);
}

TEST_F(Streams, LogIsOpenedThroughALinkOfTheUser) {
  std::filesystem::create_symlink("elsewhere", "fdmorph.log");
  openLog();
  EXPECT_TRUE(console.logMode);
  out() << "a" << endLine;
  RestoreStreams();
  EXPECT_EQ(folder.read("elsewhere"), "a\n");
}

TEST_F(Streams, LogIsNotOpenedThroughALinkOfAnotherUser) {
  folder.write("precious", "text\n");
  std::filesystem::create_symlink("precious", "fdmorph.log");
  constexpr uid_t kAnother = 12345;
  if (lchown("fdmorph.log", kAnother, static_cast<gid_t>(-1)) != 0) {
    GTEST_SKIP() << "only the superuser can make such a link";
  }
  openLog();
  EXPECT_FALSE(console.logMode);
  out() << "a" << endLine;
  EXPECT_EQ(folder.read("precious"), "text\n");
  EXPECT_EQ(captured.out(), "a\n");
}

TEST_F(Streams, LogIsNotLeftToOtherPrograms) {
  openLog();
  EXPECT_NE(fcntl(console.logDescriptor, F_GETFD) & FD_CLOEXEC, 0);
  RestoreStreams();
  EXPECT_EQ(console.logDescriptor, -1);
}

TEST_F(Streams, QuietModeAfterALogSavesTheLogsBuffer) {
  openLog();
  beginQuietMode();
  EXPECT_EQ(console.savedCoutBuffer, console.logStream.rdbuf());
  out() << "dropped" << endLine;
  err() << "kept" << endLine;
  RestoreStreams();
  EXPECT_EQ(log(), "kept\n");
  EXPECT_EQ(std::cout.rdbuf(), console.logStream.rdbuf()) << "not the console's";
  EXPECT_EQ(std::cerr.rdbuf(), captured.errBuffer());
}

TEST_F(Streams, RedirectionReturnsThePreviousBuffer) {
  std::stringbuf file;
  EXPECT_EQ(redirectOutput(&file), captured.outBuffer());
  EXPECT_EQ(redirectOutput(captured.outBuffer()), &file);
}

}  // namespace
}  // namespace fdmorph
