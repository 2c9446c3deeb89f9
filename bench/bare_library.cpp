// What the XML library alone costs for the reads that fdmorph asks of it, so
// that the benchmarks can tell our part of a run from the library's part. The
// settings below have to be those of src/xml/DMDOMParser.cpp.

#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <string_view>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/sax/ErrorHandler.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLException.hpp>
#include <xercesc/util/XMLString.hpp>
#include <xercesc/util/XMLUni.hpp>
#include <xercesc/validators/common/Grammar.hpp>

namespace {

using xercesc::SAX2XMLReader;
using xercesc::SAXParseException;
using xercesc::XercesDOMParser;
using xercesc::XMLPlatformUtils;
using xercesc::XMLUni;

/// Goes on after each report, as fdmorph does, and only counts.
class CountingHandler : public xercesc::ErrorHandler {
 public:
  void warning(SAXParseException const&) override { ++m_count; }
  void error(SAXParseException const&) override { ++m_count; }
  void fatalError(SAXParseException const&) override { ++m_count; }
  void resetErrors() override {}
  int count() const { return m_count; }

 private:
  int m_count = 0;
};

/// The time between the library's start and its end.
class Platform {
 public:
  Platform() { XMLPlatformUtils::Initialize(); }
  ~Platform() { XMLPlatformUtils::Terminate(); }
  Platform(Platform const&) = delete;
  Platform& operator=(Platform const&) = delete;
};

void readSchema(char const* file, CountingHandler& reports) {
  XercesDOMParser parser;
  parser.setDoNamespaces(true);
  parser.setDoSchema(true);
  parser.setIncludeIgnorableWhitespace(false);
  parser.setCreateEntityReferenceNodes(false);
  parser.setErrorHandler(&reports);
  parser.setValidationScheme(XercesDOMParser::Val_Auto);
  parser.loadGrammar(file, xercesc::Grammar::SchemaGrammarType, true);
  parser.parse(file);
}

void readDocument(char const* file, CountingHandler& reports) {
  XercesDOMParser parser;
  parser.setDoNamespaces(true);
  parser.setDoSchema(false);
  parser.setIncludeIgnorableWhitespace(false);
  parser.setCreateEntityReferenceNodes(false);
  parser.setErrorHandler(&reports);
  parser.setValidationScheme(XercesDOMParser::Val_Never);
  parser.parse(file);
}

void checkDocument(char const* file, CountingHandler& reports) {
  std::unique_ptr<SAX2XMLReader> reader(xercesc::XMLReaderFactory::createXMLReader());
  reader->setErrorHandler(&reports);
  reader->setFeature(XMLUni::fgSAX2CoreNameSpaces, true);
  reader->setFeature(XMLUni::fgXercesDynamic, false);
  for (bool validate : {false, true}) {
    reader->setFeature(XMLUni::fgXercesSchema, validate);
    reader->setFeature(XMLUni::fgSAX2CoreValidation, validate);
    reader->parse(file);
  }
}

void parseDocument(char const* file, CountingHandler& reports) {
  std::unique_ptr<SAX2XMLReader> reader(xercesc::XMLReaderFactory::createXMLReader());
  reader->setErrorHandler(&reports);
  reader->setFeature(XMLUni::fgSAX2CoreNameSpaces, true);
  reader->setFeature(XMLUni::fgSAX2CoreValidation, false);
  reader->parse(file);
}

int usage() {
  std::cerr << "Usage: bare_library start | schema FILE... | document FILE... | sax FILE... |\n"
               "       parse FILE...\n";
  return EXIT_FAILURE;
}

int run(int argc, char** argv) {
  std::string_view task = argc > 1 ? argv[1] : "";
  auto* read = task == "schema"     ? readSchema
               : task == "document" ? readDocument
               : task == "sax"      ? checkDocument
               : task == "parse"    ? parseDocument
                                    : nullptr;
  bool needsFiles = read != nullptr;
  if (!needsFiles && task != "start") return usage();
  if ((argc > 2) != needsFiles) return usage();
  Platform platform;
  CountingHandler reports;
  try {
    for (int i = 2; i < argc; ++i) read(argv[i], reports);
  } catch (xercesc::XMLException const& e) {
    // Its text can be read only while the library is up.
    char* message = xercesc::XMLString::transcode(e.getMessage());
    std::cerr << "Exception: " << message << '\n';
    xercesc::XMLString::release(&message);
    return EXIT_FAILURE;
  }
  if (reports.count() == 0) return EXIT_SUCCESS;
  std::cerr << reports.count() << " report(s)\n";
  return EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (std::exception const& e) {
    std::cerr << "Exception: " << e.what() << '\n';
  } catch (...) {
    std::cerr << "Unknown exception\n";
  }
  return EXIT_FAILURE;
}
