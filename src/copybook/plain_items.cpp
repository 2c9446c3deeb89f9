#include "copybook/plain_items.h"

#include <algorithm>

#include "record/record_tree.h"
#include "semantics/name_index.h"
#include "text/letter_case.h"

namespace fdmorph::copybook {
namespace {

using compiler::Code;
using compiler::DataItem;
using compiler::Diagnostics;
using compiler::Place;

constexpr std::uint32_t kMaxByteDigits = 2;  // of a native number of one byte

std::uint64_t storageOf(DataItem const& item) {
  return item.size * item.occurrences();
}

bool isStored(DataItem const& item) {
  return item.level != compiler::kRenamesLevel && item.level != compiler::kConditionLevel;
}

// Without the symbols that are repeated zero times, and a V after the last digit.
std::string shortPicture(std::string const& picture) {
  std::string text;
  for (std::size_t at = 0; at < picture.size();) {
    std::size_t end = picture[at] == '(' ? picture.find(')', at) : std::string::npos;
    if (end == std::string::npos) {
      text += picture[at++];
      continue;
    }
    std::string repetition = picture.substr(at, end + 1 - at);
    bool isEmpty = repetition.find_first_not_of("(0)") == std::string::npos;
    if (!isEmpty) text += repetition;
    if (isEmpty && !text.empty()) text.pop_back();
    at = end + 1;
  }
  if (!text.empty() && toUpper(text.back()) == 'V') text.pop_back();
  return text;
}

}  // namespace

PlainName changedName(std::string_view name, Place place, NameScope& scope,
                      Diagnostics& diagnostics) {
  std::string_view fault = faultOfName(name);
  PlainName changed{scope.takeLike(name), "Source name: " + std::string(name)};
  diagnostics.report(Code::plainName, place,
                     "name " + compiler::quoted(name) + " " +
                         std::string(fault.empty() ? "is there already" : fault) + "; it becomes " +
                         compiler::quoted(changed.name));
  return changed;
}

void PlainItems::warn(Code code, DataItem const& item, std::string const& text) {
  m_diagnostics.report(code, item.place, compiler::quoted(record::dataNameOf(item)) + " " + text);
}

std::string PlainItems::nameOf(DataItem const& item) const {
  auto change = m_changes.find(&item);
  bool isChanged = change != m_changes.end() && !change->second.name.empty();
  return isChanged ? change->second.name : std::string(item.name);
}

void PlainItems::addRecords(Items const& records, NameScope& scope) {
  Items named;
  for (DataItem const* each : records) {
    if (!each->isImplied) named.push_back(each);
  }
  nameItems(named, scope);
  shareStorage(named, scope);
  for (DataItem const* each : records) addItem(*each, {});
}

// The recursion is bounded by the number of levels.
void PlainItems::addItem(DataItem const& item, Surroundings around) {
  if (isStored(item) && storageOf(item) == 0) {
    warn(Code::emptyItem, item, "has no storage and is left out");
    m_changes[&item].isLeftOut = true;
    return;
  }
  if (item.occurs) checkTable(item, around);
  if (item.picture != nullptr && isStored(item)) checkPicture(item);
  addParts(item, around);
}

void PlainItems::addParts(DataItem const& item, Surroundings around) {
  Items conditions;
  for (DataItem const* each = item.firstCondition; each != nullptr; each = each->next) {
    conditions.push_back(each);
  }
  Items parts;
  DataItem const* last = nullptr;  // with storage of its own
  for (DataItem const* each = item.firstChild; each != nullptr; each = each->next) {
    parts.push_back(each);
    bool isOwn = isStored(*each) && each->redefined == nullptr && storageOf(*each) > 0;
    if (isOwn) last = each;
  }
  Items named = parts;
  named.insert(named.end(), conditions.begin(), conditions.end());
  NameScope scope;
  nameItems(named, scope);
  shareStorage(parts, scope);
  bool isFollowed = around.isFollowed || last != nullptr;
  for (DataItem const* each : parts) {
    if (each == last || each->redefined == last) isFollowed = around.isFollowed;
    addItem(*each, {around.isInTable || item.occurs != nullptr, isFollowed});
  }
}

void PlainItems::nameItems(Items const& items, NameScope& scope) {
  Items others;
  for (DataItem const* each : items) {
    bool isOut = isStored(*each) && storageOf(*each) == 0;
    if (isOut || compiler::isFillerName(each->name) || scope.take(each->name)) continue;
    others.push_back(each);
  }
  for (DataItem const* each : others) {
    PlainName changed = changedName(each->name, each->place, scope, m_diagnostics);
    ItemChange& change = m_changes[each];
    change.name = std::move(changed.name);
    change.comments.push_back(std::move(changed.comment));
  }
}

// Index names have no group.
void PlainItems::nameIndexes(DataItem const& item) {
  std::vector<std::string> names;
  std::vector<std::string> comments;
  for (std::string_view each : item.occurs->indexes) {
    if (m_indexes.take(each)) {
      names.emplace_back(each);
      continue;
    }
    PlainName changed = changedName(each, item.place, m_indexes, m_diagnostics);
    names.push_back(std::move(changed.name));
    comments.push_back(std::move(changed.comment));
  }
  if (comments.empty()) return;
  ItemChange& change = m_changes[&item];
  change.indexes = std::move(names);
  std::ranges::move(comments, std::back_inserter(change.comments));
}

// Finds the items of a group that share their storage. Those of 0 bytes are left out.
void PlainItems::shareStorage(Items const& items, NameScope& scope) {
  Items views;
  DataItem const* first = nullptr;
  for (DataItem const* each : items) {
    if (!isStored(*each)) continue;
    if (each->redefined == nullptr) {
      shareArea(views, scope);
      views.clear();
      first = each;
    }
    if (storageOf(*each) > 0 && first != nullptr) views.push_back(each);
  }
  shareArea(views, scope);
}

// REDEFINES names an item that is written, has a name and is the largest. Records
// may have any sizes.
void PlainItems::shareArea(Items const& views, NameScope& scope) {
  if (views.empty()) return;
  DataItem const& first = *views.front();
  if (views.size() == 1) {
    if (first.redefined != nullptr) m_changes[&first].redefines = "";
    return;
  }
  std::uint64_t size = 0;
  for (DataItem const* each : views) size = std::max(size, storageOf(*each));
  bool isLarge = storageOf(first) == size || first.level == 1;
  std::string area = nameOf(first);
  if (isLarge && !compiler::isFillerName(area)) {
    for (DataItem const* each : views) {
      bool isSame = each == &first ? first.redefined == nullptr : each->redefined == &first;
      if (!isSame) m_changes[each].redefines = each == &first ? "" : area;
    }
    return;
  }
  area = scope.takeLike(std::string(record::dataNameOf(first)) + "-AREA");
  warn(Code::plainArea, first,
       "is smaller than what redefines it; both redefine " + compiler::quoted(area));
  m_changes[&first].area = StorageArea{area, size};
  for (DataItem const* each : views) m_changes[each].redefines = area;
}

void PlainItems::checkTable(DataItem const& item, Surroundings around) {
  nameIndexes(item);
  if (!item.occurs->isDepending) return;
  if (around.isInTable) {
    warn(Code::complexTable, item, "varies in size in a table, which GnuCOBOL does not compile");
  } else if (around.isFollowed) {
    warn(Code::complexTable, item,
         "varies in size before other items, which GnuCOBOL compiles only with -std=ibm and "
         "the like");
  }
}

void PlainItems::checkPicture(DataItem const& item) {
  compiler::Picture const& picture = *item.picture;
  if (picture.hasEmptyRun) m_changes[&item].picture = shortPicture(picture.text);
  bool isNative = item.effectiveUsage == compiler::Usage::comp5 &&
                  picture.category == compiler::Category::numeric &&
                  picture.nines <= kMaxByteDigits;
  if (isNative && m_dialect == compiler::Dialect::ibm) {
    warn(Code::nativeSize, item, "has 2 bytes here and 1 byte in GnuCOBOL, also with -std=ibm");
  }
}

}  // namespace fdmorph::copybook
