// Records of a file, read in order.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "framing/batch.h"
#include "framing/data_range.h"
#include "framing/frame_scanner.h"
#include "framing/framing_rules.h"
#include "framing/input_stream.h"

namespace fdmorph::framing {

/// Reads a file in batches of records. One thread at a time may call next(); batches
/// do not depend on the reader.
///
/// Memory: what each batch holds, about kBatchBytes or the longest record, and what
/// one more record needs.
class RecordReader {
 public:
  /// Bytes of a batch, unless one record is longer. Small, since the text made of
  /// them is several times as long, and they should stay in the cache.
  static constexpr std::size_t kBatchBytes = std::size_t{256} << 10;

  /// Reads the whole data of `input`, which nothing has been read of, or a part of
  /// them. `input` must outlive this object.
  RecordReader(InputStream& input, FramingRules const& rules, PartRange const& part = {},
               std::size_t batchBytes = kBatchBytes);

  /// Replaces the content of `batch` by the next records. False if there are none, and
  /// then there is no error either: the data end, or could not be read further, which
  /// input.failure() says. A batch may have an error and no records.
  [[nodiscard]] bool next(Batch& batch);

 private:
  void start();
  void skipFixed();
  void fill(ByteBuffer& bytes, std::uint64_t target);
  void finishLine(Frame* frame);
  void takeRest(ByteBuffer& bytes);
  void keepRest(std::string_view rest);

  InputStream& m_input;
  FramingRules const m_rules;
  PartRange const m_part;
  std::size_t m_batchBytes;
  FrameScanner m_scanner;
  std::optional<DataRange> m_range;  // none before the first batch
  bool m_isEnd = false;              // of the input
  bool m_isDone = false;             // nothing is delivered any more
  ByteBuffer m_rest;                 // bytes after the last batch
  std::uint64_t m_offset = 0;        // in the file, of these
};

}  // namespace fdmorph::framing
