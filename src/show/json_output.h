// The records of a source as JSON.
#pragma once

#include <string>

#include "show/shown_source.h"

namespace fdmorph::show {

/// One object with all records and, in a list for each, their items. The manual
/// page of fdrec describes its members. Bytes of the source that are not UTF-8
/// become U+FFFD.
[[nodiscard]] std::string printJson(ShownSource const& source);

}  // namespace fdmorph::show
