#include "semantics/prefixed_names.h"

#include "semantics/item_rules.h"

namespace fdmorph::compiler {
namespace {

template <typename Use>
void forEachEnd(std::string_view name, Use use) {
  for (std::size_t at = name.find('-'); at != std::string_view::npos; at = name.find('-', at + 1)) {
    use(name.substr(at + 1));
  }
}

}  // namespace

void NameEnds::add(DataItem const& item) {
  forEachEnd(item.name, [&](std::string_view end) { m_items[end] = &item; });
}

DataItem const* NameEnds::findLast(std::string_view end) const {
  auto found = m_items.find(end);
  return found == m_items.end() ? nullptr : found->second;
}

// The recursion is bounded by the number of levels.
void IntegerEnds::add(DataItem const& item) {
  m_positions.emplace(&item, m_positions.size());
  if (isInteger(item)) {
    forEachEnd(item.name, [&](std::string_view end) {
      Pair& pair = m_items[end];
      if (pair.first == nullptr) {
        pair.first = &item;
      } else if (pair.second == nullptr) {
        pair.second = &item;
      }
    });
  }
  for (DataItem const* each = item.firstChild; each != nullptr; each = each->next) add(*each);
}

IntegerEnds::Found IntegerEnds::findBefore(DataItem const& table, std::string_view end) const {
  auto found = m_items.find(end);
  if (found == m_items.end()) return {};
  std::size_t position = m_positions.at(&table);
  auto isBefore = [&](DataItem const* item) {
    return item != nullptr && m_positions.at(item) < position;
  };
  if (isBefore(found->second.second)) return {nullptr, true};
  return {isBefore(found->second.first) ? found->second.first : nullptr, false};
}

void reportPrefix(QualifiedName const& name, DataItem const& item, Diagnostics& diagnostics) {
  diagnostics.report(Code::prefix, name.place,
                     quoted(name.name) + " is not defined and is taken for " + quoted(item.name));
}

}  // namespace fdmorph::compiler
