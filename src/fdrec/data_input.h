// The copybook and the rules that a command on data works by.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "fdrec/copybook_file.h"
#include "fdrec/data_options.h"
#include "layout/record_set.h"

namespace fdmorph::fdrec {

/// The layout of the records of a copybook, and how they stand in a file.
class DataInput {
 public:
  /// `common` and `data` must outlive this object, which completes the framing of the
  /// latter. `change` is made to the trees of the records, unless it is empty.
  DataInput(std::string const& copybook, CommonOptions const& common, DataOptions& data,
            TreeChange const& change = {});

  /// Whether there is a layout. What else is reported to diagnostics() may still make it
  /// unusable.
  [[nodiscard]] bool hasLayout() const { return m_set != nullptr; }

  /// Decides whether data can be converted: not unless the result, an exit status, is
  /// kClean. To be called once, before any data is read.
  [[nodiscard]] int complete();

  /// What is wrong with the options, after complete(); empty if nothing is.
  [[nodiscard]] std::string const& usageError() const { return m_usageError; }

  /// Warnings `lines` about the format, after complete().
  [[nodiscard]] std::vector<std::string> const& lineWarnings() const { return m_lineWarnings; }

  /// Does complete(), and prints what is wrong with the copybook, the layout and the
  /// options.
  [[nodiscard]] int finish();

  /// The status of a run without any error in the data: warnings about the copybook may
  /// count.
  [[nodiscard]] int cleanStatus() const { return m_status; }

  /// A tree for each record of the layout.
  [[nodiscard]] std::vector<record::RecordTree> const& trees() const { return m_copybook->trees(); }
  [[nodiscard]] layout::RecordSet const& set() const { return *m_set; }

  /// Whether the options allow to compile the copybook. Without it there are no
  /// diagnostics.
  [[nodiscard]] bool hasCopybook() const { return m_copybook.has_value(); }
  [[nodiscard]] compiler::Diagnostics& diagnostics() { return m_copybook->diagnostics(); }

  /// The lengths of records in the data, after complete().
  [[nodiscard]] document::LengthRules const& lengths() const { return m_rules.lengths; }

  /// How the records stand in a file, after complete().
  [[nodiscard]] framing::FramingRules const& framing() const { return m_framing; }

 private:
  [[nodiscard]] int refuse(std::string error);
  [[nodiscard]] int completeFraming();
  void checkLines();

  CommonOptions m_common;
  DataOptions& m_data;
  DataRules m_rules;
  framing::FramingRules m_framing;
  std::optional<CopybookFile> m_copybook;
  std::unique_ptr<layout::RecordSet> m_set;
  std::string m_usageError;
  std::vector<std::string> m_lineWarnings;
  int m_status = kClean;
};

}  // namespace fdmorph::fdrec
