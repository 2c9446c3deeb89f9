#include "fdrec/round_trip.h"

#include <algorithm>
#include <cstring>

namespace fdmorph::fdrec {
namespace {

std::span<unsigned char const> bytesOf(std::string_view text) {
  return {reinterpret_cast<unsigned char const*>(text.data()), text.size()};
}

}  // namespace

RoundTrip::RoundTrip(DataInput const& input, DataOptions const& data, document::Syntax syntax)
    : m_syntax(syntax),
      m_names(input.set().names(), nameMatch(data, syntax)),
      m_options(makeReaderOptions(input.set(), m_names, data)),
      m_encoder(input.set(), m_names, makeEncodeRules(data, syntax)),
      m_form(input) {
  m_options.absorption.absorber = &m_encoder;
}

std::vector<TrippedRecord> RoundTrip::run(framing::Batch const& batch,
                                          document::BatchText const& text,
                                          document::Decoder& decoder) {
  std::string_view rest = text.text.text();
  auto read = [&rest](std::span<char> buffer) -> std::optional<std::size_t> {
    std::size_t size = std::min(buffer.size(), rest.size());
    std::memcpy(buffer.data(), rest.data(), size);
    rest.remove_prefix(size);
    return size;
  };
  auto reader = makeDocumentReader(m_syntax, read, m_names, m_options);
  std::vector<TrippedRecord> results;
  document::DocumentRecord record;
  std::size_t failed = 0;
  auto leftOut = text.leftOut.begin();
  for (std::size_t frame = 0; frame < batch.frames.size(); ++frame) {
    bool const isLeftOut = leftOut != text.leftOut.end() && leftOut->frame == frame;
    bool const isLong = isLeftOut && leftOut->isLong;
    if (isLeftOut) ++leftOut;
    if (isLeftOut && !isLong) {
      ++failed;
      continue;
    }
    TrippedRecord result;
    result.frame = frame;
    result.ordinal = frame - failed;
    bool const isRead =
        isLong ? readLong(document::storedRecord(batch, batch.frames[frame]), decoder, record)
               : reader->next(record);
    if (!isRead) break;
    compare(batch.data(batch.frames[frame]), record, result);
    bool isSame = result.residue.isEmpty() && result.error.empty();
    if (!isSame) results.push_back(std::move(result));
  }
  return results;
}

// A document that is too long for the memory goes through a file.
bool RoundTrip::readLong(document::StoredRecord stored, document::Decoder& decoder,
                         document::DocumentRecord& record) {
  document::RecordText text;
  document::writeLong(decoder, stored, [&text](std::string_view piece) {
    text += piece;
    if (text.memory().size() > document::RecordText::kLong) text.spill(0);
  });
  std::uint64_t offset = 0;
  auto read = [&text, &offset](std::span<char> buffer) -> std::optional<std::size_t> {
    std::size_t const size = text.read(offset, buffer);
    offset += size;
    return size;
  };
  return makeDocumentReader(m_syntax, read, m_names, m_options)->next(record);
}

void RoundTrip::compare(std::string_view stored, document::DocumentRecord& record,
                        TrippedRecord& result) {
  bool isEncoded =
      !record.instances.all.empty() && m_encoder.encode(record.instances, record.errors);
  if (isEncoded && record.errors.empty()) {
    std::string_view made = m_form.assemble(m_encoder.result());
    result.residue = document::differenceOf(bytesOf(stored), bytesOf(made), {});
    if (!result.residue.isEmpty()) result.made = made;
    return;
  }
  result.error = record.errors.empty() ? "the document is empty" : record.errors.front().text;
  result.residue.length = stored.size();
  if (!stored.empty()) result.residue.runs.push_back({0, std::string(stored)});
}

}  // namespace fdmorph::fdrec
