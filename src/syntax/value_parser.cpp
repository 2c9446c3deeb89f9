#include "syntax/value_parser.h"

#include <algorithm>

#include "source/literals.h"
#include "text/letter_case.h"

namespace fdmorph::compiler {
namespace {

Literal::Kind figurativeOf(Keyword keyword) {
  switch (keyword) {
    case Keyword::zero:
      return Literal::Kind::zero;
    case Keyword::space:
      return Literal::Kind::space;
    case Keyword::quote:
      return Literal::Kind::quote;
    case Keyword::lowValue:
      return Literal::Kind::lowValue;
    case Keyword::highValue:
      return Literal::Kind::highValue;
    case Keyword::null:
      return Literal::Kind::null;
    default:
      return Literal::Kind::none;
  }
}

bool isHexadecimal(std::string_view digits) {
  return std::all_of(digits.begin(), digits.end(),
                     [](char c) { return isDigit(c) || (toUpper(c) >= 'A' && toUpper(c) <= 'F'); });
}

Literal broken(Place place) {
  Literal literal;
  literal.kind = Literal::Kind::broken;
  literal.place = place;
  return literal;
}

// What a literal stands for between others: a figurative constant is one
// character. Nothing if it cannot be joined to others.
std::optional<LiteralContent> contentOf(Literal const& literal) {
  if (literal.isAll) return std::nullopt;
  switch (literal.kind) {
    case Literal::Kind::text: {
      LiteralContent content = decodeLiteral(literal.text);
      content.isBinary |= literal.isBinary;
      return content.isNumber ? std::nullopt : std::optional(std::move(content));
    }
    case Literal::Kind::zero:
      return decodeLiteral("\"0\"");
    case Literal::Kind::space:
      return decodeLiteral("\" \"");
    case Literal::Kind::quote:
      return decodeLiteral("'\"'");
    case Literal::Kind::lowValue:
    case Literal::Kind::null:
      return decodeLiteral("X\"00\"");
    case Literal::Kind::highValue:
      return decodeLiteral("X\"FF\"");
    default:
      return std::nullopt;
  }
}

}  // namespace

std::optional<Literal> ConstantNames::find(std::string_view name) const {
  if (Literal const* constant = m_constants.find(name)) return *constant;
  return findVariable(name);
}

std::optional<Literal> ConstantNames::findVariable(std::string_view name) const {
  auto variable = m_variables.find(name);
  if (variable == m_variables.end()) return std::nullopt;
  CompileValue const& value = variable->second;
  Literal literal;
  literal.kind = value.isNumber ? Literal::Kind::number : Literal::Kind::text;
  literal.text = m_pool.append(value.isNumber ? value.text : quotedLiteral(value.text));
  return literal;
}

std::optional<std::uint64_t> ConstantNames::integer(std::string_view name) const {
  std::optional<Literal> constant = find(name);
  return constant ? integerOf(*constant) : std::nullopt;
}

void ValueParser::checkLiteral(Token const& token) {
  if (token.isOpen) {
    m_tokens.error(Code::literal, token.place, "literal has no closing quote");
    return;
  }
  if (token.text.size() > kMaxLiteralSize) {
    reportLongLiteral(token.place);
    return;
  }
  std::size_t quote = token.text.find_first_of("\"'");
  std::string_view inside = token.text.substr(quote + 1, token.text.size() - quote - 2);
  std::string prefix = upperCase(token.text.substr(0, quote));
  if (prefix == "X" || prefix == "NX" || prefix == "H" || prefix == "GX") {
    std::size_t unit = prefix == "X" ? 2 : prefix == "H" ? 1 : 4;
    if (!isHexadecimal(inside) || inside.size() % unit != 0) {
      m_tokens.error(Code::literal, token.place,
                     "invalid hexadecimal literal " + quoted(token.text));
    }
  }
}

void ValueParser::reportLongLiteral(Place place) {
  m_tokens.error(Code::literal, place,
                 "literal is longer than " + std::to_string(kMaxLiteralSize) + " bytes");
}

bool ValueParser::isLiteral() {
  Token const& token = m_tokens.peek();
  if (token.kind == Token::Kind::number || token.kind == Token::Kind::literal) return true;
  if (token.kind != Token::Kind::word) return false;
  return token.is(Keyword::all) || figurativeOf(token.keyword) != Literal::Kind::none ||
         m_constants.contains(token.text) || isLength();
}

std::optional<Literal> ValueParser::parseLiteral() {
  std::optional<Literal> literal = parseOperand();
  return literal && m_tokens.peek().isSymbol('&') ? joinLiterals(*literal) : literal;
}

std::optional<Literal> ValueParser::parseOperand() {
  if (!isLiteral()) return std::nullopt;
  if (isLength()) return parseLength();
  Literal literal;
  bool isAll = m_tokens.skip(Keyword::all);
  Token token = m_tokens.peek();
  literal.text = token.text;
  if (token.kind == Token::Kind::number) {
    literal.kind = Literal::Kind::number;
  } else if (token.kind == Token::Kind::literal) {
    literal.kind = Literal::Kind::text;
    literal.isOpen = token.isOpen;
    checkLiteral(token);
  } else if (std::optional<Literal> constant =
                 m_tokens.isWord() ? m_constants.find(token.text) : std::nullopt) {
    literal = *constant;
  } else {
    literal.kind = figurativeOf(token.keyword);
  }
  if (literal.kind == Literal::Kind::none) {
    m_tokens.expected(Code::value, "a literal after ALL");
    return broken(token.place);
  }
  literal.isAll = isAll;
  literal.place = token.place;
  m_tokens.take();
  return literal;
}

// "a" & K & X"63" & SPACE
Literal ValueParser::joinLiterals(Literal first) {
  std::string content;
  Literal joined = first;
  joined.kind = Literal::Kind::text;
  bool hasClass = first.kind == Literal::Kind::text;  // figurative constants have none
  bool isNational = hasClass && isNationalLiteral(first.text);
  bool isBroken = false;
  auto add = [&](Literal const& part) {
    isBroken |= part.isOpen || part.kind == Literal::Kind::broken;
    if (isBroken) return;
    std::optional<LiteralContent> decoded = contentOf(part);
    bool isText = part.kind == Literal::Kind::text;
    bool isOther = isText && hasClass && isNationalLiteral(part.text) != isNational;
    if (!decoded || isOther) {
      m_tokens.error(Code::literal, part.place, "'&' joins literals of different classes");
      isBroken = true;
      return;
    }
    if (isText && !hasClass) {
      hasClass = true;
      isNational = isNationalLiteral(part.text);
    }
    content += decoded->text;
    joined.isBinary |= decoded->isBinary;
  };
  first.isAll = false;  // ALL repeats the literals together
  add(first);
  while (m_tokens.peek().isSymbol('&')) {
    m_tokens.take();
    std::optional<Literal> part = parseOperand();
    if (!part) {
      m_tokens.expected(Code::literal, "a literal after '&'");
      return broken(first.place);
    }
    add(*part);
  }
  if (content.size() > kMaxLiteralSize) {
    reportLongLiteral(first.place);
    isBroken = true;
  }
  if (isBroken) return broken(first.place);
  joined.text = m_pool.append((isNational ? "N" : "") + quotedLiteral(content));
  return joined;
}

std::optional<std::uint64_t> ValueParser::parseInteger() {
  Token const& token = m_tokens.peek();
  std::optional<std::uint64_t> value;
  if (token.kind == Token::Kind::number) value = integerOf(token.text);
  if (token.kind == Token::Kind::word) value = m_constants.integer(token.text);
  if (value) m_tokens.take();
  return value;
}

std::vector<ValueRange> ValueParser::parseValues(bool isCondition) {
  std::vector<ValueRange> values;
  // A number on a line of its own is a value only as the first one.
  while (values.empty() || !m_tokens.isEntryStart()) {
    std::optional<Literal> from = parseLiteral();
    if (!from) break;
    ValueRange& range = values.emplace_back();
    range.from = *from;
    if (!isCondition) return values;
    if (!m_tokens.skip(Keyword::thru)) continue;
    std::optional<Literal> to = parseLiteral();
    if (!to) {
      m_tokens.expected(Code::value, "a literal after THRU");
      return values;
    }
    range.to = *to;
  }
  if (values.empty()) m_tokens.expected(Code::value, "a literal after VALUE");
  return values;
}

Literal ValueParser::numberLiteral(std::int64_t number, Place place) {
  Literal literal;
  literal.kind = Literal::Kind::number;
  literal.text = m_pool.append(std::to_string(number));
  literal.place = place;
  return literal;
}

// LENGTH OF or BYTE-LENGTH OF, where that is not the name of a constant.
bool ValueParser::isLength() {
  Token const& token = m_tokens.peek();
  bool isLengthWord = token.is(Keyword::length) || equalsIgnoringCase(token.text, "BYTE-LENGTH");
  if (!isLengthWord || m_constants.contains(token.text)) return false;
  Token const& following = m_tokens.peek(1);
  return following.kind == Token::Kind::word || following.kind == Token::Kind::literal;
}

// The bytes of an item with all its occurrences, or of a literal.
Literal ValueParser::parseLength() {
  Place place = m_tokens.take().place;
  m_tokens.skip(Keyword::of);
  if (m_tokens.peek().kind == Token::Kind::literal) {
    Literal literal = parseLiteral().value_or(broken(place));
    if (literal.kind == Literal::Kind::broken) return literal;
    std::size_t width = isNationalLiteral(literal.text) ? 2 : 1;
    std::size_t size = decodeLiteral(literal.text).characters * width;
    return numberLiteral(static_cast<std::int64_t>(size), place);
  }
  QualifiedName name = m_names.parseQualified();
  Literal length = name.name.empty() ? broken(place) : parseItemLength(name);
  length.place = place;
  return length;
}

Literal ValueParser::parseItemLength(QualifiedName const& name) {
  auto fail = [&](std::string text) {
    m_tokens.error(Code::constant, name.place, std::move(text));
    return broken(name.place);
  };
  auto [outcome, item] = m_lengths.find(name, m_tree.lastItem());
  switch (outcome) {
    case ItemLengths::Outcome::found:
      break;
    case ItemLengths::Outcome::unknown:
      return fail(quoted(name.name) + " is not defined");
    case ItemLengths::Outcome::ambiguous:
      return fail(quoted(name.name) + " is ambiguous");
    case ItemLengths::Outcome::tooMany:
      return fail("too many lengths of groups are taken before their last item");
  }
  if (item->level == kRenamesLevel) {
    return fail("the length of " + quoted(name.name) + ", an item of level 66, is not known yet");
  }
  std::uint64_t size = item->size * item->occurrences();
  if (m_tree.isRecordOpen()) m_data.lengths.push_back({item, size, name.place});
  return numberLiteral(static_cast<std::int64_t>(size), name.place);
}

}  // namespace fdmorph::compiler
