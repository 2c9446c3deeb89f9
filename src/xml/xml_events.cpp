#include "xml/xml_events.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <xercesc/parsers/SAX2XMLReaderImpl.hpp>
#include <xercesc/sax/Locator.hpp>
#include <xercesc/sax2/Attributes.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "text/utf8.h"
#include "xml/DMDOMErrorHandler.h"
#include "xml/input_sources.h"
#include "xml/schema_grammars.h"

namespace fdmorph {
namespace {

using xerces::XMLUni;

/// Finds nothing.
class NoResolver : public LocationResolver {
 public:
  [[nodiscard]] std::optional<std::string> resolve(LocationReference const& /*unused*/) override {
    return std::nullopt;
  }
};

/// Keeps the first error.
class FirstFault : public CDMDOMErrorHandler {
 public:
  void emit(ParserReport const& report) override {
    if (fault || report.kind != ParserReport::Kind::error) return;
    fault = XmlFault{report.file, static_cast<unsigned>(report.lineNumber),
                     static_cast<unsigned>(report.column), report.message};
  }

  std::optional<XmlFault> fault;
};

/// Translates the events of the library.
class EventReader : public xerces::DefaultHandler {
 public:
  EventReader(XmlEvents& events, InputSources& sources) : m_events(events) {
    m_reader.setContentHandler(this);
    m_reader.setErrorHandler(&sources.errorHandler());
    m_reader.setXMLEntityResolver(&sources);
    m_reader.setFeature(XMLUni::fgSAX2CoreNameSpaces, true);
    m_reader.setFeature(XMLUni::fgSAX2CoreNameSpacePrefixes, true);
    m_reader.setFeature(XMLUni::fgSAX2CoreValidation, false);
    m_reader.setFeature(XMLUni::fgXercesSchema, false);
  }

  void read(xerces::InputSource const& source) { m_reader.parse(source); }

  void setDocumentLocator(xerces::Locator const* locator) override { m_locator = locator; }

  void startElement(XMLCh const* uri, XMLCh const* name, XMLCh const* qualifiedName,
                    xerces::Attributes const& attributes) override {
    XmlTag tag{toLocalText(uri),
               toLocalText(name),
               toLocalText(qualifiedName),
               {},
               static_cast<unsigned>(m_locator->getLineNumber()),
               static_cast<unsigned>(m_locator->getColumnNumber())};
    for (XMLSize_t i = 0; i < attributes.getLength(); ++i) {
      tag.attributes.push_back(
          {toLocalText(attributes.getURI(i)), toLocalText(attributes.getLocalName(i)),
           toLocalText(attributes.getQName(i)), toLocalText(attributes.getValue(i))});
    }
    m_events.startTag(tag);
  }

  void endElement(XMLCh const* /*uri*/, XMLCh const* /*name*/, XMLCh const* /*qname*/) override {
    m_events.endTag();
  }

  void characters(XMLCh const* text, XMLSize_t length) override {
    m_events.text(toLocalText(std::basic_string<XMLCh>(text, length).c_str()));
  }

 private:
  XmlEvents& m_events;
  xerces::SAX2XMLReaderImpl m_reader;
  xerces::Locator const* m_locator = nullptr;
};

}  // namespace

std::optional<std::string_view> XmlTag::attribute(std::string_view wanted) const {
  for (XmlAttribute const& each : attributes) {
    if (each.uri.empty() && each.name == wanted) return each.value;
  }
  return std::nullopt;
}

std::optional<XmlFault> readXml(std::string const& path, XmlEvents& events,
                                LocationResolver* resolver) {
  LibraryUse library;
  NoResolver none;
  InputFiles files;
  FirstFault errorHandler;
  InputSources sources(files, errorHandler, resolver == nullptr ? &none : resolver);
  auto source = sources.document(path);
  std::unique_ptr<ExpansionLimit> limit = sources.beginDocument();
  try {
    EventReader(events, sources).read(*source);
  } catch (xerces::XMLException const& e) {
    if (!errorHandler.fault) errorHandler.fault = XmlFault{path, 0, 0, toLocalText(e.getMessage())};
  }
  std::optional<XmlFault>& fault = errorHandler.fault;
  if (fault && fault->file.empty()) *fault = {path, 0, 0, fault->text};
  return fault;
}

TagPlace beginOfTag(std::string const& path, unsigned line, unsigned column) {
  std::ifstream file(path, std::ios::binary);
  std::string const text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  std::size_t lineBegin = 0;
  for (unsigned passed = 1; passed < line; ++passed) {
    std::size_t end = text.find('\n', lineBegin);
    if (end == text.npos) return {line, column};
    lineBegin = end + 1;
  }
  // The tag ends before the column, in characters. No tag holds a '<'.
  std::size_t end = lineBegin;
  for (unsigned passed = 1; passed < column && end < text.size(); ++passed) {
    ++end;
    while (end < text.size() && isUtf8Continuation(text[end])) ++end;
  }
  std::size_t begin = std::string_view(text).substr(0, end).rfind('<');
  if (end == 0 || text[end - 1] != '>' || begin == text.npos) return {line, column};
  auto lines = std::ranges::count(std::string_view(text).substr(0, begin), '\n');
  std::size_t lastEnd = begin == 0 ? text.npos : text.rfind('\n', begin - 1);
  std::size_t first = lastEnd == text.npos ? 0 : lastEnd + 1;
  auto before = std::ranges::count_if(std::string_view(text).substr(first, begin - first),
                                      [](char c) { return !isUtf8Continuation(c); });
  return {static_cast<unsigned>(lines) + 1, static_cast<unsigned>(before) + 1};
}

}  // namespace fdmorph
