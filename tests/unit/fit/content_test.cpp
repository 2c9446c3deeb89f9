// The parts of a content model.

#include "fit/content.h"

#include <gtest/gtest.h>

#include <string>

#include "support/schema_model_fixture.h"

namespace fdmorph::fit {
namespace {

class ContentTest : public SchemaModelTest {
 protected:
  /// "NAME LEAST..MOST" of each part of an element with this content.
  std::string parts(std::string const& particle) {
    load(elementWith(particle));
    content = contentOf(typeOf("r"), *model);
    std::string text;
    for (ContentPart const& part : content.parts) {
      text += part.element->name.local + " " + std::to_string(part.least) + ".." +
              (part.most == kUnbounded ? "*" : std::to_string(part.most)) + "\n";
    }
    return text;
  }

  static std::string part(std::string const& name, std::string const& attributes = "") {
    return "<xs:element name='" + name + "' type='xs:int' " + attributes + "/>";
  }

  Content content;
};

TEST_F(ContentTest, SequencesAddAndChoicesTakeTheExtremes) {
  EXPECT_EQ(parts("<xs:sequence>" + part("a") + "<xs:choice>" + part("a", "maxOccurs='3'") +
                  part("b") + "</xs:choice></xs:sequence>"),
            "a 1..4\nb 0..1\n");
  EXPECT_EQ(parts("<xs:choice><xs:sequence>" + part("a") + part("b") + "</xs:sequence>" +
                  part("a", "minOccurs='2' maxOccurs='2'") + "</xs:choice>"),
            "a 1..2\nb 0..1\n");
}

TEST_F(ContentTest, OccurrencesOfGroupsMultiply) {
  EXPECT_EQ(parts("<xs:sequence minOccurs='0' maxOccurs='3'>" + part("a", "maxOccurs='5'") +
                  part("b", "maxOccurs='unbounded'") + "</xs:sequence>"),
            "a 0..15\nb 0..*\n");
}

TEST_F(ContentTest, ProhibitedPartsAreNone) {
  EXPECT_EQ(parts("<xs:sequence>" + part("a", "minOccurs='0' maxOccurs='0'") + part("b") +
                  "</xs:sequence>"),
            "b 1..1\n");
}

TEST_F(ContentTest, BranchesOfAChoiceExcludeEachOther) {
  parts("<xs:choice><xs:sequence>" + part("a") + part("b") + "</xs:sequence><xs:choice>" +
        part("c") + part("d") + "</xs:choice></xs:choice>");
  auto const together = [this](std::size_t left, std::size_t right) {
    return content.mayBeTogether(content.parts[left], content.parts[right]);
  };
  EXPECT_TRUE(together(0, 1));
  EXPECT_FALSE(together(0, 2));
  EXPECT_FALSE(together(1, 3));
  EXPECT_FALSE(together(2, 3));
}

TEST_F(ContentTest, BranchesOfARepeatedChoiceDoNot) {
  parts("<xs:choice maxOccurs='2'>" + part("a") + part("b") + "</xs:choice>");
  EXPECT_TRUE(content.mayBeTogether(content.parts[0], content.parts[1]));
}

TEST_F(ContentTest, ManyAlternativesAreFast) {
  std::string choice = "<xs:choice>";
  for (int i = 0; i < 3000; ++i) choice += part("e" + std::to_string(i));
  parts(choice + "</xs:choice>");
  EXPECT_EQ(content.parts.size(), 3000);
}

}  // namespace
}  // namespace fdmorph::fit
