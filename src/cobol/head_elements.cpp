// CDMCOBOLGenerator: which global elements become records.

#include "cobol/DMCOBOLGenerator.h"
#include "text/console.h"

namespace fdmorph {
namespace {

bool isCandidate(CDMXMLElement const* child) {
  std::string_view value;
  return generatorElementKind(child) == GeneratorElementKind::element &&
         child->getAttribute("name") != nullptr &&
         child->getAttribute("substitutionGroup") == nullptr &&
         !(findAttrByName(child, "abstract", value) && value == "true");
}

void addCandidates(CDMXMLElement const* root, std::vector<CDMXMLElement*>& candidates) {
  if (root == nullptr) return;
  for (CDMXMLElement* child : root->getChildElements()) {
    if (isCandidate(child)) candidates.push_back(child);
  }
}

/// Collects the local names that `element` elements refer to. What counts is
/// that the reference names the namespace of the referring element; the
/// candidate's own namespace is not looked at.
struct ReferenceCollector {
  CDMCOBOLGenerator const& generator;
  std::unordered_set<std::string_view> names;

  static CDMXMLElement* compareElemByRefs(CDMXMLElement* element, void* key) {
    auto* self = static_cast<ReferenceCollector*>(key);
    std::string_view ref;
    if (!findAttrByName(element, "ref", ref)) return nullptr;
    if (generatorElementKind(element) != GeneratorElementKind::element) return nullptr;
    std::string_view own;
    std::string_view named;
    if (!self->generator.getElementNamespace(element, own)) return nullptr;
    if (!self->generator.getTypeNamespace(element, ref, named) || named != own) return nullptr;
    self->names.insert(CDMXMLNode::getNonQualifiedName(ref));
    return nullptr;
  }
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

CDMXMLElement* CDMCOBOLGenerator::getSchemaHeadElement(std::vector<CDMXMLElement*>& headElements) {
  if (schemaDoc == nullptr || schemaDoc->rootElement == nullptr) return nullptr;
  std::vector<CDMXMLElement*> roots{schemaDoc->rootElement};
  for (CDMXMLNamespaceSchemaPair const& pair : schemaDoc->importedSchemas) {
    CDMXMLElement* root = pair.getSchemaDoc()->rootElement;
    if (root != nullptr) roots.push_back(root);
  }

  // Imported schemas are a fallback: they count only while the main schema has
  // no candidate at all.
  std::vector<CDMXMLElement*> candidates;
  addCandidates(roots.front(), candidates);
  if (candidates.empty()) {
    for (std::size_t i = 1; i < roots.size(); ++i) addCandidates(roots[i], candidates);
  }

  ReferenceCollector references{*this, {}};
  std::vector<CDMXMLElement*> unused;
  for (CDMXMLElement* root : roots) {
    root->findElement(&references, ReferenceCollector::compareElemByRefs, unused, true);
  }
  std::size_t before = headElements.size();
  for (CDMXMLElement* candidate : candidates) {
    std::string_view name = candidate->getAttribute("name")->value;
    if (references.names.count(CDMXMLNode::getNonQualifiedName(name)) == 0) {
      headElements.push_back(candidate);
    }
  }
  std::size_t count = headElements.size() - before;
  reportHeadCount(count);
  return count == 1 ? headElements.back() : nullptr;
}

}  // namespace fdmorph
