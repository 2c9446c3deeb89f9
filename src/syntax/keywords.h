// The words that have a meaning wherever the parsers meet them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "semantics/usage.h"

namespace fdmorph::compiler {

enum class Keyword : std::uint8_t {
  none,
  all,
  any,
  are,
  as,
  ascending,
  attribute,
  based,
  binary,
  binaryCLong,
  binaryChar,
  binaryDouble,
  binaryInt,
  binaryLong,
  binaryShort,
  bit,
  blank,
  by,
  character,
  comma,
  communication,
  comp,
  comp1,
  comp2,
  comp3,
  comp4,
  comp5,
  comp6,
  compN,
  compX,
  configuration,
  constant,
  count,
  currency,
  data,
  decimalPoint,
  depending,
  descending,
  display,
  display1,
  division,
  dynamic,
  end,
  environment,
  external,
  fd,
  file,
  filler,
  floatBinary128,
  floatBinary32,
  floatBinary64,
  floatDecimal16,
  floatDecimal34,
  floatExtended,
  floatLong,
  floatShort,
  from,
  functionPointer,
  global,
  handle,
  highValue,
  id,
  identification,
  identified,
  in,
  index,
  indexed,
  inputOutput,
  is,
  just,
  key,
  leading,
  left,
  length,
  linkage,
  localStorage,
  lowValue,
  namespaceWord,
  national,
  null,
  object,
  occurs,
  of,
  on,
  packedDecimal,
  picture,
  pointer,
  procedure,
  procedurePointer,
  program,
  programId,
  programPointer,
  quote,
  record,
  redefines,
  reference,
  renames,
  report,
  right,
  screen,
  sd,
  section,
  separate,
  sign,
  signedInt,
  signedLong,
  signedShort,
  signedWord,
  size,
  space,
  symbol,
  symbolic,
  sync,
  thru,
  times,
  to,
  trailing,
  unsignedInt,
  unsignedLong,
  unsignedShort,
  unsignedWord,
  usage,
  value,
  volatileWord,
  when,
  workingStorage,
  zero,
};

inline constexpr std::size_t kKeywordCount = static_cast<std::size_t>(Keyword::zero) + 1;

/// The keyword of a word, in any case; none for all others. Words of the same
/// meaning (PIC and PICTURE) are one keyword.
Keyword keywordOf(std::string_view word);

/// The usage that a keyword stands for.
std::optional<Usage> usageOf(Keyword keyword);

/// Whether a clause of a data description begins with the keyword. A usage
/// alone is a clause, too, but its word is also a name.
constexpr bool beginsClause(Keyword keyword) {
  switch (keyword) {
    case Keyword::any:
    case Keyword::based:
    case Keyword::blank:
    case Keyword::constant:
    case Keyword::external:
    case Keyword::global:
    case Keyword::just:
    case Keyword::leading:
    case Keyword::occurs:
    case Keyword::picture:
    case Keyword::redefines:
    case Keyword::renames:
    case Keyword::sign:
    case Keyword::sync:
    case Keyword::trailing:
    case Keyword::usage:
    case Keyword::value:
    case Keyword::volatileWord:
      return true;
    default:
      return false;
  }
}

}  // namespace fdmorph::compiler
