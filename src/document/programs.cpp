#include "document/programs.h"

namespace fdmorph::document {

Programs::Programs(layout::RecordSet const& set, OutputRules const& rules,
                   compiler::Diagnostics& diagnostics)
    : m_set(set), m_rules(rules) {
  for (std::uint32_t i = 0; i < set.layouts().size(); ++i) {
    m_programs.push_back(makeProgram(set, i, m_rules, diagnostics));
  }
}

}  // namespace fdmorph::document
