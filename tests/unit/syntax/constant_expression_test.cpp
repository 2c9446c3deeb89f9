#include "syntax/constant_expression.h"

#include <gtest/gtest.h>

#include "support/parsed_text.h"

namespace fdmorph::compiler {
namespace {

using Order = ConstantExpressionParser::Order;

/// The value of an expression, or what is reported of it.
std::string valueOf(std::string const& source, Order order = Order::precedence) {
  ParsedText text(source);
  ConstantExpressionParser parser(text.tokens, text.values);
  std::optional<Literal> value = parser.parse(order);
  return value ? std::string(value->text) : text.reports();
}

TEST(ConstantExpression, AppliesOperatorsByTheirPrecedence) {
  EXPECT_EQ(valueOf("2 + 3 * 4"), "14");
  EXPECT_EQ(valueOf("2 * 3 ** 2"), "18");
  EXPECT_EQ(valueOf("20 / 4 - 1"), "4");
  EXPECT_EQ(valueOf("(2 + 3) * (1 + 1)"), "10");
  EXPECT_EQ(valueOf("-7 / 2"), "-3");
}

TEST(ConstantExpression, OfLevel78AppliesThemFromLeftToRight) {
  EXPECT_EQ(valueOf("2 + 3 * 4", Order::leftToRight), "20");
  EXPECT_EQ(valueOf("10 - 2 - 3", Order::leftToRight), "5");
}

TEST(ConstantExpression, MayBeAnyLiteral) {
  EXPECT_EQ(valueOf("\"a\""), "\"a\"");
  EXPECT_EQ(valueOf("\"a\" & \"b\""), "\"ab\"");
  EXPECT_EQ(valueOf("1.5"), "1.5");
}

TEST(ConstantExpression, HasAnyExponentWhereThePowerIsSmall) {
  EXPECT_EQ(valueOf("1 ** 64"), "1");
  EXPECT_EQ(valueOf("0 ** 1000000"), "0");
  EXPECT_EQ(valueOf("0 ** 0"), "1");
  EXPECT_EQ(valueOf("-1 ** 65"), "-1");
  EXPECT_EQ(valueOf("-1 ** 100"), "1");
  EXPECT_EQ(valueOf("1 ** -5"), "1");
  EXPECT_EQ(valueOf("2 ** 62"), "4611686018427387904");
  EXPECT_EQ(valueOf("-2 ** 63"), "-9223372036854775808");
}

TEST(ConstantExpression, KeepsIntegersOf64Bits) {
  EXPECT_EQ(valueOf("2 ** 60 / 2 ** 50"), "1024");
  char const* overflow = "error: integer overflow in constant expression [constant]\n";
  EXPECT_EQ(valueOf("2 ** 63"), "1:6: " + std::string(overflow));
  EXPECT_EQ(valueOf("3 ** 1000000000000"), "1:6: " + std::string(overflow));
  EXPECT_EQ(valueOf("-9223372036854775808 / -1"), "1:24: " + std::string(overflow));
  EXPECT_EQ(valueOf("9223372036854775807 + 1"), "1:23: " + std::string(overflow));
}

TEST(ConstantExpression, ReportsErrors) {
  EXPECT_EQ(valueOf("1 / 0"), "1:5: error: division by zero in constant expression [constant]\n");
  EXPECT_EQ(valueOf("0 ** -1"), "1:6: error: division by zero in constant expression [constant]\n");
  EXPECT_EQ(valueOf("2 ** -1"),
            "1:6: error: negative exponent in constant expression [constant]\n");
  EXPECT_EQ(valueOf("1 + \"a\""),
            "1:5: error: an operand of a constant expression must be an integer [constant]\n");
  EXPECT_EQ(valueOf("1 + ."), "1:5: error: expected a literal or constant, found '.' [constant]\n");
  EXPECT_EQ(valueOf("(1 + 2 X"), "1:8: error: expected ')' before 'X' [constant]\n");
}

TEST(ConstantExpression, NestsParenthesesSoDeep) {
  std::string open(64, '(');
  std::string close(64, ')');
  EXPECT_EQ(valueOf(open + "1" + close), "1");
  EXPECT_EQ(valueOf("(" + open + "1" + close + ")"),
            "1:65: error: more than 64 nested parentheses [constant]\n");
}

}  // namespace
}  // namespace fdmorph::compiler
