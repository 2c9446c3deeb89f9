// The files of a schema as one document, which a record is made from.
#pragma once

#include <string>

#include "schema/schema_assembly.h"
#include "xml/location_resolver.h"
#include "xml/node_store.h"

namespace fdmorph::fdrec {

/// A schema with all files that it leads to.
class AssembledSchema {
 public:
  /// Reads the schema whose main file is `path`. What is wrong with its files is
  /// reported, the missing ones with the place that names them.
  AssembledSchema(std::string const& path, LocationResolver& resolver);

  /// An exit status: whether the schema can be used.
  [[nodiscard]] int status() const { return m_status; }

  /// The main document of the schema. It lives as long as this object.
  [[nodiscard]] CDMXMLSchemaDoc const& document() const { return m_set.main; }

 private:
  CDMXMLNodeStore m_store;
  SchemaSet m_set;
  int m_status;
};

}  // namespace fdmorph::fdrec
