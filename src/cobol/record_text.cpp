#include "cobol/record_text.h"

#include <algorithm>
#include <sstream>

#include "cobol/component_search.h"
#include "cobol/legal_record.h"
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
      makeLegal(record, options.prefix, texts);
      std::ostringstream stream;
      RecordOutput output({.writeLine = writeFreeLine}, texts, stream);
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
