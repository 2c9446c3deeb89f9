// CDMCOBOLGenerator: how items come into a record and out of it again, and
// what elements and attributes set alike.

#include "cobol/DMCOBOLGenerator.h"
#include "text/console.h"

namespace fdmorph {

// The item that `element` fills: the slot's own item where a declaration
// completes a reference or the value of a simple content, otherwise a new one.
// It is linked before it is known to be convertible.
CDMCOBOLRecordItem* CDMCOBOLGenerator::findOrMakeItem(CDMXMLElement* element, WalkFrame& frame,
                                                      bool& isNew) {
  CDMCOBOLRecordItem* parent = frame.slot;
  isNew = true;
  if (parent == nullptr) {
    frame.slot = m_store.create();
    return frame.slot;
  }
  CDMXMLElement const* holder = parent->schemaElement;
  bool isOpen = parent->derivationKind == DerivationKind::simpleContent ||
                (holder != nullptr && holder->getAttribute("ref") != nullptr);
  if (isOpen && holder != nullptr && getElementType(holder) == getElementType(element)) {
    parent->derivationKind = DerivationKind::none;
    isNew = false;
    return parent;
  }
  CDMCOBOLRecordItem* item = m_store.create();
  item->parent = parent;
  parent->addChild(item);
  return item;
}

// Unlinks and ends an item that can't be converted. If the slot itself holds
// it, the slot holds null from then on, so that nothing reads it again.
void CDMCOBOLGenerator::refuse(CDMCOBOLRecordItem* item, ItemSlot& slot) {
  if (item->parent != nullptr) item->parent->removeChild(item);
  if (slot == item) slot = nullptr;
  m_store.release(item);
}

void CDMCOBOLGenerator::setNames(CDMCOBOLRecordItem* item, CDMXMLElement* element,
                                 std::string_view name) {
  item->schemaElement = element;
  item->setCOBOLName(name, m_store.texts());
  item->identifiedBy = name;
  item->countInName = countNameOf(item->dataName);
}

std::string_view CDMCOBOLGenerator::countNameOf(std::string_view dataName) {
  std::string name(dataName);
  name += "-count";
  return m_store.texts().keep(name);
}

void CDMCOBOLGenerator::setElementNamespace(CDMCOBOLRecordItem* item,
                                            CDMXMLElement const* element) const {
  getElementNamespace(element, item->xmlNamespace);
}

// The size comes from facets alone, never from the type's range of values.
void CDMCOBOLGenerator::setBuiltinPicture(CDMCOBOLRecordItem* item, std::string_view typeName) {
  convertXMLtoCOBOL(item, typeName);
  if (!item->pictureSize.empty()) return;
  setDefaultSize(item);
}

void CDMCOBOLGenerator::setDefaultSize(CDMCOBOLRecordItem* item) {
  if (item->pictureSymbol == "X") {
    item->pictureSize = "80";
  } else {
    item->pictureSize = item->hasDecimal ? "9" : "18";
  }
}

CDMCOBOLRecordItem* CDMCOBOLGenerator::goBelow(CDMCOBOLRecordItem* item, WalkFrame& frame) {
  ++frame.level;
  ++frame.indent;
  frame.walkChildren = true;
  return item;
}

void CDMCOBOLGenerator::reportRecursion(std::string_view name) {
  err() << "Error : Cannot convert recursive reference of " << name << " to COBOL record"
        << endLine;
}

void CDMCOBOLGenerator::reportMissingReference(std::string_view name) {
  err() << "Error : Cannot find referenced element " << name
        << ".  Element will not be converted to COBOL record item." << endLine;
}

void CDMCOBOLGenerator::reportUnconstrainedType(std::string_view name) {
  err() << "Warning : Cannot convert unconstrained type \"" << name
        << "\" to a valid COBOL data item. "
        << "An XML Schema element requires a type=\"...\" attribute "
        << "for successful conversion." << endLine;
}

}  // namespace fdmorph
