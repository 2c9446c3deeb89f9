// Names that differ only by their namespaces.
#include <unordered_map>

#include "docschema/document_parts.h"
#include "docschema/json_schema.h"

namespace fdmorph::docschema {
namespace {

using compiler::Diagnostics;

/// Goes through the parts of one element. The views of an area do not see each other's
/// names; what follows the area sees them all.
class MemberWalk {
 public:
  MemberWalk(record::RecordTree const& tree, Diagnostics& diagnostics)
      : m_tree(tree), m_diagnostics(diagnostics) {}

  // The recursion is bounded by the number of levels.
  void walk(Particle const& particle) {
    if (particle.isElement()) {
      add(particle);
    } else if (particle.kind == Particle::Kind::choice) {
      walkChoice(particle);
    } else {
      for (Particle const& each : particle.parts) walk(each);
    }
  }

 private:
  void add(Particle const& element) {
    auto const [known, isNew] = m_known.emplace(element.name.local, element.name.namespaceUri);
    if (isNew) m_added.push_back(element.name);
    if (known->second == element.name.namespaceUri) return;
    compiler::DataItem const& item = *m_tree.nodes()[element.nodes.front()].item;
    m_diagnostics.report(compiler::Code::layout, item.place,
                         "the XML name of " + compiler::quoted(record::dataNameOf(item)) +
                             " differs from another one only by its namespace");
  }

  void walkChoice(Particle const& choice) {
    std::vector<QName> names;
    for (Particle const& each : choice.parts) {
      std::size_t const begin = m_added.size();
      walk(each);
      for (std::size_t i = begin; i < m_added.size(); ++i) {
        names.push_back(m_added[i]);
        m_known.erase(m_added[i].local);
      }
      m_added.resize(begin);
    }
    for (QName const& each : names) {
      if (m_known.emplace(each.local, each.namespaceUri).second) m_added.push_back(each);
    }
  }

  record::RecordTree const& m_tree;
  Diagnostics& m_diagnostics;
  std::unordered_map<std::string_view, std::string_view> m_known;  // namespaces by name
  std::vector<QName> m_added;                                      // to m_known, in their order
};

}  // namespace

void checkMemberNames(record::RecordTree const& tree, SchemaRules const& rules,
                      Diagnostics& diagnostics) {
  DocumentParts const document(tree, rules);
  for (std::uint32_t i = 0; i < tree.nodes().size(); ++i) {
    record::RecordNode const& node = tree.nodes()[i];
    if (node.role != record::Role::element || !node.item->isGroup()) continue;
    Parts const parts = document.partsOf(i);
    MemberWalk(tree, diagnostics).walk(parts.content);
    std::unordered_map<std::string_view, std::string_view> attributes;
    for (AttributeUse const& each : parts.attributes) {
      auto const [known, isNew] = attributes.emplace(each.name.local, each.name.namespaceUri);
      if (isNew || known->second == each.name.namespaceUri) continue;
      diagnostics.report(compiler::Code::layout, node.item->place,
                         "two attributes " + compiler::quoted(each.name.local) +
                             " differ only by their namespaces");
    }
  }
}

}  // namespace fdmorph::docschema
