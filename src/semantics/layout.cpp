#include "semantics/layout.h"

#include <algorithm>
#include <array>

namespace fdmorph::compiler {
namespace {

constexpr std::uint64_t kBitsInByte = 8;

// The least number of bytes for an unsigned number. A signed one has as many.
std::uint64_t shortSize(std::uint32_t digits) {
  constexpr std::array<std::uint32_t, 8> kMaxDigitsOfSize{2, 4, 7, 9, 12, 14, 16, 19};
  auto found = std::lower_bound(kMaxDigitsOfSize.begin(), kMaxDigitsOfSize.end(), digits);
  return static_cast<std::uint64_t>(
      std::min<std::ptrdiff_t>(found - kMaxDigitsOfSize.begin() + 1, 8));
}

std::uint64_t binarySize(std::uint32_t digits, Dialect dialect) {
  if (digits <= 2 && dialect == Dialect::gnuCobol) return 1;
  if (digits <= 4) return 2;
  return digits <= 9 ? 4 : 8;
}

// The size of a native number with a picture of so many X.
std::uint64_t nativeSize(std::uint64_t characters) {
  for (std::uint64_t size : {1U, 2U, 4U}) {
    if (characters <= size) return size;
  }
  return 8;
}

constexpr std::uint64_t kIbmAddressSize = 4;

bool isAddress(Usage usage) {
  return usage == Usage::pointer || usage == Usage::programPointer ||
         usage == Usage::procedurePointer || usage == Usage::functionPointer ||
         usage == Usage::object;
}

bool isNationalPicture(Picture const& picture) {
  return picture.category == Category::national || picture.category == Category::nationalEdited;
}

std::uint64_t alignmentOf(DataItem const& item) {
  if (!item.isSynchronized || item.isGroup()) return 1;
  switch (entryOf(item.effectiveUsage).storage) {
    case Storage::binary:
    case Storage::nativeBinary:
    case Storage::shortBinary:
    case Storage::fixed:
      break;
    default:
      return 1;
  }
  bool isWhole = item.size == 2 || item.size == 4 || item.size == 8;
  return isWhole ? item.size : 1;
}

// Moves an item and everything in it.
void shift(DataItem& item, std::uint64_t bytes) {
  item.offset += bytes;
  for (DataItem* each = item.firstChild; each != nullptr; each = each->next) shift(*each, bytes);
}

/// Lays out one record.
class Layout {
 public:
  Layout(StorageSizes sizes, Diagnostics& diagnostics)
      : m_sizes(sizes), m_diagnostics(diagnostics) {}

  // Sets the size of an item whose offset is set.
  void place(DataItem& item) {
    if (item.isGroup()) {
      placeChildren(item);
    } else {
      item.size = sizeOf(item, m_sizes);
    }
    if (item.occurrences() > 0 && item.size > kMaxItemSize / item.occurrences()) {
      m_diagnostics.report(Code::size, item.place, "item is larger than 2 GB");
      item.size = kMaxItemSize / item.occurrences();
    }
  }

 private:
  void placeChildren(DataItem& group) {
    std::uint64_t size = 0;
    DataItem* last = nullptr;  // the last item with storage of its own
    m_widest = 1;
    for (DataItem* child = group.firstChild; child != nullptr; child = child->next) {
      child->slack = 0;
      if (child->level == kRenamesLevel) continue;
      if (child->redefined != nullptr) {
        placeRedefinition(*child, group, size);
        continue;
      }
      last = child;
      child->offset = group.offset + size;
      place(*child);
      size += child->size * child->occurrences();
      std::uint64_t alignment = alignmentOf(*child);
      std::uint64_t slack = (alignment - child->offset % alignment) % alignment;
      child->offset += slack;
      child->slack = slack;
      size = std::min(size + slack, kMaxItemSize + 1);
      m_widest = std::max(m_widest, alignment);
    }
    std::uint64_t filling = (m_widest - size % m_widest) % m_widest;
    if (group.occurrences() > 1 && filling != 0) {
      size += filling;
      last->slack += filling;
      // The items after it redefine it.
      for (DataItem* child = last; child != nullptr; child = child->next) shift(*child, filling);
    }
    group.size = size;
  }

  void placeRedefinition(DataItem& item, DataItem const& group, std::uint64_t& size) {
    DataItem const& redefined = *item.redefined;
    item.offset = redefined.offset;
    place(item);
    std::uint64_t room = redefined.size * redefined.occurrences();
    std::uint64_t needed = item.size * item.occurrences();
    if (needed <= room) return;
    // Only an item with an error has size 0.
    if (room > 0) reportLarger(item, needed, room);
    // The group contains the part that exceeds the redefined item.
    size = std::max(size, item.offset - group.offset + needed);
  }

  void reportLarger(DataItem const& item, std::uint64_t needed, std::uint64_t room) {
    m_diagnostics.report(Code::redefinesSize, item.place,
                         "item of " + std::to_string(needed) + " bytes redefines an item of " +
                             std::to_string(room) + " bytes");
  }

  StorageSizes m_sizes;
  Diagnostics& m_diagnostics;
  std::uint64_t m_widest = 1;  // the largest alignment since the beginning of the last group
};

}  // namespace

std::uint64_t sizeOf(DataItem const& item, StorageSizes sizes) {
  UsageEntry const& usage = entryOf(item.effectiveUsage);
  if (usage.storage == Storage::fixed) {
    return sizes.address == Dialect::ibm && isAddress(usage.usage) ? kIbmAddressSize : usage.size;
  }
  if (item.picture == nullptr || !item.picture->isValid()) return 0;
  Picture const& picture = *item.picture;
  bool isNumber = picture.category == Category::numeric;
  switch (usage.storage) {
    case Storage::binary:
      return isNumber ? binarySize(picture.nines, sizes.binary) : 0;
    case Storage::nativeBinary:
      return isNumber ? binarySize(picture.nines, sizes.binary) : nativeSize(picture.size);
    case Storage::shortBinary:
      if (isNumber) return shortSize(picture.nines);
      return std::min<std::uint64_t>(picture.size, 8);
    case Storage::packed:
      return isNumber ? picture.nines / 2 + 1 : 0;
    case Storage::packedUnsigned:
      return isNumber ? (picture.nines + 1) / 2 : 0;
    case Storage::nationalCharacters:
      return picture.size * 2;
    case Storage::bits:
      return (picture.size + kBitsInByte - 1) / kBitsInByte;
    default:
      break;
  }
  if (isNationalPicture(picture)) return picture.size * 2;
  bool isSignStored = isNumber && picture.isSigned && item.effectiveSign.isSeparate;
  return picture.size + (isSignStored ? 1U : 0U);
}

void layOut(DataItem& record, StorageSizes sizes, Diagnostics& diagnostics) {
  record.offset = 0;
  Layout(sizes, diagnostics).place(record);
}

}  // namespace fdmorph::compiler
