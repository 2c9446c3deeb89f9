// The entries of XML catalogs.

#include "xml/catalog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "support/temporary_folder.h"
#include "xml/uris.h"

namespace fdmorph {
namespace {

using testing::IsEmpty;
using testing::Optional;
using testing::SizeIs;

class Catalogs : public testing::Test {
 protected:
  std::string write(std::string const& name, std::string_view entries) {
    return folder.write(
        name, std::string("<catalog xmlns=\"urn:oasis:names:tc:entity:xmlns:xml:catalog\">\n") +
                  std::string(entries) + "</catalog>\n");
  }
  Catalog catalogOf(std::string_view entries) { return Catalog({write("catalog.xml", entries)}); }

  /// The URI of a file in the folder.
  std::string uri(std::string const& name) const { return fileUri(folder.path(name)); }

  TemporaryFolder folder;
};

TEST_F(Catalogs, SystemPublicAndUriEntriesMatchWholeIdentifiers) {
  Catalog catalog = catalogOf(R"(<system systemId="http://h/a.xsd" uri="s.xsd"/>
    <public publicId="-//X//Y" uri="p.xsd"/><uri name="urn:x" uri="u.xsd"/>)");
  EXPECT_THAT(catalog.findExternal("", "http://h/a.xsd"), Optional(uri("s.xsd")));
  EXPECT_THAT(catalog.findExternal(" -//X//Y\n", ""), Optional(uri("p.xsd")));
  EXPECT_THAT(catalog.findUri("urn:x"), Optional(uri("u.xsd")));
  EXPECT_EQ(catalog.findUri("http://h/a.xsd"), std::nullopt);
  EXPECT_EQ(catalog.findExternal("", "urn:x"), std::nullopt);
  EXPECT_EQ(catalog.findUri("urn:xy"), std::nullopt);
}

TEST_F(Catalogs, SystemIdentifierGoesBeforeThePublicOne) {
  Catalog catalog = catalogOf(R"(<public publicId="P" uri="p.xsd"/>
    <system systemId="S" uri="s.xsd"/>)");
  EXPECT_THAT(catalog.findExternal("P", "S"), Optional(uri("s.xsd")));
  EXPECT_THAT(catalog.findExternal("P", "T"), Optional(uri("p.xsd")));
}

TEST_F(Catalogs, PublicEntryMayLeaveSystemIdentifiersAlone) {
  Catalog catalog =
      catalogOf(R"(<group prefer="system"><public publicId="P" uri="p.xsd"/></group>)");
  EXPECT_EQ(catalog.findExternal("P", "S"), std::nullopt);
  EXPECT_THAT(catalog.findExternal("P", ""), Optional(uri("p.xsd")));
}

TEST_F(Catalogs, LongestBeginningIsRewritten) {
  Catalog catalog = catalogOf(R"(<rewriteURI uriStartString="http://h/" rewritePrefix="all/"/>
    <rewriteURI uriStartString="http://h/a/" rewritePrefix="only-a/"/>
    <rewriteSystem systemIdStartString="http://s/" rewritePrefix="sys/"/>)");
  EXPECT_THAT(catalog.findUri("http://h/b/c.xsd"), Optional(uri("all/b/c.xsd")));
  EXPECT_THAT(catalog.findUri("http://h/a/c.xsd"), Optional(uri("only-a/c.xsd")));
  EXPECT_THAT(catalog.findExternal("", "http://s/c.xsd"), Optional(uri("sys/c.xsd")));
}

TEST_F(Catalogs, LongestEndingMatches) {
  Catalog catalog = catalogOf(R"(<uriSuffix uriSuffix="c.xsd" uri="short.xsd"/>
    <uriSuffix uriSuffix="/c.xsd" uri="long.xsd"/>
    <systemSuffix systemIdSuffix="/d.xsd" uri="d.xsd"/>)");
  EXPECT_THAT(catalog.findUri("http://h/c.xsd"), Optional(uri("long.xsd")));
  EXPECT_THAT(catalog.findUri("http://h/bc.xsd"), Optional(uri("short.xsd")));
  EXPECT_THAT(catalog.findExternal("", "http://h/d.xsd"), Optional(uri("d.xsd")));
}

TEST_F(Catalogs, WholeIdentifiersGoBeforeBeginnings) {
  Catalog catalog = catalogOf(R"(<rewriteURI uriStartString="urn:" rewritePrefix="r/"/>
    <uri name="urn:x" uri="u.xsd"/>)");
  EXPECT_THAT(catalog.findUri("urn:x"), Optional(uri("u.xsd")));
}

TEST_F(Catalogs, BaseOfAGroupHoldsBelowIt) {
  Catalog catalog = catalogOf(R"(<group xml:base="sub/">
      <uri name="urn:a" uri="a.xsd"/><group xml:base="deep/"><uri name="urn:b" uri="b.xsd"/></group>
    </group><uri name="urn:c" uri="c.xsd"/>)");
  EXPECT_THAT(catalog.findUri("urn:a"), Optional(uri("sub/a.xsd")));
  EXPECT_THAT(catalog.findUri("urn:b"), Optional(uri("sub/deep/b.xsd")));
  EXPECT_THAT(catalog.findUri("urn:c"), Optional(uri("c.xsd")));
}

TEST_F(Catalogs, NextCatalogIsAskedAfterAllEntries) {
  write("next.xml", R"(<uri name="urn:a" uri="next-a.xsd"/><uri name="urn:b" uri="next-b.xsd"/>)");
  Catalog catalog =
      catalogOf(R"(<nextCatalog catalog="next.xml"/><uri name="urn:a" uri="a.xsd"/>)");
  EXPECT_THAT(catalog.findUri("urn:a"), Optional(uri("a.xsd")));
  EXPECT_THAT(catalog.findUri("urn:b"), Optional(uri("next-b.xsd")));
}

TEST_F(Catalogs, CircleOfCatalogsEnds) {
  write("next.xml", R"(<nextCatalog catalog="catalog.xml"/>)");
  Catalog catalog = catalogOf(R"(<nextCatalog catalog="next.xml"/>)");
  EXPECT_EQ(catalog.findUri("urn:a"), std::nullopt);
}

TEST_F(Catalogs, WhatIsDelegatedIsAskedNowhereElse) {
  write("d.xml", R"(<uri name="http://h/a" uri="a.xsd"/>)");
  write("next.xml", R"(<uri name="http://h/b" uri="b.xsd"/>)");
  Catalog catalog = catalogOf(R"(<delegateURI uriStartString="http://h/" catalog="d.xml"/>
    <nextCatalog catalog="next.xml"/>)");
  EXPECT_THAT(catalog.findUri("http://h/a"), Optional(uri("a.xsd")));
  EXPECT_EQ(catalog.findUri("http://h/b"), std::nullopt);
}

TEST_F(Catalogs, FilesAreAskedInTheirOrder) {
  std::string first = write("1.xml", R"(<uri name="urn:a" uri="1.xsd"/>)");
  std::string second =
      write("2.xml", R"(<uri name="urn:a" uri="2.xsd"/><uri name="urn:b" uri="2.xsd"/>)");
  Catalog catalog({first, second});
  EXPECT_THAT(catalog.findUri("urn:a"), Optional(uri("1.xsd")));
  EXPECT_THAT(catalog.findUri("urn:b"), Optional(uri("2.xsd")));
}

TEST_F(Catalogs, DocumentTypeIsNotFetched) {
  std::string path = folder.write("catalog.xml", R"(<!DOCTYPE catalog PUBLIC
  "-//OASIS//DTD Entity Resolution XML Catalog V1.0//EN"
  "http://www.oasis-open.org/committees/entity/release/1.0/catalog.dtd">
<catalog xmlns="urn:oasis:names:tc:entity:xmlns:xml:catalog"><uri name="urn:a" uri="a"/></catalog>
)");
  Catalog catalog({path});
  EXPECT_THAT(catalog.load(), IsEmpty());
  EXPECT_THAT(catalog.findUri("urn:a"), Optional(uri("a")));
}

TEST_F(Catalogs, FaultsHavePlaces) {
  std::string bad = folder.write("bad.xml", "<catalog>\n<uri></catalog>\n");
  Catalog catalog({bad, folder.path("missing.xml")});
  std::vector<XmlFault> faults = catalog.load();
  ASSERT_THAT(faults, SizeIs(2));
  EXPECT_EQ(faults[0].file, bad);
  EXPECT_EQ(faults[0].line, 2U);
  EXPECT_EQ(faults[1].file, folder.path("missing.xml"));
  EXPECT_EQ(faults[1].line, 0U);
}

}  // namespace
}  // namespace fdmorph
