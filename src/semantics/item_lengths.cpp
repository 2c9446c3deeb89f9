#include "semantics/item_lengths.h"

#include "semantics/item_rules.h"
#include "semantics/layout.h"
#include "semantics/name_index.h"

namespace fdmorph::compiler {
namespace {

// The limit of visits to items for all lengths. An item is visited once for each
// group around it whose length is taken. Only a source that takes the length of a
// group after each of its items, or lengths of synchronized items in the middle
// of one huge record, reaches it.
constexpr std::uint64_t kMaxSteps = 10'000'000;

}  // namespace

ItemLengths::Found ItemLengths::find(QualifiedName const& name, DataItem const* last) {
  m_index.extend(m_data.items.size() - 1);
  NameIndex::Found found = m_index.resolveAnywhere(name);
  switch (found.outcome) {
    case NameIndex::Outcome::unknown:
      return {Outcome::unknown, nullptr};
    case NameIndex::Outcome::ambiguous:
      return {Outcome::ambiguous, nullptr};
    case NameIndex::Outcome::found:
      break;
  }
  Outcome outcome = measure(*found.item, last);
  return {outcome, outcome == Outcome::found ? found.item : nullptr};
}

ItemLengths::Outcome ItemLengths::measure(DataItem& item, DataItem const* last) {
  if (m_complete.contains(&item)) return Outcome::found;
  if (m_steps > kMaxSteps) return Outcome::tooMany;
  prepareGroups(item);
  implyPicture(item, m_data);
  // The length depends on the place in the record only if an item is aligned.
  if (prepare(item)) {
    measureRecord(*recordOf(item), last);
  } else {
    layOut(item, m_data.sizes, m_discarded);
  }
  if (!isInside(last, &item)) m_complete.insert(&item);
  return Outcome::found;
}

void ItemLengths::measureRecord(DataItem& record, DataItem const* last) {
  DataItem const*& known = m_records[&record];
  if (known != nullptr && known == last) return;
  prepare(record);
  layOut(record, m_data.sizes, m_discarded);
  known = last;
}

void ItemLengths::prepareGroups(DataItem& item) {
  if (item.parent != nullptr) prepareGroups(*item.parent);
  inherit(item);
}

// Sets the usage, sign, picture and redefinition of the items in an item whose own
// ones are known. Returns whether one of them is aligned.
bool ItemLengths::prepare(DataItem& item) {
  Redefinitions redefinitions(m_discarded);
  bool isAligned = item.isSynchronized;
  ++m_steps;
  for (DataItem* each = item.firstChild; each != nullptr; each = each->next) {
    if (each->level == kRenamesLevel) continue;
    redefinitions.visit(*each);
    inherit(*each);
    implyPicture(*each, m_data);
    isAligned |= prepare(*each);
  }
  return isAligned;
}

}  // namespace fdmorph::compiler
