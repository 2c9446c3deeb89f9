#include "mapping/entry_matching.h"

#include <algorithm>
#include <map>

#include "mapping/keys.h"
#include "mapping/suggestions.h"
#include "text/letter_case.h"
#include "text/near_words.h"

namespace fdmorph::mapping {
namespace {

// Each pass goes one level further into groups that were moved or renamed.
constexpr int kMaxPasses = 60;

class Matcher {
 public:
  Matcher(std::vector<MappingEntry> const& entries, DescribedData const& data)
      : m_entries(entries), m_data(data) {
    m_result.entries.resize(entries.size());
    m_result.ofItems.resize(data.items().size(), kNone);
    for (std::size_t i = 0; i < entries.size(); ++i) m_byKey[entries[i].key()].push_back(i);
  }

  Matching match(std::vector<GivenRename> const& renames) {
    matchGiven(renames);
    matchSameKeys();
    for (int pass = 0; pass < kMaxPasses; ++pass) {
      std::size_t const before = m_matches;
      matchByGroup();
      matchByName();
      matchGroups();
      if (m_matches == before) matchNearNames();
      if (m_matches == before) break;
    }
    return std::move(m_result);
  }

 private:
  using Indexes = std::vector<std::size_t>;

  [[nodiscard]] std::vector<DescribedItem> const& items() const { return m_data.items(); }

  [[nodiscard]] bool isFree(std::size_t item) const {
    Standing const standing = items()[item].standing;
    return m_result.ofItems[item] == kNone &&
           (standing == Standing::written || standing == Standing::fillerGroup);
  }

  [[nodiscard]] bool isOpen(std::size_t entry) const {
    EntryMatch const& match = m_result.entries[entry];
    return match.item == kNone && match.reason < MatchReason::elsewhere &&
           !m_entries[entry].key().empty();
  }

  [[nodiscard]] bool isGroup(std::size_t entry) const {
    return m_entries[entry].texts[MappingField::type] == kGroupType;
  }

  void join(std::size_t entry, std::size_t item, MatchReason reason) {
    m_result.entries[entry] = {item, reason};
    m_result.ofItems[item] = entry;
    ++m_matches;
    // The entries of the members of a group begin with its key.
    if (m_entries[entry].key() != items()[item].key) {
      m_newKeys.emplace(m_entries[entry].key(), items()[item].key);
    }
  }

  void matchGiven(std::vector<GivenRename> const& renames) {
    for (GivenRename const& each : renames) {
      auto const from = m_byKey.find(each.from);
      std::span<std::size_t const> const to = m_data.find(each.to);
      bool isKnown = true;
      if (from == m_byKey.end()) {
        m_result.unknown.push_back("no entry for '" + each.from + "'");
        isKnown = false;
      }
      if (to.empty() || !isFree(to.front())) {
        m_result.unknown.push_back("no item '" + each.to + "' that can have an entry");
        isKnown = false;
      }
      if (isKnown && isOpen(from->second.front())) {
        join(from->second.front(), to.front(), MatchReason::given);
      }
    }
  }

  void matchSameKeys() {
    for (auto const& [key, entries] : m_byKey) {
      std::span<std::size_t const> const found = m_data.find(key);
      auto item = found.begin();
      for (std::size_t entry : entries) {
        while (item != found.end() && !isFree(*item)) ++item;
        if (item == found.end()) break;
        if (isOpen(entry)) join(entry, *item, MatchReason::sameKey);
      }
      bool const isWritten = std::ranges::any_of(found, [this](std::size_t each) {
        return items()[each].standing <= Standing::fillerGroup;
      });
      bool const isElsewhere = found.empty() ? m_data.isElsewhere(key) : !isWritten;
      if (found.empty() && !isElsewhere) continue;
      for (std::size_t entry : entries) {
        if (!isOpen(entry)) continue;
        m_result.entries[entry].reason =
            isElsewhere ? MatchReason::elsewhere : MatchReason::surplus;
      }
    }
    matchAnyCase();
  }

  // Keys that differ in letter case only.
  void matchAnyCase() {
    std::map<std::string, Indexes> keys;
    for (std::size_t i = 0; i < items().size(); ++i) {
      if (isFree(i)) keys[upperCase(items()[i].key)].push_back(i);
    }
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
      if (!isOpen(i)) continue;
      auto const found = keys.find(upperCase(m_entries[i].key()));
      if (found == keys.end()) continue;
      auto const item = std::ranges::find_if(found->second, [this](auto j) { return isFree(j); });
      if (item != found->second.end()) join(i, *item, MatchReason::renamed);
    }
  }

  // The key by the groups around it that have other keys now; empty if none has.
  [[nodiscard]] std::string translated(std::string_view key) const {
    for (std::string_view group = groupOf(key); !group.empty(); group = groupOf(group)) {
      auto const found = m_newKeys.find(group);
      if (found == m_newKeys.end()) continue;
      return std::string(found->second) + std::string(key.substr(group.size()));
    }
    return {};
  }

  // Members of groups whose own keys are known to be others.
  void matchByGroup() {
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
      if (!isOpen(i)) continue;
      for (std::size_t item : m_data.find(translated(m_entries[i].key()))) {
        if (!isFree(item)) continue;
        join(i, item, MatchReason::parent);
        break;
      }
    }
  }

  // The only entry and the only item of a name, in any letter case.
  void matchByName() {
    std::map<std::pair<std::string, bool>, std::pair<Indexes, Indexes>> names;
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
      if (!isOpen(i) || isFiller(lastPartOf(m_entries[i].key()))) continue;
      names[{upperCase(lastPartOf(m_entries[i].key())), isGroup(i)}].first.push_back(i);
    }
    for (std::size_t i = 0; i < items().size(); ++i) {
      if (!isFree(i)) continue;
      auto const found = names.find({upperCase(items()[i].name()), items()[i].isGroup});
      if (found != names.end()) found->second.second.push_back(i);
    }
    for (auto const& [name, both] : names) {
      auto const& [entries, found] = both;
      if (entries.size() == 1 && found.size() == 1) {
        join(entries.front(), found.front(), MatchReason::moved);
      }
    }
  }

  // A group all of whose members are in one other group now.
  void matchGroups() {
    std::map<std::string_view, Indexes> targets;  // by the key of the group
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
      std::size_t const item = m_result.entries[i].item;
      std::string_view const group = groupOf(m_entries[i].key());
      if (item == kNone || group.empty()) continue;
      Indexes& parents = targets[group];
      std::size_t const parent = items()[item].parent;
      if (std::ranges::find(parents, parent) == parents.end()) parents.push_back(parent);
    }
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
      if (!isOpen(i) || !isGroup(i)) continue;
      auto const found = targets.find(m_entries[i].key());
      if (found == targets.end() || found->second.size() != 1) continue;
      std::size_t const item = found->second.front();
      if (item != kNone && items()[item].isGroup && isFree(item)) {
        join(i, item, MatchReason::renamed);
      }
    }
  }

  // In one group, an entry and an item whose names are near to each other only.
  void matchNearNames() {
    std::map<std::pair<std::string, bool>, std::pair<Indexes, Indexes>> groups;
    for (std::size_t i = 0; i < items().size(); ++i) {
      if (!isFree(i) || isFiller(items()[i].name())) continue;
      groups[{std::string(groupOf(items()[i].key)), items()[i].isGroup}].second.push_back(i);
    }
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
      if (!isOpen(i)) continue;
      std::string const key = translated(m_entries[i].key());
      std::string const group(groupOf(key.empty() ? m_entries[i].key() : key));
      auto const found = groups.find({group, isGroup(i)});
      if (found != groups.end()) found->second.first.push_back(i);
    }
    for (auto const& [group, both] : groups) matchNear(both.first, both.second);
  }

  void matchNear(Indexes const& entries, Indexes const& found) {
    if (entries.size() > kMaxNear || found.size() > kMaxNear) return;
    std::vector<std::string_view> old;
    std::vector<std::string_view> now;
    for (std::size_t each : entries) old.push_back(lastPartOf(m_entries[each].key()));
    for (std::size_t each : found) now.push_back(items()[each].name());
    for (std::size_t i = 0; i < old.size(); ++i) {
      std::string_view const name = nearest(old[i], now);
      if (name.empty() || nearest(name, old) != old[i]) continue;
      auto const at = static_cast<std::size_t>(std::ranges::find(now, name) - now.begin());
      if (isOpen(entries[i]) && isFree(found[at])) {
        join(entries[i], found[at], MatchReason::renamed);
      }
    }
  }

  // A group with more members of new names was rewritten, and takes long to compare.
  static constexpr std::size_t kMaxNear = 50;

  std::vector<MappingEntry> const& m_entries;
  DescribedData const& m_data;
  Matching m_result;
  std::map<std::string_view, Indexes> m_byKey;             // the entries
  std::map<std::string_view, std::string_view> m_newKeys;  // of groups and items, by the old
  std::size_t m_matches = 0;
};

}  // namespace

Matching matchEntries(std::vector<MappingEntry> const& entries, DescribedData const& data,
                      std::vector<GivenRename> const& renames) {
  return Matcher(entries, data).match(renames);
}

}  // namespace fdmorph::mapping
