#include "compiler/redefinitions.h"

namespace fdmorph::compiler {

void Redefinitions::visit(DataItem& item) {
  if (!item.isRedefinition) {
    m_base = &item;
    m_lastAlias = nullptr;
    m_aliases.clear();
    return;
  }
  QualifiedName const& target = *item.related;
  if (target.name.empty()) return;  // reported by the parser
  bool isKnown =
      m_base != nullptr && (equalsBlindly(m_base->name, target.name) || isAlias(target.name, item));
  if (!isKnown) {
    m_diagnostics.report(Code::redefines, target.place,
                         "REDEFINES names " + quoted(target.name) +
                             ", which isn't the item before it in the same group");
    m_base = &item;
    return;
  }
  if (m_base->occurs) {
    m_diagnostics.report(Code::redefinesTable, target.place,
                         quoted(target.name) + " is a table, which should not be redefined");
  }
  item.redefined = m_base;
}

// The names are gathered only where one is asked for, each once.
bool Redefinitions::isAlias(std::string_view name, DataItem const& upTo) {
  DataItem* next = m_lastAlias == nullptr ? m_base->next : m_lastAlias->next;
  for (; next != nullptr && next != &upTo; next = next->next) {
    m_aliases.try_emplace(next->name, next);
    m_lastAlias = next;
  }
  return m_aliases.contains(name);
}

}  // namespace fdmorph::compiler
