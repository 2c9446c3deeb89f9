// Records as documents: runs the program of a record over its bytes.
#pragma once

#include <optional>
#include <vector>

#include "document/data_error.h"
#include "document/left_out.h"
#include "document/programs.h"
#include "document/record_preparation.h"
#include "document/text_buffer.h"
#include "layout/shifting.h"

namespace fdmorph::document {

/// Writes the documents of records. Each thread has its own; the programs are shared.
class Decoder {
 public:
  Decoder(Programs const& programs, LengthRules lengths);

  /// Appends the document of a record to `out`. After an error nothing is appended,
  /// and `errors` has at most kMaxErrorsPerRecord of them in the order of the record.
  bool decode(StoredRecord record, TextBuffer& out, DataErrors& errors);

  /// The record of the set that the last document was made of.
  [[nodiscard]] std::uint32_t chosenRecord() const { return m_prepared.record; }

 private:
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
  [[nodiscard]] bool isOmitted(std::uint32_t node);
  [[nodiscard]] bool isAbsent(std::uint32_t node, std::uint64_t offset);
  [[nodiscard]] bool testsWrongNumber(std::uint32_t area) const;
  [[nodiscard]] unsigned char const* absentBytes();
  void writeMarkup(std::uint32_t begin, std::uint32_t size) {
    std::memcpy(m_out, m_program->markup.data() + begin, size);
    m_out += size;
  }
  void fail(ErrorCode code, std::uint32_t node, std::string text, bool isWhole = false);
  void failAtCounter(layout::CounterFault const& fault);
  void failValue(Operation const& operation, values::ValueError error);
  [[nodiscard]] DataError placed(DataError error, std::uint32_t node, std::uint64_t offset) const;
  [[nodiscard]] bool isTold(std::uint64_t offset) const;
  void add(DataError error, std::uint32_t node, std::uint64_t offset);
  void finishErrors();

  Programs const& m_programs;
  layout::RecordSet const& m_set;
  values::Values const& m_values;
  RecordPreparation m_preparation;

  // Of the record at hand.
  PreparedRecord const& m_prepared;
  layout::Layout const* m_layout = nullptr;
  Program const* m_program = nullptr;
  layout::RecordBytes m_bytes{};
  std::uint64_t m_stopAt = UINT64_MAX;     ///< errors at this offset or later are not told
  std::uint64_t m_lastKept = UINT64_MAX;   ///< the same, in the record as it is stored
  std::optional<DataError> m_consequence;  ///< told if there is no other error
  layout::Occurrence m_occurrence;
  unsigned char const* m_base = nullptr;  // the record, moved by the occurrences of tables
  TextBuffer* m_buffer = nullptr;
  char* m_out = nullptr;
  std::vector<std::uint64_t> m_marks;  // where elements begin that may be empty
  DataErrors* m_errors = nullptr;
  bool m_hasFailed = false;
  std::vector<unsigned char> m_absent;         // of a large layout,
  layout::Layout const* m_absentOf = nullptr;  // which is this one
};

}  // namespace fdmorph::document
