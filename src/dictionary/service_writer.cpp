// The service description, with nested parameters and fields.

#include "dictionary/dictionary_writer.h"

namespace fdmorph {
namespace {

constexpr std::string_view kDictionaryNamespace =
    "http://www.tallmere.example/schema/xml/v1.0/dmxml.xsd";
constexpr std::string_view kDictionarySchema = "dmxml.xsd";

using enum DATADICT_ELEMENT_TYPE;

bool isParameter(CDMXMLElement const& element) {
  CDMXMLElement const* parent = element.getParent();
  return parent != nullptr && getDataDictElementType(parent) == DD_DATAITEMS;
}

class ServiceWriter : public DictionaryWriter {
 public:
  explicit ServiceWriter(WriterContext const& context) : m_context(context) {}

  Visit enter(CDMXMLElement const& element, unsigned depth) override;
  void leave(CDMXMLElement const& element, unsigned depth) override;

 private:
  Visit enterService(CDMXMLElement const& element, unsigned depth);
  Visit enterGroup(CDMXMLElement const& element, unsigned depth);
  void writeItem(CDMXMLElement const& element, unsigned depth);
  void openField(CDMXMLElement const& element, std::string_view name, unsigned depth);
  void writeFieldMapping(CDMXMLElement const& element, unsigned depth);
  XmlFormatter& xml() const { return m_context.xml; }

  WriterContext m_context;
};

Visit ServiceWriter::enter(CDMXMLElement const& element, unsigned depth) {
  DATADICT_ELEMENT_TYPE kind = getDataDictElementType(&element);
  if (kind == DD_PROGRAM) return enterService(element, depth);
  if (kind == DD_GROUP) return enterGroup(element, depth);
  if (isElementary(kind)) writeItem(element, depth);
  return Visit::skip();
}

void ServiceWriter::leave(CDMXMLElement const& element, unsigned depth) {
  if (getDataDictElementType(&element) == DD_PROGRAM) {
    writeIndent(xml(), depth + kXmlStep) << "</parameterTypeDefs>\n";
    writeIndent(xml(), depth) << "</service>\n";
  } else {
    writeIndent(xml(), depth) << (isParameter(element) ? "</parameter>\n" : "</field>\n");
  }
}

Visit ServiceWriter::enterService(CDMXMLElement const& element, unsigned depth) {
  std::optional<std::string_view> name = attributeOf(&element, "name");
  if (!name) return Visit::skip();
  writeIndent(xml(), depth);
  writeElem(xml(), "service");
  writeAttr(xml(), "xmlns", kDictionaryNamespace);
  writeAttr(xml(), "xmlns:xsi", kInstanceNamespace);
  writeAttr(xml(), "xsi:schemaLocation",
            std::string(kDictionaryNamespace) + " " + std::string(kDictionarySchema));
  writeAttr(xml(), "name", *name);
  writeAttr(xml(), "programName", *name);
  writeAttr(xml(), "dataDictFilename", m_context.dictionaryFile);
  writeAttr(xml(), "implementation", "xml") << ">\n";
  writeIndent(xml(), depth + kXmlStep);
  writeElem(xml(), "parameterTypeDefs");
  if (hasChildren(element)) xml() << ">\n";
  return Visit::around(depth + 2 * kXmlStep);
}

Visit ServiceWriter::enterGroup(CDMXMLElement const& element, unsigned depth) {
  ItemName name;
  name.xmlName = dataNameOf(&element);
  ApplyExternalMappingFile(&element, m_context.mapping, name);
  if (isFiller(name.xmlName)) return Visit::descend(depth);
  openField(element, name.xmlName, depth);
  writeAttr(xml(), "namespace", name.xmlNamespace) << ">\n";
  writeFieldMapping(element, depth);
  if (hasChildren(element)) xml() << ">\n";
  return Visit::around(depth + kXmlStep);
}

// The end tag of a parameter is that of a field, too.
void ServiceWriter::writeItem(CDMXMLElement const& element, unsigned depth) {
  ItemName name = m_context.nameOf(element);
  openField(element, name.xmlName, depth);
  writeAttr(xml(), "dataType", name.xmlType);
  writeAttr(xml(), "namespace", name.xmlNamespace);
  writeAttr(xml(), "isAttribute", name.isAttribute ? "true" : "false") << ">\n";
  writeFieldMapping(element, depth);
  xml() << ">\n";
  writeIndent(xml(), depth) << "</field>\n";
}

void ServiceWriter::openField(CDMXMLElement const& element, std::string_view name, unsigned depth) {
  writeIndent(xml(), depth);
  writeElem(xml(), isParameter(element) ? "parameter" : "field");
  writeAttr(xml(), "name", name);
  if (isParameter(element)) writeAttr(xml(), "byType", "io");
}

// Leaves the last end tag open. A group without members never closes it.
void ServiceWriter::writeFieldMapping(CDMXMLElement const& element, unsigned depth) {
  writeIndent(xml(), depth + kXmlStep) << "<mappings>\n";
  writeIndent(xml(), depth + 2 * kXmlStep);
  writeElem(xml(), "mapping");
  writeAttr(xml(), "item", getQualifiedNameAttr(&element)) << "/>\n";
  writeIndent(xml(), depth + kXmlStep) << "</mappings";
}

}  // namespace

std::unique_ptr<DictionaryWriter> makeServiceWriter(WriterContext const& context) {
  return std::make_unique<ServiceWriter>(context);
}

}  // namespace fdmorph
