// Imported files stay documents of their own, found by namespace.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/schema_fixture.h"

namespace fdmorph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Import : public SchemaTest {
 protected:
  CDMXMLSchemaDoc const* imported(std::string_view uri) const {
    return CDMXMLNamespaceSchemaPair::findDocumentByNamespace(uri, document->importedSchemas);
  }

  std::vector<std::string> importedNamespaces() const {
    std::vector<std::string> uris;
    for (auto const& pair : document->importedSchemas) uris.push_back(pair.getNamespaceURI());
    return uris;
  }
};

TEST_F(Import, ComponentsStayInTheImportedDocument) {
  loader.add("a.xsd", schemaOf("urn:a", {component("element", "a"), component("attribute", "t")}));
  load(schema({import("urn:a", "a.xsd"), component("element", "m")}));
  EXPECT_THAT(mainComponents(), ElementsAre("", "m"));
  ASSERT_NE(imported("urn:a"), nullptr);
  EXPECT_THAT(namesOf(imported("urn:a")->elements), ElementsAre("a"));
  EXPECT_THAT(namesOf(imported("urn:a")->attributes), ElementsAre("t"));
  EXPECT_EQ(imported("urn:a")->targetNamespace, "urn:a");
}

TEST_F(Import, ImportedDocumentHasNoPath) {
  loader.add("a.xsd", schema({component("element", "a")}));
  load(schema({import("urn:a", "a.xsd")}));
  EXPECT_EQ(imported("urn:a")->schemaPath, "");
}

TEST_F(Import, LocationIsNotResolved) {
  load(schema({import("urn:a", "sub/a.xsd"), import("urn:b", "/abs/b.xsd"),
               import("urn:c", "http://example.org/c.xsd")}));
  EXPECT_THAT(loader.loads, ElementsAre("sub/a.xsd", "/abs/b.xsd", "http://example.org/c.xsd"));
}

TEST_F(Import, WithoutALocationIsIgnored) {
  load(schema({{"xs:import", {{"namespace", "urn:a"}}}}));
  EXPECT_THAT(loader.loads, IsEmpty());
  EXPECT_EQ(imported("urn:a"), nullptr);
}

TEST_F(Import, WithoutANamespaceIsIgnored) {
  loader.add("a.xsd", schema({component("element", "a")}));
  load(schema({{"xs:import", {{"schemaLocation", "a.xsd"}}}}));
  EXPECT_THAT(loader.loads, IsEmpty());
  EXPECT_THAT(document->importedSchemas, IsEmpty());
}

TEST_F(Import, UnusableFileAddsNoPair) {
  load(schema({import("urn:a", "missing.xsd")}));
  EXPECT_THAT(loader.loads, ElementsAre("missing.xsd"));
  EXPECT_THAT(document->importedSchemas, IsEmpty());
}

TEST_F(Import, TwoOfOneNamespaceAddTwoPairsAndTheFirstIsFound) {
  loader.add("a.xsd", schema({component("element", "first")}));
  loader.add("b.xsd", schema({component("element", "second")}));
  load(schema({import("urn:x", "a.xsd"), import("urn:x", "b.xsd")}));
  EXPECT_THAT(importedNamespaces(), ElementsAre("urn:x", "urn:x"));
  EXPECT_THAT(namesOf(imported("urn:x")->elements), ElementsAre("first"));
}

TEST_F(Import, OfOneFileTwiceAddsTwoDocuments) {
  loader.add("a.xsd", schema({component("element", "a")}));
  load(schema({import("urn:a", "a.xsd"), import("urn:a", "a.xsd")}));
  ASSERT_EQ(document->importedSchemas.size(), 2U);
  EXPECT_NE(document->importedSchemas.front().getSchemaDoc(),
            document->importedSchemas.back().getSchemaDoc());
}

TEST_F(Import, NamespaceOfThePairIsTheImportsOwn) {
  loader.add("a.xsd", schemaOf("urn:file", {component("element", "a")}));
  load(schema({import("urn:import", "a.xsd")}));
  EXPECT_THAT(importedNamespaces(), ElementsAre("urn:import"));
}

TEST_F(Import, InsideAnImportedFileRegistersInTheMainDocument) {
  loader.add("a.xsd", schema({import("urn:b", "b.xsd"), component("element", "a")}));
  loader.add("b.xsd", schema({component("element", "b")}));
  load(schema({import("urn:a", "a.xsd")}));
  ASSERT_NE(imported("urn:b"), nullptr);
  EXPECT_THAT(namesOf(imported("urn:b")->elements), ElementsAre("b"));
  EXPECT_THAT(imported("urn:a")->importedSchemas, IsEmpty());
}

TEST_F(Import, InsideAnImportedFileIsRegisteredBeforeIt) {
  loader.add("a.xsd", schema({import("urn:x", "b.xsd"), component("element", "outer")}));
  loader.add("b.xsd", schema({component("element", "inner")}));
  load(schema({import("urn:x", "a.xsd")}));
  EXPECT_THAT(importedNamespaces(), ElementsAre("urn:x", "urn:x"));
  EXPECT_THAT(namesOf(imported("urn:x")->elements), ElementsAre("inner"));
}

TEST_F(Import, InsideAnIncludedFileRegistersInTheMainDocument) {
  loader.add("/s/a.xsd", schema({import("urn:b", "b.xsd")}));
  loader.add("b.xsd", schema({component("element", "b")}));
  load(schema({include("a.xsd")}));
  EXPECT_THAT(importedNamespaces(), ElementsAre("urn:b"));
}

TEST_F(Import, WhatAnImportedFileIncludesGoesToTheMainRoot) {
  loader.add("a.xsd", schemaOf("urn:a", {include("b.xsd"), component("element", "a")}));
  loader.add("b.xsd", schemaOf("urn:a", {component("element", "b")}));
  load(schema({import("urn:a", "a.xsd"), component("element", "m")}));
  EXPECT_THAT(namesOf(document->elements), ElementsAre("m", "b"));
  EXPECT_THAT(namesOf(imported("urn:a")->elements), ElementsAre("a"));
}

// An imported document has no path, so the base is the working directory.
TEST_F(Import, RelativeIncludeOfAnImportedFileIsNotResolved) {
  loader.add("sub/a.xsd", schema({include("b.xsd")}));
  load(schema({import("urn:a", "sub/a.xsd")}));
  EXPECT_THAT(loader.loads, ElementsAre("sub/a.xsd", "b.xsd"));
}

}  // namespace
}  // namespace fdmorph
