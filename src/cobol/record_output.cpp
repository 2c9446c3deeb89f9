#include "cobol/record_output.h"

#include <algorithm>
#include <limits>
#include <string>

#include "cobol/facets.h"
#include "text/console.h"
#include "text/status_line.h"

namespace fdmorph {
namespace {

constexpr int kMaxOneDigitLevel = 9;
constexpr unsigned kNoHolder = std::numeric_limits<unsigned>::max();

// True if the run has shown all messages that it shows, so that one more is
// only counted. The line that says so has been written then.
bool areWarningsHidden() {
  long long counted = static_cast<long long>(console.m_nErrorCount) + console.m_nWarningCount;
  return counted > console.maxShownMessages;
}

// The same as `number` warnings one by one.
void countHiddenWarnings(long long number) {
  long long room = std::numeric_limits<int>::max() - console.m_nWarningCount;
  console.m_nWarningCount += static_cast<int>(std::min(number, room));
}

bool hasNumericSymbol(CDMCOBOLRecordItem const& item) {
  return item.pictureSymbol == "9" || item.pictureSymbol == "S9";
}

bool declaresNamespace(CDMCOBOLRecordItem const& item) {
  return !item.xmlNamespace.empty() &&
         (item.parent == nullptr || item.parent->xmlNamespace != item.xmlNamespace);
}

// An attribute does not take on the namespace of its element.
bool hasNamespaceClause(CDMCOBOLRecordItem const& item) {
  if (item.identifiedBy.empty()) return false;
  if (item.isAttribute || item.parent == nullptr) return !item.xmlNamespace.empty();
  return item.xmlNamespace != item.parent->xmlNamespace;
}

}  // namespace

void UniqueNames::settleName(CDMCOBOLRecordItem& item) {
  if (item.position == 0) item.position = ++m_lastPosition;
  std::string_view name = item.dataName;
  if (item.parent != nullptr) {
    name = freeName(item.dataName, item.position);
    m_holders.emplace(name, item.position);
  }
  // A made name is like no other, and so is that of its count field.
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
  unsigned holder = holderBefore(base, limit);
  repeatWarnings(std::min(holder, limit));
  if (holder == kNoHolder) return base;
  FailedTries& tries = m_tries[base];
  std::string candidate;
  for (unsigned suffix = repeatTries(tries) + 1;; ++suffix) {
    candidate = base;
    candidate += '-';
    candidate += std::to_string(suffix);
    holder = holderBefore(candidate, limit);
    repeatWarnings(std::min(holder, limit));
    noteFailure(tries, suffix, std::min(holder, limit));  // the item holds it from now on
    if (holder == kNoHolder) return m_texts.append(candidate);
  }
}

// Returns the last suffix that need not be tried, because its try and those
// before it print nothing, or are counted here.
unsigned UniqueNames::repeatTries(FailedTries const& tries) const {
  if (!areWarningsHidden()) return tries.silentSuffix;
  countHiddenWarnings(tries.warnings);
  return tries.suffix;
}

void UniqueNames::noteFailure(FailedTries& tries, unsigned suffix, unsigned holder) const {
  if (suffix <= tries.suffix) return;
  tries.suffix = suffix;
  tries.warnings += emptyItemsBefore(holder);
  if (tries.warnings == 0) tries.silentSuffix = suffix;
}

// The position of the first holder of `name`, if that is before `limit`.
unsigned UniqueNames::holderBefore(std::string_view name, unsigned limit) const {
  auto holder = m_holders.find(name);
  return holder != m_holders.end() && holder->second < limit ? holder->second : kNoHolder;
}

long long UniqueNames::emptyItemsBefore(unsigned limit) const {
  auto isBefore = [](auto const& empty, unsigned position) { return empty.first < position; };
  return std::lower_bound(m_emptyItems.begin(), m_emptyItems.end(), limit, isBefore) -
         m_emptyItems.begin();
}

void UniqueNames::repeatWarnings(unsigned limit) const {
  long long const number = emptyItemsBefore(limit);
  for (long long i = 0; i < number; ++i) {
    if (areWarningsHidden()) return countHiddenWarnings(number - i);
    m_emptyItems[static_cast<std::size_t>(i)].second->warnEmptyStructure();
  }
}

bool RecordOutput::OutputCOBOLItem(CDMCOBOLRecordItem* item) {
  if (item == nullptr) return false;
  statusLine.count(StepUnit::items);
  if (!item->IsValidCOBOLItem()) {
    if (m_options.uniqueNames) m_uniqueNames.noteUnwritten(*item);
    return false;
  }
  if (m_options.uniqueNames) m_uniqueNames.settleName(*item);
  buildLogicalLine(*item);
  m_options.writeLine(m_line, m_stream);
  for (CDMCOBOLRecordItem* child : item->children) OutputCOBOLItem(child);
  return true;
}

void RecordOutput::buildLogicalLine(CDMCOBOLRecordItem const& item) {
  m_line.assign(static_cast<std::size_t>(item.indent), ' ');
  if (item.levelNumber <= kMaxOneDigitLevel) m_line += '0';
  m_line += std::to_string(item.levelNumber);
  m_line += ' ';
  m_line += m_options.prefix;
  m_line += item.dataName;
  if (item.levelNumber == kConditionLevel) appendConditionValue(item);
  if (item.redefinedItem != nullptr) appendRedefines(item);
  appendPicture(item);
  if (!item.usage.empty()) {
    m_line += " USAGE ";
    m_line += item.usage;
  }
  // The bound "unbounded" has no clause, and the minimum never has one.
  if (item.maxOccurs != "1" && item.maxOccurs != "unbounded") {
    m_line += " occurs ";
    m_line += item.maxOccurs;
    m_line += " times";
  }
  if (item.levelNumber != kConditionLevel) appendXmlClauses(item);
  m_line += '.';
}

void RecordOutput::appendConditionValue(CDMCOBOLRecordItem const& item) {
  m_line += " value is \"";
  m_line += item.itemValue;
  m_line += '"';
}

// The name of the redefined item gets no prefix.
void RecordOutput::appendRedefines(CDMCOBOLRecordItem const& item) {
  if (item.redefinedItem->dataName.empty()) {
    err() << "Error : Redefines specified, but no COBOL name present" << endLine;
    return;
  }
  m_line += " redefines ";
  m_line += item.redefinedItem->dataName;
}

void RecordOutput::appendPicture(CDMCOBOLRecordItem const& item) {
  if (item.pictureSymbol.empty() || item.pictureSize.empty()) return;
  m_line += " PIC ";
  m_line += item.pictureSymbol;
  m_line += '(';
  if (hasNumericSymbol(item) && item.totalDigits != -1) {
    // Printed as computed, below zero as well.
    long long fraction = item.fractionDigits.empty() ? 0 : decimalValue(item.fractionDigits);
    m_line += std::to_string(item.totalDigits - fraction);
  } else {
    m_line += item.pictureSize;
  }
  m_line += ')';
  if (!item.hasDecimal) return;
  m_line += "V9(";
  m_line += item.fractionDigits.empty() ? item.pictureSize : item.fractionDigits;
  m_line += ')';
}

void RecordOutput::appendXmlClauses(CDMCOBOLRecordItem const& item) {
  if (!item.identifiedBy.empty()) {
    m_line += " identified by \"";
    m_line += item.identifiedBy;
    m_line += '"';
  }
  if (m_options.exactNamespaces ? hasNamespaceClause(item) : declaresNamespace(item)) {
    m_line += " namespace is \"";
    m_line += item.xmlNamespace;
    m_line += '"';
  }
  if (item.isAttribute) m_line += " is attribute";
  if (m_options.countIn && !item.countInName.empty()) {
    m_line += " count in ";
    m_line += m_options.prefix;
    m_line += item.countInName;
  }
}

}  // namespace fdmorph
