// The conversion of `element` and `attribute` declarations. They differ in few
// points: an attribute has no occurrences and no substitution group, and needs
// no content.

#include <vector>

#include "cobol/conversions.h"
#include "cobol/schema_walker.h"
#include "text/console.h"

namespace fdmorph {
namespace {

using DeclaredItem = RecordBuilder::DeclaredItem;

// Sets what an item has from the declaration that makes it, also if that is
// completed by another one.
void setOwnFields(CDMCOBOLRecordItem* item, CDMXMLElement* element, WalkPosition at) {
  item->schemaElement = element;
  item->indent = static_cast<int>(at.indent);
  item->levelNumber = static_cast<int>(at.level);
  if (auto value = findAttrByName(element, "default")) {
    item->itemValue = *value;
  } else if (auto fixed = findAttrByName(element, "fixed")) {
    item->itemValue = *fixed;
  }
}

Conversion refuse(SchemaWalker& walker, DeclaredItem const& declared) {
  return Conversion::failed(walker.builder().refuse(declared.item, declared.current));
}

Conversion refuseRecursion(SchemaWalker& walker, DeclaredItem const& declared) {
  reportRecursion(declared.item->xmlName);
  return refuse(walker, declared);
}

bool wouldContainItself(SchemaWalker& walker, DeclaredItem const& declared) {
  return walker.open().wouldContainItself(declared.item, walker.components());
}

// The second test of a hop to a global component, see recursion.h.
bool mayFollow(SchemaWalker& walker, CDMXMLElement const* global, DeclaredItem const& declared) {
  return walker.open().mayFollow(global, Hop::guarded, declared.item);
}

// Follows a reference to the global declaration that completes the item.
Conversion followReference(SchemaWalker& walker, CDMXMLElement* global,
                           DeclaredItem const& declared) {
  if (!mayFollow(walker, global, declared)) return refuseRecursion(walker, declared);
  walker.builder().setElementNamespace(declared.item, global);
  return Conversion::follow(global, 0, declared.item, declared.current);
}

// Follows the name of a type to its definition.
Conversion followNamedType(SchemaWalker& walker, CDMXMLElement* element, std::string_view type,
                           DeclaredItem const& declared) {
  if (wouldContainItself(walker, declared)) return refuseRecursion(walker, declared);
  CDMXMLElement* definition = walker.components().findTypeComplexFirst(element, type);
  if (definition == nullptr) {
    err() << "Warning : An unsupported type " << type
          << " has been referenced.  Element will not be converted to COBOL record item."
          << endLine;
    return refuse(walker, declared);
  }
  if (!mayFollow(walker, definition, declared)) return refuseRecursion(walker, declared);
  if (auto uri = walker.namespaces().getTypeNamespace(element, type)) {
    walker.builder().setNamespace(declared.item, *uri);
  }
  return Conversion::follow(definition, 1, declared.item, declared.current);
}

/// What becomes of the items of a substitution group's members.
enum class MemberItems { listedAgain, dropped };

// The current item is the head itself: the member becomes a sibling of the
// head. If the head has no parent, the member has no place in the record.
void walkMemberAsSibling(SchemaWalker& walker, CDMXMLElement* member, CDMCOBOLRecordItem* parent,
                         WalkPosition at) {
  walker.beginMember(parent);
  CDMCOBOLRecordItem* item = walker.getCOBOLFromSchema(member, at.below(nullptr, 0)).item;
  walker.endMember();
  if (item == nullptr) return;
  if (parent == nullptr) {
    walker.builder().store().release(item);
    return;
  }
  item->parent = parent;
  parent->addChild(item);
}

// The member adds its item to the current item. Listed there once more, it is
// written twice. Returns the new current item.
CDMCOBOLRecordItem* walkMemberInPlace(SchemaWalker& walker, CDMXMLElement* member, MemberItems use,
                                      WalkPosition at) {
  Visit visit = walker.getCOBOLFromSchema(member, at);
  bool isListed = use == MemberItems::listedAgain && visit.item != nullptr &&
                  visit.current != nullptr && visit.item != visit.current;
  if (isListed) {
    walker.builder().store().countListedAgain(visit.item);
    visit.current->addChild(visit.item);
  }
  return visit.current;
}

// Visits the children of the head, and then each member at the head's level.
Visit walkSubstitution(SchemaWalker& walker, CDMXMLElement* head,
                       std::vector<CDMXMLElement*> const& members, MemberItems use,
                       DeclaredItem const& declared, WalkPosition at) {
  // Read before the visit of the children, which can end the head's item.
  bool isCurrent = declared.current == declared.item;
  CDMCOBOLRecordItem* parent = declared.item->parent;
  Visit visit =
      walker.visitChildren(head, {declared.item, declared.current}, at.below(declared.item));
  for (CDMXMLElement* member : members) {
    if (isCurrent && !walker.admitsMember(member, parent)) continue;
    if (!walker.open().openMember(member)) continue;
    if (isCurrent) {
      walkMemberAsSibling(walker, member, parent, at);
    } else {
      visit.current = walkMemberInPlace(walker, member, use, at.below(visit.current, 0));
    }
    walker.open().closeMember(member);
  }
  return visit;
}

Conversion convertBuiltinElement(SchemaWalker& walker, CDMXMLElement* element,
                                 std::string_view type, DeclaredItem const& declared,
                                 WalkPosition at) {
  walker.builder().setElementNamespace(declared.item, element);
  walker.builder().setBuiltinPicture(declared.item, type);
  std::vector<CDMXMLElement*> const& members = walker.substitutions().membersOf(declared.item);
  if (members.empty()) return Conversion::childrenBelow(declared.item, declared.current);
  Visit visit = walkSubstitution(walker, element, members, MemberItems::listedAgain, declared, at);
  return Conversion::done(visit.item, visit.current);
}

Conversion convertInlineElement(SchemaWalker& walker, CDMXMLElement* element, std::string_view name,
                                DeclaredItem const& declared, WalkPosition at) {
  walker.builder().setElementNamespace(declared.item, element);
  Visit visit{declared.item, declared.current};
  std::vector<CDMXMLElement*> const& members = walker.substitutions().membersOf(declared.item);
  if (!members.empty()) {
    // The walker visits the children again, so they are in the record twice.
    visit = walkSubstitution(walker, element, members, MemberItems::dropped, declared, at);
    if (visit.item == nullptr) return Conversion::failed(visit.current);
  }
  if (element->getFirstChildElem() != nullptr) {
    return Conversion::childrenBelow(visit.item, visit.current);
  }
  reportUnconstrainedType(name);
  // The current item is left to the walker, which prunes it.
  if (visit.current == visit.item) return Conversion::failed(visit.current);
  return Conversion::failed(walker.builder().refuse(visit.item, visit.current));
}

// The global element completes the item, with the occurrences and the level of
// the reference.
Conversion convertReferringElement(SchemaWalker& walker, CDMXMLElement* element,
                                   std::string_view ref, DeclaredItem const& declared) {
  walker.builder().setReferenceNames(declared.item, ref);
  if (wouldContainItself(walker, declared)) return refuseRecursion(walker, declared);
  CDMXMLElement* global = walker.components().findElementByName(element, ref, Search::elements);
  if (global != nullptr) return followReference(walker, global, declared);
  reportMissingReference(ref);
  return refuse(walker, declared);
}

Conversion convertReferringAttribute(SchemaWalker& walker, CDMXMLElement* element,
                                     std::string_view ref, DeclaredItem const& declared) {
  declared.item->xmlName = ref;
  if (wouldContainItself(walker, declared)) return refuseRecursion(walker, declared);
  ComponentSearch const& components = walker.components();
  CDMXMLElement* global = components.findElementByName(element, ref, Search::attributes);
  if (global == nullptr) {
    global = components.findElementByName(element, ref, Search::attributeGroups);
  }
  if (global != nullptr) return followReference(walker, global, declared);
  err() << "Error : Cannot find group reference " << ref << endLine;
  return refuse(walker, declared);
}

}  // namespace

Conversion ProcessElementElement(SchemaWalker& walker, CDMXMLElement* element, WalkPosition at) {
  if (!walker.admits(element, at.current)) return Conversion::done(at.current, at.current);
  DeclaredItem const declared = walker.builder().findOrMakeItem(element, at.current);
  CDMCOBOLRecordItem* item = declared.item;
  if (declared.isNew) {
    setOwnFields(item, element, at);
    if (auto occurs = findAttrByName(element, "minOccurs")) item->minOccurs = *occurs;
    if (auto occurs = findAttrByName(element, "maxOccurs")) {
      walker.builder().store().countText(*occurs);
      item->maxOccurs = *occurs;
    }
  }
  auto name = findAttrByName(element, "name");
  if (!name) {
    auto ref = findAttrByName(element, "ref");
    return ref ? convertReferringElement(walker, element, *ref, declared)
               : refuse(walker, declared);
  }
  walker.builder().setNames(item, element, *name);
  auto type = findAttrByName(element, "type");
  if (!type) return convertInlineElement(walker, element, *name, declared, at);
  item->xmlName = *type;
  if (walker.namespaces().isSupportedDefaultSchemaType(element, *type)) {
    return convertBuiltinElement(walker, element, *type, declared, at);
  }
  Conversion conversion = followNamedType(walker, element, *type, declared);
  // With a named type the members are not converted.
  if (conversion.item != nullptr && !walker.substitutions().membersOf(item).empty()) {
    err() << "Warning : substitionGroup encountered" << endLine;
  }
  return conversion;
}

Conversion ProcessAttributeElement(SchemaWalker& walker, CDMXMLElement* element, WalkPosition at) {
  if (findAttrByName(element, "use") == "prohibited" || !walker.admits(element, at.current)) {
    return Conversion::done(at.current, at.current);
  }
  DeclaredItem const declared = walker.builder().findOrMakeItem(element, at.current);
  CDMCOBOLRecordItem* item = declared.item;
  if (declared.isNew) {
    setOwnFields(item, element, at);
    item->isAttribute = true;
  }
  auto name = findAttrByName(element, "name");
  if (!name) {
    auto ref = findAttrByName(element, "ref");
    return ref ? convertReferringAttribute(walker, element, *ref, declared)
               : refuse(walker, declared);
  }
  walker.builder().setNames(item, element, *name);
  auto type = findAttrByName(element, "type");
  if (type) {
    item->xmlName = *type;
    if (!walker.namespaces().isSupportedDefaultSchemaType(element, *type)) {
      return followNamedType(walker, element, *type, declared);
    }
  }
  walker.builder().setElementNamespace(item, element);
  if (type) walker.builder().setBuiltinPicture(item, *type);
  return Conversion::childrenBelow(item, declared.current);
}

}  // namespace fdmorph
