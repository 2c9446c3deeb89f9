// A redefine includes a file and replaces components of it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/schema_fixture.h"

namespace fdmorph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Redefine : public SchemaTest {
 protected:
  static bool standsInARedefine(CDMXMLElement const* component) {
    return component->getParent()->name == "xs:redefine";
  }
};

TEST_F(Redefine, NewVersionReplacesTheOldOneInTheSchema) {
  loader.add("/s/a.xsd", schema({component("complexType", "T"), component("element", "a")}));
  load(schema({redefine("a.xsd", {component("complexType", "T")})}));
  EXPECT_THAT(mainComponents(), ElementsAre("", "a", "T"));
  EXPECT_THAT(namesOf(document->complexTypes), ElementsAre("T"));
  EXPECT_TRUE(standsInARedefine(document->complexTypes.findByName("T")));
}

TEST_F(Redefine, OldVersionIsKeptInAListOfItsOwn) {
  loader.add("/s/a.xsd", schema({component("complexType", "T")}));
  load(schema({redefine("a.xsd", {component("complexType", "T")})}));
  ASSERT_THAT(namesOf(document->redefinedElements), ElementsAre("T"));
  EXPECT_FALSE(standsInARedefine(document->redefinedElements.findByName("T")));
}

TEST_F(Redefine, NewVersionGetsNoCopiesOfNamespaceDeclarations) {
  loader.add("/s/a.xsd", schemaOf("urn:a", {component("complexType", "T")}));
  load(schema({redefine("a.xsd", {component("complexType", "T")})}));
  CDMXMLElement const* fresh = document->complexTypes.findByName("T");
  EXPECT_EQ(fresh->getAttributes().size(), 1U);
  CDMXMLElement const* former = document->redefinedElements.findByName("T");
  EXPECT_NE(former->getAttribute("targetNamespace"), nullptr);
}

TEST_F(Redefine, ComponentWithoutAnOldVersionIsIgnored) {
  loader.add("/s/a.xsd", schema({component("complexType", "T")}));
  load(schema({redefine("a.xsd", {component("complexType", "U")})}));
  EXPECT_THAT(namesOf(document->complexTypes), ElementsAre("T"));
  EXPECT_THAT(namesOf(document->redefinedElements), IsEmpty());
}

TEST_F(Redefine, ComponentWithoutANameIsIgnored) {
  loader.add("/s/a.xsd", schema({component("complexType", ""), component("element", "a")}));
  load(schema({redefine("a.xsd", {{"xs:annotation"}, component("complexType", "")})}));
  EXPECT_THAT(mainComponents(), ElementsAre("", "", "a"));
  EXPECT_THAT(namesOf(document->redefinedElements), IsEmpty());
}

TEST_F(Redefine, KindsAreNotCompared) {
  loader.add("/s/a.xsd", schema({component("group", "N"), component("complexType", "N")}));
  load(schema({redefine("a.xsd", {component("complexType", "N")})}));
  ASSERT_EQ(document->redefinedElements.size(), 1U);
  EXPECT_EQ((*document->redefinedElements.begin())->name, "xs:group");
  EXPECT_TRUE(document->groups.empty());
  EXPECT_EQ(document->complexTypes.size(), 2U);
}

TEST_F(Redefine, OneVersionIsReplacedForEachChild) {
  loader.add("/s/a.xsd", schema({component("complexType", "T"), component("complexType", "T")}));
  load(schema({redefine("a.xsd", {component("complexType", "T")})}));
  EXPECT_EQ(document->complexTypes.size(), 2U);
  EXPECT_EQ(document->redefinedElements.size(), 1U);
}

TEST_F(Redefine, AllPendingComponentsCanBeReplaced) {
  loader.add("/s/a.xsd", schema({component("complexType", "T")}));
  loader.add("/s/b.xsd", schema({component("element", "b")}));
  load(schema({include("a.xsd"), redefine("b.xsd", {component("complexType", "T")})}));
  EXPECT_THAT(namesOf(document->redefinedElements), ElementsAre("T"));
  EXPECT_TRUE(standsInARedefine(document->complexTypes.findByName("T")));
}

TEST_F(Redefine, LaterComponentsCannotBeReplaced) {
  loader.add("/s/a.xsd", schema({component("complexType", "T")}));
  loader.add("/s/b.xsd", schema({component("element", "b")}));
  load(schema({redefine("b.xsd", {component("complexType", "T")}), include("a.xsd")}));
  EXPECT_THAT(namesOf(document->redefinedElements), IsEmpty());
  EXPECT_FALSE(standsInARedefine(document->complexTypes.findByName("T")));
}

TEST_F(Redefine, ComponentsOfTheMainFileAreNotReplaced) {
  loader.add("/s/a.xsd", schema({component("element", "a")}));
  load(schema({component("complexType", "T"), redefine("a.xsd", {component("complexType", "T")})}));
  EXPECT_THAT(namesOf(document->redefinedElements), IsEmpty());
  EXPECT_EQ(document->complexTypes.size(), 1U);
}

TEST_F(Redefine, ComponentsOfANestedFileCannotBeReplaced) {
  loader.add("/s/a.xsd", schema({include("b.xsd")}));
  loader.add("/s/b.xsd", schema({component("complexType", "T")}));
  load(schema({redefine("a.xsd", {component("complexType", "T")})}));
  EXPECT_THAT(namesOf(document->redefinedElements), IsEmpty());
  EXPECT_FALSE(standsInARedefine(document->complexTypes.findByName("T")));
}

TEST_F(Redefine, OldVersionsOfAnIncludedFileAreLost) {
  loader.add("/s/a.xsd", schema({redefine("b.xsd", {component("complexType", "T")})}));
  loader.add("/s/b.xsd", schema({component("complexType", "T")}));
  load(schema({include("a.xsd")}));
  EXPECT_THAT(namesOf(document->redefinedElements), IsEmpty());
  EXPECT_THAT(namesOf(document->complexTypes), ElementsAre("T"));
  EXPECT_TRUE(standsInARedefine(document->complexTypes.findByName("T")));
}

TEST_F(Redefine, OfAnUnusableFileChangesNothing) {
  load(schema({component("element", "m"), redefine("gone.xsd", {component("complexType", "T")})}));
  EXPECT_THAT(mainComponents(), ElementsAre("m", ""));
  EXPECT_TRUE(document->complexTypes.empty());
}

}  // namespace
}  // namespace fdmorph
