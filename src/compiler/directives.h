// Compiler directives on the command line and in directive files.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "compiler/dictionary_writer.h"
#include "preprocess/copy_search.h"
#include "source/source_reader.h"

namespace fdmorph::compiler {

struct Directives {
  bool writesDictionary = false;
  DictionaryOrder order = DictionaryOrder::workingStorageFirst;
  ReadingRules reading;
  CopyRules copying;

  std::vector<std::string> unknown;              ///< each once, in upper case
  std::unordered_set<std::string> unknownNames;  ///< the same
};

/// Applies directives that are separated by blanks, as in `NOOBJ XMLGEN(WS)`.
/// Returns the directive whose parameter is invalid, if there is one; those after
/// it are not applied.
[[nodiscard]] std::optional<std::string> applyDirectives(std::string_view text,
                                                         Directives& directives);

/// Applies the directives of a file, one or more on a line. Lines that begin with
/// an asterisk are comments. Returns the same as applyDirectives.
[[nodiscard]] std::optional<std::string> applyDirectiveFile(std::string_view content,
                                                            Directives& directives);

}  // namespace fdmorph::compiler
