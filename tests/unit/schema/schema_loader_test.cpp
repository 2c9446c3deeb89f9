// Schemas from files are read once and reported each time.

#include "schema/schema_loader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "schema/schema_preprocessing.h"
#include "support/parser_fixture.h"
#include "support/trees.h"
#include "text/console.h"

namespace fdmorph {
namespace {

using testing::ElementsAre;

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
  CDMDOMParser platform{store};  // keeps the XML library initialized
  SchemaFileLoader loader{store};
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
