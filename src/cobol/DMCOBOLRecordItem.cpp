#include "cobol/DMCOBOLRecordItem.h"

#include <algorithm>
#include <string>

#include "text/console.h"
#include "text/multibyte.h"

namespace fdmorph {

void CDMCOBOLRecordItem::setCOBOLDataName(std::string_view& target, std::string_view name,
                                          TextPool& texts) {
  if (name.find('_') == std::string_view::npos) {
    target = name;
    return;
  }
  std::string ruled(name);
  if (isAscii(ruled)) {
    std::replace(ruled.begin(), ruled.end(), '_', '-');
  } else {
    // In some encodings the byte of the underscore can also end a character.
    std::wstring wide = my_mbstowcs(ruled.c_str());
    std::replace(wide.begin(), wide.end(), L'_', L'-');
    ruled = my_wcstombs(wide.c_str());
  }
  target = texts.keep(ruled);
}

CDMCOBOLRecordItem::Writability CDMCOBOLRecordItem::checkWritable() const {
  if (levelNumber < 0 || minOccurs.empty() || dataName.empty()) return Writability::silent;
  if (levelNumber == kConditionLevel && !itemValue.empty()) return Writability::writable;
  if (levelNumber < 1 || levelNumber > kMaxLevel) return Writability::silent;
  bool isWritable = false;
  if (!pictureSymbol.empty()) {
    isWritable = !pictureSize.empty();
  } else {
    bool hasFloatUsage = usage == "COMP-1" || usage == "COMP-2";
    bool isGroup = pictureSize.empty() && !children.empty();
    isWritable = hasFloatUsage || isGroup;
  }
  return isWritable ? Writability::writable : Writability::empty;
}

bool CDMCOBOLRecordItem::warnIfEmpty() const {
  if (checkWritable() == Writability::empty) warnEmptyStructure();
  return false;
}

void CDMCOBOLRecordItem::warnEmptyStructure() const {
  err() << "Warning : Unable to convert schema element \"" << dataName
        << "\" to COBOL (empty structure)" << endLine;
}

void CDMCOBOLRecordItem::addChild(CDMCOBOLRecordItem* child) {
  children.push_back(child);
  if (child != nullptr) ++child->placements;
}

void CDMCOBOLRecordItem::addFirstChild(CDMCOBOLRecordItem* child) {
  children.insert(children.begin(), child);
  ++child->placements;
}

void CDMCOBOLRecordItem::removeChild(CDMCOBOLRecordItem* child) {
  // Items are removed soon after they were added, so the search begins at the
  // end. It stops when the item has no place left.
  for (auto at = children.end(); child->placements > 0 && at != children.begin();) {
    --at;
    if (*at != child) continue;
    at = children.erase(at);
    --child->placements;
  }
}

std::vector<CDMCOBOLRecordItem*> CDMCOBOLRecordItem::removeConditions() {
  std::vector<CDMCOBOLRecordItem*> conditions;
  auto take = [&conditions](CDMCOBOLRecordItem* child) {
    if (child == nullptr || child->levelNumber != kConditionLevel) return false;
    --child->placements;
    conditions.push_back(child);
    return true;
  };
  children.erase(std::remove_if(children.begin(), children.end(), take), children.end());
  return conditions;
}

}  // namespace fdmorph
