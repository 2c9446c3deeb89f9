#include "semantics/name_index.h"

namespace fdmorph::compiler {
namespace {

// Items looked at over all searches. A source needs as many only if it has far
// more items of one name than its references can tell apart.
constexpr std::uint64_t kMaxSteps = 20'000'000;

// More items of one name than these are told apart by their groups.
constexpr std::size_t kMaxChainLength = 16;

bool isData(DataItem const& item) {
  return item.level <= kMaxGroupLevel || item.level == kSingleLevel || item.level == kRenamesLevel;
}

}  // namespace

bool isFillerName(std::string_view name) {
  return name.empty() || equalsIgnoringCase(name, "FILLER");
}

void NameIndex::extend(std::size_t count) {
  // Few at a time, they would be moved again and again.
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
    // More records may come.
    if (m_file + 1 == m_data.files.size()) return;
  }
}

void NameIndex::add(Chain& chain, DataItem& item, Link link) {
  item.*link = chain.last;
  chain.last = &item;
  ++chain.length;
}

NameIndex::Outcome NameIndex::resolve(QualifiedName const& name, DataItem const& from,
                                      DataItem*& item) {
  Outcome inRecord = resolveInRecord(name, from, item);
  return inRecord == Outcome::unknown ? resolveAnywhere(name, item) : inRecord;
}

NameIndex::Outcome NameIndex::resolveInRecord(QualifiedName const& name, DataItem const& from,
                                              DataItem*& item) {
  return searchIn(recordOf(from), name, &DataItem::sameInRecord, item);
}

NameIndex::Outcome NameIndex::resolveAnywhere(QualifiedName const& name, DataItem*& item) {
  return searchIn(nullptr, name, &DataItem::sameName, item);
}

NameIndex::Outcome NameIndex::searchIn(DataItem const* record, QualifiedName const& name, Link link,
                                       DataItem*& item) {
  auto found = m_chains.find({record, name.name});
  if (found == m_chains.end()) return Outcome::unknown;
  Chain& chain = found->second;
  DataItem* match = nullptr;
  Outcome outcome = Outcome::unknown;
  if (chain.length > kMaxChainLength && !name.qualifiers.empty()) {
    qualify(record, name, chain, link);
    std::vector<DataItem*> const* list = shortestList(record, name);
    if (list == nullptr) return Outcome::unknown;
    for (std::size_t i = 0; i < list->size() && outcome != Outcome::ambiguous; ++i) {
      outcome = take(name, *(*list)[i], match);
    }
  } else {
    for (DataItem* each = chain.last; each != nullptr && outcome != Outcome::ambiguous;
         each = each->*link) {
      outcome = take(name, *each, match);
    }
  }
  if (outcome == Outcome::found) item = match;
  return outcome;
}

// Puts what is new in a chain under the names of the groups around it.
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

// The outcome up to and with this candidate.
NameIndex::Outcome NameIndex::take(QualifiedName const& name, DataItem& candidate,
                                   DataItem*& match) {
  if (++m_steps > kMaxSteps) return Outcome::ambiguous;
  if (fits(name, candidate)) {
    if (match != nullptr) return Outcome::ambiguous;
    match = &candidate;
  }
  return match == nullptr ? Outcome::unknown : Outcome::found;
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
    std::erase_if(found->second, [&](QualifiedName const* each) { return fits(*each, item); });
    if (found->second.empty()) wanted.erase(found);
  }
  DataItem const* each = item.firstChild;
  for (; each != nullptr && !wanted.empty(); each = each->next) removeMatches(wanted, *each);
}

std::string_view NameIndex::fileOf(DataItem const& record) const {
  auto file = m_files.find(&record);
  return file == m_files.end() ? std::string_view() : file->second;
}

// Qualifiers name groups around the item, from the inside out, and its file.
bool NameIndex::fits(QualifiedName const& name, DataItem const& item) const {
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
    return;
  }
  QualifiedName const& target = *item.related;
  if (target.name.empty()) return;  // reported by the parser
  bool isKnown = m_base != nullptr &&
                 (equalsIgnoringCase(m_base->name, target.name) || isAlias(target.name, item));
  if (!isKnown) {
    m_diagnostics.report(Code::redefines, target.place,
                         "REDEFINES names " + quoted(target.name) +
                             ", which isn't the item before it in the same group");
    m_base = &item;
    return;
  }
  if (m_base->occurs) {
    m_diagnostics.report(Code::redefinesTable, target.place,
                         quoted(target.name) + " is a table, which should not be redefined");
  }
  item.redefined = m_base;
}

// The names are gathered only where one is asked for, each once.
bool Redefinitions::isAlias(std::string_view name, DataItem const& upTo) {
  DataItem* next = m_lastAlias == nullptr ? m_base->next : m_lastAlias->next;
  for (; next != nullptr && next != &upTo; next = next->next) {
    m_aliases.try_emplace(next->name, next);
    m_lastAlias = next;
  }
  return m_aliases.contains(name);
}

}  // namespace fdmorph::compiler
