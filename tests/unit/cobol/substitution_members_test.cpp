// Which elements may stand in for an item's.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/generator_fixture.h"

namespace fdmorph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Tree member(std::string const& name, std::string const& head) {
  return element(name, {{"substitutionGroup", head}});
}

class Members : public GeneratorTest {
 protected:
  std::vector<std::string> membersOf(std::string_view identifiedBy, std::string_view uri) {
    CDMCOBOLRecordItem item;
    item.identifiedBy = identifiedBy;
    item.xmlNamespace = uri;
    std::vector<CDMXMLElement*> members;
    bool hasMember = generator->elementHasSubGroup(&item, &members);
    EXPECT_EQ(hasMember, !members.empty());
    EXPECT_EQ(generator->elementHasSubGroup(&item, nullptr), hasMember);
    return namesOf(members);
  }
};

TEST_F(Members, NameTheirHead) {
  use(schemaOf("urn:a", {element("book"), member("novel", "book"), member("disk", "record"),
                         member("atlas", "book")}));
  EXPECT_THAT(membersOf("book", "urn:a"), ElementsAre("novel", "atlas"));
  EXPECT_THAT(membersOf("novel", "urn:a"), IsEmpty());
}

TEST_F(Members, NameItAsTheItemIsIdentified) {
  use(schemaOf("urn:a", {element("book"), member("novel", "t:book")}));
  EXPECT_THAT(membersOf("book", "urn:a"), IsEmpty());
  EXPECT_THAT(membersOf("t:book", "urn:a"), ElementsAre("novel"));
  EXPECT_THAT(membersOf("Book", "urn:a"), IsEmpty());
}

TEST_F(Members, AreOfTheItemsNamespace) {
  use(schemaOf("urn:a", {element("book"), member("novel", "book")}));
  EXPECT_THAT(membersOf("book", "urn:b"), IsEmpty());
  EXPECT_THAT(membersOf("book", ""), IsEmpty());
}

TEST_F(Members, OfNoNamespaceSuitAnItemOfNone) {
  use(schema({element("book"), member("novel", "book")}));
  EXPECT_THAT(membersOf("book", ""), ElementsAre("novel"));
}

TEST_F(Members, OfIncludedFilesKeepTheirOwnNamespace) {
  loader.add("/s/a.xsd", schemaOf("urn:other", {member("atlas", "book")}));
  use(schemaOf("urn:a", {include("a.xsd"), member("novel", "book")}));
  EXPECT_THAT(membersOf("book", "urn:a"), ElementsAre("novel"));
  EXPECT_THAT(membersOf("book", "urn:other"), ElementsAre("atlas"));
}

TEST_F(Members, OfImportedDocumentsAreNotSought) {
  loader.add("a.xsd", schemaOf("urn:a", {member("atlas", "book")}));
  use(schemaOf("urn:a", {import("urn:a", "a.xsd"), element("book")}));
  EXPECT_THAT(membersOf("book", "urn:a"), IsEmpty());
}

TEST_F(Members, NeedAnItemAndADocument) {
  use(schema({member("novel", "")}));
  EXPECT_FALSE(generator->elementHasSubGroup(nullptr, nullptr));
  CDMCOBOLRecordItem item;
  EXPECT_FALSE(CDMCOBOLGenerator().elementHasSubGroup(&item, nullptr));
}

TEST_F(Members, AreAppended) {
  use(schema({element("book"), member("novel", "book")}));
  CDMCOBOLRecordItem item;
  item.identifiedBy = "book";
  std::vector<CDMXMLElement*> members{at("book")};
  generator->elementHasSubGroup(&item, &members);
  EXPECT_THAT(namesOf(members), ElementsAre("book", "novel"));
}

}  // namespace
}  // namespace fdmorph
