#include "syntax/name_parser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/parsed_text.h"

namespace fdmorph::compiler {
namespace {

TEST(Name, MayBeQualified) {
  ParsedText text("A OF B IN C D");
  QualifiedName name = text.names.parseQualified();
  EXPECT_EQ(name.name, "A");
  EXPECT_THAT(name.qualifiers, testing::ElementsAre("B", "C"));
  EXPECT_EQ(text.tokens.peek().text, "D");
}

TEST(Name, IsMissingBeforeAClause) {
  ParsedText text("OCCURS 2");
  EXPECT_EQ(text.names.parse(), std::nullopt);
  EXPECT_EQ(text.reports(), "1:1: error: expected a name before 'OCCURS' [name]\n");
  // A clause could not go on like this.
  EXPECT_EQ(ParsedText("OCCURS VALUE 2").names.parse(), "OCCURS");
  EXPECT_EQ(ParsedText("OCCURS.").names.parse(), "OCCURS");
}

TEST(Name, OfAQualifierMayBeMissing) {
  ParsedText text("A OF 5");
  EXPECT_EQ(text.names.parseQualified().name, "A");
  EXPECT_EQ(text.reports(), "1:6: error: expected a name before '5' [name]\n");
}

TEST(Name, LosesTheColonsOfATagInACopybook) {
  ParsedText text(":T:-A :T:-B");
  EXPECT_EQ(text.names.takeName().text, "T-A");
  EXPECT_EQ(text.names.takeName().text, "T-B");
  EXPECT_EQ(text.reports(),
            "1:1: warning: tag ':T:' is not replaced; its letters become part of the name [tag]\n");
}

TEST(Name, HasNoTagInAProgram) {
  ParsedText text("A-:T:");
  text.data.isProgram = true;
  EXPECT_EQ(text.names.takeName().text, "");
  EXPECT_EQ(text.reports(), "1:1: error: tag ':T:' in name 'A-:T:' is not replaced [name]\n");
}

/// What is reported of a name.
std::string faultOf(std::string const& name) {
  ParsedText text(name);
  text.names.check(text.tokens.take());
  return text.reports();
}

TEST(Name, FollowsTheRulesForWords) {
  EXPECT_EQ(faultOf("A-1_B"), "");
  EXPECT_EQ(faultOf(std::string(63, 'A')), "");
  EXPECT_EQ(faultOf("A-"), "1:1: error: name 'A-' ends in a hyphen or underscore [name]\n");
  EXPECT_EQ(faultOf("_A"), "1:1: error: name '_A' begins with a hyphen or underscore [name]\n");
  EXPECT_EQ(faultOf("1-2"), "1:1: error: name '1-2' has no letter [name]\n");
  EXPECT_NE(faultOf(std::string(64, 'A')).find("is longer than 63 characters"), std::string::npos);
}

}  // namespace
}  // namespace fdmorph::compiler
