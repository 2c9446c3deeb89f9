#include "syntax/lexer.h"

#include "text/letter_case.h"

namespace fdmorph::compiler {
namespace {

bool isSign(char c) {
  return c == '+' || c == '-';
}

// Digits followed by the E of a floating-point number: "5E", "5E-3".
bool hasExponent(std::string_view text) {
  std::size_t digits = 0;
  while (digits < text.size() && isDigit(text[digits])) ++digits;
  if (digits == 0 || digits == text.size() || toUpper(text[digits]) != 'E') return false;
  std::string_view rest = text.substr(digits + 1);
  if (!rest.empty() && isSign(rest.front())) rest.remove_prefix(1);
  return rest.empty() || isAllDigits(rest);
}

}  // namespace

bool isIntegerText(std::string_view text) {
  if (!text.empty() && isSign(text.front())) text.remove_prefix(1);
  return isAllDigits(text);
}

Token const& Lexer::peek(std::size_t index) {
  while (m_tokens.size() <= index) m_tokens.push_back(read());
  return m_tokens[index];
}

Token Lexer::take() {
  if (m_tokens.empty()) return read();
  Token token = m_tokens.front();
  m_tokens.pop_front();
  return token;
}

TextWord const& Lexer::ahead(std::size_t index) {
  while (m_words.size() <= index) m_words.push_back(m_source.next());
  return m_words[index];
}

TextWord Lexer::takeWord() {
  TextWord word = ahead(0);
  if (!word.isEnd()) m_words.pop_front();
  return word;
}

bool Lexer::isAdjacent(std::size_t index) {
  return !ahead(index).precededBySpace && !ahead(index).isEnd();
}

bool Lexer::isPoint(std::size_t index) {
  return ahead(index).kind == TextWord::Kind::symbol && ahead(index).text.front() == m_point;
}

// A decimal comma that belongs to no number is a separator.
Token Lexer::read() {
  Token token = readToken();
  while (token.isSymbol(',')) token = readToken();
  return token;
}

Token Lexer::readToken() {
  while (!m_isPictureNext && (ahead(0).is(',') || ahead(0).is(';')) && !isPoint(0)) takeWord();
  while (m_isPictureNext && (ahead(0).is(',') || ahead(0).is(';')) && ahead(1).precededBySpace) {
    takeWord();
  }
  TextWord const& word = ahead(0);
  if (m_isPictureNext && !word.isEnd() && !(word.is('.') && ahead(1).precededBySpace)) {
    bool isFill = word.isWord("IS") || keywordOf(word.text) == Keyword::picture ||
                  word.isWord("IDENTIFIED") ||  // PIC is a name
                  (word.isWord("SYMBOL") && ahead(1).kind == TextWord::Kind::literal);
    if (!isFill) return readPicture();
    bool isPictureAfter = word.isWord("IS");
    Token fill = readWord();
    m_isPictureNext |= isPictureAfter;
    return fill;
  }
  return readWord();
}

void Lexer::append(Token& token, std::string& joined) {
  if (joined.empty()) joined = token.text;
  joined += takeWord().text;
}

// How many words ahead are punctuation up to the next blank; 0 if there is
// anything else among them.
std::size_t Lexer::trailingPunctuation() {
  std::size_t count = 0;
  while (ahead(count).is('.') || ahead(count).is(',') || ahead(count).is(';')) {
    ++count;
    if (ahead(count).precededBySpace || ahead(count).isEnd()) return count;
  }
  return 0;
}

// A picture is everything up to a blank or a semicolon. A comma or period
// before the blank is a separator, and only the last one: "9,9,." is the
// picture "9,9," and a period.
Token Lexer::readPicture() {
  m_isPictureNext = false;
  TextWord first = takeWord();
  Token token{first.text,    first.place,         Token::Kind::picture,
              Keyword::none, first.isFirstOnLine, false};
  std::string joined;
  while (isAdjacent(0) && ahead(0).kind != TextWord::Kind::literal) {
    if (std::size_t count = trailingPunctuation(); count != 0) {
      bool isPeriodLast = ahead(count - 1).is('.');
      for (std::size_t i = 0; i < count; ++i) isPeriodLast &= !ahead(i).is(';');
      for (; isPeriodLast && count > 1; --count) append(token, joined);
      break;
    }
    append(token, joined);
  }
  if (!joined.empty()) token.text = m_pool.append(joined);
  return token;
}

Token Lexer::readWord() {
  TextWord word = takeWord();
  Token token{word.text,     word.place,         Token::Kind::symbol,
              Keyword::none, word.isFirstOnLine, word.isOpen};
  switch (word.kind) {
    case TextWord::Kind::end:
      token.kind = Token::Kind::end;
      break;
    case TextWord::Kind::literal:
      token.kind = Token::Kind::literal;
      break;
    case TextWord::Kind::pseudo:
    case TextWord::Kind::directive:  // none is left in the text
      break;
    case TextWord::Kind::symbol:
      if (word.is(':') && isAdjacent(0) && ahead(0).kind == TextWord::Kind::word && isAdjacent(1) &&
          ahead(1).is(':')) {
        joinName(token);
        break;
      }
      if (word.is('+') || word.text.front() == m_point) joinNumber(token);
      if (token.kind == Token::Kind::symbol && word.is('.')) token.kind = Token::Kind::period;
      break;
    case TextWord::Kind::word: {
      joinName(token);
      if (isDigit(token.text.front()) || isSign(token.text.front())) joinNumber(token);
      break;
    }
  }
  if (token.kind == Token::Kind::word) {
    token.keyword = keywordOf(token.text);
    m_isPictureNext = token.keyword == Keyword::picture;
  } else {
    m_isPictureNext = false;
  }
  return token;
}

// A tag that nothing replaced, as in :TAG:-NAME, stays part of its name.
void Lexer::joinName(Token& token) {
  std::string joined;
  while (isAdjacent(0) && (ahead(0).kind == TextWord::Kind::word || ahead(0).is(':'))) {
    append(token, joined);
  }
  if (!joined.empty()) token.text = m_pool.append(joined);
  token.kind = Token::Kind::word;
}

// The token holds the beginning of what may be a number: digits, a sign or a
// decimal point.
void Lexer::joinNumber(Token& token) {
  std::string joined(token.text);
  std::size_t extra = 0;  // words ahead that belong to the number
  bool isPointLast = joined.back() == m_point;
  auto addDigits = [&] {
    TextWord const& next = ahead(extra);
    bool fits = isAdjacent(extra) && next.kind == TextWord::Kind::word &&
                (isAllDigits(next.text) || hasExponent(next.text));
    if (fits) joined += next.text;
    extra += fits ? 1U : 0U;
    return fits;
  };
  if (joined.size() == 1 && isSign(joined.front())) {
    if (!addDigits() && !(isAdjacent(0) && isPoint(0))) return;
  }
  bool isBare = joined.size() == 1 && isSign(joined.front());
  if (!isBare && !isPointLast && !isIntegerText(joined)) return;
  if (isPointLast) {
    if (!addDigits()) return;
  } else if (isAdjacent(extra) && isPoint(extra)) {
    std::size_t before = extra++;
    joined += m_point;
    if (!addDigits()) {
      extra = before;
      joined.pop_back();
      if (isBare) return;
    }
  }
  if (toUpper(joined.back()) == 'E' && isAdjacent(extra) && ahead(extra).is('+')) {
    ++extra;
    joined += '+';
    addDigits();
  }
  token.kind = Token::Kind::number;
  if (extra == 0) return;
  for (; extra > 0; --extra) takeWord();
  token.text = m_pool.append(joined);
}

}  // namespace fdmorph::compiler
