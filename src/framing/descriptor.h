// The descriptors of records and blocks.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "framing/frame_error.h"
#include "framing/framing_rules.h"

namespace fdmorph::framing {

/// What a descriptor says.
struct Descriptor {
  std::uint32_t size = 0;           ///< bytes after the descriptor
  std::optional<FrameFault> fault;  ///< then the size means nothing
};

/// The form of the descriptors of a file: 2 bytes of length, the high one first,
/// and 2 zero bytes; `little` has the 4 bytes in reverse.
class DescriptorForm {
 public:
  /// The format must not be `fixed` or `lines`.
  explicit DescriptorForm(FramingRules const& rules);

  /// Reads kDescriptorBytes bytes.
  [[nodiscard]] Descriptor readRecord(char const* bytes) const { return read(bytes); }
  [[nodiscard]] Descriptor readBlock(char const* bytes) const;

  using Bytes = std::array<char, kDescriptorBytes>;

  /// The descriptor of a record or block with `size` bytes after it; nothing if a
  /// descriptor cannot say so.
  [[nodiscard]] std::optional<Bytes> forRecord(std::uint64_t size) const;
  [[nodiscard]] std::optional<Bytes> forBlock(std::uint64_t size) const;

 private:
  [[nodiscard]] Descriptor read(char const* bytes) const;
  [[nodiscard]] std::optional<Bytes> make(std::uint64_t size, std::uint32_t max) const;

  std::uint32_t m_own = 0;  // bytes of itself that a descriptor counts
  bool m_isLittle = false;
};

}  // namespace fdmorph::framing
