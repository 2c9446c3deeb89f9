// Data divisions made by hand.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "semantics/data_item.h"

namespace fdmorph::compiler {

/// Builds the working storage of a program, item by item. A level above that of
/// the item before begins a group, as in a source. Names must outlive the builder.
class ItemBuilder {
 public:
  ItemBuilder() { data.isProgram = true; }

  /// Adds an item; without a picture it has none.
  DataItem& add(std::uint8_t level, std::string_view name, std::string_view picture = {}) {
    DataItem& item = data.items.emplace_back();
    item.level = level;
    item.name = name;
    if (!picture.empty()) {
      item.picture = &data.pictures.emplace_back(analysePicture(picture, {}, {}));
    }
    attach(item);
    return item;
  }

  /// Adds a table.
  DataItem& addTable(std::uint8_t level, std::string_view name, std::uint64_t occurrences,
                     std::string_view picture = {}) {
    DataItem& item = add(level, name, picture);
    item.occurs = std::make_unique<OccursClause>();
    item.occurs->least = item.occurs->most = occurrences;
    return item;
  }

  /// Adds an aligned binary number of 4 bytes.
  DataItem& addAligned(std::uint8_t level, std::string_view name) {
    DataItem& item = add(level, name, "9(9)");
    item.usage = item.effectiveUsage = Usage::comp;
    item.isSynchronized = true;
    return item;
  }

  DataDivision data;

 private:
  void attach(DataItem& item) {
    while (!m_open.empty() && m_open.back()->level >= item.level) m_open.pop_back();
    if (m_open.empty()) {
      link(data.workingStorage.first, data.workingStorage.last, item);
    } else {
      item.parent = m_open.back();
      link(item.parent->firstChild, item.parent->lastChild, item);
    }
    m_open.push_back(&item);
  }

  static void link(DataItem*& first, DataItem*& last, DataItem& item) {
    (last == nullptr ? first : last->next) = &item;
    last = &item;
  }

  std::vector<DataItem*> m_open;  // the groups around the next item, outermost first
};

}  // namespace fdmorph::compiler
