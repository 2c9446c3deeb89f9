#include "cobol/legal_record.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "cobol/facets.h"
#include "text/letter_case.h"

namespace fdmorph {
namespace {

constexpr int kMaxPictureDigits = 31;  // COBOL 2002
constexpr std::string_view kCountEnding = "-count";
constexpr std::size_t kLeastRoom = 8;  // for a name and a number behind a long prefix

bool isLetterOrDigit(char c) {
  return isLetter(c) || isDigit(c);
}

/// Names that are all different.
class NameSet {
 public:
  NameSet(std::string_view prefix, IsReserved isReserved)
      : m_prefix(prefix), m_isReserved(isReserved) {
    m_room =
        prefix.size() + kLeastRoom < kMaxWordLength ? kMaxWordLength - prefix.size() : kLeastRoom;
  }

  /// A new name with the prefix, like `name` with `ending`.
  std::string take(std::string_view name, std::string_view ending = {}) {
    std::string base = legalName(name, m_room - ending.size()).append(ending);
    std::string free = m_prefix + base;
    unsigned& number = m_numbers[upperCase(base)];
    while (isRefused(free) || !m_taken.insert(upperCase(free)).second) {
      std::string suffix = "-" + std::to_string(++number);
      std::string head = base.substr(0, m_room - std::min(m_room, suffix.size()));
      while (head.ends_with('-')) head.pop_back();
      free = m_prefix;
      free.append(head).append(suffix);
    }
    return free;
  }

 private:
  bool isRefused(std::string_view name) const {
    return m_isReserved != nullptr && m_isReserved(name);
  }

  std::string m_prefix;
  IsReserved m_isReserved;
  std::size_t m_room;
  std::unordered_set<std::string> m_taken;
  std::unordered_map<std::string, unsigned> m_numbers;  // the last one tried
};

/// Settles one item after the other, in the order in which they are written.
class Settler {
 public:
  Settler(std::string_view prefix, IsReserved isReserved, TextPool& texts)
      : m_names(prefix, isReserved), m_texts(texts) {}

  void settle(CDMCOBOLRecordItem* item) {
    std::vector<CDMCOBOLRecordItem*> pending{item};
    while (!pending.empty()) {
      CDMCOBOLRecordItem* next = pending.back();
      pending.pop_back();
      if (next->checkWritable() != CDMCOBOLRecordItem::Writability::writable) continue;
      settleItem(*next);
      dropRepetitions(*next);
      auto isNode = [](CDMCOBOLRecordItem const* child) { return child != nullptr; };
      std::copy_if(next->children.rbegin(), next->children.rend(), std::back_inserter(pending),
                   isNode);
    }
  }

 private:
  void settleItem(CDMCOBOLRecordItem& item) {
    std::string_view const plainName = item.dataName;
    item.dataName = m_texts.keep(m_names.take(plainName));
    if (!item.countInName.empty()) {
      item.countInName = m_texts.keep(m_names.take(plainName, kCountEnding));
    }
    item.itemValue = withDoubledQuotes(item.itemValue);
    item.xmlNamespace = withDoubledQuotes(item.xmlNamespace);
    settlePicture(item);
  }

  void settlePicture(CDMCOBOLRecordItem& item) {
    if (item.pictureSymbol == "X") {
      item.pictureSize = number(std::max(decimalValue(item.pictureSize), 1));
    } else if (item.pictureSymbol == "9" || item.pictureSymbol == "S9") {
      int const size = decimalValue(item.pictureSize);
      int const facet = item.fractionDigits.empty() ? 0 : decimalValue(item.fractionDigits);
      int fraction = item.fractionDigits.empty() ? size : facet;
      if (!item.hasDecimal) fraction = 0;
      int const integer = item.totalDigits == -1 ? size : item.totalDigits - facet;
      fraction = std::clamp(fraction, 0, kMaxPictureDigits - 1);
      item.pictureSize = number(std::clamp(integer, 1, kMaxPictureDigits - fraction));
      item.fractionDigits = number(fraction);
      item.totalDigits = -1;
      item.hasDecimal = fraction > 0;
    }
  }

  std::string_view number(int value) { return m_texts.keep(std::to_string(value)); }

  std::string_view withDoubledQuotes(std::string_view text) {
    if (text.find('"') == text.npos) return text;
    std::string doubled;
    for (char c : text) {
      doubled += c;
      if (c == '"') doubled += c;
    }
    return m_texts.keep(doubled);
  }

  static void dropRepetitions(CDMCOBOLRecordItem& item) {
    std::unordered_set<CDMCOBOLRecordItem const*> seen;
    std::erase_if(item.children, [&seen](CDMCOBOLRecordItem const* child) {
      return child != nullptr && child->placements > 1 && !seen.insert(child).second;
    });
  }

  NameSet m_names;
  TextPool& m_texts;
};

}  // namespace

void makeLegal(CDMCOBOLRecordItem* record, std::string_view prefix, IsReserved isReserved,
               TextPool& texts) {
  Settler(prefix, isReserved, texts).settle(record);
}

std::string legalName(std::string_view name, std::size_t room) {
  std::string legal;
  for (char c : name) {
    if (isLetterOrDigit(c)) {
      legal += c;
    } else if (!legal.empty() && legal.back() != '-') {
      legal += '-';
    }
  }
  if (std::ranges::none_of(legal, isLetter)) legal.insert(0, legal.empty() ? "X" : "X-");
  legal.resize(std::min(legal.size(), room));
  while (legal.ends_with('-')) legal.pop_back();
  return legal;
}

}  // namespace fdmorph
