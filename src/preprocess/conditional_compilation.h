// Conditional compilation: which lines of a file count.
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

/// The value of a variable, or one side of a comparison.
struct CompileValue {
  std::string text;       ///< without quotes; a number as written
  bool isNumber = false;  ///< compared by its value

  bool operator==(CompileValue const& other) const = default;
};

/// The variables of a compilation. A member sees those of the text that copies
/// it, and leaves its own behind.
using CompileVariables =
    std::unordered_map<std::string, CompileValue, CaseInsensitiveHash, CaseInsensitiveEqual>;

/// The value of a literal or number that begins at words[at]; `at` moves behind
/// it. False, with nothing moved, if there is none.
bool readCompileValue(std::vector<TextWord> const& words, std::size_t& at, CompileValue& value);

/// Below, at or above zero as `left` is less than, equal to or greater than
/// `right`, which is of the same kind. Texts compare as if filled up with
/// blanks.
int compareCompileValues(CompileValue const& left, CompileValue const& right);

/// What came of a condition.
struct ConditionResult {
  bool isTrue = false;
  std::string error;      ///< empty if the condition is right
  std::size_t place = 0;  ///< of the mistake: an index of the words, or their number
};

/// Works out words[begin] and what follows: `NAME DEFINED`, comparisons of
/// names, numbers and literals, with NOT, AND, OR and parentheses.
ConditionResult evaluateCondition(std::vector<TextWord> const& words, std::size_t begin,
                                  CompileVariables const& variables);

/// The directives of one file, obeyed in their order: DEFINE, SET CONSTANT,
/// IF, ELIF, ELSE and END-IF, with ">>" or "$" before them.
class ConditionalText {
 public:
  ConditionalText(CompileVariables& variables, Diagnostics& diagnostics)
      : m_variables(variables), m_diagnostics(diagnostics) {}

  /// Obeys a directive: its words, without the mark before them. Reports what
  /// is wrong with it.
  void apply(TextWord const& mark, std::vector<TextWord> const& words);

  /// Whether what follows lies in a branch that isn't taken.
  bool isPassedOver() const { return !m_branches.empty() && !m_branches.back().isTaken; }

  /// Reports branches that are still open. To be called at the file's end.
  void end();

 private:
  /// An IF that isn't closed.
  struct Branch {
    Place place;
    bool isOutside = false;  ///< it lies itself in a branch that isn't taken
    bool isDone = false;     ///< a branch of it was taken
    bool isTaken = false;    ///< the one that is open is
    bool isLast = false;     ///< the one that is open is ELSE
  };

  void define(TextWord const& mark, std::vector<TextWord> const& words);
  void setConstants(std::vector<TextWord> const& words);
  void open(TextWord const& mark, std::vector<TextWord> const& words);
  void change(TextWord const& mark, std::vector<TextWord> const& words);
  void close(TextWord const& mark);
  bool isTrue(TextWord const& mark, std::vector<TextWord> const& words);
  void report(Place place, std::string text) {
    m_diagnostics.report(Code::conditional, place, std::move(text));
  }

  CompileVariables& m_variables;
  Diagnostics& m_diagnostics;
  std::vector<Branch> m_branches;  // outermost first
};

}  // namespace fdmorph::compiler
