#include "fit/schema_adoption.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "fit/fit_walk.h"
#include "fit/part_demands.h"

namespace fdmorph::fit {
namespace {

using record::PartDemand;
using record::RecordNode;

class Adoption {
 public:
  Adoption(record::RecordTree& tree, SchemaModel& model) : m_tree(tree), m_model(model) {}

  // The recursion is bounded by the number of levels of a record.
  void adopt(std::uint32_t node, SchemaElement const& element) {
    SchemaType const& type = m_model.typeOf(element);
    RecordParts const parts = partsOf(m_tree, node);
    m_tree.setNamespace(node, element.name.space);
    adoptAttributes(parts.attributes, type);
    if (parts.elements.empty()) return;
    Content const& content = contentFor(type);
    PartMatch const match = matchParts(parts.elements, content);
    for (auto& [part, demand] : demandsOf(type, m_model, content, parts.elements, match, m_tree)) {
      m_tree.setDemand(part, std::move(demand));
    }
    for (std::size_t i = 0; i < parts.elements.size(); ++i) {
      if (!match.partOf[i]) continue;
      for (std::uint32_t slot : parts.elements[i].nodes) {
        adopt(slot, *content.parts[*match.partOf[i]].element);
      }
    }
  }

 private:
  Content const& contentFor(SchemaType const& type) {
    auto [entry, isNew] = m_contents.try_emplace(&type);
    if (isNew) entry->second = contentOf(type, m_model);
    return entry->second;
  }

  void adoptAttributes(std::vector<std::uint32_t> const& nodes, SchemaType const& type) {
    for (std::uint32_t node : nodes) {
      SchemaAttribute const* attribute = findAttribute(m_tree.nodes()[node], type);
      if (attribute == nullptr) continue;
      m_tree.setNamespace(node, attribute->name.space);
      PartDemand demand;
      if (!attribute->isRequired) demand.together = {node};
      m_tree.setDemand(node, std::move(demand));
    }
  }

  static SchemaAttribute const* findAttribute(RecordNode const& item, SchemaType const& type) {
    SchemaAttribute const* found = nullptr;
    for (SchemaAttribute const& each : type.attributes) {
      if (each.name.local != item.name) continue;
      if (each.name.space == item.namespaceUri) return &each;
      if (found == nullptr) found = &each;
    }
    return found;
  }

  record::RecordTree& m_tree;
  SchemaModel& m_model;
  std::unordered_map<SchemaType const*, Content> m_contents;  // of the types met so far
};

}  // namespace

void adoptSchema(record::RecordTree& tree, SchemaModel& model) {
  SchemaElement const* root = findRootElement(tree, model);
  if (root != nullptr) Adoption(tree, model).adopt(0, *root);
}

}  // namespace fdmorph::fit
