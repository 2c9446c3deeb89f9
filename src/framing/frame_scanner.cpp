#include "framing/frame_scanner.h"

#include <algorithm>

namespace fdmorph::framing {
namespace {

constexpr char kLineFeed = '\n';
constexpr char kReturn = '\r';
constexpr std::size_t kLineGrowth = std::size_t{256} << 10;  // bytes

std::uint64_t sumOrMax(std::uint64_t left, std::uint64_t right) {
  return left > UINT64_MAX - right ? UINT64_MAX : left + right;
}

FrameError errorAt(FrameFault fault, std::uint64_t offset, std::string_view found) {
  return {fault, offset, 0, std::string(found.substr(0, kMaxFound)), found.size() > kMaxFound};
}

// What a message shows of a descriptor.
std::string_view descriptorIn(std::string_view bytes) {
  return bytes.substr(0, kDescriptorBytes);
}

}  // namespace

DescriptorWalk::DescriptorWalk(FramingRules const& rules)
    : m_form(rules), m_isBlocked(rules.format == Format::bdw) {}

DescriptorWalk::Step DescriptorWalk::read(std::string_view bytes, std::uint64_t offset) {
  m_isInBlock = m_isInBlock && offset != m_blockEnd;
  bool const isRecord = !m_isBlocked || m_isInBlock;
  if (m_isInBlock && m_blockEnd - offset < kDescriptorBytes) {
    return {isRecord, static_cast<std::uint32_t>(m_blockEnd - offset), FrameFault::blockRest};
  }
  if (bytes.size() < kDescriptorBytes) return {isRecord, 0, FrameFault::partialDescriptor};
  Descriptor const found =
      isRecord ? m_form.readRecord(bytes.data()) : m_form.readBlock(bytes.data());
  if (found.fault) return {isRecord, 0, found.fault};
  std::uint64_t const end = offset + kDescriptorBytes + found.size;
  if (isRecord) {
    if (m_isInBlock && end > m_blockEnd) return {isRecord, 0, FrameFault::beyondBlock};
    return {isRecord, found.size, std::nullopt};
  }
  m_isInBlock = found.size != 0;
  m_blockBegin = offset;
  m_blockEnd = end;
  m_blockDescriptor = descriptorIn(bytes);
  return {isRecord, found.size, std::nullopt};
}

std::optional<FrameError> DescriptorWalk::finish(std::uint64_t offset) const {
  if (!m_isInBlock || offset == m_blockEnd) return std::nullopt;
  return errorAt(FrameFault::beyondEnd, m_blockBegin, m_blockDescriptor);
}

// One call of FrameScanner::scan.
struct FrameScanner::Scan {
  std::string_view bytes;
  std::uint64_t offset;
  bool isEnd;
  std::vector<Frame>& frames;
  std::size_t maxFrames;
  FrameScanner& scanner;
  Result result{};

  bool isFull() const { return frames.size() >= maxFrames || scanner.isComplete(); }
  std::string_view rest() const { return bytes.substr(result.used); }
  std::uint64_t position() const { return offset + result.used; }

  void fail(FrameFault fault, std::string_view found) {
    result.error = errorAt(fault, position(), found);
  }

  // The next record has `before` bytes, then `size` bytes of data, then `after` bytes.
  void add(std::size_t before, std::size_t size, std::size_t after) {
    std::uint64_t const number = scanner.m_number++;
    if (number > scanner.m_rules.skip) {
      frames.push_back({position() + before, number, result.used + before, size, result.used,
                        before + size + after});
    }
    result.used += before + size + after;
  }
};

FrameScanner::FrameScanner(FramingRules const& rules, std::uint64_t firstNumber)
    : m_rules(rules),
      m_walk(rules),
      m_number(firstNumber),
      m_lastNumber(rules.limit ? sumOrMax(rules.skip, *rules.limit) : UINT64_MAX),
      m_lineLimit(std::max(rules.maxRecordLength, kMinLineLimit)) {}

FrameScanner::Result FrameScanner::scan(std::string_view bytes, std::uint64_t offset, bool isEnd,
                                        std::vector<Frame>& frames, std::size_t maxFrames) {
  Scan scan{bytes, offset, isEnd, frames, maxFrames, *this};
  switch (m_rules.format) {
    case Format::fixed:
      scanFixed(scan);
      break;
    case Format::rdw:
    case Format::bdw:
    case Format::gnucobolVariable:
      scanDescriptors(scan);
      break;
    case Format::lines:
      scanLines(scan);
      break;
  }
  if (scan.result.error) scan.result.error->number = m_number;
  return scan.result;
}

void FrameScanner::scanFixed(Scan& scan) const {
  std::uint64_t const length = m_rules.recordLength;
  if (scan.isFull() || scan.bytes.empty()) return;
  if (length == 0) return scan.fail(FrameFault::noLength, scan.rest());
  while (!scan.isFull()) {
    std::size_t const left = scan.bytes.size() - scan.result.used;
    if (left < length) {
      if (scan.isEnd && left != 0) scan.fail(FrameFault::partialRecord, scan.rest());
      scan.result.needed = static_cast<std::size_t>(length);
      return;
    }
    scan.add(0, static_cast<std::size_t>(length), 0);
  }
}

void FrameScanner::scanDescriptors(Scan& scan) {
  while (!scan.isFull()) {
    std::string_view const rest = scan.rest();
    if (rest.empty() && scan.isEnd) {
      scan.result.error = m_walk.finish(scan.position());
      return;
    }
    if (rest.size() < kDescriptorBytes && !scan.isEnd) {
      scan.result.needed = kDescriptorBytes;
      return;
    }
    DescriptorWalk::Step const step = m_walk.read(rest, scan.position());
    if (step.fault) {
      bool const isRest = *step.fault == FrameFault::blockRest;
      return scan.fail(*step.fault, isRest ? rest.substr(0, step.size) : descriptorIn(rest));
    }
    if (!step.isRecord) {
      scan.result.used += kDescriptorBytes;
      continue;
    }
    std::size_t const size = kDescriptorBytes + step.size;
    if (rest.size() < size) {
      if (scan.isEnd) scan.fail(FrameFault::beyondEnd, descriptorIn(rest));
      scan.result.needed = size;
      return;
    }
    scan.add(kDescriptorBytes, step.size, 0);
  }
}

void FrameScanner::scanLines(Scan& scan) {
  while (!scan.isFull()) {
    std::string_view const rest = scan.rest();
    if (rest.empty()) return;
    std::size_t const end = rest.find(kLineFeed, m_searched);
    if (end != std::string_view::npos) {
      std::size_t const size = end != 0 && rest[end - 1] == kReturn ? end - 1 : end;
      scan.add(0, size, end + 1 - size);
    } else if (scan.isEnd) {
      scan.add(0, rest.size(), 0);
    } else if (rest.size() > m_lineLimit) {
      m_isReturnPending = rest.back() == kReturn;
      std::size_t const size = m_isReturnPending ? rest.size() - 1 : rest.size();
      scan.add(0, size, rest.size() - size);
      scan.result.isLineOpen = true;
      m_searched = 0;
      return;
    } else {
      m_searched = rest.size();
      // A quarter more: what follows the line is in memory as well.
      std::uint64_t const more = rest.size() + rest.size() / 4 + kLineGrowth;
      scan.result.needed = static_cast<std::size_t>(std::min(m_lineLimit + 1, more));
      return;
    }
    m_searched = 0;
  }
}

// A return is text unless a line feed follows it, perhaps in the next piece.
std::optional<std::size_t> FrameScanner::continueLine(std::string_view bytes, bool isEnd,
                                                      Frame* frame) {
  if (bytes.empty() && !isEnd) return std::nullopt;
  std::size_t const end = bytes.find(kLineFeed);
  bool const isEnded = end != std::string_view::npos;
  bool hasText = m_isReturnPending && end != 0;
  std::string_view text = bytes.substr(0, end);
  bool const isReturnLast = text.ends_with(kReturn) && (isEnded || !isEnd);
  if (isReturnLast) text.remove_suffix(1);
  m_isReturnPending = isReturnLast && !isEnded;
  hasText = hasText || text.find_first_not_of(m_rules.blank) != std::string_view::npos;
  if (frame != nullptr) frame->isCut = frame->isCut || hasText;
  if (!isEnded) return std::nullopt;
  return end + 1;
}

}  // namespace fdmorph::framing
