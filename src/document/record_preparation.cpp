#include "document/record_preparation.h"

#include <algorithm>

#include "document/value_errors.h"
#include "layout/extent.h"

namespace fdmorph::document {

using layout::Layout;

PreparedRecord RecordPreparation::prepare(StoredRecord record) {
  m_result = {};
  m_result.stored = record;
  static_cast<void>(choose(record) && splitCounts() && lookAt(m_result.stored));
  return std::move(m_result);
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
    layout::RecordBytes bytes{record.bytes.data(), record.bytes.size()};
    if (!rule.comparisons.empty() && m_set.layouts()[rule.record].shifts()) {
      Layout const& layout = m_set.layouts()[rule.record];
      m_full = layout.absentBytes();
      bytes = {m_full.data(), layout::spread(layout, m_values, record.bytes.data(),
                                             record.bytes.size(), m_full.data())
                                  .available};
    }
    if (!m_set.holds(rule, bytes, {})) continue;
    m_result.record = rule.chosen;
    return true;
  }
  fail(ErrorCode::view, "no rule of a record holds");
  return false;
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
  if (stored.bytes.size() > m_layout->size() && isLong(stored)) {
    fail(ErrorCode::tooLong, "record of " + std::to_string(stored.bytes.size()) +
                                 " bytes; expected " + std::to_string(m_layout->size()));
    return false;
  }
  return stored.bytes.size() >= m_layout->size() || lookAtShort(stored);
}

// Whether a record has bytes beyond the layout that are not to be ignored.
bool RecordPreparation::isLong(StoredRecord stored) const {
  if (m_lengths.ending == LengthRules::Ending::ignored) return false;
  if (m_lengths.ending == LengthRules::Ending::exact) return true;
  auto rest = stored.bytes.subspan(m_layout->size());
  return std::ranges::any_of(rest, [this](unsigned char byte) {
    return byte != m_values.conventions().codePage->blank();
  });
}

bool RecordPreparation::lookAtShort(StoredRecord stored) {
  m_full = m_layout->absentBytes();
  std::ranges::copy(stored.bytes, m_full.begin());
  m_result.bytes = {m_full.data(), stored.bytes.size()};
  if (m_lengths.ending == LengthRules::Ending::blanks) {
    std::fill(m_full.begin() + static_cast<std::ptrdiff_t>(stored.bytes.size()), m_full.end(),
              m_values.conventions().codePage->blank());
    m_result.bytes.available = m_layout->size();
    return true;
  }
  if (m_lengths.padsShort) return true;
  std::uint64_t needed =
      layout::endOf(m_set, m_result.record, m_result.bytes, layout::Extent::present);
  if (stored.bytes.size() >= needed) return true;
  fail(ErrorCode::tooShort, "record of " + std::to_string(stored.bytes.size()) +
                                " bytes; expected " + std::to_string(needed));
  return false;
}

bool RecordPreparation::lookAtShifted(StoredRecord stored) {
  m_full = m_layout->absentBytes();
  layout::SpreadRecord spread =
      layout::spread(*m_layout, m_values, stored.bytes.data(), stored.bytes.size(), m_full.data());
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
  if (stored.bytes.size() > spread.used && m_lengths.ending == LengthRules::Ending::exact) {
    fail(ErrorCode::tooLong, "record of " + std::to_string(stored.bytes.size()) +
                                 " bytes; expected " + std::to_string(spread.used));
    return false;
  }
  return true;
}

}  // namespace fdmorph::document
