// Where a schema's further files come from.
#pragma once

#include <string>

#include "xml/DMXMLElement.h"

namespace fdmorph {

class SchemaLoader {
 public:
  SchemaLoader() = default;
  virtual ~SchemaLoader() = default;
  SchemaLoader(SchemaLoader const&) = delete;
  SchemaLoader& operator=(SchemaLoader const&) = delete;

  /// The top node of a fresh tree of the schema at `location`, null if it
  /// can't be used; what is wrong has then been reported. The tree lives as
  /// long as the loader's store.
  virtual CDMXMLElement* load(std::string const& location) = 0;
};

}  // namespace fdmorph
