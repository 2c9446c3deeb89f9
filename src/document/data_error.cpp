#include "document/data_error.h"

#include <array>

namespace fdmorph::document {
namespace {

// In the order of the enumeration.
constexpr std::array<std::string_view, 20> kNames{
    "digit", "range",  "character", "number", "overflow", "precision", "length",
    "odo",   "count",  "occurs",    "view",   "unknown",  "text",      "xml",
    "json",  "schema", "frame",     "long",   "short",    "single",
};

}  // namespace

std::string_view nameOf(ErrorCode code) {
  return kNames[static_cast<std::size_t>(code)];
}

}  // namespace fdmorph::document
