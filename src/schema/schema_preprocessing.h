// The flattening of a schema that is spread over files.
//
// Included and redefined files are flattened: their global components become
// children of the main document's root. Imported files stay documents of their
// own, which are found by namespace. All files of a run work for one main
// document, however deep they are nested.
#pragma once

#include <cstddef>
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
  bool isTooLarge = false;  ///< files were left out, because they are too many
};

/// The largest number of files that a set is made of, each repeat counted. A
/// file that is reached along many paths contributes once for each of them, so
/// that a few files may make a set of any size.
inline constexpr std::size_t kMaxSchemaFiles = 100'000;

/// Reads the files that a schema refers to. A missing or invalid file only
/// lacks its components; the loader has reported it.
class SchemaPreprocessing {
 public:
  /// `loader` brings the files, at most `maxFiles`, apart from the main one. It
  /// must outlive this object.
  explicit SchemaPreprocessing(SchemaLoader& loader, std::size_t maxFiles = kMaxSchemaFiles)
      : m_loader(loader), m_maxFiles(maxFiles) {}

  /// The schema whose tree has the top node `element` (null: the document
  /// stays empty). `path` is its full path, the base of relative locations. To be
  /// called once.
  [[nodiscard]] SchemaSet PreProcessSchema(CDMXMLElement* element, std::string path);

 private:
  using Components = std::vector<CDMXMLElement*>;

  void readParts(CDMXMLElement* element, CDMXMLSchemaDoc& document);
  void includeFile(CDMXMLElement const* part, CDMXMLSchemaDoc const& document, Components& pending);
  void importFile(CDMXMLElement const* part);
  bool enter(std::string const& location);

  SchemaLoader& m_loader;
  std::size_t m_maxFiles;
  std::size_t m_filesRead = 0;
  FileCircles m_circles;  // of the files that this run has referred to
  SchemaSet m_schema;
};

}  // namespace fdmorph
