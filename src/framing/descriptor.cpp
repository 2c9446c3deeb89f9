#include "framing/descriptor.h"

namespace fdmorph::framing {
namespace {

constexpr std::uint32_t kMaxRecord = UINT16_MAX;
constexpr unsigned kByteBits = 8;

std::uint32_t byteAt(char const* bytes, std::size_t i) {
  return static_cast<unsigned char>(bytes[i]);
}

}  // namespace

DescriptorForm::DescriptorForm(FramingRules const& rules) {
  if (rules.format == Format::gnucobolVariable) return;
  m_own = rules.isRdwExclusive ? 0 : kDescriptorBytes;
  m_isLittle = rules.isRdwLittle;
}

Descriptor DescriptorForm::read(char const* bytes) const {
  std::size_t const high = m_isLittle ? 3 : 0;
  std::size_t const low = m_isLittle ? 2 : 1;
  std::size_t const zeros = m_isLittle ? 0 : 2;
  std::uint32_t const counted = byteAt(bytes, high) << kByteBits | byteAt(bytes, low);
  if ((byteAt(bytes, zeros) | byteAt(bytes, zeros + 1)) != 0) return {0, FrameFault::notZero};
  if (counted < m_own) return {0, FrameFault::tooSmall};
  return {counted - m_own, std::nullopt};
}

// The first bit is looked at before the rest: the other bytes of an extended block
// descriptor belong to its length.
Descriptor DescriptorForm::readBlock(char const* bytes) const {
  std::uint32_t const high = byteAt(bytes, m_isLittle ? 3 : 0);
  if (high > kMaxBlock >> kByteBits) return {0, FrameFault::extendedBlock};
  return read(bytes);
}

std::optional<DescriptorForm::Bytes> DescriptorForm::forRecord(std::uint64_t size) const {
  return make(size, kMaxRecord);
}

std::optional<DescriptorForm::Bytes> DescriptorForm::forBlock(std::uint64_t size) const {
  return make(size, kMaxBlock);
}

std::optional<DescriptorForm::Bytes> DescriptorForm::make(std::uint64_t size,
                                                          std::uint32_t max) const {
  if (size > max - m_own) return std::nullopt;
  std::uint32_t const counted = static_cast<std::uint32_t>(size) + m_own;
  char const high = static_cast<char>(counted >> kByteBits);
  char const low = static_cast<char>(counted);
  return m_isLittle ? Bytes{0, 0, low, high} : Bytes{high, low, 0, 0};
}

}  // namespace fdmorph::framing
