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

/// A decimal number, comparable at any length.
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

constexpr int kMaxDepth = 64;  // parentheses and NOTs within each other

/// How two values may lie for a comparison to hold.
struct Relation {
  bool isLess = false;
  bool isEqual = false;
  bool isGreater = false;

  bool holds(int order) const {
    return (order < 0 && isLess) || (order == 0 && isEqual) || (order > 0 && isGreater);
  }
};

class Evaluator {
 public:
  Evaluator(std::vector<TextWord> const& words, std::size_t begin,
            CompileVariables const& variables)
      : m_words(words), m_at(begin), m_variables(variables) {}

  ConditionResult evaluate() {
    m_result.isTrue = readCondition();
    if (isRight() && m_at < m_words.size()) fail("doesn't fit into the condition");
    return m_result;
  }

 private:
  bool isRight() const { return m_result.error.empty(); }

  bool fail(char const* text) {
    if (!isRight()) return false;
    bool isEnd = m_at >= m_words.size();
    m_result.error = (isEnd ? "the end of the line" : quoted(m_words[m_at].text)) + " " + text;
    m_result.place = m_at;
    return false;
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
    while (isRight() && skip("OR")) result = readConjunction() || result;
    return result;
  }

  bool readConjunction() {
    bool result = readNegation();
    while (isRight() && skip("AND")) result = readNegation() && result;
    return result;
  }

  bool readNegation() {
    if (++m_depth > kMaxDepth) return fail("is nested too deeply");
    bool result = false;
    if (skip("NOT")) {
      result = !readNegation();
    } else if (skip('(')) {
      result = readCondition();
      if (isRight() && !skip(')')) fail("stands where ')' is missing");
    } else {
      result = readRelation();
    }
    --m_depth;
    return result;
  }

  bool readRelation() {
    CompileValue left;
    bool isName = false;
    bool isKnown = true;
    if (!readCompileValue(m_words, m_at, left)) {
      isName = m_at < m_words.size() && m_words[m_at].kind == TextWord::Kind::word;
      if (!isName) return fail("is nothing that can be compared");
      isKnown = find(m_words[m_at++].text, left);
    }
    skip("IS");
    bool isNegated = skip("NOT");
    if (isName && (skip("DEFINED") || skip("SET"))) return isKnown != isNegated;
    Relation relation;
    if (!readRelationName(relation)) return fail("is no comparison");
    std::size_t second = m_at;
    CompileValue right;
    if (!readCompileValue(m_words, m_at, right)) {
      if (m_at >= m_words.size() || m_words[m_at].kind != TextWord::Kind::word) {
        return fail("is nothing that can be compared");
      }
      if (!find(m_words[m_at++].text, right)) isKnown = false;
    }
    // A name that isn't defined, as that of a parameter, equals nothing.
    if (!isKnown) return isNegated;
    if (left.isNumber != right.isNumber) {
      m_at = second;
      return fail("is compared with a value of another kind");
    }
    return relation.holds(compareCompileValues(left, right)) != isNegated;
  }

  bool find(std::string_view name, CompileValue& value) const {
    auto found = m_variables.find(name);
    if (found == m_variables.end()) return false;
    value = found->second;
    return true;
  }

  bool readRelationName(Relation& relation) {
    if (skip('=')) {
      relation.isEqual = true;
    } else if (skip('<')) {
      relation.isLess = true;
      relation.isGreater = skip('>');
      if (!relation.isGreater) relation.isEqual = skip('=');
    } else if (skip('>')) {
      relation.isGreater = true;
      relation.isEqual = skip('=');
    } else if (skip("EQUAL") || skip("EQUALS")) {
      relation.isEqual = true;
      skip("TO");
    } else if (skip("LESS")) {
      relation.isLess = true;
      readWordsOfRelation(relation);
    } else if (skip("GREATER")) {
      relation.isGreater = true;
      readWordsOfRelation(relation);
    } else {
      return false;
    }
    return true;
  }

  // THAN, OR EQUAL TO
  void readWordsOfRelation(Relation& relation) {
    skip("THAN");
    bool isOrEqual = m_at + 1 < m_words.size() && m_words[m_at].isWord("OR") &&
                     m_words[m_at + 1].isWord("EQUAL");
    if (!isOrEqual) return;
    m_at += 2;
    relation.isEqual = true;
    skip("TO");
  }

  std::vector<TextWord> const& m_words;
  std::size_t m_at;
  CompileVariables const& m_variables;
  ConditionResult m_result;
  int m_depth = 0;
};

}  // namespace

bool readCompileValue(std::vector<TextWord> const& words, std::size_t& at, CompileValue& value) {
  std::size_t next = at;
  std::string number;
  if (next < words.size() && isSign(words[next])) number += words[next++].text;
  if (next >= words.size()) return false;
  if (words[next].kind == TextWord::Kind::literal && number.empty() && !words[next].isOpen) {
    value = {decodeLiteral(words[next].text).text, false};
    at = next + 1;
    return true;
  }
  std::string_view digits = words[next].text;
  // A sign that is a hyphen belongs to the word.
  if (number.empty() && digits.size() > 1 && digits.front() == '-') digits.remove_prefix(1);
  if (words[next].kind != TextWord::Kind::word || !isAllDigits(digits)) return false;
  number += words[next++].text;
  bool hasFraction = next + 1 < words.size() && words[next].is('.') &&
                     !words[next].precededBySpace && !words[next + 1].precededBySpace &&
                     isAllDigits(words[next + 1].text);
  if (hasFraction) {
    (number += '.') += words[next + 1].text;
    next += 2;
  }
  value = {number, true};
  at = next;
  return true;
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
  } else if (isPassedOver()) {
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
  report(result.place < words.size() ? words[result.place].place : mark.place, result.error);
  return false;
}

void ConditionalText::open(TextWord const& mark, std::vector<TextWord> const& words) {
  Branch branch;
  branch.place = mark.place;
  branch.isOutside = isPassedOver();
  branch.isTaken = !branch.isOutside && isTrue(mark, words);
  branch.isDone = branch.isTaken;
  m_branches.push_back(branch);
}

void ConditionalText::change(TextWord const& mark, std::vector<TextWord> const& words) {
  bool isElse = words.front().isWord("ELSE");
  if (m_branches.empty() || m_branches.back().isLast) {
    report(mark.place, upperCase(words.front().text) + " belongs to no IF directive");
    return;
  }
  Branch& branch = m_branches.back();
  branch.isLast = isElse;
  // Later conditions are not looked at once a branch was taken.
  bool isCandidate = !branch.isOutside && !branch.isDone;
  branch.isTaken = isCandidate && (isElse || isTrue(mark, words));
  branch.isDone |= branch.isTaken;
}

void ConditionalText::close(TextWord const& mark) {
  if (m_branches.empty()) {
    report(mark.place, "END-IF belongs to no IF directive");
    return;
  }
  m_branches.pop_back();
}

void ConditionalText::end() {
  for (Branch const& each : m_branches) report(each.place, "the IF directive lacks its END-IF");
  m_branches.clear();
}

// DEFINE [CONSTANT] name [AS] value [OVERRIDE], or OFF, or PARAMETER in place
// of the value: a parameter that nothing sets stays undefined.
void ConditionalText::define(TextWord const& mark, std::vector<TextWord> const& words) {
  std::size_t at = 1;
  auto skip = [&](std::string_view word) {
    bool isThere = at < words.size() && words[at].isWord(word);
    at += isThere ? 1U : 0U;
    return isThere;
  };
  if (at + 1 < words.size() && !words[at + 1].isWord("AS")) skip("CONSTANT");
  if (at >= words.size() || words[at].kind != TextWord::Kind::word) {
    report(mark.place, "DEFINE is not followed by a name");
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
  if (!readCompileValue(words, at, value)) {
    auto other = at < words.size() ? m_variables.find(words[at].text) : m_variables.end();
    if (other == m_variables.end()) {
      report(name.place, quoted(name.text) + " is defined by no value");
      return;
    }
    value = other->second;
    ++at;
  }
  if (value.text.size() > kMaxLiteralSize) {
    report(name.place, "the value of " + quoted(name.text) + " is longer than a literal may be");
    return;
  }
  bool isOverride = skip("OVERRIDE");
  auto [known, isNew] = m_variables.try_emplace(std::string(name.text), value);
  if (!isNew && !isOverride && known->second != value) {
    report(name.place, quoted(name.text) + " is defined already, with another value");
    return;
  }
  known->second = value;
}

// SET CONSTANT name(value), name=value or name value, among other settings.
void ConditionalText::setConstants(std::vector<TextWord> const& words) {
  for (std::size_t i = 0; i + 2 < words.size(); ++i) {
    if (!words[i].isWord("CONSTANT")) continue;
    std::size_t at = i + 1;
    std::string name(words[at++].text);
    if (words[at].is('(') || words[at].is('=')) ++at;
    CompileValue value;
    if (readCompileValue(words, at, value)) m_variables[name] = value;
  }
}

}  // namespace fdmorph::compiler
