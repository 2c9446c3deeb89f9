// Compiler directives of the command line and of directive files.
#pragma once

#include <optional>
#include <string>
#include <string_view>
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

  std::vector<std::string> unknown;  ///< each once, in upper case
};

/// Applies directives, separated by blanks, as in `NOOBJ XMLGEN(WS)`. The
/// result is the directive whose parameter is wrong, or nothing.
std::optional<std::string> applyDirectives(std::string_view text, Directives& directives);

/// Applies the directives of a file: one or more a line; what follows an
/// asterisk at the beginning of a line is a comment.
std::optional<std::string> applyDirectiveFile(std::string_view content, Directives& directives);

}  // namespace fdmorph::compiler
