// A record as a tree of items, and what each of them is in an XML document.
//
// A record in which an item has an IDENTIFIED BY clause is enhanced: its items have
// the names of these clauses. In any other record they have their data names.
//
// Groups with an XML name are elements. A group without one is transparent: its
// parts are parts of the element around it. An elementary item with an XML name is
// an element with text, or an attribute of the element around it. One without a
// name, in an enhanced record, is the text of the element around it if that has no
// elements: the value item.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "semantics/data_item.h"
#include "source/diagnostics.h"

namespace fdmorph::record {

enum class Role : std::uint8_t {
  none,         ///< not in the document
  transparent,  ///< a group without an XML name
  element,
  attribute,  ///< also a group, whose text is that of the value item in it
  value,      ///< the text of the nearest element or attribute around it
};

/// No node.
inline constexpr std::uint32_t kNoNode = UINT32_MAX;

/// An item of a record. Numbers of nodes are their places in RecordTree::nodes.
struct RecordNode {
  compiler::DataItem const* item;
  std::uint32_t parent;     ///< of the group around it; kNoNode for the record
  std::uint32_t end;        ///< the node after the last one below this
  std::uint32_t enclosing;  ///< the nearest element or attribute around it; kNoNode if none
  Role role = Role::none;
  std::string_view name = {};          ///< XML name, without a prefix; empty if it has none
  std::string_view namespaceUri = {};  ///< of an element or attribute; empty if in none

  bool repeats() const { return item->occurs != nullptr; }
};

/// How often a schema wants a part of an element to be there.
struct PartDemand {
  std::uint64_t least = 1;  ///< occurrences, unless all of `together` are left out
  /// Nodes, this one included, that may be left out if all of them are. Empty if the
  /// part may not be left out.
  std::vector<std::uint32_t> together = {};
};

struct NamingRules {
  std::string namespaceUri;  ///< of all elements of a plain record
};

/// The items of one record, in the order of the source. It looks at the data
/// division, which must outlive it.
class RecordTree {
 public:
  /// Errors of the layout go to `diagnostics`: the record cannot be used for
  /// documents then, but the tree is complete.
  RecordTree(compiler::DataItem const& record, NamingRules const& rules,
             compiler::Diagnostics& diagnostics);
  RecordTree(RecordTree const&) = delete;
  RecordTree& operator=(RecordTree const&) = delete;
  RecordTree(RecordTree&&) = default;
  RecordTree& operator=(RecordTree&&) = default;

  /// In preorder: a group precedes its items. Conditions are not among them.
  [[nodiscard]] std::vector<RecordNode> const& nodes() const { return m_nodes; }

  [[nodiscard]] RecordNode const& root() const { return m_nodes.front(); }
  [[nodiscard]] bool isEnhanced() const { return m_isEnhanced; }

  /// Puts an element or attribute into a namespace.
  void setNamespace(std::uint32_t node, std::string_view namespaceUri);

  void setDemand(std::uint32_t node, PartDemand demand);

  /// What a schema wants; null if there is no schema, or it does not know the part.
  [[nodiscard]] PartDemand const* demandOf(std::uint32_t node) const {
    auto found = m_demands.find(node);
    return found == m_demands.end() ? nullptr : &found->second;
  }

  /// The names of the elements from the record down to a node, separated by
  /// slashes, and "@" before the name of an attribute. A value item has the path of
  /// its element. Empty for a node without a place in the document.
  [[nodiscard]] std::string xmlPath(std::uint32_t node) const;

  /// The data names from the record down to a node, separated by slashes.
  [[nodiscard]] std::string dataPath(std::uint32_t node) const;

 private:
  void addItems(compiler::DataItem const& item, std::uint32_t parent);
  void nameNodes(NamingRules const& rules, compiler::Diagnostics& diagnostics);
  std::string_view nameOf(compiler::DataItem const& item, compiler::Diagnostics& diagnostics);
  std::string_view nameFromDataName(compiler::DataItem const& item,
                                    compiler::Diagnostics& diagnostics);
  void assignRoles();
  void dropRolesOfEmptyGroups(compiler::Diagnostics& diagnostics);
  void findEnclosing();
  void assignValues();
  void dropAttributesWithoutText();

  std::vector<RecordNode> m_nodes;
  std::deque<std::string> m_texts;  // names that are not in the source as they are
  std::unordered_map<std::uint32_t, PartDemand> m_demands;  // by node
  bool m_isEnhanced = false;
};

/// Whether an item is stored as an index, an address or the like, which no document
/// can hold.
[[nodiscard]] bool isAddress(compiler::DataItem const& item);

/// The data name of an item; "FILLER" if it has none.
[[nodiscard]] std::string_view dataNameOf(compiler::DataItem const& item);

}  // namespace fdmorph::record
