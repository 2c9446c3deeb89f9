// The codes of diagnostics, in one table.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace fdmorph::compiler {

enum class Code : std::uint8_t {
  // Errors.
  file,
  indicator,
  literal,
  copySyntax,
  copyMissing,
  copyCircle,
  copyLimit,
  replaceSyntax,
  execEnd,
  conditional,
  syntax,
  period,
  level,
  levelOrder,
  name,
  duplicateClause,
  clause,
  picture,
  pictureMissing,
  usage,
  redefines,
  renames,
  occurs,
  depending,
  value,
  constant,
  size,
  environment,
  // Warnings.
  directive,
  sourceDirective,
  leftOut,
  tag,
  copyPassed,
  duplicateName,
  valueSize,
  valueLost,
  redefinesTable,
  redefinesSize,
  binarySize,
  pictureWarning,
  clauseWarning,
};

inline constexpr std::size_t kCodeCount = static_cast<std::size_t>(Code::clauseWarning) + 1;

struct CodeEntry {
  Code code;
  std::string_view text;  ///< as it stands in brackets
  bool isError;
};

CodeEntry const& entryOf(Code code);

/// The whole table, for its documentation.
CodeEntry const* codesBegin();
CodeEntry const* codesEnd();

}  // namespace fdmorph::compiler
