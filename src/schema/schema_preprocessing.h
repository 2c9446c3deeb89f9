// The flattening of a schema that is spread over files.
//
// Included and redefined files are flattened: their global components become
// children of the main document's root. Imported files stay documents of their
// own, which are found by namespace. All files of a run work for one main
// document, however deep they are nested.
#pragma once

#include <list>
#include <string>
#include <vector>

#include "schema/DMXMLSchemaDoc.h"
#include "schema/file_circles.h"
#include "schema/schema_loader.h"

namespace fdmorph {

/// A schema and the documents that it imports, directly or through others.
/// `main.importedSchemas` points to them, so a set is moved and not copied.
struct SchemaSet {
  SchemaSet() = default;
  SchemaSet(SchemaSet&&) = default;
  SchemaSet& operator=(SchemaSet&&) = default;

  CDMXMLSchemaDoc main;
  std::list<CDMXMLSchemaDoc> imported;
};

/// Reads the files that a schema refers to. A missing or invalid file only
/// lacks its components; the loader has reported it.
class SchemaPreprocessing {
 public:
  /// `loader` brings the files. It must outlive this object.
  explicit SchemaPreprocessing(SchemaLoader& loader) : m_loader(loader) {}

  /// The schema whose tree has the top node `element` (null: the document
  /// stays empty). `path` is its full path, the base of relative locations. To be
  /// called once.
  [[nodiscard]] SchemaSet PreProcessSchema(CDMXMLElement* element, std::string path);

 private:
  using Components = std::vector<CDMXMLElement*>;

  void readParts(CDMXMLElement* element, CDMXMLSchemaDoc& document);
  void includeFile(CDMXMLElement const* part, CDMXMLSchemaDoc const& document, Components& pending);
  void importFile(CDMXMLElement const* part);

  SchemaLoader& m_loader;
  FileCircles m_circles;  // of the files that this run has referred to
  SchemaSet m_schema;
};

}  // namespace fdmorph
