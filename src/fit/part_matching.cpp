#include "fit/part_matching.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace fdmorph::fit {

PartMatch matchParts(std::vector<RecordPart> const& elements, Content const& content) {
  PartMatch match;
  match.partOf.resize(elements.size());
  match.itemOf.resize(content.parts.size());
  auto join = [&match](std::size_t item, std::size_t part) {
    match.partOf[item] = part;
    match.itemOf[part] = item;
  };
  std::unordered_map<std::string, std::size_t> exact;
  std::unordered_map<std::string_view, std::size_t> local;
  for (std::size_t i = 0; i < content.parts.size(); ++i) {
    ContentPart const& part = content.parts[i];
    if (part.isGroup) continue;
    exact.try_emplace(part.element->name.space + ' ' + part.element->name.local, i);
  }
  for (std::size_t i = 0; i < elements.size(); ++i) {
    auto found =
        exact.find(std::string(elements[i].namespaceUri) + ' ' + std::string(elements[i].name));
    if (found != exact.end()) join(i, found->second);
  }
  for (std::size_t i = 0; i < content.parts.size(); ++i) {
    ContentPart const& part = content.parts[i];
    if (!part.isGroup && !match.itemOf[i]) local.try_emplace(part.element->name.local, i);
  }
  for (std::size_t i = 0; i < elements.size(); ++i) {
    if (match.partOf[i]) continue;
    auto found = local.find(elements[i].name);
    if (found != local.end() && !match.itemOf[found->second]) join(i, found->second);
  }
  return match;
}

}  // namespace fdmorph::fit
