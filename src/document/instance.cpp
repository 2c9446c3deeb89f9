#include "document/instance.h"

#include <utility>

namespace fdmorph::document {

// Parents stand before their children.
Instances::Renumbering Instances::remove(std::vector<std::uint32_t> const& parts) {
  Renumbering result;
  result.parts.resize(all.size(), kNoInstance);
  std::vector<bool> areNamesRemoved(unknownNames.size());
  std::string keptTexts;
  std::uint32_t kept = 0;
  auto next = parts.begin();
  for (std::uint32_t i = 0; i < all.size(); ++i) {
    Instance part = all[i];
    bool const isRemoved = next != parts.end() && *next == i;
    if (isRemoved) ++next;
    bool const isInRemoved = part.parent != kNoInstance && result.parts[part.parent] == kNoInstance;
    if (isRemoved || isInRemoved) {
      if (part.unknownName != kNoInstance) areNamesRemoved[part.unknownName] = true;
      continue;
    }
    result.parts[i] = kept;
    std::size_t const begin = keptTexts.size();
    keptTexts.append(texts, part.textBegin, part.textSize);
    part.textBegin = begin;
    all[kept++] = part;
  }
  texts = std::move(keptTexts);
  all.erase(all.begin() + kept, all.end());
  removeNames(areNamesRemoved, result);
  auto renumber = [](std::uint32_t& number, std::vector<std::uint32_t> const& numbers) {
    if (number != kNoInstance) number = numbers[number];
  };
  for (Instance& each : all) {
    renumber(each.parent, result.parts);
    renumber(each.firstChild, result.parts);
    renumber(each.lastChild, result.parts);
    renumber(each.next, result.parts);
    renumber(each.unknownName, result.unknownNames);
  }
  return result;
}

void Instances::removeNames(std::vector<bool> const& areRemoved, Renumbering& numbers) {
  numbers.unknownNames.resize(unknownNames.size(), kNoInstance);
  std::uint32_t kept = 0;
  for (std::size_t i = 0; i < unknownNames.size(); ++i) {
    if (areRemoved[i]) continue;
    numbers.unknownNames[i] = kept;
    if (kept != i) unknownNames[kept] = std::move(unknownNames[i]);
    ++kept;
  }
  unknownNames.resize(kept);
}

}  // namespace fdmorph::document
