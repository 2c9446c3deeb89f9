// CDMCOBOLGenerator: the walk over the schema.
//
// Level numbers: a head element has level 1 and indent 7. Each element or
// attribute that opens an item adds 1 to both for what lies below it; model
// groups, type definitions and derivations add nothing. A change made while
// working on one element never reaches its siblings.

#include "cobol/DMCOBOLGenerator.h"
#include "cobol/record_output.h"
#include "text/console.h"

namespace fdmorph {

CDMCOBOLRecordItem* CDMCOBOLGenerator::getCOBOLFromSchema(CDMXMLElement* element, unsigned level,
                                                          unsigned indent, ItemSlot& currentItem) {
  if (element == nullptr) return nullptr;
  WalkFrame frame{level, indent, currentItem};
  CDMCOBOLRecordItem* item = dispatch(element, frame);
  if (item == nullptr) {
    prune(element, frame.slot);
    return nullptr;
  }
  if (frame.nextElement != nullptr) return followNextElement(item, frame);
  if (!frame.walkChildren) return item;
  item = visitChildren(element, item, frame.level, frame.indent, frame.slot);
  moveValueToChild(element, frame.slot);
  return item;
}

CDMCOBOLRecordItem* CDMCOBOLGenerator::dispatch(CDMXMLElement* element, WalkFrame& frame) {
  using Kind = GeneratorElementKind;
  switch (getElementType(element)) {
    case Kind::schema:
      convertSchema(element, frame);
      return nullptr;
    case Kind::element:
      return ProcessElementElement(element, frame);
    case Kind::attribute:
      return ProcessAttributeElement(element, frame);
    case Kind::attributeGroup:
    case Kind::group:
    case Kind::sequence:
    case Kind::choice:
    case Kind::unionOf:
    case Kind::list:
    case Kind::all:
    case Kind::any:
    case Kind::anyAttribute:
      return ProcessModelGroup(element, frame);
    case Kind::extension:
      return ProcessElementExtension(element, frame);
    case Kind::restriction:
      return ProcessElementRestriction(element, frame);
    case Kind::simpleType:
    case Kind::complexType:
    case Kind::simpleContent:
    case Kind::complexContent:
      return enterTypeDefinition(element, frame);
    default:
      // Annotations, keys and the like have no COBOL form.
      return frame.slot;
  }
}

// Following a `type` or a `ref` replaces the visit of the children. Whatever
// the walk leaves in the item's place also takes its place in the slot.
CDMCOBOLRecordItem* CDMCOBOLGenerator::followNextElement(CDMCOBOLRecordItem* item,
                                                         WalkFrame& frame) {
  Scope scope(m_open, frame.nextElement, Scope::Hop::guarded);
  bool isHeld = frame.slot == item;
  getCOBOLFromSchema(frame.nextElement, frame.level, frame.indent, item);
  if (isHeld) frame.slot = item;
  return item;
}

// The comparison is made anew for each child: a child can end the item and
// leave its parent in its place.
CDMCOBOLRecordItem* CDMCOBOLGenerator::visitChildren(CDMXMLElement* element,
                                                     CDMCOBOLRecordItem* item, unsigned level,
                                                     unsigned indent, ItemSlot& slot) {
  for (CDMXMLElement* child = element->getFirstChildElem(); child != nullptr;
       child = child->getNextSibling()) {
    bool isHeld = slot == item;
    getCOBOLFromSchema(child, level, indent, item);
    if (isHeld) slot = item;
  }
  return item;
}

void CDMCOBOLGenerator::convertSchema(CDMXMLElement* element, WalkFrame& frame) {
  if (!ProcessSchemaElement(element, frame.walkChildren)) return;
  std::vector<CDMXMLElement*> headElements;
  getSchemaHeadElement(headElements);
  if (headElements.empty()) return;
  long long converted = 0;
  for (CDMXMLElement* head : headElements) {
    if (convertHeadElement(head, frame)) ++converted;
  }
  err() << endLine << "Successfully converted " << converted << " of "
        << static_cast<long long>(headElements.size()) << " schema head element(s)." << endLine;
}

bool CDMCOBOLGenerator::convertHeadElement(CDMXMLElement* element, WalkFrame const& frame) {
  bool isWritten = false;
  try {
    m_open.note(element);
    ItemSlot slot = nullptr;
    CDMCOBOLRecordItem* record = getCOBOLFromSchema(element, frame.level, frame.indent, slot);
    RecordOutput output({dataPrefix, countIn, uniqueNames}, m_store.texts(), std::cout);
    isWritten = output.OutputCOBOLItem(record);
    if (isWritten) endLine(std::cout);
  } catch (RecordTooLarge const&) {
    std::string_view name;
    findAttrByName(element, "name", name);
    err() << "Error : Record of " << name << " exceeds "
          << static_cast<long long>(RecordStore::kMaxItems) << " items" << endLine;
  }
  m_store.clear();
  m_open.clear();
  m_openMembers.clear();
  return isWritten;
}

bool CDMCOBOLGenerator::ProcessSchemaElement(CDMXMLElement const* element, bool& walkChildren) {
  std::string_view value;
  // Compared with the word "true" only: "qualified" passes.
  if (findAttrByName(element, "attributeFormDefault", value) && value == "true") {
    err() << "Error : COBOL XML does not support namespace qualifiers for attributes"
          << " in instance documents" << endLine;
    return false;
  }
  walkChildren = true;
  return true;
}

// Takes the slot's item out when its whole content came to nothing: when the
// element that failed was the last of the item's type and nothing came before.
void CDMCOBOLGenerator::prune(CDMXMLElement const* element, ItemSlot& slot) {
  CDMCOBOLRecordItem* item = slot;
  if (item == nullptr) return;
  CDMXMLElement const* at = element;
  while (at != nullptr && at != item->typeElement) {
    if (at->getNextSibling() != nullptr) return;
    at = at->getParent();
  }
  if (!item->children.empty()) return;
  CDMCOBOLRecordItem* parent = item->parent;
  if (parent != nullptr) parent->removeChild(item);
  if (item->derivationKind != DerivationKind::none) return;
  m_store.release(item);
  slot = parent;
}

}  // namespace fdmorph
