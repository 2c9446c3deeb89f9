// Which component a name stands for.

#include <gtest/gtest.h>

#include "support/generator_fixture.h"

namespace fdmorph {
namespace {

class ComponentSearch : public GeneratorTest {
 protected:
  CDMXMLElement* find(std::string_view name, Search search = Search::complexTypes) {
    return generator->findElementByName(at("e"), name, search);
  }

  CDMXMLSchemaDoc* imported(std::string_view uri) {
    return CDMXMLNamespaceSchemaPair::findDocumentByNamespace(uri, document->importedSchemas);
  }

  /// A schema of the namespace urn:main, with its own prefix m, with "urn:a"
  /// as a and with "urn:unknown" as u, and an element e as the place to look from.
  static Tree mainSchema(std::vector<Tree> children) {
    children.push_back(element("e"));
    Tree tree = schemaOf("urn:main", std::move(children));
    tree.attributes.emplace_back("xmlns:m", "urn:main");
    tree.attributes.emplace_back("xmlns:a", "urn:a");
    tree.attributes.emplace_back("xmlns:u", "urn:unknown");
    return tree;
  }
};

TEST_F(ComponentSearch, LooksIntoTheListThatIsNamed) {
  use(mainSchema({component("complexType", "N"), component("simpleType", "N"),
                  component("element", "N"), component("attribute", "N"), component("group", "N"),
                  component("attributeGroup", "N")}));
  struct {
    Search search;
    char const* kind;
  } const kSearches[] = {
      {Search::complexTypes, "xs:complexType"},
      {Search::simpleTypes, "xs:simpleType"},
      {Search::elements, "xs:element"},
      {Search::attributes, "xs:attribute"},
      {Search::groups, "xs:group"},
      {Search::attributeGroups, "xs:attributeGroup"},
  };
  for (auto const& [search, kind] : kSearches) {
    ASSERT_NE(find("m:N", search), nullptr) << kind;
    EXPECT_EQ(find("m:N", search)->name, kind);
  }
}

TEST_F(ComponentSearch, FindsMembersOfSubstitutionGroups) {
  use(mainSchema({element("M", {{"substitutionGroup", "h"}}), element("N")}));
  EXPECT_EQ(find("m:M", Search::substitutionGroupElements), at("M"));
  EXPECT_EQ(find("m:N", Search::substitutionGroupElements), nullptr);
}

TEST_F(ComponentSearch, FindsOldVersionsOfRedefinedComponents) {
  loader.add("/s/a.xsd", schemaOf("urn:main", {component("complexType", "T")}));
  use(mainSchema({redefine("a.xsd", {component("complexType", "T")})}));
  CDMXMLElement* former = find("m:T", Search::redefinedElements);
  ASSERT_NE(former, nullptr);
  EXPECT_EQ(former->getParent()->name, "xs:schema");
  EXPECT_EQ(find("m:T")->getParent()->name, "xs:redefine");
}

TEST_F(ComponentSearch, OtherNumbersNameNoList) {
  use(mainSchema({component("complexType", "N")}));
  for (unsigned number : {0U, 8U, 9U, 11U, 1000U}) {
    EXPECT_EQ(find("m:N", static_cast<Search>(number)), nullptr) << number;
  }
}

TEST_F(ComponentSearch, NeedsAnElementAndAName) {
  use(mainSchema({component("complexType", "")}));
  EXPECT_EQ(find(""), nullptr);
  EXPECT_EQ(generator->findElementByName(nullptr, "m:N", Search::elements), nullptr);
}

TEST_F(ComponentSearch, NamesAreComparedExactlyByTheirLocalParts) {
  use(mainSchema({component("complexType", "T")}));
  EXPECT_NE(find("m:T"), nullptr);
  EXPECT_EQ(find("m:t"), nullptr);
  EXPECT_EQ(find("m:TT"), nullptr);
}

TEST_F(ComponentSearch, FirstOfANameIsFound) {
  use(mainSchema({component("complexType", "T"), component("complexType", "T")}));
  EXPECT_EQ(find("m:T"), document->rootElement->getFirstChildElem());
}

TEST_F(ComponentSearch, LocalDeclarationsAreNotFound) {
  use(mainSchema({component("complexType", "T", {element("local")})}));
  EXPECT_EQ(find("m:local", Search::elements), nullptr);
}

TEST_F(ComponentSearch, UndeclaredPrefixFindsNothing) {
  use(mainSchema({component("complexType", "T")}));
  EXPECT_EQ(find("x:T"), nullptr);
}

TEST_F(ComponentSearch, ImportedNamespaceIsSearchedInItsDocumentOnly) {
  loader.add("a.xsd", schemaOf("urn:a", {component("complexType", "T")}));
  use(mainSchema(
      {import("urn:a", "a.xsd"), component("complexType", "T"), component("complexType", "U")}));
  EXPECT_EQ(find("a:T"), imported("urn:a")->complexTypes.findByName("T"));
  EXPECT_EQ(find("a:U"), nullptr);
  EXPECT_EQ(find("m:T"), document->complexTypes.findByName("T"));
}

TEST_F(ComponentSearch, FirstImportOfANamespaceIsSearched) {
  loader.add("a.xsd", schemaOf("urn:a", {component("complexType", "T")}));
  loader.add("b.xsd", schemaOf("urn:a", {component("complexType", "U")}));
  use(mainSchema({import("urn:a", "a.xsd"), import("urn:a", "b.xsd")}));
  EXPECT_NE(find("a:T"), nullptr);
  EXPECT_EQ(find("a:U"), nullptr);
}

TEST_F(ComponentSearch, ForeignNamespaceFindsNothing) {
  use(mainSchema({component("complexType", "T")}));
  EXPECT_EQ(find("u:T"), nullptr);
}

TEST_F(ComponentSearch, ForeignNamespaceIsTheMainSchemasOwnWhenThatHasNone) {
  use({"xs:schema", {{"xmlns:u", "urn:unknown"}}, {element("e"), component("complexType", "T")}});
  EXPECT_NE(find("u:T"), nullptr);
}

TEST_F(ComponentSearch, EmptyNamespaceIsTheMainSchema) {
  use({"xs:schema", {{"xmlns", ""}}, {element("e"), component("complexType", "T")}});
  EXPECT_NE(find("T"), nullptr);
}

TEST_F(ComponentSearch, SchemaNamespaceIsTheMainSchema) {
  use(mainSchema({component("simpleType", "string")}));
  EXPECT_EQ(find("xs:string", Search::simpleTypes), at("string"));
  EXPECT_EQ(find("xs:int", Search::simpleTypes), nullptr);
}

TEST_F(ComponentSearch, WhatAnImportedFileIncludesIsFoundInTheMainSchema) {
  loader.add("a.xsd", schemaOf("urn:a", {include("b.xsd"), component("complexType", "T")}));
  loader.add("b.xsd", schemaOf("urn:a", {component("complexType", "U")}));
  use(mainSchema({import("urn:a", "a.xsd")}));
  EXPECT_EQ(find("a:U"), nullptr);
  EXPECT_NE(find("m:U"), nullptr);
}

TEST_F(ComponentSearch, WithoutADocumentNothingIsFound) {
  use(mainSchema({component("complexType", "T")}));
  CDMCOBOLGenerator empty;
  EXPECT_EQ(empty.findElementByName(at("e"), "m:T", Search::complexTypes), nullptr);
}

TEST_F(ComponentSearch, AttributeByNameGivesItsValue) {
  use(mainSchema({}));
  std::string_view value = "before";
  EXPECT_TRUE(CDMCOBOLGenerator::findAttrByName(at("e"), "name", value));
  EXPECT_EQ(value, "e");
  EXPECT_FALSE(CDMCOBOLGenerator::findAttrByName(at("e"), "ref", value));
  EXPECT_EQ(value, "");
}

}  // namespace
}  // namespace fdmorph
