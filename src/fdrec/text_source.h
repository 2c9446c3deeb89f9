// A copybook that is not in a file.
#pragma once

#include <optional>
#include <string>

#include "frontend/compiled_source.h"
#include "record/record_tree.h"

namespace fdmorph::fdrec {

/// Compiles a text with one record.
class TextSource {
 public:
  /// `name` is that of the text in messages.
  TextSource(std::string const& name, std::string text, compiler::SourceOptions const& options);

  /// The record; null after errors.
  [[nodiscard]] record::RecordTree const* record() const { return m_tree ? &*m_tree : nullptr; }

  [[nodiscard]] compiler::CompiledSource const& source() const { return m_source; }
  [[nodiscard]] compiler::Diagnostics& diagnostics() { return m_source.diagnostics(); }

  /// Prints what was reported to the standard error stream. The result is an exit
  /// status.
  int printReports() const;

 private:
  /// Holds the text alone.
  class Tree : public compiler::FileTree {
   public:
    Tree(std::string path, std::string text) : m_path(std::move(path)), m_text(std::move(text)) {}
    [[nodiscard]] std::optional<std::string> read(std::string const& path) override;

   private:
    std::string m_path;
    std::string m_text;
  };

  Tree m_files;
  compiler::CompiledSource m_source;
  std::optional<record::RecordTree> m_tree;
};

}  // namespace fdmorph::fdrec
