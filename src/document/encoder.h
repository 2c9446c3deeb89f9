// Documents to bytes.
//
// An Encoder makes the bytes of a record, and its count record, from what a reader of
// XML or JSON has found. Its errors have lines and columns of the document.
#pragma once

#include <deque>
#include <span>

#include "document/record_encoder.h"

namespace fdmorph::document {

struct EncodedRecord {
  std::uint32_t record = 0;  ///< in RecordSet::layouts
  /// As long as the record is written: a file of records of one length fills it up with
  /// blanks. Valid until the next record is encoded, as are the counts.
  std::span<unsigned char const> bytes;
  std::span<unsigned char const> counts;  ///< empty if the layout has none
};

/// For one thread. The set and the names must outlive it.
class Encoder : public PartAbsorber {
 public:
  Encoder(layout::RecordSet const& set, NameNumbers const& names, EncodeRules const& rules);

  void beginRecord() override;

  /// Nothing if the name of the record does not say which one it is.
  [[nodiscard]] std::vector<std::uint32_t> absorb(Instances& instances,
                                                  std::vector<std::uint32_t> const& open) override;

  /// Encodes one record. `errors` are those of its reader; others are added, and then
  /// they are sorted. Bytes of `runs` take the place of those of the record before its
  /// views are checked, and the errors `character` and `length` of items that they cover
  /// are no errors. False if there are errors.
  [[nodiscard]] bool encode(Instances const& instances, DataErrors& errors,
                            std::span<ByteRun const> runs = {});

  /// The record that was encoded last, after encode() has returned true.
  [[nodiscard]] EncodedRecord const& result() const { return m_result; }

 private:
  void encodeAs(std::uint32_t record, Instances const& instances, std::span<ByteRun const> runs,
                bool checksViews);
  void finish(std::uint32_t record, std::span<ByteRun const> runs);
  void locateErrors(std::uint32_t record, std::span<ByteRun const> runs);
  [[nodiscard]] std::vector<std::uint32_t> candidatesOf(std::uint32_t name) const;
  [[nodiscard]] std::uint32_t chosenRecord();
  [[nodiscard]] bool holds(layout::ViewRule const& rule);

  layout::RecordSet const& m_set;
  NameNumbers const& m_names;
  EncodeRules m_rules;
  std::deque<RecordEncoder> m_encoders;  // by record
  EncodeErrors m_errors;
  std::vector<unsigned char> m_shifted;
  std::vector<unsigned char> m_other;  // the record as another one
  EncodedRecord m_result;
  std::uint32_t m_absorbing = layout::kNone;  // the record whose parts were absorbed
};

}  // namespace fdmorph::document
