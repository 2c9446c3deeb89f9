// The tokens ahead of a parser, and the errors that it reports.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "source/diagnostics.h"
#include "syntax/lexer.h"

namespace fdmorph::compiler {

/// The errors of the parsers. Of several errors at one place only the first
/// one is reported: the others follow from it.
class SyntaxErrors {
 public:
  explicit SyntaxErrors(Diagnostics& diagnostics) : m_diagnostics(diagnostics) {}

  void report(Code code, Place place, std::string text);

  Diagnostics const& diagnostics() const { return m_diagnostics; }

 private:
  Diagnostics& m_diagnostics;
  Place m_last;
};

class TokenStream {
 public:
  /// Whether text on the line of a place is ignored because it stands past the
  /// right margin.
  using MarginQuery = std::function<bool(Place)>;

  TokenStream(Lexer& lexer, SyntaxErrors& errors, MarginQuery hasTextPastMargin = {})
      : m_lexer(lexer), m_errors(errors), m_hasTextPastMargin(std::move(hasTextPastMargin)) {}

  /// The token `index` places ahead; 0 is the next one. The reference is good
  /// until that token is taken.
  Token const& peek(std::size_t index = 0) { return m_lexer.peek(index); }
  Token take();
  /// The token that was taken last.
  Token const& last() const { return m_last; }

  /// Takes the next token if it is this one, and returns whether it was.
  bool skip(Keyword keyword);
  /// The same for a word that is no keyword, in any case.
  bool skipWord(std::string_view word);
  bool skipPeriod();

  bool isEnd() { return peek().kind == Token::Kind::end; }
  bool isPeriod() { return peek().kind == Token::Kind::period; }
  bool isWord() { return peek().kind == Token::Kind::word; }

  /// Whether the header of a section or division, a file description, or the
  /// end of the program begins `index` tokens ahead.
  bool isHeader(std::size_t index = 0);
  /// Whether the header of this division is next.
  bool isDivision(Keyword keyword);
  /// Whether a level number that begins a data description entry is next.
  bool isEntryStart();
  /// Whether the sentence ends here: at a period, or where another sentence
  /// begins without one.
  bool isSentenceEnd();
  /// Whether an XML clause begins `index` tokens ahead: IDENTIFIED, NAMESPACE or COUNT with
  /// what follows it, or IS ATTRIBUTE. Their words are names elsewhere.
  bool isXmlClause(std::size_t index = 0);
  /// Whether any clause of a data description begins here, a usage alone left
  /// out.
  bool isClause();
  /// Takes all tokens of the sentence, and its period.
  void skipSentence();

  /// Takes the period at the end of `what`, or reports that it is missing.
  void expectPeriod(std::string const& what);

  /// Whether the token begins in columns 8 to 11.
  bool isInAreaA(Token const& token) const;

  /// Numbers that have not been read yet have "," for the decimal point.
  void useDecimalComma() { m_lexer.useDecimalComma(); }

  Diagnostics const& diagnostics() const { return m_errors.diagnostics(); }
  void error(Code code, Place place, std::string text) {
    m_errors.report(code, place, std::move(text));
  }
  /// Reports at the next token: "expected WHAT, found TOKEN", and which of `words`
  /// the token may be meant for.
  void expected(Code code, std::string const& what, std::span<std::string_view const> words = {});

  /// COPY statements whose text is not there, as far as tokens were read.
  struct MissingCopies {
    bool isAny = false;        ///< there are more of them than at the last call
    bool isAfterNext = false;  ///< the last one stands after the next token
  };
  MissingCopies takeMissingCopies();

 private:
  std::size_t missingCopyCount() const;

  Lexer& m_lexer;
  SyntaxErrors& m_errors;
  MarginQuery m_hasTextPastMargin;
  Token m_last;
  std::size_t m_missingCopies = 0;  // at the last call of takeMissingCopies
};

/// The level number that a token stands for; nothing if it is none.
std::optional<std::uint8_t> levelOf(Token const& token);

/// A token as messages show it.
std::string describe(Token const& token);

}  // namespace fdmorph::compiler
