// Where records begin in a file: indexFile.
#include <algorithm>
#include <cstring>
#include <utility>

#include "framing/batch.h"
#include "framing/data_range.h"
#include "framing/frame_scanner.h"
#include "framing/record_index.h"
#include "framing/record_reader.h"

namespace fdmorph::framing {
namespace {

constexpr std::size_t kWindow = std::size_t{64} << 10;

// Where records are this long, only descriptors are read, with what the system reads
// along with them.
constexpr std::uint32_t kLongRecord = 4096;
constexpr std::size_t kSmallWindow = 4096;

// Adds the entries that are due.
class Marks {
 public:
  Marks(RecordIndex& index, std::uint64_t step) : m_index(index), m_step(step) {}

  void pass(std::uint64_t number, std::uint64_t offset) {
    if (!m_index.entries.empty() && offset - m_index.entries.back().offset < m_step) return;
    m_index.entries.push_back({number, offset});
  }

 private:
  RecordIndex& m_index;
  std::uint64_t m_step;
};

// Goes from descriptor to descriptor.
class DescriptorIndexer {
 public:
  DescriptorIndexer(InputStream& input, FramingRules const& rules, std::uint64_t step)
      : m_input(input),
        m_range(input, rules, {}),
        m_walk(rules),
        m_marks(m_made.index, step),
        m_offset(input.position()) {}

  MadeIndex run() {
    while (step()) continue;
    m_made.index.records = m_number - 1;
    m_made.index.end = m_offset;
    if (m_input.failure()) m_made.error.reset();
    return std::move(m_made);
  }

 private:
  bool step() {
    if (!load()) return false;
    std::string_view const bytes = m_window.view().substr(m_used);
    if (bytes.empty()) {
      m_made.error = m_walk.finish(m_offset);
      if (!m_made.error) m_made.error = m_range.missingBytes(m_number);
      if (m_made.error) m_made.error->number = m_number;
      return false;
    }
    bool const mayBegin = m_walk.isBetweenBlocks(m_offset);
    DescriptorWalk::Step const found = m_walk.read(bytes, m_offset);
    std::string_view const descriptor = bytes.substr(0, kDescriptorBytes);
    if (found.fault) {
      bool const isRest = *found.fault == FrameFault::blockRest;
      return fail(*found.fault, isRest ? bytes.substr(0, found.size) : descriptor);
    }
    if (mayBegin && !m_begin) m_begin = m_offset;
    if (found.isRecord && m_begin) m_marks.pass(m_number, *std::exchange(m_begin, std::nullopt));
    if (!found.isRecord) return advance(kDescriptorBytes, descriptor);
    m_isLong = found.size >= kLongRecord;
    if (!advance(kDescriptorBytes + found.size, descriptor)) return false;
    ++m_number;
    return true;
  }

  // Has the bytes of a descriptor in the window, as far as the file has them.
  bool load() {
    std::size_t const left = m_window.size() - m_used;
    if (left >= kDescriptorBytes) return true;
    if (left != 0) std::memmove(m_window.data(), m_window.data() + m_used, left);
    std::size_t const wanted = m_isLong ? kSmallWindow : kWindow;
    m_window.resize(wanted);
    m_window.resize(left + m_input.read(m_window.data() + left, wanted - left));
    m_used = 0;
    return !m_input.failure();
  }

  bool advance(std::uint64_t size, std::string_view descriptor) {
    std::size_t const left = m_window.size() - m_used;
    if (size <= left) {
      m_used += static_cast<std::size_t>(size);
    } else {
      if (m_input.skip(size - left) < size - left) return fail(FrameFault::beyondEnd, descriptor);
      m_window.clear();
      m_used = 0;
    }
    m_offset += size;
    return true;
  }

  bool fail(FrameFault fault, std::string_view found) {
    m_made.error = FrameError{fault, m_offset, m_number, std::string(found.substr(0, kMaxFound)),
                              found.size() > kMaxFound};
    return false;
  }

  InputStream& m_input;
  DataRange m_range;
  DescriptorWalk m_walk;
  MadeIndex m_made;
  Marks m_marks;
  ByteBuffer m_window;
  std::size_t m_used = 0;  // bytes of the window
  std::uint64_t m_offset;  // in the file, of what follows
  std::uint64_t m_number = 1;
  std::optional<std::uint64_t> m_begin;  // where the next record may be sought; of its blocks
  bool m_isLong = false;                 // the last record is
};

// Reads all bytes, since line ends may be anywhere.
MadeIndex indexByReading(InputStream& input, FramingRules const& rules, std::uint64_t step) {
  MadeIndex made;
  Marks marks(made.index, step);
  RecordReader reader(input, rules);
  Batch batch;
  while (reader.next(batch)) {
    for (Frame const& each : batch.frames) {
      marks.pass(each.number, each.offset - (each.begin - each.rawBegin));
      made.index.records = each.number;
    }
    made.error = std::move(batch.error);
  }
  made.index.end = batch.end;
  return made;
}

// The places of records of one length follow from the size of the file.
MadeIndex indexBySize(InputStream& input, FramingRules rules, std::uint64_t step) {
  MadeIndex made;
  rules.skip = UINT64_MAX;
  RecordReader reader(input, rules);
  Batch batch;
  if (reader.next(batch)) made.error = std::move(batch.error);
  std::uint64_t const length = rules.recordLength;
  made.index.end = batch.end;
  made.index.records = length == 0 ? 0 : (batch.end - std::min(batch.end, rules.header)) / length;
  std::uint64_t const each = length == 0 ? 1 : step / length + (step % length != 0 ? 1 : 0);
  for (std::uint64_t i = 0; i < made.index.records; i += each) {
    made.index.entries.push_back({i + 1, rules.header + i * length});
  }
  return made;
}

}  // namespace

MadeIndex indexFile(InputStream& input, FramingRules const& rules, std::uint64_t step) {
  FramingRules all = rules;
  all.skip = 0;
  all.limit.reset();
  step = std::max<std::uint64_t>(step, 1);
  bool const isReadWhole = rules.format == Format::lines;
  MadeIndex made = rules.format == Format::fixed ? indexBySize(input, all, step)
                   : isReadWhole                 ? indexByReading(input, all, step)
                                                 : DescriptorIndexer(input, all, step).run();
  made.index.options = indexOptions(all);
  return made;
}

}  // namespace fdmorph::framing
