// Names that every compiler takes.
#include "copybook/name_scope.h"

#include <gtest/gtest.h>

#include "copybook/reserved_words.h"

namespace fdmorph::copybook {
namespace {

TEST(ReservedWords, HaveAnyCase) {
  EXPECT_TRUE(isReservedWord("DATE"));
  EXPECT_TRUE(isReservedWord("date"));
  EXPECT_TRUE(isReservedWord("XML"));        // of -std=ibm or -std=default
  EXPECT_TRUE(isReservedWord("CENTER"));     // context-sensitive, and refused
  EXPECT_FALSE(isReservedWord("CENTERED"));  // context-sensitive, and accepted
  EXPECT_FALSE(isReservedWord("DATES"));
}

TEST(LegalNames, HaveNoFault) {
  EXPECT_EQ(faultOfName("Order-1_a"), "");
  EXPECT_EQ(faultOfName(std::string(30, 'A')), "");
  EXPECT_EQ(faultOfName(std::string(31, 'A')), "is longer than 30 characters");
  EXPECT_EQ(faultOfName("-A"), "begins or ends with a hyphen");
  EXPECT_EQ(faultOfName("A-"), "begins or ends with a hyphen");
  EXPECT_EQ(faultOfName("A--B"), "has two hyphens in a row");
  EXPECT_EQ(faultOfName("12"), "has no letter");
  EXPECT_EQ(faultOfName("Stra\xC3\x9F"
                        "e"),
            "has other characters than A to Z");
  EXPECT_EQ(faultOfName("line"), "is a reserved word");
}

TEST(LegalNames, AreMadeOfOthers) {
  EXPECT_EQ(legalName("Order"), "Order-X");
  EXPECT_EQ(legalName("A--B"), "A-B");
  EXPECT_EQ(legalName("-A-"), "A");
  EXPECT_EQ(legalName("12"), "X-12");
  EXPECT_EQ(legalName("Stra\xC3\x9F"
                      "e"),
            "Stra-e");
  EXPECT_EQ(legalName("\xC3\x9F"), "X");
  // Cut after the hyphen in the 30th place, which goes as well.
  EXPECT_EQ(legalName(std::string(29, 'A') + "-BC"), std::string(29, 'A'));
}

TEST(NameScope, TakesEachNameOnceInAnyCase) {
  NameScope scope;
  EXPECT_TRUE(scope.take("A"));
  EXPECT_FALSE(scope.take("a"));
  EXPECT_FALSE(scope.take("LINE"));
  EXPECT_EQ(scope.takeLike("a"), "a-2");
  EXPECT_EQ(scope.takeLike("A"), "A-3");
  EXPECT_EQ(scope.takeLike("LINE"), "LINE-X");
  EXPECT_EQ(scope.takeLike("LINE"), "LINE-X-2");
}

TEST(NameScope, KeepsNumberedNamesShort) {
  NameScope scope;
  std::string name(30, 'A');
  EXPECT_EQ(scope.takeLike(name + "B"), name);
  EXPECT_EQ(scope.takeLike(name + "C"), std::string(28, 'A') + "-2");
}

}  // namespace
}  // namespace fdmorph::copybook
