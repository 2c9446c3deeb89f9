#include "framing/data_range.h"

#include <algorithm>

namespace fdmorph::framing {

DataRange::DataRange(InputStream& input, FramingRules const& rules, PartRange const& part)
    : m_input(input), m_isPart(part.end.has_value()) {
  if (part.end) {
    input.endAt(*part.end);
  } else {
    input.leaveTrailer(rules.trailer);
  }
  std::uint64_t const begin = std::max(part.begin, rules.header);
  m_isHeaderPartial = input.skip(begin) < begin;
}

std::optional<FrameError> DataRange::missingBytes(std::uint64_t number) const {
  if (m_isPart || !m_input.hasBytes()) return std::nullopt;
  if (!m_isHeaderPartial && !m_input.isTrailerPartial()) return std::nullopt;
  return FrameError{FrameFault::noTrailer, 0, number, {}, false};
}

}  // namespace fdmorph::framing
