// A batch of records as the text of documents.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "document/decoder.h"
#include "framing/batch.h"

namespace fdmorph::document {

/// A record that is left out of the documents.
struct FailedRecord {
  std::size_t frame;    ///< in Batch::frames
  std::size_t textEnd;  ///< the text of the records before it ends here
  DataErrors errors;
};

/// The documents of a batch. To be used again, since its memory is kept.
struct BatchText {
  TextBuffer text;
  std::vector<FailedRecord> failed;  ///< in the order of the batch
  std::vector<std::size_t> ends;     ///< of the text of each record that is not left out

  void clear() {
    text.clear();
    failed.clear();
    ends.clear();
  }
};

/// Finds what is wrong with the document of a record, which `record` of the set is.
using DocumentCheck =
    std::function<DataErrors(std::string_view document, StoredRecord stored, std::uint32_t record)>;

/// Appends the documents of all records of a batch. Those with errors that `check`
/// finds, if it is given, are left out.
void decodeBatch(Decoder& decoder, framing::Batch const& batch, BatchText& result,
                 DocumentCheck const& check = {});

}  // namespace fdmorph::document
