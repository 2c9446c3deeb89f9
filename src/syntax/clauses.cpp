#include "syntax/clauses.h"

#include <array>

#include "syntax/xml_clauses.h"
#include "text/letter_case.h"
#include "text/near_words.h"

namespace fdmorph::compiler {
namespace {

// What a misspelt word after USAGE can mean.
constexpr std::string_view kUsages[] = {
    "BINARY",  "COMP",   "COMP-1",   "COMP-2",         "COMP-3",
    "COMP-4",  "COMP-5", "COMP-6",   "COMP-X",         "COMPUTATIONAL",
    "DISPLAY", "INDEX",  "NATIONAL", "PACKED-DECIMAL", "POINTER",
};

constexpr std::uint64_t kMaxOccurrences = 0x7FFFFFFF;

// A parser of a clause. `word`, which the clause begins with, is taken.
using Parse = void (*)(ClauseContext& context, DataItem& item, Token const& word);

// Storage is shared between programs by whole records.
void checkIsRecord(ClauseContext& context, DataItem const& item, Token const& clause) {
  if (item.level == 1 || item.level == kSingleLevel) return;
  context.tokens.error(Code::clause, clause.place,
                       upperCase(clause.text) + " requires level 1 or 77, found level " +
                           std::to_string(item.level));
}

// ANY LENGTH, ANY NUMERIC: the item is as long as what the caller passes, and
// counts as one character. Without a picture that is a character of any kind.
void parseAny(ClauseContext& context, DataItem& item, Token const& word) {
  TokenStream& tokens = context.tokens;
  bool isLength = tokens.skip(Keyword::length);
  if (!isLength && !tokens.skipWord("NUMERIC")) {
    tokens.expected(Code::syntax, "LENGTH or NUMERIC after ANY");
    return;
  }
  if (item.picture != nullptr) return;
  item.picture = &context.pictures.find(isLength ? "X" : "9");
  item.picturePlace = word.place;
}

void parseBased(ClauseContext& context, DataItem& item, Token const& word) {
  checkIsRecord(context, item, word);
}

void parseBlank(ClauseContext& context, DataItem& item, Token const& /*word*/) {
  context.tokens.skip(Keyword::when);
  context.tokens.skip(Keyword::is);
  if (!context.tokens.skip(Keyword::zero)) {
    context.tokens.expected(Code::syntax, "ZERO after BLANK");
  }
  item.isBlankWhenZero = true;
}

// EXTERNAL AS "name"
void parseExternal(ClauseContext& context, DataItem& item, Token const& word) {
  checkIsRecord(context, item, word);
  if (context.tokens.skip(Keyword::as)) context.values.parseLiteral();
}

void parseGlobal(ClauseContext& context, DataItem& item, Token const& word) {
  checkIsRecord(context, item, word);
}

void parseJustified(ClauseContext& context, DataItem& item, Token const& /*word*/) {
  context.tokens.skip(Keyword::right);
  item.isJustified = true;
}

// A number of occurrences.
std::optional<std::uint64_t> parseCount(TokenStream& tokens, ValueParser& values) {
  Token token = tokens.peek();
  std::optional<std::uint64_t> count = values.parseInteger();
  if (count && *count <= kMaxOccurrences) return count;
  if (token.kind == Token::Kind::number || count) {
    tokens.error(
        Code::occurs, token.place,
        describe(token) + " is not an integer from 0 to " + std::to_string(kMaxOccurrences));
  } else {
    tokens.expected(Code::occurs, "a number of occurrences");
  }
  bool isWrongName = token.kind == Token::Kind::word && token.keyword == Keyword::none;
  if (!count && (token.kind == Token::Kind::number || isWrongName)) tokens.take();
  return std::nullopt;
}

// Whether one more name of a list is next, and not another phrase or clause.
bool isNameListed(TokenStream& tokens) {
  Token const& token = tokens.peek();
  return token.kind == Token::Kind::word && !tokens.isClause() && !usageOf(token.keyword) &&
         !token.is(Keyword::attribute) && !token.is(Keyword::ascending) &&
         !token.is(Keyword::descending) && !token.is(Keyword::indexed) &&
         !token.is(Keyword::depending);
}

void parseKeys(ClauseContext& context, OccursClause& occurs, KeyOrder order) {
  TokenStream& tokens = context.tokens;
  tokens.skip(Keyword::key);
  tokens.skip(Keyword::is);
  if (!isNameListed(tokens)) context.names.parseQualified();  // reports what is missing
  while (isNameListed(tokens)) {
    occurs.keys.push_back(context.names.parseQualified());
    occurs.keyOrders.push_back(order);
  }
}

// DEPENDING ON, ASCENDING and DESCENDING KEY, INDEXED BY, in any order.
void parseOccursPhrases(ClauseContext& context, OccursClause& occurs) {
  TokenStream& tokens = context.tokens;
  for (;;) {
    if (tokens.skip(Keyword::depending)) {
      tokens.skip(Keyword::on);
      occurs.isDepending = true;
      occurs.depending = context.names.parseQualified();
    } else if (tokens.skip(Keyword::ascending)) {
      parseKeys(context, occurs, KeyOrder::ascending);
    } else if (tokens.skip(Keyword::descending)) {
      parseKeys(context, occurs, KeyOrder::descending);
    } else if (tokens.skip(Keyword::indexed)) {
      tokens.skip(Keyword::by);
      if (auto name = context.names.parse()) occurs.indexes.push_back(*name);
      while (isNameListed(tokens)) occurs.indexes.push_back(tokens.take().text);
    } else {
      return;
    }
  }
}

void parseOccurs(ClauseContext& context, DataItem& item, Token const& word) {
  TokenStream& tokens = context.tokens;
  auto occurs = std::make_unique<OccursClause>();
  occurs->place = word.place;
  auto fail = [&](char const* text) { tokens.error(Code::occurs, word.place, text); };
  std::optional<std::uint64_t> least = 0;
  if (tokens.skip(Keyword::dynamic)) {
    fail("tables of dynamic capacity are not supported");
  } else {
    least = parseCount(tokens, context.values);
  }
  bool hasRange = tokens.skip(Keyword::to);
  // What the caller passes may be of any length.
  bool isUnbounded =
      hasRange && context.tree.section() == Section::linkage && tokens.skipWord("UNBOUNDED");
  std::optional<std::uint64_t> most =
      hasRange && !isUnbounded ? parseCount(tokens, context.values) : least;
  tokens.skip(Keyword::times);
  parseOccursPhrases(context, *occurs);
  if (least && most && !isUnbounded) {
    occurs->least = *least;
    occurs->most = *most;
    if (*least > *most || (hasRange && *least == *most)) {
      fail("OCCURS range must end above its start");
      occurs->least = occurs->most;
    } else if (hasRange && !occurs->isDepending) {
      fail("OCCURS with TO requires DEPENDING ON");
    }
  }
  if (!hasRange && occurs->isDepending) occurs->least = 1;
  item.occurs = std::move(occurs);
}

void parsePicture(ClauseContext& context, DataItem& item, Token const& /*word*/) {
  TokenStream& tokens = context.tokens;
  tokens.skip(Keyword::is);
  if (tokens.peek().kind != Token::Kind::picture) {
    tokens.error(Code::picture, tokens.last().place,
                 "expected a picture string before " + describe(tokens.peek()));
    item.isIncomplete = true;
    return;
  }
  Token token = tokens.take();
  item.picture = &context.pictures.find(token.text);
  item.picturePlace = token.place;
  for (std::string const& each : item.picture->errors) {
    tokens.error(Code::picture, token.place, each);
  }
  for (std::string const& each : item.picture->warnings) {
    tokens.error(Code::pictureWarning, token.place, each);
  }
}

void parseRedefines(ClauseContext& context, DataItem& item, Token const& /*word*/) {
  item.isRedefinition = true;
  item.related = std::make_unique<QualifiedName>(context.names.parseQualified());
  if (item.related->name.empty()) item.isIncomplete = true;
}

void parseSign(ClauseContext& context, DataItem& item, Token const& word) {
  item.sign.position = word.is(Keyword::leading) ? SignPosition::leading : SignPosition::trailing;
  item.sign.isSeparate = context.tokens.skip(Keyword::separate);
  context.tokens.skip(Keyword::character);
}

void parseSynchronized(ClauseContext& context, DataItem& item, Token const& /*word*/) {
  if (!context.tokens.skip(Keyword::left)) context.tokens.skip(Keyword::right);
  item.isSynchronized = true;
}

void parseUsage(ClauseContext& context, DataItem& item, Token const& word) {
  TokenStream& tokens = context.tokens;
  item.usage = *usageOf(word.keyword);
  switch (item.usage) {
    case Usage::binaryChar:
    case Usage::binaryShort:
    case Usage::binaryLong:
    case Usage::binaryDouble:
    case Usage::binaryCLong:
    case Usage::binaryInt:
      if (!tokens.skip(Keyword::signedWord)) item.isUnsigned |= tokens.skip(Keyword::unsignedWord);
      break;
    case Usage::object:
      tokens.skip(Keyword::reference);
      if (tokens.isWord() && tokens.peek().is(Keyword::none)) tokens.take();
      break;
    case Usage::pointer:
    case Usage::programPointer:
    case Usage::procedurePointer:
    case Usage::functionPointer:
      if (tokens.skip(Keyword::to)) tokens.take();
      break;
    case Usage::handle:
      // HANDLE OF WINDOW, HANDLE OF FONT LARGE-FONT
      if (!tokens.skip(Keyword::of)) break;
      while (tokens.isWord() && !tokens.isClause()) tokens.take();
      break;
    case Usage::display:
      tokens.skipWord("NATIVE");
      break;
    default:
      break;
  }
}

void parseValue(ClauseContext& context, DataItem& item, Token const& /*word*/) {
  if (!context.tokens.skip(Keyword::is)) context.tokens.skip(Keyword::are);
  item.values = context.values.parseValues(false);
}

void parseVolatile(ClauseContext& /*context*/, DataItem& /*item*/, Token const& /*word*/) {}

/// A clause by the word that it begins with. Each kind of clause stands in an
/// entry once.
struct ClauseRow {
  enum Kind : std::uint8_t {
    any,
    attribute,
    based,
    blank,
    countIn,
    external,
    global,
    identifiedBy,
    justified,
    namespaceName,
    occurs,
    picture,
    redefines,
    sign,
    synchronized,
    usage,
    value,
    volatileStorage,
  };

  Keyword keyword;
  Kind kind;
  Parse parse;
};

constexpr std::array kClauses{
    ClauseRow{Keyword::any, ClauseRow::any, parseAny},
    ClauseRow{Keyword::attribute, ClauseRow::attribute, parseAttribute},
    ClauseRow{Keyword::based, ClauseRow::based, parseBased},
    ClauseRow{Keyword::blank, ClauseRow::blank, parseBlank},
    ClauseRow{Keyword::count, ClauseRow::countIn, parseCountIn},
    ClauseRow{Keyword::external, ClauseRow::external, parseExternal},
    ClauseRow{Keyword::global, ClauseRow::global, parseGlobal},
    ClauseRow{Keyword::identified, ClauseRow::identifiedBy, parseIdentifiedBy},
    ClauseRow{Keyword::just, ClauseRow::justified, parseJustified},
    ClauseRow{Keyword::leading, ClauseRow::sign, parseSign},
    ClauseRow{Keyword::namespaceWord, ClauseRow::namespaceName, parseNamespace},
    ClauseRow{Keyword::occurs, ClauseRow::occurs, parseOccurs},
    ClauseRow{Keyword::picture, ClauseRow::picture, parsePicture},
    ClauseRow{Keyword::redefines, ClauseRow::redefines, parseRedefines},
    ClauseRow{Keyword::sync, ClauseRow::synchronized, parseSynchronized},
    ClauseRow{Keyword::trailing, ClauseRow::sign, parseSign},
    ClauseRow{Keyword::value, ClauseRow::value, parseValue},
    ClauseRow{Keyword::volatileWord, ClauseRow::volatileStorage, parseVolatile},
};

// Any word of a usage begins this one.
constexpr ClauseRow kUsageClause{Keyword::usage, ClauseRow::usage, parseUsage};

// The words of XML clauses are names in most places.
constexpr bool isXmlWord(Keyword keyword) {
  return keyword == Keyword::attribute || keyword == Keyword::count ||
         keyword == Keyword::identified || keyword == Keyword::namespaceWord;
}

constexpr bool clausesBeginAsKeywordsSay() {
  for (ClauseRow const& each : kClauses) {
    if (beginsClause(each.keyword) == isXmlWord(each.keyword)) return false;
  }
  return true;
}
static_assert(clausesBeginAsKeywordsSay());

ClauseRow const* findClause(Keyword keyword) {
  for (ClauseRow const& each : kClauses) {
    if (each.keyword == keyword) return &each;
  }
  return usageOf(keyword) ? &kUsageClause : nullptr;
}

}  // namespace

Picture const& PictureTable::find(std::string_view text) {
  auto [known, isNew] = m_pictures.try_emplace(std::string(text), nullptr);
  if (isNew) {
    auto constant = [this](std::string_view name) { return m_constants.integer(name); };
    known->second = &m_data.pictures.emplace_back(analysePicture(text, m_rules, constant));
  }
  Picture const& picture = *known->second;
  // It may be right later, when a constant in it is known.
  if (!picture.isValid()) m_pictures.erase(known);
  return picture;
}

bool ClauseParser::parse(Entry& entry) {
  TokenStream& tokens = m_context.tokens;
  Keyword first = tokens.peek().keyword;
  // USAGE and SIGN come before the word that says which; IS before GLOBAL,
  // EXTERNAL and ATTRIBUTE means nothing.
  if (first == Keyword::usage || first == Keyword::sign) {
    tokens.take();
    tokens.skip(Keyword::is);
    Token const& token = tokens.peek();
    if (first == Keyword::usage && !usageOf(token.keyword)) {
      bool isUnknown = token.kind == Token::Kind::word && !beginsClause(token.keyword);
      if (isUnknown) {
        tokens.error(Code::usage, token.place,
                     "unknown usage " + describe(token) + suggestWord(token.text, kUsages));
        tokens.take();
      } else {
        tokens.expected(Code::usage, "a usage");
      }
      entry.item.isIncomplete = true;
      return true;
    }
    if (first == Keyword::sign && !token.is(Keyword::leading) && !token.is(Keyword::trailing)) {
      tokens.expected(Code::syntax, "LEADING or TRAILING after SIGN");
      return true;
    }
  } else if (first == Keyword::is) {
    Token const& second = tokens.peek(1);
    bool isClause =
        second.is(Keyword::external) || second.is(Keyword::global) || second.is(Keyword::attribute);
    if (!isClause) return false;
    tokens.take();
  }
  ClauseRow const* clause = findClause(tokens.peek().keyword);
  if (clause == nullptr) return false;
  Token word = tokens.take();
  std::uint32_t bit = 1U << clause->kind;
  if ((entry.seen & bit) != 0) {
    tokens.error(Code::duplicateClause, word.place,
                 "duplicate " + upperCase(word.text) + " clause");
  }
  entry.seen |= bit;
  clause->parse(m_context, entry.item, word);
  return true;
}

}  // namespace fdmorph::compiler
