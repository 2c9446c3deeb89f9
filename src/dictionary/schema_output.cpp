// CDMXMLGenerator: the XML Schema. The record becomes one global element, each
// group a nested anonymous complex type, each elementary item a nested
// anonymous simple type.

#include "cobol/facets.h"
#include "dictionary/DMXMLGenerator.h"
#include "dictionary/data_dictionary.h"
#include "dictionary/xml_names.h"
#include "text/console.h"

namespace fdmorph {
namespace {

constexpr unsigned kStep = 3;  // blanks of one level of nesting
constexpr int kUnitsOfNational = 2;

using enum DATADICT_ELEMENT_TYPE;

CDMXMLElement const* firstRecord(CDMXMLElement const* program) {
  for (CDMXMLElement const* child : program->getChildElements()) {
    if (getDataDictElementType(child) == DD_DATAITEMS) return child->getFirstChildElem();
  }
  return nullptr;
}

/// How the content of an item is told.
enum class ContentForm { length, digits, plain };

bool isCharacterType(CDMXMLElement const* element, ItemName const& name) {
  return name.xmlType == "string" &&
         !isComputational(attributeOf(element, "usage").value_or(std::string_view()));
}

bool isFixedPointType(ItemName const& name) {
  return name.xmlType == "decimal" || name.xmlType == "integer";
}

ContentForm contentForm(CDMXMLElement const* element, ItemName const& name) {
  if (!hasFacets(getDataDictElementType(element))) return ContentForm::plain;
  if (isCharacterType(element, name) && attributeOf(element, "length")) return ContentForm::length;
  if (isFixedPointType(name) && attributeOf(element, "digits")) return ContentForm::digits;
  return ContentForm::plain;
}

std::string_view tagOf(ItemName const& name) {
  return name.isAttribute ? "attribute" : "element";
}

}  // namespace

unsigned CDMXMLGenerator::OutputXMLSchemaFileElement(CDMXMLElement const* element, unsigned indent,
                                                     VisitFlags& flags) {
  // The copybook's writer warns about the item that is left out here.
  if (attributeIs(element, "redefines", "true")) {
    flags.reenter = flags.descend = false;
    return indent;
  }
  DATADICT_ELEMENT_TYPE kind = getDataDictElementType(element);
  if (kind == DD_PROGRAM) return writeSchemaProgram(element, indent, flags);
  if (kind == DD_GROUP) return writeSchemaGroup(element, indent, flags);
  if (isElementary(kind)) {
    writeSchemaItem(element, indent, flags);
  } else {
    flags.reenter = flags.descend = false;
    if (isConstant(kind)) writeSchemaConstant(element, indent);
    if (isRange(kind)) warnSchemaRange(element);
  }
  return indent;
}

unsigned CDMXMLGenerator::writeSchemaProgram(CDMXMLElement const* element, unsigned indent,
                                             VisitFlags& flags) {
  if (flags.reenter) {
    writeIndent(*m_output, indent) << "</schema>\n";
    return indent;
  }
  writeIndent(*m_output, indent);
  writeElem(*m_output, "schema");
  writeAttr(*m_output, "xmlns", kXmlSchemaNamespace);
  writeAttr(*m_output, "elementFormDefault", "qualified");
  if (CDMXMLElement const* record = firstRecord(element)) {
    ItemName name;
    ApplyExternalMappingFile(record, externalMapping, name);
    if (!name.xmlNamespace.empty()) {
      writeAttr(*m_output, "targetNamespace", name.xmlNamespace);
      targetNamespace = name.xmlNamespace;
    }
  }
  flags.reenter = flags.descend = true;
  return indent + kStep;
}

// A filler group writes nothing of its own: its members stand in the content
// of the group around it.
unsigned CDMXMLGenerator::writeSchemaGroup(CDMXMLElement const* element, unsigned indent,
                                           VisitFlags& flags) {
  if (isFiller(dataNameOf(element))) {
    flags.reenter = false;
    flags.descend = true;
    return indent;
  }
  bool hasMembers = element->getFirstChildElem() != nullptr;
  if (flags.reenter) {
    if (hasMembers) {
      if (externalMapping == nullptr) {
        writeIndent(*m_output, indent + 2 * kStep) << "</sequence>\n";
      }
      writeIndent(*m_output, indent + kStep) << "</complexType>\n";
    }
    writeIndent(*m_output, indent) << "</element>\n";
    return indent;
  }
  openSchemaGroup(element, indent);
  if (hasMembers) {
    *m_output << ">\n";
    writeIndent(*m_output, indent + kStep) << "<complexType>\n";
    if (externalMapping != nullptr) {
      writeMappedMembers(element, indent);
      flags.reenter = flags.descend = false;
      return indent;
    }
    writeIndent(*m_output, indent + 2 * kStep) << "<sequence";
  }
  flags.reenter = flags.descend = true;
  return indent + 3 * kStep;
}

void CDMXMLGenerator::openSchemaGroup(CDMXMLElement const* element, unsigned indent) {
  ItemName name;
  name.xmlName = dataNameOf(element);
  ApplyExternalMappingFile(element, externalMapping, name);
  writeIndent(*m_output, indent);
  writeElem(*m_output, "element");
  writeAttr(*m_output, "name", name.xmlName);
  writeNamespace(name.xmlNamespace,
                 "Warning : The generated schema requires an <import> for reference of "
                 "definitions in the ");
  writeOccurrence(element);
  bool isSubordinate = getDataDictElementType(element->getParent()) == DD_GROUP;
  if (isSubordinate && !attributeOf(element, "maxOccurs")) {
    writeAttr(*m_output, "maxOccurs", "unbounded");
  }
}

// Attributes have to stand behind the elements, so the members are walked
// twice. The flag is one variable for both passes: a member without an entry
// takes that of the member before it.
void CDMXMLGenerator::writeMappedMembers(CDMXMLElement const* element, unsigned indent) {
  ItemName flag;
  bool hasSequence = false;
  for (CDMXMLElement const* child : element->getChildElements()) {
    ApplyExternalMappingFile(child, externalMapping, flag);
    if (flag.isAttribute) continue;
    if (!hasSequence) writeIndent(*m_output, indent + 2 * kStep) << "<sequence>\n";
    hasSequence = true;
    getXMLFromDataDict(child, indent + 3 * kStep, &CDMXMLGenerator::OutputXMLSchemaFileElement);
  }
  if (hasSequence) writeIndent(*m_output, indent + 2 * kStep) << "</sequence>\n";
  for (CDMXMLElement const* child : element->getChildElements()) {
    ApplyExternalMappingFile(child, externalMapping, flag);
    if (!flag.isAttribute) continue;
    getXMLFromDataDict(child, indent + 2 * kStep, &CDMXMLGenerator::OutputXMLSchemaFileElement);
  }
  writeIndent(*m_output, indent + kStep) << "</complexType>\n";
  writeIndent(*m_output, indent) << "</element>\n";
}

void CDMXMLGenerator::writeSchemaItem(CDMXMLElement const* element, unsigned indent,
                                      VisitFlags& flags) {
  ItemName name = nameOf(element);
  if (name.xmlName.empty()) return;
  if (flags.reenter) {
    closeSchemaItem(element, name, indent);
    return;
  }
  openSchemaItem(element, name, indent);
  flags.reenter = flags.descend = true;
}

void CDMXMLGenerator::openSchemaItem(CDMXMLElement const* element, ItemName const& name,
                                     unsigned indent) {
  writeIndent(*m_output, indent);
  writeElem(*m_output, tagOf(name));
  writeAttr(*m_output, "name", name.xmlName);
  writeNamespace(name.xmlNamespace,
                 "Warning : The generated schema requires an <import> statement for the "
                 "reference of definitions in the ");
  writeOccurrence(element);
  writeFacets(element, name, indent);
}

void CDMXMLGenerator::writeFacets(CDMXMLElement const* element, ItemName const& name,
                                  unsigned indent) {
  bool hasConditions = element->getFirstChildElem() != nullptr;
  switch (contentForm(element, name)) {
    case ContentForm::length: {
      int length = decimalValue(*attributeOf(element, "length"));
      bool isNational = getDataDictElementType(element) == DD_NATIONAL;
      *m_output << ">\n";
      openRestriction(name.xmlType, indent + kStep);
      writeIndent(*m_output, indent + 3 * kStep);
      writeElem(*m_output, "maxLength");
      writeAttr(*m_output, "value",
                std::to_string(isNational ? length / kUnitsOfNational : length));
      // The traversal ends the tag if there are conditions.
      *m_output << (hasConditions ? "/" : "/>\n");
      break;
    }
    case ContentForm::digits:
      *m_output << ">\n";
      openRestriction(name.xmlType, indent + kStep);
      writeIndent(*m_output, indent + 3 * kStep);
      writeElem(*m_output, "totalDigits");
      writeAttr(*m_output, "value", *attributeOf(element, "digits"));
      *m_output << "/>\n";
      if (name.xmlType == "decimal" && attributeOf(element, "alignment")) {
        writeIndent(*m_output, indent + 3 * kStep);
        writeElem(*m_output, "fractionDigits");
        writeAttr(*m_output, "value", *attributeOf(element, "alignment"));
        *m_output << "/>\n";
      }
      break;
    case ContentForm::plain:
      // Without the type, an enumeration can stand inside.
      if (!hasConditions) writeAttr(*m_output, "type", name.xmlType);
      break;
  }
}

// Looks at "length" for both restricted forms, so an item that has digits but
// no length stays open.
void CDMXMLGenerator::closeSchemaItem(CDMXMLElement const* element, ItemName const& name,
                                      unsigned indent) {
  bool hasConditions = element->getFirstChildElem() != nullptr;
  bool isRestricted = hasFacets(getDataDictElementType(element)) &&
                      (isCharacterType(element, name) || isFixedPointType(name)) &&
                      (hasConditions || attributeOf(element, "length"));
  if (isRestricted) {
    closeRestriction(indent + kStep);
  } else if (!hasConditions) {
    *m_output << "/>\n";
    return;
  }
  writeIndent(*m_output, indent) << "</" << tagOf(name) << ">\n";
}

void CDMXMLGenerator::writeNamespace(std::string_view uri, char const* warning) {
  if (uri.empty() || uri == targetNamespace) return;
  writeAttr(*m_output, "xmlns", uri);
  m_output->flush();  // a message may bring the banner out, right here
  err() << warning << uri << " namespace." << endLine;
  err() << "Warning : The generated schema is invalid for the XML instance document represented "
           "by the generated COBOL XD."
        << endLine;
}

// A table of a fixed size gets equal bounds.
void CDMXMLGenerator::writeOccurrence(CDMXMLElement const* element) {
  std::optional<std::string_view> minOccurs = attributeOf(element, "minOccurs");
  std::optional<std::string_view> maxOccurs = attributeOf(element, "maxOccurs");
  if (!minOccurs) minOccurs = maxOccurs;
  if (minOccurs) writeAttr(*m_output, "minOccurs", *minOccurs);
  if (maxOccurs) writeAttr(*m_output, "maxOccurs", *maxOccurs);
}

void CDMXMLGenerator::openRestriction(std::string_view base, unsigned indent) {
  writeIndent(*m_output, indent) << "<simpleType>\n";
  writeIndent(*m_output, indent + kStep);
  writeElem(*m_output, "restriction");
  writeAttr(*m_output, "base", base) << ">\n";
}

void CDMXMLGenerator::closeRestriction(unsigned indent) {
  writeIndent(*m_output, indent + kStep) << "</restriction>\n";
  writeIndent(*m_output, indent) << "</simpleType>\n";
}

}  // namespace fdmorph
