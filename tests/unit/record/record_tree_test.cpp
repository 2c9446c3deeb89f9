// The roles and names of items.
#include "record/record_tree.h"

#include <gtest/gtest.h>

#include "support/record_source.h"

namespace fdmorph::record {
namespace {

TEST(PlainRecord, HasItsDataNames) {
  RecordSource source(
      "01 Order.\n"
      " 05 Id PIC 9.\n"
      " 05 FILLER PIC X.\n"
      " 05 PIC X.\n"
      " 05 LINE-1 OCCURS 2.\n"
      "  10 PRICE PIC 9.\n");
  EXPECT_FALSE(source.tree.isEnhanced());
  EXPECT_EQ(source.path("Order"), "Order");
  EXPECT_EQ(source.path("Id"), "Order/Id");
  EXPECT_EQ(source.path("PRICE"), "Order/LINE-1/PRICE");
  EXPECT_EQ(source.tree.nodes()[2].role, Role::none);
  EXPECT_EQ(source.tree.nodes()[3].role, Role::none);
  EXPECT_EQ(source.reports(), "");
}

TEST(PlainRecord, IgnoresIsAttribute) {
  RecordSource source("01 A.\n 05 B PIC X IS ATTRIBUTE.\n");
  EXPECT_EQ(source.node("B").role, Role::element);
}

TEST(PlainRecord, HasOneNamespace) {
  RecordSource source("01 A.\n 05 B PIC X NAMESPACE IS \"urn:b\".\n", {"urn:a"});
  EXPECT_EQ(source.node("A").namespaceUri, "urn:a");
  EXPECT_EQ(source.node("B").namespaceUri, "urn:a");
}

TEST(PlainRecord, ChangesNamesThatXmlForbids) {
  RecordSource source("01 A.\n 05 1ST PIC X.\n");
  EXPECT_EQ(source.path("1ST"), "A/_1ST");
  EXPECT_EQ(source.reports(), "2: '1ST' is no XML name; it becomes '_1ST' [xml-name]\n");
}

TEST(EnhancedRecord, HasTheNamesOfItsClauses) {
  RecordSource source(
      "01 A IDENTIFIED BY \"order\".\n"
      " 05 B PIC X IDENTIFIED BY 'id'.\n"
      " 05 C PIC X IDENTIFIED BY \"\".\n"
      " 05 FILLER PIC X IDENTIFIED BY \"x\".\n");
  EXPECT_TRUE(source.tree.isEnhanced());
  EXPECT_EQ(source.path("B"), "order/id");
  EXPECT_EQ(source.node("C").role, Role::none);
  EXPECT_EQ(source.tree.xmlPath(3), "order/x");
  EXPECT_EQ(source.reports(), "");
}

TEST(EnhancedRecord, HasAttributes) {
  RecordSource source("01 A IDENTIFIED BY \"a\".\n 05 B PIC X IDENTIFIED BY \"b\" IS ATTRIBUTE.\n");
  EXPECT_EQ(source.node("B").role, Role::attribute);
  EXPECT_EQ(source.path("B"), "a/@b");
}

TEST(EnhancedRecord, InheritsNamespacesButNotToAttributes) {
  RecordSource source(
      "01 A IDENTIFIED BY \"a\" NAMESPACE IS \"urn:a\".\n"
      " 05 B PIC X IDENTIFIED BY \"b\" IS ATTRIBUTE.\n"
      " 05 C PIC X IDENTIFIED BY \"c\" IS ATTRIBUTE NAMESPACE IS \"urn:c\".\n"
      " 05 D NAMESPACE IS \"urn:d\".\n"
      "  10 E PIC X IDENTIFIED BY \"e\".\n"
      " 05 F PIC X IDENTIFIED BY \"f\".\n"
      " 05 G PIC X IDENTIFIED BY \"g\" NAMESPACE IS \"\".\n");
  EXPECT_EQ(source.node("A").namespaceUri, "urn:a");
  EXPECT_EQ(source.node("B").namespaceUri, "");
  EXPECT_EQ(source.node("C").namespaceUri, "urn:c");
  EXPECT_EQ(source.node("E").namespaceUri, "urn:d");
  EXPECT_EQ(source.node("F").namespaceUri, "urn:a");
  EXPECT_EQ(source.node("G").namespaceUri, "");
}

TEST(EnhancedRecord, HasTransparentGroups) {
  RecordSource source(
      "01 A IDENTIFIED BY \"a\".\n"
      " 05 B.\n"
      "  10 C PIC X IDENTIFIED BY \"c\".\n");
  EXPECT_EQ(source.node("B").role, Role::transparent);
  EXPECT_EQ(source.path("B"), "");
  EXPECT_EQ(source.path("C"), "a/c");
  EXPECT_EQ(source.node("C").enclosing, 0U);
  EXPECT_EQ(source.node("C").parent, 1U);
}

TEST(ValueItem, IsTheTextOfAnElementWithoutElements) {
  RecordSource source(
      "01 A IDENTIFIED BY \"a\".\n"
      " 05 B IDENTIFIED BY \"b\".\n"
      "  10 C PIC X IDENTIFIED BY \"c\" IS ATTRIBUTE.\n"
      "  10 D PIC X.\n"
      " 05 E IDENTIFIED BY \"e\".\n"
      "  10 F PIC X.\n"
      "  10 G PIC X IDENTIFIED BY \"g\".\n");
  EXPECT_EQ(source.node("D").role, Role::value);
  EXPECT_EQ(source.path("D"), "a/b");
  EXPECT_EQ(source.node("F").role, Role::none);
}

TEST(ValueItem, HasBytesAndANameAndNoAddress) {
  RecordSource source(
      "01 A IDENTIFIED BY \"a\".\n"
      " 05 B IDENTIFIED BY \"b\".\n"
      "  10 C.\n"
      "  10 FILLER PIC X.\n"
      "  10 D USAGE INDEX.\n"
      "  10 E USAGE POINTER.\n"
      "  10 F PIC X.\n");
  EXPECT_EQ(source.node("C").role, Role::none);
  EXPECT_EQ(source.node("D").role, Role::none);
  EXPECT_EQ(source.node("E").role, Role::none);
  EXPECT_EQ(source.node("F").role, Role::value);
}

TEST(ElementWithoutContent, IsAnItemOfNoBytes) {
  RecordSource source(
      "01 A IDENTIFIED BY \"a\".\n"
      " 05 B IDENTIFIED BY \"b\".\n"
      " 05 C IDENTIFIED BY \"c\" IS ATTRIBUTE.\n");
  EXPECT_EQ(source.node("B").role, Role::element);
  EXPECT_EQ(source.node("C").role, Role::none);
}

TEST(GroupAttribute, HasTheTextOfItsValueItem) {
  RecordSource source(
      "01 A IDENTIFIED BY \"a\".\n"
      " 05 B IDENTIFIED BY \"b\" IS ATTRIBUTE.\n"
      "  10 C PIC X.\n"
      " 05 D IDENTIFIED BY \"d\" IS ATTRIBUTE.\n"
      "  10 E.\n");
  EXPECT_EQ(source.node("B").role, Role::attribute);
  EXPECT_EQ(source.path("C"), "a/@b");
  EXPECT_EQ(source.node("D").role, Role::none);
}

TEST(TransparentTable, IsAnErrorIfItHasParts) {
  RecordSource source(
      "01 A IDENTIFIED BY \"a\".\n"
      " 05 B OCCURS 2.\n"
      "  10 C PIC X IDENTIFIED BY \"c\".\n"
      " 05 D OCCURS 2.\n"
      "  10 FILLER PIC X.\n");
  EXPECT_EQ(source.reports(), "2: table 'B' has parts of a document but no XML name [layout]\n");
  EXPECT_EQ(source.node("D").role, Role::none);
}

TEST(XmlName, HasNoPrefixInAnEnhancedRecord) {
  RecordSource source("01 A IDENTIFIED BY \"x:a\".\n 05 B PIC X.\n");
  EXPECT_EQ(source.reports(), "1: 'x:a' is not an XML name without a prefix [layout]\n");
}

TEST(XmlName, IsRequiredOfAttributes) {
  RecordSource source("01 A IDENTIFIED BY \"a\".\n 05 B PIC X IS ATTRIBUTE.\n");
  EXPECT_EQ(source.reports(), "2: IS ATTRIBUTE requires an XML name in IDENTIFIED BY [layout]\n");
}

TEST(DataPath, NamesAllGroups) {
  RecordSource source("01 A IDENTIFIED BY \"a\".\n 05 FILLER.\n  10 C PIC X.\n");
  EXPECT_EQ(source.tree.dataPath(2), "A/FILLER/C");
}

}  // namespace
}  // namespace fdmorph::record
