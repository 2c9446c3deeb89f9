#include "xml/document_validator.h"

#include <new>
#include <optional>
#include <unordered_map>
#include <utility>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/SAX2XMLReaderImpl.hpp>
#include <xercesc/sax/ErrorHandler.hpp>
#include <xercesc/sax/SAXException.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "xml/schema_grammars.h"

namespace fdmorph {
namespace {

using xerces::XMLUni;
using Name = std::basic_string<XMLCh>;

/// Finds nothing.
class NoFiles : public LocationResolver {
 public:
  [[nodiscard]] std::optional<std::string> resolve(LocationReference const& /*unused*/) override {
    return std::nullopt;
  }
};

/// Only counts faults, which is faster than to know their places.
class FaultCounter : public xerces::ErrorHandler {
 public:
  void warning(xerces::SAXParseException const& /*unused*/) override {}
  void error(xerces::SAXParseException const& /*unused*/) override { m_hasFault = true; }
  void fatalError(xerces::SAXParseException const& /*unused*/) override { m_hasFault = true; }
  void resetErrors() override {}

  void begin() { m_hasFault = false; }
  [[nodiscard]] bool hasFault() const { return m_hasFault; }

 private:
  bool m_hasFault = false;
};

/// Collects faults with their places. The library reports what is wrong with a start tag
/// before the event of the tag, and what is wrong with the content of an element before
/// the event of its end: a fault belongs to the element of the next event.
class FaultCollector : public xerces::DefaultHandler {
 public:
  explicit FaultCollector(std::size_t most) : m_most(most) {}

  void startElement(XMLCh const* uri, XMLCh const* name, XMLCh const* /*qname*/,
                    xerces::Attributes const& /*unused*/) override {
    Name key = Name(uri) + u' ' + name;
    std::uint64_t index = m_open.empty() ? 0 : m_open.back().children[std::move(key)]++;
    m_open.push_back({{toUtf8(name), index}, m_result.elements++, {}});
    placeFaults();
  }

  void endElement(XMLCh const* /*uri*/, XMLCh const* /*name*/, XMLCh const* /*qname*/) override {
    placeFaults();
    m_open.pop_back();
  }

  void error(xerces::SAXParseException const& e) override { add(toUtf8(e.getMessage())); }
  void fatalError(xerces::SAXParseException const& e) override { add(toUtf8(e.getMessage())); }

  void add(std::string text) {
    if (m_result.faults.size() < m_most) m_result.faults.push_back({std::move(text), {}, 0});
  }

  [[nodiscard]] ValidatedDocument take() {
    placeFaults();
    return std::move(m_result);
  }

 private:
  struct Open {
    DocumentStep step;
    std::uint64_t number;
    std::unordered_map<Name, std::uint64_t> children;  // how many so far, by name
  };

  void placeFaults() {
    for (; m_placed < m_result.faults.size(); ++m_placed) {
      if (m_open.empty()) continue;
      DocumentFault& fault = m_result.faults[m_placed];
      for (Open const& each : m_open) fault.path.push_back(each.step);
      fault.element = m_open.back().number;
    }
  }

  std::size_t m_most;
  std::vector<Open> m_open;
  ValidatedDocument m_result;
  std::size_t m_placed = 0;  // faults whose places are known
};

}  // namespace

class DocumentValidator::Impl {
 public:
  Impl(std::string const& fileName, std::unique_ptr<LocationResolver> resolver)
      : m_resolver(std::move(resolver)), m_grammars(fileName, m_files, m_resolver.get()) {}

  bool load() {
    if (!m_grammars.load()) return false;
    makeReader();
    return true;
  }

  [[nodiscard]] std::vector<SchemaReport> reports() const { return m_grammars.reports(); }

  ValidatedDocument validate(std::string_view document, std::size_t most) {
    m_counter.begin();
    m_reader->setContentHandler(nullptr);
    m_reader->setErrorHandler(&m_counter);
    std::optional<std::string> failure = parse(document);
    if (!failure && !m_counter.hasFault()) return {};
    FaultCollector collector(most);
    m_reader->setContentHandler(&collector);
    m_reader->setErrorHandler(&collector);
    failure = parse(document);
    if (failure) collector.add(*failure);
    return collector.take();
  }

 private:
  void makeReader() {
    m_reader = std::make_unique<xerces::SAX2XMLReaderImpl>(
        xerces::XMLPlatformUtils::fgMemoryManager, &m_grammars.pool());
    m_reader->setXMLEntityResolver(&m_sources);
    m_reader->setFeature(XMLUni::fgSAX2CoreNameSpaces, true);
    m_reader->setFeature(XMLUni::fgSAX2CoreValidation, true);
    m_reader->setFeature(XMLUni::fgXercesDynamic, false);
    m_reader->setFeature(XMLUni::fgXercesSchema, true);
    m_reader->setFeature(XMLUni::fgXercesLoadSchema, false);
    m_reader->setFeature(XMLUni::fgXercesLoadExternalDTD, false);
    m_reader->setFeature(XMLUni::fgXercesUseCachedGrammarInParse, true);
    m_reader->setFeature(XMLUni::fgXercesCacheGrammarFromParse, false);
  }

  // What ends a parse that no handler was told of.
  std::optional<std::string> parse(std::string_view document) {
    xerces::MemBufInputSource source(reinterpret_cast<XMLByte const*>(document.data()),
                                     document.size(), u"document");
    source.setEncoding(XMLUni::fgUTF8EncodingString);
    source.setCopyBufToStream(false);
    try {
      m_reader->parse(source);
    } catch (xerces::XMLException const& e) {
      return toUtf8(e.getMessage());
    } catch (xerces::SAXException const& e) {
      return toUtf8(e.getMessage());
    } catch (xerces::OutOfMemoryException const&) {
      throw std::bad_alloc();
    }
    return std::nullopt;
  }

  std::unique_ptr<LocationResolver> m_resolver;
  InputFiles m_files;
  SchemaGrammars m_grammars;
  NoFiles m_noFiles;
  ReportCollector m_refusals;
  InputSources m_sources{m_files, m_refusals, &m_noFiles};
  FaultCounter m_counter;
  std::unique_ptr<xerces::SAX2XMLReaderImpl> m_reader;
};

DocumentValidator::DocumentValidator(std::unique_ptr<Impl> impl) : m_impl(std::move(impl)) {}
DocumentValidator::~DocumentValidator() = default;

LoadedValidator DocumentValidator::load(std::string const& fileName,
                                        std::unique_ptr<LocationResolver> resolver) {
  auto impl = std::make_unique<Impl>(fileName, std::move(resolver));
  bool const isLoaded = impl->load();
  LoadedValidator loaded;
  loaded.reports = impl->reports();
  if (isLoaded) loaded.validator.reset(new DocumentValidator(std::move(impl)));
  return loaded;
}

ValidatedDocument DocumentValidator::validate(std::string_view document, std::size_t most) {
  return m_impl->validate(document, most);
}

}  // namespace fdmorph
