// Which files are read when files refer to each other.

#include "schema/file_circles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "support/temporary_folder.h"

namespace fdmorph {
namespace {

using testing::ElementsAre;

using References = std::map<std::string, std::vector<std::string>>;

class Reader {
 public:
  explicit Reader(References references) : m_references(std::move(references)) {}

  std::vector<std::string> readFrom(std::string const& main) {
    refer(main);
    return m_read;
  }

 private:
  void refer(std::string const& file) {
    if (!m_circles.enter("/s/" + file)) return;
    m_read.push_back(file);
    for (std::string const& other : m_references[file]) refer(other);
    m_circles.leave();
  }

  References m_references;
  FileCircles m_circles;
  std::vector<std::string> m_read;
};

/// The files that a run reads, in order, from "main" on.
std::vector<std::string> readings(References references) {
  return Reader(std::move(references)).readFrom("main");
}

TEST(OutsideCircles, FileIsReadEachTimeThatItIsReached) {
  EXPECT_THAT(readings({{"main", {"a", "a"}}}), ElementsAre("main", "a", "a"));
}

TEST(OutsideCircles, DiamondReadsItsLastFileTwice) {
  EXPECT_THAT(readings({{"main", {"a", "b"}}, {"a", {"c"}}, {"b", {"c"}}}),
              ElementsAre("main", "a", "c", "b", "c"));
}

TEST(OutsideCircles, ReadingAgainReadsWhatTheFileRefersToAgain) {
  EXPECT_THAT(readings({{"main", {"a", "a"}}, {"a", {"b"}}, {"b", {"c"}}}),
              ElementsAre("main", "a", "b", "c", "a", "b", "c"));
}

TEST(OutsideCircles, ReadingsGrowWithTheNumberOfPaths) {
  EXPECT_THAT(readings({{"main", {"a", "b"}}, {"a", {"c", "d"}}, {"b", {"c", "d"}}, {"c", {"d"}}}),
              ElementsAre("main", "a", "c", "d", "d", "b", "c", "d", "d"));
}

TEST(InACircle, MainFileIsNotReadAgain) {
  EXPECT_THAT(readings({{"main", {"main"}}}), ElementsAre("main"));
  EXPECT_THAT(readings({{"main", {"a", "a"}}, {"a", {"main"}}}), ElementsAre("main", "a"));
}

TEST(InACircle, FileThatRefersToItselfIsReadOnce) {
  EXPECT_THAT(readings({{"main", {"a", "a"}}, {"a", {"a"}}}), ElementsAre("main", "a"));
}

TEST(InACircle, TwoFilesAreReadOnceEach) {
  EXPECT_THAT(readings({{"main", {"a", "b", "a"}}, {"a", {"b"}}, {"b", {"a"}}}),
              ElementsAre("main", "a", "b"));
}

TEST(InACircle, LongCircleCanBeEnteredAnywhere) {
  EXPECT_THAT(readings({{"main", {"a", "d", "b", "c", "e", "a"}},
                        {"a", {"b"}},
                        {"b", {"c"}},
                        {"c", {"d"}},
                        {"d", {"e"}},
                        {"e", {"a"}}}),
              ElementsAre("main", "a", "b", "c", "d", "e"));
}

TEST(InACircle, LongCircleOfTheMainFileCanBeEnteredAnywhere) {
  EXPECT_THAT(readings({{"main", {"a", "c", "b"}}, {"a", {"b"}}, {"b", {"c"}}, {"c", {"main"}}}),
              ElementsAre("main", "a", "b", "c"));
}

TEST(InACircle, OverlappingCirclesAreOne) {
  EXPECT_THAT(readings({{"main", {"a", "c", "b"}}, {"a", {"b"}}, {"b", {"a", "c"}}, {"c", {"b"}}}),
              ElementsAre("main", "a", "b", "c"));
}

TEST(InACircle, BranchThatLeadsBackThroughAReadFileIsPartOfTheCircle) {
  EXPECT_THAT(readings({{"main", {"a", "c", "b"}}, {"a", {"b", "c"}}, {"b", {"a"}}, {"c", {"b"}}}),
              ElementsAre("main", "a", "b", "c"));
}

TEST(InACircle, SeparateCirclesAreReadOnceEach) {
  EXPECT_THAT(
      readings(
          {{"main", {"a", "c", "a", "c"}}, {"a", {"b"}}, {"b", {"a"}}, {"c", {"d"}}, {"d", {"c"}}}),
      ElementsAre("main", "a", "b", "c", "d"));
}

TEST(OutsideACircle, FilesOfADiamondBeforeItAreReadEachTime) {
  EXPECT_THAT(
      readings({{"main", {"a", "b", "a"}}, {"a", {"c"}}, {"b", {"c"}}, {"c", {"d"}}, {"d", {"c"}}}),
      ElementsAre("main", "a", "c", "d", "b", "a"));
}

TEST(OutsideACircle, FileAfterItIsReadEachTime) {
  EXPECT_THAT(readings({{"main", {"a", "x"}}, {"a", {"b", "x"}}, {"b", {"a", "x"}}}),
              ElementsAre("main", "a", "b", "x", "x", "x"));
}

TEST(OutsideACircle, FileAfterTheCircleOfTheMainFileIsReadEachTime) {
  EXPECT_THAT(readings({{"main", {"a"}}, {"a", {"b", "x"}}, {"b", {"main", "x"}}}),
              ElementsAre("main", "a", "b", "x", "x"));
}

TEST(OutsideACircle, FileReadAgainSkipsTheCircleBelowIt) {
  EXPECT_THAT(
      readings({{"main", {"a", "a"}}, {"a", {"x", "c", "y"}}, {"c", {"c"}}, {"y", {"c", "x"}}}),
      ElementsAre("main", "a", "x", "c", "y", "x", "a", "x", "y", "x"));
}

class FileNames : public testing::Test {
 protected:
  /// True if a reference from `main` to `other` leads to the same file.
  static bool areOneFile(std::string const& main, std::string const& other) {
    FileCircles circles;
    return circles.enter(main) && !circles.enter(other);
  }
};

TEST_F(FileNames, DotsAreResolved) {
  EXPECT_TRUE(areOneFile("/s/a.xsd", "/s/t/../a.xsd"));
  EXPECT_TRUE(areOneFile("/s/a.xsd", "/s/./a.xsd"));
  EXPECT_FALSE(areOneFile("/s/a.xsd", "/s/t/a.xsd"));
}

TEST_F(FileNames, RelativeNamesStartAtTheWorkingDirectory) {
  WorkingFolder folder;
  EXPECT_TRUE(areOneFile(folder.path("a.xsd"), "a.xsd"));
  EXPECT_TRUE(areOneFile("sub/a.xsd", folder.path("sub/a.xsd")));
}

TEST_F(FileNames, LinksAreFollowed) {
  TemporaryFolder folder;
  std::string real = folder.write("sub/a.xsd", "");
  std::filesystem::create_symlink(real, folder.path("link.xsd"));
  std::filesystem::create_directory_symlink(folder.path("sub"), folder.path("other"));
  EXPECT_TRUE(areOneFile(real, folder.path("link.xsd")));
  EXPECT_TRUE(areOneFile(folder.path("other/a.xsd"), real));
}

TEST_F(FileNames, FileUrlNamesItsFile) {
  EXPECT_TRUE(areOneFile("/s/a.xsd", "file:///s/a.xsd"));
  EXPECT_TRUE(areOneFile("/s/a.xsd", "file://localhost/s/a.xsd"));
}

TEST_F(FileNames, OtherUrlsAreTheirOwnNames) {
  EXPECT_TRUE(areOneFile("http://example.org/a.xsd", "http://example.org/a.xsd"));
  EXPECT_FALSE(areOneFile("http://example.org/a.xsd", "http://example.org/b.xsd"));
}

TEST_F(FileNames, AreCaseSensitive) {
  EXPECT_FALSE(areOneFile("/s/a.xsd", "/s/A.xsd"));
}

}  // namespace
}  // namespace fdmorph
