// Records from sources in memory.
#pragma once

#include <string>
#include <string_view>

#include "frontend/compiled_source.h"
#include "record/record_tree.h"
#include "source/diagnostic_output.h"
#include "support/memory_tree.h"

namespace fdmorph::record {

/// A compiled copybook in free format and the tree of its first record.
class RecordSource {
 public:
  explicit RecordSource(std::string const& content, NamingRules const& rules = {})
      : m_source("a.cpy", options(), treeOf(content)),
        tree(*m_source.data().workingStorage.first, rules, m_source.diagnostics()) {}

  compiler::Diagnostics& diagnostics() { return m_source.diagnostics(); }

  /// The messages so far, each "LINE: text [code]".
  std::string reports() const {
    std::string text;
    for (auto const* each : m_source.diagnostics().inSourceOrder()) {
      compiler::CodeEntry const& code = compiler::entryOf(each->code);
      text += std::to_string(m_source.sources().locate(each->place).line) + ": " + each->text +
              " [" + std::string(code.name) + "]\n";
    }
    return text;
  }

  /// The number of the node with a data name; kNoNode if there is none.
  std::uint32_t find(std::string_view name) const {
    for (std::uint32_t i = 0; i < tree.nodes().size(); ++i) {
      if (tree.nodes()[i].item->name == name) return i;
    }
    return kNoNode;
  }

  RecordNode const& node(std::string_view name) const { return tree.nodes().at(find(name)); }
  std::string path(std::string_view name) const { return tree.xmlPath(find(name)); }

 private:
  static compiler::SourceOptions options() {
    compiler::SourceOptions options;
    options.reading.format = compiler::Format::free;
    return options;
  }

  compiler::MemoryTree& treeOf(std::string const& content) {
    m_files.files["a.cpy"] = content;
    return m_files;
  }

  compiler::MemoryTree m_files;
  compiler::CompiledSource m_source;

 public:
  RecordTree tree;
};

}  // namespace fdmorph::record
