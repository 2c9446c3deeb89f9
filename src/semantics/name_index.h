// Items by their names.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "semantics/data_item.h"
#include "source/diagnostics.h"
#include "text/letter_case.h"

namespace fdmorph::compiler {

class NameIndex {
 public:
  enum class Outcome { found, unknown, ambiguous };

  /// An index of the items in `data`, which is empty until it is extended.
  explicit NameIndex(DataDivision& data) : m_data(data) {}

  /// Adds the first `count` items of the data that it doesn't hold yet,
  /// conditions and constants left out. All of them have their places in the
  /// tree, and keep them.
  void extend(std::size_t count);

  /// The item that `name` means in the record of `from`: one of that record,
  /// or else one of any. `item` is set only if it is found.
  Outcome resolve(QualifiedName const& name, DataItem const& from, DataItem*& item);

  /// The same for names of that record only.
  Outcome resolveInRecord(QualifiedName const& name, DataItem const& from, DataItem*& item);

  /// The same for names of all records.
  Outcome resolveAnywhere(QualifiedName const& name, DataItem*& item);

  /// Those of `names` that mean neither `group` nor an item in it, in any order.
  std::vector<QualifiedName const*> findOutside(std::vector<QualifiedName> const& names,
                                                DataItem const& group) const;

 private:
  using Wanted = std::unordered_map<std::string_view, std::vector<QualifiedName const*>,
                                    CaseInsensitiveHash, CaseInsensitiveEqual>;
  using Link = DataItem* DataItem::*;

  /// The items of one name, last one first, linked in the items themselves.
  struct Chain {
    DataItem* last = nullptr;
    std::size_t length = 0;
    DataItem* qualified = nullptr;  // from here on they stand in m_qualified
  };

  /// A name in a record, or in all of them (null); for m_qualified the name of
  /// a group around the item, too.
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
  Outcome searchIn(DataItem const* record, QualifiedName const& name, Link link, DataItem*& item);
  void qualify(DataItem const* record, QualifiedName const& name, Chain& chain, Link link);
  std::vector<DataItem*> const* shortestList(DataItem const* record,
                                             QualifiedName const& name) const;
  Outcome take(QualifiedName const& name, DataItem& candidate, DataItem*& match);
  void removeMatches(Wanted& wanted, DataItem const& item) const;
  bool fits(QualifiedName const& name, DataItem const& item) const;
  std::string_view fileOf(DataItem const& record) const;

  DataDivision& m_data;
  std::size_t m_itemCount = 0;             // that are in the index
  std::size_t m_file = 0;                  // the file that is being added
  DataItem const* m_lastOfFile = nullptr;  // its last record that was
  std::unordered_map<Key, Chain, KeyHash> m_chains;
  std::unordered_map<Key, std::vector<DataItem*>, KeyHash> m_qualified;
  std::unordered_map<DataItem const*, std::string_view> m_files;  // of records
  std::uint64_t m_steps = 0;
};

/// Whether a name is none that an item could be called by.
bool isFillerName(std::string_view name);

/// Walks the items of one group, in order. The item redefined is the last one
/// with storage of its own, called by its name or by that of another item that
/// redefines it.
class Redefinitions {
 public:
  explicit Redefinitions(Diagnostics& diagnostics) : m_diagnostics(diagnostics) {}

  void visit(DataItem& item);

 private:
  bool isAlias(std::string_view name, DataItem const& upTo);

  Diagnostics& m_diagnostics;
  DataItem* m_base = nullptr;
  DataItem* m_lastAlias = nullptr;  // the last one in m_aliases
  std::unordered_map<std::string_view, DataItem*, CaseInsensitiveHash, CaseInsensitiveEqual>
      m_aliases;
};

}  // namespace fdmorph::compiler
