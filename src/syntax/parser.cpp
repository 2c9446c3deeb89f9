#include "syntax/parser.h"

#include "text/letter_case.h"

namespace fdmorph::compiler {

void Parser::parse() {
  while (!m_tokens.isEnd() && parseElement()) {
  }
  m_entries.noteMissingCopies();
  m_tree.finish();
}

// Returns false at the end of the program.
bool Parser::parseElement() {
  m_entries.noteMissingCopies();
  Token const& token = m_tokens.peek();
  if (token.kind == Token::Kind::period) {
    m_tokens.take();  // one too many does no harm
    return true;
  }
  if (token.kind == Token::Kind::number) {
    if (!hasBegun() && !levelOf(token)) return parseUnknown();
    m_entries.parse();
    return true;
  }
  if (m_tokens.isDivision(Keyword::identification) || m_tokens.isDivision(Keyword::id)) {
    if (m_data.isProgram) return false;
    m_data.isProgram = true;
    m_tokens.take();
    m_tokens.take();
    m_tokens.skipPeriod();
    if (m_tokens.peek().is(Keyword::programId)) parseProgramId();
    return true;
  }
  if (token.is(Keyword::programId)) {
    if (m_data.isProgram) return false;
    m_data.isProgram = true;
    parseProgramId();
    return true;
  }
  if (isComment() && m_tokens.peek(1).kind == Token::Kind::period) {
    skipComment();
    return true;
  }
  if (m_tokens.isDivision(Keyword::environment) || m_tokens.isDivision(Keyword::data)) {
    m_data.isProgram = true;
    bool isEnvironment = token.is(Keyword::environment);
    m_tokens.take();
    m_tokens.take();
    m_tokens.expectPeriod("division header");
    if (isEnvironment) parseEnvironment();
    return true;
  }
  if (m_tokens.isDivision(Keyword::procedure) || isProgramEnd()) {
    m_data.isProgram = true;
    return false;
  }
  if (m_tokens.peek(1).is(Keyword::section)) {
    parseSection();
    return true;
  }
  if (token.is(Keyword::fd) || token.is(Keyword::sd)) {
    m_files.parse();
    return true;
  }
  return parseUnknown();
}

// A text that begins with something unknown is not parsed any further: it would
// only be a list of errors as long as the text.
bool Parser::parseUnknown() {
  if (!hasBegun()) {
    m_tokens.expected(Code::syntax, "a program or a data description");
    return false;
  }
  m_tokens.expected(Code::syntax, "a data description entry");
  m_tokens.take();
  m_tokens.skipSentence();
  return true;
}

// Whether the header of a program or an entry has been there.
bool Parser::hasBegun() const {
  return m_data.isProgram || !m_tree.isEmpty();
}

bool Parser::isProgramEnd() {
  return m_tokens.peek().is(Keyword::end) && m_tokens.peek(1).is(Keyword::program);
}

// PROGRAM-ID. name IS INITIAL. The last period is often left out.
void Parser::parseProgramId() {
  m_tokens.take();
  m_tokens.skipPeriod();
  Token name = m_tokens.peek();
  bool isName = name.kind == Token::Kind::word && !m_tokens.isHeader();
  bool isLiteral = name.kind == Token::Kind::literal;
  if (isLiteral && name.text.size() > 2 && !name.isOpen) {
    m_data.programName = name.text.substr(1, name.text.size() - 2);
  } else if (isName) {
    m_data.programName = name.text;
  } else {
    m_tokens.expected(Code::syntax, "a program name after PROGRAM-ID");
  }
  if (isName || isLiteral) m_tokens.take();
  while (!m_tokens.isEnd() && !m_tokens.isPeriod() && !m_tokens.isHeader() && !isComment()) {
    m_tokens.take();
  }
  m_tokens.skipPeriod();
  // The period after the paragraph's name may be left out, too.
  if (isComment()) skipComment();
}

// Whether a paragraph of the identification division begins that holds any
// words.
bool Parser::isComment() {
  return m_tokens.isWord() && isCommentParagraph(m_tokens.peek().text);
}

// A comment may begin a line as a header does, but not in area A, and may
// name a header, but not with a period after it.
bool Parser::isHeaderAfterComment() {
  Token const& token = m_tokens.peek();
  if (!m_tokens.isHeader() || token.is(Keyword::fd) || token.is(Keyword::sd)) return false;
  bool hasPeriod = m_tokens.peek(2).kind == Token::Kind::period;
  bool isAfterPeriod = m_tokens.last().kind == Token::Kind::period;
  return token.isFirstOnLine ? hasPeriod || m_tokens.isInAreaA(token) : hasPeriod && isAfterPeriod;
}

// Reports a record outside the data division: a header before it is missing or
// misspelt.
bool Parser::isMisplacedRecord() {
  if (m_tokens.last().kind != Token::Kind::period || !m_tokens.isEntryStart()) return false;
  Token const& token = m_tokens.peek();
  std::optional<std::uint64_t> level = integerOf(token.text);
  if ((level != 1 && level != kSingleLevel) || !m_tokens.isInAreaA(token)) return false;
  m_tokens.error(Code::syntax, token.place, "data item outside the data division");
  return true;
}

void Parser::skipComment() {
  m_data.isProgram = true;
  m_tokens.take();
  while (!m_tokens.isEnd() && !isHeaderAfterComment() && !isMisplacedRecord()) m_tokens.take();
}

void Parser::parseSection() {
  Token name = m_tokens.take();
  m_tokens.take();
  m_tokens.expectPeriod("section header");
  m_data.isProgram = true;
  switch (name.keyword) {
    case Keyword::file:
      m_tree.openSection(Section::file);
      break;
    case Keyword::workingStorage:
      m_tree.openSection(Section::workingStorage);
      break;
    case Keyword::localStorage:
      m_tree.openSection(Section::localStorage);
      break;
    case Keyword::linkage:
      m_tree.openSection(Section::linkage);
      break;
    case Keyword::screen:
    case Keyword::report:
    case Keyword::communication:
      m_tree.openSection(Section::none);
      skipSection();
      break;
    case Keyword::configuration:
    case Keyword::inputOutput:
      m_tree.openSection(m_tree.section());
      parseEnvironment();
      break;
    default:
      m_tree.openSection(m_tree.section());
      m_tokens.error(Code::syntax, name.place, "unknown section " + describe(name));
      break;
  }
}

// Screens and reports describe no data of their own.
void Parser::skipSection() {
  while (!m_tokens.isEnd() && !m_tokens.peek(1).is(Keyword::section) &&
         !m_tokens.peek(1).is(Keyword::division) && !isProgramEnd()) {
    m_tokens.take();
  }
}

void Parser::parseEnvironment() {
  while (!m_tokens.isEnd() && !isProgramEnd()) {
    Token const& token = m_tokens.peek();
    bool isSection = m_tokens.peek(1).is(Keyword::section) && !token.is(Keyword::configuration) &&
                     !token.is(Keyword::inputOutput);
    if (isSection || m_tokens.peek(1).is(Keyword::division) || isMisplacedRecord()) return;
    m_environment.parse();
  }
}

}  // namespace fdmorph::compiler
