#include "cobol/record_text.h"

#include <algorithm>
#include <sstream>

#include "cobol/component_search.h"
#include "cobol/record_output.h"
#include "cobol/schema_walker.h"
#include "cobol/substitution_groups.h"

namespace fdmorph {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

void writeFreeLine(std::string_view line, std::ostream& stream) {
  stream << line << '\n';
}

// Adds the words of a text, each after a blank.
void addWords(std::string& text, std::string_view added) {
  while (true) {
    std::size_t begin = added.find_first_not_of(kBlanks);
    if (begin == added.npos) return;
    added.remove_prefix(begin);
    std::size_t end = std::min(added.find_first_of(kBlanks), added.size());
    if (!text.empty()) text += ' ';
    text += added.substr(0, end);
    added.remove_prefix(end);
  }
}

std::string documentationIn(CDMXMLElement const* component) {
  std::string text;
  if (component == nullptr) return text;
  for (CDMXMLElement const* child : component->getChildElements()) {
    if (CDMXMLNode::getNonQualifiedName(child->name) != "annotation") continue;
    for (CDMXMLElement const* part : child->getChildElements()) {
      if (CDMXMLNode::getNonQualifiedName(part->name) == "documentation") {
        addWords(text, part->value);
      }
    }
  }
  return text;
}

std::string_view schemaDefault(CDMXMLElement const* declaration, bool isAttribute) {
  CDMXMLElement const* root = declaration;
  while (root->getParent() != nullptr &&
         generatorElementKind(root) != GeneratorElementKind::schema) {
    root = root->getParent();
  }
  return findAttrByName(root, isAttribute ? "attributeFormDefault" : "elementFormDefault")
      .value_or("unqualified");
}

// XML Schema: Structures, 3.2.2 and 3.3.2: the target namespace of declarations.
std::string_view namespaceOf(CDMXMLElement const* declaration, NamespaceLookup const& namespaces) {
  CDMXMLElement const* parent = declaration->getParent();
  bool isGlobal = parent != nullptr && generatorElementKind(parent) == GeneratorElementKind::schema;
  bool isAttribute = generatorElementKind(declaration) == GeneratorElementKind::attribute;
  auto form = findAttrByName(declaration, "form");
  if (!form) form = schemaDefault(declaration, isAttribute);
  if (!isGlobal && form != "qualified") return {};
  return namespaces.getElementNamespace(declaration).value_or("");
}

// Gives the items the namespaces that they have in documents. Those between named
// items have the one of the item above.
void settleNamespaces(CDMCOBOLRecordItem& item, NamespaceLookup const& namespaces) {
  if (!item.identifiedBy.empty()) {
    item.xmlNamespace = namespaceOf(item.schemaElement, namespaces);
  } else if (item.parent != nullptr) {
    item.xmlNamespace = item.parent->xmlNamespace;
  }
  for (CDMCOBOLRecordItem* child : item.children) {
    if (child != nullptr) settleNamespaces(*child, namespaces);
  }
}

void collectDocumentation(CDMCOBOLRecordItem const& item, std::vector<std::string>& all) {
  bool isWritten = item.checkWritable() == CDMCOBOLRecordItem::Writability::writable;
  if (!isWritten || item.levelNumber == kConditionLevel) return;
  all.push_back(documentationOf(item));
  for (CDMCOBOLRecordItem const* child : item.children) {
    if (child != nullptr) collectDocumentation(*child, all);
  }
}

}  // namespace

RecordText makeRecordText(CDMXMLSchemaDoc const& schema, CDMXMLElement* root,
                          RecordTextOptions const& options) {
  NamespaceLookup const namespaces(&schema);
  ComponentSearch const components(&schema, namespaces);
  SubstitutionGroups const substitutions(&schema, namespaces);
  SchemaWalker walker(namespaces, components, substitutions, options.limits, options.filter);
  RecordText result;
  try {
    CDMCOBOLRecordItem* record = walker.buildRecord(root);
    if (record != nullptr) {
      TextPool& texts = walker.builder().store().texts();
      settleNamespaces(*record, namespaces);
      makeLegal(record, options.prefix, options.isReserved, texts);
      std::ostringstream stream;
      RecordOutput output({.exactNamespaces = true, .writeLine = writeFreeLine}, texts, stream);
      if (output.OutputCOBOLItem(record)) collectDocumentation(*record, result.documentation);
      result.text = std::move(stream).str();
    }
  } catch (RecordTooLarge const&) {
    result.isTooLarge = true;
  }
  walker.endRecord();
  return result;
}

// An item without an XML name stands for a part of the type of the one above it.
std::string documentationOf(CDMCOBOLRecordItem const& item) {
  if (item.identifiedBy.empty()) return {};
  std::string text = documentationIn(item.schemaElement);
  return text.empty() ? documentationIn(item.typeElement) : text;
}

}  // namespace fdmorph
