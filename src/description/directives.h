// Compiler directives on the command line and in directive files.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "description/dictionary_content.h"
#include "frontend/compiled_source.h"

namespace fdmorph::compiler {

struct Directives : SourceOptions {
  bool writesDictionary = false;
  DictionaryOrder order = DictionaryOrder::workingStorageFirst;
  DictionaryChoice choice;
  std::string listing;                  ///< the path of the listing; empty if there is none
  std::string depfile;                  ///< the path of a rule for make; empty if there is none
  std::vector<std::string> depTargets;  ///< its targets; the dictionary if empty

  std::vector<std::string> files;  ///< the directive files

  std::vector<std::string> unknown;              ///< each once, in upper case
  std::unordered_set<std::string> unknownNames;  ///< the same
};

/// "unknown directive 'NAME'", with the directive that may be meant.
[[nodiscard]] std::string describeUnknown(std::string const& name);

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
