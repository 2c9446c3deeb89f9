#include "dictionary/DMXMLGenerator.h"

#include <algorithm>
#include <array>

#include "dictionary/dictionary_writer.h"
#include "text/console.h"
#include "text/status_line.h"

namespace fdmorph {
namespace {

/// The names of the output files. Outputs on the console have none.
struct OutputNames {
  std::string console;
  std::string mapping;
  std::string schema;
  std::string copybook;
};

struct OutputFormat {
  CDMXMLGenerator::FILE_TYPE type;
  std::string OutputNames::*name;
  bool isXml;
  WriterFactory* makeWriter;
};

constexpr std::array kFormats{
#define FDMORPH_OUTPUT_FORMAT(type, number, name, isXml, factory) \
  OutputFormat{CDMXMLGenerator::FILE_TYPE::type, &OutputNames::name, isXml, factory},
#include "dictionary/output_formats.def"
#undef FDMORPH_OUTPUT_FORMAT
};

// Null for a number that no output has.
OutputFormat const* formatOf(CDMXMLGenerator::FILE_TYPE type) {
  auto found = std::find_if(kFormats.begin(), kFormats.end(),
                            [type](OutputFormat const& each) { return each.type == type; });
  return found == kFormats.end() ? nullptr : &*found;
}

}  // namespace

CDMXMLGenerator::CDMXMLGenerator(CDMXMLElement* dictionary,
                                 CDMXMLCOBOLExternalMapping const* mapping) {
  setCOBOLDataDictionary(dictionary);
  setXMLCOBOLExternalMapping(mapping);
}

void CDMXMLGenerator::setCOBOLDataDictionary(CDMXMLElement* dictionary) {
  if (dictionary == nullptr) return;
  dataDictionary = dictionary;
  externalMapping = nullptr;
}

void CDMXMLGenerator::setXMLCOBOLExternalMapping(CDMXMLCOBOLExternalMapping const* mapping) {
  if (mapping != nullptr) externalMapping = mapping;
}

void CDMXMLGenerator::Reset() {
  dataDictionary = nullptr;
  externalMapping = nullptr;
}

bool CDMXMLGenerator::GenerateFile(std::string const& dataDictFilename,
                                   std::string const& mappingFilename,
                                   std::string const& schemaFilename,
                                   std::string const& cobolFilename, FILE_TYPE type,
                                   std::string const& namePrefix, bool countInClauses) {
  if (dataDictionary == nullptr) {
    err() << "Invalid COBOL Data Dictionary" << endLine;
    return false;
  }
  CDMDOMFormatTarget* target = dataDictionary->getFormatTarget();
  if (target == nullptr) {
    err() << "Invalid XML Target Formatter" << endLine;
    return false;
  }
  OutputNames names{"", mappingFilename, schemaFilename, cobolFilename};
  OutputFormat const* format = formatOf(type);
  OutputFile file;
  std::string const& name = format == nullptr ? names.console : names.*(format->name);
  openOutput(file, name);
  statusLine.beginStep("writing", name, StepUnit::items);
  target->setTarget(file.stream());
  writeOutput(type, file.stream(), dataDictFilename, namePrefix, countInClauses);
  target->restoreTarget();
  if (!file.isOpen()) return false;
  file.close();
  return true;
}

void CDMXMLGenerator::openOutput(OutputFile& file, std::string const& name) {
  if (name.empty()) {
    err() << "Invalid filename.  Outputting XML to console:" << endLine << endLine;
  } else if (file.open(name)) {
    file.aimStandardOutput();
  } else {
    err() << "Unable to open output file " << name << endLine
          << "Outputting XML to stdout by default" << endLine << endLine;
  }
}

void CDMXMLGenerator::writeOutput(FILE_TYPE type, std::ostream& stream,
                                  std::string const& dictionaryFile, std::string const& prefix,
                                  bool countIn) const {
  XmlFormatter& xml = *dataDictionary->getXMLFormatter();
  OutputFormat const* format = formatOf(type);
  xml.begin();
  if (format == nullptr || format->isXml) writeXmlDeclaration(xml);
  if (format == nullptr) {
    xml.flush();
    err() << "Invalid File Type Selection for XML Output" << endLine;
  } else {
    WriterContext context{xml, stream, externalMapping, dictionaryFile, prefix, countIn};
    walkDictionary(*dataDictionary, 0, *format->makeWriter(context));
  }
  xml.end();
}

}  // namespace fdmorph
