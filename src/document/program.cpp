#include "document/program.h"

#include "document/json_program.h"
#include "document/xml_program.h"

namespace fdmorph::document {

Program makeProgram(layout::RecordSet const& set, std::uint32_t record, OutputRules const& rules,
                    compiler::Diagnostics& diagnostics) {
  if (rules.syntax == Syntax::xml) return XmlProgram(set, record, rules).make();
  checkMemberNames(set.layouts()[record], diagnostics);
  return JsonProgram(set, record, rules).make();
}

}  // namespace fdmorph::document
