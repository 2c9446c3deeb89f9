#include <gtest/gtest.h>

#include "support/decoded.h"

namespace fdmorph::document {
namespace {

TEST(JsonDecoding, RecordIsAnObjectWithoutItsName) {
  Decoded record("01 R. 02 A PIC X(3). 02 G. 03 B PIC S9(3)V9. 03 C PIC X.");
  EXPECT_EQ(record.json("ab 012sz"), R"({"A":"ab","G":{"B":-12.3,"C":"z"}})");
}

TEST(JsonDecoding, ElementaryRecordIsABareValue) {
  EXPECT_EQ(Decoded("01 R PIC X(3).").json("ab "), R"("ab")");
  EXPECT_EQ(Decoded("01 R PIC 9(3).").json("007"), "7");
}

TEST(JsonDecoding, TextsAreEscaped) {
  Decoded record("01 R PIC X(6).");
  EXPECT_EQ(record.json("\"\\\n\x01/<"), R"("\"\\\n\u0001/<")");
}

TEST(JsonDecoding, TablesAreArraysAlsoOfOneOrNone) {
  Decoded record("01 R. 02 N PIC 9. 02 A PIC X OCCURS 1. 02 B PIC X OCCURS 0 TO 2 DEPENDING ON N.");
  EXPECT_EQ(record.json("0a.."), R"({"N":0,"A":["a"],"B":[]})");
  EXPECT_EQ(record.json("2axy"), R"({"N":2,"A":["a"],"B":["x","y"]})");
}

TEST(JsonDecoding, AttributesAndTheTextBesideThemHaveNamesOfTheirOwn) {
  Decoded record(
      "01 R IDENTIFIED BY 'r'. 02 G IDENTIFIED BY 'g'. 03 V PIC X."
      " 03 T PIC 9 IDENTIFIED BY 't' IS ATTRIBUTE.");
  EXPECT_EQ(record.json("x5"), R"({"g":{"@t":5,"#text":"x"}})");
}

TEST(JsonDecoding, TextOfAnElementWithoutAttributesIsBare) {
  Decoded record("01 R IDENTIFIED BY 'r'. 02 G IDENTIFIED BY 'g'. 03 V PIC X.");
  EXPECT_EQ(record.json("x"), R"({"g":"x"})");
}

TEST(JsonDecoding, ElementOfZeroBytesIsAnEmptyObject) {
  Decoded record("01 R IDENTIFIED BY 'r'. 02 A IDENTIFIED BY 'a'. 02 B PIC X IDENTIFIED BY 'b'.");
  EXPECT_EQ(record.json("x"), R"({"a":{},"b":"x"})");
}

TEST(JsonDecoding, SlotsAreOneArrayAtThePlaceOfTheFirst) {
  Decoded record(
      "01 R IDENTIFIED BY 'r'. 02 A PIC X IDENTIFIED BY 'a'. 02 B PIC X IDENTIFIED BY 'b'."
      " 02 C PIC X OCCURS 2 IDENTIFIED BY 'a'.");
  EXPECT_EQ(record.json("1234"), R"({"a":["1","3","4"],"b":"2"})");
}

TEST(JsonDecoding, NumbersMayBeStrings) {
  Decoded record("01 R. 02 A PIC 9V9. 02 B PIC X.");
  record.output.quotesNumbers = true;
  EXPECT_EQ(record.json("15x"), R"({"A":"1.5","B":"x"})");
}

TEST(JsonDecoding, InfinitiesAreStrings) {
  Decoded record("01 R. 02 A COMP-1. 02 B COMP-1.");
  using namespace std::string_view_literals;
  EXPECT_EQ(record.json("\x00\x00\x80\x7F\x00\x00\x80\x3F"sv), R"({"A":"INF","B":1})");
}

TEST(JsonDecoding, NamesThatDifferByTheirNamespaceOnlyAreRefused) {
  Decoded record(
      "01 R IDENTIFIED BY 'r'.\n 02 A PIC X IDENTIFIED BY 'a' NAMESPACE IS 'urn:a'.\n"
      " 02 B PIC X IDENTIFIED BY 'a' NAMESPACE IS 'urn:b'.");
  EXPECT_EQ(record.json("12"),
            "3: name 'a' differs from another one by its namespace only, which JSON does not have "
            "[layout]\n");
}

}  // namespace
}  // namespace fdmorph::document
