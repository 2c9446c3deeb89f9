// A copybook that a command works on.
#pragma once

#include <functional>
#include <vector>

#include "fdrec/command.h"
#include "record/record_tree.h"

namespace fdmorph::fdrec {

/// What a command does with the records.
enum class CopybookUse {
  documents,  ///< their items have roles in documents
  items,      ///< only the items count
};

/// A change of the tree of a record.
using TreeChange = std::function<void(record::RecordTree&)>;

/// A compiled copybook or program and the records of it that the options choose.
class CopybookFile {
 public:
  /// Compiles `path` and chooses the records. `options` must outlive this object.
  CopybookFile(std::string const& path, CommonOptions const& options,
               CopybookUse use = CopybookUse::documents);

  /// Whether there are records to work on: the source has no errors.
  [[nodiscard]] bool isUsable() const { return !m_records.empty(); }

  /// The records that were chosen.
  [[nodiscard]] std::vector<compiler::DataItem const*> const& records() const { return m_records; }

  /// A tree for each record, in that order; none if only the items count.
  [[nodiscard]] std::vector<record::RecordTree> const& trees() const { return m_trees; }

  [[nodiscard]] compiler::CompiledSource& source() { return m_source; }
  [[nodiscard]] compiler::Diagnostics& diagnostics() { return m_source.diagnostics(); }

  /// Changes what the trees say about documents. To be called before the layout is
  /// checked.
  void changeTrees(TreeChange const& change);

  /// Checks the rules of the layout, see record/part_rules.h and storage_rules.h.
  void checkLayout();

  /// The exit status so far: kFailed if the file could not be read.
  [[nodiscard]] int status() const;

  /// Prints all messages and their numbers to the standard error stream. The
  /// result is the exit status.
  [[nodiscard]] int finish() const;

 private:
  CommonOptions const& m_options;
  compiler::DiskTree m_disk;
  compiler::CompiledSource m_source;
  std::vector<compiler::DataItem const*> m_records;
  std::vector<record::RecordTree> m_trees;
};

}  // namespace fdmorph::fdrec
