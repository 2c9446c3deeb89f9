// The copybook and the rules that a command on data works by.
#pragma once

#include <memory>
#include <optional>

#include "fdrec/copybook_file.h"
#include "fdrec/data_options.h"
#include "layout/record_set.h"

namespace fdmorph::fdrec {

/// The layout of the records of a copybook. Messages about them are printed by
/// finish(), as for the copybook.
class DataInput {
 public:
  /// `common` and `data` must outlive this object.
  DataInput(std::string const& copybook, CommonOptions const& common, DataOptions const& data);

  /// Prints what is wrong with the copybook, the layout and the options. The result is
  /// an exit status; unless it is kClean there is no set to work with. To be called
  /// once, before any data is read.
  [[nodiscard]] int finish();

  [[nodiscard]] layout::RecordSet const& set() const { return *m_set; }
  [[nodiscard]] compiler::Diagnostics& diagnostics() { return m_copybook->diagnostics(); }

  /// The lengths of records in the data.
  [[nodiscard]] document::LengthRules const& lengths() const { return m_rules.lengths; }

  /// How the records stand in a file.
  [[nodiscard]] framing::FramingRules framing() const;

 private:
  CommonOptions m_common;
  DataOptions const& m_data;
  DataRules m_rules;
  std::optional<CopybookFile> m_copybook;
  std::unique_ptr<layout::RecordSet> m_set;
};

}  // namespace fdmorph::fdrec
