// The VALUE clause and literals.
#include "source/literals.h"
#include "syntax/parser.h"
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
  for (char c : digits) {
    if (!isDigit(c) && (toUpper(c) < 'A' || toUpper(c) > 'F')) return false;
  }
  return true;
}

}  // namespace

void Parser::checkLiteral(Token const& token) {
  if (token.isOpen) {
    error(Code::literal, token.place, "the literal has no closing quote");
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
      error(Code::literal, token.place, quoted(token.text) + " is no hexadecimal literal");
    }
  }
}

void Parser::reportLongLiteral(Place place) {
  error(Code::literal, place,
        "the literal is longer than " + std::to_string(kMaxLiteralSize) + " bytes");
}

bool Parser::isLiteralNext() {
  Token const& token = peek();
  if (token.kind == Token::Kind::number || token.kind == Token::Kind::literal) return true;
  if (token.kind != Token::Kind::word) return false;
  return isLengthNext() || token.is(Keyword::all) ||
         figurativeOf(token.keyword) != Literal::Kind::none ||
         m_constants.find(token.text) != nullptr;
}

bool Parser::parseLiteral(Literal& literal) {
  if (!isLiteralNext()) return false;
  if (isLengthNext()) return parseLength(literal);
  literal.isAll = skip(Keyword::all);
  Token token = peek();
  literal.place = token.place;
  literal.text = token.text;
  if (token.kind == Token::Kind::number) {
    literal.kind = Literal::Kind::number;
  } else if (token.kind == Token::Kind::literal) {
    literal.kind = Literal::Kind::text;
    literal.isOpen = token.isOpen;
    checkLiteral(token);
  } else if (Literal const* constant = m_constants.find(token.text)) {
    bool isAll = literal.isAll;
    literal = *constant;
    literal.isAll = isAll;
    literal.place = token.place;
  } else {
    literal.kind = figurativeOf(token.keyword);
  }
  if (literal.kind == Literal::Kind::none) return false;
  take();
  return !peek().isSymbol('&') || literal.kind != Literal::Kind::text || joinLiterals(literal);
}

// "a" & 'b' & X"63"
bool Parser::joinLiterals(Literal& literal) {
  bool isNational = isNationalLiteral(literal.text);
  LiteralContent first = decodeLiteral(literal.text);
  std::string content = std::move(first.text);
  literal.isBinary = first.isBinary;
  while (peek().isSymbol('&')) {
    take();
    Token more = peek();
    if (more.kind != Token::Kind::literal) return false;
    take();
    checkLiteral(more);
    literal.isOpen |= more.isOpen;
    if (more.isOpen) continue;
    LiteralContent part = decodeLiteral(more.text);
    if (part.isNumber || isNationalLiteral(more.text) != isNational) {
      error(Code::literal, more.place, "literals of different kinds are joined");
    }
    content += part.text;
    literal.isBinary |= part.isBinary;
  }
  if (content.size() > kMaxLiteralSize) {
    reportLongLiteral(literal.place);
    content.clear();
  }
  literal.text = m_pool.append((isNational ? "N" : "") + quotedLiteral(content));
  return true;
}

void Parser::parseValue(Entry& entry) {
  DataItem& item = *entry.item;
  if (!skip(Keyword::is)) skip(Keyword::are);
  parseValueRanges(item);
  if (item.values.empty()) {
    error(Code::value, peek().place, "VALUE is followed by " + describe(peek()) + ", no literal");
  }
}

void Parser::parseValueRanges(DataItem& item) {
  while (isLiteralNext() && !(isEntryStart() && !item.values.empty())) {
    ValueRange range;
    if (!parseLiteral(range.from)) break;
    bool isRange = item.level == kConditionLevel && skip(Keyword::thru);
    if (isRange && !parseLiteral(range.to)) {
      error(Code::value, peek().place, "THRU is followed by no literal");
      break;
    }
    item.values.push_back(range);
    // Signs and commas aside, an item that is no condition has one value.
    if (item.level != kConditionLevel) break;
  }
}

}  // namespace fdmorph::compiler
