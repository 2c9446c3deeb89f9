// The mapping file. Entries are flat: a group's entry is closed before its
// members are walked.

#include "dictionary/dictionary_writer.h"

namespace fdmorph {
namespace {

constexpr unsigned kEntryIndent = 3;  // blanks
constexpr unsigned kFieldIndent = 6;
constexpr std::string_view kMappingNamespace =
    "http://www.tallmere.example/schema/xml/v1.0/dmxmlmap.xsd";
constexpr std::string_view kMappingSchema = "dmxmlmap.xsd";

using enum DATADICT_ELEMENT_TYPE;

class MappingWriter : public DictionaryWriter {
 public:
  explicit MappingWriter(WriterContext const& context)
      : m_xml(context.xml), m_countIn(context.countIn) {}

  Visit enter(CDMXMLElement const& element, unsigned depth) override;

  /// Only the program is left.
  void leave(CDMXMLElement const& /*element*/, unsigned depth) override {
    writeIndent(m_xml, depth) << "</xml-cobol-mapping-file>\n";
  }

 private:
  Visit enterProgram(CDMXMLElement const& element, unsigned depth);
  void writeField(std::string_view name, std::string_view text);
  void writeEntry(CDMXMLElement const& element, std::string_view xmlName, std::string_view xmlType);

  XmlFormatter& m_xml;
  bool m_countIn;
};

Visit MappingWriter::enter(CDMXMLElement const& element, unsigned depth) {
  if (attributeIs(&element, "redefines", "true")) return Visit::skip();
  DATADICT_ELEMENT_TYPE kind = getDataDictElementType(&element);
  if (kind == DD_PROGRAM) return enterProgram(element, depth);
  if (!isDataItem(kind)) return Visit::skip();
  std::string_view name = dataNameOf(&element);
  if (kind == DD_GROUP) {
    if (!isFiller(name)) writeEntry(element, name, "group");
  } else {
    writeEntry(element, isFiller(name) ? std::string_view() : name, getXmlType(&element));
  }
  return Visit::descend(kEntryIndent);
}

Visit MappingWriter::enterProgram(CDMXMLElement const& element, unsigned depth) {
  writeIndent(m_xml, depth);
  writeElem(m_xml, "xml-cobol-mapping-file");
  writeAttr(m_xml, "xmlns", kMappingNamespace);
  writeAttr(m_xml, "xmlns:xsi", kInstanceNamespace);
  writeAttr(m_xml, "xsi:schemaLocation",
            std::string(kMappingNamespace) + " " + std::string(kMappingSchema));
  if (hasChildren(element)) m_xml << ">\n";
  return Visit::around(depth);
}

void MappingWriter::writeField(std::string_view name, std::string_view text) {
  writeIndent(m_xml, kFieldIndent) << "<" << name << ">" << text << "</" << name << ">\n";
}

// An elementary item closes the last end tag here, and so does every item with
// children. An elementary item with conditions does both, so a line with a
// second ">" follows; a group without members does neither.
void MappingWriter::writeEntry(CDMXMLElement const& element, std::string_view xmlName,
                               std::string_view xmlType) {
  writeIndent(m_xml, kEntryIndent) << "<xml-cobol-mapping>\n";
  writeField("cobol-name", getQualifiedNameAttr(&element));
  writeField("cobol-count-in", m_countIn ? "true" : "false");
  writeField("xml-name", xmlName);
  writeField("xml-type", xmlType);
  writeField("xml-attribute", "false");
  writeIndent(m_xml, kFieldIndent) << "<xml-namespace></xml-namespace";
  if (getDataDictElementType(&element) != DD_GROUP) m_xml << ">\n";
  if (hasChildren(element)) m_xml << ">\n";
  writeIndent(m_xml, kEntryIndent) << "</xml-cobol-mapping>\n";
}

}  // namespace

std::unique_ptr<DictionaryWriter> makeMappingWriter(WriterContext const& context) {
  return std::make_unique<MappingWriter>(context);
}

}  // namespace fdmorph
