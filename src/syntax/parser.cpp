#include "syntax/parser.h"

#include "text/letter_case.h"

namespace fdmorph::compiler {

Token Parser::take() {
  m_lastToken = m_lexer.take();
  return m_lastToken;
}

bool Parser::skip(Keyword keyword) {
  if (!peek().is(keyword)) return false;
  take();
  return true;
}

// Words with a meaning in one place only are no keywords.
bool Parser::skipWord(std::string_view word) {
  bool isThere = peek().kind == Token::Kind::word && equalsIgnoringCase(peek().text, word);
  if (isThere) take();
  return isThere;
}

// A second error at the same place comes of the first.
void Parser::error(Code code, Place place, std::string text) {
  bool isError = entryOf(code).isError;
  if (isError && place == m_lastError) return;
  if (isError) m_lastError = place;
  m_diagnostics.report(code, place, std::move(text));
}

std::string Parser::describe(Token const& token) const {
  return token.kind == Token::Kind::end ? "the end of the text" : quoted(token.text);
}

void Parser::skipSentence() {
  while (!isEnd() && peek().kind != Token::Kind::period && !isEntryStart() && !isHeader(0)) take();
  if (peek().kind == Token::Kind::period) take();
}

// The place behind the last token: there the period should stand.
void Parser::expectPeriod(std::string const& what) {
  if (peek().kind == Token::Kind::period) {
    take();
    return;
  }
  // It may stand in a member that wasn't found.
  if (m_diagnostics.countOf(Code::copyMissing) != m_missingMembers) return;
  Place place = m_lastToken.place;
  place.offset += static_cast<std::uint32_t>(m_lastToken.text.size());
  error(Code::period, place, "the period at the end of " + what + " is missing");
}

// The header of a section or division, a file description, the program's end.
bool Parser::isHeader(std::size_t index) {
  Token const& token = peek(index);
  if (token.kind != Token::Kind::word || token.keyword == Keyword::none) return false;
  switch (token.keyword) {
    case Keyword::fd:
    case Keyword::sd:
      return token.isFirstOnLine;
    case Keyword::end:
      return peek(index + 1).is(Keyword::program);
    case Keyword::programId:
      return token.isFirstOnLine;
    default:
      break;
  }
  Token const& following = peek(index + 1);
  return following.is(Keyword::section) || following.is(Keyword::division);
}

bool Parser::isDivision(Keyword keyword) {
  return peek().is(keyword) && peek(1).is(Keyword::division);
}

// A level number at the beginning of a line, with something behind it that can
// be an entry's.
bool Parser::isEntryStart() {
  Token const& token = peek();
  if (token.kind != Token::Kind::number || !token.isFirstOnLine) return false;
  if (token.text.size() > 2 || !isAllDigits(token.text)) return false;
  int level = std::stoi(std::string(token.text));
  if (!isLevelNumber(level)) return false;
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

void Parser::parse() {
  while (!isEnd() && parseElement()) {
  }
  noteMissingMembers();
  dissolveImpliedRecords(m_data.workingStorage);
}

// Returns false at the end of the program.
bool Parser::parseElement() {
  Token const& token = peek();
  noteMissingMembers();
  if (token.kind == Token::Kind::period) {
    take();  // one too many does no harm
  } else if (token.kind == Token::Kind::number) {
    parseEntry();
  } else if (isDivision(Keyword::identification) || isDivision(Keyword::id)) {
    if (m_data.isProgram) return false;
    parseIdentification();
  } else if (token.is(Keyword::programId)) {
    if (m_data.isProgram) return false;
    m_data.isProgram = true;
    parseProgramId();
  } else if (isComment() && peek(1).kind == Token::Kind::period) {
    skipComment();
  } else if (isDivision(Keyword::environment) || isDivision(Keyword::data)) {
    m_data.isProgram = true;
    bool isEnvironment = token.is(Keyword::environment);
    take();
    take();
    expectPeriod("the division's header");
    if (isEnvironment) parseEnvironment();
  } else if (isDivision(Keyword::procedure) ||
             (token.is(Keyword::end) && peek(1).is(Keyword::program))) {
    m_data.isProgram = true;
    return false;
  } else if (peek(1).is(Keyword::section)) {
    parseSection();
  } else if (token.is(Keyword::fd) || token.is(Keyword::sd)) {
    parseFileDescription();
  } else {
    bool isUnrecognized = !m_data.isProgram && !m_hasData;
    unexpected();
    return !isUnrecognized;
  }
  return true;
}

// Text that has begun as nothing we know is not looked at any further: it
// would only be a list of errors as long as the text.
void Parser::unexpected() {
  Token token = peek();
  if (!m_data.isProgram && !m_hasData) {
    error(Code::syntax, token.place,
          describe(token) + " begins neither a program nor a data description");
    return;
  }
  error(Code::syntax, token.place, describe(token) + " doesn't begin a data description entry");
  take();
  skipSentence();
}

void Parser::parseIdentification() {
  m_data.isProgram = true;
  take();
  take();
  if (peek().kind == Token::Kind::period) take();
  if (peek().is(Keyword::programId)) parseProgramId();
}

// PROGRAM-ID. name IS INITIAL. Some leave the last period out.
void Parser::parseProgramId() {
  take();
  if (peek().kind == Token::Kind::period) take();
  Token name = peek();
  bool isName = name.kind == Token::Kind::word && !isHeader(0);
  if (name.kind == Token::Kind::literal && name.text.size() > 2 && !name.isOpen) {
    m_data.programName = name.text.substr(1, name.text.size() - 2);
  } else if (isName) {
    m_data.programName = name.text;
  } else {
    error(Code::syntax, name.place, "PROGRAM-ID is not followed by a name");
  }
  if (isName || name.kind == Token::Kind::literal) take();
  while (!isEnd() && peek().kind != Token::Kind::period && !isHeader(0) && !isComment()) take();
  if (peek().kind == Token::Kind::period) take();
  // Some leave the period behind the paragraph's name out, too.
  if (isComment()) skipComment();
}

// Whether a paragraph of the identification division begins that holds any
// words.
bool Parser::isComment() {
  return peek().kind == Token::Kind::word && isCommentParagraph(peek().text);
}

// A comment may begin a line as a header does, but not in area A, and may
// name one, but not with a period behind it.
bool Parser::isHeaderAfterComment() {
  if (!isHeader(0) || peek().is(Keyword::fd) || peek().is(Keyword::sd)) return false;
  bool hasPeriod = peek(2).kind == Token::Kind::period;
  bool isAfterPeriod = m_lastToken.kind == Token::Kind::period;
  return peek().isFirstOnLine ? hasPeriod || isInAreaA(peek()) : hasPeriod && isAfterPeriod;
}

bool Parser::isInAreaA(Token const& token) const {
  constexpr std::size_t kLastColumn = 11;
  return m_diagnostics.sources().locate(token.place).column <= kLastColumn;
}

// A record where none belongs: a header before it is missing or misspelt.
bool Parser::isStrayRecord() {
  if (m_lastToken.kind != Token::Kind::period || !isEntryStart() || !isInAreaA(peek())) {
    return false;
  }
  std::optional<std::uint64_t> level = integerOf(peek().text);
  return level == 1 || level == kSingleLevel;
}

void Parser::reportStrayRecord() {
  error(Code::syntax, peek().place, "data are described outside of the data division");
}

void Parser::skipComment() {
  m_data.isProgram = true;
  take();
  while (!isEnd() && !isHeaderAfterComment()) {
    if (isStrayRecord()) {
      reportStrayRecord();
      return;
    }
    take();
  }
}

void Parser::parseSection() {
  Token name = take();
  take();
  expectPeriod("the section's header");
  m_open.clear();
  m_lastItem = nullptr;
  m_file = nullptr;
  switch (name.keyword) {
    case Keyword::file:
      m_section = Section::file;
      break;
    case Keyword::workingStorage:
      m_section = Section::workingStorage;
      break;
    case Keyword::localStorage:
      m_section = Section::localStorage;
      break;
    case Keyword::linkage:
      m_section = Section::linkage;
      break;
    case Keyword::screen:
    case Keyword::report:
    case Keyword::communication:
      m_section = Section::skipped;
      break;
    case Keyword::configuration:
    case Keyword::inputOutput:
      parseEnvironment();
      break;
    default:
      error(Code::syntax, name.place, describe(name) + " is no section of the data division");
      break;
  }
  m_data.isProgram = true;
  // Screens and reports describe no data of their own.
  while (m_section == Section::skipped && !isEnd()) {
    if (peek(1).is(Keyword::section) || peek(1).is(Keyword::division)) break;
    if (peek().is(Keyword::end) && peek(1).is(Keyword::program)) break;
    take();
  }
}

}  // namespace fdmorph::compiler
