#include "schema/substitution_types.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>

namespace fdmorph {
namespace {

constexpr std::string_view kPrefixed = "xmlns:";

bool isType(CDMXMLElement const* child) {
  SchemaElementKind kind = CDMXMLSchemaDoc::getElementType(child);
  return kind == SchemaElementKind::simpleType || kind == SchemaElementKind::complexType;
}

CDMXMLElement* inlineType(CDMXMLElement const* element) {
  for (CDMXMLElement* child : element->getChildElements()) {
    if (isType(child)) return child;
  }
  return nullptr;
}

// The namespace of the name `text` at `element`.
std::string_view namespaceOf(CDMXMLElement const* element, std::string_view text) {
  std::string_view prefix = CDMXMLNode::getNameQualifier(text);
  std::string declaration = prefix.empty() ? "xmlns" : std::string(kPrefixed).append(prefix);
  for (; element != nullptr; element = element->getParent()) {
    if (auto uri = findAttrByName(element, declaration)) return *uri;
  }
  return {};
}

/// Completes the elements of one schema.
class TypeCompletion {
 public:
  TypeCompletion(SchemaSet& schema, CDMXMLNodeStore& store) : m_schema(schema), m_store(store) {}

  void complete() {
    completeAll(m_schema.main);
    for (CDMXMLSchemaDoc const& document : m_schema.imported) completeAll(document);
  }

 private:
  void completeAll(CDMXMLSchemaDoc const& document) {
    for (CDMXMLElement* element : document.elements) completeElement(element);
  }

  // Heads first: a head may be the member of another group.
  void completeElement(CDMXMLElement* element) {
    auto group = findAttrByName(element, "substitutionGroup");
    if (!group || element->getAttribute("type") != nullptr || inlineType(element) != nullptr) {
      return;
    }
    if (!m_seen.insert(element).second) return;
    CDMXMLElement* head = headOf(element, *group);
    if (head == nullptr) return;
    completeElement(head);
    if (auto type = findAttrByName(head, "type")) {
      declarePrefixes(head, element);
      addAttribute(element, "type", std::string(*type));
    } else if (CDMXMLElement const* definition = inlineType(head)) {
      CDMXMLElement* copy = m_store.copyTree(*definition);
      copy->setParent(element);
      element->addChildElement(copy);
      declarePrefixes(definition, copy);
    }
  }

  CDMXMLElement* headOf(CDMXMLElement const* element, std::string_view group) {
    std::string_view uri = namespaceOf(element, group);
    CDMXMLSchemaDoc const* document =
        CDMXMLNamespaceSchemaPair::findDocumentByNamespace(uri, m_schema.main.importedSchemas);
    if (document == nullptr) document = &m_schema.main;
    return document->elements.findByName(CDMXMLNode::getNonQualifiedName(group));
  }

  // Declares at `to` the namespaces that are in force at `from`.
  void declarePrefixes(CDMXMLElement const* from, CDMXMLElement* to) {
    for (; from != nullptr; from = from->getParent()) {
      for (CDMXMLAttribute const* each : from->getAttributes()) {
        bool isDeclaration = each->name == "xmlns" || each->name.starts_with(kPrefixed);
        if (isDeclaration && to->getAttribute(each->name) == nullptr) {
          addAttribute(to, each->name, each->value);
        }
      }
    }
  }

  void addAttribute(CDMXMLElement* element, std::string_view name, std::string value) {
    CDMXMLAttribute* attribute = m_store.newAttribute();
    attribute->setParent(element);
    attribute->name = name;
    attribute->value = std::move(value);
    element->addAttribute(attribute);
  }

  SchemaSet& m_schema;
  CDMXMLNodeStore& m_store;
  std::unordered_set<CDMXMLElement const*> m_seen;
};

}  // namespace

void completeSubstitutionTypes(SchemaSet& schema, CDMXMLNodeStore& store) {
  TypeCompletion(schema, store).complete();
}

}  // namespace fdmorph
