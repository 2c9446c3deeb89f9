// Schemas from files, by way of the validating parser.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "schema/schema_loader.h"
#include "xml/node_store.h"
#include "xml/parser_report.h"

namespace fdmorph {

/// Reads and checks each file once. A file asked for again is announced and
/// reported as before, and comes as a copy of what is in memory.
class SchemaFileLoader : public SchemaLoader {
 public:
  /// The trees belong to `store`.
  explicit SchemaFileLoader(CDMXMLNodeStore& store) : m_store(store) {}

  CDMXMLElement* load(std::string const& location) override;

 private:
  struct KnownFile {
    std::vector<ParserReport> reports;
    CDMXMLElement* tree = nullptr;  // null if the file couldn't be used
  };

  CDMXMLElement* readFile(std::string const& location);
  CDMXMLElement* repeat(std::string const& location, KnownFile const& known);

  CDMXMLNodeStore& m_store;
  std::unordered_map<std::string, KnownFile> m_known;  // by location as asked for
};

}  // namespace fdmorph
