#include "copybook/item_names.h"

#include <algorithm>

#include "record/record_tree.h"
#include "semantics/name_index.h"

namespace fdmorph::copybook {
namespace {

using compiler::DataItem;
using compiler::QualifiedName;

constexpr std::string_view kOf = " OF ";

// The nearest group around an item with this name; null if there is none.
DataItem const* groupNamed(std::string_view name, DataItem const& item) {
  DataItem const* group = item.parent;
  while (group != nullptr && !equalsIgnoringCase(group->name, name)) group = group->parent;
  return group;
}

// Whether the groups around an item have the names that qualify it.
bool isQualified(DataItem const& item, QualifiedName const& name) {
  DataItem const* at = &item;
  return std::ranges::all_of(name.qualifiers, [&](std::string_view each) {
    at = groupNamed(each, *at);
    return at != nullptr;
  });
}

}  // namespace

ItemNames::ItemNames(Items const& items, CopybookForm const& form, ItemChanges const& changes)
    : m_changes(changes), m_hasNewNames(std::ranges::any_of(changes, [](auto const& each) {
        return !each.second.name.empty();
      })) {
  if (!m_hasNewNames) return;
  for (DataItem const* each : items) add(*each);
  for (std::string const& each : form.otherNames) ++m_uses[each];
}

// The recursion is bounded by the number of levels.
void ItemNames::add(DataItem const& item) {
  if (!compiler::isFillerName(item.name)) {
    m_items[item.name].push_back(&item);
    ++m_uses[nameOf(item)];
  }
  for (DataItem const* each = item.firstChild; each != nullptr; each = each->next) add(*each);
}

std::string_view ItemNames::nameOf(DataItem const& item) const {
  if (m_hasNewNames) {
    auto change = m_changes.find(&item);
    if (change != m_changes.end() && !change->second.name.empty()) return change->second.name;
  }
  return record::dataNameOf(item);
}

std::string ItemNames::refer(DataItem const& target, QualifiedName const& source) const {
  std::string text(nameOf(target));
  auto uses = m_uses.find(text);
  if (uses != m_uses.end() && uses->second > 1) {
    for (DataItem const* each = target.parent; each != nullptr; each = each->parent) {
      if (!each->isImplied && !compiler::isFillerName(each->name)) {
        (text += kOf) += nameOf(*each);
      }
    }
    return text;
  }
  DataItem const* group = &target;
  for (std::string_view each : source.qualifiers) {
    group = groupNamed(each, *group);
    if (group == nullptr) break;  // the name of a file
    (text += kOf) += nameOf(*group);
  }
  return text;
}

std::string ItemNames::referWithin(DataItem const& group, QualifiedName const& source) const {
  auto found = m_items.find(source.name);
  if (found != m_items.end()) {
    for (DataItem const* each : found->second) {
      if (compiler::isInside(each, &group) && isQualified(*each, source)) {
        return refer(*each, source);
      }
    }
  }
  return sourceReference(source);
}

std::string sourceReference(QualifiedName const& name) {
  std::string text(name.name);
  for (std::string_view each : name.qualifiers) (text += kOf) += each;
  return text;
}

}  // namespace fdmorph::copybook
