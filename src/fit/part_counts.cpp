#include "fit/part_counts.h"

#include <algorithm>
#include <string>
#include <unordered_map>

namespace fdmorph::fit {
namespace {

using compiler::DataItem;
using record::RecordNode;
using record::RecordTree;
using record::Role;

// The item that an item shares its storage with; itself if with none.
DataItem const* areaOf(DataItem const& item) {
  DataItem const* area = &item;
  while (area->redefined != nullptr) area = area->redefined;
  return area;
}

/// How many occurrences of each element fit, by its index.
using Counts = std::unordered_map<std::size_t, std::uint64_t>;

class PartReader {
 public:
  explicit PartReader(RecordTree const& tree) : m_tree(tree) {}

  RecordParts read(std::uint32_t node) {
    for (auto const& [element, count] : readItems(node)) m_parts.elements[element].most = count;
    return std::move(m_parts);
  }

 private:
  std::vector<RecordNode> const& nodes() const { return m_tree.nodes(); }

  // The recursion through transparent groups is bounded by the number of levels.
  Counts readItems(std::uint32_t group) {
    std::unordered_map<DataItem const*, std::vector<std::uint32_t>> views;
    for (std::uint32_t each = group + 1; each < nodes()[group].end; each = nodes()[each].end) {
      if (nodes()[each].item->redefined != nullptr) {
        views[areaOf(*nodes()[each].item)].push_back(each);
      }
    }
    Counts counts;
    for (std::uint32_t each = group + 1; each < nodes()[group].end; each = nodes()[each].end) {
      if (nodes()[each].item->redefined != nullptr) continue;
      auto const others = views.find(nodes()[each].item);
      Counts const added = others == views.end() ? readItem(each) : readArea(each, others->second);
      for (auto const& [element, count] : added) counts[element] += count;
    }
    return counts;
  }

  Counts readArea(std::uint32_t first, std::vector<std::uint32_t> const& others) {
    Counts counts;
    SharedArea area;
    auto const addView = [&](std::uint32_t view) {
      std::vector<std::size_t> elements;
      for (auto const& [element, count] : readItem(view)) {
        counts[element] = std::max(counts[element], count);
        elements.push_back(element);
      }
      std::ranges::sort(elements);
      if (!elements.empty()) area.push_back(std::move(elements));
    };
    addView(first);
    for (std::uint32_t each : others) addView(each);
    if (area.size() > 1) m_parts.areas.push_back(std::move(area));
    return counts;
  }

  Counts readItem(std::uint32_t node) {
    RecordNode const& item = nodes()[node];
    switch (item.role) {
      case Role::transparent:
        return readItems(node);
      case Role::attribute:
        m_parts.attributes.push_back(node);
        return {};
      case Role::value:
        m_parts.values.push_back(node);
        return {};
      case Role::element:
        return {{elementOf(node), item.item->occurrences()}};
      case Role::none:
        break;
    }
    return {};
  }

  std::size_t elementOf(std::uint32_t node) {
    RecordNode const& item = nodes()[node];
    std::string key = std::string(item.namespaceUri) + ' ' + std::string(item.name);
    auto [known, isNew] = m_names.try_emplace(std::move(key), m_parts.elements.size());
    if (isNew) m_parts.elements.push_back({item.name, item.namespaceUri, {}, 0});
    m_parts.elements[known->second].nodes.push_back(node);
    return known->second;
  }

  RecordTree const& m_tree;
  RecordParts m_parts;
  std::unordered_map<std::string, std::size_t> m_names;
};

}  // namespace

RecordParts partsOf(RecordTree const& tree, std::uint32_t node) {
  return PartReader(tree).read(node);
}

}  // namespace fdmorph::fit
