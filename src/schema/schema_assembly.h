// A schema from all its files, for programs that resolve locations by a
// LocationResolver. fdmorph has rules of its own (schema_preprocessing.h).
//
// Locations are resolved against the file that names them. Each file is read
// once, and contributes once to each namespace that it is part of. All files of
// a namespace make one document, whether they are included, redefined or
// imported; what has no namespace joins the main document. Elements take the types
// that they have from their substitution groups.
#pragma once

#include <cstddef>
#include <list>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "schema/schema_preprocessing.h"
#include "xml/location_resolver.h"
#include "xml/node_store.h"
#include "xml/xml_events.h"

namespace fdmorph {

class SchemaAssembly {
 public:
  /// The trees belong to `store`. Both must outlive this object.
  SchemaAssembly(CDMXMLNodeStore& store, LocationResolver& resolver,
                 std::size_t maxFiles = kMaxSchemaFiles)
      : m_store(store), m_resolver(resolver), m_maxFiles(maxFiles) {}

  /// The schema whose main file is `path`. In the trees, the value of each
  /// `documentation` element is all text in it. To be called once.
  [[nodiscard]] SchemaSet assemble(std::string const& path);

  /// What kept files from being read: files that are missing, with the place
  /// that names them, and files that are not well-formed or no schemas. The set
  /// lacks them.
  std::vector<XmlFault> const& faults() const { return m_faults; }

  /// The paths of the files that the set is made of, in the order of reading.
  std::vector<std::string> const& files() const { return m_files; }

 private:
  /// Where the tag of a part of a file ends.
  struct PartPlace {
    unsigned line;
    unsigned column;
  };

  struct ReadFile {
    CDMXMLElement* root = nullptr;  // null: not to be used
    std::vector<PartPlace> parts;   // of the includes, imports and redefines
    bool isUsed = false;            // a second use needs a copy
  };

  /// The document of a namespace, and the components that join it.
  struct Home {
    CDMXMLSchemaDoc* document;
    std::string uri;
    std::set<std::string> files = {};
    std::vector<CDMXMLElement*> pending = {};
  };

  class TreeReader;

  enum class Joins { asMain, asInclude, asImport };

  void addFile(std::string const& path, Home& home, Joins joins);
  void followPart(CDMXMLElement const* part, std::string const& path, PartPlace place, Home& home);
  CDMXMLElement* rootOf(std::string const& path);
  Home& homeOf(std::string_view uri);
  void setNamespace(CDMXMLElement* root, std::string const& uri, bool isDefault);
  void reportMissing(CDMXMLElement const* part, std::string const& path, PartPlace place);

  CDMXMLNodeStore& m_store;
  LocationResolver& m_resolver;
  std::size_t m_maxFiles;
  SchemaSet m_set;
  std::list<Home> m_homes;  // the main one first
  std::map<std::string, ReadFile> m_read;
  std::vector<std::string> m_files;
  std::vector<XmlFault> m_faults;
};

}  // namespace fdmorph
