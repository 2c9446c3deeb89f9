// Conditions of conditional compilation.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "compiler/compile_variables.h"

namespace fdmorph::compiler {

/// What came of a condition.
struct ConditionResult {
  bool isTrue = false;
  std::string mistake;    ///< empty if the condition is right
  std::size_t place = 0;  ///< of the mistake: an index of the words, or their number
};

/// Works out words[begin] and what follows: `NAME DEFINED`, comparisons of
/// names, numbers and literals, with NOT, AND, OR and parentheses.
ConditionResult evaluateCondition(std::vector<TextWord> const& words, std::size_t begin,
                                  CompileVariables const& variables);

}  // namespace fdmorph::compiler
