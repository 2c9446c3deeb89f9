// The source of the further files of a schema.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "xml/DMDOMParser.h"
#include "xml/node_store.h"

namespace fdmorph {

class SchemaLoader {
 public:
  SchemaLoader() = default;
  virtual ~SchemaLoader() = default;
  SchemaLoader(SchemaLoader const&) = delete;
  SchemaLoader& operator=(SchemaLoader const&) = delete;

  /// The top node of a new tree of the schema at `location`. Null if the
  /// schema cannot be used; the loader has then reported why. The tree lives
  /// as long as the loader's store.
  [[nodiscard]] virtual CDMXMLElement* load(std::string const& location) = 0;
};

/// Reads schemas from files through the validating parser, each file once. A
/// file that is asked for again, perhaps by another spelling of its path, is
/// announced and reported as before, and its tree is copied from memory.
class SchemaFileLoader : public SchemaLoader {
 public:
  /// The trees belong to `store`. What is known of `files` spares loads.
  SchemaFileLoader(CDMXMLNodeStore& store, InputFiles& files) : m_store(store), m_files(files) {}

  [[nodiscard]] CDMXMLElement* load(std::string const& location) override;

 private:
  struct KnownFile {
    std::vector<ParserReport> reports;
    CDMXMLElement* tree = nullptr;  // null if the file cannot be used
  };

  KnownFile const& readFile(std::string const& location);
  CDMXMLElement* repeat(std::string const& location, KnownFile const& known);

  CDMXMLNodeStore& m_store;
  InputFiles& m_files;
  std::unordered_map<std::string, KnownFile> m_known;             // by location as asked for
  std::unordered_map<std::string, KnownFile const*> m_goodFiles;  // by the name of the file
};

}  // namespace fdmorph
