// Parts of a long line of JSON that are encoded while the line is read.
#include <algorithm>

#include "document/json_parts.h"

namespace fdmorph::document {

bool JsonParts::readLong(JsonLine& line, std::size_t begin, DocumentRecord& record) {
  JsonScanner scanner(line.piece(), begin, &line);
  if (scanner.isAtEnd()) return false;
  readWith(scanner, record);
  return finish(scanner, line.malformedAt());
}

// A member that is there twice is dropped when its object ends, so that it must not be
// absorbed before.
bool JsonParts::hasRepeatedMember() const {
  std::vector<std::uint64_t> keys;
  for (Member const& each : m_members) {
    Target const& target = each.target;
    if (target.name == layout::kNone) continue;
    std::uint64_t const name = 2 * std::uint64_t{target.name} + (target.isAttribute ? 1 : 0);
    keys.push_back((std::uint64_t{target.parent} << 34U) + name);
  }
  std::ranges::sort(keys);
  return std::ranges::adjacent_find(keys) != keys.end();
}

void JsonParts::absorbParts() {
  Instances& instances = m_record->instances;
  if (instances.all.empty()) return;
  if (!hasRepeatedMember()) {
    std::vector<std::uint32_t> open;
    for (Level const& each : m_levels) {
      if (each.kind != Level::Kind::object) continue;
      if (each.part == kNoInstance) break;
      open.push_back(each.part);
    }
    nameFaults();
    std::vector<std::uint32_t> const removed =
        m_options->absorption.absorber->absorb(instances, open);
    renumber(instances.remove(removed));
  }
  m_absorption.set(instances);
}

// Gives the faults their paths while the parts are there.
void JsonParts::nameFaults() {
  std::erase_if(m_faults, [this](Fault const& each) { return !each.path && isToBeLeftOut(each); });
  for (Fault& each : m_faults) {
    if (!each.path) each.path = pathOf(each.target, each.part);
  }
}

void JsonParts::renumber(Instances::Renumbering const& numbers) {
  auto renumberTarget = [&numbers](Target& target) {
    if (target.parent != kNoInstance) target.parent = numbers.parts[target.parent];
    if (target.unknownName != kNoInstance) {
      target.unknownName = numbers.unknownNames[target.unknownName];
    }
  };
  for (Level& each : m_levels) {
    if (each.part != kNoInstance) each.part = numbers.parts[each.part];
    renumberTarget(each.element);
  }
  std::vector<Instance> const& all = m_record->instances.all;
  for (Member& each : m_members) {
    renumberTarget(each.target);
    std::uint32_t const first =
        each.firstPart == kNoInstance ? kNoInstance : numbers.parts[each.firstPart];
    std::uint32_t parts = 0;
    for (std::uint32_t i = first; i != kNoInstance && parts < each.parts; i = all[i].next) {
      if (all[i].name != each.target.name) break;
      ++parts;
    }
    each.firstPart = first;
    each.parts = parts;
  }
}

}  // namespace fdmorph::document
