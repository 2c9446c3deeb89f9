#include "semantics/item_rules.h"

#include <algorithm>

#include "source/literals.h"
#include "text/letter_case.h"

namespace fdmorph::compiler {
namespace {

constexpr std::uint32_t kMaxBinaryDigits = 18;

// The picture that a value implies; empty if it implies none.
std::string pictureOf(Literal const& value, bool isNationalUsage) {
  switch (value.kind) {
    case Literal::Kind::zero:
      return "9";
    case Literal::Kind::space:
    case Literal::Kind::quote:
    case Literal::Kind::lowValue:
    case Literal::Kind::highValue:
    case Literal::Kind::null:
      return "X";
    case Literal::Kind::text:
      break;
    default:
      return {};
  }
  LiteralContent content = decodeLiteral(value.text);
  if (content.isNumber) return {};
  bool isNational = isNationalUsage || isNationalLiteral(value.text);
  bool hasFinalNul = toUpper(value.text.front()) == 'Z';
  std::size_t size = isNational ? content.characters : content.text.size() + (hasFinalNul ? 1 : 0);
  return (isNational ? "N(" : "X(") + std::to_string(std::max<std::size_t>(size, 1)) + ")";
}

/// Checks the clauses and values of one item.
class ItemCheck {
 public:
  ItemCheck(DataItem const& item, Diagnostics& diagnostics)
      : m_item(item), m_usage(entryOf(item.effectiveUsage)), m_diagnostics(diagnostics) {}

  void check() {
    checkEmptyParts();
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
  std::string name() const { return m_item.name.empty() ? "item" : "item " + quoted(m_item.name); }

  void checkEmptyParts() {
    if (mayBeEmpty(m_item)) return;
    if (m_item.picture != nullptr && m_item.picture->isValid() && m_item.picture->hasEmptyRun) {
      m_diagnostics.report(Code::picture, m_item.picturePlace,
                           "picture symbol is repeated zero times");
    }
    if (m_item.occurs && m_item.occurs->most == 0) {
      m_diagnostics.report(Code::occurs, m_item.occurs->place, "a table must occur at least once");
    }
  }

  void checkGroup() {
    if (m_item.picture != nullptr) {
      m_diagnostics.report(Code::picture, m_item.picturePlace,
                           name() + " is a group and has a PICTURE clause");
    }
    if (m_item.isJustified) report(Code::clause, "JUSTIFIED is not allowed for a group");
    if (m_item.isBlankWhenZero) report(Code::clause, "BLANK WHEN ZERO is not allowed for a group");
  }

  void checkWithoutPicture() {
    bool isMissing = takesPicture(m_item.effectiveUsage) && !m_item.isIncomplete;
    if (isMissing && !mayBeEmpty(m_item)) {
      report(Code::pictureMissing, name() + " has no PICTURE clause");
    }
    if (m_item.isJustified) {
      report(Code::clause, "JUSTIFIED requires an alphanumeric or national picture");
    }
    if (m_item.isBlankWhenZero) report(Code::clause, "BLANK WHEN ZERO requires a numeric picture");
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
                           "picture is not allowed with usage " + std::string(m_usage.name));
    }
    bool isBinary = m_usage.storage == Storage::binary || m_usage.storage == Storage::nativeBinary;
    if (isNumber && isBinary && m_item.picture->nines > kMaxBinaryDigits) {
      m_diagnostics.report(
          Code::binarySize, m_item.picturePlace,
          "binary item has more than " + std::to_string(kMaxBinaryDigits) + " digits");
    }
  }

  void checkClauses() {
    Category category = m_item.picture->category;
    bool isNumber = category == Category::numeric;
    bool isCharacters =
        m_usage.storage == Storage::characters || m_usage.storage == Storage::nationalCharacters;
    if (m_item.isJustified && (isNumber || category == Category::numericEdited)) {
      report(Code::clause, "JUSTIFIED requires an alphanumeric or national picture");
    }
    bool isZeroable = (isNumber && isCharacters) || category == Category::numericEdited;
    if (m_item.isBlankWhenZero && !isZeroable) {
      report(Code::clause, "BLANK WHEN ZERO requires a numeric picture of usage DISPLAY");
    } else if (m_item.isBlankWhenZero &&
               m_item.picture->text.find_first_of("Ss*") != std::string::npos) {
      report(Code::clause, "BLANK WHEN ZERO is not allowed with 'S' or '*' in the picture");
    }
    bool hasOwnSign = m_item.sign.position != SignPosition::none;
    if (hasOwnSign && !(isNumber && m_item.picture->isSigned && isCharacters)) {
      report(Code::clauseWarning, "SIGN has no effect without 'S' in a picture of usage DISPLAY");
    }
  }

  void checkValue(Literal const& value) {
    if (m_item.isGroup()) checkCharacters(value, m_item.size);
    if (m_item.isGroup() || m_item.picture == nullptr || !m_item.picture->isValid()) return;
    bool isNumber = m_item.picture->category == Category::numeric;
    bool isText = value.kind == Literal::Kind::text;
    if (isNumber && isText && !value.isAll) {
      m_diagnostics.report(Code::valueSize, value.place, "numeric item has a nonnumeric value");
      return;
    }
    if (isNumber) {
      checkNumber(value);
    } else if (m_item.picture->category != Category::numericEdited) {
      checkCharacters(value, m_item.picture->size);
    }
  }

  void checkCharacters(Literal const& value, std::uint64_t size) {
    // An open literal has been reported already.
    bool isText = value.kind == Literal::Kind::text && !value.isAll && !value.isOpen;
    if (isText && decodeLiteral(value.text).characters > size) {
      m_diagnostics.report(Code::valueSize, value.place, "value is longer than the item");
    }
  }

  // Native binary numbers may have more digits than their pictures.
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
      m_diagnostics.report(Code::valueSize, value.place, "value has more digits than the item");
    } else if (isNegative && !picture.isSigned) {
      m_diagnostics.report(Code::valueSize, value.place, "negative value of an unsigned item");
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

void implyPicture(DataItem& item, DataDivision& data) {
  if (item.isPictureImplied) {
    // It had no items below it at the time.
    if (item.isGroup()) item.picture = nullptr;
    return;
  }
  if (item.level == 1 || item.level == kSingleLevel) return;
  bool isMissing = !item.isGroup() && item.picture == nullptr && !item.isIncomplete &&
                   takesPicture(item.effectiveUsage) && !item.values.empty();
  if (!isMissing) return;
  Literal const& value = item.values.front().from;
  std::string text = pictureOf(value, item.effectiveUsage == Usage::national);
  if (text.empty()) return;
  data.pictures.push_back(analysePicture(text, {}, {}));
  item.picture = &data.pictures.back();
  item.picturePlace = value.place;
  item.isPictureImplied = true;
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
  // In these usages the symbol X describes bytes of a number.
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
      // Its data may be blank.
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
