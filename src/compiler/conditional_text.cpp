#include "compiler/conditional_text.h"

#include "compiler/compile_condition.h"
#include "compiler/literals.h"

namespace fdmorph::compiler {

void ConditionalText::obey(TextWord const& mark, std::vector<TextWord> const& words) {
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
  if (result.mistake.empty()) return result.isTrue;
  report(result.place < words.size() ? words[result.place].place : mark.place, result.mistake);
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
  if (value.text.size() > kLongestLiteral) {
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
