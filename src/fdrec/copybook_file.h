// A copybook that a command works on.
#pragma once

#include <vector>

#include "fdrec/command.h"
#include "record/record_tree.h"

namespace fdmorph::fdrec {

/// A compiled copybook or program and the records of it that the options choose.
class CopybookFile {
 public:
  /// Compiles `path` and chooses the records. `options` must outlive this object.
  CopybookFile(std::string const& path, CommonOptions const& options);

  /// Whether there are records to work on: the source has no errors.
  [[nodiscard]] bool isUsable() const { return !m_trees.empty(); }

  /// A tree for each record that was chosen, in that order.
  [[nodiscard]] std::vector<record::RecordTree> const& trees() const { return m_trees; }

  [[nodiscard]] compiler::CompiledSource& source() { return m_source; }
  [[nodiscard]] compiler::Diagnostics& diagnostics() { return m_source.diagnostics(); }

  /// Checks the rules of the layout, see record/part_rules.h and storage_rules.h.
  void checkLayout();

  /// Prints all messages and their numbers to the standard error stream. The
  /// result is the exit status, kFailed if the file could not be read.
  [[nodiscard]] int finish() const;

 private:
  CommonOptions const& m_options;
  compiler::DiskTree m_disk;
  compiler::CompiledSource m_source;
  std::vector<record::RecordTree> m_trees;
};

}  // namespace fdmorph::fdrec
