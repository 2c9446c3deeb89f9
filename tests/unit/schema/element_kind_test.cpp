// The kinds of schema elements and their numbers, in both enumerations.

#include "schema/element_kind.h"

#include <gtest/gtest.h>

#include <array>

#include "schema/DMXMLSchemaDoc.h"

namespace fdmorph {
namespace {

// In the order of the numbers.
constexpr std::array kNames{
    "schema",      "element",     "attribute",   "attributeGroup", "simpleType",
    "enumeration", "group",       "complexType", "simpleContent",  "complexContent",
    "extension",   "restriction", "sequence",    "choice",         "union",
    "list",        "all",         "any",         "unique",         "anyAttribute",
    "appInfo",     "key",         "keyRef",      "selector",       "field",
    "import",      "include",     "redefine",
};

int kindOf(std::string const& name) {
  CDMXMLElement element;
  element.name = name;
  return static_cast<int>(CDMXMLSchemaDoc::getElementType(&element));
}

TEST(SchemaKind, EachNameHasItsNumber) {
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    EXPECT_EQ(kindOf(kNames[i]), static_cast<int>(i)) << kNames[i];
  }
}

TEST(SchemaKind, AnyPrefixIsAccepted) {
  EXPECT_EQ(kindOf("xs:element"), 1);
  EXPECT_EQ(kindOf("xsd:element"), 1);
  EXPECT_EQ(kindOf(":element"), 1);
}

TEST(SchemaKind, UsualLowerCaseFormsAreUnknown) {
  EXPECT_EQ(kindOf("xs:appinfo"), 28);
  EXPECT_EQ(kindOf("xs:keyref"), 28);
  EXPECT_EQ(kindOf("xs:appInfo"), 20);
  EXPECT_EQ(kindOf("xs:keyRef"), 22);
}

TEST(SchemaKind, ComparisonIsExact) {
  for (char const* name : {"Element", "ELEMENT", "element ", "elemen", "elements", "xs:x:element",
                           "", "xs:", "annotation", "notation", "documentation", "zzz"}) {
    EXPECT_EQ(kindOf(name), 28) << name;
  }
}

// In the order of the numbers. There is no enumeration among them.
constexpr std::array kGeneratorNames{
    "schema",      "element",     "attribute",     "attributeGroup", "simpleType",
    "group",       "complexType", "simpleContent", "complexContent", "extension",
    "restriction", "sequence",    "choice",        "union",          "list",
    "all",         "any",         "unique",        "anyAttribute",   "appInfo",
    "key",         "keyRef",      "selector",      "field",          "import",
    "include",     "redefine",
};

int generatorKindOf(std::string const& name) {
  CDMXMLElement element;
  element.name = name;
  return static_cast<int>(generatorElementKind(&element));
}

TEST(GeneratorKind, EachNameHasItsNumber) {
  for (std::size_t i = 0; i < kGeneratorNames.size(); ++i) {
    EXPECT_EQ(generatorKindOf(std::string("xs:") + kGeneratorNames[i]), static_cast<int>(i))
        << kGeneratorNames[i];
  }
}

TEST(GeneratorKind, EnumerationIsOther) {
  EXPECT_EQ(generatorKindOf("xs:enumeration"), 27);
}

TEST(GeneratorKind, AnnotationsAreOther) {
  EXPECT_EQ(generatorKindOf("xs:annotation"), 27);
  EXPECT_EQ(generatorKindOf("xs:documentation"), 27);
}

TEST(GeneratorKind, UsualLowerCaseFormsAreUnknown) {
  EXPECT_EQ(generatorKindOf("xs:appinfo"), 27);
  EXPECT_EQ(generatorKindOf("xs:keyref"), 27);
}

TEST(GeneratorKind, SecondColonBelongsToTheLocalPart) {
  EXPECT_EQ(generatorKindOf("a:b:sequence"), 27);
}

TEST(GeneratorKind, ComparisonIsExact) {
  EXPECT_EQ(generatorKindOf("Sequence"), 27);
  EXPECT_EQ(generatorKindOf(""), 27);
}

}  // namespace
}  // namespace fdmorph
