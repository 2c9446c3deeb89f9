// File descriptions. Their clauses say nothing about the records that the
// dictionary tells, so that only their end matters.
#include "compiler/parser.h"

namespace fdmorph::compiler {

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
  m_file = &m_data.files.emplace_back(FileDescription{name.text, name.place, {}});
  while (!isEnd() && peek().kind != Token::Kind::period) {
    if (isEntryStart() || isHeader(0)) break;
    take();
  }
  expectPeriod("the file description");
}

}  // namespace fdmorph::compiler
