// The match rules of searches, and attributes by name.

#include <gtest/gtest.h>

#include "schema/DMXMLSchemaDoc.h"
#include "support/trees.h"

namespace fdmorph {
namespace {

class MatchRules : public testing::Test {
 protected:
  CDMXMLElement* make(Tree const& tree) { return build(store, tree); }

  static bool hasName(CDMXMLElement* element, std::string_view name) {
    CDMXMLElement* result = compareElemByName(element, &name);
    EXPECT_TRUE(result == nullptr || result == element);
    return result != nullptr;
  }
  static bool hasAttribute(CDMXMLElement* element, std::string_view name) {
    CDMXMLElement* result = compareElemByAttrType(element, &name);
    EXPECT_TRUE(result == nullptr || result == element);
    return result != nullptr;
  }

  CDMXMLNodeStore store;
};

TEST_F(MatchRules, NamesAreComparedByTheirLocalParts) {
  CDMXMLElement* element = make({"xs:group"});
  EXPECT_TRUE(hasName(element, "group"));
  EXPECT_TRUE(hasName(element, "xsd:group"));
  EXPECT_FALSE(hasName(element, "Group"));
  EXPECT_FALSE(hasName(element, "grou"));
}

TEST_F(MatchRules, AttributeIsSearchedByTheLocalPartOfTheKey) {
  CDMXMLElement* element = make({"xs:element", {{"substitutionGroup", "a"}}});
  EXPECT_TRUE(hasAttribute(element, "substitutionGroup"));
  EXPECT_TRUE(hasAttribute(element, "xs:substitutionGroup"));
  EXPECT_FALSE(hasAttribute(element, "substitution"));
}

TEST_F(MatchRules, AttributeNameItselfKeepsItsPrefix) {
  EXPECT_FALSE(hasAttribute(make({"xs:element", {{"x:name", "a"}}}), "name"));
}

TEST_F(MatchRules, PartsOfASchemaAreFourKinds) {
  for (char const* name : {"xs:schema", "import", "xs:include", "xsd:redefine"}) {
    CDMXMLElement* element = make({name});
    EXPECT_EQ(compareElemForMultipartSchema(element, nullptr), element) << name;
  }
  for (char const* name : {"xs:element", "xs:annotation", "xs:Schema", "includes"}) {
    EXPECT_EQ(compareElemForMultipartSchema(make({name}), nullptr), nullptr) << name;
  }
}

TEST_F(MatchRules, AttributeHasItsValue) {
  EXPECT_EQ(findAttrByName(make({"e", {{"name", "a"}}}), "name"), "a");
}

TEST_F(MatchRules, EmptyValueIsAValue) {
  EXPECT_EQ(findAttrByName(make({"e", {{"name", ""}}}), "name"), "");
}

TEST_F(MatchRules, MissingAttributeHasNoValue) {
  EXPECT_EQ(findAttrByName(make({"e", {{"x:name", "a"}}}), "name"), std::nullopt);
}

}  // namespace
}  // namespace fdmorph
