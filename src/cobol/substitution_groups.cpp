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
  item = visitChildren(head, item, frame.level + 1, frame.indent + 1, frame.slot);
  for (CDMXMLElement* member : members) {
    // A member whose content leads back to its head would be walked for ever.
    if (!m_openMembers.insert(member).second) continue;
    walkMember(member, item, use, frame);
    m_openMembers.erase(member);
  }
  return item;
}

void CDMCOBOLGenerator::walkMember(CDMXMLElement* member, CDMCOBOLRecordItem* headItem,
                                   MemberResult use, WalkFrame& frame) {
  if (frame.slot != headItem) {
    // The member hangs itself under the slot's item, and is listed there once
    // more, so that it is written twice.
    CDMCOBOLRecordItem* result =
        getCOBOLFromSchema(member, frame.level, frame.indent, frame.slot);
    bool isListed = use == MemberResult::listedAgain && result != nullptr &&
                    frame.slot != nullptr && result != frame.slot;
    if (isListed) frame.slot->addChild(result);
    return;
  }
  // The slot is taken by the head itself: the member becomes its sibling, and
  // where the head has none, has no place in the record.
  ItemSlot ownSlot = nullptr;
  CDMCOBOLRecordItem* result = getCOBOLFromSchema(member, frame.level, frame.indent, ownSlot);
  if (result == nullptr) return;
  CDMCOBOLRecordItem* parent = headItem == nullptr ? nullptr : headItem->parent;
  if (parent == nullptr) {
    m_store.release(result);
    return;
  }
  result->parent = parent;
  parent->addChild(result);
}

}  // namespace fdmorph
