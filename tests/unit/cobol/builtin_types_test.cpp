// The built-in types and their pictures.

#include "cobol/builtin_types.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/generator_fixture.h"
#include "text/console.h"

namespace fdmorph {
namespace {

std::vector<std::string> const kCharacterTypes{
    "string",   "boolean",          "duration",     "dateTime",  "time",
    "date",     "gYearMonth",       "gYear",        "gMonthDay", "gDay",
    "gMonth",   "hexBinary",        "base64Binary", "anyURI",    "QName",
    "NOTATION", "normalizedString", "token",        "language",  "NMTOKEN",
    "Name",     "NCName",           "ID",           "IDREF",     "ENTITY",
    "CDATA",
};
std::vector<std::string> const kUnsignedTypes{
    "nonNegativeInteger", "unsignedLong", "unsignedInt",
    "unsignedShort",      "unsignedByte", "positiveInteger",
};
std::vector<std::string> const kSignedTypes{
    "integer", "nonPositiveInteger", "negativeInteger", "long", "int", "short", "byte",
};
std::vector<std::string> const kUnsupportedTypes{
    "IDREFS", "ENTITIES", "NMTOKENS", "anyType", "anySimpleType", "String", "",
};

class BuiltinTypes : public GeneratorTest {
 protected:
  BuiltinTypes() {
    use(schema({component("element", "e")}));
    item.schemaElement = at("e");
  }

  bool convert(std::string const& type) {
    item = CDMCOBOLRecordItem();
    item.schemaElement = at("e");
    return generator->convertXMLtoCOBOL(&item, "xs:" + type);
  }

  bool isUnchanged() const {
    return item.pictureSymbol.empty() && item.pictureSize.empty() && item.usage.empty() &&
           !item.hasDecimal;
  }

  CDMCOBOLRecordItem item;
};

TEST_F(BuiltinTypes, CharacterTypesBecomeX) {
  for (std::string const& type : kCharacterTypes) {
    EXPECT_TRUE(convert(type)) << type;
    EXPECT_EQ(item.pictureSymbol, "X") << type;
    EXPECT_FALSE(item.hasDecimal) << type;
  }
}

TEST_F(BuiltinTypes, UnsignedTypesBecome9) {
  for (std::string const& type : kUnsignedTypes) {
    EXPECT_TRUE(convert(type)) << type;
    EXPECT_EQ(item.pictureSymbol, "9") << type;
  }
}

TEST_F(BuiltinTypes, SignedTypesBecomeS9AndReportFalse) {
  for (std::string const& type : kSignedTypes) {
    EXPECT_FALSE(convert(type)) << type;
    EXPECT_EQ(item.pictureSymbol, "S9") << type;
    EXPECT_FALSE(item.hasDecimal) << type;
  }
}

TEST_F(BuiltinTypes, DecimalBecomesS9WithADecimalPartAndReportsFalse) {
  EXPECT_FALSE(convert("decimal"));
  EXPECT_EQ(item.pictureSymbol, "S9");
  EXPECT_TRUE(item.hasDecimal);
}

TEST_F(BuiltinTypes, FloatingPointTypesBecomeUsagesAndReportFalse) {
  EXPECT_FALSE(convert("float"));
  EXPECT_EQ(item.usage, "COMP-1");
  EXPECT_EQ(item.pictureSymbol, "");
  EXPECT_FALSE(convert("double"));
  EXPECT_EQ(item.usage, "COMP-2");
}

TEST_F(BuiltinTypes, SizeIsLeftToTheCaller) {
  convert("string");
  EXPECT_EQ(item.pictureSize, "");
}

TEST_F(BuiltinTypes, UnsupportedTypesChangeNothing) {
  for (std::string const& type : kUnsupportedTypes) {
    EXPECT_FALSE(convert(type)) << type;
    EXPECT_TRUE(isUnchanged()) << type;
  }
  EXPECT_EQ(captured.err(), "");
}

TEST_F(BuiltinTypes, TypeOfAnotherNamespaceChangesNothing) {
  EXPECT_FALSE(generator->convertXMLtoCOBOL(&item, "string"));
  EXPECT_FALSE(generator->convertXMLtoCOBOL(&item, "foo:string"));
  EXPECT_TRUE(isUnchanged());
}

TEST_F(BuiltinTypes, WithoutAnItemOrATypeNothingHappens) {
  EXPECT_FALSE(generator->convertXMLtoCOBOL(nullptr, "xs:string"));
  EXPECT_FALSE(generator->convertXMLtoCOBOL(&item, ""));
  EXPECT_TRUE(isUnchanged());
}

TEST_F(BuiltinTypes, AllButTheListTypesAreSupported) {
  for (auto const* types : {&kCharacterTypes, &kUnsignedTypes, &kSignedTypes}) {
    for (std::string const& type : *types) {
      EXPECT_TRUE(generator->isSupportedDefaultSchemaType(at("e"), "xs:" + type)) << type;
    }
  }
  for (char const* type : {"xs:decimal", "xs:float", "xs:double"}) {
    EXPECT_TRUE(generator->isSupportedDefaultSchemaType(at("e"), type)) << type;
  }
  for (std::string const& type : kUnsupportedTypes) {
    EXPECT_FALSE(generator->isSupportedDefaultSchemaType(at("e"), "xs:" + type)) << type;
  }
}

TEST_F(BuiltinTypes, ListTypesInTheTableDifferFromUnknownNames) {
  EXPECT_EQ(builtinTypeClass("IDREFS"), BuiltinTypeClass::list);
  EXPECT_EQ(builtinTypeClass("ENTITIES"), BuiltinTypeClass::list);
  EXPECT_EQ(builtinTypeClass("NMTOKENS"), BuiltinTypeClass::unknown);
  EXPECT_EQ(builtinTypeClass("zzz"), BuiltinTypeClass::unknown);
}

}  // namespace
}  // namespace fdmorph
