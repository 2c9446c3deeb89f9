// Records as text for a compiler.

#include "cobol/record_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "support/query_fixture.h"

namespace fdmorph {
namespace {

using testing::ElementsAre;

class Text : public QueryTest {
 protected:
  RecordText make(std::string_view root, RecordTextOptions const& options = {}) {
    return makeRecordText(*document, at(root), options);
  }
};

Tree documented(std::string const& text) {
  Tree documentation{"xs:documentation"};
  documentation.value = text;
  return {"xs:annotation", {}, {documentation}};
}

TEST_F(Text, EachItemIsALine) {
  use(schemaOf("urn:o", {element("order", {},
                                 {sequenceType({
                                     element("d", {{"type", "xs:date"}}),
                                     element("d", {{"type", "xs:int"}}),
                                 })})}));
  EXPECT_EQ(make("order", {.prefix = "P-"}).text,
            "       01 P-order identified by \"order\" namespace is \"urn:o\""
            " count in P-order-count.\n"
            "        02 P-d PIC X(80) identified by \"d\" namespace is \"\""
            " count in P-d-count.\n"
            "        02 P-d-1 PIC S9(18) identified by \"d\" namespace is \"\""
            " count in P-d-count-1.\n");
}

/// The lines of the record, each from "identified by" on.
std::vector<std::string> xmlClauses(std::string const& text) {
  std::vector<std::string> clauses;
  for (std::size_t at = 0; (at = text.find("identified by ", at)) != text.npos;) {
    std::size_t end = text.find(" count in", at);
    clauses.push_back(text.substr(at, end - at));
    at = end;
  }
  return clauses;
}

TEST_F(Text, NamespacesAreThoseOfTheDocuments) {
  Tree other = schemaOf(
      "urn:o", {sequenceType({element("plain", {{"type", "xs:int"}}),
                              element("own", {{"type", "xs:int"}, {"form", "unqualified"}}),
                              {"xs:element", {{"ref", "o:global"}}}},
                             "T"),
                element("global", {{"type", "xs:int"}})});
  other.attributes.emplace_back("elementFormDefault", "qualified");
  other.attributes.emplace_back("xmlns:o", "urn:o");
  loader.add("o.xsd", other);
  Tree type = sequenceType({element("part", {{"type", "o:T"}})});
  type.children.push_back({"xs:attribute", {{"name", "a"}, {"type", "xs:int"}}});
  type.children.push_back(
      {"xs:attribute", {{"name", "q"}, {"type", "xs:int"}, {"form", "qualified"}}});
  Tree main = schemaOf("urn:m", {import("urn:o", "o.xsd"), element("root", {}, {type})});
  main.attributes.emplace_back("xmlns:o", "urn:o");
  use(main);
  EXPECT_THAT(xmlClauses(make("root").text),
              ElementsAre(R"(identified by "root" namespace is "urn:m")",
                          R"(identified by "part" namespace is "")",
                          R"(identified by "plain" namespace is "urn:o")", R"(identified by "own")",
                          R"(identified by "global" namespace is "urn:o")",
                          R"(identified by "a" is attribute)",
                          R"(identified by "q" namespace is "urn:m" is attribute)"));
}

TEST_F(Text, RecordBeyondTheLimitIsToldFromNone) {
  use(schema({element("a", {}, {sequenceType({element("b", {{"type", "xs:int"}})})}),
              element("c", {{"type", "missing"}})}));
  RecordTextOptions options;
  options.limits.items = 1;
  EXPECT_TRUE(make("a", options).isTooLarge);
  EXPECT_FALSE(make("c").isTooLarge);
  EXPECT_EQ(make("c").text, "");
}

TEST_F(Text, DocumentationIsThatOfTheDeclarationOrItsType) {
  Tree type = sequenceType({element("b", {{"type", "xs:int"}}, {documented(" one\n  two ")}),
                            element("c", {{"type", "S"}}), element("d", {{"type", "xs:int"}})},
                           "T");
  Tree simple = component(
      "simpleType", "S",
      {documented("of S"),
       {"xs:restriction", {{"base", "xs:string"}}, {{"xs:enumeration", {{"value", "v"}}}}}});
  use(schema(
      {element("a", {{"type", "T"}}, {documented("first"), documented("second")}), type, simple}));
  // The item of an enumeration has its value in an item of its own.
  EXPECT_THAT(make("a").documentation, ElementsAre("first second", "one two", "of S", "", ""));
}

}  // namespace
}  // namespace fdmorph
