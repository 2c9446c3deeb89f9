// The size of a pattern with its repetitions written out.

#include "xml/pattern_size.h"

#include <gtest/gtest.h>

#include <string>

namespace fdmorph {
namespace {

TEST(PatternSize, LiteralsAndSetsAreAtomsOfOne) {
  PatternSize size = patternSize(u"ab[c-e]\\d\\p{Lu}.");
  EXPECT_EQ(size.atoms, 6U);
  EXPECT_EQ(size.repetition, 1U);
  EXPECT_EQ(size.depth, 0U);
}

TEST(PatternSize, RepetitionCountsByItsUpperEnd) {
  EXPECT_EQ(patternSize(u"a{3}").repetition, 3U);
  EXPECT_EQ(patternSize(u"a{3,7}").repetition, 7U);
  EXPECT_EQ(patternSize(u"a{0,7}").atoms, 7U);
}

TEST(PatternSize, OpenRepetitionHasOneCopyMoreForItsLoop) {
  EXPECT_EQ(patternSize(u"a{3,}").repetition, 3U);
  EXPECT_EQ(patternSize(u"a{3,}").atoms, 4U);
  EXPECT_EQ(patternSize(u"a+").repetition, 1U);
  EXPECT_EQ(patternSize(u"a+").atoms, 2U);
}

TEST(PatternSize, NestedRepetitionsMultiply) {
  PatternSize size = patternSize(u"((ab{2}){3}c){5}");
  EXPECT_EQ(size.repetition, 30U);
  EXPECT_EQ(size.atoms, ((1 + 2) * 3 + 1) * 5U);
  EXPECT_EQ(size.depth, 2U);
}

TEST(PatternSize, LargestOfSeveralRepetitionsCounts) {
  EXPECT_EQ(patternSize(u"a{5}b{9}c{7}|d{8}").repetition, 9U);
}

TEST(PatternSize, RepetitionOfZeroIsOne) {
  EXPECT_EQ(patternSize(u"(a{100}){0}").repetition, 100U);
}

TEST(PatternSize, HugeNumbersDoNotWrapAround) {
  EXPECT_EQ(patternSize(u"a{99999999999999999999999999}").repetition, kMaxPatternNumber);
  EXPECT_EQ(patternSize(u"((a{4294967296}){4294967296}){4294967296}").repetition,
            kMaxPatternNumber);
}

TEST(PatternSize, BracesAndParenthesesInSetsAndEscapesAreCharacters) {
  EXPECT_EQ(patternSize(u"[(){9}]").repetition, 1U);
  EXPECT_EQ(patternSize(u"[(){9}]").depth, 0U);
  EXPECT_EQ(patternSize(u"\\({2}").repetition, 2U);
  EXPECT_EQ(patternSize(u"\\[(a)").depth, 1U);
  EXPECT_EQ(patternSize(u"[\\]({9}]").repetition, 1U);
}

TEST(PatternSize, SubtractedSetsAreLevels) {
  EXPECT_EQ(patternSize(u"[a-z-[b-y-[c]]]").depth, 3U);
  EXPECT_EQ(patternSize(u"[a-z-[b-y-[c]]]{4}").repetition, 4U);
}

TEST(PatternSize, LongestMatchIsThatOfTheLongestAlternative) {
  EXPECT_EQ(patternSize(u"").longest, 0U);
  EXPECT_EQ(patternSize(u"abc").longest, 3U);
  EXPECT_EQ(patternSize(u"a|bcd|ef").longest, 3U);
  EXPECT_EQ(patternSize(u"x(a|bcd)y").longest, 5U);
  EXPECT_EQ(patternSize(u"[A-Z]{2,2}[0-9]{2,2}[a-zA-Z0-9]{1,30}").longest, 34U);
  EXPECT_EQ(patternSize(u"(\\d{4}-)?[+\\-]\\p{Lu}").longest, 7U);
  EXPECT_EQ(patternSize(u"(ab{3}){0,2}c{0}").longest, 8U);
}

TEST(PatternSize, CharacterOfTwoUnitsIsOne) {
  EXPECT_EQ(patternSize(u"a\U0001F600b").longest, 3U);
}

TEST(PatternSize, OpenRepetitionHasNoLongestMatch) {
  EXPECT_EQ(patternSize(u"ab*").longest, kMaxPatternNumber);
  EXPECT_EQ(patternSize(u"(ab)+").longest, kMaxPatternNumber);
  EXPECT_EQ(patternSize(u"a{2,}").longest, kMaxPatternNumber);
  EXPECT_EQ(patternSize(u"(|a)*").longest, kMaxPatternNumber);
  EXPECT_EQ(patternSize(u"()*").longest, 0U);
}

TEST(PatternSize, MalformedPatternsHaveASize) {
  for (char16_t const* pattern :
       {u"", u"(", u")", u"[", u"a{", u"a{1,", u"\\", u"\\p{", u"((a{2}"}) {
    EXPECT_LE(patternSize(pattern).repetition, 2U);
  }
}

}  // namespace
}  // namespace fdmorph
