// The checker, the fifth pass: what the grammar doesn't say.
//
// It finds the items that clauses name, hands usage and sign on from groups,
// checks the clauses of each item against each other and lays out the storage.
// It runs on the tree of a source with errors, too; sizes of items that are
// wrong are 0 then, and nothing may be written from it.
#pragma once

#include "semantics/data_item.h"
#include "semantics/name_index.h"
#include "source/diagnostics.h"

namespace fdmorph::compiler {

class Checker {
 public:
  Checker(DataDivision& data, Diagnostics& diagnostics)
      : m_data(data), m_diagnostics(diagnostics) {}

  void check();

 private:
  void checkRecords(RecordList const& records);
  void checkSiblings(DataItem* first);
  void checkReferences();
  void checkDepending(DataItem& item, NameIndex& index);
  void checkKeys(DataItem const& item, NameIndex& index);
  void checkFiles();
  void checkLengths();
  void checkRenames(DataItem& item, NameIndex& index);
  void reportName(Code code, QualifiedName const& name, NameIndex::Outcome outcome);

  DataDivision& m_data;
  Diagnostics& m_diagnostics;
  bool m_hasReferences = false;  // names that an index is worth for
};

}  // namespace fdmorph::compiler
