// The search for a component by its name.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "schema/DMXMLSchemaDoc.h"
#include "support/memory_loader.h"

namespace fdmorph {
namespace {

using testing::ElementsAre;

class Components : public testing::Test {
 protected:
  CDMXMLElement* make(Tree const& tree) { return build(store, tree); }

  CDMXMLNodeStore store;
  ComponentList list;
};

TEST_F(Components, EmptyListFindsNothing) {
  EXPECT_TRUE(list.empty());
  EXPECT_EQ(list.findByName("a"), nullptr);
}

TEST_F(Components, KeepTheOrderOfTheirAddition) {
  list.append(make(component("element", "b")));
  list.append({make(component("element", "a")), make(component("element", "b"))});
  EXPECT_EQ(list.size(), 3U);
  EXPECT_THAT(namesOf(list), ElementsAre("b", "a", "b"));
}

TEST_F(Components, FirstOfANameWins) {
  CDMXMLElement* first = make(component("complexType", "T"));
  list.append(first);
  list.append(make(component("complexType", "T")));
  EXPECT_EQ(list.findByName("T"), first);
}

TEST_F(Components, NamesAreComparedExactly) {
  list.append(make(component("element", "Order")));
  EXPECT_EQ(list.findByName("order"), nullptr);
  EXPECT_EQ(list.findByName("Orde"), nullptr);
  EXPECT_EQ(list.findByName("x:Order"), nullptr);
  EXPECT_NE(list.findByName("Order"), nullptr);
}

TEST_F(Components, WithoutANameAreNeverFound) {
  list.append(make({"xs:element", {{"ref", "a"}}}));
  EXPECT_EQ(list.findByName("a"), nullptr);
  EXPECT_EQ(list.findByName(""), nullptr);
}

TEST_F(Components, EmptyNameIsAName) {
  CDMXMLElement* nameless = make(component("element", ""));
  list.append(nameless);
  EXPECT_EQ(list.findByName(""), nameless);
}

TEST_F(Components, AddedAfterASearchAreFoundToo) {
  list.append(make(component("element", "a")));
  EXPECT_EQ(list.findByName("b"), nullptr);
  CDMXMLElement* late = make(component("element", "b"));
  list.append(late);
  EXPECT_EQ(list.findByName("b"), late);
}

}  // namespace
}  // namespace fdmorph
