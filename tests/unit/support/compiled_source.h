// Sources from memory, and what the compiler makes of them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "compiler/compilation.h"
#include "support/memory_tree.h"

namespace fdmorph::compiler {

/// `lines` moved to column 8.
inline std::string fixed(std::string_view lines) {
  std::string text;
  while (!lines.empty()) {
    std::size_t end = lines.find('\n');
    text += "       " + std::string(lines.substr(0, end)) + "\n";
    if (end == std::string_view::npos) break;
    lines.remove_prefix(end + 1);
  }
  return text;
}

/// Compiles the file a.cpy of `tree`.
inline CompilationResult compile(MemoryTree& tree, Directives directives = {}) {
  directives.writesDictionary = true;
  return compileSource("a.cpy", directives, tree);
}

/// Compiles a bare copybook, its lines written from column 8 on.
inline CompilationResult compile(std::string_view lines) {
  MemoryTree tree;
  tree.files["a.cpy"] = fixed(lines);
  return compile(tree);
}

/// What is reported of the file a.cpy of `tree` when no dictionary is asked for,
/// so that there is no warning of what its reader loses.
inline std::string reportsOf(MemoryTree& tree) {
  return compileSource("a.cpy", {}, tree).diagnostics;
}

/// The same for a bare copybook, its lines written from column 8 on.
inline std::string reportsOf(std::string_view lines) {
  MemoryTree tree;
  tree.files["a.cpy"] = fixed(lines);
  return reportsOf(tree);
}

/// The value of an attribute of the item `name` in a dictionary; nothing if
/// one of them is missing.
inline std::optional<std::string> attributeOf(std::string const& dictionary,
                                              std::string const& name,
                                              std::string const& attribute) {
  std::size_t begin = dictionary.find(" name=\"" + name + "\"");
  if (begin == std::string::npos) return std::nullopt;
  std::string tag = dictionary.substr(begin, dictionary.find('\n', begin) - begin);
  std::size_t value = tag.find(" " + attribute + "=\"");
  if (value == std::string::npos) return std::nullopt;
  value += attribute.size() + 3;
  return tag.substr(value, tag.find('"', value) - value);
}

/// The size of an item of a copybook without errors.
inline std::string lengthOf(std::string_view lines, std::string const& name) {
  CompilationResult result = compile(lines);
  return attributeOf(result.dictionary, name, "length").value_or(result.diagnostics);
}

/// A bare copybook, its lines written from column 8 on, and the first line of
/// what is reported of it.
struct WrongSource {
  char const* source;
  char const* report;
};

/// The first line of what is reported of a wrong copybook.
inline std::string firstReport(std::string_view lines) {
  CompilationResult result = compile(lines);
  if (result.status != kStatusError) return "no error";
  return result.diagnostics.substr(0, result.diagnostics.find('\n'));
}

}  // namespace fdmorph::compiler
