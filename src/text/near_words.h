// The word that a misspelt word is meant for.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace fdmorph {

/// The only one of `words`, which are in upper case, that becomes `word` by one
/// mistake, or by two if it has more than five letters: a letter too much, missing
/// or wrong, or two neighbors exchanged. Empty if there is none, or if there are
/// several with the fewest mistakes. Case does not matter.
[[nodiscard]] std::string_view nearestWord(std::string_view word,
                                           std::span<std::string_view const> words);

/// "; did you mean WORD?" for that word, or nothing.
[[nodiscard]] std::string suggestWord(std::string_view word,
                                      std::span<std::string_view const> words);

}  // namespace fdmorph
