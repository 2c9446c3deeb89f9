// What the environment division says about data: the currency sign and the
// decimal point. All else in it is passed over.
#include <algorithm>

#include "source/literals.h"
#include "syntax/parser.h"
#include "text/letter_case.h"

namespace fdmorph::compiler {
namespace {

// Characters that have another meaning in a picture.
bool mayBeCurrency(char c) {
  constexpr std::string_view kTaken = "0123456789ABCDENPRSVXZ*+-,.;()\"/= ";
  return kTaken.find(toUpper(c)) == std::string_view::npos;
}

// The one character in quotes; 0 for anything else.
char characterOf(Token const& token) {
  if (token.kind != Token::Kind::literal || token.text.size() != 3) return 0;
  return token.text[1];
}

}  // namespace

void Parser::parseEnvironment() {
  while (!isEnd()) {
    bool isSection = peek(1).is(Keyword::section) && !peek().is(Keyword::configuration) &&
                     !peek().is(Keyword::inputOutput);
    if (isSection || peek(1).is(Keyword::division)) return;
    if (peek().is(Keyword::end) && peek(1).is(Keyword::program)) return;
    if (isStrayRecord()) {
      reportStrayRecord();
      return;
    }
    if (peek().is(Keyword::currency)) {
      parseCurrency();
    } else if (peek().is(Keyword::symbolic)) {
      parseSymbolicCharacters();
    } else if (peek().is(Keyword::decimalPoint)) {
      take();
      skip(Keyword::is);
      if (!peek().is(Keyword::comma)) continue;
      m_lexer.useDecimalComma();
      m_pictureRules.isDecimalComma = true;
      take();
    } else {
      take();
    }
  }
}

// SYMBOLIC CHARACTERS A B ARE 1 2 C IS 3: names of characters, which are
// counted from 1.
void Parser::parseSymbolicCharacters() {
  take();
  if (!skip(Keyword::character)) return;
  skip(Keyword::is);
  skip(Keyword::are);
  while (peek().kind == Token::Kind::word && !peek().is(Keyword::in) && !isHeader(0) &&
         !peek().is(Keyword::currency) && !peek().is(Keyword::decimalPoint) &&
         !peek().is(Keyword::symbolic) && !equalsIgnoringCase(peek().text, "CLASS") &&
         !equalsIgnoringCase(peek().text, "ALPHABET")) {
    std::vector<Token> names;
    while (peek().kind == Token::Kind::word && !peek().is(Keyword::is) &&
           !peek().is(Keyword::are)) {
      names.push_back(take());
    }
    if (!skip(Keyword::is)) skip(Keyword::are);
    for (Token const& name : names) {
      if (peek().kind != Token::Kind::number) return;
      defineCharacter(name, take());
    }
  }
}

void Parser::defineCharacter(Token const& name, Token const& position) {
  constexpr std::uint64_t kCharacters = 256;
  std::optional<std::uint64_t> number = integerOf(position.text);
  if (!number || *number == 0 || *number > kCharacters) {
    error(Code::environment, position.place, quoted(position.text) + " is no place of a character");
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
    error(Code::constant, name.place, "the constant " + quoted(name.text) + " is defined twice");
  }
}

// CURRENCY SIGN IS "x", or IS "text" WITH PICTURE SYMBOL "x".
void Parser::parseCurrency() {
  take();
  skip(Keyword::sign);
  skip(Keyword::is);
  if (peek().kind != Token::Kind::literal) return;
  Token sign = take();
  std::size_t size = 1;
  skipWord("WITH");
  if (skip(Keyword::picture)) {
    skip(Keyword::symbol);
    if (peek().kind != Token::Kind::literal) return;
    size = std::max<std::size_t>(decodeLiteral(sign.text).characters, 1);
    sign = take();
  }
  char symbol = characterOf(sign);
  if (symbol == 0 || !mayBeCurrency(symbol)) {
    error(Code::environment, sign.place, quoted(sign.text) + " can't be a currency sign");
    return;
  }
  m_pictureRules.currency = toUpper(symbol);
  m_pictureRules.currencySize = size;
}

}  // namespace fdmorph::compiler
