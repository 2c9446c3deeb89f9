// The data of the page as JSON.
#pragma once

#include <string>

#include "show/shown_source.h"

namespace fdmorph::show {

/// One object for the script of the page, which stands between the tags of a SCRIPT
/// element: no text in it can end that element. Texts that repeat stand once, in the
/// list `texts`. The fields of an item are in the list of page_data.cpp.
[[nodiscard]] std::string pageData(ShownSource const& source);

}  // namespace fdmorph::show
