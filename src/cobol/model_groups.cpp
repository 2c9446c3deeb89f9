// The conversion of model groups, attribute groups and wildcards.

#include "cobol/conversions.h"
#include "cobol/schema_walker.h"
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

// A group with a name is a definition, and its content is visited here. For a
// reference the definition is visited instead.
Conversion convertGroup(SchemaWalker& walker, CDMXMLElement* element, Search definitions,
                        WalkPosition at) {
  if (element->getAttribute("name") != nullptr) {
    return Conversion::children(at.current, at.current);
  }
  auto ref = findAttrByName(element, "ref");
  if (!ref) return Conversion::done(at.current, at.current);
  CDMXMLElement* definition = walker.components().findElementByName(element, *ref, definitions);
  if (definition == nullptr) {
    reportMissingReference(*ref);
    return Conversion::failed(at.current);
  }
  Visit visit = walker.walkDefinition(definition, *ref, at);
  return Conversion::done(visit.item, visit.current);
}

}  // namespace

Conversion ProcessModelGroup(SchemaWalker& walker, CDMXMLElement* element, WalkPosition at) {
  using Kind = GeneratorElementKind;
  switch (generatorElementKind(element)) {
    case Kind::sequence:
    case Kind::choice:
    case Kind::all:
      return Conversion::children(at.current, at.current);
    case Kind::group:
      return convertGroup(walker, element, Search::groups, at);
    case Kind::attributeGroup:
      return convertGroup(walker, element, Search::attributeGroups, at);
    case Kind::unionOf:
      ProcessElementUnion(walker, element, at);
      break;
    case Kind::any:
    case Kind::anyAttribute:
      warnWildcard();
      break;
    case Kind::unique:
    case Kind::key:
    case Kind::keyRef:
      warnUnsupported(element);
      break;
    default:
      // A list type has no COBOL form: the item gets no picture.
      break;
  }
  return Conversion::done(at.current, at.current);
}

}  // namespace fdmorph
