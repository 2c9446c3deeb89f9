// The usages: their names in the dictionary and how they store items.
#pragma once

#include <cstdint>
#include <string_view>

namespace fdmorph::compiler {

enum class Usage : std::uint8_t {
  none,
  display,
  comp,
  comp1,
  comp2,
  comp3,
  comp5,
  comp6,
  compN,
  compX,
  national,
  display1,
  index,
  pointer,
  programPointer,
  procedurePointer,
  functionPointer,
  object,
  binaryChar,
  binaryShort,
  binaryLong,
  binaryDouble,
  binaryCLong,
  binaryInt,
  floatShort,
  floatLong,
  floatBinary32,
  floatBinary64,
  floatBinary128,
  floatDecimal16,
  floatDecimal34,
  floatExtended,
  signedShort,
  signedInt,
  signedLong,
  unsignedShort,
  unsignedInt,
  unsignedLong,
  handle,
  bit,
};

/// The compiler whose sizes apply to binary items, indexes and addresses.
enum class Dialect : std::uint8_t { gnuCobol, ibm };

/// The dialects that decide the sizes of items.
struct StorageSizes {
  StorageSizes(Dialect dialect) : binary(dialect), address(dialect) {}  // NOLINT: a dialect is both

  Dialect binary;   ///< of binary numbers with a picture
  Dialect address;  ///< of pointers
};

/// How a usage stores its items.
enum class Storage : std::uint8_t {
  characters,
  nationalCharacters,
  binary,        ///< 1, 2, 4 or 8 bytes, depending on the digits; 2, 4 or 8 for IBM
  nativeBinary,  ///< as binary, also with pictures of X
  shortBinary,   ///< as few bytes as the digits need
  packed,
  packedUnsigned,
  bits,
  fixed,  ///< of one size, without a picture
};

struct UsageEntry {
  Usage usage;
  std::string_view name;  ///< in the dictionary
  Storage storage;
  std::uint8_t size;  ///< in bytes, of fixed storage; addresses have 4 for IBM
  bool isNumeric;     ///< of fixed storage: a number, not an address
};

UsageEntry const& entryOf(Usage usage);

/// Whether items of this usage have a PICTURE clause.
inline bool takesPicture(Usage usage) {
  return entryOf(usage).storage != Storage::fixed;
}

}  // namespace fdmorph::compiler
