#include "compiler/item_lengths.h"

#include "compiler/item_rules.h"
#include "compiler/layout.h"
#include "compiler/redefinitions.h"

namespace fdmorph::compiler {
namespace {

constexpr std::uint8_t kRenamesLevel = 66;

// Items laid out over all lengths. A source needs as many only if it takes
// lengths again and again in the middle of one huge record.
constexpr std::uint64_t kMostSteps = 20'000'000;

// Returns the number of items.
std::uint64_t prepare(DataItem* first, Diagnostics& diagnostics) {
  Redefinitions redefinitions(diagnostics);
  std::uint64_t count = 0;
  for (DataItem* item = first; item != nullptr; item = item->next) {
    if (item->level == kRenamesLevel) continue;
    redefinitions.visit(*item);
    inherit(*item);
    count += 1 + prepare(item->firstChild, diagnostics);
  }
  return count;
}

}  // namespace

NameIndex::Outcome ItemLengths::find(QualifiedName const& name, DataItem const* newest,
                                     DataItem*& item) {
  m_index.extend(m_data.items.size() - 1);
  NameIndex::Outcome outcome = m_index.resolveAnywhere(name, item);
  if (outcome != NameIndex::Outcome::found) return outcome;
  DataItem* record = item;
  while (record->parent != nullptr) record = record->parent;
  bool isComplete = newest == nullptr || recordOf(*newest) != record;
  auto [known, isNew] = m_laidOut.try_emplace(record, newest);
  bool isGood = !isNew && (known->second == newest || known->second == nullptr);
  known->second = isComplete ? nullptr : newest;
  if (isGood) return outcome;
  if (m_steps > kMostSteps) return NameIndex::Outcome::unknown;
  layOutSoFar(*record);
  return outcome;
}

void ItemLengths::layOutSoFar(DataItem& record) {
  inherit(record);
  m_steps += prepare(record.firstChild, m_unheard);
  layOut(record, m_unheard);
}

}  // namespace fdmorph::compiler
