// The lexer, the third pass: from text words to tokens. It joins words that
// form one token (picture strings, decimal numbers, names made of replaced
// pieces) and drops the separators "," and ";".
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "preprocess/text_words.h"
#include "syntax/keywords.h"
#include "text/text_pool.h"

namespace fdmorph::compiler {

struct Token {
  enum class Kind : std::uint8_t {
    end,
    word,     ///< names and keywords
    number,   ///< a numeric literal with its sign, or a level number
    literal,  ///< a literal in quotes, as written
    picture,  ///< the string of a PICTURE clause
    period,   ///< one that ends a sentence
    symbol,   ///< any other single character
  };

  std::string_view text;  ///< lies in the source or the pool
  Place place;            ///< of its first character
  Kind kind = Kind::end;
  Keyword keyword = Keyword::none;
  bool isFirstOnLine = false;  ///< only blanks stand before it on its line
  bool isOpen = false;         ///< a literal without its closing quote

  bool is(Keyword wanted) const { return keyword == wanted; }
  bool isSymbol(char c) const { return kind == Kind::symbol && text.front() == c; }
};

class Lexer {
 public:
  /// Tokens that are joined from several words get their text from `pool`.
  Lexer(TextSource& source, TextPool& pool) : m_source(source), m_pool(pool) {}

  /// The token `index` places ahead; 0 is the next one.
  Token const& peek(std::size_t index = 0);
  /// Takes the next token. At the end of the text it is the end, again and
  /// again.
  Token take();

  /// Makes "," the decimal point of numbers that have not been read yet.
  void useDecimalComma() { m_point = ','; }

 private:
  TextWord const& ahead(std::size_t index);
  TextWord takeWord();
  Token read();
  Token readToken();
  Token readPicture();
  std::size_t trailingPunctuation();
  Token readWord();
  void joinName(Token& token);
  void joinNumber(Token& token);
  bool isAdjacent(std::size_t index);
  bool isPoint(std::size_t index);
  void append(Token& token, std::string& joined);

  TextSource& m_source;
  TextPool& m_pool;
  std::deque<TextWord> m_words;
  std::deque<Token> m_tokens;
  char m_point = '.';
  bool m_isPictureNext = false;
};

/// Whether `text` is digits with or without a sign.
bool isIntegerText(std::string_view text);

}  // namespace fdmorph::compiler
