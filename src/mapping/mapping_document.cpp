#include "mapping/mapping_document.h"

#include "dictionary/dictionary_writer.h"
#include "dictionary/mapping_writer.h"

namespace fdmorph::mapping {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

bool isBlank(std::string_view text) {
  return text.find_first_not_of(kBlanks) == text.npos;
}

// fdmorph itself writes a line with a bracket into the entry of an item with
// conditions.
bool isBracket(std::string_view text) {
  std::size_t const begin = text.find_first_not_of(kBlanks);
  return begin != text.npos && text[begin] == '>' && isBlank(text.substr(begin + 1));
}

bool isContainer(std::string_view name) {
  return name == kMappingFileElement || name == kMappingElement;
}

class Reader : public XmlEvents {
 public:
  explicit Reader(std::string_view content) : m_places(content) {}

  void startTag(XmlTag const& tag) override {
    MappingElement& element = m_document.elements.emplace_back();
    element.name = tag.qualifiedName;
    element.uri = tag.uri;
    element.parent = current();
    element.textPlace = endOfMarkup();
    element.place = m_places.beginOf(element.textPlace);
    for (XmlAttribute const& each : tag.attributes) {
      bool const isDeclaration =
          each.qualifiedName == "xmlns" || each.qualifiedName.starts_with("xmlns:");
      if (isDeclaration || each.uri == kInstanceNamespace) continue;
      element.attributes.push_back(each.qualifiedName);
    }
    m_open.push_back(m_document.elements.size() - 1);
  }

  void endTag() override { m_open.pop_back(); }

  void text(std::string_view part) override {
    if (m_open.empty()) return;
    MappingElement& element = m_document.elements[current()];
    if (isContainer(element.name)) {
      if (!isBlank(part) && !isBracket(part)) lose(element);
      return;
    }
    if (!isBlank(element.value)) lose(element);
    element.value = part;
  }

  void section(std::string_view content) override {
    if (!content.empty() && !m_open.empty()) lose(m_document.elements[current()]);
  }

  void remark(std::string_view markup) override {
    std::string_view const opener = markup.substr(0, markup.starts_with("<!--") ? 4 : 2);
    TagPlace const begin = m_places.beginOf(endOfMarkup(), opener);
    m_document.remarks.push_back(
        {std::string(markup), m_document.elements.size(), current(), m_places.isAfterText(begin)});
  }

  MappingDocument release() { return std::move(m_document); }

 private:
  [[nodiscard]] std::size_t current() const { return m_open.empty() ? kNone : m_open.back(); }

  // Of what is lost in an element, the first is told.
  void lose(MappingElement& element) const {
    if (!element.lost) element.lost = endOfMarkup();
  }

  MarkupPlaces m_places;
  MappingDocument m_document;
  std::vector<std::size_t> m_open;
};

}  // namespace

MappingReading readMapping(std::string_view content, std::string const& name) {
  Reader reader(content);
  MappingReading result;
  result.fault = readXmlText(content, name, reader);
  if (!result.fault) result.document = reader.release();
  return result;
}

}  // namespace fdmorph::mapping
