// The conversion of `restriction` and `extension`. The two look alike. They
// differ in where they look, what they report and what they visit.

#include "cobol/conversions.h"
#include "cobol/facets.h"
#include "cobol/schema_walker.h"

namespace fdmorph {
namespace {

// Sets in which content the item is derived, whatever comes of the derivation.
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

// A restriction with content of its own replaces its base. Without, it takes
// over the base, and its facets apply on top of those of the base.
Conversion restrictNamedType(SchemaWalker& walker, CDMXMLElement* element, std::string_view base,
                             WalkPosition at) {
  CDMXMLElement* first = element->getFirstChildElem();
  CDMXMLElement* definition =
      walker.components().findElementByName(element, base, Search::simpleTypes);
  bool hasOwnContent = false;
  if (definition != nullptr) {
    hasOwnContent =
        first != nullptr && generatorElementKind(first) == GeneratorElementKind::simpleType;
  } else {
    definition = walker.components().findElementByName(element, base, Search::complexTypes);
    if (definition == nullptr) return Conversion::done(at.current, at.current);
    hasOwnContent = first != nullptr;
  }
  if (hasOwnContent) {
    ProcessElementFacets(at.current, element, walker.builder());
    return Conversion::children(at.current, at.current);
  }
  Visit visit = walker.walkDefinition(definition, base, at);
  if (visit.item != nullptr) ProcessElementFacets(visit.item, element, walker.builder());
  return Conversion::done(visit.current, visit.current);
}

// The former version of a redefined type, which the new version extends under
// its own name. Null outside a redefine.
CDMXMLElement* findRedefinedBase(SchemaWalker const& walker, CDMXMLElement const* element,
                                 std::string_view base) {
  for (CDMXMLElement const* at = element; at != nullptr; at = at->getParent()) {
    if (generatorElementKind(at) == GeneratorElementKind::redefine) {
      return walker.components().findElementByName(element, base, Search::redefinedElements);
    }
  }
  return nullptr;
}

}  // namespace

Conversion ProcessElementRestriction(SchemaWalker& walker, CDMXMLElement* element,
                                     WalkPosition at) {
  CDMCOBOLRecordItem* item = at.current;
  if (item == nullptr) return Conversion::failed(nullptr);
  noteDerivation(element, item);
  auto base = findAttrByName(element, "base");
  if (!base) {
    ProcessElementFacets(item, element, walker.builder());
    return Conversion::children(item, item);
  }
  if (!walker.namespaces().isSupportedDefaultSchemaType(element, *base)) {
    return restrictNamedType(walker, element, *base, at);
  }
  // The children are not visited: an attribute among them is left out.
  walker.builder().setBuiltinPicture(item, *base);
  ProcessElementFacets(item, element, walker.builder());
  return Conversion::done(item, item);
}

// The members of the base come first and those of the extension after them,
// all at one level and in one item.
Conversion ProcessElementExtension(SchemaWalker& walker, CDMXMLElement* element, WalkPosition at) {
  CDMCOBOLRecordItem* item = at.current;
  if (item == nullptr) return Conversion::failed(nullptr);
  noteDerivation(element, item);
  auto base = findAttrByName(element, "base");
  if (!base) return Conversion::done(item, item);
  if (walker.namespaces().isSupportedDefaultSchemaType(element, *base)) {
    walker.builder().setBuiltinPicture(item, *base);
    return Conversion::children(item, item);
  }
  CDMXMLElement* definition = walker.components().findTypeSimpleFirst(element, *base);
  if (definition == nullptr) {
    reportMissingReference(*base);
    return Conversion::failed(item);
  }
  if (CDMXMLElement* former = findRedefinedBase(walker, element, *base)) definition = former;
  Visit visit = walker.walkDefinition(definition, *base, at);
  return Conversion::children(visit.current, visit.current);
}

}  // namespace fdmorph
