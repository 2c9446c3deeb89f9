// CDMCOBOLGenerator: unions. Each member type gets a group item with one data
// item, and every group after the first redefines the one before it.

#include "cobol/DMCOBOLGenerator.h"
#include "text/console.h"
#include "text/multibyte.h"

namespace fdmorph {

/// The members of one union so far.
struct UnionMembers {
  CDMCOBOLRecordItem* parent;              ///< item of the enclosing declaration
  CDMCOBOLRecordItem* previous = nullptr;  ///< group of the member kept last
  unsigned count = 0;                      ///< members kept, and the next number
};

namespace {

/// The two items of a member under construction.
struct MemberItems {
  CDMCOBOLRecordItem* group;
  CDMCOBOLRecordItem* data;
};

MemberItems makeMember(RecordStore& store, CDMXMLElement* element, UnionMembers const& members,
                       WalkFrame const& frame) {
  MemberItems made{store.create(), store.create()};
  for (CDMCOBOLRecordItem* item : {made.group, made.data}) {
    item->derivationKind = DerivationKind::complexContent;
    item->schemaElement = element;
    item->parent = members.parent;
  }
  made.group->levelNumber = static_cast<int>(frame.level);
  made.group->indent = static_cast<int>(frame.indent);
  made.group->redefinedItem = members.previous;
  made.data->levelNumber = made.group->levelNumber + 1;
  made.data->indent = made.group->indent + 1;
  std::string name(members.parent->dataName);
  name += "-union-value-" + std::to_string(members.count);
  made.group->setCOBOLName(store.texts().keep(name), store.texts());
  made.data->setCOBOLName(store.texts().keep(std::string(made.group->dataName) + "-data"),
                          store.texts());
  return made;
}

void keepMember(MemberItems const& made, UnionMembers& members) {
  members.previous = made.group;
  ++members.count;
  made.group->addChild(made.data);
  members.parent->addChild(made.group);
}

// The names in a `memberTypes` value. The first name is taken as what stands
// before the last blank, and a second one of a single character is not seen:
// two names come out as one would think, and three or more as one text that
// names no type.
std::vector<std::string> splitMemberTypes(std::string_view memberTypes) {
  std::wstring const value = my_mbstowcs(std::string(memberTypes).c_str());
  std::vector<std::string> names;
  std::size_t start = 0;
  std::size_t count = std::min(value.rfind(L' '), value.size());
  while (!value.empty()) {
    names.push_back(my_wcstombs(value.substr(start, count).c_str()));
    start = count + 1;
    std::size_t blank = value.find(L' ', start);
    if (blank == std::wstring::npos && start + 1 >= value.size()) break;
    count = std::min(blank, value.size() - 1);
  }
  return names;
}

}  // namespace

CDMCOBOLRecordItem* CDMCOBOLGenerator::ProcessElementUnion(CDMXMLElement* element,
                                                           WalkFrame& frame) {
  if (frame.slot == nullptr) return nullptr;
  UnionMembers members{frame.slot};
  std::string_view memberTypes;
  findAttrByName(element, "memberTypes", memberTypes);
  for (std::string const& type : splitMemberTypes(memberTypes)) {
    if (!convertNamedMember(element, m_store.texts().keep(type), members, frame)) return nullptr;
  }
  for (CDMXMLElement* child : element->getChildElements()) {
    if (getElementType(child) == GeneratorElementKind::simpleType) {
      convertInlineMember(element, child, members, frame);
    }
  }
  frame.walkChildren = false;
  return members.parent;
}

// False if no such type is known, which ends the union.
bool CDMCOBOLGenerator::convertNamedMember(CDMXMLElement* element, std::string_view type,
                                           UnionMembers& members, WalkFrame const& frame) {
  MemberItems made = makeMember(m_store, element, members, frame);
  if (isSupportedDefaultSchemaType(element, type)) {
    convertXMLtoCOBOL(made.data, type);
    setDefaultSize(made.data);
    keepMember(made, members);
    return true;
  }
  CDMXMLElement* definition = findElementByName(element, type, Search::simpleTypes);
  if (definition == nullptr) definition = findElementByName(element, type, Search::complexTypes);
  if (definition == nullptr) {
    err() << "Error : Unable to locate type " << type << " for <union> processing" << endLine;
    m_store.release(made.group);
    m_store.release(made.data);
    return false;
  }
  ItemSlot slot = made.data;
  made.data = walkDefinition(definition, type, frame.level + 1, frame.indent + 1, slot);
  keepMember(made, members);
  return true;
}

void CDMCOBOLGenerator::convertInlineMember(CDMXMLElement* element, CDMXMLElement* simpleType,
                                            UnionMembers& members, WalkFrame const& frame) {
  MemberItems made = makeMember(m_store, element, members, frame);
  ItemSlot slot = made.data;
  made.data = getCOBOLFromSchema(simpleType, frame.level + 1, frame.indent + 1, slot);
  // A member that can hold nothing is left out and uses no number.
  if (made.data == nullptr || made.data->pictureSize == "0") {
    m_store.release(made.data);
    m_store.release(made.group);
    return;
  }
  keepMember(made, members);
}

}  // namespace fdmorph
