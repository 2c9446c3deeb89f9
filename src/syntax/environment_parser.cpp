#include "syntax/environment_parser.h"

#include <algorithm>
#include <vector>

#include "source/literals.h"
#include "text/letter_case.h"

namespace fdmorph::compiler {
namespace {

// Characters that have another meaning in a picture.
bool canBeCurrency(char c) {
  constexpr std::string_view kTaken = "0123456789ABCDENPRSVXZ*+-,.;()\"/= ";
  return kTaken.find(toUpper(c)) == std::string_view::npos;
}

// The one character in quotes; 0 for anything else.
char characterOf(Token const& token) {
  if (token.kind != Token::Kind::literal || token.text.size() != 3) return 0;
  return token.text[1];
}

}  // namespace

void EnvironmentParser::parse() {
  if (m_tokens.peek().is(Keyword::currency)) {
    parseCurrency();
  } else if (m_tokens.peek().is(Keyword::symbolic)) {
    parseSymbolicCharacters();
  } else if (m_tokens.skip(Keyword::decimalPoint)) {
    m_tokens.skip(Keyword::is);
    if (!m_tokens.peek().is(Keyword::comma)) return;
    m_tokens.useDecimalComma();
    m_rules.isDecimalComma = true;
    m_tokens.take();
  } else {
    m_tokens.take();
  }
}

// SYMBOLIC CHARACTERS A B ARE 1 2 C IS 3: names of characters, which are
// counted from 1.
void EnvironmentParser::parseSymbolicCharacters() {
  m_tokens.take();
  if (!m_tokens.skip(Keyword::character)) return;
  m_tokens.skip(Keyword::is);
  m_tokens.skip(Keyword::are);
  auto isNameNext = [this] {
    Token const& token = m_tokens.peek();
    return m_tokens.isWord() && !token.is(Keyword::in) && !m_tokens.isHeader() &&
           !token.is(Keyword::currency) && !token.is(Keyword::decimalPoint) &&
           !token.is(Keyword::symbolic) && !equalsIgnoringCase(token.text, "CLASS") &&
           !equalsIgnoringCase(token.text, "ALPHABET");
  };
  while (isNameNext()) {
    std::vector<Token> names;
    while (m_tokens.isWord() && !m_tokens.peek().is(Keyword::is) &&
           !m_tokens.peek().is(Keyword::are)) {
      names.push_back(m_tokens.take());
    }
    if (!m_tokens.skip(Keyword::is)) m_tokens.skip(Keyword::are);
    for (Token const& name : names) {
      if (m_tokens.peek().kind != Token::Kind::number) return;
      defineCharacter(name, m_tokens.take());
    }
  }
}

void EnvironmentParser::defineCharacter(Token const& name, Token const& position) {
  constexpr std::uint64_t kCharacters = 256;
  std::optional<std::uint64_t> number = integerOf(position.text);
  if (!number || *number == 0 || *number > kCharacters) {
    m_tokens.error(Code::environment, position.place,
                   "character position " + quoted(position.text) + " is not from 1 to " +
                       std::to_string(kCharacters));
    return;
  }
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string literal = "X\"";
  literal += kDigits[(*number - 1) / kDigits.size()];
  literal += kDigits[(*number - 1) % kDigits.size()];
  Literal value;
  value.kind = Literal::Kind::text;
  value.place = name.place;
  value.text = m_pool.append(literal + '"');
  if (!m_constants.add(name.text, value)) {
    m_tokens.error(Code::constant, name.place,
                   "constant " + quoted(name.text) + " is already defined");
  }
}

// CURRENCY SIGN IS "x", or IS "text" WITH PICTURE SYMBOL "x".
void EnvironmentParser::parseCurrency() {
  m_tokens.take();
  m_tokens.skip(Keyword::sign);
  m_tokens.skip(Keyword::is);
  if (m_tokens.peek().kind != Token::Kind::literal) return;
  Token sign = m_tokens.take();
  std::size_t size = 1;
  m_tokens.skipWord("WITH");
  if (m_tokens.skip(Keyword::picture)) {
    m_tokens.skip(Keyword::symbol);
    if (m_tokens.peek().kind != Token::Kind::literal) return;
    size = std::max<std::size_t>(decodeLiteral(sign.text).characters, 1);
    sign = m_tokens.take();
  }
  char symbol = characterOf(sign);
  if (symbol == 0 || !canBeCurrency(symbol)) {
    m_tokens.error(Code::environment, sign.place, "invalid currency sign " + quoted(sign.text));
    return;
  }
  m_rules.currency = toUpper(symbol);
  m_rules.currencySize = size;
}

}  // namespace fdmorph::compiler
