// A batch of records as the text of documents.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "document/decoder.h"
#include "framing/batch.h"

namespace fdmorph::document {

/// A record that is left out of the text.
struct LeftOutRecord {
  std::size_t frame;    ///< in Batch::frames
  std::size_t textEnd;  ///< the text of the records before it ends here
  DataErrors errors;
  bool isLong = false;  ///< it has no errors, but its document is too long to be kept
};

/// The documents of a batch. To be used again, since its memory is kept.
struct BatchText {
  TextBuffer text;
  std::vector<LeftOutRecord> leftOut;  ///< in the order of the batch
  std::vector<std::size_t> ends;       ///< of the text of each record that is not left out

  /// The number of documents, those that are too long to be kept included.
  [[nodiscard]] std::size_t documents() const {
    auto const isLong = [](LeftOutRecord const& each) { return each.isLong; };
    return ends.size() + static_cast<std::size_t>(std::ranges::count_if(leftOut, isLong));
  }

  void clear() {
    text.clear();
    leftOut.clear();
    ends.clear();
  }
};

/// The longest document that is kept until it is written, in bytes, where others are not.
inline constexpr std::size_t kLongDocument = std::size_t{4} << 20;

/// Whether documents of any length are kept in the text of a batch. Others are only
/// looked at for errors, and are to be made again when it is their turn.
enum class LongDocuments : bool { kept, leftOut };

/// Finds what is wrong with the document of a record, which `record` of the set is.
using DocumentCheck =
    std::function<DataErrors(std::string_view document, StoredRecord stored, std::uint32_t record)>;

/// Appends the documents of all records of a batch. Those with errors that `check`
/// finds, if it is given, are left out. It needs documents that are kept.
void decodeBatch(Decoder& decoder, framing::Batch const& batch, BatchText& result,
                 LongDocuments longDocuments = LongDocuments::kept,
                 DocumentCheck const& check = {});

/// Makes the document of one record once more, and gives it to `write` in pieces. The
/// record has no errors.
void writeLong(Decoder& decoder, StoredRecord record, TextBuffer::Drain const& write);

/// The bytes of a record in a batch.
[[nodiscard]] inline StoredRecord storedRecord(framing::Batch const& batch,
                                               framing::Frame const& frame) {
  std::string_view data = batch.data(frame);
  return {{reinterpret_cast<unsigned char const*>(data.data()), data.size()}};
}

}  // namespace fdmorph::document
