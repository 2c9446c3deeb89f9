// The codes of diagnostics, in one table.
#pragma once

#include <string_view>

namespace fdmorph::compiler {

enum class Code {
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
  tag,
  copyPassed,
  duplicateName,
  valueSize,
  valueLost,
  redefinesSize,
  binarySize,
  pictureWarning,
  clauseWarning,
};

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
