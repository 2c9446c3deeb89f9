// What the environment division says about data: the currency sign and the
// decimal point. All else in it is passed over.
#include <algorithm>

#include "compiler/letters.h"
#include "compiler/literals.h"
#include "compiler/parser.h"

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
    if (peek().is(Keyword::currency)) {
      parseCurrency();
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
