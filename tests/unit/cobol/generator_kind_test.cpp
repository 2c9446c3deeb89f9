// The kinds of schema elements as the conversion tells them apart.

#include "cobol/generator_kind.h"

#include <gtest/gtest.h>

#include <array>

#include "cobol/DMCOBOLGenerator.h"

namespace fdmorph {
namespace {

// In the order of the numbers. There is no enumeration among them.
constexpr std::array kNames{
    "schema",      "element",     "attribute",     "attributeGroup", "simpleType",
    "group",       "complexType", "simpleContent", "complexContent", "extension",
    "restriction", "sequence",    "choice",        "union",          "list",
    "all",         "any",         "unique",        "anyAttribute",   "appInfo",
    "key",         "keyRef",      "selector",      "field",          "import",
    "include",     "redefine",
};

int kindOf(std::string const& name) {
  CDMXMLElement element;
  element.name = name;
  return static_cast<int>(CDMCOBOLGenerator::getElementType(&element));
}

TEST(GeneratorKind, EachNameHasItsNumber) {
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    EXPECT_EQ(kindOf(std::string("xs:") + kNames[i]), static_cast<int>(i)) << kNames[i];
  }
}

TEST(GeneratorKind, EnumerationIsNoKind) {
  EXPECT_EQ(kindOf("xs:enumeration"), 27);
}

TEST(GeneratorKind, AnnotationsAreNoKind) {
  EXPECT_EQ(kindOf("xs:annotation"), 27);
  EXPECT_EQ(kindOf("xs:documentation"), 27);
}

TEST(GeneratorKind, UsualLowerCaseFormsAreUnknown) {
  EXPECT_EQ(kindOf("xs:appinfo"), 27);
  EXPECT_EQ(kindOf("xs:keyref"), 27);
}

TEST(GeneratorKind, SecondColonBelongsToTheLocalPart) {
  EXPECT_EQ(kindOf("a:b:sequence"), 27);
}

TEST(GeneratorKind, ComparisonIsExact) {
  EXPECT_EQ(kindOf("Sequence"), 27);
  EXPECT_EQ(kindOf(""), 27);
}

}  // namespace
}  // namespace fdmorph
