// The conversion of a data dictionary into a mapping file, an XML Schema and
// an enhanced copybook, one output a call.
//
// Nothing that is found in a dictionary fails a run: what has no form in the
// output is a warning.
#pragma once

#include <string>

#include "dictionary/DMXMLCOBOLExternalMapping.h"
#include "text/output_file.h"
#include "xml/DMXMLElement.h"

namespace fdmorph {

class CDMXMLGenerator {
 public:
  /// The outputs, numbered from 0: the service description, which always goes
  /// to the console, the mapping file, the XML Schema and the enhanced COBOL.
  enum class FILE_TYPE {
#define FDMORPH_OUTPUT_FORMAT(type, number, name, isXml, factory) type = number,
#include "dictionary/output_formats.def"
#undef FDMORPH_OUTPUT_FORMAT
  };

  CDMXMLGenerator() = default;

  /// `dictionary` is the top node of a dictionary's tree. Neither it nor the
  /// mapping is owned.
  CDMXMLGenerator(CDMXMLElement* dictionary, CDMXMLCOBOLExternalMapping const* mapping);

  /// Sets the dictionary and forgets the mapping; null is ignored.
  void setCOBOLDataDictionary(CDMXMLElement* dictionary);

  /// Sets the mapping that the schema and the copybook follow; null is
  /// ignored.
  void setXMLCOBOLExternalMapping(CDMXMLCOBOLExternalMapping const* mapping);

  /// Forgets dictionary and mapping.
  void Reset();

  /// Writes one output to the file that `type` chooses among the names, or to
  /// the console if it has none or cannot be opened, which is reported. While a
  /// file is written, the standard output stream is redirected to it.
  /// `namePrefix` goes in front of data names, `countInClauses` allows "count
  /// in" clauses. True if the output went to a file.
  bool GenerateFile(std::string const& dataDictFilename, std::string const& mappingFilename,
                    std::string const& schemaFilename, std::string const& cobolFilename,
                    FILE_TYPE type, std::string const& namePrefix, bool countInClauses);

 private:
  static void openOutput(OutputFile& file, std::string const& name);
  void writeOutput(FILE_TYPE type, std::ostream& stream, std::string const& dictionaryFile,
                   std::string const& prefix, bool countIn) const;

  CDMXMLElement* dataDictionary = nullptr;
  CDMXMLCOBOLExternalMapping const* externalMapping = nullptr;
};

}  // namespace fdmorph
