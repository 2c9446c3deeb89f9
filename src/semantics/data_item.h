// The data of a program as the parser hands it to the checker and the checker
// to the writer.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <string_view>
#include <vector>

#include "semantics/picture.h"
#include "semantics/usage.h"
#include "source/source_files.h"

namespace fdmorph::compiler {

// Level numbers.
inline constexpr std::uint8_t kMaxGroupLevel = 49;
inline constexpr std::uint8_t kRenamesLevel = 66;
inline constexpr std::uint8_t kSingleLevel = 77;     ///< a record of one item
inline constexpr std::uint8_t kConstantLevel = 78;   ///< also entries with CONSTANT: no data
inline constexpr std::uint8_t kConditionLevel = 88;  ///< belongs to the item before it

constexpr bool isLevelNumber(int level) {
  return (level >= 1 && level <= kMaxGroupLevel) || level == kRenamesLevel ||
         level == kSingleLevel || level == kConstantLevel || level == kConditionLevel;
}

/// A name with the groups that qualify it, innermost first.
struct QualifiedName {
  std::string_view name;
  std::vector<std::string_view> qualifiers = {};
  Place place = {};
};

/// A literal or figurative constant.
struct Literal {
  enum class Kind : std::uint8_t {
    none,
    number,
    text,  ///< as written, with its quotes and the letters before them
    zero,
    space,
    quote,
    lowValue,
    highValue,
    null,
    broken,  ///< a constant whose value was reported
  };

  std::string_view text;
  Place place;
  Kind kind = Kind::none;
  bool isOpen = false;    ///< a text without its closing quote
  bool isBinary = false;  ///< joined, with bytes that no text stands for
  bool isAll = false;     ///< ALL: repeated over the length of the item
};

/// One value of a VALUE clause, or a range.
struct ValueRange {
  Literal from;
  Literal to;  ///< of kind none if there is no THRU
};

enum class SignPosition : std::uint8_t { none, leading, trailing };

struct SignClause {
  SignPosition position = SignPosition::none;
  bool isSeparate = false;
};

struct OccursClause {
  std::uint64_t least = 1;
  std::uint64_t most = 1;
  bool isDepending = false;
  QualifiedName depending;
  std::vector<QualifiedName> keys;  ///< ASCENDING and DESCENDING KEY
  Place place;
};

struct DataItem {
  // What the source says.
  std::string_view name;  ///< empty without one
  Place place;            ///< of the name, or of the level number
  std::uint8_t level = 0;
  bool isImplied = false;  ///< stands in no source: holds the items of a bare copybook
  bool isRedefinition = false;
  bool isJustified = false;
  bool isBlankWhenZero = false;
  bool isSynchronized = false;
  bool isUnsigned = false;    ///< a binary usage without a picture
  bool isIncomplete = false;  ///< a picture or members that were reported are missing
  Usage usage = Usage::none;
  SignClause sign;
  Picture const* picture = nullptr;
  Place picturePlace;
  std::unique_ptr<OccursClause> occurs;
  std::unique_ptr<QualifiedName> related;  ///< REDEFINES, or the first of RENAMES
  std::unique_ptr<QualifiedName> through;  ///< the last of RENAMES
  std::vector<ValueRange> values;

  // The tree. Items belong to their list.
  DataItem* parent = nullptr;
  DataItem* firstChild = nullptr;
  DataItem* lastChild = nullptr;
  DataItem* next = nullptr;
  DataItem* firstCondition = nullptr;  ///< level 88, linked by `next`
  DataItem* lastCondition = nullptr;

  // What the checker finds.
  DataItem const* redefined = nullptr;  ///< the item that storage is shared with
  DataItem const* dependingOn = nullptr;
  DataItem* sameName = nullptr;        ///< another item of this name
  DataItem* sameInRecord = nullptr;    ///< another one in the same record
  Usage effectiveUsage = Usage::none;  ///< its own or that of a group around it
  SignClause effectiveSign;
  std::uint64_t size = 0;    ///< bytes of one occurrence
  std::uint64_t offset = 0;  ///< from the beginning of the record
  std::uint64_t slack = 0;   ///< bytes of its group that lie ahead of it to align it

  bool isGroup() const { return firstChild != nullptr; }
  std::uint64_t occurrences() const { return occurs ? occurs->most : 1; }
};

/// The record that an item stands in.
template <typename Item>
Item* recordOf(Item& item) {
  Item* record = &item;
  while (record->parent != nullptr) record = record->parent;
  return record;
}

/// Whether an item is `group` or stands in it.
inline bool isInside(DataItem const* item, DataItem const* group) {
  while (item != nullptr && item != group) item = item->parent;
  return item != nullptr;
}

/// Records one after another.
struct RecordList {
  DataItem* first = nullptr;
  DataItem* last = nullptr;
};

struct FileDescription {
  std::string_view name;
  Place place;
  RecordList records;
  QualifiedName depending = {};  ///< of RECORD VARYING; without a name if there is none
};

/// The length of an item as a constant got it, while the item may have grown.
struct TakenLength {
  DataItem const* item;
  std::uint64_t size;  ///< bytes of all its occurrences
  Place place;
};

/// The data division of one program.
struct DataDivision {
  bool isProgram = false;  ///< a division's header was there: no bare copybook
  std::string_view programName;
  std::deque<DataItem> items;  ///< owns all of them, in the order of the source
  std::deque<Picture> pictures;
  std::deque<FileDescription> files;
  std::vector<TakenLength> lengths;
  RecordList workingStorage;  ///< also the records of a bare copybook
  RecordList localStorage;
  RecordList linkage;

  bool isEmpty() const {
    return files.empty() && workingStorage.first == nullptr && localStorage.first == nullptr &&
           linkage.first == nullptr;
  }
};

}  // namespace fdmorph::compiler
