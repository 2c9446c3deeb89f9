// Numbers in facet values.
#pragma once

#include <string_view>

namespace fdmorph {

/// The decimal number that `text` begins with, after white space and with an
/// optional sign; 0 if it begins with none. Held within the range of an int.
int decimalValue(std::string_view text);

}  // namespace fdmorph
