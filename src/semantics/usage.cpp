#include "semantics/usage.h"

#include <array>

namespace fdmorph::compiler {
namespace {

using enum Usage;
using enum Storage;

constexpr std::array kUsages{
    UsageEntry{none, "display", characters, 0, false},
    UsageEntry{display, "display", characters, 0, false},
    UsageEntry{comp, "comp-4", binary, 0, true},
    UsageEntry{comp1, "comp-1", fixed, 4, true},
    UsageEntry{comp2, "comp-2", fixed, 8, true},
    UsageEntry{comp3, "comp-3", packed, 0, true},
    UsageEntry{comp5, "comp-5", nativeBinary, 0, true},
    UsageEntry{comp6, "comp-6", packedUnsigned, 0, true},
    UsageEntry{compN, "comp-n", shortBinary, 0, true},
    UsageEntry{compX, "comp-x", shortBinary, 0, true},
    UsageEntry{national, "national", nationalCharacters, 0, false},
    UsageEntry{display1, "display-1", nationalCharacters, 0, false},
    UsageEntry{index, "index", fixed, 4, true},
    UsageEntry{pointer, "pointer", fixed, 8, false},
    UsageEntry{programPointer, "program-pointer", fixed, 8, false},
    UsageEntry{procedurePointer, "procedure-pointer", fixed, 8, false},
    UsageEntry{functionPointer, "function-pointer", fixed, 8, false},
    UsageEntry{object, "object reference", fixed, 8, false},
    UsageEntry{binaryChar, "binary-char", fixed, 1, true},
    UsageEntry{binaryShort, "binary-short", fixed, 2, true},
    UsageEntry{binaryLong, "binary-long", fixed, 4, true},
    UsageEntry{binaryDouble, "binary-double", fixed, 8, true},
    UsageEntry{binaryCLong, "binary-c-long", fixed, 8, true},
    UsageEntry{binaryInt, "binary-int", fixed, 4, true},
    UsageEntry{floatShort, "float-short", fixed, 4, true},
    UsageEntry{floatLong, "float-long", fixed, 8, true},
    UsageEntry{floatBinary32, "float-binary-32", fixed, 4, true},
    UsageEntry{floatBinary64, "float-binary-64", fixed, 8, true},
    UsageEntry{floatBinary128, "float-binary-128", fixed, 16, true},
    UsageEntry{floatDecimal16, "float-decimal-16", fixed, 8, true},
    UsageEntry{floatDecimal34, "float-decimal-34", fixed, 16, true},
    UsageEntry{floatExtended, "float-extended", fixed, 16, true},
    UsageEntry{signedShort, "signed-short", fixed, 2, true},
    UsageEntry{signedInt, "signed-int", fixed, 4, true},
    UsageEntry{signedLong, "signed-long", fixed, 8, true},
    UsageEntry{unsignedShort, "unsigned-short", fixed, 2, true},
    UsageEntry{unsignedInt, "unsigned-int", fixed, 4, true},
    UsageEntry{unsignedLong, "unsigned-long", fixed, 8, true},
    UsageEntry{handle, "handle", fixed, 4, false},
    UsageEntry{bit, "bit", bits, 0, false},
};

// A usage is the index of its entry.
constexpr bool isInOrder() {
  for (std::size_t i = 0; i <= static_cast<std::size_t>(bit); ++i) {
    if (static_cast<std::size_t>(kUsages[i].usage) != i) return false;
  }
  return true;
}
static_assert(isInOrder());

}  // namespace

UsageEntry const& entryOf(Usage usage) {
  return kUsages[static_cast<std::size_t>(usage)];
}

}  // namespace fdmorph::compiler
