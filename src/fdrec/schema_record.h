// A record made for an element of a schema.
#pragma once

#include <string>
#include <vector>

#include "fdrec/command.h"
#include "schema/DMXMLSchemaDoc.h"

namespace fdmorph::fdrec {

/// What of a schema becomes the record.
struct RecordRequest {
  std::string root;                  ///< NAME or {NAMESPACE}NAME; empty: the only head element
  std::vector<std::string> skipped;  ///< patterns of paths
  unsigned depth = 0;                ///< of elements; 0: no limit
  std::string prefix;                ///< of data names
};

struct SchemaRecord {
  std::string text;                        ///< a copybook in free format
  std::vector<std::string> documentation;  ///< of its items, conditions apart
  bool hasWarnings = false;                ///< some were printed
};

/// Makes the record. What keeps it from being made is reported, and the text is
/// empty then. The losses of the conversion are not reported: the check of the record
/// against the schema finds them all, with their places.
[[nodiscard]] SchemaRecord makeSchemaRecord(CDMXMLSchemaDoc const& schema,
                                            RecordRequest const& request);

}  // namespace fdmorph::fdrec
