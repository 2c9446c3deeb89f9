// The programs of all records that a file may hold.
#pragma once

#include <vector>

#include "document/program.h"

namespace fdmorph::document {

/// The programs of all records of a set. Immutable; threads share it.
class Programs {
 public:
  /// Errors of the layout are reported. `set` must outlive this object.
  Programs(layout::RecordSet const& set, OutputRules const& rules,
           compiler::Diagnostics& diagnostics);

  [[nodiscard]] layout::RecordSet const& set() const { return m_set; }
  [[nodiscard]] OutputRules const& rules() const { return m_rules; }
  [[nodiscard]] Program const& operator[](std::size_t record) const { return m_programs[record]; }

 private:
  layout::RecordSet const& m_set;
  OutputRules m_rules;
  std::vector<Program> m_programs;
};

}  // namespace fdmorph::document
