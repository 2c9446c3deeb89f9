// CDMCOBOLGenerator: `element` declarations.

#include "cobol/DMCOBOLGenerator.h"
#include "text/console.h"

namespace fdmorph {

CDMCOBOLRecordItem* CDMCOBOLGenerator::ProcessElementElement(CDMXMLElement* element,
                                                             WalkFrame& frame) {
  if (schemaDoc == nullptr) return nullptr;
  bool isNew = false;
  CDMCOBOLRecordItem* item = findOrMakeItem(element, frame, isNew);
  std::string_view text;
  if (isNew) {
    item->schemaElement = element;
    item->indent = static_cast<int>(frame.indent);
    item->levelNumber = static_cast<int>(frame.level);
    if (findAttrByName(element, "minOccurs", text)) item->minOccurs = text;
    if (findAttrByName(element, "maxOccurs", text)) item->maxOccurs = text;
    if (findAttrByName(element, "default", text) || findAttrByName(element, "fixed", text)) {
      item->itemValue = text;
    }
  }
  std::string_view name;
  if (!findAttrByName(element, "name", name)) {
    if (findAttrByName(element, "ref", text)) {
      return convertReferringElement(element, text, item, frame);
    }
    refuse(item, frame.slot);
    return nullptr;
  }
  setNames(item, element, name);
  if (!findAttrByName(element, "type", text)) {
    return convertInlineElement(element, name, item, frame);
  }
  item->xmlName = text;
  if (isSupportedDefaultSchemaType(element, text)) {
    return convertBuiltinElement(element, text, item, frame);
  }
  bool isHead = false;
  item = followNamedType(element, text, item, frame);
  if (item != nullptr) isHead = elementHasSubGroup(item, nullptr);
  // With a named type the members are not converted.
  if (isHead) err() << "Warning : substitionGroup encountered" << endLine;
  return item;
}

CDMCOBOLRecordItem* CDMCOBOLGenerator::convertBuiltinElement(CDMXMLElement* element,
                                                             std::string_view type,
                                                             CDMCOBOLRecordItem* item,
                                                             WalkFrame& frame) {
  setElementNamespace(item, element);
  setBuiltinPicture(item, type);
  std::vector<CDMXMLElement*> members;
  if (!elementHasSubGroup(item, &members)) return goBelow(item, frame);
  return walkSubstitution(element, item, members, MemberResult::listedAgain, frame);
}

CDMCOBOLRecordItem* CDMCOBOLGenerator::convertInlineElement(CDMXMLElement* element,
                                                            std::string_view name,
                                                            CDMCOBOLRecordItem* item,
                                                            WalkFrame& frame) {
  setElementNamespace(item, element);
  std::vector<CDMXMLElement*> members;
  if (elementHasSubGroup(item, &members)) {
    // The walker visits the children a second time, so they stand twice.
    item = walkSubstitution(element, item, members, MemberResult::dropped, frame);
    if (item == nullptr) return nullptr;
  }
  if (element->getFirstChildElem() != nullptr) return goBelow(item, frame);
  reportUnconstrainedType(name);
  frame.walkChildren = false;
  // An item that the slot holds is left to the prune step.
  if (frame.slot != item) refuse(item, frame.slot);
  return nullptr;
}

// The global element completes the item that the reference has opened, with
// the occurrences of the reference and at its level.
CDMCOBOLRecordItem* CDMCOBOLGenerator::convertReferringElement(CDMXMLElement* element,
                                                               std::string_view ref,
                                                               CDMCOBOLRecordItem* item,
                                                               WalkFrame& frame) {
  item->setCOBOLName(ref, m_store.texts());
  item->identifiedBy = ref;
  item->xmlName = ref;
  if (wouldContainItself(item)) {
    reportRecursion(item->xmlName);
    refuse(item, frame.slot);
    return nullptr;
  }
  CDMXMLElement* global = findElementByName(element, ref, Search::elements);
  if (global == nullptr) {
    reportMissingReference(ref);
    refuse(item, frame.slot);
    return nullptr;
  }
  setElementNamespace(item, global);
  frame.nextElement = global;
  return item;
}

// A complex type wins over a simple type of the same name.
CDMCOBOLRecordItem* CDMCOBOLGenerator::followNamedType(CDMXMLElement* element,
                                                       std::string_view type,
                                                       CDMCOBOLRecordItem* item, WalkFrame& frame) {
  if (wouldContainItself(item)) {
    reportRecursion(item->xmlName);
    refuse(item, frame.slot);
    return nullptr;
  }
  CDMXMLElement* definition = findElementByName(element, type, Search::complexTypes);
  if (definition == nullptr) definition = findElementByName(element, type, Search::simpleTypes);
  if (definition == nullptr) {
    err() << "Warning : An unsupported type " << type
          << " has been referenced.  Element will not be converted to COBOL record item."
          << endLine;
    refuse(item, frame.slot);
    return nullptr;
  }
  std::string_view uri;
  if (getTypeNamespace(element, type, uri)) item->xmlNamespace = uri;
  frame.nextElement = definition;
  return goBelow(item, frame);
}

}  // namespace fdmorph
