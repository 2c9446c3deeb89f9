#include "preprocess/conditional_compilation.h"

#include <algorithm>

#include "source/diagnostics.h"
#include "source/literals.h"

namespace fdmorph::compiler {
namespace {

bool isSign(TextWord const& word) {
  return word.is('+') || (word.kind == TextWord::Kind::word && word.text == "-");
}

std::string_view withoutTrailing(std::string_view text, char filler) {
  std::size_t last = text.find_last_not_of(filler);
  return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

/// A decimal number of any length, for comparison.
struct Decimal {
  explicit Decimal(std::string_view text) {
    bool isMinus = !text.empty() && text.front() == '-';
    if (isMinus || (!text.empty() && text.front() == '+')) text.remove_prefix(1);
    std::size_t point = std::min(text.find('.'), text.size());
    whole = text.substr(0, point);
    whole.remove_prefix(std::min(whole.find_first_not_of('0'), whole.size()));
    fraction = withoutTrailing(text.substr(std::min(point + 1, text.size())), '0');
    bool isZero = whole.empty() && fraction.empty();
    sign = isZero ? 0 : isMinus ? -1 : 1;
  }

  std::string_view whole;     // without leading zeros
  std::string_view fraction;  // without trailing zeros
  int sign = 0;
};

int signOf(int order) {
  return order < 0 ? -1 : order > 0 ? 1 : 0;
}

int compareNumbers(std::string_view left, std::string_view right) {
  Decimal a(left);
  Decimal b(right);
  if (a.sign != b.sign) return a.sign - b.sign;
  if (a.whole.size() != b.whole.size()) return a.whole.size() < b.whole.size() ? -a.sign : a.sign;
  int order = a.whole.compare(b.whole);
  if (order == 0) order = a.fraction.compare(b.fraction);
  return signOf(order) * a.sign;
}

constexpr int kMaxDepth = 64;  // of parentheses and NOTs

/// The orders of two values for which a relation holds.
struct Relation {
  bool isLess = false;
  bool isEqual = false;
  bool isGreater = false;

  bool holds(int order) const {
    return (order < 0 && isLess) || (order == 0 && isEqual) || (order > 0 && isGreater);
  }
};

/// Reads and evaluates a condition. After an error it reads no further.
class Evaluator {
 public:
  Evaluator(std::vector<TextWord> const& words, std::size_t begin,
            CompileVariables const& variables)
      : m_words(words), m_at(begin), m_variables(variables) {}

  ConditionResult evaluate() {
    m_result.isTrue = readCondition();
    if (isValid() && m_at < m_words.size()) failAtWord("unexpected ", " after the condition");
    return m_result;
  }

 private:
  /// An operand: a value, or a name, which may have none.
  struct Operand {
    std::optional<CompileValue> value;
    bool isName = false;
  };

  bool isValid() const { return m_result.error.empty(); }

  std::string wordNext() const {
    return m_at < m_words.size() ? quoted(m_words[m_at].text) : "the end of the line";
  }

  bool fail(std::string text) {
    if (!isValid()) return false;
    m_result.error = std::move(text);
    m_result.errorIndex = m_at;
    return false;
  }

  bool failAtWord(std::string const& before, std::string const& after = {}) {
    return fail(before + wordNext() + after);
  }

  bool skip(std::string_view word) {
    bool isThere = m_at < m_words.size() && m_words[m_at].isWord(word);
    m_at += isThere ? 1U : 0U;
    return isThere;
  }
  bool skip(char symbol) {
    bool isThere = m_at < m_words.size() && m_words[m_at].is(symbol);
    m_at += isThere ? 1U : 0U;
    return isThere;
  }

  bool readCondition() {
    bool result = readConjunction();
    while (isValid() && skip("OR")) result = readConjunction() || result;
    return result;
  }

  bool readConjunction() {
    bool result = readNegation();
    while (isValid() && skip("AND")) result = readNegation() && result;
    return result;
  }

  bool readNegation() {
    if (++m_depth > kMaxDepth) return fail("condition is nested too deeply");
    bool result = false;
    if (skip("NOT")) {
      result = !readNegation();
    } else if (skip('(')) {
      result = readCondition();
      if (isValid() && !skip(')')) failAtWord("expected ')' before ");
    } else {
      result = readRelation();
    }
    --m_depth;
    return result;
  }

  std::optional<Operand> readOperand() {
    if (std::optional<ReadValue> read = readCompileValue(m_words, m_at)) {
      m_at = read->end;
      return Operand{std::move(read->value), false};
    }
    bool isName = m_at < m_words.size() && m_words[m_at].kind == TextWord::Kind::word;
    if (!isName) {
      failAtWord("expected a name, number or literal, found ");
      return std::nullopt;
    }
    auto found = m_variables.find(m_words[m_at++].text);
    if (found == m_variables.end()) return Operand{std::nullopt, true};
    return Operand{found->second, true};
  }

  bool readRelation() {
    std::optional<Operand> left = readOperand();
    if (!left) return false;
    skip("IS");
    bool isNegated = skip("NOT");
    if (left->isName && (skip("DEFINED") || skip("SET"))) {
      return left->value.has_value() != isNegated;
    }
    std::optional<Relation> relation = readRelationName();
    if (!relation) return failAtWord("expected a relational operator, found ");
    std::size_t second = m_at;
    std::optional<Operand> right = readOperand();
    if (!right) return false;
    // A name without a value, as that of a parameter, equals nothing.
    if (!left->value || !right->value) return isNegated;
    if (left->value->isNumber != right->value->isNumber) {
      m_at = second;
      return failAtWord(left->value->isNumber ? "expected a number to compare with, found "
                                              : "expected a literal to compare with, found ");
    }
    return relation->holds(compareCompileValues(*left->value, *right->value)) != isNegated;
  }

  std::optional<Relation> readRelationName() {
    Relation relation;
    if (skip('=')) {
      relation.isEqual = true;
    } else if (skip('<')) {
      relation.isLess = true;
      relation.isGreater = skip('>');
      relation.isEqual = !relation.isGreater && skip('=');
    } else if (skip('>')) {
      relation.isGreater = true;
      relation.isEqual = skip('=');
    } else if (skip("EQUAL") || skip("EQUALS")) {
      relation.isEqual = true;
      skip("TO");
    } else if (skip("LESS")) {
      relation.isLess = true;
      relation.isEqual = readOrEqual();
    } else if (skip("GREATER")) {
      relation.isGreater = true;
      relation.isEqual = readOrEqual();
    } else {
      return std::nullopt;
    }
    return relation;
  }

  // THAN, THAN OR EQUAL TO
  bool readOrEqual() {
    skip("THAN");
    bool isOrEqual = m_at + 1 < m_words.size() && m_words[m_at].isWord("OR") &&
                     m_words[m_at + 1].isWord("EQUAL");
    if (!isOrEqual) return false;
    m_at += 2;
    skip("TO");
    return true;
  }

  std::vector<TextWord> const& m_words;
  std::size_t m_at;
  CompileVariables const& m_variables;
  ConditionResult m_result;
  int m_depth = 0;
};

}  // namespace

std::optional<ReadValue> readCompileValue(std::vector<TextWord> const& words, std::size_t at) {
  std::string number;
  if (at < words.size() && isSign(words[at])) number += words[at++].text;
  if (at >= words.size()) return std::nullopt;
  if (words[at].kind == TextWord::Kind::literal && number.empty() && !words[at].isOpen) {
    return ReadValue{{decodeLiteral(words[at].text).text, false}, at + 1};
  }
  std::string_view digits = words[at].text;
  // A hyphen is a character of the word that follows it.
  if (number.empty() && digits.size() > 1 && digits.front() == '-') digits.remove_prefix(1);
  if (words[at].kind != TextWord::Kind::word || !isAllDigits(digits)) return std::nullopt;
  number += words[at++].text;
  bool hasFraction = at + 1 < words.size() && words[at].is('.') && !words[at].precededBySpace &&
                     !words[at + 1].precededBySpace && isAllDigits(words[at + 1].text);
  if (hasFraction) {
    (number += '.') += words[at + 1].text;
    at += 2;
  }
  return ReadValue{{std::move(number), true}, at};
}

int compareCompileValues(CompileValue const& left, CompileValue const& right) {
  if (left.isNumber) return compareNumbers(left.text, right.text);
  return signOf(withoutTrailing(left.text, ' ').compare(withoutTrailing(right.text, ' ')));
}

ConditionResult evaluateCondition(std::vector<TextWord> const& words, std::size_t begin,
                                  CompileVariables const& variables) {
  return Evaluator(words, begin, variables).evaluate();
}

void ConditionalText::apply(TextWord const& mark, std::vector<TextWord> const& words) {
  if (words.empty()) return;
  TextWord const& verb = words.front();
  if (verb.isWord("IF")) {
    open(mark, words);
  } else if (verb.isWord("ELSE") || verb.isWord("ELIF") || verb.isWord("ELSE-IF")) {
    change(mark, words);
  } else if (verb.isWord("END-IF") || verb.isWord("END")) {
    close(mark);
  } else if (isSkipping()) {
    return;
  } else if (verb.isWord("DEFINE")) {
    define(mark, words);
  } else {
    setConstants(words);
  }
}

bool ConditionalText::isTrue(TextWord const& mark, std::vector<TextWord> const& words) {
  ConditionResult result = evaluateCondition(words, 1, m_variables);
  if (result.error.empty()) return result.isTrue;
  report(result.errorIndex < words.size() ? words[result.errorIndex].place : mark.place,
         result.error);
  return false;
}

void ConditionalText::open(TextWord const& mark, std::vector<TextWord> const& words) {
  Branch branch;
  branch.place = mark.place;
  branch.isOutside = isSkipping();
  branch.isTaken = !branch.isOutside && isTrue(mark, words);
  branch.isDone = branch.isTaken;
  m_branches.push_back(branch);
}

void ConditionalText::change(TextWord const& mark, std::vector<TextWord> const& words) {
  bool isElse = words.front().isWord("ELSE");
  if (m_branches.empty() || m_branches.back().isLast) {
    report(mark.place, upperCase(words.front().text) + " without IF");
    return;
  }
  Branch& branch = m_branches.back();
  branch.isLast = isElse;
  // Conditions after a branch that was taken are not evaluated.
  bool isCandidate = !branch.isOutside && !branch.isDone;
  branch.isTaken = isCandidate && (isElse || isTrue(mark, words));
  branch.isDone |= branch.isTaken;
}

void ConditionalText::close(TextWord const& mark) {
  if (m_branches.empty()) {
    report(mark.place, "END-IF without IF");
    return;
  }
  m_branches.pop_back();
}

void ConditionalText::end() {
  for (Branch const& each : m_branches) report(each.place, "IF without END-IF");
  m_branches.clear();
}

// A value becomes a literal wherever the name stands.
bool ConditionalText::isTooLong(TextWord const& name, CompileValue const& value) {
  if (value.text.size() <= kMaxLiteralSize) return false;
  report(name.place, "value of " + quoted(name.text) + " is longer than " +
                         std::to_string(kMaxLiteralSize) + " bytes");
  return true;
}

// DEFINE [CONSTANT] name [AS] value [OVERRIDE], with OFF or PARAMETER in place of
// the value. Parameters cannot be set and stay undefined.
void ConditionalText::define(TextWord const& mark, std::vector<TextWord> const& words) {
  std::size_t at = 1;
  auto skip = [&](std::string_view word) {
    bool isThere = at < words.size() && words[at].isWord(word);
    at += isThere ? 1U : 0U;
    return isThere;
  };
  if (at + 1 < words.size() && !words[at + 1].isWord("AS")) skip("CONSTANT");
  if (at >= words.size() || words[at].kind != TextWord::Kind::word) {
    report(mark.place, "expected a name after DEFINE");
    return;
  }
  TextWord const& name = words[at++];
  if (!skip("AS")) skip("IS");
  if (skip("PARAMETER")) return;
  if (skip("OFF")) {
    m_variables.erase(std::string(name.text));
    return;
  }
  CompileValue value;
  if (std::optional<ReadValue> read = readCompileValue(words, at)) {
    value = std::move(read->value);
    at = read->end;
  } else {
    auto other = at < words.size() ? m_variables.find(words[at].text) : m_variables.end();
    if (other == m_variables.end()) {
      report(name.place, "expected a value for " + quoted(name.text));
      return;
    }
    value = other->second;
    ++at;
  }
  if (isTooLong(name, value)) return;
  bool isOverride = skip("OVERRIDE");
  auto [known, isNew] = m_variables.try_emplace(std::string(name.text), value);
  if (!isNew && !isOverride && known->second != value) {
    report(name.place, quoted(name.text) + " is already defined with another value");
    return;
  }
  known->second = value;
}

// SET CONSTANT name(value), name=value or name value. Other settings are ignored.
void ConditionalText::setConstants(std::vector<TextWord> const& words) {
  for (std::size_t i = 0; i + 2 < words.size(); ++i) {
    if (!words[i].isWord("CONSTANT")) continue;
    std::size_t at = i + 1;
    TextWord const& name = words[at++];
    if (words[at].is('(') || words[at].is('=')) ++at;
    std::optional<ReadValue> read = readCompileValue(words, at);
    if (!read || isTooLong(name, read->value)) continue;
    m_variables[std::string(name.text)] = std::move(read->value);
  }
}

}  // namespace fdmorph::compiler
