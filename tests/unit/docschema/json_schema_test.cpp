// JSON Schema of records.
#include "docschema/json_schema.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "support/schema_source.h"

namespace fdmorph::docschema {
namespace {

using nlohmann::json;

json schemaFor(std::string const& copybook, SchemaRules rules = {},
               std::vector<std::string_view> const& views = {}) {
  record::RecordSource source(copybook);
  choose(rules, source, views);
  std::vector<record::RecordTree> trees;
  trees.push_back(std::move(source.tree));
  return json::parse(writeJsonSchema(trees, rules));
}

// The schema of an item A in a record.
json valueOf(std::string const& item, SchemaRules const& rules = {}) {
  return schemaFor("01 R.\n" + item + "\n", rules)["properties"]["A"];
}

json text(int length) {
  return {{"type", "string"}, {"maxLength", length}};
}

json integer(std::int64_t least, std::int64_t most) {
  return {{"type", "integer"}, {"minimum", least}, {"maximum", most}};
}

TEST(JsonValues, AreStringsAndNumbers) {
  EXPECT_EQ(valueOf("05 A PIC X(3)."), text(3));
  EXPECT_EQ(valueOf("05 A PIC S9(3)."), integer(-999, 999));
  EXPECT_EQ(valueOf("05 A PIC 9(3) COMP-5."), integer(0, 65535));
  EXPECT_EQ(valueOf("05 A PIC 9V99."), (json{{"type", "number"},
                                             {"minimum", 0},
                                             {"maximum", 9.99},
                                             {"$comment", "2 decimal places"}}));
}

TEST(JsonValues, HaveTheStepOfScalingPositions) {
  json expected = integer(0, 99000);
  expected["multipleOf"] = 1000;
  EXPECT_EQ(valueOf("05 A PIC 99PPP."), expected);
}

// A double next to the bound must not be below it.
TEST(JsonValues, OfManyDigitsHaveBoundsThatAreLargeEnough) {
  json const schema = valueOf("05 A PIC 9(23).");
  EXPECT_GE(schema["maximum"].get<double>(), 1e23);
}

TEST(JsonValues, MayBeQuotedNumbers) {
  SchemaRules rules;
  rules.hasQuotedNumbers = true;
  EXPECT_EQ(valueOf("05 A PIC S9(3)V9.", rules),
            (json{{"type", "string"}, {"pattern", "^-?(0|[1-9][0-9]{0,2})\\.[0-9]{1}$"}}));
}

TEST(JsonValues, OfFloatsMayBeNoNumber) {
  json const names = {{"enum", {"NaN", "INF", "-INF"}}};
  SchemaRules rules;
  EXPECT_EQ(valueOf("05 A COMP-2.", rules), (json{{"anyOf", {{{"type", "number"}}, names}}}));
  rules.hasHexadecimalFloats = true;
  EXPECT_EQ(valueOf("05 A COMP-2.", rules), (json{{"type", "number"}}));
}

TEST(JsonValues, MayBeEnumerated) {
  SchemaRules rules;
  rules.enumeratesConditions = true;
  EXPECT_EQ(valueOf("05 A PIC 9.\n88 B VALUE 1 2.", rules),
            (json{{"type", "integer"}, {"enum", {1, 2}}}));
}

TEST(JsonObjects, RequireTheirMembers) {
  EXPECT_EQ(
      valueOf("05 A.\n10 B PIC X.\n10 C PIC X OCCURS 2."),
      (json{{"type", "object"},
            {"properties",
             {{"B", text(1)},
              {"C", {{"type", "array"}, {"items", text(1)}, {"minItems", 2}, {"maxItems", 2}}}}},
            {"required", {"B", "C"}},
            {"additionalProperties", false}}));
}

TEST(JsonObjects, HaveNoMembersWithoutContent) {
  EXPECT_EQ(
      valueOf("05 A.\n10 FILLER PIC X."),
      (json{{"type", "object"}, {"properties", json::object()}, {"additionalProperties", false}}));
}

TEST(JsonObjects, HaveAttributesAndText) {
  json const schema = schemaFor(
      "01 R IDENTIFIED BY \"r\".\n05 A PIC X IDENTIFIED BY \"a\" IS ATTRIBUTE.\n"
      "05 V PIC X.\n");
  EXPECT_EQ(schema["properties"], (json{{"@a", text(1)}, {"#text", text(1)}}));
  EXPECT_EQ(schema["required"], (json{"@a", "#text"}));
}

TEST(JsonRecords, MayBeBareValues) {
  EXPECT_EQ(schemaFor("01 R PIC X(2).\n"),
            (json{{"$schema", "https://json-schema.org/draft/2020-12/schema"},
                  {"title", "R"},
                  {"type", "string"},
                  {"maxLength", 2}}));
}

TEST(JsonSlots, AreOneArray) {
  json const schema = schemaFor(
      "01 R IDENTIFIED BY \"r\".\n05 A PIC X IDENTIFIED BY \"s\".\n"
      "05 B PIC 9 OCCURS 2 IDENTIFIED BY \"s\".\n");
  EXPECT_EQ(schema["properties"]["s"], (json{{"type", "array"},
                                             {"items", {{"anyOf", {text(1), integer(0, 9)}}}},
                                             {"minItems", 3},
                                             {"maxItems", 3}}));
}

// A table of no occurrences is an empty array.
TEST(JsonTables, AreAlwaysThere) {
  json const schema = schemaFor("01 R.\n05 N PIC 9.\n05 T PIC X OCCURS 0 TO 3 DEPENDING ON N.\n");
  EXPECT_EQ(schema["required"], (json{"N", "T"}));
  EXPECT_EQ(schema["properties"]["T"]["minItems"], 0);
}

TEST(JsonViews, ExcludeEachOther) {
  json const schema = schemaFor("01 R.\n05 A PIC X.\n05 B REDEFINES A PIC X.\n", {}, {"A", "B"});
  EXPECT_FALSE(schema.contains("required"));
  EXPECT_EQ(schema["allOf"],
            (json::array({{{"anyOf",
                            {{{"properties", {{"B", false}}}, {"required", {"A"}}},
                             {{"properties", {{"A", false}}}, {"required", {"B"}}}}}}})));
}

}  // namespace
}  // namespace fdmorph::docschema
