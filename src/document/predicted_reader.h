// Records of XML documents that are spelled as this program writes them.
//
// The program that writes a record as XML is run the other way round: its markup is
// compared with the document, and the texts in between are encoded at once into the
// bytes of the record. Whatever is not exactly as expected, or has an error, is
// declined, and goes through the general reader and the encoder.
//
// There are predictions for layouts whose markup does not depend on the data, apart
// from the number of occurrences of tables.
#pragma once

#include <array>
#include <memory>
#include <span>
#include <vector>

#include "document/program.h"
#include "document/record_encoder.h"
#include "document/record_predictor.h"

namespace fdmorph::document {

/// For one thread. The set must outlive it.
class PredictedReader : public RecordPredictor {
 public:
  /// Null if the layouts of the set have no prediction. `rules` are those of the encoder.
  [[nodiscard]] static std::unique_ptr<PredictedReader> make(layout::RecordSet const& set,
                                                             EncodeRules const& rules,
                                                             compiler::Diagnostics& diagnostics);

  [[nodiscard]] Outcome read(std::string_view bytes) override;

  /// The record that was taken last, as it is written. It is the first of the set.
  [[nodiscard]] std::span<unsigned char const> record() const { return m_record; }

 private:
  /// How the text of an item is encoded.
  enum class Codec : std::uint8_t {
    general,  ///< by values::Values
    text,     ///< a byte a character
    zoned,
    packed,
    binary,
  };

  struct Step {
    Operation::Kind kind = Operation::Kind::markup;
    Codec codec = Codec::general;
    bool collapses = false;
    std::uint32_t end = 0;  ///< of a table: the step after its last one
    std::string_view before;
    std::string_view after;
    std::uint64_t offset = 0;  ///< of the item, or
    std::uint64_t size = 0;    ///< of one occurrence of the table
    std::uint32_t node = layout::kNone;
    values::ItemFormat const* format = nullptr;
  };

  PredictedReader(layout::RecordSet const& set, EncodeRules const& rules, Program program);

  bool addSteps(std::uint32_t begin, std::uint32_t end);
  [[nodiscard]] Codec codecOf(values::ItemFormat const& format) const;
  [[nodiscard]] bool isPredictable() const;
  bool run(std::size_t begin, std::size_t end, unsigned char* base);
  bool runTable(std::size_t at, unsigned char* base);
  bool runText(Step const& step, unsigned char* base);
  bool setCounter(Step const& table, std::uint64_t count);
  bool matches(std::string_view markup);
  bool collapsed(Step const& step);
  bool readText(Step const& step, unsigned char* bytes, char end);
  bool readNumber(Step const& step, unsigned char* bytes, char end);
  bool readGeneral(Step const& step, unsigned char* bytes, char end);
  bool fail(RecordPredictor::Outcome::Kind kind);

  layout::RecordSet const& m_set;
  layout::Layout const& m_layout;
  Program m_program;
  std::vector<Step> m_steps;
  std::array<std::uint16_t, 256> m_characters{};  ///< bytes of characters; kNoCharacter
  std::uint64_t m_mostText = 0;                   ///< bytes of a text; longer ones are declined
  std::uint64_t m_recordEnd;                      ///< of the largest form as it is written

  // Of one record.
  char const* m_at = nullptr;
  char const* m_end = nullptr;
  Outcome::Kind m_failure = Outcome::Kind::declined;
  layout::Occurrence m_occurrence;
  std::string m_text;  // without references
  std::vector<unsigned char> m_full;
  std::vector<unsigned char> m_shifted;
  std::span<unsigned char const> m_record;
};

}  // namespace fdmorph::document
