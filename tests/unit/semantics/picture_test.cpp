// The analysis of picture strings.

#include <gtest/gtest.h>

#include "semantics/picture.h"
#include "support/parameter_name.h"

namespace fdmorph::compiler {
namespace {

Picture analyse(std::string_view text, PictureRules rules = {}) {
  return analysePicture(text, rules, [](std::string_view name) -> std::optional<std::uint64_t> {
    if (name == "FIVE") return 5;
    return std::nullopt;
  });
}

struct Expected {
  char const* text;
  Category category;
  std::uint64_t size;
  std::uint32_t digits;
  std::uint32_t scale;
};

class GoodPicture : public testing::TestWithParam<Expected> {};

TEST_P(GoodPicture, HasCategorySizeAndDigits) {
  Picture picture = analyse(GetParam().text);
  EXPECT_TRUE(picture.isValid());
  EXPECT_EQ(picture.category, GetParam().category);
  EXPECT_EQ(picture.size, GetParam().size);
  EXPECT_EQ(picture.digits, GetParam().digits);
  EXPECT_EQ(picture.scale, GetParam().scale);
}

INSTANTIATE_TEST_SUITE_P(
    All, GoodPicture,
    testing::Values(Expected{"X(5)", Category::alphanumeric, 5, 0, 0},
                    Expected{"A(3)", Category::alphabetic, 3, 0, 0},
                    Expected{"A9", Category::alphanumeric, 2, 0, 0},
                    Expected{"XX/99", Category::alphanumericEdited, 5, 0, 0},
                    Expected{"n(4)", Category::national, 4, 0, 0},
                    Expected{"S9(7)V99", Category::numeric, 9, 9, 2},
                    Expected{"9(3)99", Category::numeric, 5, 5, 0},
                    // Scaling positions are digits of the number, but not stored.
                    Expected{"99PPP", Category::numeric, 2, 5, 0},
                    Expected{"VPP99", Category::numeric, 2, 4, 4},
                    Expected{"PP99", Category::numeric, 2, 4, 4},
                    // Of n floating signs n - 1 are digits.
                    Expected{"$$,$$9.99DB", Category::numericEdited, 11, 6, 2},
                    Expected{"-9(9).9(9)", Category::numericEdited, 20, 18, 9},
                    Expected{"ZZZ9CR", Category::numericEdited, 6, 4, 0},
                    Expected{"+9.99E+99", Category::numericEdited, 9, 0, 0},
                    // Whether a symbol may be repeated zero times is a matter of the item.
                    Expected{"S9(18)V9(0)", Category::numeric, 18, 18, 0},
                    Expected{"S9(0)V9(2)", Category::numeric, 2, 2, 2},
                    Expected{"9(0)", Category::numeric, 0, 0, 0},
                    Expected{"N(0)", Category::national, 0, 0, 0},
                    Expected{"X(0)", Category::alphanumeric, 0, 0, 0}),
    [](auto const& test) { return parameterName(test.index, test.param.text); });

struct Faulty {
  char const* text;
  char const* error;
};

class BadPicture : public testing::TestWithParam<Faulty> {};

TEST_P(BadPicture, HasOneError) {
  Picture picture = analyse(GetParam().text);
  ASSERT_EQ(picture.errors.size(), 1U);
  EXPECT_EQ(picture.errors.front(), GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(
    All, BadPicture,
    testing::Values(Faulty{"X(", "expected ')' at the end of the picture"},
                    Faulty{"(3)X", "expected a picture symbol before '('"},
                    Faulty{"X(2)(3)", "expected a picture symbol before '('"},
                    Faulty{"X(N)", "expected a number or constant in parentheses, found 'N'"},
                    Faulty{"9Q", "unknown picture symbol 'Q'"},
                    Faulty{"SV", "picture describes no character"},
                    Faulty{"9S", "'S' is not the first symbol of the picture"},
                    Faulty{"9V9V9", "more than one decimal point in the picture"},
                    Faulty{"9Z", "zero suppression after '9'"},
                    Faulty{"Z*9", "both 'Z' and '*' in the picture"},
                    Faulty{"CR9", "CR or DB is not at the end of the picture"},
                    Faulty{"9P9", "'P' is not at an end of the picture"},
                    Faulty{"9(39)", "picture has more than 38 digits"},
                    Faulty{"XV", "numeric and alphanumeric symbols in one picture"},
                    Faulty{"X(99999999999999999999)", "picture describes too many characters"}),
    [](auto const& test) { return parameterName(test.index, test.param.text); });

TEST(Picture, HasTheValueOfAConstantInItsText) {
  Picture picture = analyse("x(FIVE)");
  EXPECT_EQ(picture.text, "x(5)");
  EXPECT_EQ(picture.size, 5U);
}

TEST(Picture, KnowsAnotherCurrencySignAndDecimalComma) {
  Picture picture = analyse("FF.FF9,99", {'F', true});
  EXPECT_EQ(picture.category, Category::numericEdited);
  EXPECT_EQ(picture.scale, 2U);
  EXPECT_FALSE(analyse("FF9").isValid());
}

}  // namespace
}  // namespace fdmorph::compiler
