// Content models without ambiguities.
#include "docschema/determinism.h"

#include <gtest/gtest.h>

namespace fdmorph::docschema {
namespace {

Particle element(std::string_view name, std::uint64_t least = 1, std::uint64_t most = 1) {
  Particle result{Particle::Kind::element};
  result.name.local = name;
  result.nodes = {static_cast<std::uint32_t>(name.front())};
  result.least = least;
  result.most = most;
  return result;
}

Particle sequence(std::vector<Particle> parts) {
  return {Particle::Kind::sequence, std::move(parts)};
}

Particle choice(std::vector<Particle> parts) {
  return {Particle::Kind::choice, std::move(parts)};
}

// As in a document type declaration: (a,b?)|c*; "&" separates parts in any order.
std::string text(Particle const& particle) {
  if (particle.isElement()) {
    std::string const name(particle.name.local);
    if (particle.least == 1 && particle.most == 1) return name;
    return name + "{" + std::to_string(particle.least) + "," + std::to_string(particle.most) + "}";
  }
  char separator = ',';
  if (particle.kind == Particle::Kind::choice) separator = '|';
  if (particle.kind == Particle::Kind::anyOrder) separator = '&';
  std::string result = "(";
  for (Particle const& each : particle.parts) {
    if (result.size() > 1) result += separator;
    result += text(each);
  }
  return result + ")" + (particle.isOptional ? "?" : "");
}

std::string deterministic(std::vector<Particle> parts) {
  Particle all = sequence(std::move(parts));
  makeDeterministic(all);
  return text(all);
}

TEST(Determinism, LeavesViewsThatBeginDifferently) {
  EXPECT_EQ(deterministic({choice({sequence({element("a"), element("b")}),
                                   sequence({element("b"), element("a")})}),
                           element("c")}),
            "(((a,b)|(b,a)),c)");
}

TEST(Determinism, LeavesSlotsOfFixedNumber) {
  EXPECT_EQ(deterministic({choice({sequence({element("a", 2, 2)}), sequence({element("b")})}),
                           element("a", 0, 5)}),
            "(((a{2,2})|(b)),a{0,5})");
}

TEST(Determinism, MergesViewsThatBeginWithTheSameName) {
  EXPECT_EQ(deterministic({choice({sequence({element("a"), element("b"), element("d", 2, 2)}),
                                   sequence({element("a", 3, 3), element("c"), element("d")})})}),
            "((a{0,3},b{0,1},c{0,1},d{0,2}))");
}

// Without a, the second view begins with b like the first.
TEST(Determinism, LooksBehindPartsThatMayBeAbsent) {
  EXPECT_EQ(deterministic(
                {choice({sequence({element("b")}), sequence({element("a", 0, 1), element("b")})})}),
            "((a{0,1},b{0,1}))");
}

TEST(Determinism, ListsViewsInDifferentOrder) {
  EXPECT_EQ(deterministic({choice({sequence({element("a"), element("b"), element("c")}),
                                   sequence({element("a"), element("c"), element("b")})})}),
            "((a&b&c))");
  EXPECT_EQ(deterministic({choice(
                {sequence({element("a"), element("b"), element("a")}), sequence({element("a")})})}),
            "((a&b))");
}

// After the merged views, a second a may be one of them or the part after them.
TEST(Determinism, ListsWhatFollowsUnderTheSameName) {
  EXPECT_EQ(deterministic({choice({sequence({element("a"), element("b")}),
                                   sequence({element("a"), element("c")})}),
                           element("d", 0, 1), element("a"), element("e")}),
            "((a&b&c&d),e)");
}

TEST(Determinism, SeesThatNothingOfAnAreaMayBeThere) {
  Particle area = choice({sequence({element("a"), element("b")})});
  area.isOptional = true;
  EXPECT_EQ(deterministic({area, element("a")}), "((a&b))");
  EXPECT_EQ(deterministic({area, element("c")}), "(((a,b))?,c)");
}

TEST(Determinism, ChangesViewsInViews) {
  Particle inner =
      choice({sequence({element("c"), element("d")}), sequence({element("c"), element("e")})});
  EXPECT_EQ(deterministic({choice({sequence({element("a"), inner}), sequence({element("b")})})}),
            "(((a,(c{0,1},d{0,1},e{0,1}))|(b)))");
}

TEST(Consistency, GivesElementsOfOneNameTheSameNodes) {
  Particle second = element("a");
  second.nodes = {7};
  Particle all = sequence({element("a"), element("b"), second});
  makeConsistent(all);
  EXPECT_EQ(all.parts[0].nodes, (std::vector<std::uint32_t>{'a', 7}));
  EXPECT_EQ(all.parts[2].nodes, all.parts[0].nodes);
  EXPECT_TRUE(all.parts[0].isShared);
  EXPECT_FALSE(all.parts[1].isShared);
}

TEST(Slots, AreMarkedOutsideOfOtherViews) {
  Particle all = sequence(
      {choice({sequence({element("a")}), sequence({element("a")})}), element("b"), element("b")});
  markSlots(all);
  EXPECT_FALSE(all.parts[0].parts[0].parts[0].isSlot());
  EXPECT_TRUE(all.parts[1].isFollowed);
  EXPECT_TRUE(all.parts[2].isPreceded);
  EXPECT_FALSE(all.parts[2].isFollowed);
}

TEST(Slots, AfterAnAreaAreThoseOfEachView) {
  Particle all =
      sequence({choice({sequence({element("b")}), sequence({element("a")})}), element("a")});
  markSlots(all);
  EXPECT_FALSE(all.parts[0].parts[0].parts[0].isSlot());
  EXPECT_TRUE(all.parts[0].parts[1].parts[0].isFollowed);
  EXPECT_TRUE(all.parts[1].isPreceded);
}

}  // namespace
}  // namespace fdmorph::docschema
