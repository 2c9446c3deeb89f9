#include "library/conversion.h"

namespace fdmorph::library {
namespace {

document::OutputRules outputRules(fdrec::DataOptions const& data, document::Syntax syntax) {
  document::OutputRules rules = fdrec::makeOutputRules(data, syntax);
  rules.hasWrapper = false;
  return rules;
}

}  // namespace

Conversion::Conversion(layout::RecordSet const& set, fdrec::DataOptions const& data,
                       document::Syntax syntax, compiler::Diagnostics& diagnostics)
    : m_syntax(syntax),
      m_programs(set, outputRules(data, syntax), diagnostics),
      m_names(set.names(), fdrec::nameMatch(data, syntax)),
      m_readerOptions(fdrec::makeReaderOptions(set, m_names, data)),
      m_encodeRules(fdrec::makeEncodeRules(data, syntax)),
      m_isSingle(data.isSingle && syntax == document::Syntax::xml) {}

}  // namespace fdmorph::library
