#include "syntax/file_parser.h"

#include <array>

#include "text/letter_case.h"

namespace fdmorph::compiler {
namespace {

/// A clause by the word that it begins with. Words that stand in many places of
/// a program, and only here mean a clause, are no keywords.
struct ClauseWord {
  std::string_view word;
  FileParser::Clause clause;
};

constexpr std::array kClauses{
    ClauseWord{"BLOCK", FileParser::Clause::block},
    ClauseWord{"CODE-SET", FileParser::Clause::codeSet},
    ClauseWord{"DATA", FileParser::Clause::dataRecords},
    ClauseWord{"EXTERNAL", FileParser::Clause::external},
    ClauseWord{"GLOBAL", FileParser::Clause::global},
    ClauseWord{"LABEL", FileParser::Clause::label},
    ClauseWord{"LINAGE", FileParser::Clause::linage},
    ClauseWord{"RECORD", FileParser::Clause::record},
    ClauseWord{"RECORDING", FileParser::Clause::recording},
    ClauseWord{"REPORT", FileParser::Clause::report},
    ClauseWord{"REPORTS", FileParser::Clause::report},
    ClauseWord{"VALUE", FileParser::Clause::valueOf},
};

}  // namespace

void FileParser::parse() {
  Token indicator = m_tokens.take();
  m_tree.openFile(nullptr);
  if (!m_tokens.isWord()) {
    m_tokens.error(Code::syntax, indicator.place,
                   "expected a file name after " + upperCase(indicator.text) + ", found " +
                       describe(m_tokens.peek()));
    m_tokens.skipSentence();
    return;
  }
  Token name = m_tokens.take();
  m_names.check(name);
  FileDescription& file = m_data.files.emplace_back(FileDescription{name.text, name.place, {}, {}});
  m_tree.openFile(&file);
  parseClauses(file);
  m_tokens.expectPeriod("file description");
}

std::optional<FileParser::Clause> FileParser::peekClause() {
  // IS EXTERNAL, IS GLOBAL
  Token const& token = m_tokens.peek(m_tokens.peek().is(Keyword::is) ? 1 : 0);
  if (token.kind != Token::Kind::word) return std::nullopt;
  for (ClauseWord const& each : kClauses) {
    if (equalsIgnoringCase(token.text, each.word)) return each.clause;
  }
  return std::nullopt;
}

void FileParser::parseClauses(FileDescription& file) {
  std::uint32_t seen = 0;
  while (!m_tokens.isSentenceEnd()) {
    std::optional<Clause> clause = peekClause();
    if (!clause) {
      m_tokens.expected(Code::syntax, "a file description clause");
      // One report is enough for what stands up to the next clause.
      do {
        m_tokens.take();
      } while (!m_tokens.isSentenceEnd() && !peekClause());
      continue;
    }
    m_tokens.skip(Keyword::is);
    std::uint32_t bit = 1U << static_cast<unsigned>(*clause);
    Token word = m_tokens.take();
    if ((seen & bit) != 0) {
      m_tokens.error(Code::duplicateClause, word.place,
                     "duplicate " + upperCase(word.text) + " clause");
    }
    seen |= bit;
    parseClause(*clause, file);
  }
}

void FileParser::parseClause(Clause clause, FileDescription& file) {
  switch (clause) {
    case Clause::block:
      m_tokens.skipWord("CONTAINS");
      parseRange();
      if (!m_tokens.skipWord("RECORDS") && !m_tokens.skip(Keyword::character)) skipRecordUnit();
      break;
    case Clause::record:
      parseRecord(file);
      break;
    case Clause::label:
    case Clause::dataRecords:
      if (!m_tokens.skip(Keyword::record)) m_tokens.skipWord("RECORDS");
      parseNames();
      break;
    case Clause::codeSet:
      parseNames();
      if (m_tokens.skipWord("FOR")) parseNames();
      break;
    case Clause::report:
      parseNames();
      break;
    case Clause::recording:
      m_tokens.skipWord("MODE");
      parseNames();
      break;
    case Clause::valueOf:
      parseValueOf();
      break;
    case Clause::linage:
      parseLinage();
      break;
    case Clause::external:
      // AS "name"
      if (m_tokens.skip(Keyword::as)) m_values.parseLiteral();
      break;
    case Clause::global:
      break;
  }
}

// BLOCK CONTAINS 1 RECORD, where the word does not begin the next clause.
void FileParser::skipRecordUnit() {
  Token const& following = m_tokens.peek(1);
  bool isClause = following.kind == Token::Kind::number || following.is(Keyword::is) ||
                  equalsIgnoringCase(following.text, "CONTAINS") ||
                  equalsIgnoringCase(following.text, "VARYING");
  if (!isClause) m_tokens.skip(Keyword::record);
}

// A number, or one TO another.
void FileParser::parseRange() {
  std::optional<std::uint64_t> least = parseNumber();
  Token to = m_tokens.peek();
  if (!least || !m_tokens.skip(Keyword::to)) return;
  std::optional<std::uint64_t> most = parseNumber();
  if (most && *most < *least) {
    m_tokens.error(Code::syntax, to.place, "range must not end below its start");
  }
}

std::optional<std::uint64_t> FileParser::parseNumber() {
  std::optional<std::uint64_t> number = m_values.parseInteger();
  if (number) return number;
  m_tokens.expected(Code::syntax, "an unsigned integer");
  bool isWrongWord = m_tokens.isWord() && !peekClause();
  if (m_tokens.peek().kind == Token::Kind::number || isWrongWord) m_tokens.take();
  return std::nullopt;
}

// RECORD CONTAINS 80 CHARACTERS, RECORD IS VARYING IN SIZE FROM 1 TO 80
// CHARACTERS DEPENDING ON name.
void FileParser::parseRecord(FileDescription& file) {
  m_tokens.skip(Keyword::is);
  bool isVarying = m_tokens.skipWord("VARYING");
  if (isVarying) {
    m_tokens.skip(Keyword::in);
    m_tokens.skip(Keyword::size);
    m_tokens.skip(Keyword::from);
  } else {
    m_tokens.skipWord("CONTAINS");
  }
  Token const& token = m_tokens.peek();
  if (token.kind == Token::Kind::number ||
      (m_tokens.isWord() && m_constants.contains(token.text))) {
    parseRange();
  } else if (isVarying && m_tokens.skip(Keyword::to)) {
    parseNumber();
  } else if (!isVarying) {
    m_tokens.expected(Code::syntax, "a record size");
  }
  m_tokens.skip(Keyword::character);
  if (m_tokens.skip(Keyword::depending)) {
    m_tokens.skip(Keyword::on);
    file.depending = m_names.parseQualified();
  }
}

// IS or ARE, and names up to the next clause.
void FileParser::parseNames() {
  if (!m_tokens.skip(Keyword::is)) m_tokens.skip(Keyword::are);
  bool isAny = false;
  while (!m_tokens.isSentenceEnd() && (!isAny || !peekClause()) &&
         !m_tokens.peek().is(Keyword::is) &&
         (m_tokens.isWord() || m_tokens.peek().kind == Token::Kind::literal) &&
         !equalsIgnoringCase(m_tokens.peek().text, "FOR")) {
    m_tokens.take();
    isAny = true;
  }
  if (isAny) return;
  m_tokens.error(Code::name, m_tokens.peek().place,
                 "expected a name before " + describe(m_tokens.peek()));
}

// VALUE OF name IS literal, and more of them.
void FileParser::parseValueOf() {
  if (!m_tokens.skip(Keyword::of)) m_tokens.expected(Code::syntax, "OF after VALUE");
  do {
    std::optional<std::string_view> name = m_names.parse();
    if (!name) return;
    m_tokens.skip(Keyword::is);
    if (m_tokens.isSentenceEnd()) {
      m_tokens.expected(Code::value, "a value of " + quoted(*name));
      return;
    }
    // A data name may stand there, too.
    if (!m_values.parseLiteral()) m_tokens.take();
  } while (!m_tokens.isSentenceEnd() && !peekClause());
}

// LINAGE IS 60 LINES WITH FOOTING AT 55 LINES AT TOP 3 LINES AT BOTTOM 3; a
// data name may stand in place of each number.
void FileParser::parseLinage() {
  m_tokens.skip(Keyword::is);
  if (!parseLineCount()) return;
  while (!m_tokens.isSentenceEnd() && !peekClause()) {
    bool isFill =
        m_tokens.skipWord("LINES") || m_tokens.skipWord("WITH") || m_tokens.skipWord("AT");
    if (isFill) continue;
    bool isPart =
        m_tokens.skipWord("FOOTING") || m_tokens.skipWord("TOP") || m_tokens.skipWord("BOTTOM");
    if (!isPart) return;  // begins no clause: reported as such
    m_tokens.skipWord("AT");
    m_tokens.skip(Keyword::is);
    if (!parseLineCount()) return;
  }
}

// A number may stand at the beginning of a line, where it looks like a level.
bool FileParser::parseLineCount() {
  if (m_tokens.peek().kind == Token::Kind::number) {
    m_tokens.take();
    return true;
  }
  if (!m_tokens.isWord() || peekClause()) {
    m_tokens.expected(Code::syntax, "a number of lines");
    return false;
  }
  m_names.parseQualified();
  return true;
}

}  // namespace fdmorph::compiler
