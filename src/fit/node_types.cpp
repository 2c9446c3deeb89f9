#include "fit/node_types.h"

#include <algorithm>
#include <unordered_map>

#include "fit/content.h"
#include "fit/fit_walk.h"
#include "fit/part_counts.h"
#include "fit/value_demand.h"

namespace fdmorph::fit {
namespace {

using record::RecordNode;

std::string wordsOf(SimpleType const& type) {
  bool isBuiltIn = type.name == "xs:" + type.builtIn;
  bool hasName = !type.name.empty() && !isBuiltIn;
  return (hasName ? type.name + ": " : std::string()) + describe(type);
}

std::string wordsOf(SchemaType const& type) {
  if (type.isAny) return "any content";
  if (type.text != nullptr && type.content == ContentKind::text) {
    bool hasName = !type.name.local.empty() && type.name.local != type.text->name &&
                   type.name.local != type.text->builtIn;
    return (hasName ? type.name.local + ": " : std::string()) + wordsOf(*type.text);
  }
  if (type.content == ContentKind::mixed) return "mixed content";
  return type.name.local;
}

/// Goes through a record beside the schema.
class TypeWalk {
 public:
  TypeWalk(record::RecordTree const& tree, SchemaModel& model)
      : m_tree(tree), m_model(model), m_words(tree.nodes().size()) {}

  std::vector<std::string> walk() {
    SchemaElement const* root = findRootElement(m_tree, m_model);
    if (root != nullptr) visit(0, *root);
    return std::move(m_words);
  }

 private:
  // The recursion is bounded by the number of levels of a record.
  void visit(std::uint32_t node, SchemaElement const& element) {
    SchemaType const& type = m_model.typeOf(element);
    RecordParts parts = partsOf(m_tree, node);
    m_words[node] = wordsOf(type);
    if (type.text != nullptr) {
      for (std::uint32_t each : parts.values) m_words[each] = wordsOf(*type.text);
    }
    for (std::uint32_t each : parts.attributes) visitAttribute(each, type);
    for (RecordPart const& part : parts.elements) {
      SchemaElement const* inner = findElement(type, part);
      if (inner == nullptr) continue;
      for (std::uint32_t slot : part.nodes) visit(slot, *inner);
    }
  }

  void visitAttribute(std::uint32_t node, SchemaType const& type) {
    RecordNode const& attribute = m_tree.nodes()[node];
    auto found = std::ranges::find_if(type.attributes, [&](SchemaAttribute const& each) {
      return each.name.local == attribute.name && each.name.space == attribute.namespaceUri;
    });
    if (found == type.attributes.end() || found->type == nullptr) return;
    m_words[node] = wordsOf(*found->type);
    for (std::uint32_t each : partsOf(m_tree, node).values) m_words[each] = m_words[node];
  }

  // The element of that name; one in another namespace if none is in the same.
  SchemaElement const* findElement(SchemaType const& type, RecordPart const& part) {
    auto [entry, isNew] = m_elements.try_emplace(&type);
    if (isNew) {
      for (ContentPart const& each : contentOf(type, m_model).parts) {
        entry->second.emplace(each.element->name.local, each.element);
      }
    }
    auto [first, last] = entry->second.equal_range(std::string(part.name));
    for (auto each = first; each != last; ++each) {
      if (each->second->name.space == part.namespaceUri) return each->second;
    }
    return first == last ? nullptr : first->second;
  }

  using Elements = std::unordered_multimap<std::string, SchemaElement const*>;

  record::RecordTree const& m_tree;
  SchemaModel& m_model;
  std::vector<std::string> m_words;
  std::unordered_map<SchemaType const*, Elements> m_elements;  // of the types met so far
};

}  // namespace

std::vector<std::string> typesOfNodes(record::RecordTree const& tree, SchemaModel& model) {
  return TypeWalk(tree, model).walk();
}

}  // namespace fdmorph::fit
