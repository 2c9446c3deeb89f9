// Binary integers as texts. Zoned and packed numbers are members of Values, since
// they depend on its conventions.
#pragma once

#include "values/values.h"

namespace fdmorph::values {

[[nodiscard]] DecodeResult decodeBinary(ItemFormat const& format, unsigned char const* bytes,
                                        char* out);

}  // namespace fdmorph::values
