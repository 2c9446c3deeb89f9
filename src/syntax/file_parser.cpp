// File descriptions. Of their clauses only the grammar matters: the dictionary
// tells of a file's records, and these describe themselves.
#include <array>

#include "syntax/parser.h"
#include "text/letter_case.h"

namespace fdmorph::compiler {
namespace {

/// A clause by the word that it begins with. Words that stand in many places of
/// a program, and only here mean a clause, are no keywords.
struct ClauseWord {
  std::string_view word;
  Parser::FileClause clause;
};

constexpr std::array kClauses{
    ClauseWord{"BLOCK", Parser::FileClause::block},
    ClauseWord{"CODE-SET", Parser::FileClause::codeSet},
    ClauseWord{"DATA", Parser::FileClause::dataRecords},
    ClauseWord{"EXTERNAL", Parser::FileClause::external},
    ClauseWord{"GLOBAL", Parser::FileClause::global},
    ClauseWord{"LABEL", Parser::FileClause::label},
    ClauseWord{"LINAGE", Parser::FileClause::linage},
    ClauseWord{"RECORD", Parser::FileClause::record},
    ClauseWord{"RECORDING", Parser::FileClause::recording},
    ClauseWord{"REPORT", Parser::FileClause::report},
    ClauseWord{"REPORTS", Parser::FileClause::report},
    ClauseWord{"VALUE", Parser::FileClause::valueOf},
};

}  // namespace

void Parser::parseFileDescription() {
  Token indicator = take();
  m_hasData = true;
  m_open.clear();
  m_lastItem = nullptr;
  m_section = Section::file;
  m_file = nullptr;
  if (peek().kind != Token::Kind::word) {
    error(Code::syntax, indicator.place, quoted(indicator.text) + " is not followed by a name");
    skipSentence();
    return;
  }
  Token name = take();
  checkName(name);
  m_file = &m_data.files.emplace_back(FileDescription{name.text, name.place, {}, {}});
  parseFileClauses();
  expectPeriod("the file description");
}

bool Parser::isEndOfFileDescription() {
  return isEnd() || peek().kind == Token::Kind::period || isEntryStart() || isHeader(0);
}

std::optional<Parser::FileClause> Parser::fileClauseNext() {
  // IS EXTERNAL, IS GLOBAL
  Token const& token = peek(peek().is(Keyword::is) ? 1 : 0);
  if (token.kind != Token::Kind::word) return std::nullopt;
  for (ClauseWord const& each : kClauses) {
    if (equalsIgnoringCase(token.text, each.word)) return each.clause;
  }
  return std::nullopt;
}

void Parser::parseFileClauses() {
  std::uint32_t seen = 0;
  while (!isEndOfFileDescription()) {
    std::optional<FileClause> clause = fileClauseNext();
    if (!clause) {
      error(Code::syntax, peek().place,
            describe(peek()) + " begins no clause of a file description");
      // One report is enough for what stands up to the next clause.
      do {
        take();
      } while (!isEndOfFileDescription() && !fileClauseNext());
      continue;
    }
    skip(Keyword::is);
    std::uint32_t bit = 1U << static_cast<unsigned>(*clause);
    if ((seen & bit) != 0) {
      error(Code::duplicateClause, peek().place,
            "the file description has two " + upperCase(peek().text) + " clauses");
    }
    seen |= bit;
    take();
    parseFileClause(*clause);
  }
}

void Parser::parseFileClause(FileClause clause) {
  switch (clause) {
    case FileClause::block:
      skipWord("CONTAINS");
      parseFileNumbers();
      if (!skipWord("RECORDS") && !skip(Keyword::character)) skipRecordUnit();
      break;
    case FileClause::record:
      parseRecordClause();
      break;
    case FileClause::label:
    case FileClause::dataRecords:
      if (!skip(Keyword::record)) skipWord("RECORDS");
      parseFileNames();
      break;
    case FileClause::codeSet:
      parseFileNames();
      if (skipWord("FOR")) parseFileNames();
      break;
    case FileClause::report:
      parseFileNames();
      break;
    case FileClause::recording:
      skipWord("MODE");
      parseFileNames();
      break;
    case FileClause::valueOf:
      parseValueOf();
      break;
    case FileClause::linage:
      parseLinage();
      break;
    case FileClause::external:
      // AS "name"
      if (skip(Keyword::as) && peek().kind == Token::Kind::literal) take();
      break;
    case FileClause::global:
      break;
  }
}

// BLOCK CONTAINS 1 RECORD, where the word doesn't begin the next clause.
void Parser::skipRecordUnit() {
  Token const& following = peek(1);
  bool isClause = following.kind == Token::Kind::number || following.is(Keyword::is) ||
                  equalsIgnoringCase(following.text, "CONTAINS") ||
                  equalsIgnoringCase(following.text, "VARYING");
  if (!isClause) skip(Keyword::record);
}

// A number, or one TO another.
void Parser::parseFileNumbers() {
  std::uint64_t least = 0;
  if (!parseFileNumber(least)) return;
  Token to = peek();
  std::uint64_t most = least;
  if (!skip(Keyword::to) || !parseFileNumber(most)) return;
  if (most < least) error(Code::syntax, to.place, "the range ends below its beginning");
}

bool Parser::parseFileNumber(std::uint64_t& number) {
  Token token = peek();
  std::optional<std::uint64_t> value;
  if (token.kind == Token::Kind::number) value = integerOf(token.text);
  if (token.kind == Token::Kind::word) value = m_constants.integer(token.text);
  if (!value) {
    error(Code::syntax, token.place, describe(token) + " is no number");
    bool isWrongWord = token.kind == Token::Kind::word && !fileClauseNext();
    if (token.kind == Token::Kind::number || isWrongWord) take();
    return false;
  }
  take();
  number = *value;
  return true;
}

// RECORD CONTAINS 80 CHARACTERS, RECORD IS VARYING IN SIZE FROM 1 TO 80
// CHARACTERS DEPENDING ON name.
void Parser::parseRecordClause() {
  skip(Keyword::is);
  bool isVarying = skipWord("VARYING");
  if (isVarying) {
    skip(Keyword::in);
    skip(Keyword::size);
    skip(Keyword::from);
  } else {
    skipWord("CONTAINS");
  }
  bool hasNumber = peek().kind == Token::Kind::number ||
                   (peek().kind == Token::Kind::word && m_constants.find(peek().text) != nullptr);
  if (hasNumber) {
    parseFileNumbers();
  } else if (isVarying && skip(Keyword::to)) {
    std::uint64_t most = 0;
    parseFileNumber(most);
  } else if (!isVarying) {
    error(Code::syntax, peek().place, describe(peek()) + " is no size of a record");
  }
  skip(Keyword::character);
  if (skip(Keyword::depending)) {
    skip(Keyword::on);
    m_file->depending = parseQualifiedName();
  }
}

// IS or ARE, and names up to the next clause.
void Parser::parseFileNames() {
  if (!skip(Keyword::is)) skip(Keyword::are);
  bool isAny = false;
  while (!isEndOfFileDescription() && (!isAny || !fileClauseNext()) && !peek().is(Keyword::is) &&
         (peek().kind == Token::Kind::word || peek().kind == Token::Kind::literal) &&
         !equalsIgnoringCase(peek().text, "FOR")) {
    take();
    isAny = true;
  }
  if (!isAny) error(Code::name, peek().place, "a name is missing before " + describe(peek()));
}

// VALUE OF name IS literal, and more of them.
void Parser::parseValueOf() {
  if (!skip(Keyword::of)) {
    error(Code::syntax, peek().place, "VALUE is not followed by OF in a file description");
  }
  do {
    std::string_view name;
    if (!parseName(name)) return;
    skip(Keyword::is);
    if (isEndOfFileDescription()) {
      error(Code::value, peek().place, "VALUE OF lacks the value of " + quoted(name));
      return;
    }
    take();
  } while (!isEndOfFileDescription() && !fileClauseNext());
}

// LINAGE IS 60 LINES WITH FOOTING AT 55 LINES AT TOP 3 LINES AT BOTTOM 3; a
// data name may stand in place of each number.
void Parser::parseLinage() {
  skip(Keyword::is);
  if (!parseFileOperand()) {
    error(Code::syntax, peek().place, describe(peek()) + " is no number of lines");
    return;
  }
  while (!isEndOfFileDescription() && !fileClauseNext()) {
    bool isFill = skipWord("LINES") || skipWord("WITH") || skipWord("AT");
    if (isFill) continue;
    bool isPart = skipWord("FOOTING") || skipWord("TOP") || skipWord("BOTTOM");
    if (!isPart) return;  // begins no clause: reported as such
    skipWord("AT");
    skip(Keyword::is);
    if (!parseFileOperand()) {
      error(Code::syntax, peek().place, describe(peek()) + " is no number of lines");
      return;
    }
  }
}

// A number may stand at the beginning of a line, where it looks like a level.
bool Parser::parseFileOperand() {
  if (peek().kind == Token::Kind::number) {
    take();
    return true;
  }
  if (peek().kind != Token::Kind::word || fileClauseNext()) return false;
  parseQualifiedName();
  return true;
}

}  // namespace fdmorph::compiler
