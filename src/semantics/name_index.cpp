#include "semantics/name_index.h"

namespace fdmorph::compiler {
namespace {

// The limit of items tried in all searches. Only a source with very many items of
// one name reaches it, and its references are ambiguous.
constexpr std::uint64_t kMaxSteps = 20'000'000;

// Longer chains are searched by the names of the groups around the items.
constexpr std::size_t kMaxChainLength = 16;

bool isData(DataItem const& item) {
  return item.level <= kMaxGroupLevel || item.level == kSingleLevel || item.level == kRenamesLevel;
}

}  // namespace

bool isFillerName(std::string_view name) {
  return name.empty() || equalsIgnoringCase(name, "FILLER");
}

void NameIndex::extend(std::size_t count) {
  // Avoids rehashing when all items are added at once.
  if (m_itemCount == 0) m_chains.reserve(count * 2);
  for (; m_itemCount < count; ++m_itemCount) {
    DataItem& item = m_data.items[m_itemCount];
    if (!isData(item) || isFillerName(item.name)) continue;
    add(m_chains[{nullptr, item.name}], item, &DataItem::sameName);
    add(m_chains[{recordOf(item), item.name}], item, &DataItem::sameInRecord);
  }
  extendFiles();
}

void NameIndex::extendFiles() {
  for (; m_file < m_data.files.size(); ++m_file, m_lastOfFile = nullptr) {
    FileDescription const& file = m_data.files[m_file];
    DataItem const* record = m_lastOfFile == nullptr ? file.records.first : m_lastOfFile->next;
    for (; record != nullptr; record = record->next) {
      m_files[record] = file.name;
      m_lastOfFile = record;
    }
    // The last file may get more records.
    if (m_file + 1 == m_data.files.size()) return;
  }
}

void NameIndex::add(Chain& chain, DataItem& item, Link link) {
  item.*link = chain.last;
  chain.last = &item;
  ++chain.length;
}

NameIndex::Found NameIndex::resolve(QualifiedName const& name, DataItem const& from) {
  Found inRecord = resolveInRecord(name, from);
  return inRecord.outcome == Outcome::unknown ? resolveAnywhere(name) : inRecord;
}

NameIndex::Found NameIndex::resolveInRecord(QualifiedName const& name, DataItem const& from) {
  return searchIn(recordOf(from), name, &DataItem::sameInRecord);
}

NameIndex::Found NameIndex::resolveAnywhere(QualifiedName const& name) {
  return searchIn(nullptr, name, &DataItem::sameName);
}

NameIndex::Found NameIndex::searchIn(DataItem const* record, QualifiedName const& name, Link link) {
  auto entry = m_chains.find({record, name.name});
  if (entry == m_chains.end()) return {};
  Chain& chain = entry->second;
  Found found;
  if (chain.length > kMaxChainLength && !name.qualifiers.empty()) {
    qualify(record, name, chain, link);
    std::vector<DataItem*> const* list = shortestList(record, name);
    if (list == nullptr) return {};
    for (std::size_t i = 0; i < list->size() && found.outcome != Outcome::ambiguous; ++i) {
      tryItem(name, *(*list)[i], found);
    }
  } else {
    for (DataItem* each = chain.last; each != nullptr && found.outcome != Outcome::ambiguous;
         each = each->*link) {
      tryItem(name, *each, found);
    }
  }
  if (found.outcome != Outcome::found) found.item = nullptr;
  return found;
}

// Adds the new items of a chain to m_qualified.
void NameIndex::qualify(DataItem const* record, QualifiedName const& name, Chain& chain,
                        Link link) {
  for (DataItem* each = chain.last; each != chain.qualified; each = each->*link) {
    DataItem const* top = each;
    auto put = [&](std::string_view qualifier) {
      std::vector<DataItem*>& list = m_qualified[{record, name.name, qualifier}];
      if (list.empty() || list.back() != each) list.push_back(each);
    };
    for (; top->parent != nullptr; top = top->parent) put(top->parent->name);
    if (std::string_view file = fileOf(*top); !file.empty()) put(file);
  }
  chain.qualified = chain.last;
}

std::vector<DataItem*> const* NameIndex::shortestList(DataItem const* record,
                                                      QualifiedName const& name) const {
  std::vector<DataItem*> const* shortest = nullptr;
  for (std::string_view qualifier : name.qualifiers) {
    auto list = m_qualified.find({record, name.name, qualifier});
    if (list == m_qualified.end()) return nullptr;
    if (shortest == nullptr || list->second.size() < shortest->size()) shortest = &list->second;
  }
  return shortest;
}

// Adds a candidate to the result of a search.
void NameIndex::tryItem(QualifiedName const& name, DataItem& candidate, Found& found) {
  if (++m_steps > kMaxSteps) {
    found.outcome = Outcome::ambiguous;
  } else if (matches(name, candidate)) {
    found.outcome = found.item == nullptr ? Outcome::found : Outcome::ambiguous;
    found.item = &candidate;
  }
}

std::vector<QualifiedName const*> NameIndex::findOutside(std::vector<QualifiedName> const& names,
                                                         DataItem const& group) const {
  Wanted wanted;
  for (QualifiedName const& each : names) wanted[each.name].push_back(&each);
  removeMatches(wanted, group);
  std::vector<QualifiedName const*> outside;
  for (auto const& [name, list] : wanted) outside.insert(outside.end(), list.begin(), list.end());
  return outside;
}

void NameIndex::removeMatches(Wanted& wanted, DataItem const& item) const {
  auto found = wanted.find(item.name);
  if (found != wanted.end()) {
    std::erase_if(found->second, [&](QualifiedName const* each) { return matches(*each, item); });
    if (found->second.empty()) wanted.erase(found);
  }
  DataItem const* each = item.firstChild;
  for (; each != nullptr && !wanted.empty(); each = each->next) removeMatches(wanted, *each);
}

std::string_view NameIndex::fileOf(DataItem const& record) const {
  auto file = m_files.find(&record);
  return file == m_files.end() ? std::string_view() : file->second;
}

// Qualifiers are names of groups around the item, innermost first, and of its file.
bool NameIndex::matches(QualifiedName const& name, DataItem const& item) const {
  DataItem const* group = item.parent;
  for (std::string_view qualifier : name.qualifiers) {
    while (group != nullptr && !equalsIgnoringCase(group->name, qualifier)) group = group->parent;
    if (group == nullptr) return equalsIgnoringCase(fileOf(*recordOf(item)), qualifier);
    group = group->parent;
  }
  return true;
}

void Redefinitions::visit(DataItem& item) {
  if (!item.isRedefinition) {
    m_base = &item;
    m_lastAlias = nullptr;
    m_aliases.clear();
    m_ends.clear();
    return;
  }
  QualifiedName const& target = *item.related;
  if (target.name.empty()) return;  // reported by the parser
  if (!isKnown(target, item)) {
    m_diagnostics.report(Code::redefines, target.place,
                         "cannot redefine " + quoted(target.name) +
                             ", which is not the preceding item of the same group");
    m_base = &item;
    return;
  }
  if (m_base->occurs) {
    m_diagnostics.report(Code::redefinesTable, target.place,
                         "redefined item " + quoted(target.name) + " is a table");
  }
  item.redefined = m_base;
}

bool Redefinitions::isKnown(QualifiedName const& target, DataItem const& item) {
  if (m_base == nullptr) return false;
  if (equalsIgnoringCase(m_base->name, target.name)) return true;
  collectAliases(item);
  if (m_aliases.contains(target.name)) return true;
  DataItem const* prefixed = m_ends.findLast(target.name);
  if (prefixed != nullptr) reportPrefix(target, *prefixed, m_diagnostics);
  return prefixed != nullptr;
}

// Collects the names of items on demand, each once.
void Redefinitions::collectAliases(DataItem const& upTo) {
  if (m_lastAlias == nullptr) m_ends.add(*m_base);
  DataItem* next = m_lastAlias == nullptr ? m_base->next : m_lastAlias->next;
  for (; next != nullptr && next != &upTo; next = next->next) {
    m_aliases.try_emplace(next->name, next);
    m_ends.add(*next);
    m_lastAlias = next;
  }
}

}  // namespace fdmorph::compiler
