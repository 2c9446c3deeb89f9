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
            "        02 P-d PIC X(80) identified by \"d\" count in P-d-count.\n"
            "        02 P-d-1 PIC S9(18) identified by \"d\" count in P-d-count-1.\n");
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
