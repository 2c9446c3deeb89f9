#include "xml/DMDOMParser.h"

#include <iostream>
#include <xercesc/dom/DOMException.hpp>
#include <xercesc/framework/XMLFormatter.hpp>
#include <xercesc/parsers/SAX2XMLReaderImpl.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/SecurityManager.hpp>
#include <xercesc/util/XMLUni.hpp>
#include <xercesc/validators/common/Grammar.hpp>
#include <xercesc/validators/schema/SchemaValidator.hpp>

#include "text/console.h"
#include "xml/DMDOMErrorHandler.h"
#include "xml/DMDOMFormatTarget.h"
#include "xml/entity_guard.h"
#include "xml/transcoding.h"

namespace fdmorph {

using xerces::DOMException;
using xerces::XercesDOMParser;
using xerces::XMLException;
using xerces::XMLPlatformUtils;
using xerces::XMLUni;

namespace {

// A document that means well stays far below this many entity expansions.
constexpr XMLSize_t kEntityExpansionLimit = 50'000;

}  // namespace

void CDMDOMParser::InitializePlatform() {
  try {
    XMLPlatformUtils::Initialize();
  } catch (XMLException const& e) {
    std::cerr << "Error during Xerces-c Initialization. Exception message: "
              << toLocalText(e.getMessage()) << std::endl;
  }
}

CDMDOMParser::CDMDOMParser(CDMXMLNodeStore& store) : m_store(store) {
  InitializePlatform();
  m_pParser = std::make_unique<XercesDOMParser>();
  InitializeParser();
}

CDMDOMParser::CDMDOMParser(CDMXMLNodeStore& store, xerces::SchemaValidator& validator)
    : m_store(store) {
  InitializePlatform();
  m_pParser = std::make_unique<XercesDOMParser>(&validator);
  InitializeParser();
}

CDMDOMParser::~CDMDOMParser() {
  try {
    m_pFormatter.reset();
    m_pFormatTarget.reset();
    m_pReader.reset();
    m_pParser.reset();
    m_pGuard.reset();
    m_pErrorHandler.reset();
    m_pSecurity.reset();
    XMLPlatformUtils::Terminate();
  } catch (XMLException const& e) {
    std::cerr << "Error during Xerces-c termination. Exception message: "
              << toLocalText(e.getMessage()) << std::endl;
  }
}

void CDMDOMParser::InitializeParser() {
  m_pSecurity = std::make_unique<xerces::SecurityManager>();
  m_pSecurity->setEntityExpansionLimit(kEntityExpansionLimit);
  m_pParser->setSecurityManager(m_pSecurity.get());
  m_pParser->setDoNamespaces(true);
  m_pParser->setDoSchema(true);
  m_pParser->setIncludeIgnorableWhitespace(false);
  m_pParser->setCreateEntityReferenceNodes(false);
  m_pErrorHandler = std::make_unique<CDMDOMErrorHandler>();
  m_pParser->setErrorHandler(m_pErrorHandler.get());
  m_pErrorHandler->setVerboseError(true);
  m_pGuard = std::make_unique<EntityGuard>(*m_pErrorHandler, *m_pSecurity);
  m_pParser->setXMLEntityResolver(m_pGuard.get());
  m_bParsed = false;
}

void CDMDOMParser::announceSchema(std::string const& fileName) {
  std::cout << "\nValidating " << fileName << " for well-formedness." << std::endl;
}

bool CDMDOMParser::ParseFile(std::string const& fileName, FILE_TYPE type, bool validate) {
  if (type == FILE_TYPE::XML_SCHEMA) {
    announceSchema(fileName);
    if (!loadSchemaGrammar(fileName)) return false;
  } else {
    m_pParser->setDoSchema(validate);
    m_pParser->setValidationScheme(validate ? XercesDOMParser::Val_Always
                                            : XercesDOMParser::Val_Never);
  }
  m_bParsed = parseGuarded(fileName);
  return m_bParsed;
}

// False ends the parse before it begins: a schema must load without a single
// report, and counts of earlier parses weigh as much as its own.
bool CDMDOMParser::loadSchemaGrammar(std::string const& fileName) {
  m_pParser->setValidationScheme(XercesDOMParser::Val_Auto);
  try {
    if (!m_pGuard->admits(fileName)) return false;
    m_pParser->loadGrammar(toLibraryText(fileName).c_str(), xerces::Grammar::SchemaGrammarType,
                           true);
  } catch (XMLException const& e) {
    reportException("Error : Unable to load schema " + fileName + ": " +
                    toLocalText(e.getMessage()));
  } catch (...) {
    reportException("Error : Unable to load schema " + fileName);
  }
  return nothingCounted();
}

// Nothing of a schema survives a grammar that the library gave up on, so this
// one counts, unlike an exception of the parse itself.
void CDMDOMParser::reportException(std::string const& line) {
  m_pErrorHandler->emit({ParserReport::Kind::error, line});
}

bool CDMDOMParser::parseGuarded(std::string const& fileName) {
  using Kind = ParserReport::Kind;
  try {
    m_pParser->parse(fileName.c_str());
    return m_pParser->getErrorCount() == 0;
  } catch (XMLException const& e) {
    m_pErrorHandler->emit({Kind::uncounted, "An error occured during parsing. Exception Message: " +
                                                toLocalText(e.getMessage())});
    return true;
  } catch (DOMException const& e) {
    m_pErrorHandler->emit(
        {Kind::uncounted, "A DOM error occured during parsing. DOMException code: " +
                              std::to_string(static_cast<int>(e.code))});
    return false;
  } catch (...) {
    m_pErrorHandler->emit({Kind::uncounted, "An error occured during parsing"});
    return false;
  }
}

void CDMDOMParser::CheckDocument(std::string const& fileName, bool validate) {
  if (m_pReader == nullptr) {
    m_pReader = std::make_unique<xerces::SAX2XMLReaderImpl>();
    m_pReader->setErrorHandler(m_pErrorHandler.get());
    m_pReader->setXMLEntityResolver(m_pGuard.get());
    m_pReader->setProperty(XMLUni::fgXercesSecurityManager, m_pSecurity.get());
    m_pReader->setFeature(XMLUni::fgSAX2CoreNameSpaces, true);
    m_pReader->setFeature(XMLUni::fgXercesDynamic, false);
  }
  m_pReader->setFeature(XMLUni::fgXercesSchema, validate);
  m_pReader->setFeature(XMLUni::fgSAX2CoreValidation, validate);
  using Kind = ParserReport::Kind;
  try {
    m_pReader->parse(fileName.c_str());
  } catch (XMLException const& e) {
    m_pErrorHandler->emit({Kind::uncounted, "An error occured during parsing. Exception Message: " +
                                                toLocalText(e.getMessage())});
  } catch (...) {
    m_pErrorHandler->emit({Kind::uncounted, "An error occured during parsing"});
  }
}

int CDMDOMParser::getErrorCount() const {
  return m_pErrorHandler == nullptr ? 1 : console.m_nErrorCount;
}

int CDMDOMParser::getWarningCount() const {
  return m_pErrorHandler == nullptr ? 1 : console.m_nWarningCount;
}

void CDMDOMParser::setVerboseError(bool verbose) {
  m_pErrorHandler->setVerboseError(verbose);
}

void CDMDOMParser::DisplayErrorSummary() {
  m_pErrorHandler->DisplayErrorMsgSummary();
}

void CDMDOMParser::recordReports(std::vector<ParserReport>* record) {
  m_pErrorHandler->recordReports(record);
}

}  // namespace fdmorph
