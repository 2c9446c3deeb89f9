// The conversion of `union`.

#include <algorithm>
#include <string>
#include <vector>

#include "cobol/conversions.h"
#include "cobol/schema_walker.h"
#include "text/console.h"
#include "text/multibyte.h"

namespace fdmorph {
namespace {

/// The two items of a member under construction.
struct MemberItems {
  CDMCOBOLRecordItem* group;
  CDMCOBOLRecordItem* data;
};

/// Adds the members of one union to the item of the enclosing declaration.
class UnionMembers {
 public:
  UnionMembers(SchemaWalker& walker, CDMXMLElement* element, WalkPosition at)
      : m_walker(walker), m_element(element), m_at(at) {}

  /// Adds the member of a named type. False if there is no such type, which
  /// ends the union.
  [[nodiscard]] bool addNamed(std::string_view type) {
    MemberItems made = make();
    if (m_walker.namespaces().isSupportedDefaultSchemaType(m_element, type)) {
      convertXMLtoCOBOL(made.data, type, m_walker.namespaces());
      setDefaultSize(made.data);
      keep(made);
      return true;
    }
    CDMXMLElement* definition = m_walker.components().findTypeSimpleFirst(m_element, type);
    if (definition == nullptr) {
      err() << "Error : Unable to locate type " << type << " for <union> processing" << endLine;
      drop(made);
      return false;
    }
    made.data = m_walker.walkDefinition(definition, type, m_at.below(made.data)).item;
    keep(made);
    return true;
  }

  /// Adds the member of an inline type. A member that can hold nothing is left
  /// out and uses no number.
  void addInline(CDMXMLElement* simpleType) {
    MemberItems made = make();
    made.data = m_walker.getCOBOLFromSchema(simpleType, m_at.below(made.data)).item;
    if (made.data == nullptr || made.data->pictureSize == "0") {
      drop(made);
    } else {
      keep(made);
    }
  }

 private:
  MemberItems make() {
    RecordBuilder& builder = m_walker.builder();
    MemberItems made{builder.store().create(), builder.store().create()};
    for (CDMCOBOLRecordItem* item : {made.group, made.data}) {
      item->derivationKind = DerivationKind::complexContent;
      item->schemaElement = m_element;
      item->parent = m_at.current;
    }
    made.group->levelNumber = static_cast<int>(m_at.level);
    made.group->indent = static_cast<int>(m_at.indent);
    made.group->redefinedItem = m_previous;
    made.data->levelNumber = made.group->levelNumber + 1;
    made.data->indent = made.group->indent + 1;
    std::string name(m_at.current->dataName);
    builder.setMadeName(made.group, name + "-union-value-" + std::to_string(m_count));
    builder.setMadeName(made.data, std::string(made.group->dataName) + "-data");
    return made;
  }

  void keep(MemberItems const& made) {
    m_previous = made.group;
    ++m_count;
    made.group->addChild(made.data);
    m_at.current->addChild(made.group);
  }

  void drop(MemberItems const& made) {
    m_walker.builder().store().release(made.group);
    m_walker.builder().store().release(made.data);
  }

  SchemaWalker& m_walker;
  CDMXMLElement* m_element;
  WalkPosition m_at;
  CDMCOBOLRecordItem* m_previous = nullptr;  // group of the last member that was kept
  unsigned m_count = 0;                      // members that were kept, and the next number
};

// The names in a `memberTypes` value. The first name is all that precedes the
// last blank, and a second name of one character is ignored. So two names come
// out as expected, and of three or more the first is a text that names no type.
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

void ProcessElementUnion(SchemaWalker& walker, CDMXMLElement* element, WalkPosition at) {
  if (at.current == nullptr) return;
  UnionMembers members(walker, element, at);
  TextPool& texts = walker.builder().store().texts();
  std::string_view memberTypes = findAttrByName(element, "memberTypes").value_or("");
  for (std::string const& type : splitMemberTypes(memberTypes)) {
    if (!members.addNamed(texts.keep(type))) return;
  }
  for (CDMXMLElement* child : element->getChildElements()) {
    if (generatorElementKind(child) == GeneratorElementKind::simpleType) members.addInline(child);
  }
}

}  // namespace fdmorph
