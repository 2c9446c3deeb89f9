// Compilation variables: what DEFINE directives give names to.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "compiler/letters.h"
#include "compiler/text_words.h"

namespace fdmorph::compiler {

/// The value of a variable, or one side of a comparison.
struct CompileValue {
  std::string text;       ///< without quotes; a number as written
  bool isNumber = false;  ///< compared by its value

  bool operator==(CompileValue const& other) const = default;
};

/// The variables of a compilation. A member sees those of the text that copies
/// it, and leaves its own behind.
using CompileVariables = std::unordered_map<std::string, CompileValue, BlindHash, BlindEqual>;

/// The value of a literal or number that begins at words[at]; `at` moves behind
/// it. False, with nothing moved, if there is none.
bool readCompileValue(std::vector<TextWord> const& words, std::size_t& at, CompileValue& value);

/// Below, at or above zero as `left` is less than, equal to or greater than
/// `right`, which is of the same kind. Texts compare as if filled up with
/// blanks.
int compareCompileValues(CompileValue const& left, CompileValue const& right);

}  // namespace fdmorph::compiler
