#include "record/storage_rules.h"

#include <optional>

namespace fdmorph::record {
namespace {

using compiler::Category;
using compiler::Code;
using compiler::DataItem;
using compiler::Storage;
using compiler::Usage;

constexpr std::uint32_t kMaxBinaryDigits = 18;
constexpr std::uint64_t kMaxBinarySize = 8;  // bytes

bool isStoredDifferently(DataItem const& item) {
  switch (item.effectiveUsage) {
    case Usage::bit:
    case Usage::display1:
    case Usage::floatBinary32:
    case Usage::floatBinary64:
    case Usage::floatBinary128:
    case Usage::floatDecimal16:
    case Usage::floatDecimal34:
    case Usage::floatExtended:
    case Usage::object:
      return true;
    case Usage::national:
      return item.picture != nullptr && item.picture->category == Category::numeric;
    default:
      return false;
  }
}

bool isBinary(DataItem const& item) {
  Storage storage = entryOf(item.effectiveUsage).storage;
  bool isOfUsage = storage == Storage::binary || storage == Storage::nativeBinary ||
                   storage == Storage::shortBinary;
  return isOfUsage && item.picture != nullptr;
}

// What keeps an item out of documents.
std::optional<std::string> findValueFault(DataItem const& item) {
  if (isStoredDifferently(item)) {
    return "no defined form of usage " + std::string(entryOf(item.effectiveUsage).name);
  }
  bool isNumber = isBinary(item) && item.picture->category == Category::numeric;
  if (!isNumber || item.picture->nines <= kMaxBinaryDigits) return std::nullopt;
  return "binary number of " + std::to_string(item.picture->nines) + " digits; at most " +
         std::to_string(kMaxBinaryDigits) + " are supported";
}

// What leaves the size of an item undefined, and so all offsets after it.
std::optional<std::string> findSizeFault(DataItem const& item) {
  bool isText = isBinary(item) && item.picture->category != Category::numeric;
  if (!isText || item.picture->size <= kMaxBinarySize) return std::nullopt;
  return "binary number of " + std::to_string(item.picture->size) + " bytes; at most " +
         std::to_string(kMaxBinarySize) + " are supported";
}

}  // namespace

void checkStorage(RecordTree const& tree, compiler::Diagnostics& diagnostics) {
  for (RecordNode const& node : tree.nodes()) {
    if (node.item->isGroup() || node.item->level == compiler::kRenamesLevel) continue;
    bool isText =
        node.role == Role::element || node.role == Role::attribute || node.role == Role::value;
    std::optional<std::string> fault = findSizeFault(*node.item);
    if (!fault && isText) fault = findValueFault(*node.item);
    if (fault) diagnostics.report(Code::layout, node.item->place, std::move(*fault));
  }
}

}  // namespace fdmorph::record
