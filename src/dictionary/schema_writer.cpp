// The XML Schema. The record becomes one global element, each group a nested
// anonymous complex type, each elementary item a nested anonymous simple type.

#include "dictionary/dictionary_writer.h"
#include "dictionary/schema_content.h"
#include "text/console.h"

namespace fdmorph {
namespace {

constexpr std::string_view kXmlSchemaNamespace = "http://www.w3.org/2001/XMLSchema";

using enum DATADICT_ELEMENT_TYPE;

CDMXMLElement const* firstRecord(CDMXMLElement const& program) {
  for (CDMXMLElement const* child : program.getChildElements()) {
    if (getDataDictElementType(child) == DD_DATAITEMS) return child->getFirstChildElem();
  }
  return nullptr;
}

std::string_view tagOf(ItemName const& name) {
  return name.isAttribute ? "attribute" : "element";
}

class SchemaWriter : public DictionaryWriter {
 public:
  explicit SchemaWriter(WriterContext const& context) : m_context(context) {}

  Visit enter(CDMXMLElement const& element, unsigned depth) override;
  void leave(CDMXMLElement const& element, unsigned depth) override;

 private:
  Visit enterProgram(CDMXMLElement const& element, unsigned depth);
  Visit enterGroup(CDMXMLElement const& element, unsigned depth);
  void openGroup(CDMXMLElement const& element, unsigned depth);
  void leaveGroup(CDMXMLElement const& element, unsigned depth);
  void writeMappedMembers(CDMXMLElement const& element, unsigned depth);
  Visit enterItem(CDMXMLElement const& element, unsigned depth);
  void writeNamespace(std::string_view uri, char const* warning);
  void writeOccurrence(CDMXMLElement const& element);
  void warnOfRange(CDMXMLElement const& element);
  XmlFormatter& xml() const { return m_context.xml; }

  WriterContext m_context;
  std::string m_targetNamespace;  // known from the program on
};

Visit SchemaWriter::enter(CDMXMLElement const& element, unsigned depth) {
  // The writer of the copybook warns about the item that is left out here.
  if (attributeIs(&element, "redefines", "true")) return Visit::skip();
  DATADICT_ELEMENT_TYPE kind = getDataDictElementType(&element);
  if (kind == DD_PROGRAM) return enterProgram(element, depth);
  if (kind == DD_GROUP) return enterGroup(element, depth);
  if (isElementary(kind)) return enterItem(element, depth);
  if (isConstant(kind)) writeEnumeration(xml(), element, depth);
  if (isRange(kind)) warnOfRange(element);
  return Visit::skip();
}

void SchemaWriter::leave(CDMXMLElement const& element, unsigned depth) {
  DATADICT_ELEMENT_TYPE kind = getDataDictElementType(&element);
  if (kind == DD_PROGRAM) {
    writeIndent(xml(), depth) << "</schema>\n";
  } else if (kind == DD_GROUP) {
    leaveGroup(element, depth);
  } else {
    ItemName name = m_context.nameOf(element);
    closeItemContent(xml(), element, name, tagOf(name), depth);
  }
}

Visit SchemaWriter::enterProgram(CDMXMLElement const& element, unsigned depth) {
  writeIndent(xml(), depth);
  writeElem(xml(), "schema");
  writeAttr(xml(), "xmlns", kXmlSchemaNamespace);
  writeAttr(xml(), "elementFormDefault", "qualified");
  if (CDMXMLElement const* record = firstRecord(element)) {
    ItemName name;
    ApplyExternalMappingFile(record, m_context.mapping, name);
    if (!name.xmlNamespace.empty()) {
      writeAttr(xml(), "targetNamespace", name.xmlNamespace);
      m_targetNamespace = name.xmlNamespace;
    }
  }
  if (hasChildren(element)) xml() << ">\n";
  return Visit::around(depth + kXmlStep);
}

// A filler group writes nothing: its members become members of the group around
// it. The start tag of a group without members is never closed.
Visit SchemaWriter::enterGroup(CDMXMLElement const& element, unsigned depth) {
  if (isFiller(dataNameOf(&element))) return Visit::descend(depth);
  openGroup(element, depth);
  unsigned memberDepth = depth + 3 * kXmlStep;
  if (!hasChildren(element)) return Visit::around(memberDepth);
  xml() << ">\n";
  writeIndent(xml(), depth + kXmlStep) << "<complexType>\n";
  if (m_context.mapping != nullptr) {
    writeMappedMembers(element, depth);
    return Visit::skip();
  }
  writeIndent(xml(), depth + 2 * kXmlStep) << "<sequence>\n";
  return Visit::around(memberDepth);
}

void SchemaWriter::openGroup(CDMXMLElement const& element, unsigned depth) {
  ItemName name;
  name.xmlName = dataNameOf(&element);
  ApplyExternalMappingFile(&element, m_context.mapping, name);
  writeIndent(xml(), depth);
  writeElem(xml(), "element");
  writeAttr(xml(), "name", name.xmlName);
  writeNamespace(name.xmlNamespace,
                 "Warning : The generated schema requires an <import> for reference of "
                 "definitions in the ");
  writeOccurrence(element);
  bool isSubordinate = getDataDictElementType(element.getParent()) == DD_GROUP;
  if (isSubordinate && !attributeOf(&element, "maxOccurs")) {
    writeAttr(xml(), "maxOccurs", "unbounded");
  }
}

void SchemaWriter::leaveGroup(CDMXMLElement const& element, unsigned depth) {
  if (hasChildren(element)) {
    writeIndent(xml(), depth + 2 * kXmlStep) << "</sequence>\n";
    writeIndent(xml(), depth + kXmlStep) << "</complexType>\n";
  }
  writeIndent(xml(), depth) << "</element>\n";
}

// Attributes must come after the elements, so the members are walked twice. The
// flag is one variable for both passes: a member without an entry uses that of
// the member before it.
void SchemaWriter::writeMappedMembers(CDMXMLElement const& element, unsigned depth) {
  ItemName flag;
  bool hasSequence = false;
  for (CDMXMLElement const* child : element.getChildElements()) {
    ApplyExternalMappingFile(child, m_context.mapping, flag);
    if (flag.isAttribute) continue;
    if (!hasSequence) writeIndent(xml(), depth + 2 * kXmlStep) << "<sequence>\n";
    hasSequence = true;
    walkDictionary(*child, depth + 3 * kXmlStep, *this);
  }
  if (hasSequence) writeIndent(xml(), depth + 2 * kXmlStep) << "</sequence>\n";
  for (CDMXMLElement const* child : element.getChildElements()) {
    ApplyExternalMappingFile(child, m_context.mapping, flag);
    if (flag.isAttribute) walkDictionary(*child, depth + 2 * kXmlStep, *this);
  }
  writeIndent(xml(), depth + kXmlStep) << "</complexType>\n";
  writeIndent(xml(), depth) << "</element>\n";
}

Visit SchemaWriter::enterItem(CDMXMLElement const& element, unsigned depth) {
  ItemName name = m_context.nameOf(element);
  if (name.xmlName.empty()) return Visit::skip();
  writeIndent(xml(), depth);
  writeElem(xml(), tagOf(name));
  writeAttr(xml(), "name", name.xmlName);
  writeNamespace(name.xmlNamespace,
                 "Warning : The generated schema requires an <import> statement for the "
                 "reference of definitions in the ");
  writeOccurrence(element);
  openItemContent(xml(), element, name, depth);
  return Visit::around(depth);
}

void SchemaWriter::writeNamespace(std::string_view uri, char const* warning) {
  if (uri.empty() || uri == m_targetNamespace) return;
  writeAttr(xml(), "xmlns", uri);
  xml().flush();
  err() << warning << uri << " namespace." << endLine;
  err() << "Warning : The generated schema is invalid for the XML instance document represented "
           "by the generated COBOL XD."
        << endLine;
}

// A table of a fixed size gets equal bounds.
void SchemaWriter::writeOccurrence(CDMXMLElement const& element) {
  std::optional<std::string_view> minOccurs = attributeOf(&element, "minOccurs");
  std::optional<std::string_view> maxOccurs = attributeOf(&element, "maxOccurs");
  if (!minOccurs) minOccurs = maxOccurs;
  if (minOccurs) writeAttr(xml(), "minOccurs", *minOccurs);
  if (maxOccurs) writeAttr(xml(), "maxOccurs", *maxOccurs);
}

void SchemaWriter::warnOfRange(CDMXMLElement const& element) {
  CDMXMLElement const* condition = element.getParent();
  if (condition == nullptr) return;
  std::optional<std::string_view> name = attributeOf(condition, "name");
  if (!name) return;
  xml().flush();
  err() << "Warning : Data range specifier \"" << *name << "\" is not supported by FDMORPH."
        << endLine;
  err() << "Warning : Due to non-support of data range specifiers, enumerators will not be "
           "generated for the parent element of data-range \""
        << *name << "\"" << endLine;
}

}  // namespace

std::unique_ptr<DictionaryWriter> makeSchemaWriter(WriterContext const& context) {
  return std::make_unique<SchemaWriter>(context);
}

}  // namespace fdmorph
