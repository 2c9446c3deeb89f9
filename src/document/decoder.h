// Records as documents: runs the program of a record over its bytes.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "document/data_error.h"
#include "document/left_out.h"
#include "document/programs.h"
#include "document/text_buffer.h"
#include "layout/extent.h"
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

/// Writes the documents of records. Each thread has its own; the programs are shared.
class Decoder {
 public:
  Decoder(Programs const& programs, LengthRules lengths);

  /// Appends the document of a record to `out`. After an error nothing is appended,
  /// and `errors` has at most kMaxErrorsPerRecord of them in the order of the record.
  bool decode(StoredRecord record, TextBuffer& out, DataErrors& errors);

  /// The record of the set that the last document was made of.
  [[nodiscard]] std::uint32_t chosenRecord() const { return m_record; }

 private:
  bool choose(StoredRecord record);
  bool splitCounts();
  bool prepare(std::uint32_t record, StoredRecord stored);
  bool prepareShifted(StoredRecord stored);
  bool prepareShort(StoredRecord stored);
  [[nodiscard]] bool isLong(StoredRecord stored) const;
  void run(std::uint32_t begin, std::uint32_t end);
  void runText(Operation const& operation);
  void runAttribute(Operation const& operation);
  void runJson(Operation const& operation);
  void runClose(Operation const& operation);
  void runTable(std::uint32_t at);
  void runArea(std::uint32_t at);
  std::uint64_t countOccurrences(Operation const& operation);
  std::uint64_t countFromCounts(std::uint32_t node, std::uint64_t most, bool isTable);
  std::uint64_t withoutAbsent(std::uint32_t table);
  [[nodiscard]] bool isPresent(Operation const& operation);
  [[nodiscard]] bool isAbsent(std::uint32_t node, std::uint64_t offset);
  void writeMarkup(std::uint32_t begin, std::uint32_t size) {
    std::memcpy(m_out, m_program->markup.data() + begin, size);
    m_out += size;
  }
  void fail(ErrorCode code, std::uint32_t node, std::string text, bool isWhole = false);
  void failAtCounter(layout::CounterFault const& fault);
  void failValue(Operation const& operation, values::ValueError error);
  void failRecord(ErrorCode code, std::string text);
  void add(DataError error, std::uint32_t node, std::uint64_t offset);

  Programs const& m_programs;
  layout::RecordSet const& m_set;
  values::Values const& m_values;
  LengthRules m_lengths;

  // Of the record at hand.
  std::uint32_t m_record = 0;
  layout::Layout const* m_layout = nullptr;
  Program const* m_program = nullptr;
  layout::RecordBytes m_bytes{};
  StoredRecord m_stored{};
  std::uint64_t m_stopAt = UINT64_MAX;  ///< errors at this offset or later are not told
  layout::Occurrence m_occurrence;
  unsigned char const* m_base = nullptr;  // the record, moved by the occurrences of tables
  TextBuffer* m_buffer = nullptr;
  char* m_out = nullptr;
  std::vector<std::ptrdiff_t> m_marks;
  std::vector<unsigned char> m_full;  // the largest form of a record that is shorter
  DataErrors* m_errors = nullptr;
  bool m_hasFailed = false;
};

}  // namespace fdmorph::document
