// How replacements are written: `==A== BY ==B==`, words, literals, LEADING and
// TRAILING parts, one after another up to a period.
#pragma once

#include <functional>
#include <optional>

#include "compiler/replacing.h"

namespace fdmorph::compiler {

/// Reads replacements from `next` up to and with the period. On a mistake the
/// result is the word that doesn't fit; the list then holds what came before.
/// `word` is the first word of the phrase.
std::optional<TextWord> readReplacements(TextWord word, std::function<TextWord()> const& next,
                                         ReplacementList& list);

}  // namespace fdmorph::compiler
