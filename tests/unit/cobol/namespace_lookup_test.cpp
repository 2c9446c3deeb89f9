// The namespaces of prefixes and of elements.

#include "cobol/namespace_lookup.h"

#include <gtest/gtest.h>

#include "support/query_fixture.h"

namespace fdmorph {
namespace {

constexpr char kSchemaUri[] = "http://www.w3.org/2001/XMLSchema";

class Namespaces : public QueryTest {
 protected:
  /// The namespace of a type name seen from the element of this name, or
  /// "undeclared".
  std::string_view typeNamespace(std::string_view name, std::string_view type) {
    return namespaces->getTypeNamespace(at(name), type).value_or("undeclared");
  }

  bool isSupported(std::string_view type) {
    return namespaces->isSupportedDefaultSchemaType(at("e"), type);
  }

  /// A schema with one element, "e", in which `prefix` is bound to `uri`.
  void bind(std::string const& declaration, std::string const& uri) {
    use({"xs:schema", {{declaration, uri}}, {element("e")}});
  }
};

TEST_F(Namespaces, PrefixOnTheRootIsVisibleBelow) {
  use(schema({element("e", {}, {sequenceType({element("inner")})})}));
  EXPECT_EQ(typeNamespace("inner", "xs:string"), kSchemaUri);
}

TEST_F(Namespaces, NearestDeclarationWins) {
  use({"xs:schema",
       {{"xmlns:p", "urn:far"}},
       {element("e", {{"xmlns:p", "urn:near"}}, {element("inner")}), element("f")}});
  EXPECT_EQ(typeNamespace("inner", "p:T"), "urn:near");
  EXPECT_EQ(typeNamespace("f", "p:T"), "urn:far");
}

TEST_F(Namespaces, UndeclaredPrefixFails) {
  use(schema({element("e")}));
  EXPECT_EQ(typeNamespace("e", "foo:string"), "undeclared");
  EXPECT_FALSE(isSupported("foo:string"));
}

TEST_F(Namespaces, PrefixMatchesAsAWhole) {
  bind("xmlns:foobar", "urn:x");
  EXPECT_EQ(typeNamespace("e", "foo:T"), "undeclared");
}

TEST_F(Namespaces, NameWithoutAPrefixHasTheDefaultNamespace) {
  bind("xmlns", "urn:default");
  EXPECT_EQ(typeNamespace("e", "T"), "urn:default");
}

TEST_F(Namespaces, LeadingColonIsNotAPrefix) {
  bind("xmlns", "urn:default");
  EXPECT_EQ(typeNamespace("e", ":T"), "urn:default");
}

TEST_F(Namespaces, UndeclaredDefaultIsTheMainSchemasTarget) {
  use(schemaOf("urn:main", {element("e")}));
  EXPECT_EQ(typeNamespace("e", "T"), "urn:main");
  EXPECT_FALSE(isSupported("string"));
}

TEST_F(Namespaces, UndeclaredDefaultWithoutATargetIsEmpty) {
  use(schema({element("e")}));
  EXPECT_EQ(typeNamespace("e", "T"), "");
}

TEST_F(Namespaces, UndeclaredDefaultElsewhereIsTheMainSchemasTargetToo) {
  use(schemaOf("urn:main", {element("e")}));
  CDMXMLElement const* other = build(store, {"xs:element"});
  EXPECT_EQ(namespaces->getTypeNamespace(other, "T"), "urn:main");
  EXPECT_EQ(namespaces->getElementNamespace(other), "urn:main");
}

TEST_F(Namespaces, WithoutAnElementOrATypeThereIsNone) {
  use(schema({element("e")}));
  EXPECT_EQ(namespaces->getTypeNamespace(nullptr, "xs:string"), std::nullopt);
  EXPECT_EQ(namespaces->getTypeNamespace(at("e"), ""), std::nullopt);
  EXPECT_EQ(namespaces->getElementNamespace(nullptr), std::nullopt);
  EXPECT_FALSE(namespaces->isSupportedDefaultSchemaType(nullptr, "xs:string"));
  EXPECT_FALSE(isSupported(""));
}

TEST_F(Namespaces, ElementBelongsToTheNearestTarget) {
  use(schemaOf("urn:main", {element("e", {{"targetNamespace", "urn:own"}}, {element("inner")})}));
  EXPECT_EQ(namespaces->getElementNamespace(document->rootElement), "urn:main");
  EXPECT_EQ(namespaces->getElementNamespace(at("inner")), "urn:own");
}

TEST_F(Namespaces, ElementWithoutATargetAnywhereHasAnEmptyNamespace) {
  use(schema({element("e")}));
  EXPECT_EQ(namespaces->getElementNamespace(at("e")), "");
}

TEST_F(Namespaces, IncludedComponentBelongsToItsOwnFile) {
  loader.add("/s/a.xsd", schemaOf("urn:a", {element("a", {}, {element("inner")})}));
  use(schemaOf("urn:main", {include("a.xsd")}));
  EXPECT_EQ(namespaces->getElementNamespace(at("a")), "urn:a");
  EXPECT_EQ(namespaces->getElementNamespace(at("inner")), "urn:a");
}

TEST_F(Namespaces, DeclarationIsSearchedUpwardOnly) {
  use(schema({element("e", {{"xmlns:p", "urn:p"}}, {element("inner")})}));
  EXPECT_EQ(namespaces->getNamespaceURI(at("inner"), "xmlns:p"), "urn:p");
  EXPECT_EQ(namespaces->getNamespaceURI(document->rootElement, "xmlns:p"), std::nullopt);
}

TEST_F(Namespaces, AttributeIsSearchedOnElementsWithoutDeclarationsToo) {
  use(schema({element("e", {{"version", "near"}}, {element("inner")})}));
  EXPECT_EQ(namespaces->getNamespaceURI(at("inner"), "version"), "near");
}

TEST_F(Namespaces, SearchWithoutAnAttributeNameFails) {
  use(schema({element("e")}));
  EXPECT_EQ(namespaces->getNamespaceURI(at("e"), ""), std::nullopt);
}

TEST_F(Namespaces, SearchWithoutAnElementEndsAtTheMainSchema) {
  use(schemaOf("urn:main", {element("e")}));
  EXPECT_EQ(namespaces->getNamespaceURI(nullptr, "targetNamespace"), "urn:main");
  EXPECT_EQ(namespaces->getNamespaceURI(nullptr, "xmlns"), "urn:main");
  EXPECT_EQ(namespaces->getNamespaceURI(nullptr, "xmlns:xs"), std::nullopt);
}

TEST_F(Namespaces, WithoutADocumentTheLastResortIsEmpty) {
  NamespaceLookup nothing(nullptr);
  EXPECT_EQ(nothing.getNamespaceURI(nullptr, "targetNamespace"), "");
  EXPECT_EQ(nothing.getNamespaceURI(nullptr, "xmlns"), "");
}

TEST_F(Namespaces, BuiltinTypesHaveTheSchemaNamespace) {
  bind("xmlns", kSchemaUri);
  EXPECT_TRUE(isSupported("string"));
  bind("xmlns", "urn:other");
  EXPECT_FALSE(isSupported("string"));
}

TEST_F(Namespaces, OlderSchemaNamespacesAreAccepted) {
  for (char const* uri : {"http://www.w3.org/1999/XMLSchema", "http://www.w3.org/2000/10/XMLSchema",
                          "http://www.w3.org/2001/XMLSchema-instance"}) {
    bind("xmlns:p", uri);
    EXPECT_TRUE(isSupported("p:string")) << uri;
  }
}

TEST_F(Namespaces, OtherNamespacesWithTheWordAreRefused) {
  for (char const* uri : {"urn:XMLSchema", "XMLSchema http://www.w3.org/", "XMLSchema",
                          "http://www.w3.org/2001/xmlschema", "http://www.w3.org/TR", ""}) {
    bind("xmlns:p", uri);
    EXPECT_FALSE(isSupported("p:string")) << uri;
  }
}

TEST_F(Namespaces, ListTypesAreRefused) {
  bind("xmlns:xs", kSchemaUri);
  EXPECT_TRUE(isSupported("xs:NMTOKEN"));
  EXPECT_FALSE(isSupported("xs:NMTOKENS"));
  EXPECT_TRUE(isSupported("xs:IDREF"));
  EXPECT_FALSE(isSupported("xs:IDREFS"));
}

}  // namespace
}  // namespace fdmorph
