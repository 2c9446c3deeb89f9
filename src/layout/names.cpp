#include "layout/names.h"

#include <algorithm>
#include <functional>

namespace fdmorph::layout {
namespace {

constexpr std::size_t kFirstSlots = 16;

std::size_t hashOf(std::string_view namespaceUri, std::string_view local) {
  std::hash<std::string_view> hash;
  return hash(local) * 31 + hash(namespaceUri);
}

}  // namespace

// At most half of the slots are taken, and their number is a power of two.
std::uint32_t Names::add(std::string_view namespaceUri, std::string_view local) {
  std::uint32_t known = find(namespaceUri, local);
  if (known != kNone) return known;
  auto number = static_cast<std::uint32_t>(m_names.size());
  m_names.push_back({std::string(namespaceUri), std::string(local)});
  if (m_names.size() * 2 > m_slots.size()) {
    m_slots.assign(std::max(kFirstSlots, m_slots.size() * 2), kNone);
    for (std::uint32_t i = 0; i < m_names.size(); ++i) place(i);
  } else {
    place(number);
  }
  return number;
}

std::uint32_t Names::find(std::string_view namespaceUri, std::string_view local) const {
  if (m_slots.empty()) return kNone;
  std::size_t mask = m_slots.size() - 1;
  for (std::size_t slot = hashOf(namespaceUri, local) & mask;; slot = (slot + 1) & mask) {
    std::uint32_t number = m_slots[slot];
    if (number == kNone) return kNone;
    Name const& name = m_names[number];
    if (name.local == local && name.namespaceUri == namespaceUri) return number;
  }
}

void Names::place(std::uint32_t number) {
  std::size_t mask = m_slots.size() - 1;
  std::size_t slot = hashOf(m_names[number].namespaceUri, m_names[number].local) & mask;
  while (m_slots[slot] != kNone) slot = (slot + 1) & mask;
  m_slots[slot] = number;
}

}  // namespace fdmorph::layout
