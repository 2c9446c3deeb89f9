#include "document/encoder.h"

#include <algorithm>
#include <cstring>

#include "layout/extent.h"
#include "layout/shifting.h"

namespace fdmorph::document {
namespace {

using layout::Layout;

// Whether bytes of a record are all in runs, which are in order.
bool areCovered(std::span<ByteRun const> runs, std::uint64_t begin, std::uint64_t size) {
  std::uint64_t const end = begin + size;
  for (ByteRun const& run : runs) {
    if (run.offset > begin) break;
    begin = std::max(begin, run.offset + run.bytes.size());
  }
  return begin >= end;
}

}  // namespace

Encoder::Encoder(layout::RecordSet const& set, NameNumbers const& names, EncodeRules const& rules)
    : m_set(set), m_names(names), m_rules(rules) {
  for (std::uint32_t i = 0; i < set.layouts().size(); ++i) {
    m_encoders.emplace_back(set, i, names, rules);
  }
}

void Encoder::beginRecord() {
  m_absorbing = layout::kNone;
  for (RecordEncoder& each : m_encoders) each.forget();
}

std::vector<std::uint32_t> Encoder::absorb(Instances& instances,
                                           std::vector<std::uint32_t> const& open) {
  if (m_absorbing == layout::kNone) {
    std::vector<std::uint32_t> const candidates = candidatesOf(instances.all[0].name);
    if (candidates.size() != 1) return {};
    m_absorbing = candidates.front();
    m_errors.clear();
  }
  return m_encoders[m_absorbing].absorb(instances, open, m_errors);
}

bool Encoder::encode(Instances const& instances, DataErrors& errors,
                     std::span<ByteRun const> runs) {
  if (instances.all.empty() || instances.all[0].isBroken) return false;
  Instance const& root = instances.all[0];
  std::vector<std::uint32_t> const candidates = candidatesOf(root.name);
  bool const isBegun = m_absorbing != layout::kNone;  // there is one candidate
  if (!isBegun) m_errors.clear();
  m_absorbing = layout::kNone;
  std::vector<DataError> first;
  bool isChosen = false;
  for (std::uint32_t record : candidates) {
    if (!isBegun) m_errors.clear();
    // An error of the reader may be the reason why no rule holds.
    encodeAs(record, instances, runs, errors.empty());
    bool isTested = m_set.hasRecordRules() && m_errors.isEmpty() && errors.empty();
    isChosen = m_errors.isEmpty() && (!isTested || chosenRecord() == record);
    if (isChosen) break;
    if (first.empty()) first = m_errors.all();
  }
  if (!isChosen && first.empty() && errors.empty()) {
    DataError error{ErrorCode::view, "the rules choose another record"};
    if (candidates.empty()) error.text = "no rule chooses this record";
    if (root.name < m_names.size()) error.path = m_names.localName(root.name);
    error.line = root.line;
    error.column = root.column;
    first.push_back(std::move(error));
  }
  if (!isChosen) errors.insert(errors.end(), first.begin(), first.end());
  sortErrors(errors, kMaxErrorsPerRecord);
  return errors.empty();
}

// The records of a name: without rules the first record of all, else those with a rule,
// too.
std::vector<std::uint32_t> Encoder::candidatesOf(std::uint32_t name) const {
  std::vector<std::uint32_t> candidates;
  for (std::uint32_t i = 0; i < m_set.layouts().size(); ++i) {
    if (m_names.numberOf(m_set.layouts()[i][0].name) != name) continue;
    bool hasRule = std::ranges::any_of(
        m_set.recordRules(), [i](layout::ViewRule const& rule) { return rule.chosen == i; });
    if (hasRule || i == 0) candidates.push_back(i);
  }
  return candidates;
}

// Views are checked if the document has no other error.
void Encoder::encodeAs(std::uint32_t record, Instances const& instances,
                       std::span<ByteRun const> runs, bool checksViews) {
  RecordEncoder& encoder = m_encoders[record];
  encoder.encode(instances, runs, m_errors);
  locateErrors(record, runs);
  finish(record, runs);
  if (!checksViews) return;
  encoder.checkViews(m_rules.endsWithViews && !m_set.layouts()[record].shifts()
                         ? m_result.bytes.size()
                         : encoder.bytes().size(),
                     m_errors);
}

// Gives errors their places in the record as it is written, and drops those of items
// whose bytes are known.
void Encoder::locateErrors(std::uint32_t record, std::span<ByteRun const> runs) {
  Layout const& layout = m_set.layouts()[record];
  std::vector<unsigned char> const& bytes = m_encoders[record].bytes();
  if (layout.shifts()) {
    for (DataError& each : m_errors.all()) {
      if (each.size == 0) continue;
      each.offset = shiftedOffset(layout, m_set.values(), bytes.data(), each.offset);
    }
  }
  if (runs.empty()) return;
  std::erase_if(m_errors.all(), [&](DataError const& each) {
    bool isText = each.code == ErrorCode::character || each.code == ErrorCode::length;
    return isText && each.size > 0 && areCovered(runs, each.offset, each.size);
  });
}

// The bytes of the record as it is written.
void Encoder::finish(std::uint32_t record, std::span<ByteRun const> runs) {
  Layout const& layout = m_set.layouts()[record];
  RecordEncoder& encoder = m_encoders[record];
  std::vector<unsigned char>& full = encoder.bytes();
  std::uint64_t end = full.size();
  if (m_rules.endsWithViews && !layout.areas().empty()) {
    end = endOf(m_set, record, {full.data(), full.size()}, layout::Extent::largest);
    end = std::max(end, encoder.endOfTexts());
  }
  m_result = {record, {}, encoder.counts()};
  if (!layout.shifts()) {
    // Counts stay where they are without the runs.
    for (ByteRun const& run : runs) {
      if (m_set.rules().hasCounts) break;
      std::uint64_t size = std::min<std::uint64_t>(run.offset + run.bytes.size(), full.size());
      end = std::max(end, size);
    }
    m_result.bytes = std::span(full).first(end);
    return;
  }
  m_shifted.resize(full.size());
  // With errors the counters may be wrong.
  if (!m_errors.isEmpty()) return;
  std::uint64_t size = shift(layout, m_set.values(), full.data(), m_shifted.data());
  if (end < full.size()) size = shiftedOffset(layout, m_set.values(), full.data(), end);
  if (!runs.empty()) {
    for (ByteRun const& run : runs) {
      if (run.offset >= size) continue;
      std::memcpy(m_shifted.data() + run.offset, run.bytes.data(),
                  std::min<std::uint64_t>(run.bytes.size(), size - run.offset));
    }
    layout.setAbsent(full);
    static_cast<void>(spread(layout, m_set.values(), m_shifted.data(), size, full.data()));
  }
  m_result.bytes = std::span(m_shifted).first(size);
}

// The record that the rules choose for the one that was encoded last.
std::uint32_t Encoder::chosenRecord() {
  for (layout::ViewRule const& rule : m_set.recordRules()) {
    if (holds(rule)) return rule.chosen;
  }
  return layout::kNone;
}

// A rule may look at the record as if it were another one.
bool Encoder::holds(layout::ViewRule const& rule) {
  if (rule.comparisons.empty()) return true;  // it looks at no record
  std::vector<unsigned char> const& own = m_encoders[m_result.record].bytes();
  layout::RecordBytes bytes{own.data(), own.size()};
  std::span<unsigned char const> written = m_result.bytes;
  if (rule.record == m_result.record) {
    bool isCut = m_rules.endsWithViews && !m_set.layouts()[rule.record].shifts();
    if (isCut) bytes.available = written.size();
  } else {
    Layout const& layout = m_set.layouts()[rule.record];
    layout.setAbsent(m_other);
    bytes = {m_other.data(), m_other.size()};
    if (layout.shifts()) {
      bytes.available =
          spread(layout, m_set.values(), written.data(), written.size(), m_other.data()).available;
    } else {
      std::size_t size = std::min(written.size(), m_other.size());
      std::memcpy(m_other.data(), written.data(), size);
      // Records of one length are filled up with blanks.
      std::fill(m_other.begin() + static_cast<std::ptrdiff_t>(size), m_other.end(),
                m_set.values().conventions().codePage->blank());
      if (m_rules.endsWithViews || !m_rules.isFilledUp) bytes.available = size;
    }
  }
  return m_set.holds(rule, bytes, {});
}

}  // namespace fdmorph::document
