#include "syntax/name_parser.h"

#include <algorithm>

#include "text/letter_case.h"

namespace fdmorph::compiler {
namespace {

constexpr std::size_t kMaxNameLength = 63;

// Why a word cannot be a name; null if it can.
char const* faultOfName(std::string_view name) {
  if (name.size() > kMaxNameLength) return "is longer than 63 characters";
  if (name.front() == '-' || name.front() == '_') return "begins with a hyphen or underscore";
  if (name.back() == '-' || name.back() == '_') return "ends in a hyphen or underscore";
  for (char c : name) {
    bool isNameLetter = isLetter(c) || static_cast<unsigned char>(c) >= 0x80;
    if (isNameLetter) return nullptr;
  }
  return "has no letter";
}

// The first tag in a name, with its colons.
std::string_view tagOf(std::string_view name) {
  std::size_t begin = std::min(name.find(':'), name.size());
  std::size_t end = name.find(':', std::min(begin + 1, name.size()));
  return name.substr(begin, end == std::string_view::npos ? end : end - begin + 1);
}

}  // namespace

Token NameParser::takeName() {
  Token name = m_tokens.take();
  if (name.text.find(':') == std::string_view::npos) return name;
  std::string_view tag = tagOf(name.text);
  if (m_data.isProgram) {
    m_tokens.error(Code::name, name.place,
                   "tag " + quoted(tag) + " in name " + quoted(name.text) + " is not replaced");
    name.text = {};
    return name;
  }
  if (m_tags.insert(tag).second) {
    m_tokens.error(Code::tag, name.place,
                   "tag " + quoted(tag) + " is not replaced; its letters become part of the name");
  }
  std::string letters(name.text);
  std::erase(letters, ':');
  name.text = m_pool.append(letters);
  return name;
}

void NameParser::check(Token const& name) {
  if (name.text.empty()) return;  // reported as a tag
  if (char const* fault = faultOfName(name.text)) {
    m_tokens.error(Code::name, name.place, "name " + quoted(name.text) + " " + fault);
  }
}

// A word that begins a clause is a name where the clause could not go on.
bool NameParser::isClause() {
  if (!beginsClause(m_tokens.peek().keyword)) return false;
  Token const& following = m_tokens.peek(1);
  bool isEnd = following.kind == Token::Kind::period || following.kind == Token::Kind::end ||
               (following.kind == Token::Kind::word && beginsClause(following.keyword));
  return m_tokens.peek().is(Keyword::picture) || !isEnd;
}

std::optional<std::string_view> NameParser::parse() {
  if (!m_tokens.isWord() || isClause()) {
    m_tokens.error(Code::name, m_tokens.peek().place,
                   "expected a name before " + describe(m_tokens.peek()));
    return std::nullopt;
  }
  return takeName().text;
}

QualifiedName NameParser::parseQualified() {
  QualifiedName name;
  name.place = m_tokens.peek().place;
  std::optional<std::string_view> first = parse();
  if (!first) return name;
  name.name = *first;
  while (m_tokens.skip(Keyword::of) || m_tokens.skip(Keyword::in)) {
    std::optional<std::string_view> qualifier = parse();
    if (!qualifier) break;
    name.qualifiers.push_back(*qualifier);
  }
  return name;
}

}  // namespace fdmorph::compiler
