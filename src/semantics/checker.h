// The checker, the fifth pass: the rules that the grammar does not express.
//
// It resolves the names in clauses, passes usage and sign on from groups to their
// items, checks the clauses of each item and lays out the storage. It also runs
// after errors. Items with errors then have size 0, and the data must not be
// written.
#pragma once

#include "semantics/data_item.h"
#include "semantics/name_index.h"
#include "semantics/prefixed_names.h"
#include "source/diagnostics.h"

namespace fdmorph::compiler {

class Checker {
 public:
  /// Both objects must outlive this one.
  Checker(DataDivision& data, Diagnostics& diagnostics)
      : m_data(data), m_diagnostics(diagnostics) {}

  /// Checks the data division. To be called once.
  void check();

 private:
  void checkRecords(RecordList const& records);
  void checkSiblings(DataItem* first);
  void checkReferences();
  void checkDepending(DataItem& item, NameIndex& index);
  DataItem const* findCounter(DataItem const& table, NameIndex& index);
  void checkKeys(DataItem const& item, NameIndex& index);
  void checkFiles();
  void checkLengths();
  void checkRenames(DataItem& item, NameIndex& index);
  DataItem* findRenamed(QualifiedName const& name, DataItem const& item, NameIndex& index);
  void reportName(Code code, QualifiedName const& name, NameIndex::Outcome outcome);

  DataDivision& m_data;
  Diagnostics& m_diagnostics;
  std::unordered_map<DataItem const*, IntegerEnds> m_integers;  // by record, on demand
  bool m_hasReferences = false;                                 // some clause has a name to resolve
};

}  // namespace fdmorph::compiler
