// What makes the items of a record fit for a COBOL compiler. fdmorph writes its
// records as they are.
#pragma once

#include <string>
#include <string_view>

#include "cobol/DMCOBOLRecordItem.h"
#include "text/text_pool.h"

namespace fdmorph {

/// Whether a name, in any case, is a word that a compiler takes for something else.
using IsReserved = bool (*)(std::string_view name);

/// The longest word of a COBOL program, in characters (COBOL 85: user-defined
/// words).
inline constexpr std::size_t kMaxWordLength = 30;

/// Gives the items of a finished record names, pictures and values that COBOL
/// allows:
///
/// - Data names and count names begin with `prefix` and have at most
///   kMaxWordLength characters: letters, digits and single hyphens inside. All of
///   them are different in any case, and none is reserved; the first of a name keeps
///   it, the others get "-1", "-2" and so on.
/// - A picture has at least one integer digit or character, and no more digits
///   than a compiler takes.
/// - A quotation mark in a literal is doubled.
/// - An item that is listed twice under one parent stays in its first place.
///
/// Items that are not written keep what they have. New texts are kept in `texts`.
/// `isReserved` may be null.
void makeLegal(CDMCOBOLRecordItem* record, std::string_view prefix, IsReserved isReserved,
               TextPool& texts);

/// A data name made of `name`: what COBOL does not allow becomes a hyphen, and
/// what is longer than `room`, which is at least 2, is cut.
[[nodiscard]] std::string legalName(std::string_view name, std::size_t room);

}  // namespace fdmorph
