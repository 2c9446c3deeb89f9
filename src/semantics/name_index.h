// The names of items: the index of names, and REDEFINES within a group.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "semantics/data_item.h"
#include "semantics/prefixed_names.h"
#include "source/diagnostics.h"
#include "text/letter_case.h"

namespace fdmorph::compiler {

/// An index of items by name. The links between items of one name are stored in
/// the items, so there is one index at a time for the items of a data division.
class NameIndex {
 public:
  enum class Outcome { found, unknown, ambiguous };

  /// The result of a search. The item is null unless it was found.
  struct Found {
    Outcome outcome = Outcome::unknown;
    DataItem* item = nullptr;
  };

  /// Makes an empty index of items in `data`, which must outlive it.
  explicit NameIndex(DataDivision& data) : m_data(data) {}

  /// Adds items until the index has the first `count` items of the data.
  /// Conditions and constants are left out. The items must have their final
  /// places in the tree.
  void extend(std::size_t count);

  /// Finds the item called `name` in the record of `from`, or if there is none,
  /// in all records.
  [[nodiscard]] Found resolve(QualifiedName const& name, DataItem const& from);

  /// Finds the item in the record of `from` only.
  [[nodiscard]] Found resolveInRecord(QualifiedName const& name, DataItem const& from);

  /// Finds the item in all records.
  [[nodiscard]] Found resolveAnywhere(QualifiedName const& name);

  /// Those of `names` that are the name of neither `group` nor an item in it, in
  /// any order.
  [[nodiscard]] std::vector<QualifiedName const*> findOutside(
      std::vector<QualifiedName> const& names, DataItem const& group) const;

 private:
  using Wanted = std::unordered_map<std::string_view, std::vector<QualifiedName const*>,
                                    CaseInsensitiveHash, CaseInsensitiveEqual>;
  using Link = DataItem* DataItem::*;

  /// The items of one name, linked from the last one to the first.
  struct Chain {
    DataItem* last = nullptr;
    std::size_t length = 0;
    DataItem* qualified = nullptr;  // the last one that m_qualified has
  };

  /// A name in a record, or in all records if that is null. In m_qualified also
  /// the name of a group around the item.
  struct Key {
    DataItem const* record;
    std::string_view name;
    std::string_view qualifier = {};

    bool operator==(Key const& other) const {
      return record == other.record && equalsIgnoringCase(name, other.name) &&
             equalsIgnoringCase(qualifier, other.qualifier);
    }
  };
  struct KeyHash {
    std::size_t operator()(Key const& key) const {
      return CaseInsensitiveHash()(key.name) ^ std::hash<DataItem const*>()(key.record) ^
             (CaseInsensitiveHash()(key.qualifier) * 31);
    }
  };

  void extendFiles();
  void add(Chain& chain, DataItem& item, Link link);
  Found searchIn(DataItem const* record, QualifiedName const& name, Link link);
  void qualify(DataItem const* record, QualifiedName const& name, Chain& chain, Link link);
  std::vector<DataItem*> const* shortestList(DataItem const* record,
                                             QualifiedName const& name) const;
  void tryItem(QualifiedName const& name, DataItem& candidate, Found& found);
  void removeMatches(Wanted& wanted, DataItem const& item) const;
  bool matches(QualifiedName const& name, DataItem const& item) const;
  std::string_view fileOf(DataItem const& record) const;

  DataDivision& m_data;
  std::size_t m_itemCount = 0;             // the number of items in the index
  std::size_t m_file = 0;                  // the index of the file to extend
  DataItem const* m_lastOfFile = nullptr;  // its last record in the index
  std::unordered_map<Key, Chain, KeyHash> m_chains;
  std::unordered_map<Key, std::vector<DataItem*>, KeyHash> m_qualified;
  std::unordered_map<DataItem const*, std::string_view> m_files;  // by record
  std::uint64_t m_steps = 0;                                      // the number of items tried
};

/// Whether an item of this name cannot be referred to.
bool isFillerName(std::string_view name);

/// Resolves REDEFINES among the items of one group, in their order. The redefined
/// item is the last one with storage of its own. The clause names that item or
/// another one that redefines it. If none of them has the name, it means the last
/// one whose name ends in a hyphen and the name.
class Redefinitions {
 public:
  explicit Redefinitions(Diagnostics& diagnostics) : m_diagnostics(diagnostics) {}

  /// Sets the redefined item of the next item of the group. Reports an error if
  /// the clause names another item.
  void visit(DataItem& item);

 private:
  bool isKnown(QualifiedName const& target, DataItem const& item);
  void collectAliases(DataItem const& upTo);

  Diagnostics& m_diagnostics;
  DataItem* m_base = nullptr;
  DataItem* m_lastAlias = nullptr;  // the last item added to m_aliases
  std::unordered_map<std::string_view, DataItem*, CaseInsensitiveHash, CaseInsensitiveEqual>
      m_aliases;
  NameEnds m_ends;  // of the base and the aliases
};

}  // namespace fdmorph::compiler
