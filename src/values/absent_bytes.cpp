#include "values/absent_bytes.h"

#include <cstring>

#include "text/letter_case.h"
#include "values/edited_picture.h"

namespace fdmorph::values {
namespace {

using compiler::Category;
using compiler::DataItem;
using compiler::Literal;

bool isFiller(DataItem const& item) {
  bool const hasXmlName = item.xml != nullptr && item.xml->identifiedBy.kind != Literal::Kind::none;
  return !hasXmlName && (item.name.empty() || equalsIgnoringCase(item.name, "FILLER"));
}

bool isNumericEdited(DataItem const& item) {
  return item.picture != nullptr && item.picture->category == Category::numericEdited;
}

Literal figurative(Literal::Kind kind) {
  Literal literal;
  literal.kind = kind;
  return literal;
}

// A number as the value of a numeric-edited item is edited, unlike a text.
bool writeEdited(LiteralBytes const& literals, DataItem const& item, Literal const& literal,
                 unsigned char* bytes) {
  if (!isNumericEdited(item) || literal.kind == Literal::Kind::text) return false;
  std::optional<std::string> const number = LiteralBytes::numberOf(literal);
  if (!number) return false;
  Conventions conventions = literals.values().conventions();
  conventions.hasEditedNumbers = true;
  ItemFormat const format = makeItemFormat(item, conventions);
  return format.kind == Kind::editedNumber &&
         literals.values().encode(format, *number, bytes).error == ValueError::none;
}

}  // namespace

bool hasInitialValue(DataItem const& item) {
  if (item.values.empty()) return false;
  for (DataItem const* each = &item; each != nullptr; each = each->parent) {
    if (each->redefined != nullptr || each->isRedefinition) return false;
  }
  return true;
}

void writeEmpty(LiteralBytes const& literals, DataItem const& item, ItemFormat const& format,
                unsigned char* bytes) {
  bool const isNumber = format.isNumber() && format.kind != Kind::editedNumber;
  bool const isBlank = !isNumber || format.isBlankWhenZero || isFiller(item);
  std::memset(bytes, 0, format.size);
  if (format.kind == Kind::opaque || item.effectiveUsage == compiler::Usage::index) return;
  ItemFormat const blanks = format.kind == Kind::national ? format : makeTextFormat(format.size);
  auto const kind = isBlank ? Literal::Kind::space : Literal::Kind::zero;
  // Every encoding has these characters.
  static_cast<void>(literals.write(isBlank ? blanks : format, figurative(kind), bytes));
}

void writeAbsent(LiteralBytes const& literals, DataItem const& item, ItemFormat const& format,
                 unsigned char* bytes) {
  if (hasInitialValue(item)) {
    Literal const& literal = item.values.front().from;
    if (writeEdited(literals, item, literal, bytes)) return;
    if (literals.write(format, literal, bytes)) return;
  }
  writeEmpty(literals, item, format, bytes);
}

}  // namespace fdmorph::values
