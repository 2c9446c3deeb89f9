#include "framing/record_reader.h"

#include <algorithm>
#include <cstring>

namespace fdmorph::framing {
namespace {

// Bounds the memory for frames where records are of a few bytes.
constexpr std::size_t kMaxFrames = std::size_t{16} << 10;

constexpr std::size_t kLineStep = std::size_t{64} << 10;

// Moves the bytes from `used` on to the beginning.
void dropFront(ByteBuffer& bytes, std::size_t used) {
  if (used == 0) return;
  std::size_t const left = bytes.size() - used;
  if (left != 0) std::memmove(bytes.data(), bytes.data() + used, left);
  bytes.resize(left);
}

}  // namespace

RecordReader::RecordReader(InputStream& input, FramingRules const& rules, PartRange const& part,
                           std::size_t batchBytes)
    : m_input(input),
      m_rules(rules),
      m_part(part),
      m_batchBytes(std::max<std::size_t>(batchBytes, 1)),
      m_scanner(rules, part.firstNumber) {
  // A batch of whole records leaves nothing to move to the next one.
  if (rules.format != Format::fixed || rules.recordLength == 0) return;
  if (rules.recordLength > m_batchBytes) return;
  std::size_t const length = static_cast<std::size_t>(rules.recordLength);
  m_batchBytes = std::min(m_batchBytes / length, kMaxFrames) * length;
}

void RecordReader::start() {
  m_range.emplace(m_input, m_rules, m_part);
  if (m_rules.format == Format::fixed) skipFixed();
  m_offset = m_input.position();
}

// Passes over the skipped records that are whole. The scanner does the same, but has to
// read them.
void RecordReader::skipFixed() {
  std::uint64_t const next = m_scanner.nextNumber();
  if (m_rules.recordLength == 0 || !m_input.end() || m_rules.skip < next) return;
  std::uint64_t const position = m_input.position();
  std::uint64_t const left = *m_input.end() - std::min(*m_input.end(), position);
  std::uint64_t const records = std::min(m_rules.skip - next + 1, left / m_rules.recordLength);
  std::uint64_t const bytes = records * m_rules.recordLength;
  if (m_input.skip(bytes) == bytes) m_scanner.passOver(records);
}

bool RecordReader::next(Batch& batch) {
  batch.frames.clear();
  batch.error.reset();
  if (!m_range) start();
  batch.end = m_offset;
  std::uint64_t target = m_batchBytes;
  takeRest(batch.bytes);
  while (batch.frames.empty() && !m_isDone && !m_scanner.isComplete()) {
    fill(batch.bytes, target);
    std::size_t const size = batch.bytes.size();
    bool const hasFailed = m_input.failure().has_value();
    FrameScanner::Result result = m_scanner.scan(batch.bytes.view(), m_offset,
                                                 m_isEnd && !hasFailed, batch.frames, kMaxFrames);
    // A batch that is full may hide a fault at the end.
    bool const isUsedUp = m_isEnd && result.used == size && batch.frames.size() < kMaxFrames;
    m_isDone = hasFailed || result.error || isUsedUp;
    batch.error = std::move(result.error);
    if (isUsedUp && !hasFailed && !batch.error) {
      batch.error = m_range->missingBytes(m_scanner.nextNumber());
    }
    m_offset += result.used;
    if (result.isLineOpen) {
      finishLine(batch.frames.empty() ? nullptr : &batch.frames.back());
      if (batch.frames.empty()) takeRest(batch.bytes);
    } else if (!batch.frames.empty()) {
      keepRest(batch.bytes.view().substr(result.used));
    } else {
      // All records so far are skipped, or the first one is not complete.
      dropFront(batch.bytes, result.used);
      target = std::max<std::uint64_t>(result.needed, m_batchBytes);
    }
  }
  batch.end = m_offset;
  return !batch.frames.empty() || batch.error;
}

void RecordReader::takeRest(ByteBuffer& bytes) {
  bytes.clear();
  bytes.resize(m_rest.size());
  std::copy_n(m_rest.data(), m_rest.size(), bytes.data());
  m_rest.clear();
}

void RecordReader::keepRest(std::string_view rest) {
  m_rest.clear();
  m_rest.resize(rest.size());
  std::copy_n(rest.data(), rest.size(), m_rest.data());
}

// Reads until there are `target` bytes. The memory follows the bytes that come, and not a
// length that a small file only claims.
void RecordReader::fill(ByteBuffer& bytes, std::uint64_t target) {
  if (bytes.size() >= target || m_isEnd) return;
  if (std::optional<std::uint64_t> const end = m_input.end()) {
    std::uint64_t const left = *end - std::min(*end, m_input.position());
    bytes.reserve(static_cast<std::size_t>(std::min(target, bytes.size() + left)));
  }
  while (bytes.size() < target && !m_isEnd) {
    std::size_t const before = bytes.size();
    std::size_t const most = std::max(before, m_batchBytes);
    std::size_t const step =
        static_cast<std::size_t>(std::min<std::uint64_t>(target - before, most));
    bytes.resize(before + step);
    std::size_t const got = m_input.read(bytes.data() + before, step);
    bytes.resize(before + got);
    m_isEnd = got < step;
  }
}

// Passes over the rest of a line that is too long to be kept.
void RecordReader::finishLine(Frame* frame) {
  while (true) {
    m_rest.resize(kLineStep);
    m_rest.resize(m_input.read(m_rest.data(), kLineStep));
    m_isEnd = m_rest.size() < kLineStep;
    std::optional<std::size_t> const used = m_scanner.continueLine(m_rest.view(), m_isEnd, frame);
    m_offset += used.value_or(m_rest.size());
    dropFront(m_rest, used.value_or(m_rest.size()));
    if (used || m_isEnd) return;
  }
}

}  // namespace fdmorph::framing
