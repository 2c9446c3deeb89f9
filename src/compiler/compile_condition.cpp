#include "compiler/compile_condition.h"

#include "compiler/diagnostics.h"

namespace fdmorph::compiler {
namespace {

constexpr int kDeepest = 64;  // parentheses and NOTs within each other

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
  bool isRight() const { return m_result.mistake.empty(); }

  bool fail(char const* text) {
    if (!isRight()) return false;
    bool isEnd = m_at >= m_words.size();
    m_result.mistake = (isEnd ? "the end of the line" : quoted(m_words[m_at].text)) + " " + text;
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
    if (++m_depth > kDeepest) return fail("is nested too deeply");
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

ConditionResult evaluateCondition(std::vector<TextWord> const& words, std::size_t begin,
                                  CompileVariables const& variables) {
  return Evaluator(words, begin, variables).evaluate();
}

}  // namespace fdmorph::compiler
