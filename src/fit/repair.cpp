#include "fit/repair.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

namespace fdmorph::fit {
namespace {

constexpr std::string_view kHead = "fdrec: unbounded ";
constexpr std::string_view kLength = ", text ";

// The number at the beginning of `text`, which it is removed from.
std::optional<std::uint64_t> takeNumber(std::string_view& text) {
  std::uint64_t number = 0;
  auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || number == 0) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return number;
}

// Whether the text at `at` is all that follows the sign of a comment in its line.
bool beginsComment(std::string_view copybook, std::size_t at) {
  while (at > 0 && copybook[at - 1] == ' ') --at;
  if (at > 1 && copybook.substr(at - 2, 2) == "*>") return true;
  return at > 0 && copybook[at - 1] == '*';
}

}  // namespace

void addChanges(record::RecordTree const& tree, Repairs const& repairs,
                copybook::ItemChanges& changes) {
  for (auto const& [number, repair] : repairs) {
    compiler::DataItem const* item = tree.nodes()[number].item;
    copybook::ItemChange& change = changes[item];
    if (repair.picture) {
      change.picture = repair.picture->picture;
      change.usage = repair.picture->usage;
    }
    if (repair.occurrences) {
      std::uint64_t const least = item->occurs == nullptr ? 1 : item->occurs->least;
      change.occurs =
          copybook::OccursRange{std::min(least, *repair.occurrences), *repair.occurrences};
    }
  }
}

std::string limitsComment(FitLimits const& limits) {
  std::string text(kHead);
  text += std::to_string(limits.occurrences.value_or(kDefaultOccurrences));
  if (limits.length) text += std::string(kLength) + std::to_string(*limits.length);
  return text;
}

FitLimits readLimitsComment(std::string_view copybook) {
  for (std::size_t at = copybook.find(kHead); at != copybook.npos;
       at = copybook.find(kHead, at + 1)) {
    if (!beginsComment(copybook, at)) continue;
    FitLimits limits;
    std::string_view rest = copybook.substr(at + kHead.size());
    limits.occurrences = takeNumber(rest);
    if (limits.occurrences && rest.starts_with(kLength)) {
      rest.remove_prefix(kLength.size());
      limits.length = takeNumber(rest);
    }
    return limits;
  }
  return {};
}

FitLimits withComment(FitLimits const& given, std::string_view copybook) {
  FitLimits const comment = readLimitsComment(copybook);
  return {given.occurrences ? given.occurrences : comment.occurrences,
          given.length ? given.length : comment.length, given.areGiven};
}

std::string writeRepaired(std::vector<compiler::DataItem const*> const& items,
                          copybook::ItemChanges changes, FitLimits const& limits) {
  if (items.empty()) return {};
  // A record that the source only implies is not written.
  compiler::DataItem const* first = items.front();
  if (first->isImplied && first->firstChild != nullptr) first = first->firstChild;
  std::vector<std::string>& comments = changes[first].comments;
  comments.insert(comments.begin(), limitsComment(limits));
  return copybook::writeCopybook(items, {}, changes);
}

}  // namespace fdmorph::fit
