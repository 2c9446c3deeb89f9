// Which record the bytes of a file are, and where its items lie in them.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "document/data_error.h"
#include "layout/record_set.h"
#include "layout/shifting.h"

namespace fdmorph::document {

/// The bytes of one record and its counts, as they are in a file.
struct StoredRecord {
  std::span<unsigned char const> bytes;
  std::span<unsigned char const> counts = {};  ///< empty without a count record
};

/// How records of another length than the layout has are taken.
struct LengthRules {
  enum class Ending : std::uint8_t {
    exact,    ///< another length is an error
    ignored,  ///< bytes beyond the layout do not matter
    blanks,   ///< blanks may be missing at the end, or too many
  };

  Ending ending = Ending::exact;
  bool padsShort = false;  ///< missing bytes are those of absent items
  /// Where count records begin, in bytes; at the end of the record if not set.
  std::optional<std::uint64_t> countsAt = {};
};

/// A record that is ready to be read.
struct PreparedRecord {
  std::uint32_t record = 0;                   ///< in the set
  StoredRecord stored;                        ///< without its counts, which are beside it
  layout::RecordBytes bytes{};                ///< its largest form
  std::optional<layout::CounterFault> fault;  ///< what follows its table is not there
  std::optional<DataError> error;             ///< it cannot be read at all
};

/// Prepares records. Its memory is used again for each.
class RecordPreparation {
 public:
  /// `set` must outlive this object.
  RecordPreparation(layout::RecordSet const& set, LengthRules const& lengths)
      : m_set(set), m_values(set.values()), m_lengths(lengths) {}

  /// Chooses the record by the rules, takes off its counts, and spreads or fills it up.
  /// The result looks at `record` and at this object; it is that of all calls.
  PreparedRecord const& prepare(StoredRecord record);

  /// The record that was prepared last.
  [[nodiscard]] PreparedRecord const& result() const { return m_result; }

 private:
  bool choose(StoredRecord record);
  bool holds(layout::ViewRule const& rule, StoredRecord const& record);
  std::span<unsigned char const> filledUp(std::span<unsigned char const> data,
                                          layout::Layout const& layout);
  bool splitCounts();
  bool lookAt(StoredRecord stored);
  bool lookAtShifted(StoredRecord stored);
  bool lookAtShort(StoredRecord stored);
  [[nodiscard]] bool isLong(StoredRecord stored, std::uint64_t end) const;
  void fail(ErrorCode code, std::string text);

  layout::RecordSet const& m_set;
  values::Values const& m_values;
  LengthRules m_lengths;
  layout::Layout const* m_layout = nullptr;
  PreparedRecord m_result;
  std::vector<unsigned char> m_full;    ///< the largest form of a record that is shorter
  std::vector<unsigned char> m_filled;  ///< a line that is filled up with blanks
};

}  // namespace fdmorph::document
