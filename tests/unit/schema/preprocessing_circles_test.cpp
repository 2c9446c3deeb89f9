// Circles among the files that a schema refers to.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "support/schema_fixture.h"

namespace fdmorph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SchemaCircles : public SchemaTest {
 protected:
  static std::string inWorkingDirectory(std::string const& name) {
    return (std::filesystem::current_path() / name).string();
  }
};

TEST_F(SchemaCircles, FileThatIncludesItselfIsLoadedOnce) {
  load(schema({include("main.xsd"), component("element", "m")}));
  EXPECT_THAT(loader.loads, IsEmpty());
  EXPECT_THAT(namesOf(document->elements), ElementsAre("m"));
}

TEST_F(SchemaCircles, TwoFilesThatIncludeEachOtherAreLoadedOnce) {
  loader.add("/s/a.xsd", schema({include("main.xsd"), component("element", "a")}));
  load(schema({include("a.xsd"), include("a.xsd"), component("element", "m")}));
  EXPECT_THAT(loader.loads, ElementsAre("/s/a.xsd"));
  EXPECT_THAT(namesOf(document->elements), ElementsAre("m", "a"));
}

TEST_F(SchemaCircles, CircleAfterADiamondIsLoadedOnceAndTheDiamondEachTime) {
  loader.add("/s/a.xsd", schema({include("c.xsd"), component("element", "a")}));
  loader.add("/s/b.xsd", schema({include("c.xsd"), component("element", "b")}));
  loader.add("/s/c.xsd", schema({include("d.xsd"), component("element", "c")}));
  loader.add("/s/d.xsd", schema({include("c.xsd"), component("element", "d")}));
  load(schema({include("a.xsd"), include("b.xsd"), include("a.xsd")}));
  EXPECT_THAT(loader.loads,
              ElementsAre("/s/a.xsd", "/s/c.xsd", "/s/d.xsd", "/s/b.xsd", "/s/a.xsd"));
  EXPECT_THAT(namesOf(document->elements), ElementsAre("d", "c", "a", "b", "a"));
}

TEST_F(SchemaCircles, ImportsAreResolvedAgainstTheWorkingDirectory) {
  loader.add("a.xsd", schema({import("urn:m", "main.xsd"), component("element", "a")}));
  load(schema({import("urn:a", "a.xsd")}), inWorkingDirectory("main.xsd"));
  EXPECT_THAT(loader.loads, ElementsAre("a.xsd"));
  EXPECT_EQ(document->importedSchemas.size(), 1U);
}

TEST_F(SchemaCircles, ImportOfAFileOfTheSameNameElsewhereIsNotACircle) {
  loader.add("main.xsd", schema({component("element", "other")}));
  load(schema({import("urn:m", "main.xsd")}), "/elsewhere/main.xsd");
  EXPECT_THAT(loader.loads, ElementsAre("main.xsd"));
  EXPECT_EQ(document->importedSchemas.size(), 1U);
}

TEST_F(SchemaCircles, AllKindsOfReferencesMakeOneCircle) {
  std::string const b = inWorkingDirectory("b.xsd");
  loader.add("a.xsd", schema({include("b.xsd"), component("element", "a")}));
  loader.add("b.xsd", schema({redefine("main.xsd", {}), component("element", "b")}));
  load(schema({import("urn:a", "a.xsd"), include(b), component("element", "m")}),
       inWorkingDirectory("main.xsd"));
  EXPECT_THAT(loader.loads, ElementsAre("a.xsd", "b.xsd"));
  EXPECT_THAT(namesOf(document->elements), ElementsAre("m", "b"));
}

TEST_F(SchemaCircles, SkippedRedefineStillReplacesPendingComponents) {
  loader.add("/s/a.xsd", schema({component("complexType", "T")}));
  load(schema({include("a.xsd"), redefine("main.xsd", {component("complexType", "T")})}));
  EXPECT_THAT(namesOf(document->redefinedElements), ElementsAre("T"));
  EXPECT_EQ(document->complexTypes.size(), 1U);
}

TEST_F(SchemaCircles, UnusableFileIsAskedForEachTime) {
  load(schema({include("gone.xsd"), include("gone.xsd")}));
  EXPECT_THAT(loader.loads, ElementsAre("/s/gone.xsd", "/s/gone.xsd"));
}

}  // namespace
}  // namespace fdmorph
