// Parts that are left out of a record.

#include "cobol/part_filter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "cobol/schema_walker.h"
#include "support/query_fixture.h"

namespace fdmorph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Filter : public QueryTest {
 protected:
  /// The XML names of the items of the record of `head`, with parentheses around
  /// those below an item.
  std::string record(std::string_view head, std::vector<std::string> const& skipped,
                     unsigned depth = 0, RecordLimits const& limits = {}) {
    std::vector<PathPattern> patterns;
    for (std::string const& each : skipped) patterns.emplace_back(each);
    PathFilter filter(patterns, depth);
    SchemaWalker walker(*namespaces, *components, *substitutions, limits, &filter);
    std::string text = textOf(walker.buildRecord(at(head)));
    unmatched = filter.unmatched();
    return text;
  }

  static std::string textOf(CDMCOBOLRecordItem const* item) {
    if (item == nullptr) return "";
    std::string text = item->isAttribute ? "@" : "";
    text += item->identifiedBy.empty() ? item->dataName : item->identifiedBy;
    if (item->children.empty()) return text;
    text += "(";
    for (CDMCOBOLRecordItem const* child : item->children) {
      text += textOf(child) + (child == item->children.back() ? ")" : " ");
    }
    return text;
  }

  std::vector<std::string> unmatched;
};

Tree attribute(std::string const& name) {
  return {"xs:attribute", {{"name", name}, {"type", "xs:string"}}};
}
Tree text(std::string const& name, Attributes more = {}) {
  more.emplace_back("type", "xs:string");
  return element(name, more);
}

/// ORDER with the attribute id, and LINEs with the attribute id and a PRICE.
Tree order() {
  Tree line = sequenceType({text("PRICE")}, "Line");
  line.children.push_back(attribute("id"));
  Tree type = sequenceType({element("LINE", {{"type", "Line"}}), text("NOTE")});
  type.children.push_back(attribute("id"));
  return schema({element("ORDER", {}, {type}), line});
}

TEST_F(Filter, PartsOfAPathAreLeftOut) {
  use(order());
  EXPECT_EQ(record("ORDER", {}), "ORDER(LINE(PRICE @id) NOTE @id)");
  EXPECT_EQ(record("ORDER", {"ORDER/LINE"}), "ORDER(NOTE @id)");
  EXPECT_EQ(record("ORDER", {"ORDER/@id", "ORDER/LINE/PRICE"}), "ORDER(LINE(@id) NOTE)");
  EXPECT_EQ(record("ORDER", {"ORDER/*"}), "ORDER(@id)");
  EXPECT_EQ(record("ORDER", {"ORDER/*", "ORDER/@*"}), "ORDER");
  EXPECT_EQ(record("ORDER", {"**/@id"}), "ORDER(LINE(PRICE) NOTE)");
}

TEST_F(Filter, PatternsWithoutAPartAreKnown) {
  use(order());
  record("ORDER", {"ORDER/LINE", "ORDER/LINE/PRICE", "LINE"});
  EXPECT_THAT(unmatched, ElementsAre("ORDER/LINE/PRICE", "LINE"));
  record("ORDER", {"ORDER/NOTE", "ORDER/N*"});
  EXPECT_THAT(unmatched, ElementsAre("ORDER/N*"));
}

TEST_F(Filter, DepthCountsElements) {
  use(order());
  EXPECT_EQ(record("ORDER", {}, 1), "ORDER(@id)");
  EXPECT_EQ(record("ORDER", {}, 2), "ORDER(LINE(@id) NOTE @id)");
  EXPECT_EQ(record("ORDER", {}, 3), "ORDER(LINE(PRICE @id) NOTE @id)");
}

TEST_F(Filter, ReferenceIsOnePartWithItsGlobalElement) {
  use(schema({element("a", {}, {sequenceType({reference("b"), text("c")})}),
              element("b", {}, {sequenceType({text("d")})})}));
  EXPECT_EQ(record("a", {"a/b"}), "a(c)");
  EXPECT_EQ(record("a", {"a/b/d"}), "a(b c)");
  EXPECT_EQ(record("a", {"a/b/b"}), "a(b(d) c)");
  EXPECT_THAT(unmatched, ElementsAre("a/b/b"));
}

TEST_F(Filter, PartOfAGroupOrABaseHasThePathOfItsElement) {
  use(schema({element("a", {{"type", "T"}}),
              sequenceType({text("b"), {"xs:group", {{"ref", "G"}}}}, "T"),
              component("group", "G", {{"xs:sequence", {}, {text("c")}}})}));
  EXPECT_EQ(record("a", {"a/b"}), "a(c)");
  EXPECT_EQ(record("a", {"a/c"}), "a(b)");
}

TEST_F(Filter, ElementsThatMayNotOccurAreLeftOut) {
  use(schema({element("a", {}, {sequenceType({text("b", {{"maxOccurs", "0"}}), text("c")})})}));
  EXPECT_EQ(record("a", {}), "a(c)");
}

TEST_F(Filter, WhatIsLeftOutCostsNothing) {
  // Each type holds the next one twice: 2^20 items.
  std::vector<Tree> parts{element("a", {{"type", "T0"}})};
  for (int i = 0; i < 20; ++i) {
    std::string const next = i == 19 ? "xs:string" : "T" + std::to_string(i + 1);
    parts.push_back(sequenceType({element("l", {{"type", next}}), element("r", {{"type", next}})},
                                 "T" + std::to_string(i)));
  }
  use(schema(parts));
  RecordLimits limits;
  limits.items = 100;
  EXPECT_THROW(record("a", {}, 0, limits), RecordTooLarge);
  EXPECT_NO_THROW(record("a", {}, 5, limits));
  EXPECT_NO_THROW(record("a", {"**/r"}, 0, limits));
}

TEST_F(Filter, SecondElementOfASubstitutionGroupIsAPart) {
  use(schema({element("a", {}, {sequenceType({reference("h")})}), text("h"),
              text("m", {{"substitutionGroup", "h"}})}));
  EXPECT_EQ(record("a", {}), "a(h m)");
  EXPECT_EQ(record("a", {"a/m"}), "a(h)");
}

TEST_F(Filter, PartsOfASubstitutionAreBelowTheParentOfItsHead) {
  use(schema(
      {element("a", {}, {sequenceType({element("b", {}, {sequenceType({reference("h")})})})}),
       text("h"),
       element("m", {{"substitutionGroup", "h"}},
               {sequenceType({element("n", {}, {sequenceType({text("o")})})})})}));
  EXPECT_EQ(record("a", {}), "a(b(h m(n(o))))");
  EXPECT_EQ(record("a", {"a/b/m/n/o"}), "a(b(h m(n)))");
  EXPECT_EQ(record("a", {}, 4), "a(b(h m(n)))");
  EXPECT_EQ(record("a", {}, 3), "a(b(h m))");
  EXPECT_EQ(record("a", {}, 2), "a(b)");
}

TEST_F(Filter, MembersOfTheGroupOfTheRecordAreNotWalked) {
  use(schema({text("h"), text("m", {{"substitutionGroup", "h"}})}));
  RecordLimits limits;
  limits.items = 1;
  EXPECT_THROW(
      static_cast<void>(
          SchemaWalker(*namespaces, *components, *substitutions, limits).buildRecord(at("h"))),
      RecordTooLarge);
  EXPECT_EQ(record("h", {}, 0, limits), "h");
}

}  // namespace
}  // namespace fdmorph
