// Expressions that the values of constants are worked out of: literals, other
// constants and lengths, with + - * / ** and parentheses.
#pragma once

#include <optional>

#include "syntax/token_stream.h"
#include "syntax/value_parser.h"

namespace fdmorph::compiler {

class ConstantExpressionParser {
 public:
  /// The order in which operators are applied.
  enum class Order {
    leftToRight,  ///< level 78
    precedence,   ///< CONSTANT AS: ** before * and /, and these before + and -
  };

  ConstantExpressionParser(TokenStream& tokens, ValueParser& values)
      : m_tokens(tokens), m_values(values) {}

  /// Parses an expression. A single literal may be of any kind; operands of
  /// operators are integers of 64 bits with a sign. Nothing after an error,
  /// which is reported.
  std::optional<Literal> parse(Order order);

 private:
  std::optional<Literal> parseSum(Order order);
  std::optional<Literal> parseProduct(Order order);
  std::optional<Literal> parsePower(Order order);
  std::optional<Literal> parseOperand(Order order);
  char peekOperator();
  void takeOperator(char sign);
  std::optional<Literal> apply(Literal const& left, char sign, Literal const& right);

  TokenStream& m_tokens;
  ValueParser& m_values;
  int m_parentheses = 0;  // around the operand that is being parsed
};

}  // namespace fdmorph::compiler
