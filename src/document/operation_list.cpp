#include "document/operation_list.h"

#include <utility>

namespace fdmorph::document {
namespace {

// Room for stores that are wider than what they write, and for a closing character.
constexpr std::uint64_t kSlack = 32;  // bytes

}  // namespace

std::uint32_t OperationList::add(Operation::Kind kind, std::uint32_t node) {
  auto number = static_cast<std::uint32_t>(m_program.operations.size());
  Operation& operation = m_program.operations.emplace_back();
  operation.kind = kind;
  operation.node = node;
  operation.end = number + 1;
  operation.before = static_cast<std::uint32_t>(m_program.markup.size());
  operation.beforeSize = static_cast<std::uint32_t>(m_pending.size());
  operation.reserve = m_pending.size() + kSlack;
  m_program.markup += m_pending;
  m_pending.clear();
  return number;
}

Operation& OperationList::addItem(Operation::Kind kind, std::uint32_t node,
                                  std::string_view after) {
  Operation& operation = m_program.operations[add(kind, node)];
  layout::Node const& item = m_layout[node];
  operation.after = static_cast<std::uint32_t>(m_program.markup.size());
  operation.afterSize = static_cast<std::uint32_t>(after.size());
  m_program.markup += after;
  operation.offset = item.offset;
  operation.format = item.format;
  operation.reserve += after.size() + values::Values::maxTextSize(item.format);
  return operation;
}

void OperationList::addEnd(Operation::Kind kind, std::string_view after) {
  Operation& operation = m_program.operations[add(kind, layout::kNone)];
  operation.after = static_cast<std::uint32_t>(m_program.markup.size());
  operation.afterSize = static_cast<std::uint32_t>(after.size());
  operation.reserve += after.size();
  m_program.markup += after;
}

void OperationList::end(std::uint32_t operation) {
  flush();
  m_program.operations[operation].end = static_cast<std::uint32_t>(m_program.operations.size());
}

void OperationList::flush() {
  if (!m_pending.empty()) add(Operation::Kind::markup, layout::kNone);
}

Program OperationList::finish() {
  flush();
  return std::move(m_program);
}

}  // namespace fdmorph::document
