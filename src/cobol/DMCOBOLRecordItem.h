// One COBOL data description entry under construction: a group item, an
// elementary item or a condition name (level 88). The conversion builds a tree
// of items for each record and reads and writes the fields directly.
//
// Texts are views of the schema's own text, of literals, or of the record's
// text pool; all three outlive the item. An empty text means "not set".
#pragma once

#include <string_view>
#include <vector>

#include "text/text_pool.h"
#include "xml/DMXMLElement.h"

namespace fdmorph {

inline constexpr int kConditionLevel = 88;
inline constexpr int kMaxLevel = 49;

/// The kind of content in which the type of an item is derived.
enum class DerivationKind : unsigned {
  none = 0,
  complexContent = 1,  ///< also the items of a union
  simpleContent = 2,   ///< the next declaration of the same kind completes it
};

class CDMCOBOLRecordItem {
 public:
  /// The name rule: every underscore becomes a hyphen and nothing else
  /// changes. The result is `name` itself or lives in `texts`.
  static void setCOBOLDataName(std::string_view& target, std::string_view name, TextPool& texts);

  /// The name rule with `dataName` as the target.
  void setCOBOLName(std::string_view name, TextPool& texts) {
    setCOBOLDataName(dataName, name, texts);
  }

  /// True if the item can be written. If it has a name and a valid level but
  /// no content, each call prints a warning on the error stream.
  bool IsValidCOBOLItem() const {
    return checkWritable() == Writability::writable || warnIfEmpty();
  }

  enum class Writability {
    writable,
    silent,  ///< not writable, without a message
    empty,   ///< not writable: an empty group, or half a picture
  };
  Writability checkWritable() const;

  /// Prints the warning about an item without content.
  void warnEmptyStructure() const;

  void addChild(CDMCOBOLRecordItem* child);
  void addFirstChild(CDMCOBOLRecordItem* child);

  /// Removes every entry of `child` from the children. Its `parent` stays.
  void removeChild(CDMCOBOLRecordItem* child);

  /// Removes all condition names from the children and returns them.
  [[nodiscard]] std::vector<CDMCOBOLRecordItem*> removeConditions();

  int levelNumber = -1;   ///< negative: unwritable; 88: a condition name
  int totalDigits = -1;   ///< of the facet; -1 without one
  int indent = 0;         ///< blanks in front of the level number
  int placements = 0;     ///< entries in the children of its parents
  unsigned position = 0;  ///< place in the written record; 0 before that
  unsigned serial = 0;    ///< number of the item in its store, from 1
  DerivationKind derivationKind = DerivationKind::none;
  bool hasDecimal = false;  ///< the picture has a "V9" part
  bool isAttribute = false;
  std::string_view fractionDigits;  ///< of the facet, as text
  std::string_view dataName;        ///< COBOL name, after the name rule
  std::string_view pictureSymbol;   ///< "X", "9" or "S9"
  std::string_view pictureSize;     ///< repeat count between the brackets
  std::string_view identifiedBy;    ///< the XML name
  std::string_view xmlName;         ///< text of `type` or `ref`, for messages
  std::string_view xmlNamespace;    ///< URI
  std::string_view minOccurs = "1";
  std::string_view maxOccurs = "1";             ///< may be "unbounded"
  std::string_view countInName;                 ///< name of the count field, unprefixed
  std::string_view itemValue;                   ///< of a condition name
  std::string_view usage;                       ///< "COMP-1", "COMP-2" or empty
  CDMCOBOLRecordItem* redefinedItem = nullptr;  ///< a sibling
  CDMCOBOLRecordItem* parent = nullptr;         ///< null at the root
  CDMXMLElement* typeElement = nullptr;         ///< outermost type definition reached
  CDMXMLElement* schemaElement = nullptr;       ///< what made the item
  std::vector<CDMCOBOLRecordItem*> children;    ///< in output order; null entries are skipped

 private:
  bool warnIfEmpty() const;
};

}  // namespace fdmorph
