// Which global elements become records.

#include "cobol/head_elements.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/query_fixture.h"
#include "text/console.h"

namespace fdmorph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kNoHead[] =
    "Error : No schema head element found in schema definition. A non-referenced\n"
    " global head element is required for conversion to COBOL record\n";
constexpr char kManyHeads[] =
    "Warning : More than one head element was found in the schema definition."
    " Attempting to generate multiple file definitions\n";

class Heads : public QueryTest {
 protected:
  std::vector<std::string> heads() {
    HeadElements found = findHeadElements(document, *namespaces);
    only = found.single();
    return namesOf(found.all);
  }

  CDMXMLElement* only = nullptr;
};

TEST_F(Heads, OneIsTheResult) {
  use(schema({element("a"), component("complexType", "T")}));
  EXPECT_THAT(heads(), ElementsAre("a"));
  EXPECT_EQ(only, at("a"));
  EXPECT_EQ(captured.err(), "");
}

TEST_F(Heads, TwoAreListedAndWarnedAbout) {
  use(schema({element("b"), element("a")}));
  EXPECT_THAT(heads(), ElementsAre("b", "a"));
  EXPECT_EQ(only, nullptr);
  EXPECT_EQ(captured.err(), kManyHeads);
  EXPECT_EQ(console.m_nWarningCount, 1);
}

TEST_F(Heads, NoneIsAnError) {
  use(schema({component("complexType", "T")}));
  EXPECT_THAT(heads(), IsEmpty());
  EXPECT_EQ(only, nullptr);
  EXPECT_EQ(captured.err(), kNoHead);
  EXPECT_EQ(console.m_nErrorCount, 1);
}

TEST_F(Heads, ReferencedElementIsNotAHead) {
  use(schema({element("a", {}, {sequenceType({reference("b")})}), element("b")}));
  EXPECT_THAT(heads(), ElementsAre("a"));
}

TEST_F(Heads, ElementsThatReferToEachOtherAreNotHeads) {
  use(schema({element("a", {}, {sequenceType({reference("b")})}),
              element("b", {}, {sequenceType({reference("a")})})}));
  EXPECT_THAT(heads(), IsEmpty());
  EXPECT_EQ(captured.err(), kNoHead);
}

TEST_F(Heads, ElementThatRefersToItselfIsNotAHead) {
  use(schema({element("a", {}, {sequenceType({reference("a")})}), element("b")}));
  EXPECT_THAT(heads(), ElementsAre("b"));
}

TEST_F(Heads, ReferencesFromGlobalTypesCount) {
  use(schema({element("a"), element("b"), sequenceType({reference("b")}, "T")}));
  EXPECT_THAT(heads(), ElementsAre("a"));
}

TEST_F(Heads, OnlyReferencesFromElementsCount) {
  use(schema({element("a"), {"xs:group", {{"ref", "a"}}}, {"xs:attribute", {{"ref", "a"}}}}));
  EXPECT_THAT(heads(), ElementsAre("a"));
}

TEST_F(Heads, LocalElementIsNotAHead) {
  use(schema({component("complexType", "T", {element("local")}), element("a")}));
  EXPECT_THAT(heads(), ElementsAre("a"));
}

TEST_F(Heads, ElementWithoutANameIsNotAHead) {
  use(schema({{"xs:element", {{"id", "x"}}}, element("a")}));
  EXPECT_THAT(heads(), ElementsAre("a"));
}

TEST_F(Heads, MemberOfASubstitutionGroupIsNotAHead) {
  use(schema({element("m", {{"substitutionGroup", "a"}}), element("n", {{"substitutionGroup", ""}}),
              element("a")}));
  EXPECT_THAT(heads(), ElementsAre("a"));
}

TEST_F(Heads, AbstractElementIsSkipped) {
  use(schema({element("b", {{"abstract", "true"}}), element("a")}));
  EXPECT_THAT(heads(), ElementsAre("a"));
}

TEST_F(Heads, OnlyTheValueTrueMakesAbstract) {
  use(schema({element("a", {{"abstract", "1"}}), element("b", {{"abstract", "false"}}),
              element("c", {{"abstract", "True"}})}));
  EXPECT_THAT(heads(), ElementsAre("a", "b", "c"));
}

// Prefix x is bound to the target namespace, y to another one.
TEST_F(Heads, ReferenceCountsInTheNamespaceOfTheReferringElement) {
  Tree tree = schemaOf(
      "urn:t",
      {element("a", {}, {sequenceType({reference("x:b"), reference("y:c"), reference("z:d")})}),
       element("b"), element("c"), element("d")});
  tree.attributes.emplace_back("xmlns:x", "urn:t");
  tree.attributes.emplace_back("xmlns:y", "urn:other");
  use(tree);
  EXPECT_THAT(heads(), ElementsAre("a", "c", "d"));
}

TEST_F(Heads, ReferenceInAnImportedSchemaCountsForAnElementOfTheSameName) {
  Tree other = schemaOf("urn:o", {element("z", {}, {sequenceType({reference("o:b")})})});
  other.attributes.emplace_back("xmlns:o", "urn:o");
  loader.add("o.xsd", other);
  use(schemaOf("urn:t", {import("urn:o", "o.xsd"), element("a"), element("b")}));
  EXPECT_THAT(heads(), ElementsAre("a"));
}

TEST_F(Heads, IncludeElementsOfIncludedFiles) {
  loader.add("/s/a.xsd", schema({element("included")}));
  use(schema({include("a.xsd"), element("m")}));
  EXPECT_THAT(heads(), ElementsAre("m", "included"));
}

TEST_F(Heads, ExcludeImportedFilesIfTheMainSchemaHasACandidate) {
  loader.add("a.xsd", schema({element("imported")}));
  use(schema({import("urn:a", "a.xsd"), element("m")}));
  EXPECT_THAT(heads(), ElementsAre("m"));
}

TEST_F(Heads, ImportedFilesAreAFallback) {
  loader.add("a.xsd", schema({element("one"), element("skipped", {{"abstract", "true"}})}));
  loader.add("b.xsd", schema({element("two", {{"abstract", "1"}})}));
  use(schema(
      {import("urn:a", "a.xsd"), import("urn:b", "b.xsd"), element("m", {{"abstract", "true"}})}));
  EXPECT_THAT(heads(), ElementsAre("one", "two"));
}

// The fallback depends on the candidates before references are considered.
TEST_F(Heads, ReferencedCandidateExcludesImportedFiles) {
  loader.add("a.xsd", schema({element("imported")}));
  use(schema({import("urn:a", "a.xsd"), element("m", {}, {sequenceType({reference("m")})})}));
  EXPECT_THAT(heads(), IsEmpty());
}

TEST_F(Heads, ImportedFilesOfAbstractElementsOnlyHaveNone) {
  loader.add("a.xsd", schema({element("x", {{"abstract", "true"}})}));
  use(schema({import("urn:a", "a.xsd")}));
  EXPECT_THAT(heads(), IsEmpty());
  EXPECT_EQ(captured.err(), kNoHead);
}

TEST_F(Heads, WithoutADocumentOrARootThereIsNone) {
  use(schema({element("a")}));
  EXPECT_THAT(findHeadElements(nullptr, *namespaces).all, IsEmpty());
  CDMXMLSchemaDoc empty;
  HeadElements found = findHeadElements(&empty, *namespaces);
  EXPECT_THAT(found.all, IsEmpty());
  EXPECT_EQ(found.single(), nullptr);
  EXPECT_EQ(captured.err(), "");
}

}  // namespace
}  // namespace fdmorph
