// CDMXMLGenerator: the mapping file. Entries are flat: a group's entry is
// closed before its members are walked.

#include "dictionary/DMXMLGenerator.h"
#include "dictionary/data_dictionary.h"
#include "dictionary/xml_names.h"
#include "dictionary/xml_type.h"

namespace fdmorph {
namespace {

constexpr unsigned kEntryIndent = 3;  // blanks
constexpr unsigned kFieldIndent = 6;

using enum DATADICT_ELEMENT_TYPE;

void writeField(XmlOutput& output, std::string_view name, std::string_view text) {
  writeIndent(output, kFieldIndent) << "<" << name << ">" << text << "</" << name << ">\n";
}

}  // namespace

unsigned CDMXMLGenerator::OutputExternalMappingFileElement(CDMXMLElement const* element,
                                                           unsigned indent, VisitFlags& flags) {
  if (attributeIs(element, "redefines", "true")) {
    flags.reenter = flags.descend = false;
    return indent;
  }
  DATADICT_ELEMENT_TYPE kind = getDataDictElementType(element);
  if (kind == DD_PROGRAM) {
    writeIndent(*m_output, indent);
    if (flags.reenter) {
      *m_output << "</xml-cobol-mapping-file>\n";
      return indent;
    }
    writeElem(*m_output, "xml-cobol-mapping-file");
    writeAttr(*m_output, "xmlns", kMappingNamespace);
    writeAttr(*m_output, "xmlns:xsi", kInstanceNamespace);
    writeAttr(*m_output, "xsi:schemaLocation",
              std::string(kMappingNamespace) + " " + std::string(kMappingSchema));
    flags.reenter = flags.descend = true;
    return indent;
  }
  if (!isDataItem(kind)) {
    flags.reenter = flags.descend = false;
    return kEntryIndent;
  }
  flags.closeFirst = true;
  std::string_view name = dataNameOf(element);
  if (kind == DD_GROUP && isFiller(name)) {
    flags.reenter = false;
    flags.descend = true;
    return kEntryIndent;
  }
  if (flags.reenter) {
    writeIndent(*m_output, kEntryIndent) << "</xml-cobol-mapping>\n";
    return kEntryIndent;
  }
  if (kind == DD_GROUP) {
    writeMappingEntry(element, name, "group");
  } else {
    writeMappingEntry(element, isFiller(name) ? std::string_view() : name, getXmlType(element));
    *m_output << ">\n";
  }
  flags.reenter = flags.descend = true;
  return kEntryIndent;
}

// Leaves the last end tag open: behind a group the traversal closes it.
void CDMXMLGenerator::writeMappingEntry(CDMXMLElement const* element, std::string_view xmlName,
                                        std::string_view xmlType) {
  writeIndent(*m_output, kEntryIndent) << "<xml-cobol-mapping>\n";
  writeField(*m_output, "cobol-name", getQualifiedNameAttr(element));
  writeField(*m_output, "cobol-count-in", countIn ? "true" : "false");
  writeField(*m_output, "xml-name", xmlName);
  writeField(*m_output, "xml-type", xmlType);
  writeField(*m_output, "xml-attribute", "false");
  writeIndent(*m_output, kFieldIndent) << "<xml-namespace></xml-namespace";
}

}  // namespace fdmorph
