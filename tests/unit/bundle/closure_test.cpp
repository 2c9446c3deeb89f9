// All files that a schema reaches.

#include "bundle/closure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/temporary_folder.h"
#include "xml/uris.h"

namespace fdmorph::bundle {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string schema(std::string const& content) {
  return "<schema xmlns='http://www.w3.org/2001/XMLSchema'>" + content + "</schema>";
}

std::string include(std::string const& location) {
  return "<include schemaLocation='" + location + "'/>";
}

class Closures : public testing::Test {
 protected:
  /// Gathers what a.xsd reaches. The result is "NAME <- SOURCE" for each file.
  std::vector<std::string> gather(std::size_t maxFiles = kMaxFiles) {
    resolver = std::make_unique<FileResolver>(folders, Catalog(catalogs));
    closure = std::make_unique<Closure>(*resolver, std::vector<std::string>{"list.txt"}, maxFiles);
    closure->gather("a.xsd");
    std::vector<std::string> files;
    for (Closure::File const& each : closure->files()) {
      files.push_back(each.name + " <- " + each.source);
    }
    return files;
  }
  std::string content(std::size_t file) { return closure->contentOf(file); }
  std::vector<std::string> findings() const {
    std::vector<std::string> texts;
    for (Finding const& each : closure->findings()) {
      texts.push_back(each.fault.file + ":" + std::to_string(each.fault.line) + ":" +
                      std::to_string(each.fault.column) + " " + each.fault.text);
    }
    return texts;
  }

  WorkingFolder folder;
  std::vector<std::string> folders;
  std::vector<std::string> catalogs;
  std::unique_ptr<FileResolver> resolver;
  std::unique_ptr<Closure> closure;
};

TEST_F(Closures, OfOneFileHaveIt) {
  std::string const text = "\xEF\xBB\xBF<!-- a -->\r\n" + schema("") + "\n";
  folder.write("a.xsd", text);
  EXPECT_THAT(gather(), ElementsAre("a.xsd <- a.xsd"));
  EXPECT_EQ(content(0), text);
  EXPECT_THAT(findings(), IsEmpty());
}

TEST_F(Closures, ChangeLocationsOnly) {
  folder.write("a.xsd", schema("<include id = \"i\" schemaLocation=\"&#46;/sub/b.xsd\" />\t"));
  folder.write("sub/b.xsd", schema(include("c.xsd") + include("../a.xsd")));
  folder.write("sub/c.xsd", schema(include(" b.xsd")));
  EXPECT_THAT(gather(), ElementsAre("a.xsd <- a.xsd", "b.xsd <- sub/b.xsd", "c.xsd <- sub/c.xsd"));
  EXPECT_EQ(content(0), schema("<include id = \"i\" schemaLocation=\"b.xsd\" />\t"));
  EXPECT_EQ(content(1), schema(include("c.xsd") + include("a.xsd")));
  EXPECT_EQ(content(2), schema(include("b.xsd")));
}

TEST_F(Closures, AreGatheredInBreadth) {
  folder.write("a.xsd", schema(include("x/t.xsd") + include("y/t.xsd")));
  folder.write("x/t.xsd", schema(include("z/t.xsd")));
  folder.write("y/t.xsd", schema(""));
  folder.write("x/z/t.xsd", schema(""));
  EXPECT_THAT(gather(), ElementsAre("a.xsd <- a.xsd", "t.xsd <- x/t.xsd", "t-2.xsd <- y/t.xsd",
                                    "t-3.xsd <- x/z/t.xsd"));
  EXPECT_EQ(content(0), schema(include("t.xsd") + include("t-2.xsd")));
  EXPECT_EQ(content(1), schema(include("t-3.xsd")));
}

TEST_F(Closures, HaveAFileOnceWhateverItsSpellings) {
  folder.write("a.xsd", schema(include("b.xsd") + include("./sub/../b.xsd") + include("l.xsd") +
                               include(fileUri("b.xsd")) + include("b.xsd#id") +
                               include(folder.path("b.xsd")) + include("A%2exsd")));
  folder.write("b.xsd", schema(include("a.xsd")));
  std::filesystem::create_directory("sub");
  std::filesystem::create_symlink("b.xsd", "l.xsd");
  std::filesystem::create_symlink("a.xsd", "A.xsd");
  EXPECT_THAT(gather(), ElementsAre("a.xsd <- a.xsd", "b.xsd <- b.xsd"));
  std::string expected;
  for (int i = 0; i < 6; ++i) expected += include("b.xsd");
  EXPECT_EQ(content(0), schema(expected + include("a.xsd")));
}

TEST_F(Closures, FindUrisInFoldersAndNamespacesInCatalogs) {
  folders = {"lib"};
  catalogs = {
      folder.write("catalog.xml", "<catalog><uri name='urn:n' uri='far/n.xsd'/></catalog>")};
  folder.write("a.xsd", schema("<import namespace='urn:n'/><import namespace='urn:o'/>"
                               "<import schemaLocation='http://h.example/p/b.xsd'/>"));
  folder.write("lib/b.xsd", schema("<import namespace='urn:n' schemaLocation=''/>"));
  folder.write("far/n.xsd", schema(""));
  EXPECT_THAT(gather(), ElementsAre("a.xsd <- a.xsd", "n.xsd <- " + folder.path("far/n.xsd"),
                                    "b.xsd <- lib/b.xsd"));
  EXPECT_EQ(content(0), schema("<import namespace='urn:n' schemaLocation=\"n.xsd\"/>"
                               "<import namespace='urn:o'/><import schemaLocation='b.xsd'/>"));
  EXPECT_EQ(content(2), schema("<import namespace='urn:n' schemaLocation='n.xsd'/>"));
  EXPECT_THAT(findings(), IsEmpty());
}

TEST_F(Closures, ReportWhatIsMissingWhereItIsNamed) {
  std::string const url = "http://h.example/b.xsd";
  folder.write("a.xsd", schema("\n" + include(url) + "\n <redefine schemaLocation='x/b.xsd'/>" +
                               include("y/c.xsd")));
  folder.write("y/c.xsd", schema("<import namespace='urn:b' schemaLocation='" + url + "'/>"));
  gather();
  EXPECT_THAT(findings(),
              ElementsAre("a.xsd:2:1 cannot find the included file 'http://h.example/b.xsd'",
                          "a.xsd:3:2 cannot find the redefined file 'x/b.xsd'",
                          "y/c.xsd:1:50 cannot find the imported file 'http://h.example/b.xsd'"));
  // Locations do not lead out of the bundle.
  EXPECT_EQ(content(0), schema("\n" + include("b.xsd") + "\n <redefine schemaLocation='b-2.xsd'/>" +
                               include("c.xsd")));
  EXPECT_EQ(content(1), schema("<import namespace='urn:b' schemaLocation='b.xsd'/>"));
  EXPECT_EQ(closure->findings()[0].kind, Finding::Kind::missing);
  EXPECT_EQ(closure->findings()[1].name, "b-2.xsd");
}

TEST_F(Closures, MayLackHints) {
  folder.write("a.xsd", schema("<annotation xmlns:i='http://www.w3.org/2001/XMLSchema-instance'"
                               " i:schemaLocation='urn:b b.xsd urn:c http://h.example/c.xsd'/>"));
  folder.write("b.xsd", schema(""));
  EXPECT_THAT(gather(), ElementsAre("a.xsd <- a.xsd", "b.xsd <- b.xsd"));
  ASSERT_EQ(closure->findings().size(), 1U);
  EXPECT_EQ(closure->findings()[0].kind, Finding::Kind::missingHint);
  EXPECT_EQ(content(0), schema("<annotation xmlns:i='http://www.w3.org/2001/XMLSchema-instance'"
                               " i:schemaLocation='urn:b b.xsd urn:c c.xsd'/>"));
}

TEST_F(Closures, HaveTheEntitiesOfTheirFiles) {
  folder.write("a.xsd", "<!DOCTYPE schema SYSTEM 'types/a.dtd'>" + schema(include("b.xsd")));
  folder.write("b.xsd", "<!DOCTYPE schema SYSTEM \"types/a.dtd\">" + schema(""));
  folder.write("types/a.dtd", "<!ENTITY % e SYSTEM 'e/list.txt'>%e;");
  folder.write("types/e/list.txt", "<!-- nothing -->");
  EXPECT_THAT(gather(), ElementsAre("a.xsd <- a.xsd", "a.dtd <- types/a.dtd",
                                    "list-2.txt <- types/e/list.txt", "b.xsd <- b.xsd"));
  EXPECT_EQ(content(0), "<!DOCTYPE schema SYSTEM 'a.dtd'>" + schema(include("b.xsd")));
  EXPECT_EQ(content(1), "<!ENTITY % e SYSTEM 'list-2.txt'>%e;");
  EXPECT_EQ(content(3), "<!DOCTYPE schema SYSTEM \"a.dtd\">" + schema(""));
  EXPECT_THAT(findings(), IsEmpty());
}

TEST_F(Closures, NeedTheDocumentType) {
  folder.write("a.xsd", "<!DOCTYPE schema SYSTEM 'x/a.dtd'>" + schema(""));
  gather();
  EXPECT_THAT(findings(),
              ElementsAre("a.xsd:1:26 cannot find the document type definition 'x/a.dtd'"));
}

TEST_F(Closures, CannotReplaceWhatIsWrittenElsewhere) {
  std::string const head = "<!DOCTYPE schema [<!ENTITY e \"" + include("x/b.xsd") +
                           "\"><!ENTITY f \"" + include("c.xsd") + "\">]>\n";
  folder.write("a.xsd", head + schema("&e;&f;"));
  folder.write("x/b.xsd", schema(""));
  folder.write("c.xsd", schema(""));
  gather();
  EXPECT_THAT(findings(),
              ElementsAre("a.xsd:2:50 cannot replace the location 'x/b.xsd', because it is the "
                          "text of an entity or a default value"));
  EXPECT_EQ(closure->findings()[0].kind, Finding::Kind::unusable);
}

TEST_F(Closures, CannotReplaceOneTextByTwo) {
  std::string const head = "<!DOCTYPE schema [<!ENTITY e SYSTEM '";
  folder.write("a.xsd", head + "e.ent'>]>" + schema(include("x/a.xsd") + "&e;"));
  folder.write("x/a.xsd", head + "../e.ent'>]>" + schema("&e;"));
  folder.write("e.ent", include("b.xsd"));
  folder.write("b.xsd", schema(""));
  folder.write("x/b.xsd", schema(""));
  gather();
  EXPECT_THAT(findings(), ElementsAre("e.ent:1:1 cannot replace the location 'b.xsd', which leads "
                                      "from 'x/a.xsd' to another file than before"));
}

TEST_F(Closures, ConsistOfSchemas) {
  folder.write("a.xsd", schema(include("b.html") + include("c.xsd")));
  folder.write("b.html", "<html/>");
  folder.write("c.xsd", "<schema");
  gather();
  ASSERT_EQ(closure->findings().size(), 2U);
  EXPECT_EQ(findings()[0], "b.html:1:1 the file is not an XML Schema");
  EXPECT_EQ(closure->findings()[1].fault.file, "c.xsd");
}

TEST_F(Closures, HaveALimit) {
  folder.write("a.xsd", schema(include("b.xsd") + include("c.xsd") + include("d.xsd")));
  for (char const* name : {"b.xsd", "c.xsd", "d.xsd"}) folder.write(name, schema(""));
  EXPECT_EQ(gather(2).size(), 2U);
  EXPECT_THAT(findings(), ElementsAre("c.xsd:0:0 the schema has more than 2 files"));
}

}  // namespace
}  // namespace fdmorph::bundle
