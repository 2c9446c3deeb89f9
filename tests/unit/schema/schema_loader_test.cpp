// Schemas from files are read once and reported each time.

#include "schema/schema_loader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "schema/schema_preprocessing.h"
#include "support/parser_fixture.h"
#include "support/trees.h"
#include "text/console.h"

namespace fdmorph {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class FileLoader : public ConsoleTest {
 protected:
  std::string announced(std::string const& name) const {
    return "\nValidating " + folder.path(name) + " for well-formedness.\n";
  }

  /// The schema main.xsd with the top node `main`, and what it refers to.
  SchemaSet flatten(CDMXMLElement* main) {
    return SchemaPreprocessing(loader).PreProcessSchema(main, folder.path("main.xsd"));
  }

  TemporaryFolder folder;
  CDMXMLNodeStore store;
  InputFiles files;
  CDMDOMParser platform{store, files};  // keeps the XML library initialized
  SchemaFileLoader loader{store, files};
};

TEST_F(FileLoader, GoodFileHasATree) {
  CDMXMLElement* tree = loader.load(folder.write("a.xsd", kGoodSchema));
  ASSERT_NE(tree, nullptr);
  EXPECT_EQ(tree->name, "");
  EXPECT_EQ(tree->getFirstChildElem()->name, "xs:schema");
  EXPECT_EQ(captured.out(), announced("a.xsd"));
  EXPECT_EQ(captured.err(), "");
}

TEST_F(FileLoader, FileLoadedTwiceIsAnnouncedTwiceAndHasTwoTrees) {
  std::string const file = folder.write("a.xsd", kGoodSchema);
  CDMXMLElement* first = loader.load(file);
  CDMXMLElement* second = loader.load(file);
  ASSERT_NE(first, nullptr);
  ASSERT_NE(second, nullptr);
  EXPECT_NE(first, second);
  EXPECT_NE(named(first, "a"), nullptr);
  EXPECT_NE(named(second, "a"), nullptr);
  EXPECT_NE(named(first, "a"), named(second, "a"));
  EXPECT_EQ(captured.out(), announced("a.xsd") + announced("a.xsd"));
}

TEST_F(FileLoader, FileAskedForAgainIsNotReadAgain) {
  std::string const file = folder.write("a.xsd", kGoodSchema);
  EXPECT_NE(loader.load(file), nullptr);
  std::filesystem::remove(file);
  EXPECT_NE(loader.load(file), nullptr);
  EXPECT_EQ(captured.err(), "");
}

TEST_F(FileLoader, BadFileIsReportedAndCountedEachTime) {
  std::string const file = folder.write("a.xsd", kBadSchema);
  EXPECT_EQ(loader.load(file), nullptr);
  std::string const once = captured.err();
  EXPECT_EQ(countOf("\n", once), 1);
  EXPECT_EQ(console.m_nErrorCount, 1);
  EXPECT_EQ(loader.load(file), nullptr);
  EXPECT_EQ(captured.err(), once + once);
  EXPECT_EQ(console.m_nErrorCount, 2);
  EXPECT_EQ(captured.out(), announced("a.xsd") + announced("a.xsd"));
}

TEST_F(FileLoader, MissingFileIsReportedEachTime) {
  EXPECT_EQ(loader.load(folder.path("missing.xsd")), nullptr);
  std::string const once = captured.err();
  int const count = console.m_nErrorCount + console.m_nWarningCount;
  EXPECT_GT(count, 0);
  EXPECT_EQ(loader.load(folder.path("missing.xsd")), nullptr);
  EXPECT_EQ(captured.err(), once + once);
  EXPECT_EQ(console.m_nErrorCount + console.m_nWarningCount, 2 * count);
}

TEST_F(FileLoader, NoFileIsUsableAfterAReport) {
  std::string const bad = folder.write("bad.xsd", kBadSchema);
  std::string const good = folder.write("good.xsd", kGoodSchema);
  EXPECT_EQ(loader.load(bad), nullptr);
  EXPECT_EQ(loader.load(good), nullptr);
  EXPECT_EQ(captured.out(), announced("bad.xsd") + announced("good.xsd"));
}

TEST_F(FileLoader, GoodFileIsUnusableAfterAReport) {
  std::string const good = folder.write("good.xsd", kGoodSchema);
  EXPECT_NE(loader.load(good), nullptr);
  out() << "Warning : x";
  EXPECT_EQ(loader.load(good), nullptr);
}

TEST_F(FileLoader, FileOutsideCirclesAddsItsComponentsEachTime) {
  folder.write("a.xsd", kGoodSchema);
  CDMXMLElement* main = buildDocument(store, {"xs:schema",
                                              {},
                                              {{"xs:include", {{"schemaLocation", "a.xsd"}}},
                                               {"xs:include", {{"schemaLocation", "a.xsd"}}}}});
  SchemaSet const schemas = flatten(main);
  EXPECT_THAT(namesOf(schemas.main.elements), ElementsAre("a", "a"));
  EXPECT_EQ(captured.out(), announced("a.xsd") + announced("a.xsd"));
}

TEST_F(FileLoader, FileAskedForByAnotherSpellingIsNotLoadedAgain) {
  folder.write("a.xsd", kGoodSchema);
  EXPECT_NE(loader.load(folder.path("a.xsd")), nullptr);
  EXPECT_NE(loader.load(folder.path("./a.xsd")), nullptr);
  EXPECT_EQ(files.references().loads(), 1U);
  EXPECT_EQ(captured.out(), announced("a.xsd") + announced("./a.xsd"));
}

TEST_F(FileLoader, BadFileAskedForByAnotherSpellingIsReportedByIt) {
  std::string const file = folder.write("a.xsd", kBadSchema);
  std::filesystem::create_symlink(file, folder.path("link.xsd"));
  EXPECT_EQ(loader.load(file), nullptr);
  std::string const once = captured.err();
  EXPECT_EQ(loader.load(folder.path("link.xsd")), nullptr);
  EXPECT_THAT(captured.err().substr(once.size()), HasSubstr(folder.path("link.xsd") + "(Line "));
}

/// Files f0.xsd to f<n-1>.xsd, each with an element e<i>.
class FileSets : public FileLoader {
 protected:
  using References = std::vector<std::vector<std::size_t>>;

  void write(References const& references) {
    for (std::size_t i = 0; i < references.size(); ++i) {
      std::string text = R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">)";
      for (std::size_t other : references[i]) {
        text += "<xs:include schemaLocation='f" + std::to_string(other) + ".xsd'/>";
      }
      text += "<xs:element name='e" + std::to_string(i) + "' type='xs:int'/></xs:schema>";
      folder.write("f" + std::to_string(i) + ".xsd", text);
    }
  }

  /// The set that begins with f0.xsd, which is loaded first.
  SchemaSet convert() {
    std::string const main = folder.path("f0.xsd");
    EXPECT_TRUE(platform.ParseFile(main, CDMDOMParser::FILE_TYPE::XML_SCHEMA, true));
    loadsOfMain = files.references().loads();
    return SchemaPreprocessing(loader).PreProcessSchema(platform.getXMLDocument(), main);
  }

  /// The number of loads after the one of the main file.
  std::size_t furtherLoads() { return files.references().loads() - loadsOfMain; }

  static References ring(std::size_t size) {
    References references(size);
    for (std::size_t i = 0; i < size; ++i) references[i] = {(i + 1) % size};
    return references;
  }

  std::size_t loadsOfMain = 0;
};

TEST_F(FileSets, CircleOfTheMainFileNeedsNoFurtherLoads) {
  write(ring(20));
  SchemaSet const schemas = convert();
  EXPECT_EQ(schemas.main.elements.size(), 20U);
  EXPECT_EQ(furtherLoads(), 0U);
  EXPECT_EQ(countOf("Validating ", captured.out()), 20);
  EXPECT_EQ(captured.err(), "");
}

TEST_F(FileSets, FilesThatAllIncludeEachOtherNeedNoFurtherLoads) {
  References references(12);
  for (std::size_t i = 0; i < references.size(); ++i) {
    for (std::size_t other = 0; other < references.size(); ++other) {
      if (other != i) references[i].push_back(other);
    }
  }
  write(references);
  EXPECT_EQ(convert().main.elements.size(), 12U);
  EXPECT_EQ(furtherLoads(), 0U);
}

TEST_F(FileSets, OtherCirclesNeedOneLoadEach) {
  write({{1, 4}, {2}, {3}, {1}, {5}, {4}});
  EXPECT_EQ(convert().main.elements.size(), 6U);
  EXPECT_EQ(furtherLoads(), 2U);
}

TEST_F(FileSets, FilesOfAStarAreLoadedOnceEach) {
  References references(20);
  for (std::size_t i = 1; i < references.size(); ++i) references[0].push_back(i);
  write(references);
  EXPECT_EQ(convert().main.elements.size(), 20U);
  EXPECT_EQ(furtherLoads(), 19U);
}

TEST_F(FileSets, ChainUnderTwoSpellingsNeedsOneLoadForEachFile) {
  // Each file contributes twice as often as the one before it.
  constexpr std::size_t kLength = 7;
  for (std::size_t i = 0; i < kLength; ++i) {
    std::string next = "f" + std::to_string(i + 1) + ".xsd";
    std::string text = R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">)";
    if (i + 1 < kLength) {
      text += "<xs:include schemaLocation='" + next + "'/><xs:include schemaLocation='./" + next +
              "'/>";
    }
    folder.write("f" + std::to_string(i) + ".xsd",
                 text + "<xs:element name='e" + std::to_string(i) + "'/></xs:schema>");
  }
  EXPECT_EQ(convert().main.elements.size(), (1U << kLength) - 1);
  EXPECT_EQ(furtherLoads(), kLength - 1);
}

TEST_F(FileSets, EachFileIsReadFromDiskOnce) {
  write({{1, 4}, {2}, {3}, {1}, {}});
  std::string const main = folder.path("f0.xsd");
  ASSERT_TRUE(platform.ParseFile(main, CDMDOMParser::FILE_TYPE::XML_SCHEMA, true));
  for (int i = 0; i < 5; ++i) {
    std::filesystem::remove(folder.path("f" + std::to_string(i) + ".xsd"));
  }
  SchemaSet const schemas =
      SchemaPreprocessing(loader).PreProcessSchema(platform.getXMLDocument(), main);
  EXPECT_EQ(schemas.main.elements.size(), 5U);
  EXPECT_EQ(captured.err(), "");
}

TEST_F(FileSets, MemberOfACircleIsStillCheckedWhenALoadSaysNothingOfIt) {
  // The main file gives its namespace to the one that it includes, which may not
  // include a file with a namespace by itself.
  folder.write("f0.xsd", R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema")"
                         R"( targetNamespace="urn:a"><xs:include schemaLocation="f1.xsd"/>)"
                         R"(<xs:element name="e"/></xs:schema>)");
  folder.write("f1.xsd", R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">)"
                         R"(<xs:include schemaLocation="f0.xsd"/></xs:schema>)");
  convert();
  EXPECT_EQ(furtherLoads(), 1U);
  EXPECT_GT(console.m_nErrorCount, 0);
}

TEST_F(FileLoader, CopyIsMadeOfTheTreeAsItWasRead) {
  folder.write("a.xsd",
               R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema" targetNamespace="urn:a">
  <xs:element name="a" type="xs:int"/>
</xs:schema>
)");
  CDMXMLElement* main =
      buildDocument(store, {"xs:schema", {}, {{"xs:include", {{"schemaLocation", "a.xsd"}}}}});
  SchemaSet const schemas = flatten(main);
  ASSERT_NE(schemas.main.elements.findByName("a")->getAttribute("targetNamespace"), nullptr);
  CDMXMLElement* again = loader.load(folder.path("a.xsd"));
  EXPECT_EQ(named(again, "a")->getAttribute("targetNamespace"), nullptr);
}

}  // namespace
}  // namespace fdmorph
