// The piece of a file that has the records.
#pragma once

#include <cstdint>
#include <optional>

#include "framing/frame_error.h"
#include "framing/framing_rules.h"
#include "framing/input_stream.h"

namespace fdmorph::framing {

/// Passes over the header and leaves out the trailer, or what is not of a part.
class DataRange {
 public:
  /// Nothing has been read of `input`, which must outlive this object.
  DataRange(InputStream& input, FramingRules const& rules, PartRange const& part);

  /// The error of a file that is too short for its header and trailer, as the record
  /// `number`. An empty one lacks nothing. To be called at the end of the data.
  [[nodiscard]] std::optional<FrameError> missingBytes(std::uint64_t number) const;

 private:
  InputStream& m_input;
  bool m_isPart = false;  // what follows it is not looked at
  bool m_isHeaderPartial = false;
};

}  // namespace fdmorph::framing
