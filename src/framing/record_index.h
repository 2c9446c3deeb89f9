// Places in a file where records begin.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "framing/frame_error.h"
#include "framing/framing_rules.h"
#include "framing/input_stream.h"

namespace fdmorph::framing {

/// Bytes from one entry of an index to the next, at least.
inline constexpr std::uint64_t kIndexStep = std::uint64_t{16} << 20;

/// The index of a file. As a text it has these lines:
///
///     fdrec-index 1 format=bdw rdw=exclusive,little header=80 trailer=0
///     records 2000000
///     end 500000080
///     1 80
///     66801 16780088
///     ...
///
/// The first has the version of the index and the options that say where records are:
/// `rdw` with `rdw` and `bdw`, `length` with `fixed`. `end` is the offset after the last
/// record. The others are the number of a record and its offset, of its block in a file
/// of blocks: of the first record, and then of the next one after every 16 MB.
struct RecordIndex {
  struct Entry {
    std::uint64_t number;
    std::uint64_t offset;

    bool operator==(Entry const&) const = default;
  };

  std::string options;
  std::uint64_t records = 0;
  std::uint64_t end = 0;
  std::vector<Entry> entries;  ///< none if there are no records

  [[nodiscard]] std::string text() const;
};

/// The options of a file as the first line of its index has them.
[[nodiscard]] std::string indexOptions(FramingRules const& rules);

/// The text of an index that was read, or why it cannot be used.
struct ParsedIndex {
  RecordIndex index;
  std::optional<std::string> fault;  ///< in words
};

/// Reads an index. It is refused unless it has the options of `rules`.
[[nodiscard]] ParsedIndex parseIndex(std::string_view text, FramingRules const& rules);

/// What indexFile found.
struct MadeIndex {
  RecordIndex index;                ///< of the records before the error
  std::optional<FrameError> error;  ///< the file cannot be read further
};

/// Makes the index of a file that nothing has been read of; input.failure() says whether
/// it could be read. Of records with descriptors the data are passed over, as far as that
/// is faster than reading them. `skip` and `limit` do not count.
[[nodiscard]] MadeIndex indexFile(InputStream& input, FramingRules const& rules,
                                  std::uint64_t step = kIndexStep);

}  // namespace fdmorph::framing
