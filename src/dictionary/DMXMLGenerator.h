// The conversion of a data dictionary into a mapping file, an XML Schema and
// an enhanced copybook, one output a call.
//
// The XML outputs share one traversal, getXMLFromDataDict. It calls a writer
// on entering an element and a second time if the writer asks for that; a
// writer leaves its start tag open, and the traversal closes it when the
// element turns out to have children. The walk stops after the first record
// under a container, unless a writer leaves a record aside.
//
// Nothing that is found in a dictionary fails a run: what has no form in the
// output is a warning.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "dictionary/DMXMLCOBOLExternalMapping.h"
#include "dictionary/item_name.h"
#include "xml/DMXMLElement.h"
#include "xml/xml_output.h"

namespace fdmorph {

/// What a writer tells the traversal about an element. The flags keep their
/// values between the two calls, so a writer knows the second by `reenter`.
struct VisitFlags {
  bool closeFirst = false;  ///< the second call comes ahead of the children
  bool reenter = false;     ///< call the writer again
  bool descend = false;     ///< walk the children
};

class CDMXMLGenerator {
 public:
  enum class FILE_TYPE {
    FT_INTERNAL_MAPPING = 0,  ///< service description; always to the console
    FT_EXTERNAL_MAPPING = 1,  ///< mapping file
    FT_XML_SCHEMA = 2,
    FT_ENHANCED_COBOL = 3,
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
  /// the console if it has none or can't be opened, which is reported.
  /// `namePrefix` goes in front of data names, `countInClauses` allows "count
  /// in" clauses. True if the output went to a file.
  bool GenerateFile(std::string const& dataDictFilename, std::string const& mappingFilename,
                    std::string const& schemaFilename, std::string const& cobolFilename,
                    FILE_TYPE type, std::string const& namePrefix, bool countInClauses);

 private:
  /// Returns the indent, in blanks, of the element's children.
  using Writer = unsigned (CDMXMLGenerator::*)(CDMXMLElement const* element, unsigned indent,
                                               VisitFlags& flags);

  void writeOutput(FILE_TYPE type);
  bool getXMLFromDataDict(CDMXMLElement const* element, unsigned indent, Writer writer);
  void visitChildren(CDMXMLElement const* element, unsigned indent, Writer writer);

  // The schema (schema_output.cpp, schema_conditions.cpp).
  unsigned OutputXMLSchemaFileElement(CDMXMLElement const* element, unsigned indent,
                                      VisitFlags& flags);
  unsigned writeSchemaProgram(CDMXMLElement const* element, unsigned indent, VisitFlags& flags);
  unsigned writeSchemaGroup(CDMXMLElement const* element, unsigned indent, VisitFlags& flags);
  void openSchemaGroup(CDMXMLElement const* element, unsigned indent);
  void writeMappedMembers(CDMXMLElement const* element, unsigned indent);
  void writeSchemaItem(CDMXMLElement const* element, unsigned indent, VisitFlags& flags);
  void openSchemaItem(CDMXMLElement const* element, ItemName const& name, unsigned indent);
  void writeFacets(CDMXMLElement const* element, ItemName const& name, unsigned indent);
  void closeSchemaItem(CDMXMLElement const* element, ItemName const& name, unsigned indent);
  void writeNamespace(std::string_view uri, char const* warning);
  void writeOccurrence(CDMXMLElement const* element);
  void writeSchemaConstant(CDMXMLElement const* element, unsigned indent);
  void warnSchemaRange(CDMXMLElement const* element);
  void openRestriction(std::string_view base, unsigned indent);
  void closeRestriction(unsigned indent);

  // The mapping file and the service description.
  unsigned OutputExternalMappingFileElement(CDMXMLElement const* element, unsigned indent,
                                            VisitFlags& flags);
  void writeMappingEntry(CDMXMLElement const* element, std::string_view xmlName,
                         std::string_view xmlType);
  unsigned OutputInternalMappingFileElement(CDMXMLElement const* element, unsigned indent,
                                            VisitFlags& flags);
  unsigned writeService(CDMXMLElement const* element, unsigned indent, VisitFlags& flags);
  unsigned writeServiceGroup(CDMXMLElement const* element, unsigned indent, VisitFlags& flags);
  void writeServiceItem(CDMXMLElement const* element, unsigned indent);
  void openField(CDMXMLElement const* element, std::string_view name, unsigned indent);
  void writeFieldMapping(CDMXMLElement const* element, unsigned indent);

  // The enhanced copybook (enhanced_copybook.cpp).
  bool getEnhancedCOBOLFromDataDict(CDMXMLElement const* element, unsigned level);
  bool writeCopybookItem(CDMXMLElement const* element, unsigned level);
  void appendXmlClauses(CDMXMLElement const* element, std::string& line) const;

  ItemName nameOf(CDMXMLElement const* element) const;

  CDMXMLElement* dataDictionary = nullptr;
  CDMXMLCOBOLExternalMapping const* externalMapping = nullptr;

  // Of the call that is going on.
  std::string prefix;
  std::string dictionaryFilename;
  std::string targetNamespace;  // of the schema, once it is known
  bool countIn = true;
  std::unique_ptr<XmlOutput> m_output;
};

}  // namespace fdmorph
