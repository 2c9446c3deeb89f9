#include "layout/rule_parser.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "source/diagnostics.h"
#include "text/letter_case.h"

namespace fdmorph::layout {
namespace {

using compiler::DataItem;
using compiler::Literal;
using compiler::quoted;

struct Figurative {
  std::string_view name;
  Literal::Kind kind;
};

constexpr std::array kFiguratives{
    Figurative{"HIGH-VALUE", Literal::Kind::highValue},
    Figurative{"HIGH-VALUES", Literal::Kind::highValue},
    Figurative{"LOW-VALUE", Literal::Kind::lowValue},
    Figurative{"LOW-VALUES", Literal::Kind::lowValue},
    Figurative{"QUOTE", Literal::Kind::quote},
    Figurative{"QUOTES", Literal::Kind::quote},
    Figurative{"SPACE", Literal::Kind::space},
    Figurative{"SPACES", Literal::Kind::space},
    Figurative{"ZERO", Literal::Kind::zero},
    Figurative{"ZEROES", Literal::Kind::zero},
    Figurative{"ZEROS", Literal::Kind::zero},
};

bool isBlank(char c) {
  return c == ' ' || c == '\t';
}

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

bool isWordCharacter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '-' || c == '_' ||
         (static_cast<unsigned char>(c) & 0x80U) != 0;
}

// The length of a number at the beginning of a text: [sign] digits [. digits].
std::size_t numberSize(std::string_view text) {
  std::size_t at = !text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
  std::size_t begin = at;
  while (at < text.size() && isDigit(text[at])) ++at;
  std::size_t digits = at - begin;
  if (at + 1 < text.size() && text[at] == '.' && isDigit(text[at + 1])) {
    begin = ++at;
    while (at < text.size() && isDigit(text[at])) ++at;
    digits += at - begin;
  }
  bool isNumber = digits > 0 && (at == text.size() || !isWordCharacter(text[at]));
  return isNumber ? at : 0;
}

// The length of a literal in quotes, with its prefix; 0 if there is none or it is open.
std::size_t textSize(std::string_view text) {
  std::size_t open = text.find_first_of("'\"");
  if (open == std::string_view::npos || open > 2) return 0;
  for (std::size_t i = 0; i < open; ++i) {
    if (std::isalpha(static_cast<unsigned char>(text[i])) == 0) return 0;
  }
  char quote = text[open];
  for (std::size_t at = open + 1; at < text.size(); ++at) {
    if (text[at] != quote) continue;
    if (at + 1 < text.size() && text[at + 1] == quote) {
      ++at;
    } else {
      return at + 1;
    }
  }
  return 0;
}

// Whether an item is called so: its own name, and names of groups around it.
bool isCalled(DataItem const* item, std::string_view name,
              std::vector<std::string_view> const& qualifiers) {
  if (!equalsIgnoringCase(item->name, name)) return false;
  DataItem const* group = item->parent;
  for (std::string_view qualifier : qualifiers) {
    while (group != nullptr && !equalsIgnoringCase(group->name, qualifier)) group = group->parent;
    if (group == nullptr) return false;
    group = group->parent;
  }
  return true;
}

}  // namespace

void RuleParser::fail(std::string text) {
  if (m_error.empty()) m_error = "rule " + quoted(m_rule) + ": " + std::move(text);
}

void RuleParser::expect(std::string_view what) {
  std::string found = m_token.kind == Token::Kind::end ? "its end" : quoted(m_token.text);
  fail("expected " + std::string(what) + ", found " + found);
}

void RuleParser::advance() {
  while (!m_rest.empty() && isBlank(m_rest.front())) m_rest.remove_prefix(1);
  if (m_rest.empty()) {
    m_token = {};
    return;
  }
  std::size_t size = textSize(m_rest);
  Token::Kind kind = Token::Kind::text;
  if (size == 0) {
    size = numberSize(m_rest);
    kind = Token::Kind::number;
  }
  if (size == 0) {
    kind = Token::Kind::word;
    while (size < m_rest.size() && isWordCharacter(m_rest[size])) ++size;
  }
  if (size == 0) {
    kind = Token::Kind::sign;
    size = 1;
  }
  m_token = {kind, m_rest.substr(0, size)};
  m_rest.remove_prefix(size);
}

bool RuleParser::isWord(std::string_view word) const {
  return m_token.kind == Token::Kind::word && equalsIgnoringCase(m_token.text, word);
}

bool RuleParser::isSign(char sign) const {
  return m_token.kind == Token::Kind::sign && m_token.text.front() == sign;
}

std::optional<ViewRule> RuleParser::parse(std::string_view text) {
  m_rule = text;
  m_rest = text;
  advance();
  std::optional<Name> name = parseName();
  if (name) {
    if (!isSign(':')) expect("':'");
    findTarget(*name);
    advance();
    if (m_error.empty() && m_token.kind != Token::Kind::end) parseTest();
  }
  if (!m_error.empty()) return std::nullopt;
  return std::move(m_result);
}

std::optional<RuleParser::Name> RuleParser::parseName() {
  bool isName = m_token.kind == Token::Kind::word || m_token.kind == Token::Kind::number;
  if (!isName) {
    expect("a name");
    return std::nullopt;
  }
  Name name{m_token.text, {}};
  advance();
  while (isWord("OF") || isWord("IN")) {
    advance();
    if (m_token.kind != Token::Kind::word) {
      expect("a name");
      return std::nullopt;
    }
    name.qualifiers.push_back(m_token.text);
    advance();
  }
  return name;
}

void RuleParser::findTarget(Name const& name) {
  for (std::uint32_t i = 0; i < m_layouts.size(); ++i) {
    if (!name.qualifiers.empty() || !isCalled(m_layouts[i].item(0).item, name.name, {})) continue;
    m_result.chosen = i;
    return;
  }
  for (std::uint32_t i = 0; i < m_layouts.size(); ++i) {
    for (std::uint32_t node = 1; node < m_layouts[i].nodes().size(); ++node) {
      if (m_layouts[i][node].area == kNone) continue;
      if (!isCalled(m_layouts[i].item(node).item, name.name, name.qualifiers)) continue;
      if (m_result.target != kNone) {
        fail(quoted(name.name) + " is ambiguous");
        return;
      }
      m_result.record = i;
      m_result.target = node;
    }
  }
  if (m_result.target == kNone) {
    fail(quoted(name.name) + " is neither a record nor an item that redefines or is redefined");
  }
}

// Where items of the test are searched: a view in its own record, a record in all.
std::vector<std::uint32_t> RuleParser::searchedRecords() const {
  if (m_result.record != kNone) return {m_result.record};
  std::vector<std::uint32_t> all(m_layouts.size());
  for (std::uint32_t i = 0; i < all.size(); ++i) all[i] = i;
  return all;
}

void RuleParser::parseTest() {
  std::optional<Name> name = parseName();
  if (!name) return;
  if (!isSign('=')) {
    if (m_token.kind != Token::Kind::end) return expect("'='");
    for (std::uint32_t record : searchedRecords()) {
      Condition found = findCondition(*name, record);
      if (found.isAmbiguous) return fail("condition " + quoted(name->name) + " is ambiguous");
      if (found.item == nullptr) continue;
      m_result.record = record;
      if (isOfTarget(found.node)) m_result.comparisons.push_back({found.node, found.item->values});
      return;
    }
    return fail("there is no condition " + quoted(name->name));
  }
  while (name && m_error.empty()) {
    if (!isSign('=')) return expect("'='");
    advance();
    parseComparison(*name);
    if (!m_error.empty() || m_token.kind == Token::Kind::end) return;
    if (!isWord("AND")) return expect("',' or AND");
    advance();
    name = parseName();
  }
}

void RuleParser::parseComparison(Name const& name) {
  Comparison comparison{findItem(name), {}};
  while (m_error.empty()) {
    std::optional<Literal> from = parseLiteral();
    if (!from) return;
    compiler::ValueRange range{*from, {}};
    if (isWord("THRU") || isWord("THROUGH")) {
      advance();
      std::optional<Literal> to = parseLiteral();
      if (!to) return;
      range.to = *to;
    }
    comparison.values.push_back(range);
    if (!isSign(',')) break;
    advance();
  }
  m_result.comparisons.push_back(std::move(comparison));
}

std::optional<Literal> RuleParser::parseLiteral() {
  Literal literal{};
  if (isWord("ALL")) {
    literal.isAll = true;
    advance();
  }
  if (m_token.kind == Token::Kind::word) {
    auto row = std::ranges::find_if(kFiguratives, [this](Figurative const& each) {
      return equalsIgnoringCase(each.name, m_token.text);
    });
    if (row != kFiguratives.end()) literal.kind = row->kind;
  } else if (m_token.kind == Token::Kind::text) {
    literal.kind = Literal::Kind::text;
  } else if (m_token.kind == Token::Kind::number && !literal.isAll) {
    literal.kind = Literal::Kind::number;
  }
  if (literal.kind == Literal::Kind::none) {
    expect("a literal");
    return std::nullopt;
  }
  literal.text = m_texts.emplace_back(m_token.text);
  advance();
  return literal;
}

std::uint32_t RuleParser::findItem(Name const& name) {
  for (std::uint32_t record : searchedRecords()) {
    std::uint32_t found = kNone;
    for (std::uint32_t node = 0; node < m_layouts[record].nodes().size(); ++node) {
      if (!isCalled(m_layouts[record].item(node).item, name.name, name.qualifiers)) continue;
      if (found != kNone) {
        fail("item " + quoted(name.name) + " is ambiguous");
        return kNone;
      }
      found = node;
    }
    if (found == kNone) continue;
    m_result.record = record;
    return isOfTarget(found) ? found : kNone;
  }
  fail("there is no item " + quoted(name.name));
  return kNone;
}

RuleParser::Condition RuleParser::findCondition(Name const& name, std::uint32_t record) const {
  Condition found;
  Layout const& layout = m_layouts[record];
  for (std::uint32_t node = 0; node < layout.nodes().size(); ++node) {
    DataItem const* item = layout.item(node).item;
    for (DataItem const* each = item->firstCondition; each != nullptr; each = each->next) {
      if (!equalsIgnoringCase(each->name, name.name)) continue;
      bool isQualified = true;
      if (!name.qualifiers.empty()) {
        std::vector<std::string_view> others(name.qualifiers.begin() + 1, name.qualifiers.end());
        isQualified = isCalled(item, name.qualifiers.front(), others) ||
                      isCalled(item, item->name, name.qualifiers);
      }
      if (!isQualified) continue;
      found.isAmbiguous = found.item != nullptr;
      found.item = each;
      found.node = node;
    }
  }
  return found;
}

// An item in a table is one of the same occurrence, so the target must be in it, too.
bool RuleParser::isOfTarget(std::uint32_t node) {
  Layout const& layout = m_layouts[m_result.record];
  std::uint32_t table = layout[node].repeats ? node : layout[node].table;
  if (table == kNone) return true;
  if (m_result.target != kNone) {
    for (std::uint32_t each = layout[m_result.target].table; each != kNone;
         each = layout[each].table) {
      if (each == table) return true;
    }
  }
  fail("item " + quoted(record::dataNameOf(*layout.item(node).item)) +
       " is in a table that does not contain what the rule chooses");
  return false;
}

}  // namespace fdmorph::layout
