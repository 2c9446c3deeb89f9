#include "values/item_format.h"

#include "values/edited_picture.h"

namespace fdmorph::values {
namespace {

using compiler::Category;
using compiler::DataItem;
using compiler::Picture;
using compiler::SignPosition;
using compiler::Storage;
using compiler::Usage;

constexpr std::uint8_t kMaxBinaryDigits = 20;  // of 8 bytes
constexpr std::uint32_t kMaxBinarySize = 8;

// Scaling positions are before the digits if the decimal point is before them all.
std::int8_t scaleOf(Picture const& picture) {
  int const scaling = static_cast<int>(picture.digits) - static_cast<int>(picture.nines);
  int const scale = static_cast<int>(picture.scale);
  bool const isBelowPoint = picture.scale == picture.digits;
  return static_cast<std::int8_t>(isBelowPoint ? scale : scale - scaling);
}

void setBinary(ItemFormat& format, bool isSigned, bool isBigEndian) {
  format.kind = format.size <= kMaxBinarySize ? Kind::binary : Kind::opaque;
  format.isSigned = isSigned;
  format.isBigEndian = isBigEndian;
  format.digits = kMaxBinaryDigits;
}

// COMP holds what its picture has digits for, native numbers what their bytes hold.
void setPictureBinary(ItemFormat& format, DataItem const& item, Conventions const& conventions) {
  Usage const usage = item.effectiveUsage;
  Picture const& picture = *item.picture;
  bool const isNative = usage == Usage::comp5 || usage == Usage::compN;
  bool const isNumber = picture.category == Category::numeric;
  setBinary(format, isNumber && picture.isSigned,
            isNative ? conventions.isNativeBigEndian : conventions.isBinaryBigEndian);
  if (!isNumber) return;
  format.scale = scaleOf(picture);
  format.isDigitBounded = usage == Usage::comp && !conventions.hasFullBinaryRange;
  if (format.isDigitBounded) format.digits = static_cast<std::uint8_t>(picture.nines);
}

void setFloating(ItemFormat& format, FloatForm form) {
  format.kind = Kind::floating;
  format.isSigned = true;
  format.floats = form;
}

void setFixed(ItemFormat& format, DataItem const& item, Conventions const& conventions) {
  bool const isIeeeBig = conventions.floats != FloatForm::ieeeLittle;
  switch (item.effectiveUsage) {
    case Usage::comp1:
    case Usage::comp2:
    case Usage::floatShort:
    case Usage::floatLong:
      setFloating(format, conventions.floats);
      break;
    case Usage::floatBinary32:
    case Usage::floatBinary64:
      setFloating(format, isIeeeBig ? FloatForm::ieeeBig : FloatForm::ieeeLittle);
      break;
    case Usage::unsignedShort:
    case Usage::unsignedInt:
    case Usage::unsignedLong:
      setBinary(format, false, conventions.isNativeBigEndian);
      break;
    case Usage::index:
    case Usage::binaryChar:
    case Usage::binaryShort:
    case Usage::binaryLong:
    case Usage::binaryDouble:
    case Usage::binaryCLong:
    case Usage::binaryInt:
    case Usage::signedShort:
    case Usage::signedInt:
    case Usage::signedLong:
      setBinary(format, !item.isUnsigned, conventions.isNativeBigEndian);
      break;
    default:
      format.kind = Kind::opaque;
      break;
  }
}

void setDigits(ItemFormat& format, Kind kind, Picture const& picture) {
  format.kind = kind;
  format.digits = static_cast<std::uint8_t>(picture.nines);
  format.scale = scaleOf(picture);
  format.isSigned = picture.isSigned && kind != Kind::unsignedPacked;
}

// The sign of an item without a SIGN clause is in its last digit.
void setZoned(ItemFormat& format, DataItem const& item) {
  setDigits(format, Kind::zoned, *item.picture);
  format.isBlankWhenZero = item.isBlankWhenZero;
  if (!format.isSigned) return;
  bool const isLeading = item.effectiveSign.position == SignPosition::leading;
  format.sign = isLeading ? SignPosition::leading : SignPosition::trailing;
  format.isSignSeparate = item.effectiveSign.isSeparate;
}

void setNational(ItemFormat& format, DataItem const& item, Conventions const& conventions) {
  format.kind = Kind::national;
  format.isBigEndian = conventions.isNationalBigEndian;
  format.isJustified = item.isJustified;
}

void setCharacters(ItemFormat& format, DataItem const& item, Conventions const& conventions) {
  switch (item.picture->category) {
    case Category::numeric:
      setZoned(format, item);
      return;
    case Category::national:
    case Category::nationalEdited:
      setNational(format, item, conventions);
      return;
    case Category::numericEdited:
      if (!conventions.hasEditedNumbers) break;
      format.edited = EditedPicture::make(*item.picture);
      if (format.edited == nullptr) break;
      setDigits(format, Kind::editedNumber, *item.picture);
      format.isSigned = format.edited->isSigned();
      return;
    default:
      break;
  }
  format.kind = Kind::text;
  format.isJustified = item.isJustified;
}

}  // namespace

ItemFormat makeItemFormat(DataItem const& item, Conventions const& conventions) {
  ItemFormat format;
  format.size = static_cast<std::uint32_t>(item.size);
  if (item.size == 0) return format;
  Storage const storage = entryOf(item.effectiveUsage).storage;
  if (storage == Storage::fixed) {
    setFixed(format, item, conventions);
    return format;
  }
  if (item.picture == nullptr) return format;
  bool const isNumeric = item.picture->category == Category::numeric;
  switch (storage) {
    case Storage::binary:
    case Storage::nativeBinary:
    case Storage::shortBinary:
      setPictureBinary(format, item, conventions);
      break;
    case Storage::packed:
      setDigits(format, Kind::packed, *item.picture);
      break;
    case Storage::packedUnsigned:
      setDigits(format, Kind::unsignedPacked, *item.picture);
      break;
    case Storage::characters:
      setCharacters(format, item, conventions);
      break;
    case Storage::nationalCharacters:
      format.kind = Kind::opaque;
      if (item.effectiveUsage == Usage::national && !isNumeric) {
        setNational(format, item, conventions);
      }
      break;
    default:
      format.kind = Kind::opaque;
      break;
  }
  return format;
}

ItemFormat makeTextFormat(std::uint32_t size) {
  ItemFormat format;
  format.size = size;
  format.kind = size == 0 ? Kind::empty : Kind::text;
  return format;
}

}  // namespace fdmorph::values
