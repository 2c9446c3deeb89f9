// Which records of a source a program works on.
#pragma once

#include <string>
#include <vector>

#include "frontend/compiled_source.h"

namespace fdmorph::record {

enum class RecordSection {
  automatic,  ///< the first that has a record, in the order below
  file,
  workingStorage,
  linkage,
  localStorage,
};

/// The choice of the user.
struct RecordChoice {
  std::vector<std::string> names;  ///< of level 01 or 77, compared in any case; empty: the first
  RecordSection section = RecordSection::automatic;
};

/// The records of a choice, in its order and each once. They are owned by the source.
///
/// Without names it is the first record; if that belongs to a file description, all
/// records of it, since they share one area. A name is searched in the section, or
/// in the first section that has it. Names that are not found, and a section without
/// records, are reported to the source; the result then lacks them.
[[nodiscard]] std::vector<compiler::DataItem const*> chooseRecords(compiler::CompiledSource& source,
                                                                   RecordChoice const& choice);

}  // namespace fdmorph::record
