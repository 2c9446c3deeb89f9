// What a file of a schema refers to, and where that is written.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "bundle/file_contents.h"
#include "bundle/text_units.h"
#include "xml/location_resolver.h"
#include "xml/xml_events.h"

namespace fdmorph::bundle {

/// A location that leads to another file.
struct FileReference {
  enum class Kind : std::uint8_t {
    include,
    redefine,
    import,
    hint,          ///< in xsi:schemaLocation or xsi:noNamespaceSchemaLocation
    documentType,  ///< the external subset
    entity,        ///< an external entity that is read
  };

  Kind kind = Kind::include;
  std::string base;        ///< the file that a relative location is resolved against
  std::string location;    ///< without references to characters; empty: none
  std::string identifier;  ///< namespace or public identifier; empty: none
  std::string holder;      ///< the file in which it is written
  std::size_t offset = 0;  ///< where in the holder, for messages
  bool isWritten = true;   ///< false: an import without a location
  /// The bytes of the location in the holder, or where an attribute may be inserted.
  /// Nothing if they are the text of an entity or a default value.
  std::optional<ByteRange> range;
};

struct FileReferences {
  bool isSchema = false;
  std::vector<FileReference> references;  ///< in the order of the text
  std::optional<XmlFault> fault;          ///< the file cannot be read to its end
};

/// Reads a file with the external entities that it is made of, which `resolver` finds.
/// Those that it does not find are passed over; their references are in the result.
[[nodiscard]] FileReferences readReferences(std::string const& path, FileContents& contents,
                                            LocationResolver& resolver);

}  // namespace fdmorph::bundle
