#include "syntax/entry_parser.h"

#include "text/letter_case.h"

namespace fdmorph::compiler {
namespace {

// What a misspelt word after the name of an item can mean.
constexpr std::string_view kClauseWords[] = {
    "BLANK",      "COMP",      "COMP-3",    "COUNT",        "DISPLAY", "EXTERNAL", "GLOBAL",
    "IDENTIFIED", "JUSTIFIED", "NAMESPACE", "OCCURS",       "PIC",     "PICTURE",  "REDEFINES",
    "RENAMES",    "SIGN",      "SYNC",      "SYNCHRONIZED", "USAGE",   "VALUE",
};

}  // namespace

// A missing member may hold the picture of the entry around it, or the items
// below the one before it. One that stands right after a level number is known
// before its entry is parsed.
void EntryParser::noteMissingCopies() {
  TokenStream::MissingCopies copies = m_tokens.takeMissingCopies();
  m_isCopyMissing = copies.isAfterNext;
  if (copies.isAny && m_tree.lastItem() != nullptr) m_tree.lastItem()->isIncomplete = true;
}

void EntryParser::parse() {
  Token number = m_tokens.take();
  std::optional<std::uint8_t> level = levelOf(number);
  if (!level) {
    m_tokens.error(Code::level, number.place, "invalid level number " + quoted(number.text));
    m_tokens.skipSentence();
    return;
  }
  DataItem& item = m_tree.newItem(*level, number.place);
  item.isIncomplete = m_isCopyMissing;
  parseName(item);
  switch (*level) {
    case kConstantLevel:
      parseConstant(item);
      return;
    case kConditionLevel:
      parseCondition(item);
      return;
    case kRenamesLevel:
      parseRenames(item);
      return;
    default:
      break;
  }
  if (*level == 1 && m_tokens.skip(Keyword::constant)) {
    parseConstant(item);
    return;
  }
  parseClauses(item);
  m_tree.attach(item);
}

// Whether the next word is a name because an XML clause follows it, perhaps after
// OCCURS: items without a name do not have one. A usage can have other clauses
// before the XML clause.
bool EntryParser::isNamedByXmlClause() {
  constexpr std::size_t kMaxTokens = 32;
  std::size_t at = 1;
  if (usageOf(m_tokens.peek().keyword)) {
    while (at < kMaxTokens && !m_tokens.isXmlClause(at)) {
      Token::Kind kind = m_tokens.peek(at).kind;
      if (kind == Token::Kind::period || kind == Token::Kind::end) return false;
      ++at;
    }
  } else if (m_tokens.peek(at).is(Keyword::occurs)) {
    at += m_tokens.peek(at + 2).is(Keyword::times) ? 3U : 2U;
  }
  return m_tokens.isXmlClause(at);
}

// Whether the word after a level number is a name. A word that begins a clause
// is one where what follows cannot go on with that clause.
bool EntryParser::isName() {
  Token const& token = m_tokens.peek();
  if (token.kind != Token::Kind::word) return false;
  Keyword keyword = token.keyword;
  if (keyword == Keyword::none || keyword == Keyword::filler) return true;
  if (m_tokens.isXmlClause()) return false;
  if (!usageOf(keyword) && !beginsClause(keyword)) return true;
  if (isNamedByXmlClause()) return true;
  Token const& following = m_tokens.peek(1);
  bool isOtherClause = following.kind == Token::Kind::word && beginsClause(following.keyword);
  switch (keyword) {
    case Keyword::picture:
      return following.is(Keyword::picture);
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
      return true;  // a usage only after USAGE, or after a picture
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

void EntryParser::parseName(DataItem& item) {
  bool needsName =
      item.level == kRenamesLevel || item.level == kConstantLevel || item.level == kConditionLevel;
  if (needsName) {
    Token const& token = m_tokens.peek();
    bool isClause = (token.is(Keyword::value) || token.is(Keyword::renames)) &&
                    !m_tokens.peek(1).is(token.keyword);
    if (token.kind != Token::Kind::word || isClause) {
      m_tokens.error(Code::name, token.place, "expected a name before " + describe(token));
      return;
    }
  } else if (!isName()) {
    return;
  }
  Token name = m_names.takeName();
  item.name = name.text;
  item.place = name.place;
  if (!name.is(Keyword::filler)) m_names.check(name);
}

// After a token that begins no clause, or a literal that may have swallowed it,
// the period is not missed.
void EntryParser::parseClauses(DataItem& item) {
  ClauseParser::Entry entry{item};
  bool isBroken = false;
  while (!m_tokens.isSentenceEnd()) {
    if (m_clauses.parse(entry)) continue;
    isBroken = true;
    item.isIncomplete = true;
    m_tokens.expected(Code::syntax, "a data description clause", kClauseWords);
    // One report is enough for what stands up to the next clause.
    do {
      m_tokens.take();
    } while (!m_tokens.isSentenceEnd() && !m_tokens.isClause());
  }
  if (m_tokens.skipPeriod() || isBroken || m_isCopyMissing || m_tokens.last().isOpen) return;
  m_tokens.expectPeriod("data description entry");
}

void EntryParser::skipBrokenEntry(Code code, std::string const& wanted) {
  m_tokens.expected(code, wanted);
  m_tokens.skipSentence();
}

// The end of an entry that takes one clause.
void EntryParser::endShortEntry(std::string const& what) {
  if (m_tokens.skipPeriod() || m_tokens.last().isOpen) return;
  if (m_tokens.isSentenceEnd()) {
    m_tokens.expectPeriod(what);
    return;
  }
  skipBrokenEntry(Code::syntax, "'.' at the end of the " + what);
}

// 78 NAME VALUE 5., 01 NAME CONSTANT AS 5.
void EntryParser::parseConstant(DataItem& item) {
  using Order = ConstantExpressionParser::Order;
  bool isLevel78 = item.level == kConstantLevel;
  item.level = kConstantLevel;  // no item of data
  m_tokens.skip(Keyword::is);
  if (m_tokens.skip(Keyword::global)) m_tokens.skip(Keyword::is);
  if (!isLevel78) {
    m_tokens.skip(Keyword::as);
  } else if (!m_tokens.skip(Keyword::value)) {
    skipBrokenEntry(Code::constant, "VALUE in the constant entry");
    return;
  }
  m_tokens.skip(Keyword::is);
  std::optional<Literal> value;
  if (!isLevel78 && m_tokens.skip(Keyword::from)) {
    Token const& name = m_tokens.peek();
    if (m_tokens.isWord()) value = m_constants.findVariable(name.text);
    if (value) {
      m_tokens.take();
    } else {
      m_tokens.error(Code::constant, name.place, "no directive defines " + describe(name));
    }
  } else {
    value = m_expressions.parse(isLevel78 ? Order::leftToRight : Order::precedence);
  }
  if (!value || value->kind == Literal::Kind::broken) {
    m_tokens.skipSentence();
    Literal broken;
    broken.kind = Literal::Kind::broken;
    (void)m_constants.add(item.name, broken);
    return;
  }
  if (!item.name.empty() && !m_constants.add(item.name, *value)) {
    m_tokens.error(Code::constant, item.place,
                   "constant " + quoted(item.name) + " is already defined");
  }
  endShortEntry("constant entry");
}

void EntryParser::parseCondition(DataItem& item) {
  if (m_tokens.skip(Keyword::value)) {
    if (!m_tokens.skip(Keyword::is)) m_tokens.skip(Keyword::are);
    item.values = m_values.parseValues(true);
    parseFalsePhrase(item);
    endShortEntry("condition entry");
  } else {
    m_tokens.error(Code::value, item.place,
                   "condition " + quoted(item.name) + " has no VALUE clause");
    m_tokens.skipSentence();
  }
  m_tree.attachCondition(item);
}

// WHEN SET TO FALSE IS literal; the dictionary has no place for it.
void EntryParser::parseFalsePhrase(DataItem& item) {
  bool isFalse = m_tokens.skip(Keyword::when);
  isFalse |= m_tokens.skipWord("SET");
  isFalse |= m_tokens.skip(Keyword::to);
  isFalse |= m_tokens.skipWord("FALSE");
  if (!isFalse) return;
  m_tokens.skip(Keyword::is);
  if (std::optional<Literal> value = m_values.parseLiteral()) {
    item.falseValue = std::make_unique<Literal>(*value);
  } else {
    m_tokens.expected(Code::value, "a literal after FALSE");
  }
}

void EntryParser::parseRenames(DataItem& item) {
  if (!m_tokens.skip(Keyword::renames)) {
    m_tokens.error(Code::renames, item.place, "level 66 entry has no RENAMES clause");
    m_tokens.skipSentence();
    return;
  }
  item.related = std::make_unique<QualifiedName>(m_names.parseQualified());
  if (m_tokens.skip(Keyword::thru)) {
    item.through = std::make_unique<QualifiedName>(m_names.parseQualified());
  }
  endShortEntry("level 66 entry");
  m_tree.attachRenames(item);
}

}  // namespace fdmorph::compiler
