#include "framing/record_writer.h"

#include <algorithm>

namespace fdmorph::framing {
namespace {

constexpr std::size_t kBlanks = 4096;

std::string_view viewOf(DescriptorForm::Bytes const& bytes) {
  return {bytes.data(), bytes.size()};
}

}  // namespace

std::string_view wordsOf(WriteResult result) {
  switch (result) {
    case WriteResult::written:
      break;
    case WriteResult::tooLong:
      return "the record is too long for its file";
    case WriteResult::lineFeed:
      return "the record has a line feed (x'0A') in it";
  }
  return {};
}

RecordWriter::RecordWriter(OutputStream& output, FramingRules const& rules)
    : m_output(output), m_rules(rules), m_form(rules) {
  if (rules.format == Format::fixed) m_blanks.assign(kBlanks, rules.blank);
  if (rules.format == Format::bdw) m_block.reserve(rules.blockSize);
}

WriteResult RecordWriter::write(std::string_view record, LineEnd end) {
  switch (m_rules.format) {
    case Format::fixed:
      return writeFixed(record);
    case Format::rdw:
    case Format::gnucobolVariable:
      return writeDescribed(record);
    case Format::bdw:
      return writeBlocked(record);
    case Format::lines:
      return writeLine(record, end);
  }
  return WriteResult::written;
}

WriteResult RecordWriter::writeFixed(std::string_view record) {
  if (record.size() > m_rules.recordLength) return WriteResult::tooLong;
  m_output.write(record);
  std::uint64_t missing = m_rules.recordLength - record.size();
  while (missing != 0 && !m_output.failure()) {
    std::uint64_t const step = std::min<std::uint64_t>(missing, m_blanks.size());
    m_output.write(std::string_view(m_blanks).substr(0, static_cast<std::size_t>(step)));
    missing -= step;
  }
  return WriteResult::written;
}

WriteResult RecordWriter::writeDescribed(std::string_view record) {
  std::optional<DescriptorForm::Bytes> const descriptor = m_form.forRecord(record.size());
  if (!descriptor) return WriteResult::tooLong;
  m_output.write(viewOf(*descriptor));
  m_output.write(record);
  return WriteResult::written;
}

WriteResult RecordWriter::writeBlocked(std::string_view record) {
  std::size_t const size = kDescriptorBytes + record.size();
  std::optional<DescriptorForm::Bytes> const descriptor = m_form.forRecord(record.size());
  if (!descriptor || !m_form.forBlock(size)) return WriteResult::tooLong;
  if (kDescriptorBytes + m_block.size() + size > m_rules.blockSize) finish();
  m_block.append(viewOf(*descriptor)).append(record);
  return WriteResult::written;
}

WriteResult RecordWriter::writeLine(std::string_view record, LineEnd end) {
  if (record.find('\n') != std::string_view::npos) return WriteResult::lineFeed;
  // None is found in a record of blanks: npos + 1 is 0.
  if (end == LineEnd::trimmed) {
    record = record.substr(0, record.find_last_not_of(m_rules.blank) + 1);
  }
  m_output.write(record);
  m_output.write("\n");
  return WriteResult::written;
}

void RecordWriter::writeRaw(Batch const& batch, Frame const& frame) {
  if (m_rules.format == Format::bdw) {
    // It was in a block, so it fits one.
    [[maybe_unused]] WriteResult const result = writeBlocked(batch.data(frame));
    return;
  }
  m_output.write(batch.raw(frame));
  if (frame.isCut) m_output.write("\n");
}

void RecordWriter::finish() {
  if (m_block.empty()) return;
  // One record fits a block, and so do several within the block size.
  if (auto const descriptor = m_form.forBlock(m_block.size())) m_output.write(viewOf(*descriptor));
  m_output.write(m_block);
  m_block.clear();
}

}  // namespace fdmorph::framing
