// Data description entries: level number, name, clauses, period.
#include <algorithm>

#include "syntax/parser.h"
#include "text/letter_case.h"

namespace fdmorph::compiler {
namespace {

constexpr std::size_t kMaxNameLength = 63;

// Why a word can't be a name; null if it can.
char const* faultOfName(std::string_view name) {
  if (name.size() > kMaxNameLength) return "is longer than 63 characters";
  if (name.front() == '-' || name.front() == '_') return "begins with a hyphen or underscore";
  if (name.back() == '-' || name.back() == '_') return "ends in a hyphen or underscore";
  for (char c : name) {
    bool isNameLetter = isLetter(c) || static_cast<unsigned char>(c) >= 0x80;
    if (isNameLetter) return nullptr;
  }
  return "holds no letter";
}

// The first tag in a name, with its colons.
std::string_view tagOf(std::string_view name) {
  std::size_t begin = std::min(name.find(':'), name.size());
  std::size_t end = name.find(':', std::min(begin + 1, name.size()));
  return name.substr(begin, end == std::string_view::npos ? end : end - begin + 1);
}

}  // namespace

// A copybook that is compiled by itself has nobody who replaces its tags: their
// letters stand for them.
Token Parser::takeName() {
  Token name = take();
  if (name.text.find(':') == std::string_view::npos) return name;
  if (m_data.isProgram) {
    error(Code::name, name.place,
          "the name " + quoted(name.text) + " holds a tag that nothing replaces");
    name.text = {};
    return name;
  }
  if (m_tags.insert(tagOf(name.text)).second) {
    error(Code::tag, name.place,
          "nothing replaces the tag " + quoted(tagOf(name.text)) + "; its letters stand for it");
  }
  std::string letters(name.text);
  std::erase(letters, ':');
  name.text = m_pool.append(letters);
  return name;
}

void Parser::checkName(Token const& token) {
  if (token.text.empty()) return;  // reported as a tag
  if (char const* fault = faultOfName(token.text)) {
    error(Code::name, token.place, "the name " + quoted(token.text) + " " + fault);
  }
}

void Parser::parseEntry() {
  Token number = take();
  bool isShort = isAllDigits(number.text) && number.text.size() <= 2;
  int level = isShort ? std::stoi(std::string(number.text)) : 0;
  if (!isLevelNumber(level)) {
    if (!m_data.isProgram && !m_hasData) {
      error(Code::syntax, number.place,
            describe(number) + " begins neither a program nor a data description");
      while (!isEnd()) take();
      return;
    }
    error(Code::level, number.place, quoted(number.text) + " is no level number");
    skipSentence();
    return;
  }
  m_hasData = true;
  Entry entry;
  entry.item = newItem(static_cast<std::uint8_t>(level), number.place);
  entry.item->isIncomplete = m_isMemberMissing;
  parseEntryName(entry);
  switch (level) {
    case kConstantLevel:
      parseConstant(entry);
      return;
    case kConditionLevel:
      parseCondition(entry);
      return;
    case kRenamesLevel:
      parseRenames(entry);
      return;
    default:
      break;
  }
  if (peek().is(Keyword::constant) && level == 1) {
    take();
    parseConstant(entry);
    return;
  }
  parseClauses(entry);
  attach(entry.item);
}

// A member that wasn't found may hold the picture of the entry around it, or
// the items below the one before it. The lexer comes upon a member that stands
// right behind a level number together with that.
void Parser::noteMissingMembers() {
  std::size_t count = m_diagnostics.countOf(Code::copyMissing);
  bool isMissing = count != m_missingMembers;
  m_missingMembers = count;
  m_isMemberMissing = isMissing && m_diagnostics.sources().isBefore(
                                       peek().place, m_diagnostics.lastOf(Code::copyMissing));
  if (isMissing && m_lastItem != nullptr) m_lastItem->isIncomplete = true;
}

// Whether the word behind a level number is a name. A word that begins a
// clause is one where what follows can't go on with that clause.
bool Parser::isNameNext() {
  Token const& token = peek();
  if (token.kind != Token::Kind::word) return false;
  Keyword keyword = token.keyword;
  if (keyword == Keyword::none || keyword == Keyword::filler) return true;
  bool isUsage = usageOf(keyword).has_value();
  if (!isUsage && !beginsClause(keyword)) return true;
  Token const& following = peek(1);
  bool isOtherClause = following.kind == Token::Kind::word && beginsClause(following.keyword);
  switch (keyword) {
    case Keyword::picture:
      return following.keyword == Keyword::picture;
    case Keyword::value:
    case Keyword::usage:
    case Keyword::occurs:
    case Keyword::redefines:
    case Keyword::renames:
    case Keyword::blank:
    case Keyword::constant:
      return following.kind == Token::Kind::period || isOtherClause;
    case Keyword::sign:
      return following.kind == Token::Kind::period || following.is(Keyword::picture) ||
             following.is(Keyword::occurs) || following.is(Keyword::redefines);
    case Keyword::bit:
      return true;  // a usage only behind its word, or behind a picture
    case Keyword::any:
      return !following.is(Keyword::length) && !equalsIgnoringCase(following.text, "NUMERIC");
    case Keyword::based:
    case Keyword::handle:
    case Keyword::index:
    case Keyword::pointer:
    case Keyword::object:
    case Keyword::signedInt:
    case Keyword::external:
    case Keyword::global:
    case Keyword::volatileWord:
      // Without a picture these may be clauses of an item without a name.
      return following.is(Keyword::picture);
    default:
      return false;
  }
}

void Parser::parseEntryName(Entry& entry) {
  DataItem& item = *entry.item;
  bool takesAnyName =
      item.level == kRenamesLevel || item.level == kConstantLevel || item.level == kConditionLevel;
  bool isClause =
      (peek().is(Keyword::value) || peek().is(Keyword::renames)) && !peek(1).is(peek().keyword);
  bool isName = takesAnyName ? peek().kind == Token::Kind::word && !isClause : isNameNext();
  if (!isName) {
    if (takesAnyName) error(Code::name, peek().place, "the entry lacks a name");
    return;
  }
  Token name = takeName();
  item.name = name.text;
  item.place = name.place;
  if (!name.is(Keyword::filler)) checkName(name);
}

void Parser::parseClauses(Entry& entry) {
  bool isBroken = false;
  while (!isEnd() && peek().kind != Token::Kind::period && !isEntryStart() && !isHeader(0)) {
    if (parseClause(entry)) continue;
    isBroken = true;
    entry.item->isIncomplete = true;
    Token const& token = peek();
    error(Code::syntax, token.place, describe(token) + " begins no clause of a data description");
    // One report is enough for what stands up to the next clause.
    do {
      take();
    } while (!isEnd() && peek().kind != Token::Kind::period && !isEntryStart() && !isHeader(0) &&
             !beginsClause(peek().keyword));
  }
  endEntry(isBroken);
}

// One report is enough for an entry that breaks off: its period is not looked
// for behind another mistake, or a literal that swallowed it.
void Parser::endEntry(bool isBroken) {
  if (peek().kind == Token::Kind::period) {
    take();
  } else if (!isBroken && !m_lastToken.isOpen) {
    expectPeriod("the data description entry");
  }
}

void Parser::parseCondition(Entry& entry) {
  DataItem* item = entry.item;
  if (!peek().is(Keyword::value)) {
    error(Code::value, item->place, "the condition " + quoted(item->name) + " has no VALUE clause");
    skipSentence();
  } else {
    take();
    parseValue(entry);
    parseFalse();
    endShortEntry("a condition");
  }
  if (m_lastItem == nullptr) {
    error(Code::levelOrder, item->place,
          "the condition " + quoted(item->name) + " belongs to no item");
    return;
  }
  item->parent = m_lastItem;
  if (m_lastItem->lastCondition == nullptr) {
    m_lastItem->firstCondition = item;
  } else {
    m_lastItem->lastCondition->next = item;
  }
  m_lastItem->lastCondition = item;
}

// WHEN SET TO FALSE IS literal; the dictionary has no place for it.
void Parser::parseFalse() {
  bool isFalse = skip(Keyword::when);
  isFalse |= skipWord("SET");
  isFalse |= skip(Keyword::to);
  isFalse |= skipWord("FALSE");
  if (!isFalse) return;
  skip(Keyword::is);
  Literal literal;
  if (!parseLiteral(literal)) {
    error(Code::value, peek().place, "FALSE is followed by " + describe(peek()) + ", no literal");
  }
}

// The end of an entry that takes one clause.
void Parser::endShortEntry(char const* what) {
  bool isBroken = !isEnd() && peek().kind != Token::Kind::period && !isEntryStart() &&
                  !isHeader(0) && !m_lastToken.isOpen;
  if (isBroken) {
    error(Code::syntax, peek().place, describe(peek()) + " doesn't belong to " + what);
    skipSentence();
    return;
  }
  endEntry(false);
}

void Parser::parseRenames(Entry& entry) {
  DataItem* item = entry.item;
  if (!skip(Keyword::renames)) {
    error(Code::renames, item->place, "an entry of level 66 has no RENAMES clause");
    skipSentence();
    return;
  }
  item->related = std::make_unique<QualifiedName>(parseQualifiedName());
  if (skip(Keyword::thru)) item->through = std::make_unique<QualifiedName>(parseQualifiedName());
  endShortEntry("an entry of level 66");
  if (m_open.empty()) {
    error(Code::levelOrder, item->place, "an entry of level 66 follows no record");
    return;
  }
  m_open.erase(m_open.begin() + 1, m_open.end());
  attachToGroup(item);
  m_lastItem = item;
}

}  // namespace fdmorph::compiler
