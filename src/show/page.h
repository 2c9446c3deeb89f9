// The page: records as one HTML file that needs no network.
#pragma once

#include <string>

#include "show/shown_source.h"

namespace fdmorph::show {

/// The page for the records of a source, with its style, its script and its data.
/// Its policy lets a browser run only that script and load nothing.
[[nodiscard]] std::string printPage(ShownSource const& source);

}  // namespace fdmorph::show
