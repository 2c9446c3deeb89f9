// The copybook and the rules that a command on data works by.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "fdrec/copybook_file.h"
#include "fdrec/data_options.h"
#include "layout/record_set.h"

namespace fdmorph::fdrec {

/// The layout of the records of a copybook, and how they stand in a file.
class DataInput {
 public:
  /// `common` and `data` must outlive this object, which completes the framing of the
  /// latter.
  DataInput(std::string const& copybook, CommonOptions const& common, DataOptions& data);

  /// Whether there is a layout. What else is reported to diagnostics() may still make it
  /// unusable.
  [[nodiscard]] bool hasLayout() const { return m_set != nullptr; }

  /// Prints what is wrong with the copybook, the layout and the options. The result is
  /// an exit status; unless it is kClean nothing can be converted. To be called once,
  /// before any data is read.
  [[nodiscard]] int finish();

  /// The status of a run without any error in the data: warnings about the copybook may
  /// count.
  [[nodiscard]] int cleanStatus() const { return m_status; }

  [[nodiscard]] layout::RecordSet const& set() const { return *m_set; }

  /// A tree for each record of the set.
  [[nodiscard]] std::vector<record::RecordTree> const& trees() const { return m_copybook->trees(); }

  [[nodiscard]] compiler::Diagnostics& diagnostics() { return m_copybook->diagnostics(); }

  /// The lengths of records in the data, after finish().
  [[nodiscard]] document::LengthRules const& lengths() const { return m_rules.lengths; }

  /// How the records stand in a file, after finish().
  [[nodiscard]] framing::FramingRules const& framing() const { return m_framing; }

 private:
  [[nodiscard]] int completeFraming();
  void warnAboutLines();

  CommonOptions m_common;
  DataOptions& m_data;
  DataRules m_rules;
  framing::FramingRules m_framing;
  std::optional<CopybookFile> m_copybook;
  std::unique_ptr<layout::RecordSet> m_set;
  int m_status = kClean;
};

}  // namespace fdmorph::fdrec
