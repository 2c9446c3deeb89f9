// The shapes of JSON values.
#include <gtest/gtest.h>

#include "encoding.h"

namespace fdmorph::document {
namespace {

constexpr char kOrder[] =
    "01 R. 05 A PIC X(3). 05 N PIC S9(3)V9 SIGN LEADING SEPARATE. 05 G. 10 B PIC X(2)."
    " 05 L PIC X OCCURS 3.";

TEST(EncodeJson, HasMembersInAnyOrder) {
  Encoding encoding(kOrder, json());
  EXPECT_EQ(encoding.run(R"({"L":["p","q"],"G":{"B":"x"},"A":"ab","N":-1.5})"), "ab -0015x pq ");
  EXPECT_EQ(encoding.run("{}"), "   +0000     ");
  EXPECT_EQ(encoding.run(R"({"L":[]})"), "   +0000     ");
}

TEST(EncodeJson, HasNumbersWithExponents) {
  EXPECT_EQ(Encoding(kOrder, json()).run(R"({"N":1.5e1})"), "   +0150     ");
}

// A string is a text as in XML, and there numbers have no exponent.
TEST(EncodeJson, HasNoExponentsInStrings) {
  Encoding encoding(kOrder, json());
  EXPECT_EQ(encoding.run(R"({"N":"1.5"})"), "   +0015     ");
  EXPECT_EQ(encoding.run(R"({"N":"1.5e1"})"), "6 R/N [number]");
}

TEST(EncodeJson, HasNullForWhatIsAbsent) {
  Encoding encoding(kOrder, json());
  EXPECT_EQ(encoding.run(R"({"A":null,"G":null,"L":["p",null,"r"]})"), "   +0000  p r");
  EXPECT_EQ(encoding.run(R"({"L":null})"), "   +0000     ");
}

TEST(EncodeJson, RefusesValuesOfTheWrongShape) {
  Encoding encoding(kOrder, json());
  EXPECT_EQ(encoding.run(R"({"A":["x"]})"), "7 R/A [json]");
  EXPECT_EQ(encoding.run(R"({"A":[]})"), "6 R/A [json]");
  EXPECT_EQ(encoding.run(R"({"A":{}})"), "6 R/A [json]");
  EXPECT_EQ(encoding.run(R"({"L":"x"})"), "6 R/L [json]");
  EXPECT_EQ(encoding.run(R"({"G":"x"})"), "6 R/G [json]");
  EXPECT_EQ(encoding.run(R"({"L":["x",{}]})"), "11 R/L[2] [json]");
  EXPECT_EQ(encoding.run("1"), "1 R [json]");
}

TEST(EncodeJson, RefusesAMemberThatIsThereTwice) {
  EXPECT_EQ(Encoding(kOrder, json()).run(R"({"A":"a","A":"b"})"), "14 R/A [json]");
}

TEST(EncodeJson, TellsUnknownMembers) {
  EXPECT_EQ(Encoding(kOrder, json()).run(R"({"Q":1,"G":{"@w":2}})"),
            "6 R/Q [unknown]; 18 R/G/@w [unknown]");
}

constexpr char kName[] =
    "01 R IDENTIFIED BY 'r'. 05 N IDENTIFIED BY 'n'. 10 IDENTIFIED BY 'lang' IS ATTRIBUTE PIC X(2)."
    " 10 TXT PIC X(3). 05 E IDENTIFIED BY 'e'. 05 B IDENTIFIED BY 'b'. 10 B-TXT PIC X(2).";

TEST(EncodeJson, HasTextBesideAttributesInAMember) {
  Encoding encoding(kName, json());
  EXPECT_EQ(encoding.run(R"({"n":{"@lang":"en","#text":"abc"},"e":{},"b":"xy"})"), "enabcxy");
  // Without the member the text is absent.
  EXPECT_EQ(encoding.run(R"({"n":{"@lang":"en"}})"), "en     ");
  EXPECT_EQ(encoding.run(R"({"n":{"#text":null}})"), "       ");
}

TEST(EncodeJson, RefusesTextInTheWrongPlace) {
  Encoding encoding(kName, json());
  EXPECT_EQ(encoding.run(R"({"n":"abc"})"), "6 r/n [json]");
  EXPECT_EQ(encoding.run(R"({"b":{"#text":"xy"}})"), "6 r/b [json]");
  EXPECT_EQ(encoding.run(R"({"e":"x"})"), "6 r/e [json]");
  EXPECT_EQ(encoding.run(R"({"#text":"x"})"), "10 r [json]");
  EXPECT_EQ(encoding.run(R"({"n":{"#text":{}}})"), "15 r/n [json]");
}

TEST(EncodeJson, HasOneArrayForSlotsOfOneName) {
  Encoding encoding(
      "01 R IDENTIFIED BY 'r'. 05 A1 IDENTIFIED BY 'a' PIC X. 05 A2 IDENTIFIED BY 'a' PIC X.",
      json());
  EXPECT_EQ(encoding.run(R"({"a":["1","2"]})"), "12");
  EXPECT_EQ(encoding.run(R"({"a":"1"})"), "6 r/a [json]");
}

TEST(EncodeJson, HasBareValuesForElementaryRecords) {
  EXPECT_EQ(Encoding("01 R PIC 9(3).", json()).run("12,"), "012");
}

}  // namespace
}  // namespace fdmorph::document
