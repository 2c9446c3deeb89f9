// Which item a REDEFINES clause means.
#pragma once

#include <string_view>
#include <unordered_map>

#include "compiler/data_item.h"
#include "compiler/diagnostics.h"
#include "compiler/letters.h"

namespace fdmorph::compiler {

/// Walks the items of one group, in order. The item redefined is the last one
/// with storage of its own, called by its name or by that of another item that
/// redefines it.
class Redefinitions {
 public:
  explicit Redefinitions(Diagnostics& diagnostics) : m_diagnostics(diagnostics) {}

  void visit(DataItem& item);

 private:
  bool isAlias(std::string_view name, DataItem const& upTo);

  Diagnostics& m_diagnostics;
  DataItem* m_base = nullptr;
  DataItem* m_lastAlias = nullptr;  // the last one in m_aliases
  std::unordered_map<std::string_view, DataItem*, BlindHash, BlindEqual> m_aliases;
};

}  // namespace fdmorph::compiler
