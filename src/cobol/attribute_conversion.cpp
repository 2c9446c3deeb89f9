// CDMCOBOLGenerator: `attribute` declarations. An attribute is a child item
// among the element's other members; a declaration merges only into an item
// that was itself made for an attribute.

#include "cobol/DMCOBOLGenerator.h"
#include "text/console.h"

namespace fdmorph {

CDMCOBOLRecordItem* CDMCOBOLGenerator::ProcessAttributeElement(CDMXMLElement* element,
                                                               WalkFrame& frame) {
  if (schemaDoc == nullptr) return nullptr;
  std::string_view text;
  if (findAttrByName(element, "use", text) && text == "prohibited") return frame.slot;
  bool isNew = false;
  CDMCOBOLRecordItem* item = findOrMakeItem(element, frame, isNew);
  if (isNew) {
    item->schemaElement = element;
    item->indent = static_cast<int>(frame.indent);
    item->levelNumber = static_cast<int>(frame.level);
    item->isAttribute = true;
    if (findAttrByName(element, "default", text) || findAttrByName(element, "fixed", text)) {
      item->itemValue = text;
    }
  }
  std::string_view name;
  if (!findAttrByName(element, "name", name)) {
    if (findAttrByName(element, "ref", text)) {
      return convertReferringAttribute(element, text, item, frame);
    }
    refuse(item, frame.slot);
    return nullptr;
  }
  setNames(item, element, name);
  if (!findAttrByName(element, "type", text)) {
    setElementNamespace(item, element);
    return goBelow(item, frame);
  }
  item->xmlName = text;
  if (!isSupportedDefaultSchemaType(element, text)) {
    return followNamedType(element, text, item, frame);
  }
  setElementNamespace(item, element);
  setBuiltinPicture(item, text);
  return goBelow(item, frame);
}

CDMCOBOLRecordItem* CDMCOBOLGenerator::convertReferringAttribute(CDMXMLElement* element,
                                                                 std::string_view ref,
                                                                 CDMCOBOLRecordItem* item,
                                                                 WalkFrame& frame) {
  item->xmlName = ref;
  if (wouldContainItself(item)) {
    reportRecursion(item->xmlName);
    refuse(item, frame.slot);
    return nullptr;
  }
  CDMXMLElement* global = findElementByName(element, ref, Search::attributes);
  if (global == nullptr) global = findElementByName(element, ref, Search::attributeGroups);
  if (global == nullptr) {
    err() << "Error : Cannot find group reference " << ref << endLine;
    refuse(item, frame.slot);
    return nullptr;
  }
  setElementNamespace(item, global);
  frame.nextElement = global;
  return item;
}

}  // namespace fdmorph
