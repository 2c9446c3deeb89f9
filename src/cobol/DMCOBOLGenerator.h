// The conversion of an XML Schema into COBOL record text.
//
// This class is the face of the subsystem. The work is done by the queries on
// the schema (NamespaceLookup, ComponentSearch, SubstitutionGroups,
// findHeadElements), by SchemaWalker, which builds one record at a time, and
// by RecordOutput, which writes it.
#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "cobol/component_search.h"
#include "cobol/head_elements.h"
#include "cobol/namespace_lookup.h"
#include "cobol/record_builder.h"
#include "cobol/record_output.h"
#include "cobol/substitution_groups.h"
#include "schema/DMXMLSchemaDoc.h"

namespace fdmorph {

class CDMCOBOLGenerator {
 public:
  CDMCOBOLGenerator() : CDMCOBOLGenerator(nullptr) {}

  /// Converts `document`, which must be complete and outlive the generator. A
  /// head element whose record exceeds the limits is left out.
  explicit CDMCOBOLGenerator(CDMXMLSchemaDoc const* document, RecordLimits const& limits = {});

  /// Writes the records of the document to the file, or to the console if the
  /// name is empty or the file cannot be opened. `prefix` goes in front of data
  /// names; `countInClauses` and `unique` as in RecordOutput. True if the
  /// output went to a file, whatever became of the conversion.
  bool GenerateFile(std::string const& fileName, std::string const& prefix, bool countInClauses,
                    bool unique);

  /// The global elements that become records. Reports when there is not
  /// exactly one.
  [[nodiscard]] HeadElements getSchemaHeadElement() const;

  /// See the function of this name in record_builder.h.
  bool convertXMLtoCOBOL(CDMCOBOLRecordItem* item, std::string_view typeName) const;

  // Namespaces and types, see NamespaceLookup.

  [[nodiscard]] NamespaceLookup::Namespace getElementNamespace(CDMXMLElement const* element) const {
    return m_namespaces.getElementNamespace(element);
  }
  [[nodiscard]] NamespaceLookup::Namespace getTypeNamespace(CDMXMLElement const* element,
                                                            std::string_view typeName) const {
    return m_namespaces.getTypeNamespace(element, typeName);
  }
  [[nodiscard]] NamespaceLookup::Namespace getNamespaceURI(CDMXMLElement const* element,
                                                           std::string_view attributeName) const {
    return m_namespaces.getNamespaceURI(element, attributeName);
  }
  [[nodiscard]] bool isSupportedDefaultSchemaType(CDMXMLElement const* element,
                                                  std::string_view typeName) const {
    return m_namespaces.isSupportedDefaultSchemaType(element, typeName);
  }
  static GeneratorElementKind getElementType(CDMXMLElement const* element) {
    return generatorElementKind(element);
  }

  // Searches, see ComponentSearch, SubstitutionGroups and recursion.h.

  [[nodiscard]] CDMXMLElement* findElementByName(CDMXMLElement const* element,
                                                 std::string_view name, Search search) const {
    return m_components.findElementByName(element, name, search);
  }
  [[nodiscard]] bool elementHasSubGroup(CDMCOBOLRecordItem const* item) const {
    return !m_substitutions.membersOf(item).empty();
  }
  [[nodiscard]] bool isRecursivePattern(CDMCOBOLRecordItem const* item) const;

  // One-line forms on the standard output stream, for looking at a conversion
  // under a debugger. The bool is false if there was nothing to write.

  static void writeIndent(unsigned count);
  static void writeLevelNumber(unsigned level);
  static bool writeRecordName(std::string const& name);
  static bool writeCOBOLType(std::string const& type);
  static bool writeIdentifiedBy(std::string const& name);
  static void writeIsAttribute(bool isAttribute);
  static void writeRecordItem(std::string const& name, std::string const& identifiedBy,
                              std::string const& type, unsigned level, unsigned indent,
                              bool isAttribute);

  /// Prints a schema tree on the error stream, one line for each element.
  static void dumpElement(CDMXMLElement const* element, bool recurse, std::string const& indent);

 private:
  bool isReady() const;
  void convertSchema(RecordOutput::Options const& options, std::ostream& stream) const;

  CDMXMLSchemaDoc const* schemaDoc;
  RecordLimits m_limits;
  NamespaceLookup m_namespaces;
  ComponentSearch m_components;
  SubstitutionGroups m_substitutions;
};

}  // namespace fdmorph
