// CDMCOBOLGenerator: `restriction` and `extension`. Neither makes an item;
// both work on the item of the declaration whose type is being walked. They
// look alike and differ in where they look, what they report and what they
// visit.

#include "cobol/DMCOBOLGenerator.h"

namespace fdmorph {
namespace {

// Remembers the content in which the item is derived, whatever comes of it.
void noteDerivation(CDMXMLElement const* element, CDMCOBOLRecordItem* item) {
  if (element->getParent() == nullptr) return;
  switch (generatorElementKind(element->getParent())) {
    case GeneratorElementKind::simpleContent:
      item->derivationKind = DerivationKind::simpleContent;
      break;
    case GeneratorElementKind::complexContent:
      item->derivationKind = DerivationKind::complexContent;
      break;
    default:
      break;
  }
}

}  // namespace

CDMCOBOLRecordItem* CDMCOBOLGenerator::ProcessElementRestriction(CDMXMLElement* element,
                                                                 WalkFrame& frame) {
  if (frame.slot == nullptr) return nullptr;
  noteDerivation(element, frame.slot);
  std::string_view base;
  if (!findAttrByName(element, "base", base)) {
    ProcessElementFacets(frame.slot, element);
    frame.walkChildren = true;
  } else if (isSupportedDefaultSchemaType(element, base)) {
    // The children are not visited: an attribute in here stays out.
    setBuiltinPicture(frame.slot, base);
    ProcessElementFacets(frame.slot, element);
  } else {
    restrictNamedType(element, base, frame);
  }
  return frame.slot;
}

// A restriction with content of its own replaces its base; without, it takes
// the base over, and its facets act on top of the base's.
void CDMCOBOLGenerator::restrictNamedType(CDMXMLElement* element, std::string_view base,
                                          WalkFrame& frame) {
  CDMXMLElement* first = element->getFirstChildElem();
  CDMXMLElement* definition = findElementByName(element, base, Search::simpleTypes);
  bool hasOwnContent = false;
  if (definition != nullptr) {
    hasOwnContent = first != nullptr && getElementType(first) == GeneratorElementKind::simpleType;
  } else {
    definition = findElementByName(element, base, Search::complexTypes);
    if (definition == nullptr) return;
    hasOwnContent = first != nullptr;
  }
  if (hasOwnContent) {
    ProcessElementFacets(frame.slot, element);
    frame.walkChildren = true;
    return;
  }
  CDMCOBOLRecordItem* item =
      walkDefinition(definition, base, frame.level, frame.indent, frame.slot);
  if (item == nullptr) return;
  ProcessElementFacets(item, element);
  frame.walkChildren = false;
}

// The base's members come first and the extension's own after them, all at one
// level and in one item.
CDMCOBOLRecordItem* CDMCOBOLGenerator::ProcessElementExtension(CDMXMLElement* element,
                                                               WalkFrame& frame) {
  if (frame.slot == nullptr) return nullptr;
  noteDerivation(element, frame.slot);
  std::string_view base;
  if (!findAttrByName(element, "base", base)) return frame.slot;
  if (isSupportedDefaultSchemaType(element, base)) {
    setBuiltinPicture(frame.slot, base);
    frame.walkChildren = true;
    return frame.slot;
  }
  CDMXMLElement* definition = findElementByName(element, base, Search::simpleTypes);
  if (definition == nullptr) definition = findElementByName(element, base, Search::complexTypes);
  if (definition == nullptr) {
    reportMissingReference(base);
    return nullptr;
  }
  if (CDMXMLElement* former = findRedefinedBase(element, base)) definition = former;
  walkDefinition(definition, base, frame.level, frame.indent, frame.slot);
  frame.walkChildren = true;
  return frame.slot;
}

// In a redefine a type extends the former version of itself.
CDMXMLElement* CDMCOBOLGenerator::findRedefinedBase(CDMXMLElement* element,
                                                    std::string_view base) const {
  for (CDMXMLElement* at = element; at != nullptr; at = at->getParent()) {
    if (getElementType(at) == GeneratorElementKind::redefine) {
      return findElementByName(element, base, Search::redefinedElements);
    }
  }
  return nullptr;
}

}  // namespace fdmorph
