#include "cobol/schema_walker.h"

#include "text/console.h"
#include "text/status_line.h"

namespace fdmorph {
namespace {

using Scope = OpenDefinitions::Scope;

constexpr unsigned kFirstLevel = 1;
constexpr unsigned kFirstIndent = 7;  // level numbers begin in column 8, area A

}  // namespace

CDMCOBOLRecordItem* SchemaWalker::buildRecord(CDMXMLElement* head) {
  m_open.note(head);
  return getCOBOLFromSchema(head, {nullptr, kFirstLevel, kFirstIndent}).item;
}

void SchemaWalker::endRecord() {
  m_builder.store().clear();
  m_open.clear();
  m_memberParents.clear();
}

bool SchemaWalker::admits(CDMXMLElement const* declaration, CDMCOBOLRecordItem const* current) {
  if (m_filter == nullptr || current == nullptr) return true;
  return RecordBuilder::isCompletedBy(declaration, current) ||
         m_filter->admits(declaration, itemsFrom(current));
}

bool SchemaWalker::admitsMember(CDMXMLElement const* member, CDMCOBOLRecordItem const* parent) {
  if (m_filter == nullptr) return true;
  return parent != nullptr && m_filter->admits(member, itemsFrom(parent));
}

// The item of a member has no parent yet. The items above it are those from the
// noted one on.
ItemsAbove SchemaWalker::itemsFrom(CDMCOBOLRecordItem const* item) {
  m_above.clear();
  std::size_t outer = m_memberParents.size();
  while (item != nullptr) {
    m_above.push_back(item);
    item = item->parent;
    if (item == nullptr && outer > 0) item = m_memberParents[--outer];
  }
  return m_above;
}

Visit SchemaWalker::getCOBOLFromSchema(CDMXMLElement* element, WalkPosition at) {
  if (element == nullptr) return {nullptr, at.current};
  statusLine.poll();
  Conversion const conversion = dispatch(element, at);
  if (conversion.item == nullptr) return {nullptr, m_builder.prune(element, conversion.current)};
  if (conversion.nextElement != nullptr) return followNextElement(conversion, at);
  Visit visit{conversion.item, conversion.current};
  if (!conversion.walkChildren) return visit;
  visit = visitChildren(element, visit, at.below(nullptr, conversion.addedLevels));
  m_builder.moveValueToChild(element, visit.current);
  return visit;
}

Conversion SchemaWalker::dispatch(CDMXMLElement* element, WalkPosition at) {
  using Kind = GeneratorElementKind;
  switch (generatorElementKind(element)) {
    case Kind::element:
      return ProcessElementElement(*this, element, at);
    case Kind::attribute:
      return ProcessAttributeElement(*this, element, at);
    case Kind::attributeGroup:
    case Kind::group:
    case Kind::sequence:
    case Kind::choice:
    case Kind::unionOf:
    case Kind::list:
    case Kind::all:
    case Kind::any:
    case Kind::anyAttribute:
      return ProcessModelGroup(*this, element, at);
    case Kind::extension:
      return ProcessElementExtension(*this, element, at);
    case Kind::restriction:
      return ProcessElementRestriction(*this, element, at);
    case Kind::simpleType:
    case Kind::complexType:
    case Kind::simpleContent:
    case Kind::complexContent:
      return enterTypeDefinition(element, at);
    default:
      // Annotations, keys and the like have no COBOL form.
      return Conversion::done(at.current, at.current);
  }
}

Conversion SchemaWalker::enterTypeDefinition(CDMXMLElement* element, WalkPosition at) {
  CDMCOBOLRecordItem* item = at.current;
  if (item != nullptr && item->typeElement == nullptr) item->typeElement = element;
  CDMXMLElement const* parent = element->getParent();
  if (element->getFirstChildElem() == nullptr && parent != nullptr) {
    if (auto name = findAttrByName(parent, "name")) {
      reportUnconstrainedType(*name);
      return Conversion::failed(item);
    }
  }
  if (item != nullptr && findAttrByName(element, "mixed") == "true") m_builder.addMixedValue(item);
  return Conversion::children(item, item);
}

// The visit replaces that of the children. If the current item is the one of
// the conversion, what takes the place of the one also replaces the other.
Visit SchemaWalker::followNextElement(Conversion const& conversion, WalkPosition at) {
  m_builder.store().countReference();
  Scope scope(m_open, conversion.nextElement, Hop::guarded, conversion.item);
  CDMCOBOLRecordItem* item =
      getCOBOLFromSchema(conversion.nextElement, at.below(conversion.item, conversion.addedLevels))
          .current;
  return {item, conversion.current == conversion.item ? item : conversion.current};
}

// The items are compared for each child anew: a child can end the item, and
// then the item's parent takes its place.
Visit SchemaWalker::visitChildren(CDMXMLElement const* element, Visit visit, WalkPosition at) {
  for (CDMXMLElement* child = element->getFirstChildElem(); child != nullptr;
       child = child->getNextSibling()) {
    bool isCurrent = visit.current == visit.item;
    visit.item = getCOBOLFromSchema(child, at.below(visit.item, 0)).current;
    if (isCurrent) visit.current = visit.item;
  }
  return visit;
}

Visit SchemaWalker::walkDefinition(CDMXMLElement* definition, std::string_view name,
                                   WalkPosition at) {
  m_builder.store().countReference();
  if (!m_open.mayFollow(definition, Hop::unguarded, at.current)) {
    reportRecursion(name);
    return {nullptr, at.current};
  }
  Scope scope(m_open, definition, Hop::unguarded, at.current);
  return getCOBOLFromSchema(definition, at);
}

void reportRecursion(std::string_view name) {
  err() << "Error : Cannot convert recursive reference of " << name << " to COBOL record"
        << endLine;
}

void reportMissingReference(std::string_view name) {
  err() << "Error : Cannot find referenced element " << name
        << ".  Element will not be converted to COBOL record item." << endLine;
}

void reportUnconstrainedType(std::string_view name) {
  err() << "Warning : Cannot convert unconstrained type \"" << name
        << "\" to a valid COBOL data item. "
        << "An XML Schema element requires a type=\"...\" attribute "
        << "for successful conversion." << endLine;
}

}  // namespace fdmorph
