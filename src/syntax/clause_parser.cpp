// The clauses of a data description entry, in any order.
#include "syntax/parser.h"
#include "text/letter_case.h"

namespace fdmorph::compiler {

// Returns false, with nothing taken, where no clause begins.
bool Parser::parseClause(Entry& entry) {
  Token token = peek();
  if (token.kind != Token::Kind::word || token.keyword == Keyword::none) return false;
  DataItem& item = *entry.item;
  switch (token.keyword) {
    case Keyword::redefines:
      once(entry, kRedefines, take());
      parseRedefines(entry);
      return true;
    case Keyword::picture:
      once(entry, kPicture, take());
      parsePicture(entry);
      return true;
    case Keyword::usage:
      take();
      skip(Keyword::is);
      if (!usageOf(peek().keyword)) {
        error(Code::usage, peek().place, describe(peek()) + " is no usage");
        item.isIncomplete = true;
        if (peek().kind == Token::Kind::word && !beginsClause(peek().keyword)) take();
        return true;
      }
      token = peek();
      [[fallthrough]];
    default:
      if (!usageOf(token.keyword)) return false;
      once(entry, kUsage, take());
      parseUsage(entry, token);
      return true;
    case Keyword::sign:
      take();
      skip(Keyword::is);
      if (!peek().is(Keyword::leading) && !peek().is(Keyword::trailing)) {
        error(Code::syntax, peek().place, "SIGN is followed by neither LEADING nor TRAILING");
        return true;
      }
      token = peek();
      [[fallthrough]];
    case Keyword::leading:
    case Keyword::trailing:
      once(entry, kSign, take());
      parseSign(entry, token);
      return true;
    case Keyword::occurs:
      once(entry, kOccurs, take());
      parseOccurs(entry, token);
      return true;
    case Keyword::just:
      once(entry, kJustified, take());
      skip(Keyword::right);
      item.isJustified = true;
      return true;
    case Keyword::blank:
      once(entry, kBlank, take());
      parseBlank();
      item.isBlankWhenZero = true;
      return true;
    case Keyword::sync:
      once(entry, kSync, take());
      if (!skip(Keyword::left)) skip(Keyword::right);
      item.isSynchronized = true;
      return true;
    case Keyword::value:
      once(entry, kValue, take());
      parseValue(entry);
      return true;
    case Keyword::any:
      // ANY LENGTH, ANY NUMERIC: what the caller hands over
      take();
      if (!skip(Keyword::length) && !skipWord("NUMERIC")) {
        error(Code::syntax, peek().place, "ANY is followed by neither LENGTH nor NUMERIC");
      }
      return true;
    case Keyword::based:
      once(entry, kBased, take());
      checkIsRecord(item, token);
      return true;
    case Keyword::external:
      once(entry, kExternal, take());
      checkIsRecord(item, token);
      // AS "name"
      if (skip(Keyword::as) && peek().kind == Token::Kind::literal) take();
      return true;
    case Keyword::global:
      once(entry, kGlobal, take());
      checkIsRecord(item, token);
      return true;
    case Keyword::volatileWord:
      once(entry, kVolatile, take());
      return true;
    case Keyword::is:
      // IS EXTERNAL, IS GLOBAL
      if (!peek(1).is(Keyword::external) && !peek(1).is(Keyword::global)) return false;
      take();
      return true;
  }
}

void Parser::once(Entry& entry, Clause clause, Token const& token) {
  if ((entry.seen & clause) != 0) {
    error(Code::duplicateClause, token.place,
          "the entry has two " + upperCase(token.text) + " clauses");
  }
  entry.seen |= clause;
}

// Storage is shared between programs by whole records.
void Parser::checkIsRecord(DataItem const& item, Token const& clause) {
  if (item.level == 1 || item.level == kSingleLevel) return;
  error(Code::clause, clause.place, upperCase(clause.text) + " needs an item of level 01 or 77");
}

// A clause's word is a name only where the clause couldn't go on.
bool Parser::isClauseNext() {
  if (!beginsClause(peek().keyword)) return false;
  Token const& following = peek(1);
  bool isEnd = following.kind == Token::Kind::period || following.kind == Token::Kind::end ||
               (following.kind == Token::Kind::word && beginsClause(following.keyword));
  return peek().is(Keyword::picture) || !isEnd;
}

bool Parser::parseName(std::string_view& name) {
  if (peek().kind != Token::Kind::word || isClauseNext()) {
    error(Code::name, peek().place, "a name is missing before " + describe(peek()));
    return false;
  }
  name = takeName().text;
  return true;
}

QualifiedName Parser::parseQualifiedName() {
  QualifiedName name;
  name.place = peek().place;
  if (!parseName(name.name)) return name;
  while (peek().is(Keyword::of) || peek().is(Keyword::in)) {
    take();
    std::string_view qualifier;
    if (!parseName(qualifier)) break;
    name.qualifiers.push_back(qualifier);
  }
  return name;
}

void Parser::parseRedefines(Entry& entry) {
  entry.item->isRedefinition = true;
  entry.item->related = std::make_unique<QualifiedName>(parseQualifiedName());
  if (entry.item->related->name.empty()) entry.item->isIncomplete = true;
}

void Parser::parsePicture(Entry& entry) {
  skip(Keyword::is);
  Token token = peek();
  if (token.kind != Token::Kind::picture) {
    error(Code::picture, m_lastToken.place, "the picture is missing");
    entry.item->isIncomplete = true;
    return;
  }
  take();
  auto [known, isNew] = m_pictures.try_emplace(std::string(token.text), nullptr);
  if (isNew) {
    auto constant = [this](std::string_view name) { return m_constants.integer(name); };
    known->second =
        &m_data.pictures.emplace_back(analysePicture(token.text, m_pictureRules, constant));
  }
  Picture const& picture = *known->second;
  for (std::string const& each : picture.errors) error(Code::picture, token.place, each);
  for (std::string const& each : picture.warnings) {
    error(Code::pictureWarning, token.place, each);
  }
  entry.item->picture = &picture;
  entry.item->picturePlace = token.place;
  // Taken back before the constant is known, a picture must be read again.
  if (!picture.isValid()) m_pictures.erase(known);
}

void Parser::parseUsage(Entry& entry, Token const& token) {
  Usage usage = *usageOf(token.keyword);
  switch (usage) {
    case Usage::binaryChar:
    case Usage::binaryShort:
    case Usage::binaryLong:
    case Usage::binaryDouble:
    case Usage::binaryCLong:
    case Usage::binaryInt:
      if (!skip(Keyword::signedWord) && skip(Keyword::unsignedWord)) entry.item->isUnsigned = true;
      break;
    case Usage::object:
      skip(Keyword::reference);
      if (peek().kind == Token::Kind::word && peek().keyword == Keyword::none) take();
      break;
    case Usage::pointer:
    case Usage::programPointer:
    case Usage::procedurePointer:
    case Usage::functionPointer:
      if (skip(Keyword::to)) take();
      break;
    case Usage::handle:
      // HANDLE OF WINDOW, HANDLE OF FONT LARGE-FONT
      if (!skip(Keyword::of)) break;
      while (peek().kind == Token::Kind::word && !beginsClause(peek().keyword)) take();
      break;
    case Usage::display:
      // DISPLAY NATIVE
      skipWord("NATIVE");
      break;
    default:
      break;
  }
  entry.item->usage = usage;
}

void Parser::parseSign(Entry& entry, Token const& token) {
  entry.item->sign.position =
      token.is(Keyword::leading) ? SignPosition::leading : SignPosition::trailing;
  entry.item->sign.isSeparate = skip(Keyword::separate);
  skip(Keyword::character);
}

void Parser::parseBlank() {
  skip(Keyword::when);
  skip(Keyword::is);
  if (!skip(Keyword::zero)) {
    error(Code::syntax, peek().place, "BLANK is not followed by ZERO");
  }
}

}  // namespace fdmorph::compiler
