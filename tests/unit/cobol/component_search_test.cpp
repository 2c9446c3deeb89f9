// The component that a name stands for.

#include "cobol/component_search.h"

#include <gtest/gtest.h>

#include "support/query_fixture.h"

namespace fdmorph {
namespace {

class Components : public QueryTest {
 protected:
  CDMXMLElement* find(std::string_view name, Search search = Search::complexTypes) {
    return components->findElementByName(at("e"), name, search);
  }

  CDMXMLSchemaDoc const* imported(std::string_view uri) {
    return CDMXMLNamespaceSchemaPair::findDocumentByNamespace(uri, document->importedSchemas);
  }

  /// A schema with the namespace urn:main. It declares the prefixes m for its
  /// own namespace, a for urn:a and u for urn:unknown, and has an element e
  /// from which the searches start.
  static Tree mainSchema(std::vector<Tree> children) {
    children.push_back(element("e"));
    Tree tree = schemaOf("urn:main", std::move(children));
    tree.attributes.emplace_back("xmlns:m", "urn:main");
    tree.attributes.emplace_back("xmlns:a", "urn:a");
    tree.attributes.emplace_back("xmlns:u", "urn:unknown");
    return tree;
  }
};

TEST_F(Components, SearchesTheListOfTheGivenKind) {
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

TEST_F(Components, FindsMembersOfSubstitutionGroups) {
  use(mainSchema({element("M", {{"substitutionGroup", "h"}}), element("N")}));
  EXPECT_EQ(find("m:M", Search::substitutionGroupElements), at("M"));
  EXPECT_EQ(find("m:N", Search::substitutionGroupElements), nullptr);
}

TEST_F(Components, FindsOldVersionsOfRedefinedComponents) {
  loader.add("/s/a.xsd", schemaOf("urn:main", {component("complexType", "T")}));
  use(mainSchema({redefine("a.xsd", {component("complexType", "T")})}));
  CDMXMLElement* former = find("m:T", Search::redefinedElements);
  ASSERT_NE(former, nullptr);
  EXPECT_EQ(former->getParent()->name, "xs:schema");
  EXPECT_EQ(find("m:T")->getParent()->name, "xs:redefine");
}

TEST_F(Components, OtherNumbersHaveNoList) {
  use(mainSchema({component("complexType", "N")}));
  for (unsigned number : {0U, 8U, 9U, 11U, 1000U}) {
    EXPECT_EQ(find("m:N", static_cast<Search>(number)), nullptr) << number;
  }
}

TEST_F(Components, NeedsAnElementAndAName) {
  use(mainSchema({component("complexType", "")}));
  EXPECT_EQ(find(""), nullptr);
  EXPECT_EQ(components->findElementByName(nullptr, "m:N", Search::elements), nullptr);
}

TEST_F(Components, NamesAreComparedExactlyByTheirLocalParts) {
  use(mainSchema({component("complexType", "T")}));
  EXPECT_NE(find("m:T"), nullptr);
  EXPECT_EQ(find("m:t"), nullptr);
  EXPECT_EQ(find("m:TT"), nullptr);
}

TEST_F(Components, FirstOfANameIsFound) {
  use(mainSchema({component("complexType", "T"), component("complexType", "T")}));
  EXPECT_EQ(find("m:T"), document->rootElement->getFirstChildElem());
}

TEST_F(Components, LocalDeclarationsAreNotFound) {
  use(mainSchema({component("complexType", "T", {element("local")})}));
  EXPECT_EQ(find("m:local", Search::elements), nullptr);
}

TEST_F(Components, UndeclaredPrefixFindsNothing) {
  use(mainSchema({component("complexType", "T")}));
  EXPECT_EQ(find("x:T"), nullptr);
}

TEST_F(Components, ImportedNamespaceIsSearchedInItsDocumentOnly) {
  loader.add("a.xsd", schemaOf("urn:a", {component("complexType", "T")}));
  use(mainSchema(
      {import("urn:a", "a.xsd"), component("complexType", "T"), component("complexType", "U")}));
  EXPECT_EQ(find("a:T"), imported("urn:a")->complexTypes.findByName("T"));
  EXPECT_EQ(find("a:U"), nullptr);
  EXPECT_EQ(find("m:T"), document->complexTypes.findByName("T"));
}

TEST_F(Components, FirstImportOfANamespaceIsSearched) {
  loader.add("a.xsd", schemaOf("urn:a", {component("complexType", "T")}));
  loader.add("b.xsd", schemaOf("urn:a", {component("complexType", "U")}));
  use(mainSchema({import("urn:a", "a.xsd"), import("urn:a", "b.xsd")}));
  EXPECT_NE(find("a:T"), nullptr);
  EXPECT_EQ(find("a:U"), nullptr);
}

TEST_F(Components, ForeignNamespaceFindsNothing) {
  use(mainSchema({component("complexType", "T")}));
  EXPECT_EQ(find("u:T"), nullptr);
}

TEST_F(Components, ForeignNamespaceIsTheMainSchemaIfThatHasNone) {
  use({"xs:schema", {{"xmlns:u", "urn:unknown"}}, {element("e"), component("complexType", "T")}});
  EXPECT_NE(find("u:T"), nullptr);
}

TEST_F(Components, EmptyNamespaceIsTheMainSchema) {
  use({"xs:schema", {{"xmlns", ""}}, {element("e"), component("complexType", "T")}});
  EXPECT_NE(find("T"), nullptr);
}

TEST_F(Components, SchemaNamespaceIsTheMainSchema) {
  use(mainSchema({component("simpleType", "string")}));
  EXPECT_EQ(find("xs:string", Search::simpleTypes), at("string"));
  EXPECT_EQ(find("xs:int", Search::simpleTypes), nullptr);
}

TEST_F(Components, WhatAnImportedFileIncludesIsFoundInTheMainSchema) {
  loader.add("a.xsd", schemaOf("urn:a", {include("b.xsd"), component("complexType", "T")}));
  loader.add("b.xsd", schemaOf("urn:a", {component("complexType", "U")}));
  use(mainSchema({import("urn:a", "a.xsd")}));
  EXPECT_EQ(find("a:U"), nullptr);
  EXPECT_NE(find("m:U"), nullptr);
}

TEST_F(Components, WithoutADocumentNothingIsFound) {
  use(mainSchema({component("complexType", "T")}));
  ComponentSearch empty(nullptr, *namespaces);
  EXPECT_EQ(empty.findElementByName(at("e"), "m:T", Search::complexTypes), nullptr);
}

TEST_F(Components, OfTwoTypesOfOneNameTheOneSearchedFirstIsFound) {
  use(mainSchema({component("simpleType", "T"), component("complexType", "T"),
                  component("simpleType", "S"), component("complexType", "C")}));
  EXPECT_EQ(components->findTypeComplexFirst(at("e"), "m:T")->name, "xs:complexType");
  EXPECT_EQ(components->findTypeSimpleFirst(at("e"), "m:T")->name, "xs:simpleType");
  EXPECT_EQ(components->findTypeComplexFirst(at("e"), "m:S"), at("S"));
  EXPECT_EQ(components->findTypeSimpleFirst(at("e"), "m:C"), at("C"));
  EXPECT_EQ(components->findTypeComplexFirst(at("e"), "m:e"), nullptr);
  EXPECT_EQ(components->findTypeSimpleFirst(at("e"), "m:e"), nullptr);
}

}  // namespace
}  // namespace fdmorph
