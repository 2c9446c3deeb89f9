// The data division as a tree of items. The parser builds it, the checker completes
// it, and the writer reads it.
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
inline constexpr std::uint8_t kConstantLevel = 78;   ///< also of entries with CONSTANT
inline constexpr std::uint8_t kConditionLevel = 88;  ///< a condition of the item before it

constexpr bool isLevelNumber(int level) {
  return (level >= 1 && level <= kMaxGroupLevel) || level == kRenamesLevel ||
         level == kSingleLevel || level == kConstantLevel || level == kConditionLevel;
}

/// A name with its qualifiers, innermost first.
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
    text,  ///< as written, with its quotes and prefix
    zero,
    space,
    quote,
    lowValue,
    highValue,
    null,
    broken,  ///< a constant with an error in its value
  };

  std::string_view text;
  Place place;
  Kind kind = Kind::none;
  bool isOpen = false;    ///< a text without its closing quote
  bool isBinary = false;  ///< joined, with bytes that are not text
  bool isAll = false;     ///< ALL: repeated up to the size of the item
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

enum class KeyOrder : std::uint8_t { ascending, descending };

struct OccursClause {
  std::uint64_t least = 1;
  std::uint64_t most = 1;
  bool isDepending = false;
  QualifiedName depending;
  std::vector<QualifiedName> keys;        ///< ASCENDING and DESCENDING KEY
  std::vector<KeyOrder> keyOrders;        ///< one for each key
  std::vector<std::string_view> indexes;  ///< INDEXED BY
  Place place;
};

/// The clauses that tie an item to an element or attribute of an XML document.
/// The dictionary has no trace of them.
struct XmlClauses {
  Literal identifiedBy;   ///< of kind none if there is no clause
  Literal namespaceName;  ///< the same
  QualifiedName countIn;  ///< the number of occurrences; its name is empty if there is none
  bool isAttribute = false;
};

/// An entry of the data division. Its names look at the texts of the source.
struct DataItem {
  // Set by the parser.
  std::string_view name;  ///< empty if there is none
  Place place;            ///< of the name, or of the level number
  std::uint8_t level = 0;
  bool isImplied = false;  ///< not in the source: the record of a bare copybook
  bool isRedefinition = false;
  bool isJustified = false;
  bool isBlankWhenZero = false;
  bool isSynchronized = false;
  bool isUnsigned = false;    ///< UNSIGNED after a usage without a picture
  bool isIncomplete = false;  ///< an error about its picture or items was reported
  bool isXmlRecord = false;   ///< a record with XML clauses, its own or of an item in it
  Usage usage = Usage::none;
  SignClause sign;
  Picture const* picture = nullptr;
  Place picturePlace;
  std::unique_ptr<OccursClause> occurs;
  std::unique_ptr<XmlClauses> xml;         ///< null if it has none of them
  std::unique_ptr<QualifiedName> related;  ///< REDEFINES, or the first of RENAMES
  std::unique_ptr<QualifiedName> through;  ///< the last of RENAMES
  std::vector<ValueRange> values;
  std::unique_ptr<Literal> falseValue;  ///< of a condition, WHEN SET TO FALSE; null if none

  // The tree. DataDivision::items owns the items.
  DataItem* parent = nullptr;
  DataItem* firstChild = nullptr;
  DataItem* lastChild = nullptr;
  DataItem* next = nullptr;
  DataItem* firstCondition = nullptr;  ///< level 88; linked by `next`
  DataItem* lastCondition = nullptr;

  // Set by the checker.
  DataItem const* redefined = nullptr;  ///< the item whose storage it shares
  DataItem const* dependingOn = nullptr;
  DataItem* sameName = nullptr;        ///< another item of this name
  DataItem* sameInRecord = nullptr;    ///< another item of this name in the record
  bool isPictureImplied = false;       ///< the picture is that of its value
  Usage effectiveUsage = Usage::none;  ///< its own or that of a group around it
  SignClause effectiveSign;
  std::uint64_t size = 0;    ///< bytes of one occurrence
  std::uint64_t offset = 0;  ///< from the beginning of the record
  std::uint64_t slack = 0;   ///< bytes before it that align it or fill up its table

  bool isGroup() const { return firstChild != nullptr; }
  std::uint64_t occurrences() const { return occurs ? occurs->most : 1; }
};

/// The record that contains an item.
template <typename Item>
Item* recordOf(Item& item) {
  Item* record = &item;
  while (record->parent != nullptr) record = record->parent;
  return record;
}

/// Whether an elementary item may go without a picture, with no storage: XML
/// clauses describe elements without content, too.
inline bool mayBeEmpty(DataItem const& item) {
  return recordOf(item)->isXmlRecord;
}

/// Whether an item is `group` or is in it. `item` may be null.
inline bool isInside(DataItem const* item, DataItem const* group) {
  while (item != nullptr && item != group) item = item->parent;
  return item != nullptr;
}

/// The records of a section or file, linked by `next`.
struct RecordList {
  DataItem* first = nullptr;
  DataItem* last = nullptr;
};

struct FileDescription {
  std::string_view name;
  Place place;
  RecordList records;
  QualifiedName depending = {};  ///< of RECORD VARYING; its name is empty if there is none
};

/// The length of an item that a constant used before its group was complete.
struct TakenLength {
  DataItem const* item;
  std::uint64_t size;  ///< bytes of all its occurrences
  Place place;
};

/// The data division of one program.
struct DataDivision {
  bool isProgram = false;  ///< it has a division header; otherwise it is a bare copybook
  StorageSizes sizes = Dialect::gnuCobol;
  std::string_view programName;
  std::deque<DataItem> items;  ///< all items, in the order of the source
  std::deque<Picture> pictures;
  std::deque<FileDescription> files;
  std::vector<TakenLength> lengths;
  RecordList workingStorage;  ///< of a bare copybook: all records
  RecordList localStorage;
  RecordList linkage;

  bool isEmpty() const {
    return files.empty() && workingStorage.first == nullptr && localStorage.first == nullptr &&
           linkage.first == nullptr;
  }
};

}  // namespace fdmorph::compiler
