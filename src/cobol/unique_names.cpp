#include "cobol/unique_names.h"

#include <string>

namespace fdmorph {

void UniqueNames::settleName(CDMCOBOLRecordItem& item) {
  if (item.position == 0) item.position = ++m_lastPosition;
  std::string_view name = item.dataName;
  if (item.parent != nullptr) {
    name = freeName(item.dataName, item.position);
    m_holders.emplace(name, item.position);
  }
  // A name made here is like no other, and so is its count field's.
  bool isMade = name.data() != item.dataName.data();
  item.dataName = name;
  std::string countIn(name);
  countIn += "-count";
  item.countInName = isMade ? m_texts.append(countIn) : m_texts.keep(countIn);
}

void UniqueNames::noteUnwritten(CDMCOBOLRecordItem const& item) {
  if (item.checkWritable() != CDMCOBOLRecordItem::Writability::empty) return;
  m_emptyItems.emplace_back(++m_lastPosition, &item);
}

std::string_view UniqueNames::freeName(std::string_view base, unsigned limit) {
  if (!isTakenBefore(base, limit)) return base;
  // Names are never given up, so the tries that failed before fail again, and
  // without empty items nothing shows that they are left out.
  unsigned& suffix = m_lastSuffix[base];
  if (!m_emptyItems.empty()) suffix = 0;
  std::string candidate;
  do {
    candidate = base;
    candidate += '-';
    candidate += std::to_string(++suffix);
  } while (isTakenBefore(candidate, limit));
  return m_texts.append(candidate);
}

bool UniqueNames::isTakenBefore(std::string_view name, unsigned limit) {
  auto holder = m_holders.find(name);
  bool isTaken = holder != m_holders.end() && holder->second < limit;
  repeatWarnings(isTaken ? holder->second : limit);
  return isTaken;
}

void UniqueNames::repeatWarnings(unsigned limit) const {
  for (auto const& [position, item] : m_emptyItems) {
    if (position >= limit) break;
    item->warnEmptyStructure();
  }
}

}  // namespace fdmorph
