// CDMCOBOLGenerator: the members of substitution groups.

#include "cobol/DMCOBOLGenerator.h"

namespace fdmorph {

// Visits the head's own children, then each member at the head's level, and
// leaves the frame's level and children to the caller. Returns what took the
// place of `item`.
CDMCOBOLRecordItem* CDMCOBOLGenerator::walkSubstitution(CDMXMLElement* head,
                                                        CDMCOBOLRecordItem* item,
                                                        std::vector<CDMXMLElement*> const& members,
                                                        MemberResult use, WalkFrame& frame) {
  // Asked before the children are visited, which can end the head's item.
  bool isHeldBySlot = frame.slot == item;
  CDMCOBOLRecordItem* parent = item->parent;
  item = visitChildren(head, item, frame.level + 1, frame.indent + 1, frame.slot);
  for (CDMXMLElement* member : members) {
    // A member whose content leads back to its head would be walked for ever.
    if (!m_openMembers.insert(member).second) continue;
    m_open.note(member);
    if (isHeldBySlot) {
      walkMemberAsSibling(member, parent, frame);
    } else {
      walkMemberInSlot(member, use, frame);
    }
    m_openMembers.erase(member);
  }
  return item;
}

// The member hangs itself under the slot's item, and is listed there once
// more, so that it is written twice.
void CDMCOBOLGenerator::walkMemberInSlot(CDMXMLElement* member, MemberResult use,
                                         WalkFrame& frame) {
  CDMCOBOLRecordItem* result = getCOBOLFromSchema(member, frame.level, frame.indent, frame.slot);
  bool isListed = use == MemberResult::listedAgain && result != nullptr && frame.slot != nullptr &&
                  result != frame.slot;
  if (isListed) frame.slot->addChild(result);
}

// The slot is taken by the head itself: the member becomes the head's sibling,
// and where the head has no parent, has no place in the record.
void CDMCOBOLGenerator::walkMemberAsSibling(CDMXMLElement* member, CDMCOBOLRecordItem* parent,
                                            WalkFrame const& frame) {
  ItemSlot ownSlot = nullptr;
  CDMCOBOLRecordItem* result = getCOBOLFromSchema(member, frame.level, frame.indent, ownSlot);
  if (result == nullptr) return;
  if (parent == nullptr) {
    m_store.release(result);
    return;
  }
  result->parent = parent;
  parent->addChild(result);
}

}  // namespace fdmorph
