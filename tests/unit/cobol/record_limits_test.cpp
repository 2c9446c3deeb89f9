// The limits of a record: at and below a limit nothing changes, above it the
// head element is left out, and the next one is converted.

#include <gtest/gtest.h>

#include "support/generator_fixture.h"

namespace fdmorph {
namespace {

class Limits : public GeneratorTest {
 protected:
  /// What a conversion within the limits writes.
  std::string generateWithin(RecordLimits const& limits) {
    generator = std::make_unique<CDMCOBOLGenerator>(document, limits);
    return generate();
  }

  /// Converts the schema of one head element under a limit at, one above, and
  /// one below the number that its record needs.
  void expectNeeds(std::size_t RecordLimits::*limit, std::size_t number) {
    std::string const record = generate();
    EXPECT_NE(record, "");
    RecordLimits limits;
    for (std::size_t allowed : {number, number + 1}) {
      limits.*limit = allowed;
      EXPECT_EQ(generateWithin(limits), record) << allowed;
    }
    limits.*limit = number - 1;
    EXPECT_EQ(generateWithin(limits), "");
    std::string line = "Error : Record of a exceeds " + std::to_string(limits.items) + " items\n";
    EXPECT_EQ(countOf(line, captured.err()), 1) << captured.err();
  }
};

Tree text(std::string const& name) {
  return element(name, {{"type", "xs:string"}});
}

TEST_F(Limits, ItemsAreCounted) {
  use(schema({element("a", {}, {sequenceType({text("b"), text("c")})})}));
  expectNeeds(&RecordLimits::items, 3);
}

TEST_F(Limits, ItemsThatAreRemovedAgainAreCounted) {
  use(schema({element("a", {}, {sequenceType({element("b", {{"type", "none"}}), text("c")})})}));
  expectNeeds(&RecordLimits::items, 3);
}

TEST_F(Limits, ConditionsAndUnionMembersAreItems) {
  Tree const values{"xs:restriction",
                    {{"base", "xs:string"}},
                    {{"xs:enumeration", {{"value", "v"}}}, {"xs:enumeration", {{"value", "w"}}}}};
  use(schema(
      {element("a", {},
               {sequenceType({element("b", {{"type", "S"}}), element("c", {{"type", "U"}})})}),
       component("simpleType", "S", {values}),
       component("simpleType", "U", {{"xs:union", {{"memberTypes", "xs:int xs:string"}}}})}));
  // a; b, two conditions and a value item; c and two items for each member.
  expectNeeds(&RecordLimits::items, 10);
}

TEST_F(Limits, ItemsOfAMemberThatIsListedTwiceAreCountedByThemselves) {
  use(schema({element("a", {}, {sequenceType({text("h")})}),
              element("m", {{"substitutionGroup", "h"}},
                      {sequenceType({text("b"), text("c"), text("d")})})}));
  // a, h, m, b, c and d; and from m down once more.
  expectNeeds(&RecordLimits::items, 6);
  RecordStore items({.items = 2});
  CDMCOBOLRecordItem* member = items.create();
  member->addChild(items.create());
  items.countListedAgain(member);
  EXPECT_THROW(items.countListedAgain(member), RecordTooLarge);
}

TEST_F(Limits, ReferencesThatAreFollowedAreCounted) {
  Tree const derived{"xs:complexContent",
                     {},
                     {{"xs:extension",
                       {{"base", "B"}},
                       {{"xs:sequence", {}, {{"xs:group", {{"ref", "g"}}}, reference("e")}}}}}};
  use(schema({element("a", {{"type", "T"}}), component("complexType", "T", {derived}),
              sequenceType({text("b")}, "B"),
              component("group", "g", {{"xs:sequence", {}, {text("c")}}}), text("e")}));
  // T, B, g and e; xs:string is no global component.
  expectNeeds(&RecordLimits::references, 4);
}

TEST_F(Limits, EmptyGroupsThatReferToEmptyGroupsAreCounted) {
  // Each of the layers refers twice to the next: 2 + 4 + 8 + 16 references.
  std::vector<Tree> parts{element(
      "a", {},
      {sequenceType({text("b"), {"xs:group", {{"ref", "g0"}}}, {"xs:group", {{"ref", "g0"}}}})})};
  for (int layer = 0; layer < 4; ++layer) {
    Tree const next{"xs:group", {{"ref", "g" + std::to_string(layer + 1)}}};
    std::vector<Tree> refs = layer < 3 ? std::vector<Tree>{next, next} : std::vector<Tree>();
    parts.push_back(component("group", "g" + std::to_string(layer), {{"xs:sequence", {}, refs}}));
  }
  use(schema(parts));
  expectNeeds(&RecordLimits::references, 30);
}

TEST_F(Limits, BytesOfNamesAreCounted) {
  use(schema({element("a", {}, {sequenceType({text("bcd"), text("ef")})})}));
  expectNeeds(&RecordLimits::textBytes, 6);
}

TEST_F(Limits, NamesOfUnionMembersAreCountedWithAllThatTheyRepeat) {
  Tree const numbers{"xs:simpleType", {}, {{"xs:union", {{"memberTypes", "xs:int"}}}}};
  use(schema({element("a", {}, {numbers})}));
  // a, a-union-value-0, a-union-value-0-data
  expectNeeds(&RecordLimits::textBytes, 1 + 15 + 20);
}

TEST_F(Limits, BytesOfValuesAreCounted) {
  Tree const values{"xs:restriction",
                    {{"base", "xs:string"}},
                    {{"xs:enumeration", {{"value", "red"}}}, {"xs:maxLength", {{"value", "10"}}}}};
  use(schema({element("a", {}, {{"xs:simpleType", {}, {values}}})}));
  // a, enumerator-0, red, 10
  expectNeeds(&RecordLimits::textBytes, 1 + 12 + 3 + 2);
}

TEST_F(Limits, NextHeadElementIsCountedAnew) {
  use(schema({element("a", {}, {sequenceType({text("b"), text("c")})}), text("d"),
              element("e", {}, {sequenceType({text("f")})})}));
  EXPECT_EQ(generateWithin({.items = 2}),
            "       01 d PIC X(80) identified by \"d\".\n\n"
            "       01 e identified by \"e\".\n"
            "        02 f PIC X(80) identified by \"f\".\n\n");
  EXPECT_EQ(captured.err(),
            "Warning : More than one head element was found in the schema definition."
            " Attempting to generate multiple file definitions\n"
            "Error : Record of a exceeds 2 items\n"
            "\nSuccessfully converted 2 of 3 schema head element(s).\n\n");
}

TEST(DefaultLimits, AreFiveMillionItemsOrReferencesAndAGigabyte) {
  RecordLimits limits;
  EXPECT_EQ(limits.items, 5'000'000U);
  EXPECT_EQ(limits.references, 5'000'000U);
  EXPECT_EQ(limits.textBytes, 1'000'000'000U);
}

}  // namespace
}  // namespace fdmorph
