#include "syntax/token_stream.h"

#include <array>

#include "semantics/data_item.h"
#include "text/letter_case.h"
#include "text/near_words.h"

namespace fdmorph::compiler {
namespace {

// What is reported of a COPY statement whose text is not there.
constexpr std::array kMissingCopies{Code::copyMissing, Code::copySyntax, Code::copyCircle,
                                    Code::copyLimit,   Code::copyPassed, Code::copyPassedOver};

}  // namespace

void SyntaxErrors::report(Code code, Place place, std::string text) {
  if (entryOf(code).severity == Severity::error) {
    if (place == m_last) return;
    m_last = place;
  }
  m_diagnostics.report(code, place, std::move(text));
}

std::optional<std::uint8_t> levelOf(Token const& token) {
  if (token.kind != Token::Kind::number) return std::nullopt;
  if (token.text.size() > 2 || !isAllDigits(token.text)) return std::nullopt;
  int level = 0;
  for (char c : token.text) level = level * 10 + (c - '0');
  return isLevelNumber(level) ? std::optional(static_cast<std::uint8_t>(level)) : std::nullopt;
}

std::string describe(Token const& token) {
  return token.kind == Token::Kind::end ? "the end of the source" : quoted(token.text);
}

Token TokenStream::take() {
  m_last = m_lexer.take();
  return m_last;
}

bool TokenStream::skip(Keyword keyword) {
  if (!peek().is(keyword)) return false;
  take();
  return true;
}

bool TokenStream::skipWord(std::string_view word) {
  if (!isWord() || !equalsIgnoringCase(peek().text, word)) return false;
  take();
  return true;
}

bool TokenStream::skipPeriod() {
  if (!isPeriod()) return false;
  take();
  return true;
}

bool TokenStream::isHeader(std::size_t index) {
  Token const& token = peek(index);
  if (token.kind != Token::Kind::word || token.keyword == Keyword::none) return false;
  switch (token.keyword) {
    case Keyword::fd:
    case Keyword::sd:
    case Keyword::programId:
      return token.isFirstOnLine;
    case Keyword::end:
      return peek(index + 1).is(Keyword::program);
    default:
      break;
  }
  Token const& following = peek(index + 1);
  return following.is(Keyword::section) || following.is(Keyword::division);
}

bool TokenStream::isDivision(Keyword keyword) {
  return peek().is(keyword) && peek(1).is(Keyword::division);
}

// A level number begins its line, and what follows can belong to an entry.
bool TokenStream::isEntryStart() {
  Token const& token = peek();
  if (!token.isFirstOnLine || !levelOf(token)) return false;
  Token const& following = peek(1);
  switch (following.keyword) {
    // In a list of values, or in OCCURS.
    case Keyword::thru:
    case Keyword::times:
    case Keyword::to:
    case Keyword::all:
    case Keyword::zero:
    case Keyword::space:
    case Keyword::quote:
    case Keyword::lowValue:
    case Keyword::highValue:
    case Keyword::when:
      return false;
    default:
      return following.kind == Token::Kind::word && !equalsIgnoringCase(following.text, "FALSE");
  }
}

bool TokenStream::isSentenceEnd() {
  return isEnd() || isPeriod() || isEntryStart() || isHeader();
}

bool TokenStream::isXmlClause(std::size_t index) {
  auto isLiteral = [&](std::size_t after) {
    return peek(index + after).kind == Token::Kind::literal;
  };
  auto is = [&](std::size_t after, Keyword keyword) { return peek(index + after).is(keyword); };
  switch (peek(index).keyword) {
    case Keyword::identified:
      return isLiteral(1) || (is(1, Keyword::by) && isLiteral(2));
    case Keyword::namespaceWord:
      return isLiteral(1) || (is(1, Keyword::is) && isLiteral(2));
    case Keyword::count:
      return is(1, Keyword::in);
    case Keyword::is:
      return is(1, Keyword::attribute);
    default:
      return false;
  }
}

bool TokenStream::isClause() {
  return beginsClause(peek().keyword) || isXmlClause();
}

void TokenStream::skipSentence() {
  while (!isSentenceEnd()) take();
  skipPeriod();
}

// The period is missed right after the last token.
void TokenStream::expectPeriod(std::string const& what) {
  if (skipPeriod()) return;
  // It may stand in a member that was not found.
  if (missingCopyCount() != m_missingCopies) return;
  Place place = m_last.place;
  place.offset += static_cast<std::uint32_t>(m_last.text.size());
  bool isCut = m_hasTextPastMargin && m_hasTextPastMargin(m_last.place);
  error(Code::period, place,
        "expected '.' at the end of the " + what + ", found " + describe(peek()) +
            (isCut ? "; the line goes on past column 72" : ""));
}

bool TokenStream::isInAreaA(Token const& token) const {
  constexpr std::size_t kLastColumn = 11;
  return m_errors.diagnostics().sources().locate(token.place).column <= kLastColumn;
}

void TokenStream::expected(Code code, std::string const& what,
                           std::span<std::string_view const> words) {
  Token const& token = peek();
  error(code, token.place,
        "expected " + what + ", found " + describe(token) + suggestWord(token.text, words));
}

std::size_t TokenStream::missingCopyCount() const {
  std::size_t count = 0;
  for (Code code : kMissingCopies) count += m_errors.diagnostics().countOf(code);
  return count;
}

TokenStream::MissingCopies TokenStream::takeMissingCopies() {
  std::size_t count = missingCopyCount();
  if (count == m_missingCopies) return {};
  m_missingCopies = count;
  Diagnostics const& diagnostics = m_errors.diagnostics();
  Place next = peek().place;
  MissingCopies copies{true, false};
  for (Code code : kMissingCopies) {
    copies.isAfterNext |= diagnostics.countOf(code) != 0 &&
                          diagnostics.sources().isBefore(next, diagnostics.lastOf(code));
  }
  return copies;
}

}  // namespace fdmorph::compiler
