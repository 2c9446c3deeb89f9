#include "document/batch_decoding.h"

#include <utility>

namespace fdmorph::document {

void decodeBatch(Decoder& decoder, framing::Batch const& batch, BatchText& result,
                 DocumentCheck const& check) {
  DataErrors errors;
  for (std::size_t i = 0; i < batch.frames.size(); ++i) {
    std::string_view data = batch.data(batch.frames[i]);
    StoredRecord record{{reinterpret_cast<unsigned char const*>(data.data()), data.size()}};
    errors.clear();
    std::size_t begin = result.text.text().size();
    bool isDecoded = false;
    if (batch.frames[i].isCut) {
      errors.push_back(
          {ErrorCode::tooLong, "line of more than " + std::to_string(data.size()) + " bytes"});
    } else {
      isDecoded = decoder.decode(record, result.text, errors);
    }
    if (isDecoded && check) {
      errors = check(result.text.text().substr(begin), record, decoder.chosenRecord());
      isDecoded = errors.empty();
      if (!isDecoded) result.text.setEnd(result.text.begin() + begin);
    }
    std::size_t end = result.text.text().size();
    if (isDecoded) {
      result.ends.push_back(end);
    } else {
      result.failed.push_back({i, end, std::exchange(errors, {})});
    }
  }
}

}  // namespace fdmorph::document
