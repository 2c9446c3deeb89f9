#include "fdrec/part_overrides.h"

#include <charconv>
#include <system_error>

namespace fdmorph::fdrec {
namespace {

using record::RecordNode;
using record::Role;

constexpr std::uint64_t kMaxOccurrences = 0x7FFFFFFF;

std::optional<std::uint64_t> readOccurs(std::string_view text) {
  std::uint64_t number = 0;
  auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  bool isNumber = result.ec == std::errc() && result.ptr == text.data() + text.size();
  if (!isNumber || number == 0 || number > kMaxOccurrences) return std::nullopt;
  return number;
}

bool isElementary(record::RecordTree const& record, std::uint32_t node) {
  return record.nodes()[node].end == node + 1;
}

}  // namespace

PartOverrides::Parsed PartOverrides::parse(std::vector<std::string> const& occurs,
                                           std::vector<std::string> const& pictures) {
  Parsed parsed;
  auto add = [&parsed](std::string const& argument, bool isOccurs) {
    std::size_t equals = argument.find('=');
    bool hasParts = equals != argument.npos && equals > 0 && equals + 1 < argument.size();
    std::string value = hasParts ? argument.substr(equals + 1) : "";
    std::optional<std::uint64_t> number = isOccurs ? readOccurs(value) : 1;
    if (!hasParts || !number) {
      parsed.wrong = argument;
      return;
    }
    parsed.overrides.m_overrides.push_back({PathPattern(argument.substr(0, equals)), argument,
                                            *number, isOccurs ? std::string() : value});
  };
  for (std::string const& each : occurs) add(each, true);
  for (std::string const& each : pictures) add(each, false);
  return parsed;
}

std::vector<std::string> PartOverrides::apply(record::RecordTree const& record,
                                              copybook::ItemChanges& changes) const {
  std::vector<bool> isUsed(m_overrides.size());
  for (std::uint32_t node = 0; node < record.nodes().size() && !m_overrides.empty(); ++node) {
    std::string const path = record.xmlPath(node);
    if (path.empty()) continue;
    for (std::size_t i = 0; i < m_overrides.size(); ++i) {
      if (!m_overrides[i].path.matches(path)) continue;
      if (applyTo(m_overrides[i], record, node, changes)) isUsed[i] = true;
    }
  }
  std::vector<std::string> unused;
  for (std::size_t i = 0; i < m_overrides.size(); ++i) {
    if (!isUsed[i]) unused.push_back(m_overrides[i].argument);
  }
  return unused;
}

// A picture belongs to the elementary item with the text of the part, a number of
// occurrences to the element.
bool PartOverrides::applyTo(Override const& change, record::RecordTree const& record,
                            std::uint32_t node, copybook::ItemChanges& changes) {
  RecordNode const& each = record.nodes()[node];
  if (change.picture.empty()) {
    if (each.role != Role::element || node == 0) return false;
    changes[each.item].occurs = copybook::OccursRange{change.occurs, change.occurs};
    return true;
  }
  if (!isElementary(record, node) || each.role == Role::none || each.role == Role::transparent) {
    return false;
  }
  copybook::ItemChange& written = changes[each.item];
  written.picture = change.picture;
  if (!each.item->picture) written.usage = compiler::Usage::display;
  return true;
}

}  // namespace fdmorph::fdrec
