// The rules of a user that choose views and records:
//
//   NAME: ITEM = LITERAL [, LITERAL]... [AND ITEM = ...]...
//   NAME: CONDITION-NAME
//   NAME:
//
// A name may be qualified with OF or IN; a literal may be a range with THRU.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "layout/record_set.h"

namespace fdmorph::layout {

/// Reads one rule. To be used once.
class RuleParser {
 public:
  /// Texts of literals go to `texts`. All objects must outlive this one.
  RuleParser(std::vector<Layout> const& layouts, std::deque<std::string>& texts)
      : m_layouts(layouts), m_texts(texts) {}

  /// The rule, or nothing and an error.
  [[nodiscard]] std::optional<ViewRule> parse(std::string_view text);

  /// What is wrong, as in "RULE: expected ..., found ...".
  [[nodiscard]] std::string const& error() const { return m_error; }

 private:
  struct Token {
    enum class Kind { end, word, number, text, sign } kind = Kind::end;
    std::string_view text;
  };
  struct Name {
    std::string_view name;
    std::vector<std::string_view> qualifiers;
  };
  struct Condition {
    std::uint32_t node = kNone;
    compiler::DataItem const* item = nullptr;
    bool isAmbiguous = false;
  };

  void advance();
  [[nodiscard]] bool isWord(std::string_view word) const;
  [[nodiscard]] bool isSign(char sign) const;
  void fail(std::string text);
  void expect(std::string_view what);
  std::optional<Name> parseName();
  void findTarget(Name const& name);
  void parseTest();
  void parseComparison(Name const& name);
  std::optional<compiler::Literal> parseLiteral();
  std::uint32_t findItem(Name const& name);
  [[nodiscard]] Condition findCondition(Name const& name, std::uint32_t record) const;
  [[nodiscard]] std::vector<std::uint32_t> searchedRecords() const;
  bool isOfTarget(std::uint32_t node);

  std::vector<Layout> const& m_layouts;
  std::deque<std::string>& m_texts;
  std::string_view m_rule;
  std::string_view m_rest;
  Token m_token;
  ViewRule m_result{kNone, kNone, kNone, {}};
  std::string m_error;
};

}  // namespace fdmorph::layout
