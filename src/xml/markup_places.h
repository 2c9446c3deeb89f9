// Where markup begins in a file. A parser knows where it ends.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace fdmorph {

/// A place in a file. Both count from 1, columns in characters; 0: unknown.
struct TagPlace {
  unsigned line = 0;
  unsigned column = 0;
};

/// Looks at the bytes of a file in UTF-8 or another encoding that has ASCII. In other
/// encodings the end of the markup stands for its beginning.
class MarkupPlaces {
 public:
  /// `content` must outlive this object.
  explicit MarkupPlaces(std::string_view content);

  /// The place of the last `opener` before `end`, which is the place after the
  /// markup. Fastest if the places come in the order of the file.
  [[nodiscard]] TagPlace beginOf(TagPlace end, std::string_view opener = "<");

  /// Whether the line has more than white space before a place.
  [[nodiscard]] bool isAfterText(TagPlace place);

 private:
  std::size_t offsetOf(TagPlace place);
  TagPlace placeOf(std::size_t offset, TagPlace near, std::size_t nearOffset) const;

  std::string_view m_content;
  std::vector<std::size_t> m_lines;  // offsets of the beginnings
  TagPlace m_last;                   // the last place that was asked for
  std::size_t m_lastOffset = 0;
};

}  // namespace fdmorph
