// A program while it is made: markup gathers until an operation takes it.
#pragma once

#include <string>
#include <string_view>

#include "document/program.h"

namespace fdmorph::document {

class OperationList {
 public:
  explicit OperationList(layout::RecordSet const& set, std::uint32_t record)
      : m_layout(set.layouts()[record]) {}

  /// Adds markup before what comes next.
  void write(std::string_view markup) { m_pending += markup; }

  /// The markup that no operation has taken yet.
  [[nodiscard]] std::string& pending() { return m_pending; }

  /// Adds an operation on a node, which takes the pending markup.
  std::uint32_t add(Operation::Kind kind, std::uint32_t node);

  /// Adds an operation for the text of an item.
  Operation& addItem(Operation::Kind kind, std::uint32_t node, std::string_view after);

  /// Adds an operation that ends something with markup.
  void addEnd(Operation::Kind kind, std::string_view after);

  /// Begins an operation that others belong to. The result is its number.
  std::uint32_t open(Operation::Kind kind, std::uint32_t node) { return add(kind, node); }

  /// Ends an operation; pending markup belongs to it.
  void end(std::uint32_t operation);

  /// Makes the pending markup an operation.
  void flush();

  [[nodiscard]] Program finish();

 private:
  layout::Layout const& m_layout;
  Program m_program;
  std::string m_pending;
};

}  // namespace fdmorph::document
