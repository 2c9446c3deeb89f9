// Which parts of an element clash.
#include "record/part_rules.h"

#include <gtest/gtest.h>

#include "support/record_source.h"

namespace fdmorph::record {
namespace {

// The messages about the items below an element "a".
std::string reportsOf(std::string const& items) {
  RecordSource source("01 A IDENTIFIED BY \"a\".\n" + items);
  checkParts(source.tree, source.diagnostics());
  return source.reports();
}

std::string attribute(std::string const& name) {
  return "05 " + name + " PIC X IDENTIFIED BY \"x\" IS ATTRIBUTE";
}

TEST(Attributes, OfOneElementHaveDifferentNames) {
  EXPECT_EQ(reportsOf(attribute("B") + ".\n" + attribute("C") + ".\n"),
            "3: 'C' is the same attribute as 'B' [layout]\n");
}

TEST(Attributes, DifferByTheirNamespaces) {
  EXPECT_EQ(reportsOf(attribute("B") + ".\n" + attribute("C") + " NAMESPACE IS \"urn:c\".\n"), "");
}

TEST(Attributes, OfDifferentViewsMayHaveOneName) {
  EXPECT_EQ(reportsOf(attribute("B") + ".\n" + attribute("C") + " REDEFINES B.\n" + attribute("D") +
                      " REDEFINES B.\n"),
            "");
}

TEST(Attributes, AfterAnAreaClashWithItsViews) {
  EXPECT_EQ(
      reportsOf("05 B PIC X.\n" + attribute("C") + " REDEFINES B.\n" + attribute("D") + ".\n"),
      "4: 'D' is the same attribute as 'C' [layout]\n");
}

TEST(Attributes, BeforeAnAreaClashWithEachView) {
  EXPECT_EQ(reportsOf(attribute("B") + ".\n" + attribute("C") + ".\n" + attribute("D") +
                      " REDEFINES C.\n"),
            "3: 'C' is the same attribute as 'B' [layout]\n"
            "4: 'D' is the same attribute as 'B' [layout]\n");
}

TEST(Attributes, InTransparentGroupsBelongToOneElement) {
  EXPECT_EQ(
      reportsOf("05 G.\n 10 B PIC X IDENTIFIED BY \"x\" IS ATTRIBUTE.\n" + attribute("C") + ".\n"),
      "4: 'C' is the same attribute as 'B' [layout]\n");
}

TEST(Attributes, DoNotRepeat) {
  EXPECT_EQ(reportsOf(attribute("B") + " OCCURS 2.\n"), "2: attribute 'B' repeats [layout]\n");
}

TEST(Attributes, StandInAnElement) {
  RecordSource source("01 A PIC X IDENTIFIED BY \"a\" IS ATTRIBUTE.\n");
  checkParts(source.tree, source.diagnostics());
  EXPECT_EQ(source.reports(), "1: attribute 'A' is in no element [layout]\n");
}

TEST(GroupAttributes, HaveOneTextAndNoParts) {
  std::string group = "05 G IDENTIFIED BY \"g\" IS ATTRIBUTE.\n";
  EXPECT_EQ(reportsOf(group + "10 B PIC X.\n10 C PIC X REDEFINES B.\n"), "");
  EXPECT_EQ(reportsOf(group + "10 B PIC X.\n10 C PIC X.\n"),
            "4: 'C' is a second text of its element, after 'B' [layout]\n");
  EXPECT_EQ(reportsOf(group + "10 B PIC X IDENTIFIED BY \"b\".\n"),
            "3: 'B' is an element in an attribute [layout]\n");
}

TEST(Texts, OfOneElementAreViewsOfEachOther) {
  EXPECT_EQ(reportsOf("05 B PIC X.\n05 C PIC X REDEFINES B.\n"), "");
  EXPECT_EQ(reportsOf("05 B PIC X.\n05 G REDEFINES B.\n 10 C PIC X.\n"), "");
  EXPECT_EQ(reportsOf("05 G.\n 10 B PIC X.\n05 H REDEFINES G.\n 10 C PIC X.\n"), "");
  EXPECT_EQ(reportsOf("05 B PIC X.\n05 C PIC X.\n"),
            "3: 'C' is a second text of its element, after 'B' [layout]\n");
}

TEST(Texts, DoNotRepeat) {
  EXPECT_EQ(reportsOf("05 B PIC X OCCURS 2.\n"),
            "2: 'B' is the text of an element and repeats [layout]\n");
}

TEST(Slots, MayHaveOneName) {
  EXPECT_EQ(reportsOf("05 B PIC X IDENTIFIED BY \"x\".\n"
                      "05 C PIC X IDENTIFIED BY \"x\" OCCURS 3.\n"),
            "");
}

TEST(Slots, OfVaryingSizeAreTheLastOfTheirName) {
  std::string counter = "05 N PIC 9 IDENTIFIED BY \"n\".\n";
  std::string table = "05 T PIC X IDENTIFIED BY \"x\" OCCURS 1 TO 3 DEPENDING ON N.\n";
  std::string single = "05 B PIC X IDENTIFIED BY \"x\".\n";
  EXPECT_EQ(reportsOf(counter + single + table), "");
  EXPECT_EQ(reportsOf(counter + table + single),
            "3: table 'T' varies in size and is followed by 'B', which has the same XML name "
            "[layout]\n");
}

TEST(PlainNames, MayNotBecomeEqual) {
  RecordSource source("01 A.\n 05 B\xC3\x97 PIC X.\n 05 B\xC3\xB7 PIC X.\n");
  checkParts(source.tree, source.diagnostics());
  EXPECT_EQ(source.reports(),
            "2: 'B\xC3\x97' is no XML name; it becomes 'B_' [xml-name]\n"
            "3: 'B\xC3\xB7' is no XML name; it becomes 'B_' [xml-name]\n"
            "3: 'B\xC3\xB7' has the same XML name as 'B\xC3\x97' [layout]\n");
}

TEST(PlainNames, ThatAreEqualAreSlots) {
  RecordSource source("01 A.\n 05 B PIC X.\n 05 B PIC X.\n");
  checkParts(source.tree, source.diagnostics());
  EXPECT_EQ(source.diagnostics().countOf(compiler::Code::layout), 0U);
}

}  // namespace
}  // namespace fdmorph::record
