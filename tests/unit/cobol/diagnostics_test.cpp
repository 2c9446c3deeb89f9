// The one-line forms of items and schema elements.

#include <gtest/gtest.h>

#include "support/generator_fixture.h"

namespace fdmorph {
namespace {

class Diagnostics : public GeneratorTest {};

TEST_F(Diagnostics, IndentIsANumberOfBlanks) {
  CDMCOBOLGenerator::writeIndent(3);
  CDMCOBOLGenerator::writeIndent(0);
  EXPECT_EQ(captured.out(), "   ");
}

TEST_F(Diagnostics, LevelHasTwoDigitsAndTwoBlanks) {
  for (unsigned level : {1U, 9U, 10U, 88U}) CDMCOBOLGenerator::writeLevelNumber(level);
  EXPECT_EQ(captured.out(), "01  09  10  88  ");
}

TEST_F(Diagnostics, NameAndTypeEndInABlank) {
  EXPECT_TRUE(CDMCOBOLGenerator::writeRecordName("a"));
  EXPECT_TRUE(CDMCOBOLGenerator::writeCOBOLType("PIC X"));
  EXPECT_EQ(captured.out(), "a PIC X ");
}

TEST_F(Diagnostics, IdentifiedByQuotesTheName) {
  EXPECT_TRUE(CDMCOBOLGenerator::writeIdentifiedBy("a"));
  EXPECT_EQ(captured.out(), "identified by \"a\" ");
}

TEST_F(Diagnostics, EmptyTextsWriteNothing) {
  EXPECT_FALSE(CDMCOBOLGenerator::writeRecordName(""));
  EXPECT_FALSE(CDMCOBOLGenerator::writeCOBOLType(""));
  EXPECT_FALSE(CDMCOBOLGenerator::writeIdentifiedBy(""));
  CDMCOBOLGenerator::writeIsAttribute(false);
  CDMCOBOLGenerator::writeRecordItem("", "a", "PIC X", 1, 7, true);
  EXPECT_EQ(captured.out(), "");
}

TEST_F(Diagnostics, ItemIsOneLineWithoutALineEnd) {
  CDMCOBOLGenerator::writeRecordItem("a", "b", "PIC X", 2, 4, true);
  EXPECT_EQ(captured.out(), "    02  a PIC X identified by \"b\" is attribute");
}

TEST_F(Diagnostics, ItemLeavesOutEmptyTexts) {
  CDMCOBOLGenerator::writeRecordItem("a", "", "", 1, 0, false);
  EXPECT_EQ(captured.out(), "01  a ");
}

TEST_F(Diagnostics, DumpShowsAnElementWithItsAttributes) {
  use(schema({element("a", {{"type", "xs:int"}}, {element("b")})}));
  CDMCOBOLGenerator::dumpElement(at("a"), false, "--");
  EXPECT_EQ(captured.err(), "--xs:element name=\"a\" type=\"xs:int\" \n");
}

TEST_F(Diagnostics, DumpIndentsEachLevelByABlank) {
  use(schema({element("a", {}, {sequenceType({element("b")})})}));
  CDMCOBOLGenerator::dumpElement(at("a"), true, "");
  EXPECT_EQ(captured.err(),
            "xs:element name=\"a\" \n"
            " xs:complexType \n"
            "  xs:sequence \n"
            "   xs:element name=\"b\" \n");
}

TEST_F(Diagnostics, DumpOfNothingIsEmpty) {
  CDMCOBOLGenerator::dumpElement(nullptr, true, "");
  EXPECT_EQ(captured.err(), "");
}

TEST_F(Diagnostics, DumpOfTheTopNodeEnds) {
  CDMXMLElement* top = buildDocument(store, {"r", {{"x", "1"}}, {{"c"}}});
  CDMCOBOLGenerator::dumpElement(top, true, "");
  EXPECT_EQ(captured.err(), "r x=\"1\" \n c \n");
}

}  // namespace
}  // namespace fdmorph
