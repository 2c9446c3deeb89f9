#include "mapping/mapping_finding.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

namespace fdmorph::mapping {
namespace {

using compiler::Severity;
using nlohmann::ordered_json;

constexpr std::array kRows{
    MappingCodeRow{MappingCode::xml, "xml", Severity::error},
    MappingCodeRow{MappingCode::root, "root", Severity::error},
    MappingCodeRow{MappingCode::element, "element", Severity::error},
    MappingCodeRow{MappingCode::place, "place", Severity::error},
    MappingCodeRow{MappingCode::text, "text", Severity::error},
    MappingCodeRow{MappingCode::attributes, "attributes", Severity::warning},
    MappingCodeRow{MappingCode::space, "namespace", Severity::warning},
    MappingCodeRow{MappingCode::repeated, "repeated", Severity::error},
    MappingCodeRow{MappingCode::key, "key", Severity::error},
    MappingCodeRow{MappingCode::item, "item", Severity::error},
    MappingCodeRow{MappingCode::duplicate, "duplicate", Severity::error},
    MappingCodeRow{MappingCode::noEffect, "no-effect", Severity::warning},
    MappingCodeRow{MappingCode::flag, "flag", Severity::error},
    MappingCodeRow{MappingCode::name, "name", Severity::error},
    MappingCodeRow{MappingCode::emptyGroup, "empty-group", Severity::error},
    MappingCodeRow{MappingCode::type, "type", Severity::error},
    MappingCodeRow{MappingCode::typeForm, "type-form", Severity::error},
    MappingCodeRow{MappingCode::groupType, "group-type", Severity::warning},
    MappingCodeRow{MappingCode::uri, "uri", Severity::error},
    MappingCodeRow{MappingCode::otherNamespace, "other-namespace", Severity::warning},
    MappingCodeRow{MappingCode::attribute, "attribute", Severity::error},
    MappingCodeRow{MappingCode::flagPassedOn, "no-entry", Severity::error},
    MappingCodeRow{MappingCode::sameName, "same-name", Severity::error},
    MappingCodeRow{MappingCode::edit, "edit", Severity::warning},
    MappingCodeRow{MappingCode::rename, "rename", Severity::error},
    MappingCodeRow{MappingCode::moved, "moved", Severity::note},
    MappingCodeRow{MappingCode::renamed, "renamed", Severity::note},
    MappingCodeRow{MappingCode::gone, "gone", Severity::warning},
    MappingCodeRow{MappingCode::added, "new", Severity::note},
    MappingCodeRow{MappingCode::kept, "kept", Severity::note},
};

// A code is the index of its row.
constexpr bool isEachAtItsIndex() {
  for (std::size_t i = 0; i < kRows.size(); ++i) {
    if (static_cast<std::size_t>(kRows[i].code) != i) return false;
  }
  return true;
}
static_assert(isEachAtItsIndex());

std::string_view wordOf(Severity severity) {
  switch (severity) {
    case Severity::error:
      return "error";
    case Severity::warning:
      return "warning";
    case Severity::note:
      break;
  }
  return "note";
}

std::string numberOf(std::size_t count, Severity severity) {
  return std::to_string(count) + " " + std::string(wordOf(severity)) + (count == 1 ? "" : "s");
}

std::string lineOf(MappingFinding const& finding, std::string_view file) {
  std::string line(file);
  if (finding.place.line != 0) {
    line += ":" + std::to_string(finding.place.line) + ":" + std::to_string(finding.place.column);
  }
  line += ": " + std::string(wordOf(finding.severity())) + ": ";
  if (!finding.item.empty()) line += finding.item + ": ";
  line += finding.text + " [" + std::string(finding.name()) + "]";
  return compiler::printable(line) + "\n";
}

ordered_json objectOf(MappingFinding const& finding, std::string_view file) {
  ordered_json object = {{"code", finding.name()}, {"severity", wordOf(finding.severity())}};
  if (!finding.item.empty()) object["item"] = finding.item;
  object["message"] = finding.text;
  object["file"] = file;
  if (finding.place.line != 0) {
    object["line"] = finding.place.line;
    object["column"] = finding.place.column;
  }
  return object;
}

std::string textOf(ordered_json const& value) {
  return value.dump(-1, ' ', false, ordered_json::error_handler_t::replace);
}

}  // namespace

std::span<MappingCodeRow const> allMappingCodes() {
  return kRows;
}

std::string_view MappingFinding::name() const {
  return kRows[static_cast<std::size_t>(code)].name;
}

Severity MappingFinding::severity() const {
  return kRows[static_cast<std::size_t>(code)].severity;
}

void MappingFindings::add(MappingFinding finding) {
  ++m_counts[static_cast<std::size_t>(finding.severity())];
  if (m_kept.size() < kMaxKept) m_kept.push_back(std::move(finding));
}

void MappingFindings::sort() {
  std::ranges::stable_sort(m_kept, {}, [](MappingFinding const& each) {
    return std::pair(each.place.line, each.place.column);
  });
}

std::string printText(MappingFindings const& findings, std::string_view file, std::size_t most) {
  std::string out;
  std::array<std::size_t, 3> shown{};
  std::size_t lines = 0;
  for (MappingFinding const& each : findings.kept()) {
    if (shown[static_cast<std::size_t>(each.severity())]++ >= most) continue;
    out += lineOf(each, file);
    ++lines;
  }
  std::size_t const hidden = findings.count() - lines;
  if (hidden != 0) out += "fdrec: " + std::to_string(hidden) + " more findings are not shown\n";
  return out + "fdrec: " + numberOf(findings.countOf(Severity::error), Severity::error) + ", " +
         numberOf(findings.countOf(Severity::warning), Severity::warning) + ", " +
         numberOf(findings.countOf(Severity::note), Severity::note) + "\n";
}

// A finding is a line, so that memory is that of the text.
std::string printJson(MappingFindings const& findings, std::string_view file,
                      std::string_view copybook) {
  std::string out = textOf({{"copybook", copybook},
                            {"mapping", file},
                            {"errors", findings.countOf(Severity::error)},
                            {"warnings", findings.countOf(Severity::warning)},
                            {"notes", findings.countOf(Severity::note)}});
  out.back() = ',';
  out += "\"findings\":[";
  char const* separator = "\n";
  for (MappingFinding const& each : findings.kept()) {
    out += separator + textOf(objectOf(each, file));
    separator = ",\n";
  }
  return out + "\n]}\n";
}

}  // namespace fdmorph::mapping
