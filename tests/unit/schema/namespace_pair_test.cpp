// Imported namespaces and their documents.

#include <gtest/gtest.h>

#include "schema/DMXMLSchemaDoc.h"

namespace fdmorph {
namespace {

using Pair = CDMXMLNamespaceSchemaPair;

TEST(NamespacePair, BeginsEmpty) {
  Pair pair;
  EXPECT_EQ(pair.getNamespaceURI(), "");
  EXPECT_EQ(pair.getSchemaDoc(), nullptr);
}

TEST(NamespacePair, HoldsWhatItIsMadeWith) {
  CDMXMLSchemaDoc document;
  Pair pair("urn:a", &document);
  EXPECT_EQ(pair.getNamespaceURI(), "urn:a");
  EXPECT_EQ(pair.getSchemaDoc(), &document);
}

TEST(NamespacePair, WithoutADocumentStaysEmpty) {
  Pair pair("urn:a", nullptr);
  EXPECT_EQ(pair.getNamespaceURI(), "");
  EXPECT_EQ(pair.getSchemaDoc(), nullptr);
}

TEST(NamespacePair, EmptyNamespaceKeepsTheEarlierOne) {
  CDMXMLSchemaDoc document;
  Pair pair("urn:a", &document);
  pair.setNS("");
  EXPECT_EQ(pair.getNamespaceURI(), "urn:a");
  pair.setNS("urn:b");
  EXPECT_EQ(pair.getNamespaceURI(), "urn:b");
}

TEST(NamespacePair, NullDocumentKeepsTheEarlierOne) {
  CDMXMLSchemaDoc document;
  Pair pair("urn:a", &document);
  pair.setSchemaDoc(nullptr);
  EXPECT_EQ(pair.getSchemaDoc(), &document);
}

TEST(FindDocument, FirstPairOfANamespaceWins) {
  CDMXMLSchemaDoc other;
  CDMXMLSchemaDoc first;
  CDMXMLSchemaDoc second;
  std::list<Pair> pairs{{"urn:x", &other}, {"urn:a", &first}, {"urn:a", &second}};
  EXPECT_EQ(Pair::findDocumentByNamespace("urn:a", pairs), &first);
}

TEST(FindDocument, NamespacesAreComparedExactly) {
  CDMXMLSchemaDoc document;
  std::list<Pair> pairs{{"urn:a", &document}};
  EXPECT_EQ(Pair::findDocumentByNamespace("urn:A", pairs), nullptr);
  EXPECT_EQ(Pair::findDocumentByNamespace("urn:", pairs), nullptr);
  EXPECT_EQ(Pair::findDocumentByNamespace("", pairs), nullptr);
}

TEST(FindDocument, EmptyListHoldsNone) {
  EXPECT_EQ(Pair::findDocumentByNamespace("urn:a", {}), nullptr);
}

}  // namespace
}  // namespace fdmorph
