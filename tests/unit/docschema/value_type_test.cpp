// The texts of items as simple types.
#include "docschema/value_type.h"

#include <gtest/gtest.h>

#include "support/schema_source.h"

namespace fdmorph::docschema {
namespace {

std::string element(std::string const& restriction) {
  return "<xs:element name=\"A\"><xs:simpleType>" + restriction + "</xs:simpleType></xs:element>";
}

std::string decimal(std::string const& facets) {
  return element("<xs:restriction base=\"xs:decimal\">" + facets + "</xs:restriction>");
}

std::string text(std::string const& length) {
  return element("<xs:restriction base=\"xs:string\"><xs:maxLength value=\"" + length +
                 "\"/></xs:restriction>");
}

std::string digits(std::string const& total, std::string const& fraction) {
  return "<xs:totalDigits value=\"" + total + "\"/><xs:fractionDigits value=\"" + fraction + "\"/>";
}

std::string bounds(std::string const& fraction, std::string const& least, std::string const& most) {
  return "<xs:fractionDigits value=\"" + fraction + "\"/><xs:minInclusive value=\"" + least +
         "\"/><xs:maxInclusive value=\"" + most + "\"/>";
}

std::string const kNotNegative = "<xs:minInclusive value=\"0\"/>";

TEST(Texts, HaveTheCharactersOfThePicture) {
  EXPECT_EQ(typeOf("05 A PIC X(12)."), text("12"));
  EXPECT_EQ(typeOf("05 A PIC A(3)."), text("3"));
  EXPECT_EQ(typeOf("05 A PIC XXBXX."), text("5"));
  EXPECT_EQ(typeOf("05 A PIC ZZ9.99."), text("6"));
  // 10 units of UTF-16 are at most 10 characters.
  EXPECT_EQ(typeOf("05 A PIC N(10) USAGE NATIONAL."), text("10"));
}

TEST(Numbers, HaveTheDigitsOfThePicture) {
  EXPECT_EQ(typeOf("05 A PIC S9(5)V99."), decimal(digits("7", "2")));
  EXPECT_EQ(typeOf("05 A PIC 9(3) COMP-3."), decimal(digits("3", "0") + kNotNegative));
  EXPECT_EQ(typeOf("05 A PIC S9(9) COMP."), decimal(digits("9", "0")));
}

// PIC 99PPP holds 12000 as 12, PIC VPP9 holds 0.005 as 5.
TEST(Numbers, CountScalingPositionsAsDigits) {
  EXPECT_EQ(typeOf("05 A PIC S99PPP."), decimal(digits("5", "0")));
  EXPECT_EQ(typeOf("05 A PIC SVPP9."), decimal(digits("3", "3")));
}

TEST(Numbers, HaveTheBoundsOfTheirBytesWhereThePictureHasNone) {
  EXPECT_EQ(typeOf("05 A BINARY-CHAR."), decimal(bounds("0", "-128", "127")));
  EXPECT_EQ(typeOf("05 A BINARY-SHORT UNSIGNED."), decimal(bounds("0", "0", "65535")));
  EXPECT_EQ(typeOf("05 A PIC S9(4) COMP-5."), decimal(bounds("0", "-32768", "32767")));
  EXPECT_EQ(typeOf("05 A PIC X(3) COMP-X."), decimal(bounds("0", "0", "16777215")));
  EXPECT_EQ(typeOf("05 A BINARY-DOUBLE."),
            decimal(bounds("0", "-9223372036854775808", "9223372036854775807")));
  EXPECT_EQ(typeOf("05 A BINARY-DOUBLE UNSIGNED."),
            decimal(bounds("0", "0", "18446744073709551615")));
}

TEST(Numbers, OfBytesAreScaledAsThePicture) {
  EXPECT_EQ(typeOf("05 A PIC S99V99 COMP-5."), decimal(bounds("2", "-327.68", "327.67")));
  EXPECT_EQ(typeOf("05 A PIC SPP9 COMP-5."), decimal(bounds("3", "-0.128", "0.127")));
  EXPECT_EQ(typeOf("05 A PIC 99P COMP-5."), decimal(bounds("0", "0", "2550")));
}

TEST(Numbers, OfBinaryItemsHaveAllBytesOnRequest) {
  SchemaRules rules;
  rules.hasFullBinaryRange = true;
  EXPECT_EQ(typeOf("05 A PIC S9(4) COMP.", rules), decimal(bounds("0", "-32768", "32767")));
  EXPECT_EQ(typeOf("05 A PIC S9(4) COMP-3.", rules), decimal(digits("4", "0")));
}

// libxml2 reads decimals of at most 24 digits.
TEST(Numbers, OfManyDigitsAreStringsWithAPattern) {
  EXPECT_EQ(typeOf("05 A PIC 9(24)."), decimal(digits("24", "0") + kNotNegative));
  EXPECT_EQ(typeOf("05 A PIC S9(23)V99."),
            element("<xs:restriction base=\"xs:string\"><xs:pattern "
                    "value=\"-?(0|[1-9][0-9]{0,22})\\.[0-9]{2}\"/></xs:restriction>"));
}

TEST(Floats, HaveTheTypesOfXmlSchema) {
  EXPECT_EQ(typeOf("05 A COMP-1."), "<xs:element name=\"A\" type=\"xs:float\"/>");
  EXPECT_EQ(typeOf("05 A COMP-2."), "<xs:element name=\"A\" type=\"xs:double\"/>");
}

TEST(EditedNumbers, AreNumbersOnRequest) {
  SchemaRules rules;
  rules.hasEditedNumbers = true;
  EXPECT_EQ(typeOf("05 A PIC ZZ9.99.", rules), decimal(digits("5", "2") + kNotNegative));
  EXPECT_EQ(typeOf("05 A PIC ---9.", rules), decimal(digits("3", "0")));
  EXPECT_EQ(typeOf("05 A PIC 99CR.", rules), decimal(digits("2", "0")));
  EXPECT_EQ(typeOf("05 A PIC +9.9E+99.", rules), "<xs:element name=\"A\" type=\"xs:double\"/>");
}

TEST(ItemsOfNoBytes, AreElementsWithoutContent) {
  EXPECT_EQ(contentOf("01 R IDENTIFIED BY \"r\".\n05 A IDENTIFIED BY \"a\".\n"),
            "<xs:sequence><xs:element name=\"a\"><xs:complexType/></xs:element></xs:sequence>");
}

TEST(Patterns, HaveTheCanonicalForm) {
  ValueType type;
  type.digits = 5;
  type.zeros = 3;
  EXPECT_EQ(type.pattern(), "(0|[1-9][0-9]{0,1}000)");
  type = {};
  type.digits = type.scale = 3;
  type.isSigned = true;
  EXPECT_EQ(type.pattern(), "-?0\\.[0-9]{3}");
  type = {};
  type.digits = 1;
  EXPECT_EQ(type.pattern(), "(0|[1-9])");
}

}  // namespace
}  // namespace fdmorph::docschema
