// Conditional compilation: which lines of a file are compiled.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "preprocess/text_words.h"
#include "source/diagnostics.h"
#include "text/letter_case.h"

namespace fdmorph::compiler {

/// The value of a compilation variable or an operand of a comparison.
struct CompileValue {
  std::string text;       ///< without quotes; a number as written
  bool isNumber = false;  ///< otherwise it is a text

  bool operator==(CompileValue const& other) const = default;
};

/// The variables of a compilation by name. All files share them.
using CompileVariables =
    std::unordered_map<std::string, CompileValue, CaseInsensitiveHash, CaseInsensitiveEqual>;

/// A value read from a list of words.
struct ReadValue {
  CompileValue value;
  std::size_t end = 0;  ///< the index of the word after it
};

/// The literal or number that begins at words[at]; nothing if there is none.
[[nodiscard]] std::optional<ReadValue> readCompileValue(std::vector<TextWord> const& words,
                                                        std::size_t at);

/// Less than, equal to or greater than zero as `left` is less than, equal to or
/// greater than `right`, which is of the same kind. Trailing blanks of texts are
/// ignored.
[[nodiscard]] int compareCompileValues(CompileValue const& left, CompileValue const& right);

struct ConditionResult {
  bool isTrue = false;
  std::string error;           ///< empty if the condition is valid
  std::size_t errorIndex = 0;  ///< of the word in error; the number of words at the end
};

/// Evaluates the condition that begins at words[begin] and extends to the last
/// word: `NAME DEFINED` and comparisons of names, numbers and literals, with NOT,
/// AND, OR and parentheses.
[[nodiscard]] ConditionResult evaluateCondition(std::vector<TextWord> const& words,
                                                std::size_t begin,
                                                CompileVariables const& variables);

/// Executes the directives of one file in their order: DEFINE, SET CONSTANT, IF,
/// ELIF, ELSE and END-IF, with ">>" or "$" before them.
class ConditionalText {
 public:
  ConditionalText(CompileVariables& variables, Diagnostics& diagnostics)
      : m_variables(variables), m_diagnostics(diagnostics) {}

  /// Executes a directive and reports its errors. `mark` is the ">>" or "$" and
  /// `words` are the words after it.
  void apply(TextWord const& mark, std::vector<TextWord> const& words);

  /// Whether the following text is in a branch that is not taken.
  bool isSkipping() const { return !m_branches.empty() && !m_branches.back().isTaken; }

  /// Reports an IF without END-IF. To be called at the end of the file.
  void end();

 private:
  /// An IF without its END-IF. The last branch of it is the one being read.
  struct Branch {
    Place place;
    bool isOutside = false;  ///< the IF is in a branch that is not taken
    bool isDone = false;     ///< one of its branches was taken
    bool isTaken = false;    ///< the last branch is taken
    bool isLast = false;     ///< the last branch is ELSE
  };

  void define(TextWord const& mark, std::vector<TextWord> const& words);
  void setConstants(std::vector<TextWord> const& words);
  void open(TextWord const& mark, std::vector<TextWord> const& words);
  void change(TextWord const& mark, std::vector<TextWord> const& words);
  void close(TextWord const& mark);
  bool isTooLong(TextWord const& name, CompileValue const& value);
  bool isTrue(TextWord const& mark, std::vector<TextWord> const& words);
  void report(Place place, std::string text) {
    m_diagnostics.report(Code::conditional, place, std::move(text));
  }

  CompileVariables& m_variables;
  Diagnostics& m_diagnostics;
  std::vector<Branch> m_branches;  // outermost first
};

}  // namespace fdmorph::compiler
