// What the library reads where a resolver finds the files.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/validators/common/Grammar.hpp>

#include "support/captured_console.h"
#include "support/temporary_folder.h"
#include "xml/DMDOMErrorHandler.h"
#include "xml/input_sources.h"

namespace fdmorph {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// Keeps the reports, as the parts of their places.
class Reports : public CDMDOMErrorHandler {
 public:
  void emit(ParserReport const& report) override {
    lines.push_back(report.file + ":" + std::to_string(report.lineNumber) + ":" + report.message);
  }

  std::vector<std::string> lines;
};

class ResolvedSources : public ConsoleTest {
 protected:
  /// Loads the schema as a grammar. The reports.
  std::vector<std::string> load(std::string const& path, LocationResolver& resolver) {
    CDMDOMParser::InitializePlatform();
    InputFiles files;
    Reports errorHandler;
    InputSources sources(files, errorHandler, &resolver);
    xerces::XercesDOMParser parser;
    parser.setDoNamespaces(true);
    parser.setDoSchema(true);
    parser.setErrorHandler(&errorHandler);
    parser.setXMLEntityResolver(&sources);
    parser.loadGrammar(*sources.mainSchema(path, SourceRole::schema),
                       xerces::Grammar::SchemaGrammarType, true);
    return errorHandler.lines;
  }

  std::string write(std::string const& name, std::string const& content,
                    std::string const& head = "") {
    return folder.write(name, head +
                                  "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'"
                                  " xmlns:n='urn:n' targetNamespace='urn:" +
                                  name.substr(0, 1) + "'>" + content + "</xs:schema>\n");
  }

  TemporaryFolder folder;
};

TEST_F(ResolvedSources, FileOfACatalogIsLoaded) {
  write("n.xsd", "<xs:simpleType name='T'><xs:restriction base='xs:int'/></xs:simpleType>");
  std::string const main =
      write("m.xsd",
            "<xs:import namespace='urn:n' schemaLocation='http://nowhere.invalid/x.xsd'/>"
            "<xs:element name='e' type='n:T'/>");
  std::string const catalog =
      folder.write("catalog.xml",
                   "<catalog xmlns='urn:oasis:names:tc:entity:xmlns:xml:catalog'>"
                   "<uri name='urn:n' uri='n.xsd'/></catalog>");
  FileResolver resolver({}, Catalog({catalog}));
  EXPECT_THAT(load(main, resolver), IsEmpty());
}

TEST_F(ResolvedSources, ImportWithoutALocationIsLookedUpByItsNamespace) {
  write("n.xsd", "<xs:simpleType name='T'><xs:restriction base='xs:int'/></xs:simpleType>");
  std::string const main =
      write("m.xsd", "<xs:import namespace='urn:n'/><xs:element name='e' type='n:T'/>");
  std::string const catalog =
      folder.write("catalog.xml",
                   "<catalog xmlns='urn:oasis:names:tc:entity:xmlns:xml:catalog'>"
                   "<uri name='urn:n' uri='n.xsd'/></catalog>");
  FileResolver resolver({}, Catalog({catalog}));
  EXPECT_THAT(load(main, resolver), IsEmpty());
}

TEST_F(ResolvedSources, WhatIsMissingIsReportedAtTheFileThatNeedsIt) {
  std::string const main =
      write("m.xsd",
            "<xs:import namespace='urn:n' schemaLocation='http://nowhere.invalid/x.xsd'/>"
            "<xs:element name='e' type='n:T'/>");
  FileResolver resolver;
  EXPECT_THAT(load(main, resolver), Contains(HasSubstr(main + ":1:")));
}

TEST_F(ResolvedSources, DocumentTypeOfASchemaIsPassedOver) {
  std::string const main = write("m.xsd", "<xs:element name='e' type='xs:int'/>",
                                 "<!DOCTYPE xs:schema PUBLIC '-//W3C//DTD XMLSCHEMA 200102//EN' "
                                 "'http://www.w3.org/2001/XMLSchema.dtd' "
                                 "[<!ENTITY % p 'xs:'>]>\n");
  FileResolver resolver;
  EXPECT_THAT(load(main, resolver), IsEmpty());
}

TEST_F(ResolvedSources, ReportsNameFilesAsTheyWereGiven) {
  WorkingFolder working;
  working.write("m.xsd",
                "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'>\n"
                "<xs:include schemaLocation='n.xsd'/></xs:schema>");
  working.write("n.xsd",
                "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'>\n"
                "<xs:element name='e' type='gone'/></xs:schema>");
  FileResolver resolver;
  EXPECT_THAT(load("m.xsd", resolver), ElementsAre(testing::StartsWith("n.xsd:2:")));
}

}  // namespace
}  // namespace fdmorph
