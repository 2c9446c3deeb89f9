#include "document/program.h"

#include "document/json_program.h"
#include "document/xml_program.h"

namespace fdmorph::document {
namespace {

// The recursion is bounded by the number of levels.
double markupOf(Program const& program, layout::Layout const& layout, std::uint32_t begin,
                std::uint32_t end) {
  double bytes = 0;
  for (std::uint32_t at = begin; at < end; at = program.operations[at].end) {
    Operation const& each = program.operations[at];
    double const inner = markupOf(program, layout, at + 1, each.end);
    bool const isTable = each.kind == Operation::Kind::table;
    bytes += each.beforeSize + each.afterSize;
    bytes += isTable ? inner * static_cast<double>(layout[each.node].most) : inner;
  }
  return bytes;
}

}  // namespace

Program makeProgram(layout::RecordSet const& set, std::uint32_t record, OutputRules const& rules,
                    compiler::Diagnostics& diagnostics) {
  if (rules.syntax == Syntax::xml) return XmlProgram(set, record, rules).make();
  checkMemberNames(set.layouts()[record], diagnostics);
  return JsonProgram(set, record, rules).make();
}

double markupBytes(Program const& program, layout::Layout const& layout) {
  return markupOf(program, layout, 0, static_cast<std::uint32_t>(program.operations.size()));
}

}  // namespace fdmorph::document
