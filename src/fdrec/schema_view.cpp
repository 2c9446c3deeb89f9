#include "fdrec/schema_view.h"

#include <algorithm>
#include <map>
#include <utility>

#include "fit/fit_walk.h"
#include "fit/node_types.h"

namespace fdmorph::fdrec {
namespace {

using compiler::Severity;

char const* nameOf(Severity severity) {
  if (severity == Severity::error) return "error";
  return severity == Severity::warning ? "warning" : "note";
}

/// The nodes of a record by their places in the source.
class NodePlaces {
 public:
  explicit NodePlaces(record::RecordTree const& tree) {
    for (std::uint32_t i = 0; i < tree.nodes().size(); ++i) {
      compiler::Place place = tree.nodes()[i].item->place;
      m_nodes.emplace(std::pair(place.text, place.offset), i);
    }
  }

  // The record itself for a place that is none of them.
  std::uint32_t at(compiler::Place place) const {
    auto found = m_nodes.find({place.text, place.offset});
    return found == m_nodes.end() ? 0 : found->second;
  }

 private:
  std::map<std::pair<std::uint32_t, std::uint32_t>, std::uint32_t> m_nodes;
};

std::string textOf(fit::Finding const& finding) {
  std::string text = finding.text;
  if (!finding.schemaSide.empty()) text += "; schema: " + finding.schemaSide;
  if (!finding.itemSide.empty()) text += "; item: " + finding.itemSide;
  return text;
}

}  // namespace

SchemaViews viewSchema(CopybookFile& copybook, SchemaModel& model, std::string const& schemaFile,
                       CommonOptions const& options) {
  SchemaViews views;
  fit::FitOptions fitOptions;
  fitOptions.dialect = options.source.dialect;
  for (record::RecordTree const& tree : copybook.trees()) {
    fit::Findings findings;
    fit::checkFit(tree, model, schemaFile, fitOptions, findings);
    show::SchemaView& view = views.records.emplace_back();
    view.types = fit::typesOfNodes(tree, model);
    NodePlaces places(tree);
    for (fit::Finding const& each : findings.kept()) {
      view.findings.push_back({places.at(each.item), nameOf(each.severity),
                               std::string(fit::nameOf(each.code)), textOf(each), each.path});
    }
    std::ranges::stable_sort(view.findings, {}, &show::ShownFinding::node);
    views.hasErrors = views.hasErrors || findings.countOf(Severity::error) > 0;
    views.hasWarnings = views.hasWarnings || findings.countOf(Severity::warning) > 0;
  }
  return views;
}

}  // namespace fdmorph::fdrec
