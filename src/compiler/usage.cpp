#include "compiler/usage.h"

#include <algorithm>
#include <array>

namespace fdmorph::compiler {
namespace {

using enum Usage;
using enum Storage;

// The first entry of a usage gives its name.
constexpr std::array kUsages{
    UsageEntry{none, Keyword::none, "display", characters, 0, false},
    UsageEntry{display, Keyword::display, "display", characters, 0, false},
    UsageEntry{comp, Keyword::comp, "comp-4", binary, 0, true},
    UsageEntry{comp1, Keyword::comp1, "comp-1", fixed, 4, true},
    UsageEntry{comp2, Keyword::comp2, "comp-2", fixed, 8, true},
    UsageEntry{comp3, Keyword::comp3, "comp-3", packed, 0, true},
    UsageEntry{comp5, Keyword::comp5, "comp-5", nativeBinary, 0, true},
    UsageEntry{comp6, Keyword::comp6, "comp-6", packedUnsigned, 0, true},
    UsageEntry{compN, Keyword::compN, "comp-n", shortBinary, 0, true},
    UsageEntry{compX, Keyword::compX, "comp-x", shortBinary, 0, true},
    UsageEntry{national, Keyword::national, "national", nationalCharacters, 0, false},
    UsageEntry{display1, Keyword::display1, "display-1", nationalCharacters, 0, false},
    UsageEntry{index, Keyword::index, "index", fixed, 4, true},
    UsageEntry{pointer, Keyword::pointer, "pointer", fixed, 8, false},
    UsageEntry{programPointer, Keyword::programPointer, "program-pointer", fixed, 8, false},
    UsageEntry{procedurePointer, Keyword::procedurePointer, "procedure-pointer", fixed, 8, false},
    UsageEntry{functionPointer, Keyword::functionPointer, "function-pointer", fixed, 8, false},
    UsageEntry{object, Keyword::object, "object reference", fixed, 8, false},
    UsageEntry{binaryChar, Keyword::binaryChar, "binary-char", fixed, 1, true},
    UsageEntry{binaryShort, Keyword::binaryShort, "binary-short", fixed, 2, true},
    UsageEntry{binaryLong, Keyword::binaryLong, "binary-long", fixed, 4, true},
    UsageEntry{binaryDouble, Keyword::binaryDouble, "binary-double", fixed, 8, true},
    UsageEntry{binaryCLong, Keyword::binaryCLong, "binary-c-long", fixed, 8, true},
    UsageEntry{binaryInt, Keyword::binaryInt, "binary-int", fixed, 4, true},
    UsageEntry{floatShort, Keyword::floatShort, "float-short", fixed, 4, true},
    UsageEntry{floatLong, Keyword::floatLong, "float-long", fixed, 8, true},
    UsageEntry{floatBinary32, Keyword::floatBinary32, "float-binary-32", fixed, 4, true},
    UsageEntry{floatBinary64, Keyword::floatBinary64, "float-binary-64", fixed, 8, true},
    UsageEntry{floatBinary128, Keyword::floatBinary128, "float-binary-128", fixed, 16, true},
    UsageEntry{floatDecimal16, Keyword::floatDecimal16, "float-decimal-16", fixed, 8, true},
    UsageEntry{floatDecimal34, Keyword::floatDecimal34, "float-decimal-34", fixed, 16, true},
    UsageEntry{floatExtended, Keyword::floatExtended, "float-extended", fixed, 16, true},
    UsageEntry{signedShort, Keyword::signedShort, "signed-short", fixed, 2, true},
    UsageEntry{signedInt, Keyword::signedInt, "signed-int", fixed, 4, true},
    UsageEntry{signedLong, Keyword::signedLong, "signed-long", fixed, 8, true},
    UsageEntry{unsignedShort, Keyword::unsignedShort, "unsigned-short", fixed, 2, true},
    UsageEntry{unsignedInt, Keyword::unsignedInt, "unsigned-int", fixed, 4, true},
    UsageEntry{unsignedLong, Keyword::unsignedLong, "unsigned-long", fixed, 8, true},
    UsageEntry{handle, Keyword::handle, "handle", fixed, 4, false},
    UsageEntry{bit, Keyword::bit, "bit", bits, 0, false},
    UsageEntry{comp, Keyword::comp4, "comp-4", binary, 0, true},
    UsageEntry{comp, Keyword::binary, "comp-4", binary, 0, true},
    UsageEntry{comp3, Keyword::packedDecimal, "comp-3", packed, 0, true},
};

// An entry is read by the usage's number.
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

std::optional<Usage> usageOf(Keyword keyword) {
  if (keyword == Keyword::none) return std::nullopt;
  auto found = std::find_if(kUsages.begin(), kUsages.end(),
                            [keyword](UsageEntry const& each) { return each.keyword == keyword; });
  if (found == kUsages.end()) return std::nullopt;
  return found->usage;
}

}  // namespace fdmorph::compiler
