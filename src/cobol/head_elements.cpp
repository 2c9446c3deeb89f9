#include "cobol/head_elements.h"

#include <string_view>
#include <unordered_set>

#include "text/console.h"

namespace fdmorph {
namespace {

bool isCandidate(CDMXMLElement const* child) {
  return generatorElementKind(child) == GeneratorElementKind::element &&
         child->getAttribute("name") != nullptr &&
         child->getAttribute("substitutionGroup") == nullptr &&
         findAttrByName(child, "abstract") != "true";
}

void addCandidates(CDMXMLElement const* root, std::vector<CDMXMLElement*>& candidates) {
  for (CDMXMLElement* child : root->getChildElements()) {
    if (isCandidate(child)) candidates.push_back(child);
  }
}

/// Collects the local names that `element` elements refer to.
class ReferenceCollector {
 public:
  explicit ReferenceCollector(NamespaceLookup const& namespaces) : m_namespaces(namespaces) {}

  /// Adds the references of `top` and of everything below it.
  void collect(CDMXMLElement const* top) {
    std::vector<CDMXMLElement const*> pending{top};
    while (!pending.empty()) {
      CDMXMLElement const* element = pending.back();
      pending.pop_back();
      addReference(element);
      std::vector<CDMXMLElement*> const& children = element->getChildElements();
      pending.insert(pending.end(), children.begin(), children.end());
    }
  }

  bool isReferredTo(std::string_view name) const {
    return m_names.contains(CDMXMLNode::getNonQualifiedName(name));
  }

 private:
  // A reference counts if it names the namespace of the referring element. The
  // namespace of the candidate does not matter.
  void addReference(CDMXMLElement const* element) {
    std::optional<std::string_view> ref = findAttrByName(element, "ref");
    if (!ref || generatorElementKind(element) != GeneratorElementKind::element) return;
    NamespaceLookup::Namespace named = m_namespaces.getTypeNamespace(element, *ref);
    if (!named || named != m_namespaces.getElementNamespace(element)) return;
    m_names.insert(CDMXMLNode::getNonQualifiedName(*ref));
  }

  NamespaceLookup const& m_namespaces;
  std::unordered_set<std::string_view> m_names;
};

void reportHeadCount(std::size_t count) {
  if (count == 0) {
    err() << "Error : No schema head element found in schema definition. A non-referenced"
          << endLine << " global head element is required for conversion to COBOL record"
          << endLine;
  } else if (count > 1) {
    err() << "Warning : More than one head element was found in the schema definition."
          << " Attempting to generate multiple file definitions" << endLine;
  }
}

}  // namespace

HeadElements findHeadElements(CDMXMLSchemaDoc const* document, NamespaceLookup const& namespaces) {
  if (document == nullptr || document->rootElement == nullptr) return {};
  std::vector<CDMXMLElement const*> roots{document->rootElement};
  for (CDMXMLNamespaceSchemaPair const& pair : document->importedSchemas) {
    CDMXMLElement const* root = pair.getSchemaDoc()->rootElement;
    if (root != nullptr) roots.push_back(root);
  }

  std::vector<CDMXMLElement*> candidates;
  addCandidates(roots.front(), candidates);
  if (candidates.empty()) {
    for (std::size_t i = 1; i < roots.size(); ++i) addCandidates(roots[i], candidates);
  }

  ReferenceCollector references(namespaces);
  for (CDMXMLElement const* root : roots) references.collect(root);
  HeadElements heads;
  for (CDMXMLElement* candidate : candidates) {
    if (!references.isReferredTo(candidate->getAttribute("name")->value)) {
      heads.all.push_back(candidate);
    }
  }
  reportHeadCount(heads.all.size());
  return heads;
}

}  // namespace fdmorph
