#include "xml/xml_events.h"

#include <fstream>
#include <iterator>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/SAX2XMLReaderImpl.hpp>
#include <xercesc/sax/Locator.hpp>
#include <xercesc/sax2/Attributes.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/util/XMLUni.hpp>

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
    m_reader.setLexicalHandler(this);
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
    TagPlace const end = beginMarkup();
    XmlTag tag{toUtf8(uri), toUtf8(name), toUtf8(qualifiedName), {}, end.line, end.column};
    for (XMLSize_t i = 0; i < attributes.getLength(); ++i) {
      tag.attributes.push_back({toUtf8(attributes.getURI(i)), toUtf8(attributes.getLocalName(i)),
                                toUtf8(attributes.getQName(i)), toUtf8(attributes.getValue(i))});
    }
    m_events.startTag(tag);
  }

  void endElement(XMLCh const* /*uri*/, XMLCh const* /*name*/, XMLCh const* /*qname*/) override {
    beginMarkup();
    m_events.endTag();
  }

  // The library hands a long text over in pieces, which may end within a character.
  void characters(XMLCh const* text, XMLSize_t length) override { m_text.append(text, length); }

  void comment(XMLCh const* text, XMLSize_t /*length*/) override {
    if (m_isInDocumentType) return;
    beginMarkup();
    m_events.remark("<!--" + toUtf8(text) + "-->");
  }

  void processingInstruction(XMLCh const* target, XMLCh const* data) override {
    if (m_isInDocumentType) return;
    beginMarkup();
    std::string const text = toUtf8(data);
    m_events.remark("<?" + toUtf8(target) + (text.empty() ? "" : " ") + text + "?>");
  }

  void startCDATA() override { beginMarkup(); }

  void endCDATA() override {
    m_events.section(toUtf8(m_text.c_str()));
    m_text.clear();
    m_events.setEndOfMarkup(here());
  }

  void startDTD(XMLCh const* /*name*/, XMLCh const* /*publicId*/,
                XMLCh const* /*systemId*/) override {
    m_isInDocumentType = true;
  }
  void endDTD() override { m_isInDocumentType = false; }

 private:
  [[nodiscard]] TagPlace here() const {
    return {static_cast<unsigned>(m_locator->getLineNumber()),
            static_cast<unsigned>(m_locator->getColumnNumber())};
  }

  // Hands the text before the markup over. Returns where the markup ends.
  TagPlace beginMarkup() {
    if (!m_text.empty()) m_events.text(toUtf8(m_text.c_str()));
    m_text.clear();
    m_events.setEndOfMarkup(here());
    return m_events.endOfMarkup();
  }

  XmlEvents& m_events;
  xerces::SAX2XMLReaderImpl m_reader;
  xerces::Locator const* m_locator = nullptr;
  std::basic_string<XMLCh> m_text;  // since the last markup
  bool m_isInDocumentType = false;
};

/// What a reading needs. The files are those of the disk.
struct Reading {
  explicit Reading(LocationResolver* resolver)
      : sources(files, errorHandler, resolver == nullptr ? &none : resolver) {}

  // The first fault. Never ends by an exception.
  std::optional<XmlFault> read(xerces::InputSource const& source, std::string const& name,
                               XmlEvents& events) {
    std::unique_ptr<ExpansionLimit> const limit = sources.beginDocument();
    std::optional<XmlFault>& fault = errorHandler.fault;
    try {
      EventReader(events, sources).read(source);
    } catch (xerces::XMLException const& e) {
      if (!fault) fault = XmlFault{name, 0, 0, toLocalText(e.getMessage())};
    }
    if (fault && fault->file.empty()) *fault = {name, 0, 0, fault->text};
    return fault;
  }

  NoResolver none;
  InputFiles files;
  FirstFault errorHandler;
  InputSources sources;
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
  LibraryUse const library;
  Reading reading(resolver);
  auto const source = reading.sources.document(path);
  return reading.read(*source, path, events);
}

std::optional<XmlFault> readXmlText(std::string_view content, std::string const& name,
                                    XmlEvents& events) {
  LibraryUse const library;
  Reading reading(nullptr);
  xerces::MemBufInputSource const source(reinterpret_cast<XMLByte const*>(content.data()),
                                         content.size(), toLibraryText(name).c_str());
  std::optional<XmlFault> fault = reading.read(source, name, events);
  if (fault) fault->file = name;
  return fault;
}

TagPlace beginOfTag(std::string const& path, unsigned line, unsigned column) {
  std::ifstream file(path, std::ios::binary);
  std::string const text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  return MarkupPlaces(text).beginOf({line, column});
}

}  // namespace fdmorph
