// What a prefix stands for, and where an element belongs.

#include <gtest/gtest.h>

#include "support/generator_fixture.h"

namespace fdmorph {
namespace {

constexpr char kSchemaUri[] = "http://www.w3.org/2001/XMLSchema";

class Namespaces : public GeneratorTest {
 protected:
  /// The namespace of a type name seen from the element of this name, or
  /// "undeclared".
  std::string typeNamespace(std::string_view name, std::string_view type) {
    std::string_view uri = "before";
    bool isFound = generator->getTypeNamespace(at(name), type, uri);
    EXPECT_TRUE(isFound || uri.empty());
    return isFound ? std::string(uri) : "undeclared";
  }

  std::string elementNamespace(CDMXMLElement const* element) {
    std::string_view uri = "before";
    EXPECT_TRUE(generator->getElementNamespace(element, uri));
    return std::string(uri);
  }

  bool isSupported(std::string_view type) {
    return generator->isSupportedDefaultSchemaType(at("e"), type);
  }

  /// A schema with one element, "e", in which `prefix` is bound to `uri`.
  void bind(std::string const& declaration, std::string const& uri) {
    use({"xs:schema", {{declaration, uri}}, {element("e")}});
  }
};

TEST_F(Namespaces, PrefixOnTheRootIsSeenFromBelow) {
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

TEST_F(Namespaces, PrefixMatchesWhole) {
  bind("xmlns:foobar", "urn:x");
  EXPECT_EQ(typeNamespace("e", "foo:T"), "undeclared");
}

TEST_F(Namespaces, NameWithoutAPrefixIsOfTheDefaultNamespace) {
  bind("xmlns", "urn:default");
  EXPECT_EQ(typeNamespace("e", "T"), "urn:default");
}

TEST_F(Namespaces, ColonInFirstPlaceIsNoPrefix) {
  bind("xmlns", "urn:default");
  EXPECT_EQ(typeNamespace("e", ":T"), "urn:default");
}

TEST_F(Namespaces, UndeclaredDefaultIsTheMainSchemasTarget) {
  use(schemaOf("urn:main", {element("e")}));
  generate();
  EXPECT_EQ(typeNamespace("e", "T"), "urn:main");
  EXPECT_FALSE(isSupported("string"));
}

TEST_F(Namespaces, UndeclaredDefaultWithoutATargetIsEmpty) {
  use(schema({element("e")}));
  generate();
  EXPECT_EQ(typeNamespace("e", "T"), "");
}

TEST_F(Namespaces, UndeclaredDefaultElsewhereIsTheMainSchemasTargetToo) {
  use(schemaOf("urn:main", {element("e")}));
  generate();
  CDMXMLElement const* other = build(store, {"xs:element"});
  std::string_view uri;
  EXPECT_TRUE(generator->getTypeNamespace(other, "T", uri));
  EXPECT_EQ(uri, "urn:main");
  EXPECT_EQ(elementNamespace(other), "urn:main");
}

TEST_F(Namespaces, WithoutAnElementOrATypeThereIsNone) {
  use(schema({element("e")}));
  std::string_view uri = "before";
  EXPECT_FALSE(generator->getTypeNamespace(nullptr, "xs:string", uri));
  EXPECT_FALSE(generator->getTypeNamespace(at("e"), "", uri));
  EXPECT_FALSE(generator->getElementNamespace(nullptr, uri));
  EXPECT_FALSE(generator->isSupportedDefaultSchemaType(nullptr, "xs:string"));
  EXPECT_FALSE(isSupported(""));
}

TEST_F(Namespaces, ElementBelongsToTheNearestTarget) {
  use(schemaOf("urn:main", {element("e", {{"targetNamespace", "urn:own"}}, {element("inner")})}));
  EXPECT_EQ(elementNamespace(document->rootElement), "urn:main");
  EXPECT_EQ(elementNamespace(at("inner")), "urn:own");
}

TEST_F(Namespaces, ElementWithoutATargetAnywhereHasAnEmptyNamespace) {
  use(schema({element("e")}));
  EXPECT_EQ(elementNamespace(at("e")), "");
}

TEST_F(Namespaces, IncludedComponentBelongsToItsOwnFile) {
  loader.add("/s/a.xsd", schemaOf("urn:a", {element("a", {}, {element("inner")})}));
  use(schemaOf("urn:main", {include("a.xsd")}));
  EXPECT_EQ(elementNamespace(at("a")), "urn:a");
  EXPECT_EQ(elementNamespace(at("inner")), "urn:a");
}

TEST_F(Namespaces, DeclarationIsSoughtUpwardOnly) {
  use(schema({element("e", {{"xmlns:p", "urn:p"}}, {element("inner")})}));
  std::string_view value;
  EXPECT_TRUE(generator->getNamespaceURI(at("inner"), "xmlns:p", value));
  EXPECT_EQ(value, "urn:p");
  EXPECT_FALSE(generator->getNamespaceURI(document->rootElement, "xmlns:p", value));
  EXPECT_EQ(value, "");
}

TEST_F(Namespaces, AttributeIsSoughtOnElementsWithoutDeclarationsToo) {
  use(schema({element("e", {{"version", "near"}}, {element("inner")})}));
  std::string_view value;
  EXPECT_TRUE(generator->getNamespaceURI(at("inner"), "version", value));
  EXPECT_EQ(value, "near");
}

TEST_F(Namespaces, SearchWithoutAnAttributeNameFails) {
  use(schema({element("e")}));
  std::string_view value = "before";
  EXPECT_FALSE(generator->getNamespaceURI(at("e"), "", value));
}

TEST_F(Namespaces, SearchWithoutAnElementEndsAtTheMainSchema) {
  use(schemaOf("urn:main", {element("e")}));
  generate();
  std::string_view value;
  EXPECT_TRUE(generator->getNamespaceURI(nullptr, "targetNamespace", value));
  EXPECT_EQ(value, "urn:main");
  EXPECT_TRUE(generator->getNamespaceURI(nullptr, "xmlns", value));
  EXPECT_EQ(value, "urn:main");
  EXPECT_FALSE(generator->getNamespaceURI(nullptr, "xmlns:xs", value));
  EXPECT_EQ(value, "");
}

TEST_F(Namespaces, BuiltinTypesAreOfTheSchemaNamespace) {
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

TEST_F(Namespaces, OtherNamespacesWithTheWordAreNot) {
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
