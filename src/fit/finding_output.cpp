#include "fit/finding_output.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace fdmorph::fit {
namespace {

using compiler::LinePlace;
using compiler::Severity;
using nlohmann::ordered_json;

std::string_view nameOf(Severity severity) {
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

std::string placeText(std::string_view file, std::size_t line, std::size_t column) {
  std::string text(file);
  if (line != 0) text += ":" + std::to_string(line) + ":" + std::to_string(column);
  return text;
}

std::string counted(std::size_t count, Severity severity) {
  return std::to_string(count) + " " + std::string(nameOf(severity)) + (count == 1 ? "" : "s");
}

LinePlace locate(Finding const& finding, CheckedFiles const& files) {
  if (!finding.item.isKnown()) return {files.copybook, 0, 0, {}};
  return files.sources->locate(finding.item);
}

void addLine(std::string& out, Finding const& finding, CheckedFiles const& files) {
  LinePlace const place = locate(finding, files);
  std::string line = placeText(place.file, place.line, place.column) + ": " +
                     std::string(nameOf(finding.severity)) + ": ";
  if (!finding.path.empty()) line += finding.path + ": ";
  line += finding.text;
  if (!finding.schema.file.empty()) {
    SchemaPlace const& schema = finding.schema;
    line += " (" + placeText(schema.file, schema.line, schema.column) + ")";
  }
  if (!finding.schemaSide.empty()) line += "; schema: " + finding.schemaSide;
  if (!finding.itemSide.empty()) line += "; item: " + finding.itemSide;
  line += " [" + std::string(fit::nameOf(finding.code)) + "]";
  bool const isPrintable = std::ranges::all_of(line, [](char c) { return c >= ' ' && c <= '~'; });
  out += isPrintable ? line : compiler::printable(line);
  out += '\n';
}

ordered_json objectOf(Finding const& finding, CheckedFiles const& files) {
  LinePlace const place = locate(finding, files);
  ordered_json object = {{"code", fit::nameOf(finding.code)},
                         {"severity", nameOf(finding.severity)},
                         {"path", finding.path},
                         {"message", finding.text},
                         {"file", place.file}};
  if (place.line != 0) {
    object["line"] = place.line;
    object["column"] = place.column;
  }
  if (!finding.schema.file.empty()) object["schemaFile"] = finding.schema.file;
  if (finding.schema.line != 0) {
    object["schemaLine"] = finding.schema.line;
    object["schemaColumn"] = finding.schema.column;
  }
  if (!finding.schemaSide.empty()) object["schema"] = finding.schemaSide;
  if (!finding.itemSide.empty()) object["item"] = finding.itemSide;
  return object;
}

std::string textOf(ordered_json const& value) {
  return value.dump(-1, ' ', false, ordered_json::error_handler_t::replace);
}

}  // namespace

std::string printText(Findings const& findings, CheckedFiles const& files) {
  std::string out;
  for (Finding const& each : findings.kept()) addLine(out, each, files);
  std::size_t const hidden = findings.count() - findings.kept().size();
  if (hidden != 0) out += "fdrec: " + std::to_string(hidden) + " more findings are not shown\n";
  return out + "fdrec: " + counted(findings.countOf(Severity::error), Severity::error) + ", " +
         counted(findings.countOf(Severity::warning), Severity::warning) + ", " +
         counted(findings.countOf(Severity::note), Severity::note) + "\n";
}

// A finding is a line, so that memory is that of the text.
std::string printJson(Findings const& findings, CheckedFiles const& files) {
  std::string out = textOf({{"schema", files.schema},
                            {"copybook", files.copybook},
                            {"errors", findings.countOf(Severity::error)},
                            {"warnings", findings.countOf(Severity::warning)},
                            {"notes", findings.countOf(Severity::note)}});
  out.back() = ',';
  out += "\"findings\":[";
  char const* separator = "\n";
  for (Finding const& each : findings.kept()) {
    out += separator + textOf(objectOf(each, files));
    separator = ",\n";
  }
  return out + "\n]}\n";
}

}  // namespace fdmorph::fit
