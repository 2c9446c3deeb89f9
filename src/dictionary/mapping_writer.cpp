#include "dictionary/mapping_writer.h"

namespace fdmorph {
namespace {

constexpr unsigned kEntryIndent = 3;  // blanks
constexpr unsigned kFieldIndent = 6;

using enum DATADICT_ELEMENT_TYPE;

}  // namespace

MappingTexts defaultTextsOf(CDMXMLElement const& element, bool countIn) {
  std::string_view const name = dataNameOf(&element);
  MappingTexts texts;
  texts[MappingField::key] = getQualifiedNameAttr(&element);
  texts[MappingField::countIn] = countIn ? "true" : "false";
  if (!isFiller(name)) texts[MappingField::name] = name;
  bool const isGroup = getDataDictElementType(&element) == DD_GROUP;
  texts[MappingField::type] = isGroup ? kGroupType : getXmlType(&element);
  texts[MappingField::attribute] = "false";
  return texts;
}

Visit MappingWriter::enter(CDMXMLElement const& element, unsigned depth) {
  if (attributeIs(&element, "redefines", "true")) return Visit::skip();
  DATADICT_ELEMENT_TYPE kind = getDataDictElementType(&element);
  if (kind == DD_PROGRAM) return enterProgram(element, depth);
  if (!isDataItem(kind)) return Visit::skip();
  if (kind == DD_GROUP && isFiller(dataNameOf(&element))) {
    visitFillerGroup(element);
    return Visit::descend(kEntryIndent);
  }
  visitItem(element, defaultTextsOf(element, m_countIn));
  return Visit::descend(kEntryIndent);
}

void MappingWriter::leave(CDMXMLElement const& /*element*/, unsigned depth) {
  visitEnd();
  writeIndent(m_xml, depth) << "</" << kMappingFileElement << ">\n";
}

Visit MappingWriter::enterProgram(CDMXMLElement const& element, unsigned depth) {
  writeIndent(m_xml, depth);
  writeElem(m_xml, kMappingFileElement);
  writeAttr(m_xml, "xmlns", kMappingNamespace);
  writeAttr(m_xml, "xmlns:xsi", kInstanceNamespace);
  writeAttr(m_xml, "xsi:schemaLocation",
            std::string(kMappingNamespace) + " " + std::string(kMappingSchema));
  if (hasChildren(element)) m_xml << ">\n";
  return Visit::around(depth);
}

// An elementary item closes the last end tag here, and so does every item with
// children. An elementary item with conditions does both, so a line with a
// second ">" follows; a group without members does neither.
void MappingWriter::writeEntry(CDMXMLElement const& element, MappingTexts const& texts) {
  beginEntry(texts);
  if (getDataDictElementType(&element) != DD_GROUP) m_xml << ">\n";
  if (hasChildren(element)) m_xml << ">\n";
  endEntry();
}

void MappingWriter::beginEntry(MappingTexts const& texts) {
  writeIndent(m_xml, kEntryIndent) << "<" << kMappingElement << ">\n";
  for (std::size_t i = 0; i < kMappingFields; ++i) {
    std::string_view const name = kMappingFieldNames[i];
    writeIndent(m_xml, kFieldIndent) << "<" << name << ">" << texts.all[i] << "</" << name;
    if (i + 1 < kMappingFields) m_xml << ">\n";
  }
}

void MappingWriter::endEntry() {
  writeIndent(m_xml, kEntryIndent) << "</" << kMappingElement << ">\n";
}

std::unique_ptr<DictionaryWriter> makeMappingWriter(WriterContext const& context) {
  return std::make_unique<MappingWriter>(context);
}

}  // namespace fdmorph
