#include "semantics/item_lengths.h"

#include "semantics/item_rules.h"
#include "semantics/layout.h"
#include "semantics/name_index.h"

namespace fdmorph::compiler {
namespace {

// Items looked at over all lengths. An item is looked at once for each group
// around it whose length is taken. A source needs as many only if it takes the
// length of a group after each of its items, or lengths of synchronized items
// in the middle of one huge record.
constexpr std::uint64_t kMaxSteps = 10'000'000;

}  // namespace

ItemLengths::Outcome ItemLengths::find(QualifiedName const& name, DataItem const* last,
                                       DataItem*& item) {
  m_index.extend(m_data.items.size() - 1);
  switch (m_index.resolveAnywhere(name, item)) {
    case NameIndex::Outcome::unknown:
      return Outcome::unknown;
    case NameIndex::Outcome::ambiguous:
      return Outcome::ambiguous;
    case NameIndex::Outcome::found:
      break;
  }
  return measure(*item, last);
}

ItemLengths::Outcome ItemLengths::measure(DataItem& item, DataItem const* last) {
  if (m_complete.contains(&item)) return Outcome::found;
  if (m_steps > kMaxSteps) return Outcome::tooMany;
  prepareGroups(item);
  // Where nothing is aligned the length doesn't hang on the place.
  if (prepare(item)) {
    measureRecord(*recordOf(item), last);
  } else {
    layOut(item, m_discarded);
  }
  if (!isInside(last, &item)) m_complete.insert(&item);
  return Outcome::found;
}

void ItemLengths::measureRecord(DataItem& record, DataItem const* last) {
  DataItem const*& known = m_records[&record];
  if (known != nullptr && known == last) return;
  prepare(record);
  layOut(record, m_discarded);
  known = last;
}

void ItemLengths::prepareGroups(DataItem& item) {
  if (item.parent != nullptr) prepareGroups(*item.parent);
  inherit(item);
}

// Usages, signs and redefinitions below an item whose own ones are known.
// Returns whether something in it is aligned.
bool ItemLengths::prepare(DataItem& item) {
  Redefinitions redefinitions(m_discarded);
  bool isAligned = item.isSynchronized;
  ++m_steps;
  for (DataItem* each = item.firstChild; each != nullptr; each = each->next) {
    if (each->level == kRenamesLevel) continue;
    redefinitions.visit(*each);
    inherit(*each);
    isAligned |= prepare(*each);
  }
  return isAligned;
}

}  // namespace fdmorph::compiler
