// What is shown: the records of one source and how their data is stored.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "record/record_tree.h"
#include "semantics/usage.h"
#include "source/source_files.h"

namespace fdmorph::show {

/// Something that a check of a record against a schema found.
struct ShownFinding {
  std::uint32_t node = 0;
  std::string severity;  ///< "error", "warning" or "note"
  std::string code;
  std::string text;  ///< with what the schema and the item have
  std::string path;  ///< in the document
};

/// What a schema says of the items of one record.
struct SchemaView {
  std::vector<std::string> types;      ///< by node, in words; empty where there is none
  std::vector<ShownFinding> findings;  ///< by their nodes
};

/// Looks at the source, which must outlive it.
struct ShownSource {
  std::string file;  ///< the name of the source in messages
  compiler::Dialect dialect = compiler::Dialect::ibm;
  std::string encoding;                         ///< of the data
  std::span<record::RecordTree const> records;  ///< without errors of the compiler
  compiler::Sources const* sources = nullptr;   ///< not null
  std::string schema = {};                      ///< the name of its file; empty if there is none
  std::span<SchemaView const> views = {};       ///< one for each record if there is a schema
};

[[nodiscard]] constexpr std::string_view nameOf(compiler::Dialect dialect) {
  return dialect == compiler::Dialect::ibm ? "ibm" : "gnucobol";
}

/// What is easily confused with an encoding, in words; empty if nothing is.
[[nodiscard]] constexpr std::string_view remarkOn(std::string_view encoding) {
  if (encoding == "cp037") return "cp1047 has other brackets";
  if (encoding == "cp1047") return "cp037 has other brackets";
  return {};
}

}  // namespace fdmorph::show
