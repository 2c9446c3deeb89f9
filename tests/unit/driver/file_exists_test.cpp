// The question whether a file may be overwritten.

#include <gtest/gtest.h>

#include <iostream>
#include <sstream>

#include "driver/file_helpers.h"
#include "support/captured_console.h"
#include "support/temporary_folder.h"
#include "text/console.h"

namespace fdmorph {
namespace {

constexpr char kWarning[] = "\nWarning : The file \"a.cpy\" already exists\n";
constexpr char kQuestion[] = "Would you like to overwrite a.cpy? (y/n) ";

class Overwrite : public ConsoleTest {
 protected:
  Overwrite() : m_input(std::cin.rdbuf(&m_answers)) { folder.write("a.cpy", "text"); }
  ~Overwrite() override { std::cin.rdbuf(m_input); }

  /// Whether the file is to be left alone after these answers.
  bool isLeftAlone(std::string const& answers) {
    m_answers.str(answers);
    std::cin.clear();
    return FileExists("a.cpy", true);
  }

  int questions() const { return countOf(kQuestion, captured.err()); }

  WorkingFolder folder;

 private:
  std::stringbuf m_answers;
  std::streambuf* m_input;
};

TEST_F(Overwrite, AbsentFileMayBeWritten) {
  EXPECT_FALSE(FileExists("missing.cpy", true));
  EXPECT_FALSE(FileExists("missing.cpy", false));
  EXPECT_EQ(captured.out() + captured.err(), "");
}

TEST_F(Overwrite, EmptyNameIsReportedAndLeftAlone) {
  EXPECT_TRUE(FileExists("", true));
  EXPECT_TRUE(FileExists("", false));
  EXPECT_EQ(captured.out(),
            "Error : Invalid Filename.  Unable to create \"\"\n"
            "Error : Invalid Filename.  Unable to create \"\"\n");
  EXPECT_EQ(console.m_nErrorCount, 2);
}

TEST_F(Overwrite, WithoutAPromptNothingIsAsked) {
  EXPECT_TRUE(FileExists("a.cpy", false));
  EXPECT_EQ(captured.out() + captured.err(), "");
  EXPECT_EQ(reportStatus(), 0);
}

TEST_F(Overwrite, QuestionFollowsAWarningOnTheErrorStream) {
  EXPECT_FALSE(isLeftAlone("y\n"));
  EXPECT_EQ(captured.err(), std::string(kWarning) + kQuestion);
  EXPECT_EQ(captured.out(), "");
  EXPECT_EQ(console.m_nWarningCount, 1);
}

TEST_F(Overwrite, AnswersAreOneLetter) {
  EXPECT_FALSE(isLeftAlone("y\n"));
  EXPECT_FALSE(isLeftAlone("Y\n"));
  EXPECT_TRUE(isLeftAlone("n\n"));
  EXPECT_TRUE(isLeftAlone("N\n"));
  EXPECT_EQ(questions(), 4);
}

TEST_F(Overwrite, AnythingElseIsAskedAgain) {
  EXPECT_TRUE(isLeftAlone("yes\nno\n\ny \n y\nj\nn\ny\n"));
  EXPECT_EQ(questions(), 7);
  EXPECT_EQ(console.m_nWarningCount, 1) << "the warning comes once";
}

TEST_F(Overwrite, EndOfInputMeansNo) {
  EXPECT_TRUE(isLeftAlone(""));
  EXPECT_EQ(questions(), 1);
  EXPECT_TRUE(isLeftAlone("yes\n"));
  EXPECT_EQ(questions(), 3);
}

TEST_F(Overwrite, AnswerNeedsNoLineEnd) {
  EXPECT_FALSE(isLeftAlone("y"));
}

TEST_F(Overwrite, LongAnswerIsOneAnswer) {
  EXPECT_TRUE(isLeftAlone(std::string(5000, 'y') + "\nn\n"));
  EXPECT_EQ(questions(), 2);
}

TEST_F(Overwrite, FileIsNotChangedByTheAnswer) {
  isLeftAlone("y\n");
  EXPECT_EQ(folder.read("a.cpy"), "text");
}

TEST_F(Overwrite, QuestionReachesTheUserInALoggedRun) {
  openLog();
  EXPECT_FALSE(isLeftAlone("y\n"));
  EXPECT_EQ(std::cerr.rdbuf(), console.logStream.rdbuf());
  RestoreStreams();
  EXPECT_EQ(captured.err(), std::string(kWarning) + kQuestion);
  EXPECT_EQ(folder.read("fdmorph.log"), "");
}

TEST_F(Overwrite, FurtherQuestionsGoToTheLog) {
  openLog();
  EXPECT_TRUE(isLeftAlone("what\nwhat\nn\n"));
  RestoreStreams();
  EXPECT_EQ(captured.err(), std::string(kWarning) + kQuestion);
  EXPECT_EQ(folder.read("fdmorph.log"), std::string(kQuestion) + kQuestion);
}

TEST_F(Overwrite, QuestionIsAskedInAQuietRunToo) {
  beginQuietMode();
  EXPECT_FALSE(isLeftAlone("y\n"));
  EXPECT_EQ(captured.err(), std::string(kWarning) + kQuestion);
}

}  // namespace
}  // namespace fdmorph
