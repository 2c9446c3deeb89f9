#include "cobol/record_output.h"

#include <string>

#include "cobol/facets.h"
#include "cobol/fixed_format.h"
#include "text/console.h"

namespace fdmorph {
namespace {

constexpr int kMaxOneDigitLevel = 9;

bool hasNumericSymbol(CDMCOBOLRecordItem const& item) {
  return item.pictureSymbol == "9" || item.pictureSymbol == "S9";
}

bool declaresNamespace(CDMCOBOLRecordItem const& item) {
  return !item.xmlNamespace.empty() &&
         (item.parent == nullptr || item.parent->xmlNamespace != item.xmlNamespace);
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
  if (!isTakenBefore(base, limit)) return base;
  // No name becomes free again, so the tries that failed before would fail
  // again. They are skipped, unless they would repeat a warning.
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

bool RecordOutput::OutputCOBOLItem(CDMCOBOLRecordItem* item) {
  if (item == nullptr) return false;
  if (!item->IsValidCOBOLItem()) {
    if (m_options.uniqueNames) m_uniqueNames.noteUnwritten(*item);
    return false;
  }
  if (m_options.uniqueNames) m_uniqueNames.settleName(*item);
  buildLogicalLine(*item);
  OutputFixedFormatCOBOL(m_line, m_stream);
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
  if (declaresNamespace(item)) {
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
