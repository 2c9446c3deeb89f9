// Locations, as the library resolves them. For this folder only.
#pragma once

#include <optional>
#include <string>
#include <xercesc/util/XMLURL.hpp>

#include "xml/transcoding.h"

namespace fdmorph {

/// What a location names.
struct Location {
  std::basic_string<XMLCh> systemId;  ///< as in the library's reports
  std::optional<std::string> path;    ///< of a local file; nothing if a network is needed
  std::optional<xerces::XMLURL> url;  ///< of a location that is written as one
};

/// What `reference` names in the file at `base`.
[[nodiscard]] Location resolveLocation(XMLCh const* base, XMLCh const* reference);

/// What the name of a main input stands for.
[[nodiscard]] Location resolveLocation(std::string const& fileName);

}  // namespace fdmorph
