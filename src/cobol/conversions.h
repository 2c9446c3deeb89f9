// The conversion of single schema elements.
//
// The walker calls one Process function for each element that it visits. The
// function works on the item at the walk's position and returns a Conversion:
// what it made, and how the walk continues. It can call the walker again.
//
// No conversion failure ends a run. It is one line on the error stream; the
// item is removed or left out, and the walk continues.
#pragma once

#include <string_view>

#include "cobol/DMCOBOLRecordItem.h"
#include "xml/DMXMLElement.h"

namespace fdmorph {

class SchemaWalker;

/// Where a walk is: the item under which new items are added, and the numbers
/// of the next new item.
struct WalkPosition {
  CDMCOBOLRecordItem* current;  ///< null before the head element has its item
  unsigned level;               ///< COBOL level number
  unsigned indent;              ///< blanks in front of the level number

  /// The position for what is `levels` below, under `item`.
  WalkPosition below(CDMCOBOLRecordItem* item, unsigned levels = 1) const {
    return {item, level + levels, indent + levels};
  }
};

/// What the visit of one element leaves.
struct Visit {
  CDMCOBOLRecordItem* item = nullptr;     ///< ended with this one; null: it failed
  CDMCOBOLRecordItem* current = nullptr;  ///< now in place of the position's item
};

/// What a Process function made of one element, and how the walk continues.
struct Conversion {
  CDMCOBOLRecordItem* item = nullptr;     ///< the element's item; null: it failed
  CDMCOBOLRecordItem* current = nullptr;  ///< now in place of the position's item
  bool walkChildren = false;              ///< visit the children of the element
  CDMXMLElement* nextElement = nullptr;   ///< visit this one instead, if not null
  unsigned addedLevels = 0;               ///< levels that the visit goes down

  /// The walk goes no further.
  static Conversion done(CDMCOBOLRecordItem* item, CDMCOBOLRecordItem* current) {
    return {item, current};
  }

  /// The children are visited at the same level.
  static Conversion children(CDMCOBOLRecordItem* item, CDMCOBOLRecordItem* current) {
    return {item, current, true};
  }

  /// The children are visited one level below.
  static Conversion childrenBelow(CDMCOBOLRecordItem* item, CDMCOBOLRecordItem* current) {
    return {item, current, true, nullptr, 1};
  }

  /// `next` is visited instead of the children, at the same level or below.
  static Conversion follow(CDMXMLElement* next, unsigned addedLevels, CDMCOBOLRecordItem* item,
                           CDMCOBOLRecordItem* current) {
    return {item, current, false, next, addedLevels};
  }

  /// The element is left out.
  static Conversion failed(CDMCOBOLRecordItem* current) { return {nullptr, current}; }
};

/// `element`: makes an item, completes the one of a reference, or refuses it.
Conversion ProcessElementElement(SchemaWalker& walker, CDMXMLElement* element, WalkPosition at);

/// `attribute`: makes a child item among the other members of its element. It
/// completes only an item that was made for an attribute as well.
Conversion ProcessAttributeElement(SchemaWalker& walker, CDMXMLElement* element, WalkPosition at);

/// The constructs that arrange declarations, and those without a COBOL form.
/// None of them makes an item: members are flat under the enclosing element,
/// and the occurrences of a group are ignored.
Conversion ProcessModelGroup(SchemaWalker& walker, CDMXMLElement* element, WalkPosition at);

/// `union`: adds a group item with one data item for each member type to the
/// current item. Every group after the first redefines the one before it.
void ProcessElementUnion(SchemaWalker& walker, CDMXMLElement* element, WalkPosition at);

/// `restriction` and `extension`: both work on the current item, the one of the
/// declaration whose type is walked.
Conversion ProcessElementRestriction(SchemaWalker& walker, CDMXMLElement* element, WalkPosition at);
Conversion ProcessElementExtension(SchemaWalker& walker, CDMXMLElement* element, WalkPosition at);

// Reports of several conversions.

void reportRecursion(std::string_view name);
void reportMissingReference(std::string_view name);
void reportUnconstrainedType(std::string_view name);

}  // namespace fdmorph
