// The errors of a line of JSON, and their paths.
#include <algorithm>

#include "document/json_parts.h"

namespace fdmorph::document {

void JsonParts::addFault(std::size_t offset, ErrorCode code, std::string_view text,
                         Target const& target, std::uint32_t part) {
  m_faults.push_back({offset, code, text, target, part, {}});
}

void JsonParts::reportMalformed(std::size_t offset, std::string_view text) {
  m_record->instances.clear();
  m_record->errors.push_back({.code = ErrorCode::json,
                              .text = std::string(text),
                              .line = m_record->line,
                              .column = offset + 1});
}

void JsonParts::reportFaults() {
  std::stable_sort(m_faults.begin(), m_faults.end(),
                   [](Fault const& a, Fault const& b) { return a.offset < b.offset; });
  for (Fault const& fault : m_faults) {
    if (m_record->errors.size() == kMaxErrorsPerRecord) break;
    if (!fault.path && isToBeLeftOut(fault)) continue;
    m_record->errors.push_back({.code = fault.code,
                                .text = std::string(fault.text),
                                .path = fault.path ? *fault.path : pathOf(fault.target, fault.part),
                                .line = m_record->line,
                                .column = fault.offset + 1});
  }
}

// Whether a fault is that of a part that is dropped, or in a broken one.
bool JsonParts::isToBeLeftOut(Fault const& fault) const {
  bool const isDropped = fault.part != kNoInstance && m_record->instances.all[fault.part].isDropped;
  return isDropped || isInBroken(fault.target.parent);
}

// A part that is dropped or broken has one error, and what is in it has none.
bool JsonParts::isInBroken(std::uint32_t part) const {
  std::vector<Instance> const& all = m_record->instances.all;
  for (; part != kNoInstance; part = all[part].parent) {
    if (all[part].isBroken) return true;
  }
  return false;
}

std::string JsonParts::pathOf(Target const& target, std::uint32_t part) const {
  std::vector<Instance> const& all = m_record->instances.all;
  std::string path;
  if (target.parent != kNoInstance) {
    Instance const& parent = all[target.parent];
    Target outer{.parent = parent.parent,
                 .name = parent.name,
                 .unknownName = parent.unknownName,
                 .isPart = true,
                 .isAttribute = parent.isAttribute,
                 .isInArray = parent.isInArray};
    path = pathOf(outer, target.parent);
  }
  if (target.name == kTextMember) return path;
  if (!path.empty()) path += '/';
  if (target.name != layout::kNone) {
    if (target.isAttribute) path += '@';
    path += m_index->localName(target.name);
  } else if (target.unknownName != kNoInstance) {
    path += m_record->instances.unknownNames[target.unknownName];
  }
  if (!target.isInArray || part == kNoInstance || target.parent == kNoInstance) return path;
  std::size_t place = 1;
  for (std::uint32_t i = all[target.parent].firstChild; i != part; i = all[i].next) {
    if (all[i].name == target.name && all[i].isAttribute == target.isAttribute &&
        (target.name != layout::kNone ||
         m_record->instances.unknownNames[all[i].unknownName] ==
             m_record->instances.unknownNames[target.unknownName])) {
      place += all[i].standsFor;
    }
  }
  return path + '[' + std::to_string(place) + ']';
}

}  // namespace fdmorph::document
