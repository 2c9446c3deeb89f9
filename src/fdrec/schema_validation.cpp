#include "fdrec/schema_validation.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "document/value_errors.h"
#include "layout/occurrence.h"

namespace fdmorph::fdrec {
namespace {

using document::DataError;
using document::DataErrors;
using document::ErrorCode;
using document::Instance;
using layout::kNone;
using layout::Layout;

/// One occurrence of an item.
struct ItemPlace {
  std::uint32_t node;
  layout::Occurrence occurrence = {};
};

// Puts the place of an element's part into `place`: the occurrence `index` of a name over
// all its slots. False if the record has none.
bool enter(Layout const& layout, DocumentStep const& step, ItemPlace& place) {
  std::uint64_t before = 0;
  std::uint32_t first = kNone;
  std::uint32_t const element = place.node;
  for (std::uint32_t i = element + 1; i < layout.item(element).end; ++i) {
    record::RecordNode const& item = layout.item(i);
    bool const isNamed =
        item.enclosing == element && item.role == record::Role::element && item.name == step.name;
    if (!isNamed || (first != kNone && !layout::areSlotsOfOneName(layout, first, i))) continue;
    if (first == kNone) first = i;
    if (step.index - before < layout[i].most) {
      place.occurrence.at[layout[i].depth] = step.index - before;
      place.node = i;
      return true;
    }
    before += layout[i].most;
  }
  return false;
}

// The item that the last element of a path is, if the record has it.
std::optional<ItemPlace> findItem(Layout const& layout, std::vector<DocumentStep> const& path) {
  ItemPlace place{0};
  if (path.empty() || layout.item(0).name != path.front().name) return std::nullopt;
  for (std::size_t i = 1; i < path.size(); ++i) {
    if (!enter(layout, path[i], place)) return std::nullopt;
  }
  return place;
}

// The path of an element that the record does not have: that of the nearest one around
// it that it has, and names.
std::string pathOf(Layout const& layout, std::vector<DocumentStep> path) {
  std::string names;
  for (; !path.empty(); path.pop_back()) {
    if (auto place = findItem(layout, path)) {
      return layout::pathOf(layout, place->node, place->occurrence) + names;
    }
    names.insert(0, "/" + path.back().name);
  }
  return names.empty() ? names : names.substr(1);
}

DataError errorOf(Layout const& layout, DocumentFault const& fault) {
  DataError error{ErrorCode::schema, fault.text};
  error.path = pathOf(layout, fault.path);
  return error;
}

// The starts of elements in a document, as far as they are known: by number.
std::vector<Instance const*> elementsOf(document::Instances const& instances) {
  std::vector<Instance const*> elements;
  for (Instance const& each : instances.all) {
    if (!each.isAttribute) elements.push_back(&each);
  }
  return elements;
}

}  // namespace

document::DocumentCheck SchemaValidation::checkOfBytes(std::size_t thread) {
  return [this, &validator = m_schema.validator(thread)](
             std::string_view text, document::StoredRecord stored, std::uint32_t record) {
    Layout const& layout = m_set.layouts()[record];
    DataErrors errors;
    for (DocumentFault const& fault :
         validator.validate(text, document::kMaxErrorsPerRecord).faults) {
      DataError error = errorOf(layout, fault);
      std::optional<ItemPlace> item;
      if (!layout.shifts()) item = findItem(layout, fault.path);
      std::uint64_t size = stored.bytes.size();
      if (item) {
        error.offset = layout::offsetOf(layout, item->node, item->occurrence);
        size = layout[item->node].size;
      }
      if (error.offset < stored.bytes.size()) {
        error.bytes = document::shownBytes(stored.bytes, error.offset, size);
      }
      errors.push_back(std::move(error));
    }
    std::ranges::stable_sort(errors, {}, &DataError::offset);
    return errors;
  };
}

bool SchemaValidation::check(document::DocumentRecord& record) {
  ValidatedDocument const result =
      m_schema.validator(0).validate(record.text.memory(), document::kMaxErrorsPerRecord);
  if (result.faults.empty()) return true;
  // Parts that were left out have no places.
  std::vector<Instance const*> const elements = elementsOf(record.instances);
  bool const areAllThere = elements.size() == result.elements;
  for (DocumentFault const& fault : result.faults) {
    auto const layout = std::ranges::find_if(m_set.layouts(), [&fault](Layout const& each) {
      return !fault.path.empty() && each.item(0).name == fault.path.front().name;
    });
    DataError error =
        errorOf(layout == m_set.layouts().end() ? m_set.layouts().front() : *layout, fault);
    error.line = areAllThere ? elements[fault.element]->line : record.line;
    error.column = areAllThere ? elements[fault.element]->column : record.column;
    record.errors.push_back(std::move(error));
  }
  std::ranges::stable_sort(record.errors, [](DataError const& left, DataError const& right) {
    return std::pair(left.line, left.column) < std::pair(right.line, right.column);
  });
  return false;
}

}  // namespace fdmorph::fdrec
