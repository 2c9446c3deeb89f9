#include "syntax/constant_expression.h"

#include <charconv>

namespace fdmorph::compiler {
namespace {

constexpr int kMaxParentheses = 64;
constexpr char kPower = '^';  // written **

/// The result of an operator, or why there is none.
struct Result {
  std::int64_t number = 0;
  char const* error = nullptr;
};

constexpr Result kOverflow{0, "integer overflow in constant expression"};
constexpr Result kZeroDivision{0, "division by zero in constant expression"};

Result raise(std::int64_t base, std::int64_t exponent) {
  // These have powers for any exponent.
  if (base == 1) return {1, nullptr};
  if (base == -1) return {exponent % 2 == 0 ? 1 : -1, nullptr};
  if (base == 0 && exponent > 0) return {0, nullptr};
  if (base == 0 && exponent < 0) return kZeroDivision;
  if (exponent < 0) return {0, "negative exponent in constant expression"};
  // Any other base overflows after 63 steps at most.
  std::int64_t power = 1;
  for (; exponent > 0; --exponent) {
    if (__builtin_mul_overflow(power, base, &power)) return kOverflow;
  }
  return {power, nullptr};
}

Result calculate(std::int64_t left, char sign, std::int64_t right) {
  std::int64_t number = 0;
  bool isOverflow = false;
  switch (sign) {
    case '+':
      isOverflow = __builtin_add_overflow(left, right, &number);
      break;
    case '-':
      isOverflow = __builtin_sub_overflow(left, right, &number);
      break;
    case '*':
      isOverflow = __builtin_mul_overflow(left, right, &number);
      break;
    case kPower:
      return raise(left, right);
    default:
      if (right == 0) return kZeroDivision;
      // The quotient of the least number and -1 is too large.
      isOverflow = right == -1 && __builtin_sub_overflow(std::int64_t{0}, left, &number);
      if (!isOverflow) number = left / right;
      break;
  }
  return isOverflow ? kOverflow : Result{number, nullptr};
}

// An integer of 64 bits, with or without a sign.
std::optional<std::int64_t> signedIntegerOf(Literal const& literal) {
  if (literal.kind == Literal::Kind::zero) return 0;
  if (literal.kind == Literal::Kind::broken) return 1;
  if (literal.kind != Literal::Kind::number) return std::nullopt;
  std::string_view digits = literal.text;
  if (digits.starts_with('+')) digits.remove_prefix(1);
  std::int64_t value = 0;
  char const* end = digits.data() + digits.size();
  auto [next, error] = std::from_chars(digits.data(), end, value);
  return error == std::errc() && next == end ? std::optional(value) : std::nullopt;
}

}  // namespace

std::optional<Literal> ConstantExpressionParser::parse(Order order) {
  return parseSum(order);
}

std::optional<Literal> ConstantExpressionParser::parseSum(Order order) {
  std::optional<Literal> value = parseProduct(order);
  while (value) {
    char sign = peekOperator();
    bool isNext = order == Order::precedence ? sign == '+' || sign == '-' : sign != 0;
    if (!isNext) break;
    takeOperator(sign);
    std::optional<Literal> right = parseProduct(order);
    value = right ? apply(*value, sign, *right) : std::nullopt;
  }
  return value;
}

std::optional<Literal> ConstantExpressionParser::parseProduct(Order order) {
  std::optional<Literal> value = parsePower(order);
  while (value && order == Order::precedence) {
    char sign = peekOperator();
    if (sign != '*' && sign != '/') break;
    takeOperator(sign);
    std::optional<Literal> right = parsePower(order);
    value = right ? apply(*value, sign, *right) : std::nullopt;
  }
  return value;
}

std::optional<Literal> ConstantExpressionParser::parsePower(Order order) {
  std::optional<Literal> value = parseOperand(order);
  while (value && order == Order::precedence && peekOperator() == kPower) {
    takeOperator(kPower);
    std::optional<Literal> right = parseOperand(order);
    value = right ? apply(*value, kPower, *right) : std::nullopt;
  }
  return value;
}

std::optional<Literal> ConstantExpressionParser::parseOperand(Order order) {
  if (!m_tokens.peek().isSymbol('(')) {
    std::optional<Literal> literal = m_values.parseLiteral();
    if (!literal) m_tokens.expected(Code::constant, "a literal or constant");
    return literal;
  }
  if (m_parentheses >= kMaxParentheses) {
    m_tokens.error(Code::constant, m_tokens.peek().place,
                   "more than " + std::to_string(kMaxParentheses) + " nested parentheses");
    return std::nullopt;
  }
  ++m_parentheses;
  m_tokens.take();
  std::optional<Literal> value = parseSum(order);
  --m_parentheses;
  if (!value) return std::nullopt;
  if (!m_tokens.peek().isSymbol(')')) {
    m_tokens.error(Code::constant, m_tokens.peek().place,
                   "expected ')' before " + describe(m_tokens.peek()));
    return std::nullopt;
  }
  m_tokens.take();
  return value;
}

// 0 if no operator is next.
char ConstantExpressionParser::peekOperator() {
  Token const& token = m_tokens.peek();
  if (token.kind == Token::Kind::word && token.text == "-") return '-';
  if (token.isSymbol('*') && m_tokens.peek(1).isSymbol('*')) return kPower;
  for (char sign : {'+', '*', '/'}) {
    if (token.isSymbol(sign)) return sign;
  }
  return 0;
}

void ConstantExpressionParser::takeOperator(char sign) {
  m_tokens.take();
  if (sign == kPower) m_tokens.take();
}

std::optional<Literal> ConstantExpressionParser::apply(Literal const& left, char sign,
                                                       Literal const& right) {
  std::optional<std::int64_t> first = signedIntegerOf(left);
  std::optional<std::int64_t> second = signedIntegerOf(right);
  if (!first || !second) {
    m_tokens.error(Code::constant, (first ? right : left).place,
                   "an operand of a constant expression must be an integer");
    return std::nullopt;
  }
  Result result = calculate(*first, sign, *second);
  if (result.error != nullptr) {
    m_tokens.error(Code::constant, right.place, result.error);
    return std::nullopt;
  }
  return m_values.numberLiteral(result.number, left.place);
}

}  // namespace fdmorph::compiler
