// The element that a record is made for.

#include "cobol/root_element.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "support/query_fixture.h"

namespace fdmorph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Root : public QueryTest {
 protected:
  /// The name of the element; nothing if there is none.
  std::string find(std::string const& name) {
    root = findRootElement(*document, *namespaces, name);
    return root.element == nullptr ? "" : root.element->getAttribute("name")->value;
  }

  RootElement root;
};

TEST_F(Root, OnlyHeadElementNeedsNoName) {
  use(schema({element("a", {}, {sequenceType({reference("b")})}), element("b")}));
  EXPECT_EQ(find(""), "a");
  EXPECT_EQ(find("b"), "b");
}

TEST_F(Root, SeveralHeadElementsAreListed) {
  use(schema({element("a"), element("b")}));
  EXPECT_EQ(find(""), "");
  EXPECT_THAT(root.candidates, ElementsAre("a", "b"));
}

TEST_F(Root, WithoutAHeadTheGlobalElementsAreCandidates) {
  Tree type = sequenceType({reference("a")});
  use(schema({element("a", {}, {type}), element("x", {{"abstract", "true"}})}));
  EXPECT_EQ(find(""), "a");
  use(schema({element("a", {}, {sequenceType({reference("b")})}),
              element("b", {}, {sequenceType({reference("a")})})}));
  EXPECT_EQ(find(""), "");
  EXPECT_THAT(root.candidates, ElementsAre("a", "b"));
}

TEST_F(Root, UnknownNameListsAllElements) {
  use(schema({element("a"), element("b", {{"abstract", "1"}}), element("c")}));
  EXPECT_EQ(find("d"), "");
  EXPECT_THAT(root.candidates, ElementsAre("a", "c"));
}

TEST_F(Root, AbstractElementIsRefused) {
  use(schema({element("a"), element("b", {{"abstract", "true"}})}));
  EXPECT_EQ(find("b"), "");
  EXPECT_TRUE(root.isAbstract);
}

TEST_F(Root, NamespaceMayBeGiven) {
  loader.add("o.xsd", schemaOf("urn:o", {element("a"), element("o")}));
  loader.add("p.xsd", schemaOf("urn:p", {element("a")}));
  use(schemaOf("urn:m", {import("urn:o", "o.xsd"), import("urn:p", "p.xsd"), element("m")}));
  EXPECT_EQ(find("{urn:m}m"), "m");
  EXPECT_EQ(find("o"), "o");
  EXPECT_EQ(find("{urn:o}a"), "a");
  EXPECT_EQ(find("a"), "");
  EXPECT_THAT(root.candidates, ElementsAre("{urn:o}a", "{urn:p}a"));
  EXPECT_EQ(find("{urn:m}a"), "");
  EXPECT_EQ(find("x"), "");
  EXPECT_THAT(root.candidates, ElementsAre("m", "{urn:o}a", "{urn:o}o", "{urn:p}a"));
}

TEST_F(Root, NoElementAtAllHasNoCandidate) {
  use(schema({component("complexType", "T")}));
  EXPECT_EQ(find(""), "");
  EXPECT_THAT(root.candidates, IsEmpty());
}

}  // namespace
}  // namespace fdmorph
