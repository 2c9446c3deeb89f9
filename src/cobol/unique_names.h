// Data names that are unique within a record (-unique).
//
// The rule: an item keeps its name unless an item that stands before it in
// output order, the root apart, has the same one; then "-1", "-2" and so on is
// tried behind the name. Each try is a walk over the record from its root, and
// that walk warns anew about every item without content that it passes, up to
// the holder of the name or else up to the item itself. The walks are not
// made; what they would find and print comes from an index that grows in
// output order.
#pragma once

#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "cobol/DMCOBOLRecordItem.h"

namespace fdmorph {

class UniqueNames {
 public:
  /// Made names are kept in `texts`.
  explicit UniqueNames(TextPool& texts) : m_texts(texts) {}

  /// Gives the item that is written next its final `dataName` and, always, the
  /// `countInName` that goes with it.
  void settleName(CDMCOBOLRecordItem& item);

  /// Notes that an item was reached that can't be written.
  void noteUnwritten(CDMCOBOLRecordItem const& item);

 private:
  std::string_view freeName(std::string_view base, unsigned limit);
  bool isTakenBefore(std::string_view name, unsigned limit);
  void repeatWarnings(unsigned limit) const;

  TextPool& m_texts;
  unsigned m_lastPosition = 0;  // in the walk's order, from 1 for the root
  std::unordered_map<std::string_view, unsigned> m_holders;     // first holder's position
  std::unordered_map<std::string_view, unsigned> m_lastSuffix;  // by base name
  std::vector<std::pair<unsigned, CDMCOBOLRecordItem const*>> m_emptyItems;
};

}  // namespace fdmorph
