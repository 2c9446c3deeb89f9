#include "compiler/diagnostic_codes.h"

#include <array>
#include <cstddef>

namespace fdmorph::compiler {
namespace {

constexpr std::array kCodes{
    CodeEntry{Code::file, "file", true},
    CodeEntry{Code::indicator, "indicator", true},
    CodeEntry{Code::literal, "literal", true},
    CodeEntry{Code::copySyntax, "copy-syntax", true},
    CodeEntry{Code::copyMissing, "copy-missing", true},
    CodeEntry{Code::copyCircle, "copy-circle", true},
    CodeEntry{Code::copyLimit, "copy-limit", true},
    CodeEntry{Code::replaceSyntax, "replace-syntax", true},
    CodeEntry{Code::execEnd, "exec-end", true},
    CodeEntry{Code::conditional, "conditional", true},
    CodeEntry{Code::syntax, "syntax", true},
    CodeEntry{Code::period, "period", true},
    CodeEntry{Code::level, "level", true},
    CodeEntry{Code::levelOrder, "level-order", true},
    CodeEntry{Code::name, "name", true},
    CodeEntry{Code::duplicateClause, "duplicate-clause", true},
    CodeEntry{Code::clause, "clause", true},
    CodeEntry{Code::picture, "picture", true},
    CodeEntry{Code::pictureMissing, "picture-missing", true},
    CodeEntry{Code::usage, "usage", true},
    CodeEntry{Code::redefines, "redefines", true},
    CodeEntry{Code::renames, "renames", true},
    CodeEntry{Code::occurs, "occurs", true},
    CodeEntry{Code::depending, "depending", true},
    CodeEntry{Code::value, "value", true},
    CodeEntry{Code::constant, "constant", true},
    CodeEntry{Code::size, "size", true},
    CodeEntry{Code::environment, "environment", true},
    CodeEntry{Code::directive, "directive", false},
    CodeEntry{Code::sourceDirective, "source-directive", false},
    CodeEntry{Code::leftOut, "left-out", false},
    CodeEntry{Code::tag, "tag", false},
    CodeEntry{Code::copyPassed, "copy-passed", false},
    CodeEntry{Code::duplicateName, "duplicate-name", false},
    CodeEntry{Code::valueSize, "value-size", false},
    CodeEntry{Code::valueLost, "value-lost", false},
    CodeEntry{Code::redefinesTable, "redefines-table", false},
    CodeEntry{Code::redefinesSize, "redefines-size", false},
    CodeEntry{Code::binarySize, "binary-size", false},
    CodeEntry{Code::pictureWarning, "picture-symbols", false},
    CodeEntry{Code::clauseWarning, "clause-ignored", false},
};

// The table is read by the code's number.
constexpr bool isInOrder() {
  for (std::size_t i = 0; i < kCodes.size(); ++i) {
    if (static_cast<std::size_t>(kCodes[i].code) != i) return false;
  }
  return true;
}
static_assert(isInOrder() && kCodes.size() == kCodeCount);

}  // namespace

CodeEntry const& entryOf(Code code) {
  return kCodes[static_cast<std::size_t>(code)];
}

CodeEntry const* codesBegin() {
  return kCodes.data();
}
CodeEntry const* codesEnd() {
  return kCodes.data() + kCodes.size();
}

}  // namespace fdmorph::compiler
