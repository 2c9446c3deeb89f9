// The verdict of the XML library by itself, without any of our code between it
// and the file. Its settings have to be those of src/xml/DMDOMParser.cpp.
//
//   library_verdict {schema|document} FILE
//
// prints the number of errors and the number of warnings.

#include <cstdlib>
#include <iostream>
#include <memory>
#include <string_view>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/sax/ErrorHandler.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/SecurityManager.hpp>
#include <xercesc/util/XMLException.hpp>
#include <xercesc/util/XMLNetAccessor.hpp>
#include <xercesc/util/XMLUni.hpp>
#include <xercesc/validators/common/Grammar.hpp>

namespace {

using xercesc::XercesDOMParser;
using xercesc::XMLException;
using xercesc::XMLUni;

constexpr XMLSize_t kEntityExpansionLimit = 50'000;

/// A network in which no host can be reached.
class Unreachable : public xercesc::XMLNetAccessor {
 public:
  XMLCh const* getId() const override { return XMLUni::fgZeroLenString; }
  xercesc::BinInputStream* makeNew(xercesc::XMLURL const& url,
                                   xercesc::XMLNetHTTPInfo const* /*info*/) override {
    ThrowXMLwithMemMgr1(xercesc::NetAccessorException, xercesc::XMLExcepts::NetAcc_ConnSocket,
                        url.getURLText(), url.getMemoryManager());
  }
};

/// Counts what is reported, and goes on after each report.
class Counter : public xercesc::ErrorHandler {
 public:
  void warning(xercesc::SAXParseException const& /*report*/) override { ++warnings; }
  void error(xercesc::SAXParseException const& /*report*/) override { ++errors; }
  void fatalError(xercesc::SAXParseException const& /*report*/) override { ++errors; }
  void resetErrors() override {}

  int errors = 0;
  int warnings = 0;
};

// A schema is parsed as a document once its grammar is loaded without a report.
void readSchema(char const* file, xercesc::SecurityManager& security, Counter& counter) {
  XercesDOMParser parser;
  parser.setSecurityManager(&security);
  parser.setDoNamespaces(true);
  parser.setDoSchema(true);
  parser.setIncludeIgnorableWhitespace(false);
  parser.setCreateEntityReferenceNodes(false);
  parser.setErrorHandler(&counter);
  parser.setValidationScheme(XercesDOMParser::Val_Auto);
  try {
    parser.loadGrammar(file, xercesc::Grammar::SchemaGrammarType, true);
  } catch (XMLException const&) {
    ++counter.errors;
  }
  if (counter.errors == 0 && counter.warnings == 0) parser.parse(file);
}

// A document is read twice, for its form and for its schema.
void readDocument(char const* file, xercesc::SecurityManager& security, Counter& counter) {
  std::unique_ptr<xercesc::SAX2XMLReader> reader(xercesc::XMLReaderFactory::createXMLReader());
  reader->setErrorHandler(&counter);
  reader->setProperty(XMLUni::fgXercesSecurityManager, &security);
  reader->setFeature(XMLUni::fgSAX2CoreNameSpaces, true);
  reader->setFeature(XMLUni::fgXercesDynamic, false);
  for (bool validate : {false, true}) {
    reader->setFeature(XMLUni::fgXercesSchema, validate);
    reader->setFeature(XMLUni::fgSAX2CoreValidation, validate);
    try {
      reader->parse(file);
    } catch (XMLException const&) {
      continue;  // printed by fdmorph, but not counted
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  std::string_view const kind = argc == 3 ? argv[1] : "";
  if (kind != "schema" && kind != "document") {
    std::cerr << "Usage: library_verdict {schema|document} FILE\n";
    return EXIT_FAILURE;
  }
  xercesc::XMLPlatformUtils::Initialize();
  delete xercesc::XMLPlatformUtils::fgNetAccessor;
  xercesc::XMLPlatformUtils::fgNetAccessor = new Unreachable;
  Counter counter;
  {
    xercesc::SecurityManager security;
    security.setEntityExpansionLimit(kEntityExpansionLimit);
    try {
      (kind == "schema" ? readSchema : readDocument)(argv[2], security, counter);
    } catch (XMLException const&) {  // as above
    }
  }
  xercesc::XMLPlatformUtils::Terminate();
  std::cout << counter.errors << ' ' << counter.warnings << '\n';
  return EXIT_SUCCESS;
}
