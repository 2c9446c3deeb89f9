#include "document/record_preparation.h"

#include <algorithm>

#include "document/value_errors.h"
#include "layout/extent.h"

namespace fdmorph::document {

using layout::Layout;

PreparedRecord const& RecordPreparation::prepare(StoredRecord record) {
  m_result.stored = record;
  m_result.fault.reset();
  m_result.error.reset();
  static_cast<void>(choose(record) && splitCounts() && lookAt(m_result.stored));
  return m_result;
}

void RecordPreparation::fail(ErrorCode code, std::string text) {
  m_result.error.emplace(DataError{code, std::move(text)});
  std::span<unsigned char const> bytes = m_result.stored.bytes;
  m_result.error->bytes = shownBytes(bytes, 0, bytes.size());
}

// The first record whose rule holds, or the first one without rules.
bool RecordPreparation::choose(StoredRecord record) {
  m_result.record = 0;
  if (!m_set.hasRecordRules()) return true;
  for (layout::ViewRule const& rule : m_set.recordRules()) {
    if (!holds(rule, record)) continue;
    m_result.record = rule.chosen;
    return true;
  }
  fail(ErrorCode::view, "no rule of a record holds");
  return false;
}

// Whether a rule holds for a record, if it is the one that the rule chooses: its counts
// are no data, and a line is as long as it.
bool RecordPreparation::holds(layout::ViewRule const& rule, StoredRecord const& record) {
  if (rule.comparisons.empty()) return true;
  std::span<unsigned char const> data = record.bytes;
  bool hasCounts = m_set.rules().hasCounts && record.counts.empty();
  if (hasCounts && m_lengths.countsAt) {
    data = data.first(std::min<std::uint64_t>(data.size(), *m_lengths.countsAt));
  } else if (hasCounts) {
    std::uint64_t size = m_set.layouts()[rule.chosen].countSize();
    data = data.first(data.size() < size ? 0 : data.size() - size);
  }
  data = filledUp(data, m_set.layouts()[rule.chosen]);
  Layout const& tested = m_set.layouts()[rule.record];
  layout::RecordBytes bytes{data.data(), data.size()};
  if (tested.shifts()) {
    tested.setAbsent(m_full);
    bytes = {m_full.data(),
             layout::spread(tested, m_values, data.data(), data.size(), m_full.data()).available};
  }
  return m_set.holds(rule, bytes, {});
}

// A line with blanks up to the length of a record; other data as it is.
std::span<unsigned char const> RecordPreparation::filledUp(std::span<unsigned char const> data,
                                                           Layout const& layout) {
  bool isLine = m_lengths.ending == LengthRules::Ending::blanks;
  if (!isLine || data.size() >= layout.size()) return data;
  m_filled.assign(layout.size(), m_values.conventions().codePage->blank());
  std::ranges::copy(data, m_filled.begin());
  return m_filled;
}

// Takes the count record from the bytes of a record in a file.
bool RecordPreparation::splitCounts() {
  std::uint64_t size = m_set.layouts()[m_result.record].countSize();
  bool isSplit = !m_set.rules().hasCounts || !m_result.stored.counts.empty() || size == 0;
  if (isSplit && !m_lengths.countsAt) return true;
  std::uint64_t found = m_result.stored.bytes.size();
  std::uint64_t at = m_lengths.countsAt.value_or(found < size ? found : found - size);
  if (at > found || found - at < size) {
    fail(ErrorCode::tooShort, "record of " + std::to_string(found) +
                                  " bytes; expected a count record of " + std::to_string(size) +
                                  " bytes at its end");
    return false;
  }
  if (!isSplit) m_result.stored.counts = m_result.stored.bytes.subspan(at, size);
  m_result.stored.bytes = m_result.stored.bytes.first(at);
  return true;
}

bool RecordPreparation::lookAt(StoredRecord stored) {
  m_layout = &m_set.layouts()[m_result.record];
  m_result.bytes = {stored.bytes.data(), m_layout->size()};
  if (m_layout->shifts()) return lookAtShifted(stored);
  if (isLong(stored, m_layout->size())) {
    fail(ErrorCode::tooLong, "record of " + std::to_string(stored.bytes.size()) +
                                 " bytes; expected " + std::to_string(m_layout->size()));
    return false;
  }
  return stored.bytes.size() >= m_layout->size() || lookAtShort(stored);
}

// Whether a record has bytes beyond its end that are not to be ignored.
bool RecordPreparation::isLong(StoredRecord stored, std::uint64_t end) const {
  if (m_lengths.ending == LengthRules::Ending::ignored) return false;
  if (stored.bytes.size() <= end) return false;
  if (m_lengths.ending == LengthRules::Ending::exact) return true;
  auto rest = stored.bytes.subspan(end);
  return std::ranges::any_of(rest, [this](unsigned char byte) {
    return byte != m_values.conventions().codePage->blank();
  });
}

bool RecordPreparation::lookAtShort(StoredRecord stored) {
  if (m_lengths.ending == LengthRules::Ending::blanks) {
    m_result.bytes.bytes = filledUp(stored.bytes, *m_layout).data();
    return true;
  }
  m_layout->setAbsent(m_full);
  std::ranges::copy(stored.bytes, m_full.begin());
  m_result.bytes = {m_full.data(), stored.bytes.size()};
  if (m_lengths.padsShort) return true;
  std::uint64_t needed =
      layout::endOf(m_set, m_result.record, m_result.bytes, layout::Extent::present);
  if (stored.bytes.size() >= needed) return true;
  fail(ErrorCode::tooShort, "record of " + std::to_string(stored.bytes.size()) +
                                " bytes; expected " + std::to_string(needed));
  return false;
}

bool RecordPreparation::lookAtShifted(StoredRecord stored) {
  m_layout->setAbsent(m_full);
  std::span<unsigned char const> data = filledUp(stored.bytes, *m_layout);
  layout::SpreadRecord spread =
      layout::spread(*m_layout, m_values, data.data(), data.size(), m_full.data());
  m_result.bytes = {m_full.data(), spread.available};
  m_result.fault = spread.fault;
  if (spread.fault) return true;
  if (spread.isShort && !m_lengths.padsShort) {
    std::uint64_t needed =
        layout::endOf(m_set, m_result.record, m_result.bytes, layout::Extent::present);
    if (spread.available < needed) {
      fail(ErrorCode::tooShort, "record of " + std::to_string(stored.bytes.size()) +
                                    " bytes; expected " + std::to_string(spread.used));
      return false;
    }
  }
  if (isLong(stored, spread.used)) {
    fail(ErrorCode::tooLong, "record of " + std::to_string(stored.bytes.size()) +
                                 " bytes; expected " + std::to_string(spread.used));
    return false;
  }
  return true;
}

}  // namespace fdmorph::document
