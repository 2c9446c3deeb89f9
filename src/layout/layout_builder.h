// The construction of a layout from the items of a record.
#pragma once

#include <unordered_map>

#include "layout/layout.h"

namespace fdmorph::layout {

/// Fills a layout, a property of its nodes after the other, and reports what makes it
/// unusable.
class LayoutBuilder {
 public:
  /// All objects must outlive this one.
  LayoutBuilder(Layout& layout, LayoutRules const& rules, values::Values const& values,
                Names& names, compiler::Diagnostics& diagnostics)
      : m_layout(layout),
        m_rules(rules),
        m_literals(values),
        m_names(names),
        m_diagnostics(diagnostics) {}

  void build();

 private:
  void makeNodes();
  void markRoles();
  void findAreas();
  void linkSlots();
  void findCounters();
  void findCounter(std::uint32_t table);
  std::uint32_t counterOf(compiler::DataItem const& item);
  void markVarying();
  void checkShifting();
  void placeCounts();
  void checkCountedSlots();
  void fillAbsent(std::uint32_t node, std::uint64_t offset, AbsentImage& image);
  void setCounters(std::uint32_t group, unsigned char* bytes);
  void setCounter(std::uint32_t node, unsigned char* bytes);
  void fillItems(std::uint32_t group, std::uint64_t offset, AbsentImage& image);
  [[nodiscard]] bool isInArea(std::uint32_t node) const;
  void report(std::uint32_t node, std::string text);

  Layout& m_layout;
  LayoutRules const& m_rules;
  values::LiteralBytes m_literals;
  Names& m_names;
  compiler::Diagnostics& m_diagnostics;
  std::unordered_map<compiler::DataItem const*, std::uint32_t> m_nodeOf;
  std::unordered_map<compiler::DataItem const*, std::uint32_t> m_counterOf;
};

/// Whether an item takes storage of its own: RENAMES and constants do not.
[[nodiscard]] bool isStored(compiler::DataItem const& item);

}  // namespace fdmorph::layout
