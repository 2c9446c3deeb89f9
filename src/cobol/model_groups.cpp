// CDMCOBOLGenerator: the constructs that arrange other declarations. None of
// them makes an item: members stand flat under the enclosing element, those of
// a choice as well, and a group's occurrences leave no trace.

#include "cobol/DMCOBOLGenerator.h"
#include "text/console.h"

namespace fdmorph {
namespace {

void warnWildcard() {
  err() << "Warning : Unsupported element <any> or <anyAttribute> encountered."
        << " Element will not be converted into COBOL xd." << endLine;
}

void warnUnsupported(CDMXMLElement const* element) {
  err() << "Warning : Unsupported element <" << CDMXMLNode::getNonQualifiedName(element->name)
        << "> encountered.  Element will not be converted to COBOL XD" << endLine;
}

}  // namespace

CDMCOBOLRecordItem* CDMCOBOLGenerator::ProcessModelGroup(CDMXMLElement* element, WalkFrame& frame) {
  using Kind = GeneratorElementKind;
  switch (getElementType(element)) {
    case Kind::sequence:
    case Kind::choice:
    case Kind::all:
      frame.walkChildren = true;
      break;
    case Kind::group:
      return convertGroup(element, frame, Search::groups);
    case Kind::attributeGroup:
      return convertGroup(element, frame, Search::attributeGroups);
    case Kind::unionOf:
      ProcessElementUnion(element, frame);
      break;
    case Kind::list:
      frame.walkChildren = false;
      break;
    case Kind::any:
    case Kind::anyAttribute:
      frame.walkChildren = false;
      warnWildcard();
      break;
    case Kind::unique:
    case Kind::key:
    case Kind::keyRef:
      frame.walkChildren = false;
      warnUnsupported(element);
      break;
    default:
      break;
  }
  return frame.slot;
}

// With a name this is a definition, whose content is visited where it stands;
// with a reference the definition is visited in its place.
CDMCOBOLRecordItem* CDMCOBOLGenerator::convertGroup(CDMXMLElement* element, WalkFrame& frame,
                                                    Search definitions) {
  std::string_view text;
  if (findAttrByName(element, "name", text)) {
    frame.walkChildren = true;
    return frame.slot;
  }
  if (!findAttrByName(element, "ref", text)) return frame.slot;
  CDMXMLElement* definition = findElementByName(element, text, definitions);
  if (definition == nullptr) {
    reportMissingReference(text);
    return nullptr;
  }
  return walkDefinition(definition, text, frame.level, frame.indent, frame.slot);
}

// Follows a group reference, a base or a member type, which the record's own
// recursion test doesn't see. `text` is what the schema names it by.
CDMCOBOLRecordItem* CDMCOBOLGenerator::walkDefinition(CDMXMLElement* definition,
                                                      std::string_view text, unsigned level,
                                                      unsigned indent, ItemSlot& slot) {
  if (m_open.wouldRecurse(definition)) {
    reportRecursion(text);
    return nullptr;
  }
  Scope scope(m_open, definition, Scope::Hop::unguarded);
  return getCOBOLFromSchema(definition, level, indent, slot);
}

}  // namespace fdmorph
