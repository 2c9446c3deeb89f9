// Included files are flattened into the main document.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/schema_fixture.h"

namespace fdmorph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> attributeNames(CDMXMLElement const* element) {
  std::vector<std::string> names;
  for (CDMXMLAttribute const* each : element->getAttributes()) names.push_back(each->name);
  return names;
}

class Include : public SchemaTest {};

TEST_F(Include, ComponentsFollowThoseOfTheMainFileInTheOrderOfTheIncludes) {
  loader.add("/s/a.xsd", schema({component("element", "a1"), component("element", "a2")}));
  loader.add("/s/b.xsd", schema({component("element", "b1")}));
  load(schema({include("a.xsd"), component("element", "m"), include("b.xsd")}));
  EXPECT_THAT(namesOf(document->elements), ElementsAre("m", "a1", "a2", "b1"));
  EXPECT_THAT(mainComponents(), ElementsAre("", "m", "", "a1", "a2", "b1"));
  EXPECT_THAT(loader.loads, ElementsAre("/s/a.xsd", "/s/b.xsd"));
}

TEST_F(Include, ComponentsOfANestedFileComeBeforeThoseOfTheIncludingFile) {
  loader.add("/s/a.xsd", schema({include("b.xsd"), component("element", "a")}));
  loader.add("/s/b.xsd", schema({component("element", "b")}));
  load(schema({include("a.xsd"), component("element", "m")}));
  EXPECT_THAT(namesOf(document->elements), ElementsAre("m", "b", "a"));
}

TEST_F(Include, FiveKindsAreMovedAndTheOthersStay) {
  loader.add("/s/a.xsd", schema({{"xs:annotation"},
                                 component("element", "e"),
                                 component("attribute", "at"),
                                 component("attributeGroup", "ag"),
                                 component("simpleType", "s"),
                                 component("group", "g"),
                                 component("complexType", "c"),
                                 component("notation", "n")}));
  load(schema({include("a.xsd")}));
  EXPECT_THAT(mainComponents(), ElementsAre("", "e", "ag", "s", "g", "c"));
  EXPECT_TRUE(document->attributes.empty());
  EXPECT_THAT(namesOf(document->groups), ElementsAre("g"));
}

TEST_F(Include, ComponentHasTheNamespacesOfItsFileAfterItsOwnAttributes) {
  loader.add("/s/a.xsd", {"xs:schema",
                          {{"xmlns:xs", "http://www.w3.org/2001/XMLSchema"},
                           {"version", "1"},
                           {"targetNamespace", "urn:a"},
                           {"xmlns", "urn:d"}},
                          {{"xs:element", {{"name", "a"}, {"type", "T"}}}}});
  load(schema({include("a.xsd")}));
  CDMXMLElement const* a = document->elements.findByName("a");
  EXPECT_THAT(attributeNames(a),
              ElementsAre("name", "type", "xmlns:xs", "targetNamespace", "xmlns"));
  CDMXMLElement const* itsRoot = a->getParent();
  EXPECT_EQ(a->getAttribute("targetNamespace"), itsRoot->getAttribute("targetNamespace"))
      << "shared, not copied";
}

TEST_F(Include, MovedComponentKeepsItsParent) {
  loader.add("/s/a.xsd", schemaOf("urn:a", {component("element", "a")}));
  load(schema({include("a.xsd")}));
  CDMXMLElement const* a = document->elements.findByName("a");
  ASSERT_NE(a->getParent(), nullptr);
  EXPECT_NE(a->getParent(), document->rootElement);
  EXPECT_EQ(a->getParent()->getAttribute("targetNamespace")->value, "urn:a");
}

TEST_F(Include, MovedComponentIsTheLastOfTheMainRoot) {
  loader.add("/s/a.xsd", schema({component("element", "a"), component("attribute", "stays")}));
  load(schema({include("a.xsd"), component("element", "m")}));
  CDMXMLElement* a = document->elements.findByName("a");
  EXPECT_EQ(a->getPrevSibling(), document->elements.findByName("m"));
  EXPECT_EQ(a->getNextSibling(), nullptr);
}

TEST_F(Include, DeclarationsOfIncludedFilesAreListedFirst) {
  loader.add("/s/a.xsd", {"xs:schema", {{"xmlns:a", "urn:a"}}, {component("element", "a")}});
  load({"xs:schema", {{"xmlns:m", "urn:m"}}, {include("a.xsd")}});
  std::vector<std::string> names;
  for (CDMXMLAttribute const* each : document->namespaceAttributes) names.push_back(each->name);
  EXPECT_THAT(names, ElementsAre("xmlns:a", "xmlns:m"));
}

TEST_F(Include, RelativeLocationStartsAtTheIncludingFile) {
  loader.add("/s/sub/a.xsd", schema({include("b.xsd"), include("../c.xsd")}));
  load(schema({include("sub/a.xsd")}));
  EXPECT_THAT(loader.loads, ElementsAre("/s/sub/a.xsd", "/s/sub/b.xsd", "/s/c.xsd"));
}

TEST_F(Include, AbsoluteLocationStays) {
  loader.add("/other/a.xsd", schema({include("b.xsd")}));
  load(schema({include("/other/a.xsd")}));
  EXPECT_THAT(loader.loads, ElementsAre("/other/a.xsd", "/other/b.xsd"));
}

TEST_F(Include, LocationOfAUrlIsPassedOnAndIsNotABase) {
  loader.add("http://example.org/x/a.xsd", schema({include("b.xsd")}));
  load(schema({include("http://example.org/x/a.xsd")}));
  EXPECT_THAT(loader.loads, ElementsAre("http://example.org/x/a.xsd", "/s/b.xsd"));
}

TEST_F(Include, WithoutALocationIsSkipped) {
  load(schema({{"xs:include"}, component("element", "m")}));
  EXPECT_THAT(loader.loads, IsEmpty());
  EXPECT_THAT(namesOf(document->elements), ElementsAre("m"));
}

TEST_F(Include, UnusableFileOnlyLacksItsComponents) {
  loader.add("/s/b.xsd", schema({component("element", "b")}));
  load(schema({include("missing.xsd"), include("b.xsd"), component("element", "m")}));
  EXPECT_THAT(namesOf(document->elements), ElementsAre("m", "b"));
}

TEST_F(Include, FileOtherThanASchemaAddsNothing) {
  loader.add("/s/a.xsd", {"html", {}, {component("element", "a")}});
  load(schema({include("a.xsd"), component("element", "m")}));
  EXPECT_THAT(mainComponents(), ElementsAre("", "m"));
}

TEST_F(Include, FileReachedTwiceAddsItsComponentsTwiceAndTheFirstIsFound) {
  loader.add("/s/a.xsd", schema({component("complexType", "T")}));
  load(schema({include("a.xsd"), include("a.xsd")}));
  EXPECT_THAT(loader.loads, ElementsAre("/s/a.xsd", "/s/a.xsd"));
  EXPECT_THAT(namesOf(document->complexTypes), ElementsAre("T", "T"));
  EXPECT_EQ(document->complexTypes.findByName("T"), *document->complexTypes.begin());
}

TEST_F(Include, AtAnyDepthOfTheFileIsRead) {
  loader.add("/s/a.xsd", schema({component("element", "a")}));
  load(schema({component("complexType", "T", {include("a.xsd")})}));
  EXPECT_THAT(namesOf(document->elements), ElementsAre("a"));
}

class SetSize : public SchemaTest {
 protected:
  /// Whether a set is too large whose main file includes a.xsd so many times, with a
  /// limit of three files.
  bool isTooLarge(std::size_t inclusions) {
    loader.add("/s/a.xsd", schema({component("element", "a")}));
    std::vector<Tree> parts(inclusions, include("a.xsd"));
    constexpr std::size_t kLimit = 3;
    return SchemaPreprocessing(loader, kLimit)
        .PreProcessSchema(buildDocument(store, schema(std::move(parts))), "/s/main.xsd")
        .isTooLarge;
  }
};

TEST_F(SetSize, BelowAndAtTheLimitIsNotTooLarge) {
  EXPECT_FALSE(isTooLarge(2));
  EXPECT_FALSE(isTooLarge(3));
}

TEST_F(SetSize, AboveTheLimitIsTooLargeAndNoMoreIsLoaded) {
  EXPECT_TRUE(isTooLarge(5));
  EXPECT_EQ(loader.loads.size(), 3U);
}

TEST_F(SetSize, FilesBelowOthersAndImportsCount) {
  loader.add("/s/b.xsd", schema({include("c.xsd"), include("c.xsd"), import("urn:d", "d.xsd")}));
  loader.add("/s/c.xsd", schema({}));
  loader.add("d.xsd", schema({}));
  EXPECT_TRUE(SchemaPreprocessing(loader, 3)
                  .PreProcessSchema(buildDocument(store, schema({include("b.xsd")})), "/s/m.xsd")
                  .isTooLarge);
}

}  // namespace
}  // namespace fdmorph
