// CDMXMLGenerator: the service description, with nested parameters and fields.

#include "dictionary/DMXMLGenerator.h"
#include "dictionary/data_dictionary.h"
#include "dictionary/xml_names.h"

namespace fdmorph {
namespace {

constexpr unsigned kStep = 3;  // blanks of one level of nesting

using enum DATADICT_ELEMENT_TYPE;

bool isParameter(CDMXMLElement const* element) {
  CDMXMLElement const* parent = element->getParent();
  return parent != nullptr && getDataDictElementType(parent) == DD_DATAITEMS;
}

}  // namespace

unsigned CDMXMLGenerator::OutputInternalMappingFileElement(CDMXMLElement const* element,
                                                           unsigned indent, VisitFlags& flags) {
  DATADICT_ELEMENT_TYPE kind = getDataDictElementType(element);
  if (kind == DD_PROGRAM) {
    indent = writeService(element, indent, flags);
  } else if (kind == DD_GROUP) {
    indent = writeServiceGroup(element, indent, flags);
  } else {
    if (isElementary(kind)) writeServiceItem(element, indent);
    flags.reenter = flags.descend = false;
  }
  return flags.descend && flags.reenter ? indent + kStep : indent;
}

unsigned CDMXMLGenerator::writeService(CDMXMLElement const* element, unsigned indent,
                                       VisitFlags& flags) {
  std::optional<std::string_view> name = attributeOf(element, "name");
  if (!name) return indent;
  if (flags.reenter) {
    writeIndent(*m_output, indent + kStep) << "</parameterTypeDefs>\n";
    writeIndent(*m_output, indent) << "</service>\n";
    return indent;
  }
  writeIndent(*m_output, indent);
  writeElem(*m_output, "service");
  writeAttr(*m_output, "xmlns", kDictionaryNamespace);
  writeAttr(*m_output, "xmlns:xsi", kInstanceNamespace);
  writeAttr(*m_output, "xsi:schemaLocation",
            std::string(kDictionaryNamespace) + " " + std::string(kDictionarySchema));
  writeAttr(*m_output, "name", *name);
  writeAttr(*m_output, "programName", *name);
  writeAttr(*m_output, "dataDictFilename", dictionaryFilename);
  writeAttr(*m_output, "implementation", "xml") << ">\n";
  writeIndent(*m_output, indent + kStep);
  writeElem(*m_output, "parameterTypeDefs");
  flags.reenter = flags.descend = true;
  return indent + kStep;
}

unsigned CDMXMLGenerator::writeServiceGroup(CDMXMLElement const* element, unsigned indent,
                                            VisitFlags& flags) {
  ItemName name;
  name.xmlName = dataNameOf(element);
  ApplyExternalMappingFile(element, externalMapping, name);
  if (isFiller(name.xmlName)) {
    flags.reenter = false;
    flags.descend = true;
    return indent;
  }
  if (flags.reenter) {
    writeIndent(*m_output, indent) << (isParameter(element) ? "</parameter>\n" : "</field>\n");
    return indent;
  }
  openField(element, name.xmlName, indent);
  writeAttr(*m_output, "namespace", name.xmlNamespace) << ">\n";
  writeFieldMapping(element, indent);
  flags.reenter = flags.descend = true;
  return indent;
}

// A parameter's end tag is that of a field all the same.
void CDMXMLGenerator::writeServiceItem(CDMXMLElement const* element, unsigned indent) {
  ItemName name = nameOf(element);
  openField(element, name.xmlName, indent);
  writeAttr(*m_output, "dataType", name.xmlType);
  writeAttr(*m_output, "namespace", name.xmlNamespace);
  writeAttr(*m_output, "isAttribute", name.isAttribute ? "true" : "false") << ">\n";
  writeFieldMapping(element, indent);
  *m_output << ">\n";
  writeIndent(*m_output, indent) << "</field>\n";
}

void CDMXMLGenerator::openField(CDMXMLElement const* element, std::string_view name,
                                unsigned indent) {
  writeIndent(*m_output, indent);
  writeElem(*m_output, isParameter(element) ? "parameter" : "field");
  writeAttr(*m_output, "name", name);
  if (isParameter(element)) writeAttr(*m_output, "byType", "io");
}

// Leaves the last end tag open: behind a group the traversal closes it.
void CDMXMLGenerator::writeFieldMapping(CDMXMLElement const* element, unsigned indent) {
  writeIndent(*m_output, indent + kStep) << "<mappings>\n";
  writeIndent(*m_output, indent + 2 * kStep);
  writeElem(*m_output, "mapping");
  writeAttr(*m_output, "item", getQualifiedNameAttr(element)) << "/>\n";
  writeIndent(*m_output, indent + kStep) << "</mappings";
}

}  // namespace fdmorph
