// Entries against items.

#include "mapping/entry_rules.h"

#include <gtest/gtest.h>

#include "mapping_fixture.h"

namespace fdmorph::mapping {
namespace {

class EntryRules : public testing::Test {
 protected:
  std::string check(std::string const& entries) {
    return withoutPlaces(checkMapping(mappingFile(entries), "map.xml", described.data()));
  }

  Described described{
      "01  REC.\n"
      "    05  GROUP-A.\n"
      "        10  CODE-A PIC X(4).\n"
      "        10  TOTAL PIC S9(5)V99.\n"
      "    05  GROUP-B.\n"
      "        10  CODE-B PIC X(4).\n"
      "            88  GOOD VALUE 'good'.\n"
      "        10  TOTAL PIC S9(5)V99.\n"
      "    05  OTHER REDEFINES GROUP-B PIC X(11).\n"
      "    05  FILLER.\n"
      "        10  RATE COMP-2.\n"
      "01  NEXT-REC PIC X.\n"};
};

TEST_F(EntryRules, CorrectEntriesAreFine) {
  EXPECT_EQ(check(entry("REC", "rec", "group", "<xml-namespace>urn:a</xml-namespace>") +
                  entry("REC.GROUP-A.CODE-A", "code", "token") +
                  entry("REC.GROUP-A.TOTAL", "", "") + entry("REC.FILLER.RATE", "rate", "double")),
            "");
}

TEST_F(EntryRules, KeyInAnotherLetterCaseIsUnknown) {
  EXPECT_EQ(check(entry("rec.group-a.total", "a", "decimal")),
            "item rec.group-a.total: no item has this name; did you mean 'REC.GROUP-A.TOTAL'?\n");
}

TEST_F(EntryRules, KeyWithoutItsGroupsIsFoundByItsName) {
  EXPECT_EQ(check(entry("CODE-B", "b")),
            "item CODE-B: no item has this name; did you mean 'REC.GROUP-B.CODE-B'?\n");
}

TEST_F(EntryRules, MisspeltPartsOfAKeyAreFound) {
  EXPECT_EQ(check(entry("REC.GROPU-B.TOTALS", "b", "decimal")),
            "item REC.GROPU-B.TOTALS: no item has this name; did you mean 'REC.GROUP-B.TOTAL'?\n");
}

TEST_F(EntryRules, ForeignKeyHasNoSuggestion) {
  EXPECT_EQ(check(entry("WHAT.EVER", "b")), "item WHAT.EVER: no item has this name\n");
}

TEST_F(EntryRules, EntryWithoutAKeyIsAnError) {
  EXPECT_EQ(check("<xml-cobol-mapping><xml-name>a</xml-name></xml-cobol-mapping>"),
            "key : expected the name of an item, found none\n");
}

TEST_F(EntryRules, ItemsThatAreNotConvertedAreTold) {
  EXPECT_EQ(check(entry("REC.OTHER", "a") + entry("NEXT-REC", "b") +
                  entry("REC.GROUP-B.CODE-B.GOOD", "c") + entry("REC.FILLER", "d", "group")),
            "no-effect REC.OTHER: no effect: redefinitions are not converted\n"
            "no-effect NEXT-REC: no effect: only the first record is converted; --record chooses "
            "another\n"
            "no-effect REC.GROUP-B.CODE-B.GOOD: no effect: a condition has no element\n"
            "no-effect REC.FILLER: the copybook gets this name, but a group called FILLER has no "
            "element\n");
}

TEST_F(EntryRules, OneOfTheFillersOfAnEntryHasAnEffect) {
  Described const fillers(
      "01  REC.\n"
      "    05  A PIC X.\n"
      "    05  FILLER REDEFINES A PIC 9.\n"
      "    05  FILLER PIC X.\n");
  EXPECT_EQ(withoutPlaces(checkMapping(mappingFile(entry("REC.FILLER", "", "string")), "map.xml",
                                       fillers.data())),
            "");
}

TEST_F(EntryRules, SecondEntryWithOtherValuesDoesNotCount) {
  std::string const first = entry("REC.GROUP-A.CODE-A", "a");
  EXPECT_EQ(check(first + first), "");
  EXPECT_EQ(check(first + entry("REC.GROUP-A.CODE-A", "b")),
            "duplicate REC.GROUP-A.CODE-A: the entry in line 1 counts, not this one\n");
}

TEST_F(EntryRules, FlagsAreExactlyTrueOrFalse) {
  EXPECT_EQ(check(entry("REC.GROUP-A.CODE-A", "a", "string",
                        "<xml-attribute>TRUE</xml-attribute><cobol-count-in/>")),
            "flag REC.GROUP-A.CODE-A: expected 'true' or 'false', found 'TRUE', which counts as "
            "'false'\n"
            "flag REC.GROUP-A.CODE-A: expected 'true' or 'false', found '', which counts as "
            "'false'\n");
}

TEST_F(EntryRules, NamesAreWithoutPrefixAndWhiteSpace) {
  EXPECT_EQ(check(entry("REC.GROUP-A.CODE-A", "p:a") + entry("REC.GROUP-B.CODE-B", " b") +
                  entry("REC.GROUP-A", "", "group") +
                  "<xml-cobol-mapping><cobol-name>REC.GROUP-A.TOTAL</cobol-name>"
                  "</xml-cobol-mapping>"),
            "name REC.GROUP-A.CODE-A: 'p:a' is not a name in XML\n"
            "name REC.GROUP-B.CODE-B: ' b' is not a name in XML; white space counts\n"
            "empty-group REC.GROUP-A: a group cannot be left out: its element would have no name\n"
            "name REC.GROUP-A.TOTAL: expected 'xml-name'; an empty one leaves an item out\n");
}

TEST_F(EntryRules, TypesAreBuiltInAndGoWithTheItem) {
  EXPECT_EQ(
      check(entry("REC.GROUP-A.CODE-A", "a", "xs:String") +
            entry("REC.GROUP-A.TOTAL", "b", "group") + entry("REC.GROUP-B.CODE-B", "c", "integer") +
            entry("REC.GROUP-B.TOTAL", "d", "") + entry("REC.FILLER.RATE", "e", "int") +
            entry("REC.GROUP-B", "f", "string")),
      "type REC.GROUP-A.CODE-A: expected a type of XML Schema, found 'xs:String'; did you "
      "mean 'string'?\n"
      "type REC.GROUP-A.TOTAL: expected a type of XML Schema, found 'group'\n"
      "type REC.GROUP-B.TOTAL: expected a type of XML Schema, found none\n"
      "group-type REC.GROUP-B: no effect: the type of a group is its members\n");
}

// CODE-A has no conditions, whose enumerations would stand in the type.
TEST_F(EntryRules, NumberTypeOfATextMakesTheSchemaMalformed) {
  EXPECT_EQ(check(entry("REC.GROUP-A.CODE-A", "a", "integer")),
            "type-form REC.GROUP-A.CODE-A: 'integer' makes the schema malformed: the item is "
            "generated as 'string', with a length and without digits\n");
}

TEST_F(EntryRules, NamespaceIsThatOfTheRecord) {
  EXPECT_EQ(
      check(entry("REC", "rec", "group", "<xml-namespace>urn:a</xml-namespace>") +
            entry("REC.GROUP-A.CODE-A", "a", "string", "<xml-namespace>urn:a</xml-namespace>") +
            entry("REC.GROUP-A.TOTAL", "b", "decimal", "<xml-namespace>urn:b</xml-namespace>") +
            entry("REC.GROUP-B", "c", "group", "<xml-namespace>urn: c</xml-namespace>")),
      "other-namespace REC.GROUP-A.TOTAL: the schema is invalid with another namespace than "
      "that of the record\n"
      "uri REC.GROUP-B: 'urn: c' is not a URI\n");
}

}  // namespace
}  // namespace fdmorph::mapping
