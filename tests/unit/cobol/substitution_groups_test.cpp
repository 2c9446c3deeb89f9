// The elements that can replace the element of an item.

#include "cobol/substitution_groups.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/query_fixture.h"

namespace fdmorph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

Tree member(std::string const& name, std::string const& head) {
  return element(name, {{"substitutionGroup", head}});
}

class Members : public QueryTest {
 protected:
  std::vector<std::string> membersOf(std::string_view identifiedBy, std::string_view uri) {
    CDMCOBOLRecordItem item;
    item.identifiedBy = identifiedBy;
    item.xmlNamespace = uri;
    return namesOf(substitutions->membersOf(&item));
  }
};

TEST_F(Members, NameTheirHead) {
  use(schemaOf("urn:a", {element("book"), member("novel", "book"), member("disk", "record"),
                         member("atlas", "book")}));
  EXPECT_THAT(membersOf("book", "urn:a"), ElementsAre("novel", "atlas"));
  EXPECT_THAT(membersOf("novel", "urn:a"), IsEmpty());
}

TEST_F(Members, SpellTheHeadAsTheItemDoes) {
  use(schemaOf("urn:a", {element("book"), member("novel", "t:book")}));
  EXPECT_THAT(membersOf("book", "urn:a"), IsEmpty());
  EXPECT_THAT(membersOf("t:book", "urn:a"), ElementsAre("novel"));
  EXPECT_THAT(membersOf("Book", "urn:a"), IsEmpty());
}

TEST_F(Members, HaveTheNamespaceOfTheItem) {
  use(schemaOf("urn:a", {element("book"), member("novel", "book")}));
  EXPECT_THAT(membersOf("book", "urn:b"), IsEmpty());
  EXPECT_THAT(membersOf("book", ""), IsEmpty());
}

TEST_F(Members, WithoutANamespaceMatchAnItemWithoutOne) {
  use(schema({element("book"), member("novel", "book")}));
  EXPECT_THAT(membersOf("book", ""), ElementsAre("novel"));
}

TEST_F(Members, OfIncludedFilesKeepTheirOwnNamespace) {
  loader.add("/s/a.xsd", schemaOf("urn:other", {member("atlas", "book")}));
  use(schemaOf("urn:a", {include("a.xsd"), member("novel", "book")}));
  EXPECT_THAT(membersOf("book", "urn:a"), ElementsAre("novel"));
  EXPECT_THAT(membersOf("book", "urn:other"), ElementsAre("atlas"));
}

TEST_F(Members, OfImportedDocumentsAreIgnored) {
  loader.add("a.xsd", schemaOf("urn:a", {member("atlas", "book")}));
  use(schemaOf("urn:a", {import("urn:a", "a.xsd"), element("book")}));
  EXPECT_THAT(membersOf("book", "urn:a"), IsEmpty());
}

TEST_F(Members, NeedAnItemAndADocument) {
  use(schema({member("novel", "")}));
  EXPECT_THAT(substitutions->membersOf(nullptr), IsEmpty());
  CDMCOBOLRecordItem item;
  EXPECT_THAT(substitutions->membersOf(&item), SizeIs(1));
  EXPECT_THAT(SubstitutionGroups(nullptr, *namespaces).membersOf(&item), IsEmpty());
}

}  // namespace
}  // namespace fdmorph
