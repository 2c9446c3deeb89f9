// The program that writes a record as a JSON object.
//
// A comma follows each value while the operations are made and run; the end of an
// object or array takes the place of the last one.
#pragma once

#include "document/operation_list.h"
#include "document/parts.h"

namespace fdmorph::document {

/// Makes the operations of one record. To be used once.
class JsonProgram {
 public:
  JsonProgram(layout::RecordSet const& set, std::uint32_t record, OutputRules const& rules)
      : m_set(set), m_layout(set.layouts()[record]), m_rules(rules), m_list(set, record) {}

  [[nodiscard]] Program make();

 private:
  /// The slots of an element: an array each, at the place of the first one.
  struct Slots {
    std::vector<SlotGroup> groups;
    std::vector<bool> areWritten;
    SlotGroup const* only = nullptr;  ///< all else is passed over
  };

  void addValue(std::uint32_t node);
  void addObject(std::uint32_t node);
  void addItems(std::uint32_t group, PartKind kind, Slots& slots);
  void addItem(std::uint32_t node, PartKind kind, Slots& slots);
  void addArea(std::uint32_t area, PartKind kind, Slots& slots);
  void addSlots(std::uint32_t node, Slots& slots);
  void addMember(std::uint32_t node, PartKind kind, Slots& slots);
  void addText(std::uint32_t item, std::size_t ownMarkup, bool mayBeLeftOut);
  void closeWith(std::string_view end);
  [[nodiscard]] bool isObject(std::uint32_t node) const;
  [[nodiscard]] bool isIn(SlotGroup const& group, std::uint32_t node) const;
  [[nodiscard]] std::string memberName(std::uint32_t node) const;

  layout::RecordSet const& m_set;
  layout::Layout const& m_layout;
  OutputRules const& m_rules;
  OperationList m_list;
};

/// Reports parts of one element whose names differ by their namespace only: members of
/// an object have no namespaces.
void checkMemberNames(layout::Layout const& layout, compiler::Diagnostics& diagnostics);

}  // namespace fdmorph::document
