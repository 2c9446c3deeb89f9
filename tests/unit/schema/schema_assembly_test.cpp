// Schemas from files, by a resolver of locations.

#include "schema/schema_assembly.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/captured_console.h"
#include "support/temporary_folder.h"
#include "support/trees.h"

namespace fdmorph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Assembly : public ConsoleTest {
 protected:
  std::string write(std::string const& name, std::string_view content, std::string const& uri = "",
                    std::string_view more = "") {
    std::filesystem::create_directories(std::filesystem::path(folder.path(name)).parent_path());
    std::string text = "<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\"";
    if (!uri.empty()) text += " targetNamespace=\"" + uri + "\"";
    return folder.write(name, text.append(more).append(">\n").append(content) + "</xs:schema>\n");
  }

  void assemble(std::string const& main, std::size_t maxFiles = kMaxSchemaFiles) {
    SchemaAssembly assembly(store, resolver, maxFiles);
    schema = assembly.assemble(main);
    faults = assembly.faults();
    files = assembly.files();
  }

  /// The faults as lines of names in the folder.
  std::vector<std::string> lines() const {
    std::vector<std::string> result;
    for (XmlFault const& fault : faults) {
      result.push_back(std::filesystem::path(fault.file).filename().string() + ":" +
                       std::to_string(fault.line) + ":" + std::to_string(fault.column) + ": " +
                       fault.text);
    }
    return result;
  }

  CDMXMLSchemaDoc const* imported(std::string_view uri) const {
    return CDMXMLNamespaceSchemaPair::findDocumentByNamespace(uri, schema.main.importedSchemas);
  }

  TemporaryFolder folder;
  CDMXMLNodeStore store;
  FileResolver resolver;
  SchemaSet schema;
  std::vector<XmlFault> faults;
  std::vector<std::string> files;
};

TEST_F(Assembly, LocationsAreThoseOfTheNamingFile) {
  write("a/types.xsd", "<xs:include schemaLocation='../b/more.xsd'/><xs:element name='t'/>");
  write("b/more.xsd", "<xs:include schemaLocation='next.xsd'/><xs:element name='m'/>");
  write("b/next.xsd", "<xs:attribute name='n'/>");
  assemble(write("main.xsd", "<xs:include schemaLocation='a/types.xsd'/><xs:element name='e'/>"));
  EXPECT_THAT(namesOf(schema.main.elements), ElementsAre("e", "m", "t"));
  EXPECT_THAT(namesOf(schema.main.attributes), ElementsAre("n"));
  EXPECT_THAT(files, ElementsAre(folder.path("main.xsd"), folder.path("a/types.xsd"),
                                 folder.path("b/more.xsd"), folder.path("b/next.xsd")));
  EXPECT_THAT(faults, IsEmpty());
}

TEST_F(Assembly, FilesOfANamespaceMakeOneDocument) {
  write("n1.xsd", "<xs:include schemaLocation='n2.xsd'/><xs:element name='one'/>", "urn:n");
  write("n2.xsd", "<xs:element name='two'/>", "urn:n");
  write("n3.xsd", "<xs:element name='three'/>", "urn:n");
  write("o.xsd", "<xs:import namespace='urn:n' schemaLocation='n3.xsd'/><xs:element name='o'/>",
        "urn:o");
  assemble(write("main.xsd",
                 "<xs:import namespace='urn:n' schemaLocation='n1.xsd'/>"
                 "<xs:import namespace='urn:o' schemaLocation='o.xsd'/>",
                 "urn:m"));
  ASSERT_NE(imported("urn:n"), nullptr);
  EXPECT_THAT(namesOf(imported("urn:n")->elements), ElementsAre("one", "two", "three"));
  EXPECT_THAT(namesOf(imported("urn:o")->elements), ElementsAre("o"));
  EXPECT_THAT(schema.main.elements, IsEmpty());
}

TEST_F(Assembly, ImportBackIntoTheMainNamespaceJoinsTheMainDocument) {
  write("other.xsd",
        "<xs:import namespace='urn:m' schemaLocation='part.xsd'/><xs:element name='o'/>", "urn:o");
  write("part.xsd", "<xs:element name='p'/>", "urn:m");
  assemble(write("main.xsd",
                 "<xs:import namespace='urn:o' schemaLocation='other.xsd'/>"
                 "<xs:include schemaLocation='part.xsd'/><xs:element name='e'/>",
                 "urn:m"));
  EXPECT_THAT(namesOf(schema.main.elements), ElementsAre("e", "p"));
  EXPECT_EQ(imported("urn:m"), nullptr);
}

TEST_F(Assembly, FileThatIsReachedTwiceContributesOnce) {
  write("a.xsd", "<xs:include schemaLocation='c.xsd'/>");
  write("b.xsd", "<xs:include schemaLocation='./c.xsd'/><xs:include schemaLocation='main.xsd'/>");
  write("c.xsd", "<xs:element name='c'/>");
  assemble(write("main.xsd",
                 "<xs:include schemaLocation='a.xsd'/><xs:include schemaLocation='b.xsd'/>"));
  EXPECT_THAT(namesOf(schema.main.elements), ElementsAre("c"));
  EXPECT_EQ(files.size(), 4U);
}

TEST_F(Assembly, IncludedFileWithoutANamespaceTakesThatOfEachIncludingOne) {
  write("common.xsd", "<xs:element name='c' type='T'/>");
  write("other.xsd", "<xs:include schemaLocation='common.xsd'/>", "urn:o");
  assemble(write("main.xsd",
                 "<xs:include schemaLocation='common.xsd'/>"
                 "<xs:import namespace='urn:o' schemaLocation='other.xsd'/>",
                 "urn:m"));
  ASSERT_THAT(namesOf(schema.main.elements), ElementsAre("c"));
  ASSERT_THAT(namesOf(imported("urn:o")->elements), ElementsAre("c"));
  CDMXMLElement const* own = schema.main.elements.findByName("c")->getParent();
  CDMXMLElement const* other = imported("urn:o")->elements.findByName("c")->getParent();
  EXPECT_EQ(own->getAttribute("targetNamespace")->value, "urn:m");
  EXPECT_EQ(own->getAttribute("xmlns")->value, "urn:m");
  EXPECT_EQ(other->getAttribute("targetNamespace")->value, "urn:o");
  EXPECT_EQ(other->getAttribute("xmlns")->value, "urn:o");
}

TEST_F(Assembly, ImportWithoutANamespaceJoinsTheMainDocumentWithoutOne) {
  write("plain.xsd", "<xs:element name='p'/>");
  assemble(write("main.xsd", "<xs:import schemaLocation='plain.xsd'/>", "urn:m"));
  ASSERT_THAT(namesOf(schema.main.elements), ElementsAre("p"));
  EXPECT_EQ(
      schema.main.elements.findByName("p")->getParent()->getAttribute("targetNamespace")->value,
      "");
}

TEST_F(Assembly, RedefineReplacesAComponent) {
  write("base.xsd", "<xs:complexType name='T' id='old'/><xs:complexType name='U'/>");
  assemble(write("main.xsd",
                 "<xs:redefine schemaLocation='base.xsd'><xs:complexType name='T' id='new'/>"
                 "</xs:redefine>"));
  EXPECT_THAT(namesOf(schema.main.complexTypes), ElementsAre("U", "T"));
  EXPECT_EQ(schema.main.complexTypes.findByName("T")->getAttribute("id")->value, "new");
  EXPECT_EQ(schema.main.redefinedElements.findByName("T")->getAttribute("id")->value, "old");
}

TEST_F(Assembly, MissingFilesAreToldWithTheTagThatNamesThem) {
  write("a.xsd", "\n  <xs:import namespace='urn:x'\n      schemaLocation='http://h/x.xsd'/>\n");
  assemble(write("main.xsd",
                 "<xs:include schemaLocation='a.xsd'/> <xs:include schemaLocation='gone.xsd'/>\n"
                 "<xs:redefine schemaLocation='old.xsd'>\n</xs:redefine>"
                 "<xs:import namespace='urn:y'/>"));
  EXPECT_THAT(lines(), ElementsAre("a.xsd:3:3: cannot find the imported file 'http://h/x.xsd'",
                                   "main.xsd:2:38: cannot find the included file 'gone.xsd'",
                                   "main.xsd:3:1: cannot find the redefined file 'old.xsd'"));
  EXPECT_EQ(captured.err(), "");
  EXPECT_EQ(captured.out(), "");
}

TEST_F(Assembly, FileThatIsNoSchemaIsAFault) {
  folder.write("a.xsd", "<schema/>");
  folder.write("b.xsd", "<xs:schema");
  assemble(write("main.xsd",
                 "<xs:include schemaLocation='a.xsd'/><xs:include schemaLocation='b.xsd'/>"));
  ASSERT_EQ(faults.size(), 2U);
  EXPECT_EQ(lines()[0], "a.xsd:1:1: the file is not an XML Schema");
  EXPECT_EQ(faults[1].file, folder.path("b.xsd"));
}

TEST_F(Assembly, DocumentationIsKeptWhole) {
  assemble(write("main.xsd",
                 "<xs:element name='e'><xs:annotation><xs:documentation>One <b>two</b>"
                 " three</xs:documentation></xs:annotation></xs:element>"));
  CDMXMLElement const* annotation = schema.main.elements.findByName("e")->getFirstChildElem();
  EXPECT_EQ(annotation->getFirstChildElem()->value, "One two three");
}

TEST_F(Assembly, MemberOfASubstitutionGroupTakesTheTypeOfItsHead) {
  write("n.xsd", "<xs:element name='head' type='k:T' xmlns:k='urn:n'/>", "urn:n");
  assemble(write("main.xsd",
                 "<xs:import namespace='urn:n' schemaLocation='n.xsd'/>"
                 "<xs:element name='last' substitutionGroup='m:middle'/>"
                 "<xs:element name='middle' substitutionGroup='n:head'/>"
                 "<xs:element name='own' type='m:U' substitutionGroup='n:head'/>",
                 "urn:m", " xmlns:m='urn:m' xmlns:n='urn:n'"));
  for (char const* name : {"last", "middle"}) {
    CDMXMLElement const* element = schema.main.elements.findByName(name);
    ASSERT_NE(element->getAttribute("type"), nullptr);
    EXPECT_EQ(element->getAttribute("type")->value, "k:T");
    EXPECT_EQ(element->getAttribute("xmlns:k")->value, "urn:n");
  }
  EXPECT_EQ(schema.main.elements.findByName("own")->getAttribute("type")->value, "m:U");
}

TEST_F(Assembly, MemberOfASubstitutionGroupTakesACopyOfAnAnonymousType) {
  assemble(write("main.xsd",
                 "<xs:element name='head'><xs:complexType id='t'/></xs:element>"
                 "<xs:element name='member' substitutionGroup='head'/>"));
  CDMXMLElement const* type = schema.main.elements.findByName("member")->getFirstChildElem();
  ASSERT_NE(type, nullptr);
  EXPECT_EQ(type->getAttribute("id")->value, "t");
  EXPECT_NE(type, schema.main.elements.findByName("head")->getFirstChildElem());
  EXPECT_EQ(type->getParent(), schema.main.elements.findByName("member"));
}

TEST_F(Assembly, CircleOfSubstitutionGroupsEnds) {
  assemble(write("main.xsd",
                 "<xs:element name='a' substitutionGroup='b'/>"
                 "<xs:element name='b' substitutionGroup='a'/>"));
  EXPECT_EQ(schema.main.elements.findByName("a")->getAttribute("type"), nullptr);
}

TEST_F(Assembly, NumberOfFilesIsBounded) {
  write("a.xsd", "<xs:include schemaLocation='b.xsd'/>");
  write("b.xsd", "");
  assemble(write("main.xsd", "<xs:include schemaLocation='a.xsd'/>"), 2);
  EXPECT_TRUE(schema.isTooLarge);
  EXPECT_THAT(lines(), ElementsAre("b.xsd:0:0: the schema has more than 2 files"));
}

}  // namespace
}  // namespace fdmorph
