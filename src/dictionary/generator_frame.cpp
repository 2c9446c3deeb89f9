// CDMXMLGenerator: the choice of the output, and the traversal.

#include <fstream>

#include "dictionary/DMXMLGenerator.h"
#include "dictionary/data_dictionary.h"
#include "text/console.h"
#include "xml/DMDOMFormatTarget.h"

namespace fdmorph {

CDMXMLGenerator::CDMXMLGenerator(CDMXMLElement* dictionary,
                                 CDMXMLCOBOLExternalMapping const* mapping) {
  setCOBOLDataDictionary(dictionary);
  setXMLCOBOLExternalMapping(mapping);
}

void CDMXMLGenerator::setCOBOLDataDictionary(CDMXMLElement* dictionary) {
  if (dictionary == nullptr) return;
  dataDictionary = dictionary;
  externalMapping = nullptr;
}

void CDMXMLGenerator::setXMLCOBOLExternalMapping(CDMXMLCOBOLExternalMapping const* mapping) {
  if (mapping != nullptr) externalMapping = mapping;
}

void CDMXMLGenerator::Reset() {
  dataDictionary = nullptr;
  externalMapping = nullptr;
}

bool CDMXMLGenerator::GenerateFile(std::string const& dataDictFilename,
                                   std::string const& mappingFilename,
                                   std::string const& schemaFilename,
                                   std::string const& cobolFilename, FILE_TYPE type,
                                   std::string const& namePrefix, bool countInClauses) {
  if (dataDictionary == nullptr) {
    err() << "Invalid COBOL Data Dictionary" << endLine;
    return false;
  }
  CDMDOMFormatTarget* target = dataDictionary->getFormatTarget();
  if (target == nullptr) {
    err() << "Invalid XML Target Formatter" << endLine;
    return false;
  }
  if (dataDictionary->getXMLFormatter() == nullptr) {
    err() << "Invalid XML Formatter" << endLine;
    return false;
  }
  dictionaryFilename = dataDictFilename;
  prefix = namePrefix;
  countIn = countInClauses;
  std::string name;
  if (type == FILE_TYPE::FT_EXTERNAL_MAPPING) name = mappingFilename;
  if (type == FILE_TYPE::FT_XML_SCHEMA) name = schemaFilename;
  if (type == FILE_TYPE::FT_ENHANCED_COBOL) name = cobolFilename;
  std::ofstream file;
  if (name.empty()) {
    err() << "Invalid filename.  Outputting XML to console:" << endLine << endLine;
  } else {
    file.open(name, std::ios::out | std::ios::trunc);
    if (file.is_open()) {
      target->setTarget(file);
    } else {
      err() << "Unable to open output file " << name << endLine
            << "Outputting XML to stdout by default" << endLine << endLine;
    }
  }
  writeOutput(type);
  if (!file.is_open()) return false;
  bool isLost = std::cout.bad();
  file.close();
  target->restoreTarget();
  if (isLost || file.fail()) reportWriteFailure(name);
  return true;
}

void CDMXMLGenerator::writeOutput(FILE_TYPE type) {
  m_output = std::make_unique<XmlOutput>(*dataDictionary->getXMLFormatter());
  if (type != FILE_TYPE::FT_ENHANCED_COBOL) writeXmlDeclaration(*m_output);
  constexpr unsigned kFirstLevel = 1;
  switch (type) {
    case FILE_TYPE::FT_INTERNAL_MAPPING:
      getXMLFromDataDict(dataDictionary, 0, &CDMXMLGenerator::OutputInternalMappingFileElement);
      break;
    case FILE_TYPE::FT_EXTERNAL_MAPPING:
      getXMLFromDataDict(dataDictionary, 0, &CDMXMLGenerator::OutputExternalMappingFileElement);
      break;
    case FILE_TYPE::FT_XML_SCHEMA:
      getXMLFromDataDict(dataDictionary, 0, &CDMXMLGenerator::OutputXMLSchemaFileElement);
      break;
    case FILE_TYPE::FT_ENHANCED_COBOL:
      getEnhancedCOBOLFromDataDict(dataDictionary, kFirstLevel);
      break;
    default:
      err() << "Invalid File Type Selection for XML Output" << endLine;
      break;
  }
  m_output.reset();
}

// Returns whether the element's children were to be walked.
bool CDMXMLGenerator::getXMLFromDataDict(CDMXMLElement const* element, unsigned indent,
                                         Writer writer) {
  if (element == nullptr || element->getXMLFormatter() == nullptr) return false;
  if (!element->isParent()) {
    for (CDMXMLElement const* child : element->getChildElements()) {
      getXMLFromDataDict(child, indent, writer);
    }
    return false;
  }
  VisitFlags flags;
  unsigned childIndent = indent;
  DATADICT_ELEMENT_TYPE kind = getDataDictElementType(element);
  bool isWritten =
      kind == DATADICT_ELEMENT_TYPE::DD_PROGRAM || isDataItem(kind) || isConditionValue(kind);
  if (isWritten) {
    childIndent = (this->*writer)(element, indent, flags);
  } else {
    flags.descend = isContainer(kind) || isCondition(kind);
  }
  if (element->getFirstChildElem() != nullptr) {
    if (flags.reenter) *m_output << ">\n";
    if (flags.closeFirst && flags.reenter) (this->*writer)(element, indent, flags);
    if (flags.descend) visitChildren(element, childIndent, writer);
    if (!flags.closeFirst && flags.reenter) (this->*writer)(element, indent, flags);
  } else if (flags.reenter) {
    (this->*writer)(element, indent, flags);
  }
  return flags.descend;
}

void CDMXMLGenerator::visitChildren(CDMXMLElement const* element, unsigned indent, Writer writer) {
  bool stopsAtFirst = isContainer(getDataDictElementType(element));
  for (CDMXMLElement const* child : element->getChildElements()) {
    if (getXMLFromDataDict(child, indent, writer) && stopsAtFirst) break;
  }
}

ItemName CDMXMLGenerator::nameOf(CDMXMLElement const* element) const {
  ItemName name = defaultNameOf(element, countIn);
  ApplyExternalMappingFile(element, externalMapping, name);
  return name;
}

}  // namespace fdmorph
