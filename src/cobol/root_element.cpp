#include "cobol/root_element.h"

#include "cobol/head_elements.h"

namespace fdmorph {
namespace {

bool isAbstract(CDMXMLElement const* element) {
  auto value = findAttrByName(element, "abstract");
  return value == "true" || value == "1";
}

/// The global elements of a schema, each with its namespace.
struct GlobalElement {
  CDMXMLElement* element;
  std::string_view uri;
};

void addElements(CDMXMLSchemaDoc const& document, std::string_view uri,
                 std::vector<GlobalElement>& all) {
  for (CDMXMLElement* element : document.elements) all.push_back({element, uri});
}

std::vector<GlobalElement> globalElements(CDMXMLSchemaDoc const& document) {
  std::vector<GlobalElement> all;
  addElements(document, document.targetNamespace, all);
  for (CDMXMLNamespaceSchemaPair const& pair : document.importedSchemas) {
    addElements(*pair.getSchemaDoc(), pair.getSchemaDoc()->targetNamespace, all);
  }
  return all;
}

std::string_view nameOf(CDMXMLElement const* element) {
  return findAttrByName(element, "name").value_or("");
}

// As `findRootElement` takes it.
std::string givenName(CDMXMLElement const* element, std::string_view uri,
                      CDMXMLSchemaDoc const& document) {
  std::string name(nameOf(element));
  return uri == document.targetNamespace ? name : "{" + std::string(uri) + "}" + name;
}

RootElement only(std::vector<CDMXMLElement*> const& found) {
  RootElement root;
  if (found.size() == 1) root.element = found.front();
  return root;
}

RootElement chooseHead(CDMXMLSchemaDoc const& document, NamespaceLookup const& namespaces) {
  std::vector<CDMXMLElement*> found = findHeadElements(&document, namespaces).all;
  if (found.empty()) {
    for (CDMXMLElement* element : document.elements) {
      if (!isAbstract(element)) found.push_back(element);
    }
  }
  RootElement root = only(found);
  if (root.element != nullptr) return root;
  for (CDMXMLElement const* each : found) {
    std::string_view uri = namespaces.getElementNamespace(each).value_or("");
    root.candidates.push_back(givenName(each, uri, document));
  }
  return root;
}

}  // namespace

RootElement findRootElement(CDMXMLSchemaDoc const& document, NamespaceLookup const& namespaces,
                            std::string_view name) {
  if (name.empty()) return chooseHead(document, namespaces);
  bool hasNamespace = name.starts_with('{') && name.find('}') != name.npos;
  std::string_view uri = hasNamespace ? name.substr(1, name.find('}') - 1)
                                      : std::string_view(document.targetNamespace);
  std::string_view local = hasNamespace ? name.substr(name.find('}') + 1) : name;
  std::vector<GlobalElement> const all = globalElements(document);
  std::vector<CDMXMLElement*> others;
  RootElement root;
  for (GlobalElement const& each : all) {
    if (nameOf(each.element) != local) continue;
    if (each.uri == uri) {
      root.element = each.element;
      break;
    }
    others.push_back(each.element);
    root.candidates.push_back("{" + std::string(each.uri) + "}" + std::string(local));
  }
  if (root.element == nullptr && !hasNamespace && others.size() == 1) root.element = others[0];
  if (root.element != nullptr) {
    root.candidates.clear();
    root.isAbstract = isAbstract(root.element);
    if (root.isAbstract) root.element = nullptr;
    return root;
  }
  if (!root.candidates.empty()) return root;
  for (GlobalElement const& each : all) {
    if (isAbstract(each.element)) continue;
    root.candidates.push_back(givenName(each.element, each.uri, document));
  }
  return root;
}

}  // namespace fdmorph
