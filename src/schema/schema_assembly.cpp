#include "schema/schema_assembly.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "schema/schema_parts.h"
#include "schema/substitution_types.h"

namespace fdmorph {
namespace {

constexpr std::string_view kSchemaUri = "http://www.w3.org/2001/XMLSchema";

bool isPart(SchemaElementKind kind) {
  return kind == SchemaElementKind::include || kind == SchemaElementKind::import ||
         kind == SchemaElementKind::redefine;
}

bool isComponent(SchemaElementKind kind) {
  switch (kind) {
    case SchemaElementKind::element:
    case SchemaElementKind::attribute:
    case SchemaElementKind::attributeGroup:
    case SchemaElementKind::simpleType:
    case SchemaElementKind::group:
    case SchemaElementKind::complexType:
      return true;
    default:
      return false;
  }
}

std::string textOf(CDMXMLElement const* element, std::string_view attribute) {
  return std::string(findAttrByName(element, attribute).value_or(""));
}

}  // namespace

/// Builds the tree of a file.
class SchemaAssembly::TreeReader : public XmlEvents {
 public:
  TreeReader(CDMXMLNodeStore& store, ReadFile& file) : m_store(store), m_file(file) {}

  void startTag(XmlTag const& tag) override {
    CDMXMLElement* element = m_store.newElement();
    element->name = tag.qualifiedName;
    for (XmlAttribute const& each : tag.attributes) {
      CDMXMLAttribute* attribute = m_store.newAttribute();
      attribute->setParent(element);
      attribute->name = each.qualifiedName;
      attribute->value = each.value;
      element->addAttribute(attribute);
    }
    if (m_open.empty()) {
      if (tag.uri == kSchemaUri && tag.name == "schema") m_file.root = element;
    } else {
      element->setParent(m_open.back());
      m_open.back()->addChildElement(element);
    }
    if (m_open.size() == 1 && isPart(CDMXMLSchemaDoc::getElementType(element))) {
      m_file.parts.push_back({tag.line, tag.column});
    }
    m_open.push_back(element);
    if (m_documentation == nullptr && tag.uri == kSchemaUri && tag.name == "documentation") {
      m_documentation = element;
    }
  }

  void endTag() override {
    if (m_documentation == m_open.back()) m_documentation = nullptr;
    m_open.pop_back();
  }

  void text(std::string_view part) override {
    if (m_documentation != nullptr) m_documentation->value += part;
  }

 private:
  CDMXMLNodeStore& m_store;
  ReadFile& m_file;
  std::vector<CDMXMLElement*> m_open;
  CDMXMLElement* m_documentation = nullptr;  // that is open
};

SchemaSet SchemaAssembly::assemble(std::string const& path) {
  m_homes.push_back({&m_set.main, ""});
  Home& main = m_homes.front();
  m_set.main.schemaPath = path;
  if (CDMXMLElement const* root = rootOf(path)) main.uri = textOf(root, "targetNamespace");
  addFile(path, main, Joins::asMain);
  for (Home& home : m_homes) {
    CDMXMLElement* root = home.document->rootElement;
    if (root == nullptr) continue;
    for (CDMXMLElement* component : home.pending) root->addChildElement(component);
    home.document->InitializeElementLists();
    if (&home != &main) m_set.main.importedSchemas.emplace_back(home.uri, home.document);
  }
  completeSubstitutionTypes(m_set, m_store);
  return std::move(m_set);
}

// The children of the main file, and of the first file of an imported namespace,
// stay where they are. Those of the others wait for the end: what they replace
// or follow may not be complete before.
void SchemaAssembly::addFile(std::string const& path, Home& home, Joins joins) {
  if (!home.files.insert(path).second) return;
  CDMXMLElement* root = rootOf(path);
  if (root == nullptr) return;
  ReadFile& file = m_read[path];
  // A file without a namespace may join several documents.
  bool takesNamespace = joins != Joins::asMain && root->getAttribute("targetNamespace") == nullptr;
  if (takesNamespace || file.isUsed) root = m_store.copyTree(*root);
  file.isUsed = true;
  if (takesNamespace) {
    setNamespace(root, joins == Joins::asInclude ? home.uri : "", joins == Joins::asInclude);
  }
  bool isFirst = home.document->rootElement == nullptr;
  if (isFirst) home.document->rootElement = root;
  std::size_t part = 0;
  std::vector<CDMXMLElement*> const children = root->getChildElements();
  for (CDMXMLElement* child : children) {
    SchemaElementKind kind = CDMXMLSchemaDoc::getElementType(child);
    if (isPart(kind)) followPart(child, path, file.parts.at(part++), home);
    if (!isFirst && isComponent(kind)) home.pending.push_back(child);
  }
}

void SchemaAssembly::followPart(CDMXMLElement const* part, std::string const& path, PartPlace place,
                                Home& home) {
  SchemaElementKind kind = CDMXMLSchemaDoc::getElementType(part);
  bool isImport = kind == SchemaElementKind::import;
  std::string uri = isImport ? textOf(part, "namespace") : home.uri;
  std::string location = textOf(part, "schemaLocation");
  std::optional<std::string> found =
      m_resolver.resolve({path, location, isImport ? uri : std::string()});
  if (found) {
    addFile(*found, isImport ? homeOf(uri) : home, isImport ? Joins::asImport : Joins::asInclude);
  } else if (!location.empty()) {
    reportMissing(part, path, place);
  }
  if (kind == SchemaElementKind::redefine) {
    redefineComponents(part, home.pending, home.document->redefinedElements);
  }
}

// The root of a file, which is read the first time. Null if it cannot be used.
CDMXMLElement* SchemaAssembly::rootOf(std::string const& path) {
  auto [entry, isNew] = m_read.try_emplace(path);
  ReadFile& file = entry->second;
  if (!isNew) return file.root;
  m_files.push_back(path);
  if (m_files.size() > m_maxFiles) {
    if (!std::exchange(m_set.isTooLarge, true)) {
      m_faults.push_back(
          {path, 0, 0, "the schema has more than " + std::to_string(m_maxFiles) + " files"});
    }
    return nullptr;
  }
  TreeReader reader(m_store, file);
  if (auto fault = readXml(path, reader, &m_resolver)) {
    m_faults.push_back(*fault);
    file.root = nullptr;
  } else if (file.root == nullptr) {
    m_faults.push_back({path, 1, 1, "the file is not an XML Schema"});
  }
  return file.root;
}

SchemaAssembly::Home& SchemaAssembly::homeOf(std::string_view uri) {
  if (uri.empty()) return m_homes.front();
  auto known = std::ranges::find(m_homes, uri, &Home::uri);
  if (known != m_homes.end()) return *known;
  return m_homes.emplace_back(Home{&m_set.imported.emplace_back(), std::string(uri)});
}

void SchemaAssembly::setNamespace(CDMXMLElement* root, std::string const& uri, bool isDefault) {
  auto add = [this, root, &uri](char const* name) {
    if (root->getAttribute(name) != nullptr) return;
    CDMXMLAttribute* attribute = m_store.newAttribute();
    attribute->setParent(root);
    attribute->name = name;
    attribute->value = uri;
    root->addAttribute(attribute);
  };
  add("targetNamespace");
  if (isDefault) add("xmlns");
}

void SchemaAssembly::reportMissing(CDMXMLElement const* part, std::string const& path,
                                   PartPlace place) {
  TagPlace begin = beginOfTag(path, place.line, place.column);
  bool isInclude = CDMXMLSchemaDoc::getElementType(part) == SchemaElementKind::include;
  bool isImport = CDMXMLSchemaDoc::getElementType(part) == SchemaElementKind::import;
  std::string verb = isInclude ? "included" : isImport ? "imported" : "redefined";
  m_faults.push_back(
      {path, begin.line, begin.column,
       "cannot find the " + verb + " file '" + textOf(part, "schemaLocation") + "'"});
}

}  // namespace fdmorph
