// How the bytes of an elementary item hold its value.
#pragma once

#include <cstdint>
#include <memory>

#include "semantics/data_item.h"
#include "values/conventions.h"

namespace fdmorph::values {

class EditedPicture;

enum class Kind : std::uint8_t {
  empty,           ///< of 0 bytes
  text,            ///< characters of the encoding; also groups
  national,        ///< UTF-16
  zoned,           ///< a digit a byte
  packed,          ///< two digits a byte, a sign in the last nibble
  unsignedPacked,  ///< two digits a byte, no sign
  binary,          ///< an integer of 1 to 8 bytes, two's complement if it is signed
  floating,        ///< of 4 or 8 bytes
  editedNumber,    ///< a numeric-edited item that is read and written as a number
  opaque,          ///< bytes without a text: addresses, usages without a defined form
};

/// An elementary item under the conventions of its data. Digits are counted
/// without those of the symbol P.
struct ItemFormat {
  std::uint32_t size = 0;  ///< in bytes
  Kind kind = Kind::empty;

  // Of numbers. A number is its digits times ten to the power of -scale.
  std::uint8_t digits = 0;
  std::int8_t scale = 0;  ///< below zero, or more than the digits, with the symbol P
  compiler::SignPosition sign = compiler::SignPosition::none;  ///< of zoned numbers; none: no sign
  bool isSignSeparate = false;
  bool isSigned = false;
  bool isBlankWhenZero = false;  ///< zoned: blanks are zero
  bool isDigitBounded = false;   ///< binary: it holds no more digits than its picture

  bool isBigEndian = false;  ///< binary, national
  FloatForm floats = FloatForm::ieeeLittle;
  bool isJustified = false;                          ///< text and national: on the right
  std::shared_ptr<EditedPicture const> edited = {};  ///< of edited numbers

  /// Whether its value is a number.
  [[nodiscard]] bool isNumber() const { return kind >= Kind::zoned && kind <= Kind::editedNumber; }
};

/// The format of an elementary item that was laid out without errors.
[[nodiscard]] ItemFormat makeItemFormat(compiler::DataItem const& item,
                                        Conventions const& conventions);

/// The format of a group, or of any bytes that are taken as characters.
[[nodiscard]] ItemFormat makeTextFormat(std::uint32_t size);

/// The form of a usage has digits at all its positions, and a picture of 38 of
/// them at most.
inline constexpr std::size_t kMaxStoredDigits = 40;

}  // namespace fdmorph::values
