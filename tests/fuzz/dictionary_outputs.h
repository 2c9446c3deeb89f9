// The outputs of a data dictionary, for fuzz targets.
#pragma once

#include <optional>
#include <string>

#include "dictionary/DMXMLGenerator.h"
#include "fuzz_input.h"
#include "xml/DMDOMParser.h"

namespace fdmorph {

inline constexpr char kDictionaryFile[] = "main.xml";
inline constexpr char kMappingFile[] = "map.xml";
inline constexpr char kWrittenMappingFile[] = "written.xml";
inline constexpr char kWrittenSchemaFile[] = "written.xsd";
inline constexpr char kWrittenCopybookFile[] = "written.cpy";

/// Reads main.xml and, if `isMapped`, map.xml, and writes all four outputs; the
/// service description goes to the console. Nothing happens if the dictionary
/// is no document.
inline void writeDictionaryOutputs(bool isMapped, std::string const& prefix, bool countIn) {
  using Parser = CDMDOMParser;
  using Type = CDMXMLGenerator::FILE_TYPE;
  CDMXMLNodeStore store;
  Parser parser(store);
  if (!parser.ParseFile(kDictionaryFile, Parser::FILE_TYPE::XML_DOCUMENT, false)) return;
  CDMXMLGenerator generator;
  generator.setCOBOLDataDictionary(parser.getXMLDocument());
  CDMXMLCOBOLExternalMapping mapping;
  Parser mappingParser(store);
  if (isMapped && mappingParser.ParseFile(kMappingFile, Parser::FILE_TYPE::XML_DOCUMENT, false)) {
    CDMXMLElement const* top = mappingParser.getXMLDocument();
    if (top != nullptr) mapping.Initialize(top, nullptr);
    generator.setXMLCOBOLExternalMapping(&mapping);
  }
  for (Type type : {Type::FT_INTERNAL_MAPPING, Type::FT_EXTERNAL_MAPPING, Type::FT_XML_SCHEMA,
                    Type::FT_ENHANCED_COBOL}) {
    generator.GenerateFile(kDictionaryFile, kWrittenMappingFile, kWrittenSchemaFile,
                           kWrittenCopybookFile, type, prefix, countIn);
  }
}

}  // namespace fdmorph
