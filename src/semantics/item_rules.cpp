#include "semantics/item_rules.h"

#include <algorithm>

#include "source/literals.h"

namespace fdmorph::compiler {
namespace {

constexpr std::uint32_t kBinaryDigits = 18;

class ItemCheck {
 public:
  ItemCheck(DataItem const& item, Diagnostics& diagnostics)
      : m_item(item), m_usage(entryOf(item.effectiveUsage)), m_diagnostics(diagnostics) {}

  void check() {
    if (m_item.isGroup()) {
      checkGroup();
    } else if (m_item.picture == nullptr) {
      checkWithoutPicture();
    } else if (m_item.picture->isValid()) {
      checkUsage();
      checkClauses();
    }
  }

  void checkValues(std::vector<ValueRange> const& values) {
    for (ValueRange const& range : values) {
      checkValue(range.from);
      checkValue(range.to);
    }
  }

 private:
  void report(Code code, std::string text) {
    m_diagnostics.report(code, m_item.place, std::move(text));
  }
  std::string name() const {
    return m_item.name.empty() ? "the item" : "the item " + quoted(m_item.name);
  }

  void checkGroup() {
    if (m_item.picture != nullptr) {
      m_diagnostics.report(Code::picture, m_item.picturePlace,
                           name() + " has a picture and items below it");
    }
    if (m_item.isJustified) report(Code::clause, "a group can't be JUSTIFIED");
    if (m_item.isBlankWhenZero) report(Code::clause, "a group can't be BLANK WHEN ZERO");
  }

  void checkWithoutPicture() {
    if (takesPicture(m_item.effectiveUsage) && !m_item.isIncomplete) {
      report(Code::pictureMissing, name() + " has no picture");
    }
    if (m_item.isJustified) report(Code::clause, "JUSTIFIED needs a picture of characters");
    if (m_item.isBlankWhenZero) report(Code::clause, "BLANK WHEN ZERO needs a numeric picture");
  }

  void checkUsage() {
    Category category = m_item.picture->category;
    bool isNumber = category == Category::numeric;
    bool fits = true;
    switch (m_usage.storage) {
      case Storage::fixed:
        fits = false;
        break;
      case Storage::nativeBinary:
      case Storage::shortBinary:
        fits = isNumber || category == Category::alphanumeric;
        break;
      case Storage::binary:
      case Storage::packed:
      case Storage::packedUnsigned:
        fits = isNumber;
        break;
      case Storage::nationalCharacters:
        fits = category != Category::alphanumeric && category != Category::alphabetic &&
               category != Category::alphanumericEdited;
        break;
      case Storage::bits:
        fits = m_item.picture->isBoolean;
        break;
      case Storage::characters:
        break;
    }
    if (m_item.picture->isBoolean) {
      fits = m_usage.storage == Storage::bits || m_usage.storage == Storage::characters;
    }
    if (!fits) {
      m_diagnostics.report(Code::usage, m_item.picturePlace,
                           "the picture doesn't go with the usage " + std::string(m_usage.name));
    }
    bool isBinary = m_usage.storage == Storage::binary || m_usage.storage == Storage::nativeBinary;
    if (isNumber && isBinary && m_item.picture->nines > kBinaryDigits) {
      m_diagnostics.report(Code::binarySize, m_item.picturePlace,
                           "a binary item holds 18 digits at most");
    }
  }

  void checkClauses() {
    Category category = m_item.picture->category;
    bool isNumber = category == Category::numeric;
    bool isCharacters =
        m_usage.storage == Storage::characters || m_usage.storage == Storage::nationalCharacters;
    if (m_item.isJustified && (isNumber || category == Category::numericEdited)) {
      report(Code::clause, "JUSTIFIED needs a picture of characters");
    }
    bool isZeroable = (isNumber && isCharacters) || category == Category::numericEdited;
    if (m_item.isBlankWhenZero && !isZeroable) {
      report(Code::clause, "BLANK WHEN ZERO needs a numeric picture of usage DISPLAY");
    } else if (m_item.isBlankWhenZero &&
               m_item.picture->text.find_first_of("Ss*") != std::string::npos) {
      report(Code::clause, "BLANK WHEN ZERO excludes 'S' and '*' in the picture");
    }
    bool hasOwnSign = m_item.sign.position != SignPosition::none;
    if (hasOwnSign && !(isNumber && m_item.picture->isSigned && isCharacters)) {
      report(Code::clauseWarning, "SIGN has no meaning without 'S' in a picture of usage DISPLAY");
    }
  }

  void checkValue(Literal const& value) {
    if (m_item.isGroup()) checkCharacters(value, m_item.size);
    if (m_item.isGroup() || m_item.picture == nullptr || !m_item.picture->isValid()) return;
    bool isNumber = m_item.picture->category == Category::numeric;
    bool isText = value.kind == Literal::Kind::text;
    if (isNumber && isText && !value.isAll) {
      m_diagnostics.report(Code::valueSize, value.place,
                           "the value of a numeric item is written as a text");
      return;
    }
    if (isNumber) {
      checkNumber(value);
    } else if (m_item.picture->category != Category::numericEdited) {
      checkCharacters(value, m_item.picture->size);
    }
  }

  void checkCharacters(Literal const& value, std::uint64_t size) {
    // An open literal is reported already.
    bool isText = value.kind == Literal::Kind::text && !value.isAll && !value.isOpen;
    if (isText && decodeLiteral(value.text).characters > size) {
      m_diagnostics.report(Code::valueSize, value.place, "the value is longer than the item");
    }
  }

  // Native binary numbers may hold more than their pictures say.
  void checkNumber(Literal const& value) {
    bool isNative =
        m_usage.storage == Storage::nativeBinary || m_usage.storage == Storage::shortBinary;
    if (value.kind != Literal::Kind::number || isNative) return;
    std::string_view text = value.text;
    bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+')) text.remove_prefix(1);
    if (text.find_first_of("Ee") != std::string_view::npos) return;
    std::size_t point = std::min(text.find_first_of(".,"), text.size());
    std::string_view whole = text.substr(0, point);
    std::string_view fraction = text.substr(std::min(point + 1, text.size()));
    whole.remove_prefix(std::min(whole.find_first_not_of('0'), whole.size()));
    fraction = fraction.substr(0, fraction.find_last_not_of('0') + 1);  // npos + 1 is 0
    Picture const& picture = *m_item.picture;
    if (whole.size() > picture.digits - picture.scale || fraction.size() > picture.scale) {
      m_diagnostics.report(Code::valueSize, value.place, "the value has more digits than the item");
    } else if (isNegative && !picture.isSigned) {
      m_diagnostics.report(Code::valueSize, value.place,
                           "the value is negative and the item has no sign");
    }
  }

  DataItem const& m_item;
  UsageEntry const& m_usage;
  Diagnostics& m_diagnostics;
};

}  // namespace

void inherit(DataItem& item) {
  DataItem const* group = item.parent;
  bool hasUsage = item.usage != Usage::none;
  bool hasSign = item.sign.position != SignPosition::none;
  item.effectiveUsage = hasUsage || group == nullptr ? item.usage : group->effectiveUsage;
  if (!hasUsage && group != nullptr) item.isUnsigned = group->isUnsigned;
  item.effectiveSign = hasSign || group == nullptr ? item.sign : group->effectiveSign;
}

void checkItem(DataItem const& item, Diagnostics& diagnostics) {
  ItemCheck(item, diagnostics).check();
}

void checkValues(DataItem const& item, std::vector<ValueRange> const& values,
                 Diagnostics& diagnostics) {
  ItemCheck(item, diagnostics).checkValues(values);
}

bool isInteger(DataItem const& item) {
  if (item.isGroup()) return false;
  UsageEntry const& usage = entryOf(item.effectiveUsage);
  bool isFloat =
      usage.usage == Usage::comp1 || usage.usage == Usage::comp2 || usage.name.starts_with("float");
  if (usage.storage == Storage::fixed) return usage.isNumeric && !isFloat;
  if (item.picture == nullptr) return false;
  // X stands for bytes of a number in these usages.
  bool isBytes = usage.storage == Storage::nativeBinary || usage.storage == Storage::shortBinary;
  bool isNumber = item.picture->category == Category::numeric;
  return (isNumber && item.picture->scale == 0) || (isBytes && !isNumber);
}

ItemKind kindOf(DataItem const& item) {
  if (item.isGroup()) return ItemKind::group;
  UsageEntry const& usage = entryOf(item.effectiveUsage);
  if (usage.storage == Storage::fixed) {
    return usage.isNumeric ? ItemKind::numeric : ItemKind::alphanumeric;
  }
  bool isNative = usage.storage == Storage::nativeBinary || usage.storage == Storage::shortBinary;
  if (item.picture == nullptr || isNative) {
    return isNative ? ItemKind::numeric : ItemKind::alphanumeric;
  }
  switch (item.picture->category) {
    case Category::numeric:
      // Blanks are no number.
      return item.isBlankWhenZero ? ItemKind::numericEdited : ItemKind::numeric;
    case Category::numericEdited:
      return ItemKind::numericEdited;
    case Category::national:
    case Category::nationalEdited:
      return ItemKind::national;
    case Category::alphanumericEdited:
      return ItemKind::alphanumericEdited;
    case Category::alphabetic:
    case Category::alphanumeric:
      break;
  }
  return ItemKind::alphanumeric;
}

}  // namespace fdmorph::compiler
