#include "xml/DMDOMParser.h"

#include <iostream>
#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMException.hpp>
#include <xercesc/parsers/SAX2XMLReaderImpl.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLUni.hpp>
#include <xercesc/validators/common/Grammar.hpp>
#include <xercesc/validators/schema/SchemaValidator.hpp>

#include "text/console.h"
#include "text/status_line.h"
#include "xml/DMDOMErrorHandler.h"
#include "xml/input_sources.h"
#include "xml/network.h"
#include "xml/polling_memory.h"
#include "xml/transcoding.h"
#include "xml/tree_building.h"

namespace fdmorph {

using xerces::DOMException;
using xerces::XercesDOMParser;
using xerces::XMLException;
using xerces::XMLPlatformUtils;
using xerces::XMLUni;

namespace {

using Kind = ParserReport::Kind;

MessageKind messageKindOf(Kind kind) {
  switch (kind) {
    case Kind::warning:
      return MessageKind::warning;
    case Kind::error:
      return MessageKind::error;
    case Kind::uncounted:
      break;
  }
  return MessageKind::status;
}

}  // namespace

/// The objects of the XML library that one parser uses.
class CDMDOMParser::Library {
 public:
  /// The library's parser adopts `validator`, if there is one.
  Library(InputFiles& files, xerces::SchemaValidator* validator);
  ~Library();
  Library(Library const&) = delete;
  Library& operator=(Library const&) = delete;

  XercesDOMParser& parser() { return *m_pParser; }
  CDMDOMErrorHandler& errorHandler() { return *m_pErrorHandler; }
  InputSources& sources() { return *m_pSources; }

  /// Loads the grammar of a schema. False if anything at all has been counted
  /// by then.
  bool loadSchemaGrammar(std::string const& fileName);

  /// Parses into the parser's document. False if the document cannot be used.
  bool parse(std::string const& fileName, FILE_TYPE type);

  /// Parses without a document.
  void check(std::string const& fileName, bool validate);

 private:
  void InitializeParser();
  void makeReader();
  void report(Kind kind, std::string const& line) { m_pErrorHandler->emit({kind, line, false}); }

  std::unique_ptr<CDMDOMErrorHandler> m_pErrorHandler = std::make_unique<CDMDOMErrorHandler>();
  std::unique_ptr<InputSources> m_pSources;
  std::unique_ptr<XercesDOMParser> m_pParser;
  std::unique_ptr<xerces::SAX2XMLReaderImpl> m_pReader;  // made by the first check
};

CDMDOMParser::Library::Library(InputFiles& files, xerces::SchemaValidator* validator)
    : m_pSources(std::make_unique<InputSources>(files, *m_pErrorHandler)) {
  InitializePlatform();
  m_pParser = std::make_unique<XercesDOMParser>(validator);
  InitializeParser();
}

CDMDOMParser::Library::~Library() {
  try {
    m_pReader.reset();
    m_pParser.reset();
    m_pSources.reset();
    m_pErrorHandler.reset();
    XMLPlatformUtils::Terminate();
  } catch (XMLException const& e) {
    std::cerr << "Error during Xerces-c termination. Exception message: "
              << toLocalText(e.getMessage()) << std::endl;
  }
}

void CDMDOMParser::Library::InitializeParser() {
  m_pParser->setDoNamespaces(true);
  m_pParser->setDoSchema(true);
  m_pParser->setIncludeIgnorableWhitespace(false);
  m_pParser->setCreateEntityReferenceNodes(false);
  m_pParser->setErrorHandler(m_pErrorHandler.get());
  m_pErrorHandler->setVerboseError(true);
  m_pParser->setXMLEntityResolver(m_pSources.get());
}

// A schema must load without a single report. The counts of earlier parses
// matter as much as its own.
bool CDMDOMParser::Library::loadSchemaGrammar(std::string const& fileName) {
  m_pParser->setValidationScheme(XercesDOMParser::Val_Auto);
  m_pErrorHandler->beginParse();
  // After an exception there is no grammar, so the exception counts as an error,
  // unlike one of a parse.
  try {
    auto source = m_pSources->mainSchema(fileName, SourceRole::schema);
    SchemaReferences& references = m_pSources->files().references();
    std::string const& name = m_pSources->nameOf(source->getSystemId());
    if (references.isCovered(name)) return nothingCounted();
    references.beginLoad(name);
    std::size_t const reportsBefore = m_pErrorHandler->reports();
    m_pParser->loadGrammar(*source, xerces::Grammar::SchemaGrammarType, true);
    if (m_pErrorHandler->reports() == reportsBefore) {
      references.endCleanLoad(
          [this](std::string const& member) { return m_pSources->namespaceOf(member); });
    }
  } catch (XMLException const& e) {
    report(Kind::error,
           "Error : Unable to load schema " + fileName + ": " + toLocalText(e.getMessage()));
  } catch (...) {
    report(Kind::error, "Error : Unable to load schema " + fileName);
  }
  return nothingCounted();
}

bool CDMDOMParser::Library::parse(std::string const& fileName, FILE_TYPE type) {
  m_pErrorHandler->beginParse();
  try {
    auto source = type == FILE_TYPE::XML_SCHEMA
                      ? m_pSources->mainSchema(fileName, SourceRole::document)
                      : m_pSources->document(fileName);
    std::unique_ptr<ExpansionLimit> limit = m_pSources->beginDocument();
    m_pParser->parse(*source);
    return m_pParser->getErrorCount() == 0;
  } catch (XMLException const& e) {
    report(Kind::uncounted,
           "An error occured during parsing. Exception Message: " + toLocalText(e.getMessage()));
    return true;
  } catch (DOMException const& e) {
    report(Kind::uncounted, "A DOM error occured during parsing. DOMException code: " +
                                std::to_string(static_cast<int>(e.code)));
    return false;
  } catch (...) {
    report(Kind::uncounted, "An error occured during parsing");
    return false;
  }
}

void CDMDOMParser::Library::makeReader() {
  m_pReader = std::make_unique<xerces::SAX2XMLReaderImpl>();
  m_pReader->setErrorHandler(m_pErrorHandler.get());
  m_pReader->setXMLEntityResolver(m_pSources.get());
  m_pReader->setFeature(XMLUni::fgSAX2CoreNameSpaces, true);
  m_pReader->setFeature(XMLUni::fgXercesDynamic, false);
}

void CDMDOMParser::Library::check(std::string const& fileName, bool validate) {
  if (m_pReader == nullptr) makeReader();
  m_pReader->setFeature(XMLUni::fgXercesSchema, validate);
  m_pReader->setFeature(XMLUni::fgSAX2CoreValidation, validate);
  m_pErrorHandler->beginParse();
  try {
    auto source = m_pSources->document(fileName);
    std::unique_ptr<ExpansionLimit> limit = m_pSources->beginDocument();
    m_pReader->parse(*source);
  } catch (XMLException const& e) {
    report(Kind::uncounted,
           "An error occured during parsing. Exception Message: " + toLocalText(e.getMessage()));
  } catch (...) {
    report(Kind::uncounted, "An error occured during parsing");
  }
}

void CDMDOMParser::InitializePlatform() {
  try {
    static PollingMemory memory;  // in use up to the last Terminate
    XMLPlatformUtils::Initialize(XMLUni::fgXercescDefaultLocale, nullptr, nullptr,
                                 statusLine.isStarted() ? &memory : nullptr);
    installExpansionCounter();
    installNetworkRules();
  } catch (XMLException const& e) {
    std::cerr << "Error during Xerces-c Initialization. Exception message: "
              << toLocalText(e.getMessage()) << std::endl;
  }
}

CDMDOMParser::CDMDOMParser(CDMXMLNodeStore& store)
    : m_store(store),
      m_ownFiles(std::make_unique<InputFiles>()),
      m_library(std::make_unique<Library>(*m_ownFiles, nullptr)) {}

CDMDOMParser::CDMDOMParser(CDMXMLNodeStore& store, InputFiles& files)
    : m_store(store), m_library(std::make_unique<Library>(files, nullptr)) {}

template <typename Validator>
CDMDOMParser::CDMDOMParser(CDMXMLNodeStore& store, Validator& validator)
    : m_store(store),
      m_ownFiles(std::make_unique<InputFiles>()),
      m_library(std::make_unique<Library>(*m_ownFiles, &validator)) {}

template CDMDOMParser::CDMDOMParser(CDMXMLNodeStore& store, xerces::SchemaValidator& validator);

CDMDOMParser::~CDMDOMParser() = default;

void CDMDOMParser::announceSchema(std::string const& fileName) {
  std::cout << "\nValidating " << fileName << " for well-formedness." << std::endl;
}

void CDMDOMParser::prepareFiles() {
  if (m_ownFiles != nullptr) m_ownFiles->clear();
}

bool CDMDOMParser::ParseFile(std::string const& fileName, FILE_TYPE type, bool validate) {
  prepareFiles();
  if (type == FILE_TYPE::XML_SCHEMA) {
    announceSchema(fileName);
    statusLine.beginStep("checking", fileName, StepUnit::files);
    if (!m_library->loadSchemaGrammar(fileName)) return false;
  } else {
    statusLine.beginStep("reading", fileName, StepUnit::bytes);
    XercesDOMParser& parser = m_library->parser();
    parser.setDoSchema(validate);
    parser.setValidationScheme(validate ? XercesDOMParser::Val_Always : XercesDOMParser::Val_Never);
  }
  m_bParsed = m_library->parse(fileName, type);
  return m_bParsed;
}

void CDMDOMParser::CheckDocument(std::string const& fileName, bool validate) {
  prepareFiles();
  statusLine.beginStep("checking", fileName, StepUnit::bytes);
  m_library->check(fileName, validate);
}

CDMXMLElement* CDMDOMParser::getXMLDocument() {
  xerces::DOMDocument const* document = m_library->parser().getDocument();
  if (!m_bParsed || document == nullptr) return nullptr;
  try {
    return TreeBuilder(m_store).build(*document);
  } catch (XMLException const& e) {
    std::cerr << "An error occurred during creation of output transcoder. Msg is: "
              << toLocalText(e.getMessage()) << std::endl;
    return nullptr;
  }
}

void CDMDOMParser::releaseDocument() {
  m_library->parser().resetDocumentPool();
  m_library->parser().resetCachedGrammarPool();
  m_bParsed = false;
}

int CDMDOMParser::getErrorCount() const {
  return console.m_nErrorCount;
}

int CDMDOMParser::getWarningCount() const {
  return console.m_nWarningCount;
}

void CDMDOMParser::setVerboseError(bool verbose) {
  m_library->errorHandler().setVerboseError(verbose);
}

void CDMDOMParser::DisplayErrorSummary() {
  m_library->errorHandler().DisplayErrorMsgSummary();
}

void CDMDOMParser::setExpansionLimits(ExpansionLimits limits) {
  m_library->sources().setLimits(limits);
}

void CDMDOMParser::recordReports(std::vector<ParserReport>* record) {
  m_library->errorHandler().recordReports(record);
}

void printReport(ParserReport const& report) {
  Shown shown = report.isLimit ? Shown::always : Shown::whileFew;
  if (countMessage(messageKindOf(report.kind), shown)) std::cerr << report.line << std::endl;
}

bool nothingCounted() {
  return console.m_nErrorCount == 0 && console.m_nWarningCount == 0;
}

}  // namespace fdmorph
