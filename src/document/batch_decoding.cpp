#include "document/batch_decoding.h"

#include <utility>

namespace fdmorph::document {

void decodeBatch(Decoder& decoder, framing::Batch const& batch, BatchText& result,
                 LongDocuments longDocuments, DocumentCheck const& check) {
  DataErrors errors;
  if (longDocuments == LongDocuments::leftOut) {
    result.text.drainAbove(kLongDocument);
  } else {
    result.text.keepAll();
  }
  for (std::size_t i = 0; i < batch.frames.size(); ++i) {
    StoredRecord record = storedRecord(batch, batch.frames[i]);
    errors.clear();
    std::size_t begin = result.text.text().size();
    bool isDecoded = false;
    bool isLong = false;
    if (batch.frames[i].isCut) {
      errors.push_back({ErrorCode::tooLong,
                        "line of more than " + std::to_string(record.bytes.size()) + " bytes"});
    } else {
      result.text.beginPiece();
      isDecoded = decoder.decode(record, result.text, errors);
      isLong = isDecoded && result.text.drained() > 0;
    }
    if (isDecoded && check) {
      errors = check(result.text.text().substr(begin), record, decoder.chosenRecord());
      isDecoded = errors.empty();
    }
    if (isDecoded && !isLong) {
      result.ends.push_back(result.text.text().size());
    } else {
      if (result.text.text().size() != begin) result.text.setEnd(result.text.begin() + begin);
      result.leftOut.push_back({i, begin, std::exchange(errors, {}), isLong});
    }
  }
}

void writeLong(Decoder& decoder, StoredRecord record, TextBuffer::Drain const& write) {
  TextBuffer text;
  DataErrors errors;
  text.drainAbove(kLongDocument, write);
  static_cast<void>(decoder.decode(record, text, errors));
  write(text.text());
}

}  // namespace fdmorph::document
