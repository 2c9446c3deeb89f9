// The OCCURS clause.
#include "syntax/parser.h"
#include "text/letter_case.h"

namespace fdmorph::compiler {
namespace {

constexpr std::uint64_t kMaxOccurrences = 0x7FFFFFFF;

}  // namespace

// A number or the name of a constant.
bool Parser::parseCount(std::uint64_t& count) {
  Token token = peek();
  std::optional<std::uint64_t> value;
  if (token.kind == Token::Kind::number) value = integerOf(token.text);
  if (token.kind == Token::Kind::word) value = m_constants.integer(token.text);
  if (!value || *value > kMaxOccurrences) {
    error(Code::occurs, token.place, describe(token) + " is no number of occurrences");
    bool isWrongName = token.kind == Token::Kind::word && token.keyword == Keyword::none;
    if (token.kind == Token::Kind::number || isWrongName) take();
    return false;
  }
  take();
  count = *value;
  return true;
}

void Parser::parseOccurs(Entry& entry, Token const& token) {
  auto occurs = std::make_unique<OccursClause>();
  occurs->place = token.place;
  bool isCounted = true;
  if (skip(Keyword::dynamic)) {
    error(Code::occurs, token.place, "tables of dynamic capacity are not supported");
  } else {
    isCounted = parseCount(occurs->most);
  }
  occurs->least = occurs->most;
  bool hasRange = skip(Keyword::to);
  // What the caller hands over may be of any length.
  bool isUnbounded = hasRange && m_section == Section::linkage && skipWord("UNBOUNDED");
  if (hasRange && !isUnbounded) isCounted &= parseCount(occurs->most);
  skip(Keyword::times);
  parseOccursPhrases(*occurs);
  if (!isCounted || isUnbounded) {
    occurs->least = occurs->most = 1;
  } else if (occurs->most == 0) {
    error(Code::occurs, token.place, "the table occurs zero times");
    occurs->most = 1;
  } else if (occurs->least > occurs->most || (hasRange && occurs->least == occurs->most)) {
    error(Code::occurs, token.place, "OCCURS runs from a number to a smaller or equal one");
    occurs->least = occurs->most;
  } else if (hasRange && !occurs->isDepending) {
    error(Code::occurs, token.place, "OCCURS with TO needs DEPENDING ON");
  }
  if (!hasRange && occurs->isDepending) occurs->least = 1;
  entry.item->occurs = std::move(occurs);
}

// DEPENDING ON, ASCENDING and DESCENDING KEY, INDEXED BY, in any order.
void Parser::parseOccursPhrases(OccursClause& occurs) {
  auto isNameListed = [this] {
    return peek().kind == Token::Kind::word && !beginsClause(peek().keyword) &&
           !usageOf(peek().keyword) && !peek().is(Keyword::ascending) &&
           !peek().is(Keyword::descending) && !peek().is(Keyword::indexed) &&
           !peek().is(Keyword::depending);
  };
  for (;;) {
    if (skip(Keyword::depending)) {
      skip(Keyword::on);
      occurs.isDepending = true;
      occurs.depending = parseQualifiedName();
    } else if (skip(Keyword::ascending) || skip(Keyword::descending)) {
      skip(Keyword::key);
      skip(Keyword::is);
      if (!isNameListed()) parseQualifiedName();  // reports what is missing
      while (isNameListed()) occurs.keys.push_back(parseQualifiedName());
    } else if (skip(Keyword::indexed)) {
      skip(Keyword::by);
      std::string_view name;
      parseName(name);
      while (isNameListed()) take();
    } else {
      return;
    }
  }
}

}  // namespace fdmorph::compiler
