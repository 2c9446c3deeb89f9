// Named constants and what their values are worked out of: numbers, other
// constants and lengths, with + - * / and parentheses.
#include "source/literals.h"
#include "syntax/parser.h"
#include "text/letter_case.h"

namespace fdmorph::compiler {
namespace {

constexpr int kMaxParentheses = 64;
constexpr char kPower = '^';  // written **

bool raise(std::int64_t base, std::int64_t exponent, std::int64_t& result) {
  constexpr std::int64_t kMaxExponent = 63;  // of 2
  if (exponent < 0 || exponent > kMaxExponent) return false;
  result = 1;
  for (; exponent > 0; --exponent) {
    if (__builtin_mul_overflow(result, base, &result)) return false;
  }
  return true;
}

// An integer with or without a sign.
std::optional<std::int64_t> numberOf(Literal const& literal) {
  if (literal.kind == Literal::Kind::zero) return 0;
  if (literal.kind == Literal::Kind::broken) return 1;
  if (literal.kind != Literal::Kind::number) return std::nullopt;
  bool isNegative = literal.text.starts_with('-');
  std::optional<std::uint64_t> digits = integerOf(literal.text.substr(isNegative ? 1 : 0));
  if (!digits) return std::nullopt;
  auto number = static_cast<std::int64_t>(*digits);
  return isNegative ? -number : number;
}

}  // namespace

// 78 NAME VALUE 5., 01 NAME CONSTANT AS 5. The operators of a level-78 entry
// are applied from left to right, those of CONSTANT by their precedence.
void Parser::parseConstant(Entry& entry) {
  DataItem& item = *entry.item;
  bool hasPrecedence = item.level != kConstantLevel;
  item.level = kConstantLevel;  // no item of data
  skip(Keyword::is);
  if (skip(Keyword::global)) skip(Keyword::is);
  if (hasPrecedence) {
    skip(Keyword::as);
  } else if (!skip(Keyword::value)) {
    error(Code::constant, peek().place, "the constant lacks VALUE");
    skipSentence();
    return;
  }
  skip(Keyword::is);
  Literal value;
  Token first = peek();
  std::size_t errors = m_diagnostics.errorCount();
  bool isFrom = hasPrecedence && skip(Keyword::from);
  if (isFrom ? !parseVariable(value) : !parseExpression(value, hasPrecedence)) {
    if (m_diagnostics.errorCount() == errors) {
      error(Code::constant, first.place,
            "the constant's value is neither a literal nor a sum of them");
    }
    skipSentence();
    value = {};
    value.kind = Literal::Kind::broken;
    m_constants.add(item.name, value);
    return;
  }
  if (!item.name.empty() && !m_constants.add(item.name, value)) {
    error(Code::constant, item.place, "the constant " + quoted(item.name) + " is defined twice");
  }
  endShortEntry("a constant");
}

// CONSTANT FROM name, which a directive defines.
bool Parser::parseVariable(Literal& value) {
  Token name = peek();
  auto variable = name.kind == Token::Kind::word ? m_variables.find(name.text) : m_variables.end();
  if (variable == m_variables.end()) {
    error(Code::constant, name.place, describe(name) + " is defined by no directive");
    return false;
  }
  take();
  bool isNumber = variable->second.isNumber;
  value.kind = isNumber ? Literal::Kind::number : Literal::Kind::text;
  value.text =
      m_pool.append(isNumber ? variable->second.text : quotedLiteral(variable->second.text));
  return true;
}

bool Parser::parseExpression(Literal& value, bool hasPrecedence) {
  if (!parseTerm(value, hasPrecedence)) return false;
  while (char sign = operatorNext()) {
    takeOperator(sign);
    Literal right;
    if (!parseTerm(right, hasPrecedence) || !applyOperator(value, sign, right)) return false;
  }
  return true;
}

bool Parser::parseTerm(Literal& value, bool hasPrecedence) {
  if (!parseFactor(value, hasPrecedence)) return false;
  while (hasPrecedence && (operatorNext() == '*' || operatorNext() == '/')) {
    char sign = operatorNext();
    takeOperator(sign);
    Literal right;
    if (!parseFactor(right, hasPrecedence) || !applyOperator(value, sign, right)) return false;
  }
  return true;
}

bool Parser::parseFactor(Literal& value, bool hasPrecedence) {
  if (!parseOperand(value, hasPrecedence)) return false;
  while (hasPrecedence && operatorNext() == kPower) {
    takeOperator(kPower);
    Literal right;
    if (!parseOperand(right, hasPrecedence) || !applyOperator(value, kPower, right)) return false;
  }
  return true;
}

bool Parser::parseOperand(Literal& value, bool hasPrecedence) {
  if (!peek().isSymbol('(')) return parseLiteral(value);
  if (m_parentheses >= kMaxParentheses) {
    error(Code::constant, peek().place, "parentheses are nested too deeply");
    return false;
  }
  ++m_parentheses;
  take();
  bool isRight = parseExpression(value, hasPrecedence) && peek().isSymbol(')');
  if (isRight) take();
  --m_parentheses;
  return isRight;
}

char Parser::operatorNext() {
  Token const& token = peek();
  if (token.kind == Token::Kind::word && token.text == "-") return '-';
  if (token.isSymbol('*') && peek(1).isSymbol('*')) return kPower;
  for (char sign : {'+', '*', '/'}) {
    if (token.isSymbol(sign)) return sign;
  }
  return 0;
}

void Parser::takeOperator(char sign) {
  take();
  if (sign == kPower) take();
}

bool Parser::applyOperator(Literal& left, char sign, Literal const& right) {
  std::optional<std::int64_t> a = numberOf(left);
  std::optional<std::int64_t> b = numberOf(right);
  if (!a || !b) return false;
  std::int64_t result = 0;
  bool isOverflow = false;
  switch (sign) {
    case '+':
      isOverflow = __builtin_add_overflow(*a, *b, &result);
      break;
    case '-':
      isOverflow = __builtin_sub_overflow(*a, *b, &result);
      break;
    case '*':
      isOverflow = __builtin_mul_overflow(*a, *b, &result);
      break;
    case kPower:
      isOverflow = !raise(*a, *b, result);
      break;
    default:
      isOverflow = *b == 0;
      if (!isOverflow) result = *a / *b;
      break;
  }
  if (isOverflow) {
    error(Code::constant, right.place, "the constant's value can't be worked out");
    return false;
  }
  setNumber(left, result);
  return true;
}

void Parser::setNumber(Literal& value, std::int64_t number) {
  value.kind = Literal::Kind::number;
  value.text = m_pool.append(std::to_string(number));
}

// LENGTH OF or BYTE-LENGTH OF, where that is no constant's name.
bool Parser::isLengthNext() {
  Token const& token = peek();
  bool isWord = token.is(Keyword::length) || equalsIgnoringCase(token.text, "BYTE-LENGTH");
  if (!isWord || m_constants.find(token.text) != nullptr) return false;
  Token const& following = peek(1);
  return following.kind == Token::Kind::word || following.kind == Token::Kind::literal;
}

// The bytes of an item with all its occurrences, or of a literal.
bool Parser::parseLength(Literal& value) {
  Token word = take();
  skip(Keyword::of);
  value.place = word.place;
  if (peek().kind == Token::Kind::literal) {
    Literal literal;
    if (!parseLiteral(literal)) return false;
    std::size_t width = isNationalLiteral(literal.text) ? 2 : 1;
    setNumber(value, static_cast<std::int64_t>(decodeLiteral(literal.text).characters * width));
    return true;
  }
  QualifiedName name = parseQualifiedName();
  if (name.name.empty()) return false;
  DataItem* item = nullptr;
  switch (m_lengths.find(name, m_lastItem, item)) {
    case ItemLengths::Outcome::found:
      break;
    case ItemLengths::Outcome::unknown:
      error(Code::constant, name.place, quoted(name.name) + " is not defined");
      return false;
    case ItemLengths::Outcome::ambiguous:
      error(Code::constant, name.place, quoted(name.name) + " is ambiguous");
      return false;
    case ItemLengths::Outcome::tooMany:
      error(Code::constant, name.place, "too many lengths are taken of items that go on");
      return false;
  }
  if (item->level == kRenamesLevel) {
    error(Code::constant, name.place, quoted(name.name) + " renames others, and has no length yet");
    return false;
  }
  std::uint64_t size = item->size * item->occurrences();
  if (!m_open.empty()) m_data.lengths.push_back({item, size, name.place});
  setNumber(value, static_cast<std::int64_t>(size));
  return true;
}

}  // namespace fdmorph::compiler
