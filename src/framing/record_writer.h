// Records written to a file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "framing/batch.h"
#include "framing/descriptor.h"
#include "framing/framing_rules.h"
#include "framing/output_stream.h"

namespace fdmorph::framing {

enum class WriteResult : std::uint8_t {
  written,   ///< or not, if the output has failed
  tooLong,   ///< longer than a descriptor, or a record of the file, can be
  lineFeed,  ///< it has a line feed, which would end its line
};

/// The result in words, as the text of a message; nothing if it was written.
[[nodiscard]] std::string_view wordsOf(WriteResult result);

/// Writes records one after another. Failures of the output are its own to tell.
class RecordWriter {
 public:
  /// `output` is open and must outlive this object.
  RecordWriter(OutputStream& output, FramingRules const& rules);

  /// What becomes of the blanks at the end of a line.
  enum class LineEnd : std::uint8_t { trimmed, exact };

  /// Writes a record, or leaves it out. In a `fixed` file it is padded with blanks, as
  /// a line it loses those at its end.
  [[nodiscard]] WriteResult write(std::string_view record, LineEnd end = LineEnd::trimmed);

  /// Writes a record as it was in the file that it was read from, which has the same
  /// rules. In a file of blocks it goes to blocks of this file. A line that was cut is
  /// written without the rest.
  void writeRaw(Batch const& batch, Frame const& frame);

  /// Writes the last block. To be called once, before the output is completed.
  void finish();

 private:
  WriteResult writeFixed(std::string_view record);
  WriteResult writeDescribed(std::string_view record);
  WriteResult writeBlocked(std::string_view record);
  WriteResult writeLine(std::string_view record, LineEnd end);

  OutputStream& m_output;
  FramingRules const m_rules;
  DescriptorForm m_form;
  std::string m_block;   // records, with their descriptors, that are not written yet
  std::string m_blanks;  // to pad with
};

}  // namespace fdmorph::framing
