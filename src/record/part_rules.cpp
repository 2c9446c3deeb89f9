#include "record/part_rules.h"

#include <string_view>
#include <unordered_map>

namespace fdmorph::record {
namespace {

using compiler::Code;
using compiler::DataItem;

/// What must not stand in one element twice.
struct PartKey {
  Role role;
  std::string_view name;
  std::string_view namespaceUri;

  bool operator==(PartKey const&) const = default;
};

struct PartKeyHash {
  std::size_t operator()(PartKey const& key) const {
    std::hash<std::string_view> hash;
    return hash(key.name) * 31 + hash(key.namespaceUri) * 7 + static_cast<std::size_t>(key.role);
  }
};

// The item that an item shares its storage with; itself if with none.
DataItem const* areaOf(DataItem const& item) {
  DataItem const* area = &item;
  while (area->redefined != nullptr) area = area->redefined;
  return area;
}

bool isPart(RecordNode const& node) {
  return node.role != Role::none && node.role != Role::transparent;
}

bool variesInSize(RecordNode const& node) {
  return node.repeats() && node.item->occurs->isDepending;
}

/// Goes through the parts of one element. A name is active as long as another part
/// can clash with it. The views of an area do not see each other's names; what
/// follows the area sees them all.
class PartWalk {
 public:
  PartWalk(RecordTree const& tree, compiler::Diagnostics& diagnostics)
      : m_tree(tree), m_nodes(tree.nodes()), m_diagnostics(diagnostics) {}

  // The parts of the element or attribute `node`.
  void walk(std::uint32_t node) {
    // clear() takes the time of the largest element so far, and = {} calls it.
    m_active = ActiveParts();
    m_changes.clear();
    walkItems(node);
  }

 private:
  using ActiveParts = std::unordered_map<PartKey, std::uint32_t, PartKeyHash>;

  /// A name that became active, and the part that had it before, or kNoNode.
  struct Change {
    PartKey key;
    std::uint32_t node;
    std::uint32_t before;
  };

  // The recursion through transparent groups is bounded by the number of levels.
  void walkItems(std::uint32_t group) {
    std::unordered_map<DataItem const*, std::vector<std::uint32_t>> views;
    for (std::uint32_t each = group + 1; each < m_nodes[group].end; each = m_nodes[each].end) {
      if (m_nodes[each].item->redefined != nullptr) {
        views[areaOf(*m_nodes[each].item)].push_back(each);
      }
    }
    for (std::uint32_t each = group + 1; each < m_nodes[group].end; each = m_nodes[each].end) {
      if (m_nodes[each].item->redefined != nullptr) continue;
      auto others = views.find(m_nodes[each].item);
      if (others == views.end()) {
        walkItem(each);
      } else {
        walkArea(each, others->second);
      }
    }
  }

  void walkArea(std::uint32_t first, std::vector<std::uint32_t> const& others) {
    std::vector<Change> added;
    walkView(first, added);
    for (std::uint32_t each : others) walkView(each, added);
    for (Change const& each : added) {
      auto known = m_active.find(each.key);
      bool isKept = known != m_active.end() && variesInSize(m_nodes[known->second]);
      if (!isKept) activate(each.key, each.node);
    }
  }

  void walkView(std::uint32_t view, std::vector<Change>& added) {
    std::size_t begin = m_changes.size();
    walkItem(view);
    for (std::size_t i = begin; i < m_changes.size(); ++i) added.push_back(m_changes[i]);
    while (m_changes.size() > begin) {
      Change const& last = m_changes.back();
      if (last.before == kNoNode) {
        m_active.erase(last.key);
      } else {
        m_active[last.key] = last.before;
      }
      m_changes.pop_back();
    }
  }

  void walkItem(std::uint32_t node) {
    RecordNode const& item = m_nodes[node];
    if (item.role == Role::transparent) {
      walkItems(node);
    } else if (isPart(item)) {
      addPart(node);
    }
  }

  void addPart(std::uint32_t node) {
    RecordNode const& part = m_nodes[node];
    PartKey key{part.role, part.name, part.namespaceUri};
    if (part.role == Role::value) key.namespaceUri = {};
    auto before = m_active.find(key);
    if (before != m_active.end()) reportClash(m_nodes[before->second], part);
    activate(key, node);
  }

  void activate(PartKey const& key, std::uint32_t node) {
    auto [known, isNew] = m_active.try_emplace(key, node);
    m_changes.push_back({key, node, isNew ? kNoNode : known->second});
    known->second = node;
  }

  void reportClash(RecordNode const& before, RecordNode const& part) {
    std::string first = compiler::quoted(dataNameOf(*before.item));
    std::string second = compiler::quoted(dataNameOf(*part.item));
    if (part.role == Role::value) {
      error(part, second + " is a second text of its element, after " + first);
    } else if (part.role == Role::attribute) {
      error(part, second + " is the same attribute as " + first);
    } else if (!m_tree.isEnhanced() && before.item->name != part.item->name) {
      error(part, second + " has the same XML name as " + first);
    } else if (variesInSize(before)) {
      error(before, "table " + first + " varies in size and is followed by " + second +
                        ", which has the same XML name");
    }
  }

  void error(RecordNode const& node, std::string text) {
    m_diagnostics.report(Code::layout, node.item->place, std::move(text));
  }

  RecordTree const& m_tree;
  std::vector<RecordNode> const& m_nodes;
  compiler::Diagnostics& m_diagnostics;
  ActiveParts m_active;
  std::vector<Change> m_changes;  // of m_active, in their order
};

// The rules for a part by itself. The text, or nothing.
std::string findFault(RecordTree const& tree, RecordNode const& node) {
  bool isAttribute = node.role == Role::attribute;
  if (!isPart(node)) return {};
  std::string name = compiler::quoted(dataNameOf(*node.item));
  if (isAttribute && node.enclosing == kNoNode) return "attribute " + name + " is in no element";
  if (isAttribute && node.repeats()) return "attribute " + name + " repeats";
  if (node.role == Role::value && node.repeats()) {
    return name + " is the text of an element and repeats";
  }
  bool isInAttribute =
      node.enclosing != kNoNode && tree.nodes()[node.enclosing].role == Role::attribute;
  if (!isInAttribute || node.role == Role::value) return {};
  return name + " is " + (isAttribute ? "an attribute" : "an element") + " in an attribute";
}

}  // namespace

void checkParts(RecordTree const& tree, compiler::Diagnostics& diagnostics) {
  PartWalk walk(tree, diagnostics);
  for (std::uint32_t i = 0; i < tree.nodes().size(); ++i) {
    RecordNode const& node = tree.nodes()[i];
    std::string fault = findFault(tree, node);
    if (!fault.empty()) diagnostics.report(Code::layout, node.item->place, std::move(fault));
    bool isNamed = node.role == Role::element || node.role == Role::attribute;
    if (isNamed && node.item->isGroup()) walk.walk(i);
  }
}

}  // namespace fdmorph::record
