// CDMCOBOLGenerator: type definitions, and values that stand beside content.

#include "cobol/DMCOBOLGenerator.h"
#include "text/console.h"

namespace fdmorph {

CDMCOBOLRecordItem* CDMCOBOLGenerator::enterTypeDefinition(CDMXMLElement* element,
                                                           WalkFrame& frame) {
  CDMCOBOLRecordItem* item = frame.slot;
  if (item != nullptr && item->typeElement == nullptr) item->typeElement = element;
  CDMXMLElement const* parent = element->getParent();
  std::string_view name;
  if (element->getFirstChildElem() == nullptr && parent != nullptr &&
      findAttrByName(parent, "name", name)) {
    reportUnconstrainedType(name);
    return nullptr;
  }
  std::string_view mixed;
  if (item != nullptr && findAttrByName(element, "mixed", mixed) && mixed == "true") {
    addMixedValue(item);
  }
  frame.walkChildren = true;
  return item;
}

// The text between the elements of a mixed type has no COBOL form. Its item
// gets no picture, so that the user hears of it when the record is written.
void CDMCOBOLGenerator::addMixedValue(CDMCOBOLRecordItem* item) {
  CDMCOBOLRecordItem* value = m_store.create();
  value->levelNumber = item->levelNumber + 1;
  value->indent = item->indent + 1;
  value->parent = item;
  value->setCOBOLName(m_store.texts().keep(std::string(item->dataName) + "-mixed-value"),
                      m_store.texts());
  item->addChild(value);
}

// An item below `item` that takes over its picture. The decimal part, the
// usage and the digit facets stay behind.
CDMCOBOLRecordItem* CDMCOBOLGenerator::makeValueItem(CDMCOBOLRecordItem* item) {
  CDMCOBOLRecordItem* value = m_store.create();
  value->levelNumber = item->levelNumber + 1;
  value->indent = item->indent + 1;
  value->setCOBOLName(m_store.texts().keep(std::string(item->dataName) + "-value"),
                      m_store.texts());
  value->pictureSymbol = item->pictureSymbol;
  value->pictureSize = item->pictureSize;
  value->parent = item;
  item->pictureSymbol = {};
  item->pictureSize = {};
  return value;
}

// A COBOL group can't have a picture: an item that got one from a simple type
// and children after that hands the picture down to a first child. An
// enumeration list in front of the children switches this off, as its own
// value item stands behind it.
void CDMCOBOLGenerator::moveValueToChild(CDMXMLElement const* element, CDMCOBOLRecordItem* item) {
  if (item == nullptr || item->isAttribute || item->children.empty()) return;
  CDMCOBOLRecordItem const* first = item->children.front();
  if (first == nullptr || first->levelNumber > kMaxLevel) return;
  std::string_view mixed;
  if (findAttrByName(element, "mixed", mixed) && mixed != "false") return;
  if (item->pictureSymbol.empty()) return;
  item->addFirstChild(makeValueItem(item));
}

}  // namespace fdmorph
