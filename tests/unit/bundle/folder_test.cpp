// Folders of bundles.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "bundle/folder_content.h"
#include "bundle/folder_replacement.h"
#include "support/temporary_folder.h"

namespace fdmorph::bundle {
namespace {

namespace fs = std::filesystem;
using State = FolderContent::State;
using testing::HasSubstr;
using testing::Optional;
using testing::UnorderedElementsAre;

class Folders : public testing::Test {
 protected:
  /// The names in a folder below the temporary one.
  std::vector<std::string> namesIn(std::string const& name) const {
    std::vector<std::string> names;
    for (auto const& each : fs::directory_iterator(folder.path(name))) {
      names.push_back(each.path().filename().string());
    }
    return names;
  }
  std::string reasonFor(std::string const& name) const {
    FolderContent const content = lookAtFolder(folder.path(name));
    EXPECT_EQ(content.state, State::other);
    return content.reason;
  }

  TemporaryFolder folder;
};

// The hashes are those of the definition of FNV-1a: its basis, and its value for "a".
TEST(Manifest, ListsFilesWithTheirHashes) {
  EXPECT_EQ(makeManifest({{"b.xsd", ""}, {"a.xsd", "a"}}),
            "fdrec-bundle-1\ncbf29ce484222325 b.xsd\naf63dc4c8601ec8c a.xsd\n");
}

TEST_F(Folders, AreMade) {
  EXPECT_EQ(lookAtFolder(folder.path("new/out")).state, State::absent);
  EXPECT_EQ(replaceFolder(folder.path("new/out/"), {{"a.xsd", "a"}}), std::nullopt);
  EXPECT_THAT(namesIn("new"), UnorderedElementsAre("out"));
  EXPECT_EQ(folder.read("new/out/a.xsd"), "a");
  EXPECT_EQ(folder.read("new/out/fdrec-bundle.txt"), makeManifest({{"a.xsd", "a"}}));
}

TEST_F(Folders, ThatAreEmptyKeepTheirMode) {
  fs::create_directory(folder.path("out"));
  fs::permissions(folder.path("out"), fs::perms::owner_all | fs::perms::group_read);
  EXPECT_EQ(lookAtFolder(folder.path("out")).state, State::empty);
  EXPECT_EQ(replaceFolder(folder.path("out"), {{"a.xsd", "a"}}), std::nullopt);
  EXPECT_EQ(fs::status(folder.path("out")).permissions(),
            fs::perms::owner_all | fs::perms::group_read);
}

TEST_F(Folders, OfAnEarlierBundleAreReplaced) {
  ASSERT_EQ(replaceFolder(folder.path("out"), {{"a.xsd", "old"}, {"b.xsd", "b"}}), std::nullopt);
  fs::remove(folder.path("out/b.xsd"));
  EXPECT_EQ(lookAtFolder(folder.path("out")).state, State::earlier);
  EXPECT_EQ(replaceFolder(folder.path("out"), {{"a.xsd", "new"}, {"c.xsd", "c"}}), std::nullopt);
  EXPECT_THAT(namesIn("out"), UnorderedElementsAre("a.xsd", "c.xsd", "fdrec-bundle.txt"));
  EXPECT_EQ(folder.read("out/a.xsd"), "new");
  EXPECT_THAT(namesIn(""), UnorderedElementsAre("out"));
}

TEST_F(Folders, AreReplacedWhereLinksLead) {
  ASSERT_EQ(replaceFolder(folder.path("far/out"), {{"a.xsd", "old"}}), std::nullopt);
  fs::create_directory_symlink(folder.path("far/out"), folder.path("link"));
  EXPECT_EQ(replaceFolder(folder.path("link"), {{"a.xsd", "new"}}), std::nullopt);
  EXPECT_TRUE(fs::is_symlink(folder.path("link")));
  EXPECT_EQ(folder.read("far/out/a.xsd"), "new");
}

TEST_F(Folders, ThatAreWorkedInStay) {
  WorkingFolder working;
  struct stat before {};
  ASSERT_EQ(stat(".", &before), 0);
  EXPECT_EQ(replaceFolder(".", {{"a.xsd", "old"}, {"b.xsd", "b"}}), std::nullopt);
  EXPECT_EQ(replaceFolder(".", {{"a.xsd", "new"}}), std::nullopt);
  struct stat after {};
  ASSERT_EQ(stat(working.path("").c_str(), &after), 0);
  EXPECT_EQ(after.st_ino, before.st_ino);
  EXPECT_EQ(working.read("a.xsd"), "new");
  EXPECT_FALSE(working.has("b.xsd"));
  EXPECT_EQ(lookAtFolder(".").files.size(), 2U);
}

TEST_F(Folders, WithOtherFilesAreRefused) {
  folder.write("out/notes.txt", "mine");
  EXPECT_EQ(reasonFor("out"), "it has files, but no bundle");
  EXPECT_THAT(replaceFolder(folder.path("out"), {{"a.xsd", "a"}}),
              Optional(std::string("it has files, but no bundle")));
  EXPECT_THAT(namesIn("out"), UnorderedElementsAre("notes.txt"));
  ASSERT_EQ(replaceFolder(folder.path("bundle"), {{"a.xsd", "a"}}), std::nullopt);
  folder.write("bundle/notes.txt", "mine");
  EXPECT_EQ(reasonFor("bundle"), "'notes.txt' in it is not of a bundle");
}

TEST_F(Folders, WithChangedFilesAreRefused) {
  ASSERT_EQ(replaceFolder(folder.path("out"), {{"a.xsd", "a"}}), std::nullopt);
  folder.write("out/a.xsd", "b");
  EXPECT_EQ(reasonFor("out"), "'a.xsd' in it has been changed");
  fs::remove(folder.path("out/a.xsd"));
  folder.write("a.xsd", "a");
  fs::create_symlink(folder.path("a.xsd"), folder.path("out/a.xsd"));
  EXPECT_EQ(reasonFor("out"), "'a.xsd' in it has been changed");
}

TEST_F(Folders, WithAWrongManifestAreRefused) {
  std::string const head = "fdrec-bundle-1\n";
  for (std::string const& text :
       {std::string("fdrec-bundle-2\n"), head + "af63dc4c8601ec8c a.xsd", head + "af63 a.xsd\n",
        head + "af63dc4c8601ec8x a.xsd\n", head + "af63dc4c8601ec8c\n"}) {
    folder.write("out/fdrec-bundle.txt", text);
    EXPECT_EQ(reasonFor("out"), "it has files, but no bundle") << text;
  }
}

TEST_F(Folders, AreNoFiles) {
  folder.write("out", "");
  EXPECT_EQ(reasonFor("out"), "it is not a folder");
  fs::create_symlink(folder.path("gone"), folder.path("link"));
  EXPECT_EQ(reasonFor("link"), "it is not a folder");
  EXPECT_THAT(replaceFolder(folder.path("out/below"), {}), testing::Ne(std::nullopt));
}

TEST_F(Folders, ThatCannotBeMadeAreAsTheyWere) {
  ASSERT_EQ(replaceFolder(folder.path("out"), {{"a.xsd", "a"}}), std::nullopt);
  std::string const tooLong(300, 'x');
  std::optional<std::string> const why =
      replaceFolder(folder.path("out"), {{"b.xsd", "b"}, {tooLong, "c"}});
  EXPECT_THAT(why, Optional(HasSubstr("cannot write '" + tooLong)));
  EXPECT_EQ(lookAtFolder(folder.path("out")).state, State::earlier);
  EXPECT_THAT(namesIn(""), UnorderedElementsAre("out"));
}

}  // namespace
}  // namespace fdmorph::bundle
