// Files are read once, and special files are not opened.

#include "xml/input_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <array>
#include <filesystem>
#include <string>

#include "support/parser_fixture.h"
#include "text/console.h"

namespace fdmorph {
namespace {

using testing::HasSubstr;

std::string contentOf(InputFile& file) {
  std::string content;
  std::array<std::byte, 1000> block{};
  while (std::size_t count = file.read(content.size(), block).value_or(0)) {
    content.append(reinterpret_cast<char const*>(block.data()), count);
  }
  return content;
}

class Files : public testing::Test {
 protected:
  TemporaryFolder folder;
  InputFiles files;
};

TEST_F(Files, BytesAreKept) {
  std::string const text(200'000, 'x');
  std::string const path = folder.write("a.xsd", text);
  ASSERT_TRUE(files.at(path)->canBeRead());
  EXPECT_EQ(contentOf(*files.at(path)), text);
  std::filesystem::remove(path);
  EXPECT_EQ(contentOf(*files.at(path)), text);
}

TEST_F(Files, SpellingsOfAPathAreOneFile) {
  std::string const path = folder.write("a.xsd", "x");
  std::filesystem::create_symlink(path, folder.path("link.xsd"));
  EXPECT_EQ(files.at(path), files.at(folder.path("./a.xsd")));
  EXPECT_EQ(files.at(path), files.at(folder.path("link.xsd")));
  EXPECT_NE(files.at(path), files.at(folder.write("b.xsd", "x")));
}

TEST_F(Files, ClearForgetsTheBytes) {
  std::string const path = folder.write("a.xsd", "old");
  ASSERT_TRUE(files.at(path)->canBeRead());
  EXPECT_EQ(contentOf(*files.at(path)), "old");
  folder.write("a.xsd", "new");
  files.clear();
  ASSERT_TRUE(files.at(path)->canBeRead());
  EXPECT_EQ(contentOf(*files.at(path)), "new");
}

TEST_F(Files, MissingFileCannotBeRead) {
  EXPECT_FALSE(files.at(folder.path("missing.xsd"))->canBeRead());
}

TEST_F(Files, SpecialFilesAreNotOpened) {
  ASSERT_EQ(mkfifo(folder.path("fifo").c_str(), 0600), 0);  // opening it would wait
  EXPECT_FALSE(files.at(folder.path("fifo"))->canBeRead());
  EXPECT_FALSE(files.at("/dev/null")->canBeRead());
  EXPECT_FALSE(files.at(folder.path(""))->canBeRead());
  EXPECT_EQ(files.at(folder.path(""))->kind(), InputFile::Kind::directory);
}

/// A file that a schema or a document refers to, and is special.
class SpecialFiles : public ParserTest, public testing::WithParamInterface<char const*> {
 protected:
  void SetUp() override {
    ASSERT_EQ(mkfifo(folder.path("fifo").c_str(), 0600), 0);
    std::filesystem::create_symlink("/dev/zero", folder.path("device"));
    std::filesystem::create_directory(folder.path("folder"));
  }
  std::string name() const { return GetParam(); }
};

TEST_P(SpecialFiles, AreRefusedInSchemas) {
  for (std::string part : {"include", "redefine", "import namespace='urn:x'"}) {
    EXPECT_FALSE(parseSchema("<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'><xs:" + part +
                             " schemaLocation='" + name() + "'/></xs:schema>"));
  }
  EXPECT_THAT(captured.err(), HasSubstr("unable to "));
}

TEST_P(SpecialFiles, AreRefusedAsEntities) {
  parser.CheckDocument(
      folder.write("a.xml", "<!DOCTYPE a [<!ENTITY e SYSTEM '" + name() + "'>]><a>&e;</a>"), false);
  EXPECT_THAT(captured.err(), HasSubstr("unable to "));
  EXPECT_EQ(console.m_nErrorCount, 1);
}

TEST_P(SpecialFiles, AreRefusedAsDocumentTypes) {
  parser.CheckDocument(folder.write("a.xml", "<!DOCTYPE a SYSTEM '" + name() + "'><a/>"), false);
  EXPECT_THAT(captured.err(), HasSubstr("unable to "));
  EXPECT_EQ(console.m_nErrorCount, 1);
}

TEST_P(SpecialFiles, AreRefusedAsSchemasOfDocuments) {
  parser.CheckDocument(
      folder.write("a.xml", R"(<a xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance")"
                            R"( xsi:noNamespaceSchemaLocation=")" +
                                name() + R"("/>)"),
      true);
  EXPECT_THAT(captured.err(), HasSubstr("unable to "));
}

INSTANTIATE_TEST_SUITE_P(Kinds, SpecialFiles, testing::Values("fifo", "device", "folder"));

TEST_F(ParserTest, DirectoryAsAnIncludedFileIsReportedAsUnreadable) {
  std::filesystem::create_directory(folder.path("folder"));
  EXPECT_FALSE(
      parseSchema("<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'>"
                  "<xs:include schemaLocation='folder'/></xs:schema>"));
  EXPECT_THAT(captured.err(), HasSubstr(" : unable to read data from file\n"));
}

TEST_F(ParserTest, DeviceAsAnIncludedFileIsReportedAsAFileThatCannotBeOpened) {
  EXPECT_FALSE(
      parseSchema("<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'>"
                  "<xs:include schemaLocation='/dev/zero'/></xs:schema>"));
  EXPECT_EQ(captured.err(),
            "Warning : (Line 0, Col 0) : unable to open primary document entity '/dev/zero'\n");
}

}  // namespace
}  // namespace fdmorph
