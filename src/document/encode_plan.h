// What an encoder knows about a layout: for each element the parts that it may have,
// by name, and the areas of which only one view has parts in a document.
//
// Elements without a name are not here: parts of transparent groups are parts of the
// element around them. All tables are flat; a Range is a part of one of them.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "document/name_numbers.h"
#include "layout/record_set.h"
#include "values/absent_bytes.h"

namespace fdmorph::document {

struct Range {
  std::uint32_t begin = 0;
  std::uint32_t end = 0;

  [[nodiscard]] std::uint32_t size() const { return end - begin; }
  [[nodiscard]] bool isEmpty() const { return begin == end; }
};

/// An element or attribute of an element.
struct PlannedPart {
  std::uint32_t node;
  std::uint32_t view;      ///< the innermost one it is in, or layout::kNone
  std::uint32_t name = 0;  ///< of the element, from 0
  bool isArray = false;    ///< in JSON: it repeats, or is one of several slots
};

/// A name of parts of an element. Those with the same name are its slots.
struct PlannedName {
  std::uint32_t key;  ///< its number in the NameNumbers
  bool isAttribute;
  bool isArray = false;   ///< of any of its parts
  bool isShared = false;  ///< it has parts in an area, and others outside of that
  Range slots = {};       ///< in EncodePlan::slots, in the order of the record
};

/// A name that views of an area have.
struct AreaName {
  std::uint32_t name;     ///< of the element
  std::uint64_t outside;  ///< the occurrences for which there is room outside of the area
};

struct PlannedView {
  std::uint32_t node;
  std::uint32_t area;                           ///< in EncodePlan::areas
  bool isCandidate = false;                     ///< it has a rule, or is the first one
  bool hasText = false;                         ///< the text of the element is in it
  Range texts = {};                             ///< in EncodePlan::texts
  Range areas = {};                             ///< those in it, in EncodePlan::areas
  std::vector<bool> names = {};                 ///< by place in PlannedArea::names: it has it
  std::vector<unsigned char> absentBytes = {};  ///< empty for the first view
};

struct PlannedArea {
  std::uint32_t area;  ///< in Layout::areas
  std::uint32_t view;  ///< the view it is in, or layout::kNone
  bool hasRules = false;
  bool hasText = false;  ///< a view has the text of the element
  Range views = {};      ///< in EncodePlan::views
  Range parts = {};      ///< in EncodePlan::parts: those of all views
  std::vector<AreaName> names = {};
  /// In Layout::areas: those with an item that the rules look at; itself may be one.
  std::vector<std::uint32_t> testedAreas = {};

  [[nodiscard]] bool testsItself() const;
};

/// An item of an element that is there or not as the view it is in.
struct PlannedItem {
  std::uint32_t node;
  std::uint32_t view;
};

/// An element or attribute.
struct PlannedElement {
  bool hasAttributes = false;
  bool hasElements = false;
  Range names = {};   ///< in EncodePlan::names
  Range parts = {};   ///< in EncodePlan::parts, in the order of the record
  Range areas = {};   ///< in EncodePlan::areas
  Range texts = {};   ///< in EncodePlan::texts: the value items
  Range tables = {};  ///< in EncodePlan::tables: with DEPENDING ON
  Range counts = {};  ///< in EncodePlan::counts: items with a count that are no parts
};

/// Immutable; threads may share it.
class EncodePlan {
 public:
  /// All objects must outlive this one.
  EncodePlan(layout::RecordSet const& set, std::uint32_t record, NameNumbers const& index);

  /// The element or attribute of a node, which has one of these roles.
  [[nodiscard]] PlannedElement const& elementOf(std::uint32_t node) const {
    return m_elements[m_elementOf[node]];
  }

  /// The number that the readers give to the name of a node.
  [[nodiscard]] std::uint32_t keyOf(std::uint32_t node) const;

  /// The number of a name among those of the element, or layout::kNone. `guess`
  /// and the next one are looked at first.
  [[nodiscard]] std::uint32_t findName(std::uint32_t node, std::uint32_t key, bool isAttribute,
                                       std::uint32_t guess) const;

  /// Writes the bytes of an elementary item that is absent.
  void writeAbsent(std::uint32_t node, unsigned char* bytes) const {
    values::writeAbsent(m_literals, *m_layout->item(node).item, (*m_layout)[node].format, bytes);
  }

  /// The counter that a node is, in Layout::counters, or layout::kNone.
  [[nodiscard]] std::uint32_t counterOf(std::uint32_t node) const { return m_counterOf[node]; }

  std::vector<PlannedPart> parts;
  std::vector<PlannedName> names;
  std::vector<std::uint32_t> slots;  ///< numbers of parts
  std::vector<PlannedView> views;
  std::vector<PlannedArea> areas;
  std::vector<PlannedItem> texts;
  std::vector<PlannedItem> tables;
  std::vector<PlannedItem> counts;

 private:
  void addElement(std::uint32_t node);
  void addItems(PlannedElement& element, std::uint32_t group, std::uint32_t view);
  void addItem(PlannedElement& element, std::uint32_t node, std::uint32_t view);
  void addArea(PlannedElement& element, std::uint32_t area, std::uint32_t outer);
  void addTestedAreas(PlannedArea& area, std::uint32_t node) const;
  void nameParts(PlannedElement& element, std::uint32_t number);
  void nameViews(PlannedElement const& element);
  [[nodiscard]] std::uint64_t roomOutside(PlannedName const& name, std::uint32_t area) const;
  [[nodiscard]] bool isInView(std::uint32_t inner, std::uint32_t view) const;
  [[nodiscard]] bool canMeet(PlannedPart const& one, PlannedPart const& other) const;
  [[nodiscard]] std::uint32_t viewIn(std::uint32_t inner, std::uint32_t area) const;
  void fillAbsent(std::uint32_t node, unsigned char* bytes) const;

  layout::RecordSet const* m_set;
  layout::Layout const* m_layout;
  NameNumbers const* m_names;
  values::LiteralBytes m_literals;
  std::uint32_t m_record;
  std::vector<PlannedElement> m_elements;
  std::vector<std::uint32_t> m_elementOf;                     // by node
  std::vector<std::uint32_t> m_counterOf;                     // by node
  std::unordered_map<std::uint64_t, std::uint32_t> m_places;  // of names, see findName
};

}  // namespace fdmorph::document
