// What the rules of a check share. For this folder only.
#pragma once

#include <string>
#include <unordered_map>

#include "fit/content.h"
#include "fit/fit_walk.h"
#include "fit/part_counts.h"

namespace fdmorph::fit {

/// An element of the record and of the schema.
struct Subject {
  std::uint32_t node;
  SchemaElement const& element;
  SchemaType const& type;
  RecordParts const& parts;
};

struct WalkContext {
  record::RecordTree const& tree;
  SchemaModel& model;
  FitOptions const& options;
  Findings& findings;
  Repairs& repairs;
  std::unordered_map<SchemaType const*, Content> contents;  ///< of the types met so far

  record::RecordNode const& node(std::uint32_t number) const { return tree.nodes()[number]; }

  Content const& contentOf(SchemaType const& type);

  void add(Finding finding) { findings.add(std::move(finding)); }

  /// A finding about an element as a whole.
  void add(Subject const& subject, FindingCode code, std::string text);

  /// A finding about the item `number` in the element, without its sides.
  [[nodiscard]] Finding findingAt(std::uint32_t number, Subject const& subject, FindingCode code,
                                  std::string text) const;
};

}  // namespace fdmorph::fit
