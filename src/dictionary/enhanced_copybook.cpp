// CDMXMLGenerator: the copybook again, with every named item tied to its XML
// element. Level numbers are the depth in the tree, not those of the source.

#include <iostream>

#include "cobol/fixed_format.h"
#include "dictionary/DMXMLGenerator.h"
#include "dictionary/copybook_clauses.h"
#include "dictionary/data_dictionary.h"
#include "text/console.h"

namespace fdmorph {
namespace {

constexpr unsigned kMargin = 7;  // blanks ahead of level 0
constexpr unsigned kRenamesLevel = 66;
constexpr unsigned kMaxPaddedLevel = 8;

void warnRedefines(std::string const& line) {
  err() << "Warning : The redefines clause is not supported by this version of the COBOL runtime. "
        << "The element \"" << std::string_view(line).substr(line.find_first_not_of(' '))
        << "\" and it's child data items will not be "
        << "converted by FDMORPH." << endLine;
}

bool hasNamedPredecessor(CDMXMLElement const* element) {
  CDMXMLElement const* before = element->getPrevSibling();
  return before != nullptr && !dataNameOf(before).empty();
}

}  // namespace

// Returns whether the element's children were to be walked.
bool CDMXMLGenerator::getEnhancedCOBOLFromDataDict(CDMXMLElement const* element, unsigned level) {
  if (element == nullptr) return false;
  if (!element->isParent()) {
    for (CDMXMLElement const* child : element->getChildElements()) {
      getEnhancedCOBOLFromDataDict(child, level);
    }
    return false;
  }
  DATADICT_ELEMENT_TYPE kind = getDataDictElementType(element);
  bool descend = isContainer(kind) || isCondition(kind);
  if (isDataItem(kind) || isConditionValue(kind)) {
    descend = writeCopybookItem(element, level);
    if (descend) ++level;
  }
  if (!descend) return false;
  for (CDMXMLElement const* child : element->getChildElements()) {
    if (getEnhancedCOBOLFromDataDict(child, level) && isContainer(kind)) break;
  }
  return true;
}

// False if the item is dropped with everything below it.
bool CDMXMLGenerator::writeCopybookItem(CDMXMLElement const* element, unsigned level) {
  std::string line(level + kMargin, ' ');
  bool isRenames = attributeIs(element, "renames", "true");
  if (isRenames) {
    err() << "Warning : This version of FDMORPH does not support the RENAMES clause for ranges"
          << endLine;
    level = kRenamesLevel;
  }
  if (isConditionValue(getDataDictElementType(element))) {
    line += "88 ";
    std::optional<std::string_view> name = attributeOf(element->getParent(), "name");
    if (name) (line += prefix) += *name;
  } else {
    if (!isRenames && level <= kMaxPaddedLevel) line += '0';
    line += std::to_string(level) + ' ';
    std::optional<std::string_view> name = attributeOf(element, "name");
    if (name) (line += prefix) += *name;
  }
  if (attributeIs(element, "redefines", "true") && hasNamedPredecessor(element)) {
    warnRedefines(line);
    return false;
  }
  if (isRenames) {
    err() << "Warning : This version of FDMORPH does not support the RENAMES clause" << endLine;
    return false;
  }
  appendDataClauses(element, line);
  appendXmlClauses(element, line);
  line += '.';
  OutputFixedFormatCOBOL(line, std::cout);
  return true;
}

void CDMXMLGenerator::appendXmlClauses(CDMXMLElement const* element, std::string& line) const {
  ItemName name = nameOf(element);
  if (name.xmlName.empty()) return;
  ((line += " identified by \"") += name.xmlName) += '"';
  if (!name.xmlNamespace.empty()) ((line += " namespace is \"") += name.xmlNamespace) += '"';
  if (name.isAttribute) line += " is attribute";
  if (name.countIn) (((line += " count in ") += prefix) += name.xmlName) += "-count";
}

}  // namespace fdmorph
