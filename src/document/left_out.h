// Which parts of a record may be left out of a document.
#pragma once

#include "layout/record_set.h"

namespace fdmorph::document {

/// Whether a single part may be left out: its count says so, or it is as if absent.
[[nodiscard]] bool mayBeLeftOut(layout::RecordSet const& set, layout::Layout const& layout,
                                std::uint32_t node);

/// Whether trailing occurrences of a table may be left out because they are as if
/// absent.
[[nodiscard]] bool mayEndEarly(layout::RecordSet const& set, layout::Layout const& layout,
                               std::uint32_t table);

/// Whether an item may hold no number, so that its part is left out or empty.
[[nodiscard]] bool mayHoldNoNumber(layout::RecordSet const& set, values::ItemFormat const& format);

/// Whether the part of an item that holds no number is left out: neither an occurrence
/// of a table, nor followed by another slot of its name, nor a text beside its element.
[[nodiscard]] bool isLeftOutWithoutNumber(layout::Layout const& layout, std::uint32_t node);

}  // namespace fdmorph::document
